// The lists of recent files: how the rows move and how far the counter runs, and what menu and
// drop-down show of them and do with them.
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "tests/support/MainWindow.h"

#include <QTimer>

namespace {

QStringList textsOf(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *item : menu->actions())
        if (item->isVisible() && !item->isSeparator())
            texts += item->text();
    return texts;
}

} // namespace

class TestRecentFiles : public WindowTest
{
    Q_OBJECT

private slots:
    void rows_data()
    {
        QTest::addColumn<QString>("stored"); // one letter a name, a blank for a free row
        QTest::addColumn<QString>("added");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("counter");
        QTest::newRow("first, and again") << ""
                                          << "aa"
                                          << "a" << 4;
        QTest::newRow("third row to the top") << "abcde"
                                              << "c"
                                              << "cabde" << 8;
        QTest::newRow("counter ahead of the rows") << "a"
                                                   << "ab"
                                                   << "ba" << 5;
        QTest::newRow("tenth file") << "abcdefgh"
                                    << "ij"
                                    << "jiabcdefg" << 9;
        QTest::newRow("found at the end of a full count") << "abcdefgh"
                                                          << "ia"
                                                          << "aibcdefgh" << 9;
        QTest::newRow("full at start") << "abcdefghi"
                                       << ""
                                       << "abcdefghi" << 0;
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
    void rows()
    {
        QFETCH(QString, stored);
        QFETCH(QString, added);
        for (int i = 0; i < stored.size(); ++i)
            RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"MRU"), QString::number(i + 1),
                          stored[i] == ' ' ? QString() : QString("/f/") + stored[i], REG_SZ);
        RecentFiles list(u"MRU", 9);
        list.read();
        for (const QChar name : added)
            list.add(QString("/f/") + name);
        QString names;
        for (const RecentFile &row : list.rows())
            names += row.Name;
        QTEST(names, "expected");
        QTEST(list.counter(), "counter");
    }

    void menusAtStart()
    {
        QCOMPARE(fileMenu().size(), 0);
        QVERIFY(!menuItem(window, "FileSep3")->isVisible());
        QVERIFY(!menuItem(window, "FileSep2")->isVisible());
        QCOMPARE(useDropDown(), QStringList{""});
        startWith({"/f/a.txt", "/g/R&D\tx.zuf", "", "/f/behind the gap.txt"}, {"/f/map.zcm"});
        QCOMPARE(fileMenu(), (QStringList{"&1 a.txt", "&2 R&&D x.zuf"}));
        QVERIFY(menuItem(window, "FileSep3")->isVisible());
        QCOMPARE(useDropDown(), (QStringList{"a.txt", "R&&D x.zuf", ""}));
        QCOMPARE(menuItem(window, "CFMRU1")->text(), QString("&1 map.zcm"));
        QVERIFY(menuItem(window, "CFMRU1")->isVisible() &&
                menuItem(window, "FileSep2")->isVisible());
        // A full list has no drop-down.
        startWith(QString("/1 /2 /3 /4 /5 /6 /7 /8 /9").split(' '));
        QCOMPARE(fileMenu().size(), 9);
        QCOMPARE(useDropDown(), QStringList());
    }

    void loadsAreKept()
    {
        const auto load = [this](const QString &name, const QByteArray &text = "abc") {
            window->TextBoard->setText({});
            window->LoadTextFile(window->TextFile.PendingFilePath = write(name, text));
        };
        load("sub/a.txt");
        load("b.txt");
        QCOMPARE(fileMenu(), (QStringList{"&1 b.txt", "&2 a.txt"}));
        QVERIFY(menuItem(window, "FileSep3")->isVisible());
        load("sub/a.txt");
        expect(Says::NotReadable);
        load("c.zuf", "no rich text");
        QCOMPARE(fileMenu(), (QStringList{"&1 a.txt", "&2 b.txt"}));
        QCOMPARE(useDropDown(), (QStringList{"a.txt", "b.txt", "", "", ""}));
        QVERIFY(desktop->close());
        QCOMPARE(desktop->setting("MRU", "1"), desktop->Folder.filePath("sub/a.txt"));
        QCOMPARE(desktop->setting("MRU", "2"), desktop->Folder.filePath("b.txt"));
        QCOMPARE(desktop->setting("MRU", "3"), QString(""));
        QCOMPARE(desktop->setting("Last", "LFLoadPath"), desktop->Folder.filePath("sub"));
    }

    void clickLoads()
    {
        const QString path = write("one/a.txt", "first");
        startWith({path, write("two/a.txt", "second")});
        menuItem(window, "FileMRU2")->trigger();
        QCOMPARE(window->TextBoard->Text(), QString("second"));
        QCOMPARE(window->Folders.LFLoadPath, desktop->Folder.filePath("two"));
        // The one that was first is second now; the guard asks before it is loaded.
        expect(Says::TextIsThere, "Yes");
        useDropDown(2);
        QCOMPARE(window->TextBoard->Text(), QString("first"));
        QCOMPARE(window->TextFile.LoadedFilePath, path);
        QCOMPARE(window->TextFile.LoadedFileTitle, QString("a.txt"));
        // It is loaded already: that is said before the guard is asked.
        expect(Says::AlreadyLoaded, "Ok", path);
        menuItem(window, "FileMRU1")->trigger();
        QTest::keyClicks(window->TextBoard, "x");
        expect(Says::LoadedButChanged, "Yes", path);
        expect(Says::TextWasChanged, "No");
        menuItem(window, "FileMRU1")->trigger();
        QCOMPARE(window->TextBoard->Text(), QString("xfirst"));
    }

    void deadEntries()
    {
        const QString folder = desktop->Folder.path() + '/';
        startWith({folder + "gone.txt", folder + "gone/a.txt"});
        const QString before = window->Folders.LFLoadPath;
        const auto click = [&](int number, const QString &notice) {
            expect(Says::LoadError, "Ok", notice);
            useDropDown(number);
            QCOMPARE(window->Folders.LFLoadPath, before);
            QCOMPARE(fileMenu().size(), 2);
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

private:
    QString write(const QString &name, const QByteArray &text) const
    {
        return writeFile(desktop->Folder.filePath(name), text);
    }
    /// A window on a board without text that finds these lists in the settings.
    void startWith(const QStringList &texts, const QStringList &maps = {})
    {
        QVERIFY(desktop->close());
        for (const auto &[key, paths] : {std::pair(u"MRU", texts), {u"CFMRU", maps}})
            for (int row = 0; row < paths.size(); ++row)
                RegWriteValue(HKEY_CURRENT_USER, SettingsPath(key), QString::number(row + 1),
                              paths[row], REG_SZ);
        restart();
    }
    /// The files in the File menu as it shows when it opens.
    QStringList fileMenu() const
    {
        lookAtMenu(window, "FileTF");
        return textsOf(window->findChild<QMenu *>("FileTF")).mid(2);
    }
    /// Opens the drop-down by its arrow, clicks the item of this number from 1 (0: none), and gives
    /// all texts.
    QStringList useDropDown(int click = 0) const
    {
        QStringList texts;
        QToolButton *load = button("Load");
        QTimer::singleShot(0, load, [&] {
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
        QTest::mouseClick(load, Qt::LeftButton, {}, QPoint(load->width() - 4, 11));
        return texts;
    }
};

ZENDOVA_WINDOW_TEST(TestRecentFiles)
#include "tst_recentfiles.moc"
