// Custom maps in the main window: loading them by every way, what grid, views and bar show of them,
// and what is said of files that are none.
#include "fontmap/CustomMapFile.h"
#include "platform/FileLock.h"
#include "platform/controls/ElidedLabel.h"
#include "tests/support/MainWindow.h"

#include <QPushButton>

namespace {

constexpr ExpectedMessage AlreadyLoaded{" Custom Map Load Error",
                                        "\r\r\r%1\r\rThis Custom Map is already loaded."};
constexpr ExpectedMessage Unloadable{" Custom Map Load Error",
                                     "\r%1\rThis Zendova Custom Map is unloadable.\r"
                                     "\rIt has either become corrupt\ror has been manually edited."
                                     "\r\rZendova cannot load this Map."};
constexpr ExpectedMessage NotReadable{" Custom Map Load Error", "%1"};

/// A map with these characters in its first cells.
QByteArray mapOf(const QString &characters)
{
    CustomMapFile::Captions captions;
    std::ranges::copy(characters, captions.begin());
    return CustomMapFile::write(captions);
}

} // namespace

class TestCustomMaps : public WindowTest
{
    Q_OBJECT

private slots:
    void loadsByTheDialog()
    {
        const QString path = write("sub/Arrows & more.zcm", "\"B ");
        QVERIFY(!menuItem(window, "FileCFMUnld")->isEnabled() && !button("CFMapUnld")->isEnabled());
        choose(path);
        QCOMPARE(captions(), QString("\"B "));
        QVERIFY(nameLabel()->isVisible());
        QCOMPARE(nameLabel()->wholeText(), QString("Arrows & more"));
        QVERIFY(menuItem(window, "FileCFMUnld")->isEnabled() && button("CFMapUnld")->isEnabled());
        QCOMPARE(window->Folders.LMLoadPath, desktop->Folder.filePath("sub"));

        QTest::mouseClick(window->FMapContainer->CharButton, Qt::LeftButton, {}, cell(1));
        QTest::mouseClick(window->FMapContainer->CharButton, Qt::LeftButton, {}, cell(7)); // blank
        QCOMPARE(window->TextBoard->Text(), QString("B"));
        QTest::mouseMove(window->FMapContainer->CharButton, cell(0));
        QCOMPARE(window->ViewsContainer->TextZoom->Caption(0), QString("\""));
        QTest::mouseMove(window->FMapContainer->CharButton, cell(7));
        QCOMPARE(window->ViewsContainer->TextZoom->Caption(0), QString());

        choose(path, AlreadyLoaded);
        menuItem(window, "FileCFMUnld")->trigger();
        QCOMPARE(captions().size(), CellCount);
        QVERIFY(!nameLabel()->isVisible() && !button("CFMapUnld")->isEnabled());
        choose(path);
        QCOMPARE(captions(), QString("\"B "));
        desktop->Dialogs.dialog("Load a Custom Map", [](QDialog *d) { d->reject(); });
        press("CFMapLoad");
    }

    void loadsByOtherWays()
    {
        const QString first = write("a.zcm", "a");
        const QString second = write("b.ZCM", "b");
        window->OpenDroppedFile(first);
        window->OpenDroppedFile(second);
        QCOMPARE(captions(), QString("b"));
        QMenu *menu = button("CFMapLoad")->menu();
        emit menu->aboutToShow();
        QCOMPARE(menu->actions().at(1)->text(), QString("a.zcm"));
        menu->actions().at(1)->trigger();
        QCOMPARE(captions(), QString("a"));
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
        window->OpenDroppedFile(write("good.zcm", "dcba"));
        const auto refuse = [&](const QByteArray &bytes, const ExpectedMessage &said,
                                const QString &what = {}) {
            const QString path = writeFile(desktop->Folder.filePath("bad.zcm"), bytes);
            expect(said, "Ok", what.isEmpty() ? path : what);
            window->OpenDroppedFile(path);
            QCOMPARE(captions(), QString("dcba"));
            QCOMPARE(nameLabel()->wholeText(), QString("good"));
            QCOMPARE(menuItem(window, "CFMRU1")->text(), QString("&1 good.zcm"));
        };
        refuse("no map", Unloadable);
        refuse(QByteArray(CustomMapFile::MostBytes + 1, 'A'), NotReadable, "larger than 64 kB");
    }

    void editsTheLoadedMap()
    {
        const QString path = write("a.zcm", "ab");
        window->OpenDroppedFile(path);
        desktop->Dialogs.dialog("Zendova Custom FontMap Editor :  a.zcm", [](QDialog *dialog) {
            QTest::mouseClick(dialog->findChild<QPushButton *>("cmdMapToList"), Qt::LeftButton);
            QTest::mouseClick(dialog->findChild<QPushButton *>("btnSaveCFMap"), Qt::LeftButton);
            QTest::mouseClick(dialog->findChild<QPushButton *>("btnCancel"), Qt::LeftButton);
        });
        press("CFMapEdit");
        QVERIFY(contentOf(path).startsWith("1,\"\"\r\n2,\"b\"\r\n"));
        QCOMPARE(captions(), QString("b"));

        {
            const FileLock otherCopy = FileLock::exclusive(path);
            expect(NotReadable, "Ok", "It is open for editing in another copy");
            menuItem(window, "FileCFMEdit")->trigger();
        }
        writeFile(path, "damaged meanwhile");
        expect(Unloadable, "Ok", path);
        menuItem(window, "FileCFMEdit")->trigger();
        QCOMPARE(captions(), QString("b"));
        desktop->Dialogs.dialog("Zendova Custom Map Editor",
                                [](QDialog *dialog) { dialog->reject(); });
        press("CFMapNew");
    }

    void cutsALongName()
    {
        window->OpenDroppedFile(write(QString(150, 'W') + ".zcm", "a"));
        QTRY_VERIFY(nameLabel()->text().endsWith(u'…'));
        QVERIFY(nameLabel()->text().startsWith('W'));
        const QRect bar(QPoint(), window->FMapContainer->size());
        QVERIFY(bar.contains(
            QRect(nameLabel()->mapTo(window->FMapContainer, QPoint()), nameLabel()->size())));
        QCOMPARE(nameLabel()->accessibleName(), QString(150, 'W'));
    }

private:
    QString write(const QString &name, const QString &characters) const
    {
        return writeFile(desktop->Folder.filePath(name), mapOf(characters));
    }
    ElidedLabel *nameLabel() const { return window->FMapContainer->lblCFMName; }
    QPoint cell(int index) const
    {
        return window->FMapContainer->CharButton->pixels(index).center();
    }
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
