// The least size of a window that can be resized, as its frame has it. Knows no window of ours.
#pragma once

#include <QSize>

class QWidget;

/// What the frame of the layout's desktop adds to the content, in pixels. A window reckons with it
/// whatever its frame is like here, so that its layout is the same on every desktop.
inline constexpr QSize SizableFrame(8, 27);

/// Pixels, frame included: the user can't drag the window's frame below this.
inline constexpr QSize ptMinTrackSize(720, 320);

/// Holds the window to ptMinTrackSize, and to `least` where that is larger (pixels, frame
/// included). A window that is smaller now is made larger.
void HoldTrackSize(QWidget &window, const QSize &least = {});
