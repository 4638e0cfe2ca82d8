// The FontMap's two colours on the dialogs, for those who chose to have them there.
#pragma once

#include <initializer_list>

class QWidget;

/// With ColorSchemeOn, gives the controls the text and background colours of the FontMap;
/// otherwise, and before there is a main window, they stay as they are.
void WearColorScheme(std::initializer_list<QWidget *> controls);
