// A file whose name is no text, given on the command line: found, shown, saved back, and not
// remembered under a name that is another's.
#include "tests/support/Files.h"
#include "tests/support/MainWindow.h"

#include "core/CommandLine.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestForeignName : public QObject
{
    Q_OBJECT

private slots:
    void loadedAndSavedBack()
    {
        Desktop desktop;
        const QByteArray folder = desktop.Folder.path().toUtf8() + "/texts";
        QVERIFY(QDir().mkpath(QString::fromUtf8(folder)));
        const QByteArray name = folder + "/caf\xE9 \xC3\xA9.txt";
        const auto content = [&name] {
            QByteArray bytes(100, Qt::Uninitialized);
            const int file = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
            bytes.truncate(std::max<ssize_t>(::read(file, bytes.data(), 100), 0));
            ::close(file);
            return bytes;
        };
        const int file = ::open(name.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        QCOMPARE(::write(file, "abc", 3), 3);
        ::close(file);

        const QByteArray first = name.left(name.indexOf(' '));
        const QByteArray second = name.mid(first.size() + 1);
        const char *const arguments[] = {"zendova", first.constData(), second.constData()};
        Zendova *window = desktop.start(CommandLine::Path(3, arguments));
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->TextBoard->Text(), QString("abc"));
        QCOMPARE(window->windowTitle(), u"Zendova :  caf\uFFFD \u00E9.txt"_s);

        QTest::keyClicks(window->TextBoard, "d");
        desktop.Dialogs.dialog("Save Text in File", [](QDialog *dialog) {
            const auto *offered = dialog->findChild<QLineEdit *>("fileNameEdit");
            QCOMPARE(offered->text(), u"caf\uFFFD \u00E9.txt"_s);
            QTest::mouseClick(
                dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save),
                Qt::LeftButton);
        });
        QTest::mouseClick(window->LoadSaveTB->button("Save"), Qt::LeftButton, {}, {8, 8});
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(content(), QByteArray("dabc"));
        const std::filesystem::directory_iterator files(folder.toStdString());
        QCOMPARE(std::distance(begin(files), end(files)), 1);
        QCOMPARE(::unlink(name.constData()), 0); // which the folder's own removal can't find
        window->TextBoard->setText({});
        QVERIFY(desktop.close());
        QCOMPARE(desktop.setting("MRU", "1"), QString());
    }

    void missing()
    {
        Desktop desktop;
        const QByteArray name = desktop.Folder.path().toUtf8() + "/caf\xE9.txt";
        const char *const arguments[] = {"zendova", name.constData()};
        desktop.Dialogs.message("Zendova Init Information", "first time", "Yes");
        desktop.Dialogs.message("Zendova Startup File Load Error", u"File 'caf\uFFFD.txt'"_s, "Ok");
        desktop.startAsItIs(CommandLine::Path(2, arguments));
        QVERIFY(desktop.Dialogs.allCame());
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestForeignName>(argc, argv);
}

#include "tst_foreignname.moc"
