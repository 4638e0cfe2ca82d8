// Starts the desktop layer and the main window, and is the last resort for a failure: what no
// procedure catches is told in a dialog and ends the program with a status that is not 0.
#include "core/RegistryFunctions.h"
#include "core/Zendova.h"
#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "platform/SettingsTree.h"
#include "platform/SysInfo.h"
#include "platform/controls/AltCode.h"
#include "platform/controls/Icons.h"
#include "platform/controls/Look.h"

#include <QApplication>
#include <QMessageBox>
#include <csignal>
#include <cstdlib>
#include <exception>

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
    // Under a limit for the size of files a write is to fail, which the store of the settings takes
    // as any failure, and not to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    FontCatalog catalog; // the toolkit must find the lean configuration when it starts
    Application application(argc, argv);
    QApplication::setApplicationName("Zendova");
    QApplication::setDesktopFileName("zendova");
    QApplication::setWindowIcon(Icons::application());
    QApplication::setStyle(new Look);
    AltCode altCode([](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
    application.installEventFilter(&altCode);
    // All that stands behind the program's name is one path, blanks and all.
    return run(application, QApplication::arguments().mid(1).join(' '));
}
