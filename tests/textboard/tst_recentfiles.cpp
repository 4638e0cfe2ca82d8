// The lists of recent files: how the rows move and how far the counter runs, and what menu and
// drop-down show of them and do with them.
#include "tests/support/Files.h"
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "platform/FontCatalog.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace {

constexpr const char *ErrorTitle = "Zendova File Load Error";

/// The names of the rows, of one letter each; "." for a free one, but not at the end.
QString namesOf(const RecentFiles &list)
{
    QString names;
    for (const RecentFile &row : list.rows())
        names += row.Name.isEmpty() ? QString(".") : row.Name;
    while (names.endsWith('.'))
        names.chop(1);
    return names;
}

QStringList textsOf(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *item : menu->actions())
        if (item->isVisible() && !item->isSeparator())
            texts += item->text();
    return texts;
}

/// The texts of a submenu of the File menu as it shows when it opens.
QStringList fileMenu(const Zendova *window, const char *name)
{
    auto *menu = window->findChild<QMenu *>(name);
    menu->popup({});
    menu->close();
    return textsOf(menu);
}

/// Opens the drop-down by its arrow, clicks the item of this number from 1 (0: none), and gives all
/// texts.
QStringList useDropDown(Zendova *window, int click = 0)
{
    QStringList texts;
    QToolButton *button = window->LoadSaveTB->button("Load");
    QTimer::singleShot(0, button, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        texts = textsOf(menu);
        if (click == 0 || click > menu->actions().size())
            menu->close();
        else
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(menu->actions().at(click - 1)).center());
    });
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 4, 11));
    return texts;
}

/// Values "1", "2", ... of a list in the settings file.
void store(Desktop &desktop, const QString &key, const QStringList &paths)
{
    int row = 0;
    for (QString path : paths)
        desktop.alterSettings(QString("UPDATE settings SET value = '%1' "
                                      "WHERE key LIKE '%\\%2' ESCAPE '!' AND name = '%3'")
                                  .arg(path.replace('\'', "''"), key)
                                  .arg(++row));
}

QString textFile(const Desktop &desktop, const QString &name, const QByteArray &text = "abc")
{
    return writeFile(desktop.Folder.filePath(name), text);
}

/// A window on a board without text whose list of text files holds these paths.
Zendova *startWith(Desktop &desktop, const QStringList &paths)
{
    desktop.start();
    desktop.close();
    store(desktop, "MRU", paths);
    return desktop.start();
}

} // namespace

class TestRecentFiles : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void menusAtStart();
    void loadsAreKept();
    void clickLoads();
    void deadEntries();
};

void TestRecentFiles::rows_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("counter");
    const auto row = [](const char *name, const QString &stored, const QString &added,
                        const QString &expected, int counter) {
        QTest::newRow(name) << stored << added << expected << counter;
    };
    row("first, and again", "", "aa", "a", 4);
    row("third row to the top", "abcde", "c", "cabde", 8);
    row("counter ahead of the rows", "a", "ab", "ba", 5);
    row("tenth file", "abcdefgh", "ij", "jiabcdefg", 9);
    row("found at the end of a full count", "abcdefgh", "ia", "aibcdefgh", 9);
    row("full at start", "abcdefghi", "", "abcdefghi", 0);
    row("full, five", "abcdefghi", "jklmn", "nmlkefghi", 5);
    row("full, one that is there", "abcdefghi", "e", "ebcdefghi", 1);
    row("case counts", "abc", "B", "Babc", 5);
    row("gap ends the reading", "ab cd", "e", "eab", 4);
}

void TestRecentFiles::rows()
{
    QFETCH(QString, stored);
    QFETCH(QString, added);
    const QTemporaryDir folder;
    SettingsTree settings(folder.filePath("settings.sqlite"));
    UseSettingsTree(&settings);
    RegMakeKey(HKEY_CURRENT_USER, SettingsPath(u"MRU"));
    for (int i = 0; i < stored.size(); ++i)
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"MRU"), QString::number(i + 1),
                      stored[i] == ' ' ? QString() : QString("/f/") + stored[i], REG_SZ);
    RecentFiles list(u"MRU", 9);
    list.read();
    for (const QChar name : added)
        list.add(QString("/f/") + name);
    QTEST(namesOf(list), "expected");
    QTEST(list.counter(), "counter");
    UseSettingsTree(nullptr);
}

void TestRecentFiles::menusAtStart()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QCOMPARE(fileMenu(window, "FileTF").size(), 2);
    QVERIFY(!menuItem(window, "FileSep3")->isVisible());
    QVERIFY(!menuItem(window, "FileSep2")->isVisible());
    QCOMPARE(useDropDown(window), QStringList{""});
    desktop.close();
    store(desktop, "MRU", {"/f/a.txt", "/g/R&D\tx.zuf", "", "/f/behind the gap.txt"});
    store(desktop, "CFMRU", {"/f/map.zcm"});
    window = desktop.start();
    QCOMPARE(fileMenu(window, "FileTF").mid(2), (QStringList{"&1 a.txt", "&2 R&&D x.zuf"}));
    QVERIFY(menuItem(window, "FileSep3")->isVisible());
    QCOMPARE(useDropDown(window), (QStringList{"a.txt", "R&&D x.zuf", ""}));
    // Maps can't be loaded yet; the list is kept, and shown as what it is.
    QCOMPARE(fileMenu(window, "FileCFM").mid(4), QStringList{"&1 map.zcm"});
    QVERIFY(menuItem(window, "FileSep2")->isVisible());
    QVERIFY(!menuItem(window, "CFMRU1")->isEnabled());
    desktop.close();
    // A full list has no drop-down.
    store(desktop, "MRU", QString("/1 /2 /3 /4 /5 /6 /7 /8 /9").split(' '));
    window = desktop.start();
    QCOMPARE(fileMenu(window, "FileTF").size(), 2 + 9);
    QCOMPARE(useDropDown(window), QStringList());
}

void TestRecentFiles::loadsAreKept()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto load = [&](const QString &name, const QByteArray &text = "abc") {
        window->TextBoard->setText({});
        window->LoadTextFile(window->TextFile.PendingFilePath = textFile(desktop, name, text));
    };
    load("sub/a.txt");
    load("b.txt");
    QCOMPARE(fileMenu(window, "FileTF").mid(2), (QStringList{"&1 b.txt", "&2 a.txt"}));
    QVERIFY(menuItem(window, "FileSep3")->isVisible());
    load("sub/a.txt");
    const QStringList names{"&1 a.txt", "&2 b.txt"};
    QCOMPARE(fileMenu(window, "FileTF").mid(2), names);
    QCOMPARE(useDropDown(window), (QStringList{"a.txt", "b.txt", "", "", ""}));
    desktop.Dialogs.message(ErrorTitle, "does not seem to be a valid", "Ok");
    load("c.zuf", "no rich text");
    QCOMPARE(fileMenu(window, "FileTF").mid(2), names);
    QVERIFY(desktop.close());
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(desktop.setting("MRU", "1"), desktop.Folder.filePath("sub/a.txt"));
    QCOMPARE(desktop.setting("MRU", "2"), desktop.Folder.filePath("b.txt"));
    QCOMPARE(desktop.setting("MRU", "3"), QString(""));
    QCOMPARE(desktop.setting("Last", "LFLoadPath"), desktop.Folder.filePath("sub"));
}

void TestRecentFiles::clickLoads()
{
    Desktop desktop;
    const QString path = textFile(desktop, "one/a.txt", "first");
    Zendova *window = startWith(desktop, {path, textFile(desktop, "two/a.txt", "second")});
    menuItem(window, "FileMRU2")->trigger();
    QCOMPARE(window->TextBoard->Text(), QString("second"));
    QCOMPARE(window->Folders.LFLoadPath, desktop.Folder.filePath("two"));
    // The one that was first is second now; the guard asks before it is loaded.
    desktop.Dialogs.message("Zendova TextBoard Overwrite Warning", "You have text", "Yes");
    useDropDown(window, 2);
    QCOMPARE(window->TextBoard->Text(), QString("first"));
    QCOMPARE(window->TextFile.LoadedFilePath, path);
    QCOMPARE(window->TextFile.LoadedFileTitle, QString("a.txt"));
    // It is loaded already: that is said before the guard is asked.
    desktop.Dialogs.message(ErrorTitle,
                            "\r\r\r" + path + "\r\rText from this file is already loaded.", "Ok");
    menuItem(window, "FileMRU1")->trigger();
    QTest::keyClicks(window->TextBoard, "x");
    desktop.Dialogs.message(ErrorTitle, "Do you want to reload the file?", "Yes");
    desktop.Dialogs.message("Zendova TextBoard Save Warning", "has been changed", "No");
    menuItem(window, "FileMRU1")->trigger();
    QCOMPARE(window->TextBoard->Text(), QString("xfirst"));
    QVERIFY(desktop.Dialogs.allCame());
}

void TestRecentFiles::deadEntries()
{
    Desktop desktop;
    const QString folder = desktop.Folder.path() + '/';
    Zendova *window = startWith(desktop, {folder + "gone.txt", folder + "gone/a.txt"});
    const QString before = window->Folders.LFLoadPath;
    const auto click = [&](int number, const QString &notice) {
        desktop.Dialogs.message(ErrorTitle, notice, "Ok");
        useDropDown(window, number);
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->Folders.LFLoadPath, before);
        QCOMPARE(fileMenu(window, "FileTF").size(), 2 + 2);
    };
    // Without a loaded file its path, nothing, is that of the blank row.
    click(3, "\r\r\r\r\rText from this file is already loaded.");
    window->TextFile.LoadedFilePath = folder + "b.txt";
    window->TextBoard->setText("kept");
    click(3, "\r\r\r\rDrive  does not exist.");
    click(1, "\r\rFile 'gone.txt'\r\rdoes not exist in\r\r" + folder);
    click(2, "\r\rFolder\r\r" + folder + "gone/\r\rdoes not exist.");
    QCOMPARE(window->TextBoard->Text(), QString("kept"));
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestRecentFiles>(argc, argv);
}

#include "tst_recentfiles.moc"
