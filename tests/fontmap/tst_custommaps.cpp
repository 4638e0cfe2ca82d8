// Custom maps in the main window: loading them by every way, what grid, views and bar show of them,
// and what is said of files that are none.
#include "fontmap/CustomMapFile.h"
#include "platform/FileLock.h"
#include "platform/controls/ElidedLabel.h"
#include "tests/support/MainWindow.h"

constexpr ExpectedMessage AlreadyLoaded{" Custom Map Load Error",
                                        "\r\r\r%1\r\rThis Custom Map is already loaded."};
constexpr ExpectedMessage Unloadable{" Custom Map Load Error",
                                     "\r%1\rThis Zendova Custom Map is unloadable.\r"
                                     "\rIt has either become corrupt\ror has been manually edited."
                                     "\r\rZendova cannot load this Map."};
constexpr ExpectedMessage NotReadable{" Custom Map Load Error", "%1"};

class TestCustomMaps : public WindowTest
{
    Q_OBJECT

private slots:
    void loadsByTheDialog()
    {
        const QString path = write("sub/Arrows & more.zcm", {"\"", "B", " "});
        QVERIFY(!menuItem(window, "FileCFMUnld")->isEnabled() && !button("CFMapUnld")->isEnabled());
        choose(path);
        QCOMPARE(captions(), "\"B ");
        QVERIFY(nameLabel()->isVisible());
        QCOMPARE(nameLabel()->wholeText(), "Arrows & more");
        QVERIFY(menuItem(window, "FileCFMUnld")->isEnabled() && button("CFMapUnld")->isEnabled());
        QCOMPARE(window->Folders.LMLoadPath, desktop->Folder.filePath("sub"));

        clickCell(window, 1);
        clickCell(window, 7); // blank
        QCOMPARE(board()->Text(), "B");
        for (const auto &[cell, shown] : {std::pair(0, "\""), {7, ""}}) {
            hover(window, cell);
            QCOMPARE(window->ViewsContainer->TextZoom->Caption(0), shown);
        }

        choose(path, AlreadyLoaded);
        menuItem(window, "FileCFMUnld")->trigger();
        QCOMPARE(captions().size(), CellCount);
        QVERIFY(!nameLabel()->isVisible() && !button("CFMapUnld")->isEnabled());
        choose(path);
        QCOMPARE(captions(), "\"B ");
        desktop->Dialogs.dialog("Load a Custom Map", [](QDialog *d) { d->reject(); });
        press("CFMapLoad");
    }

    void loadsByOtherWays()
    {
        const QString first = write("a.zcm", {"a"});
        const QString second = write("b.ZCM", {"b"});
        window->OpenDroppedFile(first);
        window->OpenDroppedFile(second);
        QCOMPARE(captions(), "b");
        QMenu *menu = button("CFMapLoad")->menu();
        emit menu->aboutToShow();
        QCOMPARE(menu->actions().at(1)->text(), "a.zcm");
        menu->actions().at(1)->trigger();
        QCOMPARE(captions(), "a");
        expect(AlreadyLoaded, "Ok", first);
        menuItem(window, "CFMRU1")->trigger();
        QVERIFY(desktop->close());
        QCOMPARE(desktop->setting("CFMRU", "1"), first);
        QCOMPARE(desktop->setting("Last", "LMLoadPath"), desktop->Folder.path());

        restart('"' + second + '"');
        QTRY_COMPARE(captions(), QString("b"));
        QVERIFY(desktop->close());
        desktop->store("FontMap", "InitMap", true);
        desktop->store("FontMap", "InitMapPath", first);
        restart();
        QTRY_COMPARE(captions(), QString("a"));
        QVERIFY(button("CFMapUnld")->isEnabled());
    }

    void refusesWhatIsNoMap()
    {
        window->OpenDroppedFile(write("good.zcm", {"d", "c", "b", "a"}));
        const QString path = desktop->Folder.filePath("bad.zcm");
        for (const bool tooLarge : {false, true}) {
            writeFile(path, QByteArray(tooLarge ? CustomMapFile::MostBytes + 1 : 9, 'A'));
            if (tooLarge)
                expect(NotReadable, "Ok", "larger than 64 kB");
            else
                expect(Unloadable, "Ok", path);
            window->OpenDroppedFile(path);
            QCOMPARE(captions(), "dcba");
            QCOMPARE(nameLabel()->wholeText(), "good");
            QCOMPARE(menuItem(window, "CFMRU1")->text(), "&1 good.zcm");
        }
    }

    void editsTheLoadedMap()
    {
        const QString path = write("a.zcm", {"a", "b"});
        window->OpenDroppedFile(path);
        desktop->Dialogs.dialog("Zendova Custom FontMap Editor :  a.zcm", [](QDialog *dialog) {
            QTest::mouseClick(dialog->findChild<QPushButton *>("cmdMapToList"), Qt::LeftButton);
            QTest::mouseClick(dialog->findChild<QPushButton *>("btnSaveCFMap"), Qt::LeftButton);
            QTest::mouseClick(dialog->findChild<QPushButton *>("btnCancel"), Qt::LeftButton);
        });
        press("CFMapEdit");
        QVERIFY(contentOf(path).startsWith("1,\"\"\r\n2,\"b\"\r\n"));
        QCOMPARE(captions(), "b");

        {
            const FileLock otherCopy = FileLock::exclusive(path);
            expect(NotReadable, "Ok", "It is open for editing in another copy");
            menuItem(window, "FileCFMEdit")->trigger();
        }
        writeFile(path, "damaged meanwhile");
        expect(Unloadable, "Ok", path);
        menuItem(window, "FileCFMEdit")->trigger();
        QCOMPARE(captions(), "b");
        desktop->Dialogs.dialog("Zendova Custom Map Editor",
                                [](QDialog *dialog) { dialog->reject(); });
        press("CFMapNew");
    }

    void cutsALongName()
    {
        window->OpenDroppedFile(write(QString(150, 'W') + ".zcm", {"a"}));
        QTRY_VERIFY(nameLabel()->text().endsWith(u'…'));
        QVERIFY(nameLabel()->text().startsWith('W'));
        const QRect bar(QPoint(), window->FMapContainer->size());
        QVERIFY(bar.contains(
            QRect(nameLabel()->mapTo(window->FMapContainer, QPoint()), nameLabel()->size())));
        QCOMPARE(nameLabel()->accessibleName(), QString(150, 'W'));
    }

private:
    QString write(const QString &name, const CustomMapFile::Captions &captions) const
    {
        return writeFile(desktop->Folder.filePath(name), CustomMapFile::write(captions));
    }
    ElidedLabel *nameLabel() const { return window->FMapContainer->lblCFMName; }
    /// The characters of all cells in their order.
    QString captions() const
    {
        QString all;
        for (int index = 0; index < CellCount; ++index)
            all += window->FMapContainer->CharButton->Caption(index);
        return all;
    }
    void choose(const QString &path, const ExpectedMessage &said = {})
    {
        desktop->Dialogs.dialog("Load a Custom Map",
                                [path](QDialog *dialog) { typeFileName(dialog, path); });
        if (said.Title)
            expect(said, "Ok", path);
        press("CFMapLoad");
    }
};

ZENDOVA_WINDOW_TEST(TestCustomMaps)
#include "tst_custommaps.moc"
