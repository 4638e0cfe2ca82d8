// The lists of recent files: how the rows move and how far the counter runs, and what menu and
// drop-down show of them and do with them.
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "tests/support/MainWindow.h"

static QStringList textsOf(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *item : menu->actions())
        if (item->isVisible() && !item->isSeparator())
            texts += item->text();
    return texts;
}

static void store(QStringView key, const QStringList &paths)
{
    for (int row = 0; row < paths.size(); ++row)
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(key), QString::number(row + 1), paths[row],
                      REG_SZ);
}

class TestRecentFiles : public WindowTest
{
    Q_OBJECT

private slots:
    void rows()
    {
        // One letter a name, a blank for a free row: stored, added, then there; and the counter.
        for (const auto &[stored, added, expected, counter] :
             {std::tuple("", "aa", "a", 4),
              {"abcde", "c", "cabde", 8},
              {"a", "ab", "ba", 5}, // the counter is ahead of the rows
              {"abcdefgh", "ij", "jiabcdefg", 9},
              {"abcdefgh", "ia", "aibcdefgh", 9}, // found at the end of a full count
              {"abcdefghi", "", "abcdefghi", 0},
              {"abcdefghi", "jklmn", "nmlkefghi", 5},
              {"abcdefghi", "e", "ebcdefghi", 1},
              {"abc", "B", "Babc", 5},
              {"ab cd", "e", "eab", 4}}) { // a gap ends the reading
            begin();
            QStringList paths;
            for (const QChar name : QString(stored))
                paths += name == ' ' ? QString() : QString("/f/") + name;
            store(u"MRU", paths);
            RecentFiles list(u"MRU", 9);
            list.read();
            for (const QChar name : QString(added))
                list.add(QString("/f/") + name);
            QString names;
            for (const RecentFile &row : list.rows())
                names += row.Name;
            QCOMPARE(names, QString(expected));
            QCOMPARE(list.counter(), counter);
        }
    }

    void menusAtStart()
    {
        const auto isShown = [this](const char *item) {
            return menuItem(window, item)->isVisible();
        };
        QCOMPARE(fileMenu(), QStringList());
        QVERIFY(!isShown("FileSep3") && !isShown("FileSep2"));
        QCOMPARE(useDropDown(), QStringList{""});
        startWith({"/f/a.txt", "/g/R&D\tx.zuf", "", "/f/behind the gap.txt"}, {"/f/map.zcm"});
        QCOMPARE(fileMenu(), (QStringList{"&1 a.txt", "&2 R&&D x.zuf"}));
        QCOMPARE(useDropDown(), (QStringList{"a.txt", "R&&D x.zuf", ""}));
        QCOMPARE(menuItem(window, "CFMRU1")->text(), QString("&1 map.zcm"));
        QVERIFY(isShown("FileSep3") && isShown("CFMRU1") && isShown("FileSep2"));
        startWith({"/f/" + QString(250, 'W') + "end.txt"});
        QVERIFY(fileMenu().value(0).endsWith("Wend.txt"));
        QVERIFY(window->findChild<QMenu *>("FileTF")->sizeHint().width() < 640);
        startWith(QString("/1 /2 /3 /4 /5 /6 /7 /8 /9").split(' '));
        QCOMPARE(fileMenu().size(), 9);
        QCOMPARE(useDropDown(), QStringList());
    }

    void loadsAreKept()
    {
        const auto load = [this](const QString &name, const QByteArray &text = "abc") {
            board()->setText({});
            window->LoadTextFile(window->TextFile.PendingFilePath = write(name, text));
        };
        load("sub/a.txt");
        load("b.txt");
        QCOMPARE(fileMenu(), (QStringList{"&1 b.txt", "&2 a.txt"}));
        load("sub/a.txt");
        expect(Says::NotReadable);
        load("c.zuf", "no rich text");
        QCOMPARE(fileMenu(), (QStringList{"&1 a.txt", "&2 b.txt"}));
        QCOMPARE(useDropDown(), (QStringList{"a.txt", "b.txt", "", "", ""}));
        QVERIFY(desktop->close());
        QCOMPARE(desktop->setting("MRU", "1"), desktop->Folder.filePath("sub/a.txt"));
        QCOMPARE(desktop->setting("MRU", "3"), QString(""));
        QCOMPARE(desktop->setting("Last", "LFLoadPath"), desktop->Folder.filePath("sub"));
        // The desktop's list has what was loaded, and not what was refused.
        desktop->Window.reset();
        const QByteArray list = contentOf(desktop->Folder.filePath("data/recently-used.xbel"));
        QVERIFY(list.contains("/sub/a.txt") && list.contains("/b.txt") && !list.contains("c.zuf"));
    }

    void clickLoads()
    {
        const QString path = write("one/a.txt", "first");
        startWith({path, write("two/a.txt", "second")});
        menuItem(window, "FileMRU2")->trigger();
        QCOMPARE(window->Folders.LFLoadPath, desktop->Folder.filePath("two"));
        // The one that was first is second now; the guard asks before it is loaded.
        expect(Says::TextIsThere, "Yes");
        useDropDown(2);
        QCOMPARE(board()->Text(), QString("first"));
        QCOMPARE(window->TextFile.LoadedFilePath, path);
        expect(Says::AlreadyLoaded, "Ok", path);
        menuItem(window, "FileMRU1")->trigger();
        QTest::keyClicks(board(), "x");
        expect(Says::LoadedButChanged, "Yes", path);
        expect(Says::TextWasChanged, "No");
        menuItem(window, "FileMRU1")->trigger();
        QCOMPARE(board()->Text(), QString("xfirst"));
    }

    void deadEntries()
    {
        const QString folder = desktop->Folder.path() + '/';
        startWith({folder + "gone.txt", folder + "gone/a.txt"});
        const QString before = window->Folders.LFLoadPath;
        // Without a loaded file its path, nothing, is that of the blank row.
        for (const auto &[loaded, number, notice] :
             {std::tuple(QString(), 3, "\r\r\r\r\rText from this file is already loaded."),
              {folder + "b.txt", 3, "\r\r\r\rDrive  does not exist."},
              {folder + "b.txt", 1, "\r\rFile 'gone.txt'\r\rdoes not exist in\r\r%1"}}) {
            window->TextFile.LoadedFilePath = loaded;
            if (!loaded.isEmpty())
                board()->setText(loaded);
            expect(Says::LoadError, "Ok", QString(notice).replace("%1", folder));
            useDropDown(number);
            QCOMPARE(window->Folders.LFLoadPath, before);
            QCOMPARE(fileMenu().size(), 2);
            QCOMPARE(board()->Text(), loaded);
        }
    }

private:
    QString write(const QString &name, const QByteArray &text) const
    {
        return writeFile(desktop->Folder.filePath(name), text);
    }
    void startWith(const QStringList &texts, const QStringList &maps = {})
    {
        QVERIFY(desktop->close());
        store(u"MRU", texts);
        store(u"CFMRU", maps);
        restart();
    }
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
            if (click > 0 && click <= menu->actions().size())
                clickItem(menu, menu->actions().at(click - 1));
            menu->close();
        });
        QTest::mouseClick(load, Qt::LeftButton, {}, QPoint(load->width() - 4, 11));
        return texts;
    }
};

ZENDOVA_WINDOW_TEST(TestRecentFiles)
#include "tst_recentfiles.moc"
