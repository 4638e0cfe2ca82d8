// The lists of recent files: how the rows move and how far the counter runs, and what menu and
// drop-down show of them and do with them.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "platform/FontCatalog.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
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
    const QString path = desktop.Folder.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("The file %s can't be written.", qPrintable(path));
    return path;
}

} // namespace

class TestRecentFiles : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void cutsThePath();
    void menusAtStart();
    void fullListHasNoDropDown();
    void loadEntersTheFile();
    void clickLoads();
    void deadEntry_data();
    void deadEntry();
    void blankItem();
    void keptAtExit();
};

void TestRecentFiles::rows_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("counter");
    QTest::newRow("nothing") << ""
                             << ""
                             << "" << 1;
    QTest::newRow("first") << ""
                           << "a"
                           << "a" << 2;
    QTest::newRow("two") << ""
                         << "ab"
                         << "ba" << 3;
    QTest::newRow("again") << ""
                           << "aa"
                           << "a" << 4;
    QTest::newRow("third row to the top") << "abcde"
                                          << "c"
                                          << "cabde" << 8;
    QTest::newRow("counter ahead of the rows") << "a"
                                               << "ab"
                                               << "ba" << 5;
    QTest::newRow("last free row") << "abcdefgh"
                                   << "i"
                                   << "iabcdefgh" << 9;
    QTest::newRow("tenth file") << "abcdefgh"
                                << "ij"
                                << "jiabcdefg" << 9;
    QTest::newRow("found at the end of a full count") << "abcdefgh"
                                                      << "ia"
                                                      << "aibcdefgh" << 9;
    QTest::newRow("full at start") << "abcdefghi"
                                   << ""
                                   << "abcdefghi" << 0;
    QTest::newRow("full, one") << "abcdefghi"
                               << "j"
                               << "jbcdefghi" << 1;
    QTest::newRow("full, two") << "abcdefghi"
                               << "jk"
                               << "kbcdefghi" << 2;
    QTest::newRow("full, three") << "abcdefghi"
                                 << "jkl"
                                 << "lkcdefghi" << 3;
    QTest::newRow("full, five") << "abcdefghi"
                                << "jklmn"
                                << "nmlkefghi" << 5;
    QTest::newRow("full, one that is there") << "abcdefghi"
                                             << "e"
                                             << "ebcdefghi" << 1;
    QTest::newRow("case counts") << "abc"
                                 << "B"
                                 << "Babc" << 5;
    QTest::newRow("gap ends the reading") << "ab cd"
                                          << "e"
                                          << "eab" << 4;
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

void TestRecentFiles::cutsThePath()
{
    RecentFiles list(u"MRU", 9);
    list.add("/one/two/name.txt");
    QCOMPARE(list.rows().front().Folder, QString("/one/two/"));
    QCOMPARE(list.rows().front().Name, QString("name.txt"));
    // The folder counts: another file of that name is another file.
    list.add("/one/name.txt");
    QCOMPARE(list.rows().at(1).Folder, QString("/one/two/"));
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
}

void TestRecentFiles::fullListHasNoDropDown()
{
    Desktop desktop;
    desktop.start();
    desktop.close();
    QStringList paths;
    for (int i = 1; i <= 9; ++i)
        paths += QString("/f/%1.txt").arg(i);
    store(desktop, "MRU", paths);
    Zendova *window = desktop.start();
    QCOMPARE(fileMenu(window, "FileTF").size(), 2 + 9);
    QCOMPARE(useDropDown(window), QStringList());
    window->LoadTextFile(window->PendingFilePath = textFile(desktop, "new.txt"));
    QCOMPARE(fileMenu(window, "FileTF").mid(2, 2), (QStringList{"&1 new.txt", "&2 2.txt"}));
    QCOMPARE(useDropDown(window), QStringList{"new.txt"});
}

void TestRecentFiles::loadEntersTheFile()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto load = [&](const QString &name) {
        window->TextBoard->setText({});
        window->LoadTextFile(window->PendingFilePath = textFile(desktop, name));
    };
    load("a.txt");
    load("b.txt");
    QCOMPARE(fileMenu(window, "FileTF").mid(2), (QStringList{"&1 b.txt", "&2 a.txt"}));
    QVERIFY(menuItem(window, "FileSep3")->isVisible());
    load("a.txt");
    QCOMPARE(fileMenu(window, "FileTF").mid(2), (QStringList{"&1 a.txt", "&2 b.txt"}));
    QCOMPARE(useDropDown(window), (QStringList{"a.txt", "b.txt", "", "", ""}));
    // What could not be loaded is not entered.
    desktop.Dialogs.message(ErrorTitle, "does not seem to be a valid", "Ok");
    window->TextBoard->setText({});
    window->LoadTextFile(window->PendingFilePath = textFile(desktop, "c.zuf", "no rich text"));
    QCOMPARE(fileMenu(window, "FileTF").mid(2), (QStringList{"&1 a.txt", "&2 b.txt"}));
    QVERIFY(desktop.Dialogs.allCame());
}

void TestRecentFiles::clickLoads()
{
    Desktop desktop;
    desktop.start();
    desktop.close();
    const QString path = textFile(desktop, "one/a.txt", "first");
    store(desktop, "MRU", {path, textFile(desktop, "two/a.txt", "second")});
    Zendova *window = desktop.start();
    menuItem(window, "FileMRU2")->trigger();
    QCOMPARE(window->TextBoard->Text(), QString("second"));
    QCOMPARE(window->LFLoadPath, desktop.Folder.filePath("two"));
    // The one that was first is second now; the guard asks before it is loaded.
    desktop.Dialogs.message("Zendova TextBoard Overwrite Warning", "You have text", "Yes");
    useDropDown(window, 2);
    QCOMPARE(window->TextBoard->Text(), QString("first"));
    QCOMPARE(window->LoadedFilePath, path);
    QCOMPARE(window->LoadedFileTitle, QString("a.txt"));
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

void TestRecentFiles::deadEntry_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text"); // %1 is the test's folder
    QTest::newRow("file") << "gone.txt"
                          << "\r\rFile 'gone.txt'\r\rdoes not exist in\r\r%1/";
    QTest::newRow("folder") << "gone/a.txt"
                            << "\r\rFolder\r\r%1/gone/\r\rdoes not exist.";
}

void TestRecentFiles::deadEntry()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    Desktop desktop;
    desktop.start();
    desktop.close();
    store(desktop, "MRU", {desktop.Folder.filePath(name)});
    Zendova *window = desktop.start();
    const QString folder = window->LFLoadPath;
    window->TextBoard->setText("kept");
    desktop.Dialogs.message(ErrorTitle, text.arg(desktop.Folder.path()), "Ok");
    menuItem(window, "FileMRU1")->trigger();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->Text(), QString("kept"));
    QCOMPARE(window->LFLoadPath, folder);
    QVERIFY(menuItem(window, "FileMRU1")->isVisible());
}

void TestRecentFiles::blankItem()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    // Without a loaded file its path, nothing, is that of the blank row.
    desktop.Dialogs.message(ErrorTitle, "\r\r\r\r\rText from this file is already loaded.", "Ok");
    useDropDown(window, 1);
    window->LoadTextFile(window->PendingFilePath = textFile(desktop, "a.txt"));
    desktop.Dialogs.message(ErrorTitle, "\r\r\r\rDrive  does not exist.", "Ok");
    QCOMPARE(useDropDown(window, 2), (QStringList{"a.txt", ""}));
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
}

void TestRecentFiles::keptAtExit()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const QString path = textFile(desktop, "sub/a.txt");
    window->LoadTextFile(window->PendingFilePath = path);
    desktop.Dialogs.message("Zendova Exit Warning", "Discard text", "Yes");
    QVERIFY(desktop.close());
    QCOMPARE(desktop.setting("MRU", "1"), path);
    QCOMPARE(desktop.setting("MRU", "2"), QString(""));
    QCOMPARE(desktop.setting("Last", "LFLoadPath"), desktop.Folder.filePath("sub"));
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestRecentFiles test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_recentfiles.moc"
