// The program itself as a shell starts it: what it answers without a display, how it ends where
// there is none, and what the programs that it starts take over from it.
#include "tests/support/TestFonts.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

namespace {

struct Ending
{
    int Status = -1;
    QByteArray Output;
    QByteArray Errors;
};

/// An environment with settings of its own and no display.
QProcessEnvironment bare(const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE"})
        environment.remove(name);
    environment.insert("XDG_CONFIG_HOME", folder);
    return environment;
}

Ending run(const QStringList &arguments, const QProcessEnvironment &environment)
{
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(ZENDOVA_PROGRAM, arguments);
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {.Status = program.exitCode(),
            .Output = program.readAllStandardOutput(),
            .Errors = program.readAllStandardError()};
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir Folder;

private slots:
    void questions()
    {
        QProcessEnvironment environment = bare(Folder.path());
        environment.insert("FONTCONFIG_FILE", "/nowhere");
        const Ending version = run({"--version"}, environment);
        QCOMPARE(version.Status, 0);
        QCOMPARE(version.Output, QByteArray("Zendova Version 3.0.0 RC2\n"));
        const Ending help = run({"--help"}, environment);
        QCOMPARE(help.Status, 0);
        QVERIFY(help.Output.startsWith("Usage: zendova [PATH"));
        QVERIFY(help.Output.contains(".ZUF") && help.Output.contains(".TXT"));
        QVERIFY(help.Output.contains(Folder.path().toUtf8() + "/zendova/settings.sqlite\n"));
        QCOMPARE(version.Errors + help.Errors, QByteArray());
        QVERIFY(QDir(Folder.path()).isEmpty());
    }

    void withoutADisplay_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("display");
        QTest::addColumn<QString>("platform");
        QTest::newRow("none") << QStringList() << ""
                              << "";
        QTest::newRow("one that nobody serves") << QStringList() << ":54321"
                                                << "";
        QTest::newRow("a platform that is not there") << QStringList() << ""
                                                      << "nosuch";
        QTest::newRow("a question among others") << QStringList{"--help", "me"} << ""
                                                 << "";
        QTest::newRow("a file of that name") << QStringList{"./--version"} << ""
                                             << "";
    }

    void withoutADisplay()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, display);
        QFETCH(QString, platform);
        QProcessEnvironment environment = bare(Folder.path());
        if (!display.isEmpty())
            environment.insert("DISPLAY", display);
        if (!platform.isEmpty())
            environment.insert("QT_QPA_PLATFORM", platform);
        const Ending ending = run(arguments, environment);
        QCOMPARE(ending.Status, 1);
        QCOMPARE(ending.Output, QByteArray());
        QCOMPARE(ending.Errors.count('\n'), 1);
        QVERIFY2(ending.Errors.startsWith("zendova: no window can be shown: "), ending.Errors);
    }

    void limitOfFileSizesIsNotPassedOn()
    {
        // A program takes over which signals are ignored, but no handlers.
        QProcessEnvironment environment = bare(Folder.path());
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(ZENDOVA_PROGRAM, QStringList());
        QVERIFY(program.waitForStarted());
        const auto has = [&program](const QByteArray &set) {
            QFile status("/proc/" + QString::number(program.processId()) + "/status");
            if (!status.open(QIODevice::ReadOnly))
                return false;
            const QByteArray all = status.readAll();
            const qsizetype at = all.indexOf(set + ":\t");
            return at >= 0 &&
                   (all.mid(at + set.size() + 2, 16).toULongLong(nullptr, 16) >> (SIGXFSZ - 1) &
                    1) != 0;
        };
        QTRY_VERIFY(has("SigCgt"));
        QVERIFY(!has("SigIgn"));
        program.kill();
        QVERIFY(program.waitForFinished());
    }
};

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    QGuiApplication application(argc, argv);
    TestCommandLine test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_commandline.moc"
