// The program itself as a shell starts it: what it answers without a display, how it ends where
// there is none, and that it runs without any font.
#include "tests/support/Files.h"
#include "tests/support/TestFonts.h"

#include <QtTest>

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void questions()
    {
        QVERIFY(ends({"--version"}, {{"FONTCONFIG_FILE", "/nowhere"}}));
        QCOMPARE(Program->exitCode(), 0);
        QCOMPARE(Program->readAll(), QByteArray("Zendova Version 3.0.0 RC2\n"));
        QCOMPARE(Program->readAllStandardError(), QByteArray());
        QVERIFY(ends({"--help"}, {{"FONTCONFIG_FILE", "/nowhere"}}));
        const QByteArray help = Program->readAll();
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
            QVERIFY(ends(arguments, {{name, value}}));
            QCOMPARE(Program->exitStatus(), QProcess::NormalExit);
            QCOMPARE(Program->exitCode(), 1);
            QCOMPARE(Program->readAllStandardOutput(), QByteArray());
            const QByteArray errors = Program->readAllStandardError();
            QCOMPARE(errors.count('\n'), 1);
            QVERIFY2(errors.startsWith("zendova: no window can be shown: "), errors);
        }
    }

    void withoutFonts()
    {
        // It asks the questions of a first run.
        QVERIFY(
            !ends({}, {{"QT_QPA_PLATFORM", "offscreen"}, {"FONTCONFIG_FILE", "/nowhere"}}, 1000));
        Program->kill();
        QVERIFY(Program->waitForFinished());
    }

private:
    /// Starts the program with settings of its own and no display, but with these variables, and
    /// tells if it ends in so many milliseconds.
    bool ends(const QStringList &arguments, const QMap<QString, QString> &variables,
              int patience = 30000)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE"})
            environment.remove(name);
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            environment.insert(name, Folder.path());
        for (auto each = variables.begin(); each != variables.end(); ++each)
            environment.insert(each.key(), each.value());
        Program = std::make_unique<QProcess>();
        Program->setProcessEnvironment(environment);
        Program->start(ZENDOVA_PROGRAM, arguments);
        return Program->waitForFinished(patience);
    }

    const TestFonts Fonts;
    QTemporaryDir Folder;
    std::unique_ptr<QProcess> Program;
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
