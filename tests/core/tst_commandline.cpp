// The program itself as a shell starts it: what it answers without a display, how it ends where
// there is none, and what the programs that it starts take over from it.
#include "tests/support/Files.h"
#include "tests/support/TestFonts.h"

#include <QProcess>
#include <QTest>

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void questions()
    {
        start({"--version"}, {{"FONTCONFIG_FILE", "/nowhere"}});
        QVERIFY(Program->waitForFinished());
        QCOMPARE(Program->exitCode(), 0);
        QCOMPARE(Program->readAllStandardOutput(), QByteArray("Zendova Version 3.0.0 RC2\n"));
        QCOMPARE(Program->readAllStandardError(), QByteArray());
        start({"--help"}, {{"FONTCONFIG_FILE", "/nowhere"}});
        QVERIFY(Program->waitForFinished());
        QCOMPARE(Program->exitCode(), 0);
        const QByteArray help = Program->readAllStandardOutput();
        QVERIFY(help.startsWith("Usage: zendova [PATH"));
        QVERIFY(help.contains(".ZUF") && help.contains(".TXT"));
        QVERIFY(help.contains(Folder.path().toUtf8() + "/zendova/settings.sqlite\n"));
        QVERIFY(QDir(Folder.path()).isEmpty());
    }

    void withoutADisplay()
    {
        for (const auto &[arguments, name, value] :
             {std::tuple(QStringList(), "LC_ALL", "C"),
              {{}, "DISPLAY", ":54321"}, // which nobody serves
              {{}, "QT_QPA_PLATFORM", "nosuch"},
              {{"--help", "me"}, "LC_ALL", "C"}, // a question among others
              {{"./--version"}, "LC_ALL", "C"}}) {
            start(arguments, {{name, value}});
            QVERIFY(Program->waitForFinished());
            QCOMPARE(Program->exitStatus(), QProcess::NormalExit);
            QCOMPARE(Program->exitCode(), 1);
            QCOMPARE(Program->readAllStandardOutput(), QByteArray());
            const QByteArray errors = Program->readAllStandardError();
            QCOMPARE(errors.count('\n'), 1);
            QVERIFY2(errors.startsWith("zendova: no window can be shown: "), errors);
        }
    }

    void limitOfFileSizesIsNotPassedOn()
    {
        // A program takes over which signals are ignored, but no handlers.
        start({}, {{"QT_QPA_PLATFORM", "offscreen"}});
        QVERIFY(Program->waitForStarted());
        const QString status = QString("/proc/%1/status").arg(Program->processId());
        const auto has = [&status](const QByteArray &set) {
            const QByteArray all = contentOf(status);
            const QByteArray mask = all.mid(all.indexOf(set + ":\t") + set.size() + 2, 16);
            return (mask.toULongLong(nullptr, 16) >> (SIGXFSZ - 1) & 1) != 0;
        };
        QTRY_VERIFY(has("SigCgt"));
        QVERIFY(!has("SigIgn"));
        Program->kill();
        QVERIFY(Program->waitForFinished());
    }

private:
    /// Starts the program with settings of its own and no display, but with these variables.
    void start(const QStringList &arguments, const QMap<QString, QString> &variables)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE"})
            environment.remove(name);
        environment.insert("XDG_CONFIG_HOME", Folder.path());
        for (auto each = variables.begin(); each != variables.end(); ++each)
            environment.insert(each.key(), each.value());
        Program = std::make_unique<QProcess>();
        Program->setProcessEnvironment(environment);
        Program->start(ZENDOVA_PROGRAM, arguments);
    }

    const TestFonts Fonts;
    QTemporaryDir Folder;
    std::unique_ptr<QProcess> Program;
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
