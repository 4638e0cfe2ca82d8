// From the start of the process to the first painted window, beside a bare window of the toolkit in
// the same run. Every round is a process of its own: this program starts itself. The folders of
// make_fonts.py are the arguments; without any, the fonts are the machine's.
//
//     bench_startup /tmp/fonts30 /tmp/fonts2000 /tmp/fonts10000
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "core/Zendova.h"
#include "platform/FontCatalog.h"
#include "platform/SettingsTree.h"
#include "platform/SysInfo.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

/// Proportional set size of this process in KiB, from the kernel's summary.
int proportionalSetSize()
{
    QFile summary("/proc/self/smaps_rollup");
    if (!summary.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : summary.readAll().split('\n'))
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toInt();
    return 0;
}

/// Ends the process when the window has been painted and the events behind it have run.
class AfterPaint : public QObject
{
public:
    explicit AfterPaint(QWidget *window) : Window(window) { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!Seen && watched == Window && event->type() == QEvent::Paint) {
            Seen = true;
            QTimer::singleShot(0, this, [] {
                std::printf("painted\n");
                std::fflush(stdout);
                QTimer::singleShot(500, qApp, [] {
                    std::printf("%d\n", proportionalSetSize());
                    std::fflush(stdout);
                    std::_Exit(0);
                });
            });
        }
        return false;
    }

private:
    QWidget *Window;
    bool Seen = false;
};

void showBareWindow(QApplication &application)
{
    QMainWindow window;
    window.setCentralWidget(new QPlainTextEdit);
    window.menuBar()->addMenu("File");
    window.resize(772, 560);
    const AfterPaint end(&window);
    window.show();
    application.exec();
}

void makeSettings()
{
    Zendova window({});
    window.InitSettings("Act");
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"TextBoard"), u"FontName",
                  FontCatalog::current().families().front().name, REG_SZ);
}

/// What main() does, on the settings that are there.
int child(int argc, char *argv[], const QString &what)
{
    if (what == "bare") {
        QApplication application(argc, argv);
        showBareWindow(application);
        return 0;
    }
    FontCatalog catalog;
    QApplication application(argc, argv);
    SettingsTree settings(SettingsTree::defaultPath());
    UseSettingsTree(&settings);
    const SysInfo sysInfo;
    if (what == "settings") {
        makeSettings();
        return 0;
    }
    Zendova window({});
    const AfterPaint end(&window);
    window.Start();
    return application.exec();
}

struct Round
{
    double Milliseconds = 0;
    int Kibibytes = 0;
};

Round runChild(const QString &what, const QString &fonts, const QString &settings)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", settings);
    environment.insert("XDG_DATA_HOME", settings);
    if (!fonts.isEmpty())
        environment.insert("FONTCONFIG_FILE", fonts + "/fonts.conf");
    process.setProcessEnvironment(environment);
    QElapsedTimer clock;
    clock.start();
    process.start("/proc/self/exe", {"--child", what});
    Round round;
    while (process.waitForReadyRead(20000) && !process.canReadLine()) {
    }
    round.Milliseconds = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    const bool painted = process.readLine() == "painted\n";
    process.waitForFinished();
    round.Kibibytes = process.readAll().trimmed().toInt();
    if (what != "settings" && (!painted || process.exitCode() != 0))
        qFatal("The window was not painted: %s", process.readAllStandardError().constData());
    return round;
}

/// A variant of the start and the settings it runs on.
class Start
{
public:
    Start(const QString &what, const QString &fonts) : Variant(what), Fonts(fonts)
    {
        runChild("settings", Fonts, Settings.path());
        runChild(Variant, Fonts, Settings.path()); // the caches are warm, as they are for a user
    }

    void operator()(benchmark::State &state) const
    {
        Round round;
        for ([[maybe_unused]] auto unused : state) {
            round = runChild(Variant, Fonts, Settings.path());
            state.SetIterationTime(round.Milliseconds / 1000);
        }
        state.counters["PSS_MiB"] = round.Kibibytes / 1024.0;
    }

private:
    QString Variant;
    QString Fonts;
    QTemporaryDir Settings;
};

double fastest(const std::vector<double> &rounds)
{
    return *std::min_element(rounds.begin(), rounds.end());
}

/// The rounds of all variants take turns, so that a slow spell of the machine meets each of them.
void measure(const QString &what, const QString &fonts)
{
    const QString name = what + (fonts.isEmpty() ? QString() : " with " + fonts);
    const auto start = std::make_shared<Start>(what, fonts);
    benchmark::RegisterBenchmark(qPrintable(name),
                                 [start](benchmark::State &state) { (*start)(state); })
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(21)
        ->ReportAggregatesOnly(true)
        ->ComputeStatistics("fastest", fastest)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 3 && QByteArray(argv[1]) == "--child")
        return child(argc, argv, argv[2]);
    static char takingTurns[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, takingTurns);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data()); // takes out what is its own
    const QCoreApplication application(count, arguments.data());
    QStringList folders = QCoreApplication::arguments().mid(1);
    if (folders.isEmpty())
        folders += QString();
    measure("bare", folders.first());
    for (const QString &folder : folders)
        measure("zendova", folder);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
