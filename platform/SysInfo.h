// What the program asks the desktop about the screen and the user: the screen that the window is
// on, its work area, its density, and the event of their change. Knows no window of ours.
#pragma once

#include "platform/Twips.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <optional>

class QScreen;
class QWindow;

/// One object for the run, made after the application object and known through current().
class SysInfo : public QObject
{
    Q_OBJECT

public:
    /// A screen that is not there, so that a test depends on no display.
    struct Screen
    {
        QSize Pixels{1024, 768}; ///< device-independent pixels
        QRect WorkArea;          ///< pixels; empty means the whole screen
        double DotsPerInch = 96;
        bool PlacesWindows = true; ///< see SysInfo::PlacesWindows
    };

    SysInfo();
    ~SysInfo() override;
    static SysInfo &current();

    /// 2, the NT family, and 5: the branches of that family are the ones that hold here.
    static constexpr int OSPlatform = 2;
    static constexpr int OSVersion = 5;

    /// Follow the screen of this window from now on; the primary screen until then.
    void follow(QWindow *window);
    /// Put this screen in place of the real one and report the change.
    void pretend(const std::optional<Screen> &screen);

    /// Size of the screen in device-independent pixels; 0 without a screen.
    int screenWidth() const;
    int screenHeight() const;
    /// The screen without panels and docks: its place on the desktop and its size, in twips.
    double WorkAreaLeft() const;
    double WorkAreaTop() const;
    double WorkAreaWidth() const;
    double WorkAreaHeight() const;
    /// Twips of one device-independent pixel.
    TwipScale scale() const;
    /// Whether a program says where on the screen its windows stand, and can ask. Under Wayland
    /// both are the desktop's affair alone, and the work area is the whole screen.
    bool PlacesWindows() const;

    /// Log-in name from the system's user data base; the empty string if there is no entry.
    static QString userName();
    /// The user's documents folder without a closing separator; it need not exist.
    static QString documentsFolder();

signals:
    /// The screen has another size or density, or the window is on another screen that has. It
    /// comes by the event loop, never from within the window system's own events.
    void DisplayChanged();

private:
    void watch(QScreen *screen);
    void compare();
    const Screen &look() const { return Seen; }

    static SysInfo *Current;
    QPointer<QScreen> Watched;
    std::optional<Screen> Pretended;
    Screen Seen; ///< as last looked at; kept while the desktop has no screen at all
};
