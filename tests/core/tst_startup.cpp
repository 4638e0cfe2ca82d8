// Start-up and the end of a run as a person meets them: the screen check, the first-run questions,
// settings that are missing or unfit, the start-up file, the exit warning, what is kept, and a
// change of the display.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"
#include "core/SettingsTable.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>

namespace {

const QString FirstRunTitle = "Zendova Init Information";
const QString FirstRunQuestion = "\r\r\r\rAre you running Zendova for the first time?";
const QString RepairTitle = "Zendova Registry Initialization Error";
const QString RepairQuestion =
    "\rZendova registry entries seem to be incorrect.  \r\rContinue Loading?\r\r"
    "\u2022 Press Yes to repair registry and continue loading.\r"
    "(all settings will be reset to default values)      \r"
    "\u2022 Press No to terminate loading.";
const QString ScreenTitle = " Resource Initilalization Error";
const QString ScreenText = "\rYour screen and/or font size is not adequate to run Zendova.\r\r"
                           "To run properly, Zendova needs at least 800x600 resolution\r"
                           " with Small Fonts or 1024x768 resolution with Large Fonts.\r\r"
                           "Please change your screen resolution and/or\r"
                           "font size accordingly and try again.";
const QString ExitTitle = "Zendova Exit Warning";
const QString ExitQuestion = "\r\r\r\rDiscard text on the TextBoard and Exit?";

QString mapSize(const Zendova &window)
{
    return window.FMapContainer->sldSetFMapSize->number()->text();
}

/// Width and height in pixels of a window whose map has this size.
QSizeF outerSize(int mapSize)
{
    return {780.0 + 28 * (mapSize - 1), 592.0 + 8 * (mapSize - 1)};
}

QSizeF outerSize(const Zendova &window)
{
    return {window.FormWidth() / 15, window.FormHeight() / 15};
}

/// Whether each way to size the map is offered.
QList<bool> sizing(const Zendova &window)
{
    return {window.FMapContainer->FMSmaller->isEnabled(),
            window.FMapContainer->tlbCFMapFmt->button("FMap-")->isEnabled(),
            window.FMapContainer->pbxSetFMapSize->isEnabled(), window.SplitBar->isVisible()};
}

/// As the settings file shows a value.
QString stored(const WrittenValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        return *text;
    if (const auto *truth = std::get_if<bool>(&value))
        return *truth ? "True" : "False";
    return QString::number(static_cast<quint32>(std::get<qint32>(value)));
}

/// A value that only this row of the table of settings has. Of those that know two values only, the
/// row's number says in which of four rounds which one it is.
WrittenValue ownValue(int row, const Setting &setting, int round)
{
    const bool bit = (row >> round & 1) == 1;
    static const QHash<QString, WrittenValue> limited = {
        {"FontName", "Zt Gaps"}, {"FontSize", 17},    {"Alignment", 2},
        {"FontColorIndex", 9},   {"FormTop", 750},    {"FormLeft", 900},
        {"SizeIndex", 3},        {"VCPosition", "R"}, {"ZoomSize", 33},
    };
    if (limited.contains(setting.Name.toString()))
        return limited.value(setting.Name.toString());
    for (const QStringView name : {u"Bold", u"Italic", u"Underline", u"Strikeout", u"Borders"})
        if (setting.Name == name)
            return qint32(bit);
    switch (setting.Kind) {
    case Setting::Type::Truth:
        return bit;
    case Setting::Type::Text:
        return QString("value %1").arg(row);
    default:
        return 1500 + 15 * row;
    }
}

QString setValueSql(const QString &key, const QString &name, int kind, const QString &literal)
{
    return QString("UPDATE settings SET kind = %1, value = %2 WHERE key = '%3' AND name = '%4'")
        .arg(kind)
        .arg(literal, SettingsPath(key), name);
}

QString deleteValueSql(const QString &key, const QString &name)
{
    return QString("DELETE FROM settings WHERE key = '%1' AND name = '%2'")
        .arg(SettingsPath(key), name);
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private:
    QByteArray Complete; ///< settings of a first run, with full lists of recent files

private slots:
    void initTestCase()
    {
        Desktop desktop;
        desktop.start();
        QVERIFY(desktop.close());
        desktop.alterSettings("UPDATE settings SET value = '/files/' || name || '.txt' "
                              "WHERE key LIKE '%MRU'");
        desktop.alterSettings(QString("INSERT INTO settings VALUES('%1', 'TBFColorIndex', 4, 3), "
                                      "('%1', 'FMFColorIndex', 4, 3)")
                                  .arg(SettingsPath(u"Temp")));
        Complete = contentOf(desktop.settingsFile());
    }

    void refusesNarrowScreen()
    {
        for (const bool settingsExist : {true, false}) {
            Desktop desktop({799, 600}, 96, settingsExist ? Complete : QByteArray());
            desktop.Dialogs.message("Ze" + ScreenTitle, ScreenText, "Ok");
            QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.startAsItIs());
            QVERIFY(desktop.Dialogs.allCame());
            QVERIFY(!desktop.Window->isVisible());
            QCOMPARE(desktop.settings().empty(), !settingsExist);
            // The end of a run saves what the window holds, and that is its design.
            QCOMPARE(desktop.setting("Last", "FormWidth"), QString(settingsExist ? "11700" : ""));
            QCOMPARE(desktop.setting("MRU", "1"), QString());
        }
    }

    void leastScreenHasNoRoomToSizeTheMap()
    {
        Desktop desktop({800, 480});
        const Zendova *window = desktop.start();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(mapSize(*window), QString("1"));
        QCOMPARE(sizing(*window), QList<bool>(4, false));
    }

    void firstRunGivenUp()
    {
        Desktop desktop;
        desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "No");
        desktop.Dialogs.message(RepairTitle, RepairQuestion, "No");
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.startAsItIs());
        QVERIFY(desktop.Dialogs.allCame());
        QVERIFY(!QFile::exists(desktop.settingsFile()));
    }

    void firstRun()
    {
        Desktop desktop({1902, 1200});
        desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "Yes");
        const Zendova *window = desktop.startAsItIs();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->windowTitle(), QString("Zendova Version 3.0.0 RC2"));
        for (const Setting &row : SettingsTable())
            if (const WrittenValue value = row.standard(); value.index() != 0)
                QCOMPARE(desktop.setting(row.Key.toString(), row.Name.toString()), stored(value));
        for (const char *name : {"LFLoadPath", "LFSavePath", "LMLoadPath", "LMSavePath"})
            QCOMPARE(desktop.setting("Last", name), SysInfo::documentsFolder());
        for (int start = 1; start <= 2; ++start) {
            QCOMPARE(mapSize(*window), QString("24"));
            QCOMPARE(window->FontSizeSlider->number()->text(), QString("34"));
            QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(), 27 + 24);
            QCOMPARE(outerSize(*window), outerSize(24));
            QVERIFY(desktop.close());
            window = desktop.startAsItIs(); // asks nothing
            QVERIFY(desktop.Dialogs.allCame());
        }
    }

    void missingSetting_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<bool>("asks");
        const Desktop desktop({1280, 1024}, 96, Complete);
        for (const auto &[key, name, kind, value] : desktop.settings())
            QTest::addRow("%s\\%s", qPrintable(key), qPrintable(name))
                << deleteValueSql(key, name) << !(key.isEmpty() || key == "Temp");
        for (const char *name : {"FontName", "FontColorName", "FontColorIndex", "ForeColorName",
                                 "ForeColorIndex", "ForePaletteRef", "BackPaletteRef"})
            QTest::addRow("%s empty", name)
                << QString("UPDATE settings SET kind = 1, value = '' WHERE name = '%1'").arg(name)
                << true;
        QTest::newRow("folder empty") << setValueSql("Last", "LFLoadPath", 1, "''") << false;
    }

    void missingSetting()
    {
        QFETCH(QString, sql);
        QFETCH(bool, asks);
        Desktop desktop({1280, 1024}, 96, Complete);
        desktop.alterSettings(sql);
        const QByteArray before = contentOf(desktop.settingsFile());
        if (asks) {
            desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "No");
            desktop.Dialogs.message(RepairTitle, RepairQuestion, "No");
            QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.startAsItIs());
        } else {
            QVERIFY_THROWS_NO_EXCEPTION(desktop.startAsItIs());
        }
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(contentOf(desktop.settingsFile()), before);
    }

    void repairKeepsRecentFiles()
    {
        Desktop desktop({1280, 1024}, 96, Complete);
        desktop.alterSettings(deleteValueSql("Options", "ToolTips"));
        desktop.alterSettings(setValueSql("FontMap", "ForeColor", 4, "255"));
        desktop.alterSettings(setValueSql("TextBoard", "FontSize", 4, "30"));
        desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "No");
        desktop.Dialogs.message(RepairTitle, RepairQuestion, "Yes");
        const Zendova *window = desktop.startAsItIs();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(desktop.setting("Options", "ToolTips"), QString("True"));
        QCOMPARE(desktop.setting("FontMap", "ForeColor"), QString("2147483656"));
        QCOMPARE(desktop.setting("MRU", "9"), QString("/files/9.txt"));
        QCOMPARE(desktop.setting("CFMRU", "1"), QString("/files/1.txt"));
        QCOMPARE(desktop.setting("Temp", "TBFColorIndex"), QString("3"));
        // The window shows what was written.
        QCOMPARE(window->FontSizeSlider->value(), 18);
        QCOMPARE(window->FMapContainer->CharButton->ForeColor(100), SystemColorValue(8));
    }

    void everySettingHasItsPlace()
    {
        // What the start itself changes, or gives out in other words.
        const QSet<QString> passing{"FormHeight", "FormWidth", "FMBand3Wdth"};
        Desktop desktop({1280, 1024}, 96, Complete);
        for (int round = 0; round < 6; ++round) {
            int number = 0;
            for (const Setting &row : SettingsTable()) {
                const WrittenValue value = ownValue(++number, row, round);
                desktop.alterSettings(setValueSql(row.Key.toString(), row.Name.toString(),
                                                  int(row.storedKind()),
                                                  '\'' + stored(value) + '\''));
            }
            if (desktop.setting("FontMap", "InitMap") == "True") // and its path is no file
                desktop.Dialogs.message("Zendova Startup File Load Error", "", "Ok");
            const Zendova *window = desktop.startAsItIs();
            QVERIFY(desktop.Dialogs.allCame());
            QCOMPARE(window->SavedFormHeight, qreal(1500 + 15 * 14));
            QCOMPARE(window->SavedFormWidth, qreal(1500 + 15 * 15));
            number = 0;
            for (const Setting &row : SettingsTable()) {
                ++number;
                if (row.Get && !passing.contains(row.Name.toString()))
                    QCOMPARE(row.Name.toString() + stored(row.Get(*window)),
                             row.Name.toString() + stored(ownValue(number, row, round)));
            }
        }
    }

    void writtenByOthers()
    {
        Desktop desktop({1280, 1024}, 96, Complete);
        desktop.alterSettings(setValueSql("TextBoard", "FontSize", 1, "' +13.5 '"));
        desktop.alterSettings(setValueSql("TextBoard", "FontColorName", 4, "7"));
        desktop.alterSettings(setValueSql("Views", "ZoomSize", 4, "500"));
        desktop.alterSettings(setValueSql("Options", "ToolTips", 4, "0"));
        desktop.alterSettings(setValueSql("Options", "ExitWarning", 1, "'false'"));
        desktop.alterSettings(setValueSql("FontMap", "SizeIndex", 4, "0"));
        desktop.alterSettings(setValueSql("FontMap", "Borders", 1, "'True'"));
        // A reference to a colour has its high bit set, and is a negative number in the program.
        desktop.alterSettings(setValueSql("FontMap", "ForeColor", 4, "2147483662"));
        Zendova *window = desktop.startAsItIs();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->FontSizeSlider->number()->text(), QString("14"));
        QCOMPARE(window->Format.TBColorName, QString("7"));
        QCOMPARE(window->ViewsContainer->ZoomSizeSlider->number()->text(), QString("72"));
        QVERIFY(!window->DisplayTT->isChecked());
        QVERIFY(window->SplitBar->toolTip().isEmpty());
        QVERIFY(!window->DisplayEW->isChecked());
        QCOMPARE(mapSize(*window), QString("1"));
        QCOMPARE(window->FMapContainer->CharButton->BorderStyle(50), 1);
        QCOMPARE(window->FMapContainer->CharButton->ForeColor(223), SystemColorValue(14));
        window->WriteDefaultSettings();
        QCOMPARE(desktop.setting("FontMap", "ForeColor"), QString("2147483662"));
    }

    void unfitText()
    {
        for (const auto &[key, name] :
             {std::pair("TextBoard", "FontSize"), std::pair("Last", "FormTop"),
              std::pair("Bars", "TBBand5Wdth"), std::pair("FontMap", "SizeIndex"),
              std::pair("Views", "ZoomSize"), std::pair("Options", "ToolTips")}) {
            Desktop desktop({1280, 1024}, 96, Complete);
            desktop.alterSettings(setValueSql(key, name, 1, "'large'"));
            const QByteArray before = contentOf(desktop.settingsFile());
            QString failure;
            try {
                desktop.startAsItIs();
            } catch (const ConversionError &error) {
                failure = error.key + ' ' + error.name + ' ' + error.text;
            }
            QCOMPARE(failure, QString("%1 %2 large").arg(key, name));
            QVERIFY(desktop.Dialogs.allCame());
            QCOMPARE(contentOf(desktop.settingsFile()), before);
        }
    }

    void storedMapTooLarge()
    {
        Desktop desktop({1024, 768}, 96, Complete);
        desktop.alterSettings(setValueSql("FontMap", "SizeIndex", 4, "24"));
        desktop.Dialogs.message("Zendova FontMap Size Error",
                                "\rYour screen resolution may have changed\r"
                                "from the last time Zendova was run.\r\r"
                                "The last used FontMap size cannot be\r"
                                "accommodated in the current screen size.\r\r"
                                "Zendova will adjust it to suit the current screen size.",
                                "Ok");
        const Zendova *window = desktop.startAsItIs();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(mapSize(*window), QString("9"));
        QCOMPARE(outerSize(*window), outerSize(9));
        QVERIFY(!window->FMapContainer->FMLarger->isEnabled());
        QCOMPARE(sizing(*window), QList<bool>(4, true));
        QVERIFY(desktop.close());
        QCOMPARE(desktop.setting("FontMap", "SizeIndex"), QString("9"));
    }

    void startupFile_data()
    {
        QTest::addColumn<QString>("tail"); // % is the folder
        QTest::addColumn<QString>("notice");
        const auto row = [](const char *label, const char *tail, const char *notice) {
            QTest::newRow(label) << tail << notice;
        };
        row("blanks", "%/two words.txt", "");
        row("quotes", "\"%/two words.txt\"", "");
        row("quotes alone", "\"\"", "");
        row("bare name", "a.txt", "\r\r\r\rDrive  does not exist.");
        row("folder is not there", "%/sub/a.txt", "\r\rFolder\r\r%/sub/\r\rdoes not exist.");
        row("file is not there", "%/b.txt", "\r\rFile 'b.txt'\r\rdoes not exist in\r\r%/");
        row("other type", "%/a.doc",
            "\r\r\rFiles with extension 'DOC' are not valid Zendova files.\r\r"
            "Only valid extensions are TXT, ZUF and ZCM.");
        row("start map", "", "\r\rFile 'gone.zcm'\r\rdoes not exist in\r\r%/");
    }

    void startupFile()
    {
        QFETCH(QString, tail);
        QFETCH(QString, notice);
        Desktop desktop({1280, 1024}, 96, Complete);
        for (const char *name : {"two words.txt", "a.doc"}) {
            QFile file(desktop.Folder.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("abc");
        }
        QString map = "'%/gone.zcm'"; // looked for where no file is named
        for (QString *text : {&tail, &notice, &map})
            text->replace('%', desktop.Folder.path());
        desktop.alterSettings(setValueSql("FontMap", "InitMap", 1, "'True'"));
        desktop.alterSettings(setValueSql("FontMap", "InitMapPath", 1, map));
        if (!notice.isEmpty())
            desktop.Dialogs.message("Zendova Startup File Load Error", notice, "Ok");
        const Zendova *window = desktop.startAsItIs(tail);
        QVERIFY(desktop.Dialogs.allCame());
        QVERIFY(window->isVisible());
        QCOMPARE(window->TextBoard->Text(), QString(tail.contains("two words") ? "abc" : ""));
    }

    void exitWarning()
    {
        Desktop desktop({1280, 1024}, 96, Complete);
        Zendova *window = desktop.startAsItIs();
        QTest::keyClicks(window->TextBoard, "abc");
        window->showMinimized(); // comes back before it asks
        desktop.Dialogs.message(ExitTitle, ExitQuestion, "No");
        QVERIFY(!desktop.close());
        QVERIFY(window->isVisible() && !window->isMinimized());
        QCOMPARE(window->TextBoard->Text(), QString("abc"));
        QVERIFY(window->DisplayEW->isChecked());
        desktop.Dialogs.message(ExitTitle, ExitQuestion, "Yes");
        QVERIFY(desktop.close());
        QVERIFY(!window->isVisible());

        window = desktop.startAsItIs();
        QTest::keyClicks(window->TextBoard, "abc");
        desktop.Dialogs.message(ExitTitle, ExitQuestion, "No", true);
        menuItem(window, "FileExit")->trigger();
        QVERIFY(desktop.Dialogs.allCame());
        QVERIFY(window->isVisible());
        QVERIFY(!window->DisplayEW->isChecked());
        menuItem(window, "FileExit")->trigger();
        QVERIFY(!window->isVisible());
        QCOMPARE(desktop.setting("Options", "ExitWarning"), QString("True")); // asks again
        QVERIFY(desktop.Dialogs.allCame());
    }

    void savedAtExit()
    {
        Desktop desktop({1280, 1024}, 96, Complete);
        Zendova *window = desktop.startAsItIs();
        window->DisplayTT->trigger();
        window->FontSizeSlider->setValue(30);
        window->FMapContainer->sldSetFMapSize->setValue(5);
        window->CoolBarCM->setBandWidth(1, 5000);
        window->Folders.LFSavePath = "/somewhere/";
        window->move(7, 11);
        QVERIFY(desktop.close());
        QVERIFY(desktop.setting("Temp", "FMFColorIndex").isNull());
        window = desktop.startAsItIs();
        QCOMPARE(window->pos(), QPoint(7, 11));
        QCOMPARE(mapSize(*window), QString("5"));
        QCOMPARE(outerSize(*window), outerSize(5));
        QCOMPARE(window->CoolBarCM->bandWidth(1), 5000.0);
        QCOMPARE(window->Folders.LFSavePath, QString("/somewhere/"));
        QCOMPARE(desktop.setting("MRU", "9"), QString("/files/9.txt"));
        // How things look is kept with the default options only.
        QVERIFY(window->DisplayTT->isChecked());
        QCOMPARE(window->FontSizeSlider->value(), 18);

        // A minimised window keeps its former place.
        window->move(3, 5);
        window->FMapContainer->sldSetFMapSize->setValue(2);
        window->showMinimized();
        QVERIFY(desktop.close());
        QCOMPARE(desktop.setting("Last", "FormLeft"), QString::number(15 * 7));
        QCOMPARE(desktop.setting("Last", "FormWidth"), QString::number(15 * (780 + 28)));
    }

    void displayChange()
    {
        Desktop desktop({1280, 1024}, 96, Complete);
        Zendova *window = desktop.startAsItIs();
        window->FMapContainer->sldSetFMapSize->setValue(18);
        const auto change = [&](const QSize &pixels, int expectedSize) {
            desktop.Screen->pretend(SysInfo::Screen{pixels, {}, 96});
            QCOMPARE(mapSize(*window), QString::number(expectedSize));
            QCOMPARE(outerSize(*window), outerSize(expectedSize));
            const QSizeF around = QSizeF(pixels) - outerSize(expectedSize);
            QVERIFY(qAbs(window->pos().x() - around.width() / 2) <= 1);
            QVERIFY(qAbs(window->pos().y() - around.height() / 2) <= 1);
            QCOMPARE(sizing(*window), QList<bool>(4, expectedSize > 1));
        };
        change({1600, 1200}, 18);
        QVERIFY(window->FMapContainer->FMLarger->isEnabled());
        change({1024, 768}, 9); // a map that no longer fits shrinks to what does
        QVERIFY(!window->FMapContainer->FMLarger->isEnabled());
        change({800, 768}, 1);
        QVERIFY(desktop.Dialogs.allCame());
    }

    void displayTooNarrow()
    {
        Desktop desktop({1280, 1024}, 96, Complete);
        Zendova *window = desktop.startAsItIs();
        QTest::keyClicks(window->TextBoard, "abc");
        window->FMapContainer->sldSetFMapSize->setValue(3);
        const QByteArray before = contentOf(desktop.settingsFile());
        desktop.Dialogs.message(ExitTitle, ExitQuestion, "No");
        desktop.Dialogs.message("Zendova" + ScreenTitle, ScreenText, "Ok");
        const SysInfo::Screen narrow{{799, 600}, {}, 96};
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.Screen->pretend(narrow));
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(contentOf(desktop.settingsFile()), before); // the unload was cancelled
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestStartup>(argc, argv);
}

#include "tst_startup.moc"
