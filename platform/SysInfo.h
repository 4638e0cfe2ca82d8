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
    };

    SysInfo();
    ~SysInfo() override;
    static SysInfo &current();

    /// 2, the NT family, and 5: the branches of that family are the ones that hold here.
    static constexpr int OSPlatform = 2;
    static constexpr int OSVersion = 5;

    /// Follow the screen of this window from now on; the primary screen until then.
    void follow(QWindow *window);
    /// Put this screen in place of the real one and report the change; nothing gives the real one
    /// back.
    void pretend(const std::optional<Screen> &screen);

    /// Width of the screen in device-independent pixels; 0 without a screen.
    int screenWidth() const;
    /// The screen without panels and docks, in device-independent pixels.
    QRect workAreaPixels() const;
    double WorkAreaWidth() const;  ///< twips
    double WorkAreaHeight() const; ///< twips
    /// Twips of one device-independent pixel.
    TwipScale scale() const;

    /// Log-in name from the system's user data base; the empty string if there is no entry.
    static QString userName();
    /// The user's documents folder without a closing separator; it need not exist.
    static QString documentsFolder();

signals:
    /// Size, work area or density changed, or the window moved to another screen.
    void DisplayChanged();

private:
    void watch(QScreen *screen);
    Screen look() const;

    static SysInfo *Current;
    QPointer<QScreen> Watched;
    std::optional<Screen> Pretended;
};
