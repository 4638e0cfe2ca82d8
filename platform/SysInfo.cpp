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
    watch(window->screen());
    connect(window, &QWindow::screenChanged, this, [this](QScreen *screen) {
        watch(screen);
        emit DisplayChanged();
    });
}

void SysInfo::watch(QScreen *screen)
{
    if (Watched)
        Watched->disconnect(this);
    Watched = screen;
    if (!screen)
        return;
    connect(screen, &QScreen::geometryChanged, this, &SysInfo::DisplayChanged);
    connect(screen, &QScreen::availableGeometryChanged, this, &SysInfo::DisplayChanged);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &SysInfo::DisplayChanged);
}

void SysInfo::pretend(const std::optional<Screen> &screen)
{
    Pretended = screen;
    emit DisplayChanged();
}

SysInfo::Screen SysInfo::look() const
{
    if (Pretended) {
        Screen screen = *Pretended;
        if (screen.WorkArea.isEmpty())
            screen.WorkArea = QRect(QPoint(0, 0), screen.Pixels);
        return screen;
    }
    if (!Watched)
        return {.Pixels = QSize(0, 0), .WorkArea = QRect(), .DotsPerInch = 96};
    return {.Pixels = Watched->size(),
            .WorkArea = Watched->availableGeometry(),
            .DotsPerInch = Watched->logicalDotsPerInchX()};
}

int SysInfo::screenWidth() const
{
    return look().Pixels.width();
}

QRect SysInfo::workAreaPixels() const
{
    return look().WorkArea;
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

QString SysInfo::userName()
{
    const passwd *entry = getpwuid(geteuid());
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
}

QString SysInfo::documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}
