// The screen and the user, from the toolkit and the system's user data base.
#include "platform/SysInfo.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QWindow>
#include <pwd.h>
#include <unistd.h>

SysInfo *SysInfo::Current = nullptr;

SysInfo::SysInfo()
{
    Q_ASSERT(!Current);
    Current = this;
    watch(QGuiApplication::primaryScreen());
}

SysInfo::~SysInfo()
{
    Current = nullptr;
}

SysInfo &SysInfo::current()
{
    Q_ASSERT(Current);
    return *Current;
}

void SysInfo::follow(QWindow *window)
{
    connect(window, &QWindow::screenChanged, this, &SysInfo::watch, Qt::QueuedConnection);
    watch(window->screen());
}

void SysInfo::watch(QScreen *screen)
{
    if (Watched)
        Watched->disconnect(this);
    Watched = screen;
    if (!screen)
        return;
    for (const auto signal : {&QScreen::geometryChanged, &QScreen::availableGeometryChanged})
        connect(screen, signal, this, &SysInfo::compare, Qt::QueuedConnection);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &SysInfo::compare,
            Qt::QueuedConnection);
    compare();
}

void SysInfo::pretend(const std::optional<Screen> &screen)
{
    Pretended = screen;
    compare();
}

void SysInfo::compare()
{
    Screen now = Seen;
    if (Pretended)
        now = *Pretended;
    else if (Watched && !Watched->size().isEmpty())
        now = {.Pixels = Watched->size(),
               .WorkArea = Watched->availableGeometry(),
               .DotsPerInch = Watched->logicalDotsPerInchX(),
               .PlacesWindows = !QGuiApplication::platformName().startsWith("wayland")};
    if (now.WorkArea.isEmpty())
        now.WorkArea = QRect(QPoint(0, 0), now.Pixels);
    // A panel that comes or goes changes the work area, but it is no change of the display.
    const bool changed = now.Pixels != Seen.Pixels || now.DotsPerInch != Seen.DotsPerInch;
    Seen = now;
    if (changed)
        emit DisplayChanged();
}

int SysInfo::screenWidth() const
{
    return look().Pixels.width();
}

int SysInfo::screenHeight() const
{
    return look().Pixels.height();
}

double SysInfo::WorkAreaLeft() const
{
    return look().WorkArea.left() * scale().X;
}

double SysInfo::WorkAreaTop() const
{
    return look().WorkArea.top() * scale().Y;
}

double SysInfo::WorkAreaWidth() const
{
    return look().WorkArea.width() * scale().X;
}

double SysInfo::WorkAreaHeight() const
{
    return look().WorkArea.height() * scale().Y;
}

TwipScale SysInfo::scale() const
{
    const double dotsPerInch = look().DotsPerInch;
    const double twips = dotsPerInch > 0 ? 1440 / dotsPerInch : 15;
    return {.X = twips, .Y = twips};
}

bool SysInfo::PlacesWindows() const
{
    return look().PlacesWindows;
}

QString SysInfo::userName()
{
    const passwd *entry = getpwuid(geteuid());
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
}

QString SysInfo::documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}
