// Starts the desktop layer and the main window, and is the last resort for a failure: what no
// procedure catches is told in a dialog and ends the program with a status that is not 0.
#include "core/CommandLine.h"
#include "core/RegistryFunctions.h"
#include "core/Zendova.h"
#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "platform/SettingsTree.h"
#include "platform/SysInfo.h"
#include "platform/UserCodePage.h"
#include "platform/controls/AltCode.h"
#include "platform/controls/DesktopKeys.h"
#include "platform/controls/Icons.h"
#include "platform/controls/KeyRouting.h"
#include "platform/controls/Look.h"

#include <QApplication>
#include <QMessageBox>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <utility>

namespace {

/// What ends the program from within an event handler ends it here: nothing may unwind through the
/// toolkit's event loops.
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const ProgramEnd &) {
            std::_Exit(EXIT_SUCCESS);
        } catch (const std::exception &failure) {
            report(failure);
            std::_Exit(EXIT_FAILURE);
        }
    }

    static void report(const std::exception &failure)
    {
        QMessageBox::critical(nullptr, "Zendova Error",
                              "Zendova has to close.\n\n" + QString::fromUtf8(failure.what()));
    }
};

/// Holds the toolkit's messages back while it looks for a display. Where it finds none, it tells so
/// in many lines and aborts: this tells it in one line, and the program ends as any that failed.
class DisplaySearch
{
public:
    DisplaySearch() { qInstallMessageHandler(&DisplaySearch::hold); }
    ~DisplaySearch()
    {
        qInstallMessageHandler(nullptr);
        for (const QString &message : std::as_const(Held))
            std::fprintf(stderr, "%s\n", qPrintable(message));
    }
    Q_DISABLE_COPY_MOVE(DisplaySearch)

private:
    static void hold(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        // The first that the part for the window system says is the cause, the rest what follows.
        const QByteArrayView category(context.category);
        if (Cause.isEmpty() && category.startsWith("qt.qpa"))
            Cause = message.simplified();
        if (type == QtFatalMsg) {
            const QString told = Cause.isEmpty() ? message.section('\n', 0, 0) : Cause;
            std::fprintf(stderr, "zendova: no window can be shown: %s\n", qPrintable(told));
            std::_Exit(EXIT_FAILURE);
        }
        // A window system that can't be used is of no account where another one was found.
        if (category != "qt.qpa.plugin")
            Held += qFormatLogMessage(type, context, message);
    }

    static inline QString Cause;
    static inline QStringList Held;
};

/// The status to end with.
int print(const QByteArray &answer)
{
    const bool printed = std::fputs(answer.constData(), stdout) >= 0 && std::fflush(stdout) == 0;
    return printed ? EXIT_SUCCESS : EXIT_FAILURE;
}

int run(Application &application, const QString &commandTail)
{
    SettingsTree settings(SettingsTree::defaultPath());
    UseSettingsTree(&settings);
    const SysInfo sysInfo;
    try {
        Zendova zendova(commandTail);
        zendova.Start();
        return application.exec();
    } catch (const ProgramEnd &) {
        return EXIT_SUCCESS;
    } catch (const std::exception &failure) {
        Application::report(failure);
        return EXIT_FAILURE;
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (const std::optional<QByteArray> answer = CommandLine::Answer(argc, argv))
        return print(*answer);
    // Under a limit for the size of files a write is to fail, which the store of the settings takes
    // as any failure, and not to end the program. A handler, as programs started from here would go
    // on ignoring a signal that is ignored.
    std::signal(SIGXFSZ, [](int) {});
    UserCodePage::settle();
    FontCatalog catalog; // the toolkit must find the lean configuration when it starts
    std::optional<DisplaySearch> search(std::in_place);
    Application application(argc, argv); // takes the toolkit's own options out
    search.reset();
    QApplication::setApplicationName("Zendova");
    QApplication::setDesktopFileName("zendova");
    QApplication::setWindowIcon(Icons::application());
    // All of the program's own texts are English, and its forms and cells have their places:
    // neither an option nor a translation of the toolkit's own texts turns half of a window around.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setStyle(new Look);
    AltCode altCode([](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
    application.installEventFilter(&altCode);
    DesktopKeys desktopKeys;
    application.installEventFilter(&desktopKeys);
    KeyRouting keyRouting;
    application.installEventFilter(&keyRouting);
    // All that stands behind the program's name is one path, blanks and all.
    return run(application, CommandLine::Path(argc, argv));
}
