// Start-up and the end of a run as a person meets them: the screen check, the first-run questions,
// settings that are missing or unfit, the start-up file, the exit warning, what is kept, and a
// change of the display.
#include "tests/support/MainWindow.h"
#include "tests/support/TestFonts.h"

#include "core/GlobalDeclarations.h"
#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"
#include "fontmap/MapSize.h"
#include "platform/FontCatalog.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSlider>
#include <QTest>
#include <algorithm>
#include <iterator>
#include <set>

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
const QString FileTitle = "Zendova Startup File Load Error";
const QString ExitTitle = "Zendova Exit Warning";
const QString ExitQuestion = "\r\r\r\rDiscard text on the TextBoard and Exit?";

/// What a person sees of a setting once the window stands.
using Shown = QString (*)(const Zendova &);

QString yesNo(bool on)
{
    return on ? "yes" : "no";
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

/// The settings whose stored value differs between two looks, as "key\name".
std::set<QString> differences(const std::vector<StoredSetting> &one,
                              const std::vector<StoredSetting> &two)
{
    std::vector<StoredSetting> differing;
    std::set_symmetric_difference(one.begin(), one.end(), two.begin(), two.end(),
                                  std::back_inserter(differing));
    std::set<QString> names;
    for (const StoredSetting &setting : differing)
        names.insert(setting.Key + '\\' + setting.Name);
    return names;
}

void makeFile(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("abc");
}

} // namespace

Q_DECLARE_METATYPE(Shown)

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void refusesNarrowScreen_data();
    void refusesNarrowScreen();
    void acceptsLeastScreen();
    void firstRun_data();
    void firstRun();
    void suitsScreen_data();
    void suitsScreen();
    void noSizeSuitsScreen();
    void missingSetting_data();
    void missingSetting();
    void repairKeepsRecentFiles();
    void otherKind_data();
    void otherKind();
    void unfitText_data();
    void unfitText();
    void emptyText_data();
    void emptyText();
    void sizeTooLarge();
    void systemColors();

    void startupFile_data();
    void startupFile();

    void exitWarning_data();
    void exitWarning();
    void savedAtExit();
    void minimisedKeepsPlace();

    void displayChange();
    void displayTooNarrow_data();
    void displayTooNarrow();
    void displayDecidesSizing_data();
    void displayDecidesSizing();

private:
    QByteArray Complete; ///< settings of a first run, with full lists of recent files
};

void TestStartup::initTestCase()
{
    Desktop desktop;
    desktop.start();
    QVERIFY(desktop.close());
    for (const auto &[key, extension] : {std::pair{"MRU", "txt"}, std::pair{"CFMRU", "zcm"}})
        desktop.alterSettings(QString("UPDATE settings SET value = '/files/' || name || '.%1' "
                                      "WHERE key = '%2'")
                                  .arg(extension, SettingsPath(QString(key))));
    desktop.alterSettings(QString("INSERT INTO settings VALUES('%1', 'TBFColorIndex', 4, 3)")
                              .arg(SettingsPath(u"Temp")));
    QVERIFY(desktop.Dialogs.allCame());
    Complete = desktop.settingsBytes();
    QVERIFY(!Complete.isEmpty());
}

void TestStartup::refusesNarrowScreen_data()
{
    QTest::addColumn<bool>("settingsExist");
    QTest::newRow("settings") << true;
    QTest::newRow("no settings") << false;
}

void TestStartup::refusesNarrowScreen()
{
    QFETCH(bool, settingsExist);
    Desktop desktop({799, 600}, 96, settingsExist ? Complete : QByteArray());
    const auto before = desktop.settings();
    desktop.Dialogs.message("Ze" + ScreenTitle, ScreenText, "Ok");
    QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.startAsItIs());
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!desktop.Window->isVisible());
    if (!settingsExist) {
        QVERIFY(desktop.settings().empty());
        return;
    }
    // The end of a run saves what the window holds, and it holds nothing but its design.
    QCOMPARE(desktop.setting("MRU", "1"), QString(""));
    QCOMPARE(desktop.setting("CFMRU", "5"), QString(""));
    QCOMPARE(desktop.setting("Last", "LFLoadPath"), QString(""));
    QCOMPARE(desktop.setting("Last", "FormWidth"), QString("11700"));
    QCOMPARE(desktop.setting("Last", "FormHeight"), QString("8880"));
    for (const QString &name : differences(before, desktop.settings()))
        QVERIFY2(name.contains("MRU\\") || name.startsWith("Last\\") || name.startsWith("Bars\\") ||
                     name == "FontMap\\SizeIndex",
                 qPrintable(name));
}

void TestStartup::acceptsLeastScreen()
{
    Desktop desktop({800, 480});
    Zendova *window = desktop.start();
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(window->isVisible());
    QCOMPARE(window->SizeIndex, 1);
    // There is no room to size the map: nothing offers it.
    for (const QAction *item : {window->FMSmaller, window->FMLarger, window->FMRealign})
        QVERIFY2(!item->isEnabled(), qPrintable(item->objectName()));
    for (const char *key : {"FMap-", "FMap+", "RAFMap"})
        QVERIFY2(!window->tlbCFMapFmt->button(key)->isEnabled(), key);
    QVERIFY(!window->pbxSetFMapSize->isEnabled());
    QVERIFY(!window->SplitBar->isVisible());
}

void TestStartup::firstRun_data()
{
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<bool>("runs");
    QTest::newRow("Yes") << QStringList{"Yes"} << true;
    QTest::newRow("No, Yes") << QStringList{"No", "Yes"} << true;
    QTest::newRow("No, No") << QStringList{"No", "No"} << false;
}

void TestStartup::firstRun()
{
    QFETCH(QStringList, answers);
    QFETCH(bool, runs);
    Desktop desktop;
    desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, answers[0]);
    if (answers.size() > 1)
        desktop.Dialogs.message(RepairTitle, RepairQuestion, answers[1]);
    if (!runs) {
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.startAsItIs());
        QVERIFY(desktop.Dialogs.allCame());
        QVERIFY(!QFile::exists(desktop.settingsFile()));
        return;
    }
    desktop.startAsItIs();
    QVERIFY(desktop.Dialogs.allCame());
    for (const SettingDefault &row : SettingDefaults) {
        const auto *number = std::get_if<qint32>(&row.standard);
        const QString value = number ? QString::number(static_cast<quint32>(*number))
                                     : std::get<QStringView>(row.standard).toString();
        QCOMPARE(desktop.setting(row.key.toString(), row.value.toString()), value);
    }
    for (const char *name : {"LFLoadPath", "LFSavePath", "LMLoadPath", "LMSavePath"})
        QCOMPARE(desktop.setting("Last", name), SysInfo::documentsFolder());
    QVERIFY(desktop.close());
    desktop.startAsItIs(); // asks nothing
    QVERIFY(desktop.Dialogs.allCame());
}

void TestStartup::suitsScreen_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("mapSize");
    QTest::addColumn<int>("fontSize");
    QTest::newRow("800") << 800 << 1 << 10;
    QTest::newRow("1024") << 1024 << 4 << 14;
    QTest::newRow("1025") << 1025 << 8 << 18;
    QTest::newRow("1440") << 1440 << 12 << 22;
    QTest::newRow("1600") << 1600 << 16 << 26;
    QTest::newRow("1900") << 1900 << 20 << 30;
    QTest::newRow("1902") << 1902 << 24 << 34;
}

void TestStartup::suitsScreen()
{
    QFETCH(int, width);
    QFETCH(int, mapSize);
    QFETCH(int, fontSize);
    Desktop desktop({width, 1200});
    Zendova *window = desktop.start();
    for (int start = 1; start <= 2; ++start) {
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->sldSetFMapSize->number()->text(), QString::number(mapSize));
        QCOMPARE(window->sldSetFMapSize->value(), mapSize);
        QCOMPARE(window->FontSizeSlider->number()->text(), QString::number(fontSize));
        QCOMPARE(window->CharButton->pixels(0).width(), 27 + mapSize);
        QCOMPARE(window->FormWidth(), 15 * (780 + 28.0 * (mapSize - 1)));
        QCOMPARE(window->FormHeight(), 15 * (592 + 8.0 * (mapSize - 1)));
        QCOMPARE(desktop.setting("FontMap", "SizeIndex"), QString::number(mapSize));
        QVERIFY(desktop.close());
        window = desktop.start();
    }
}

void TestStartup::noSizeSuitsScreen()
{
    Desktop desktop({1901, 1200});
    const Zendova *window = desktop.start();
    const QString designSize = window->FontSizeSlider->number()->text();
    QCOMPARE(desktop.setting("FontMap", "SizeIndex"), QString("0"));
    QCOMPARE(desktop.setting("TextBoard", "FontSize"), designSize);
    QCOMPARE(window->CharButton->pixels(0).width(), 28);
    QVERIFY(desktop.close());
    window = desktop.startAsItIs(); // a size of none is the smallest
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString("1"));
    QCOMPARE(window->FormWidth(), 11700.0);
}

void TestStartup::missingSetting_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<bool>("asks");
    const Desktop desktop({1280, 1024}, 96, Complete);
    for (const auto &[key, name, kind, value] : desktop.settings())
        QTest::addRow("%s\\%s", qPrintable(key), qPrintable(name))
            << deleteValueSql(key, name) << !(key.isEmpty() || key == "Temp");
    for (const QStringView key : SettingsKeys)
        QTest::addRow("key %s", qPrintable(key.toString()))
            << QString("DELETE FROM keys WHERE path = '%1'").arg(SettingsPath(key))
            << (key != u"Temp");
    QTest::newRow("recent file behind a gap")
        << QString("UPDATE settings SET name = CASE name WHEN '5' THEN '50' ELSE name END, "
                   "value = CASE name WHEN '3' THEN '' ELSE value END WHERE key = '%1'")
               .arg(SettingsPath(u"MRU"))
        << false;
}

void TestStartup::missingSetting()
{
    QFETCH(QString, sql);
    QFETCH(bool, asks);
    Desktop desktop({1280, 1024}, 96, Complete);
    desktop.alterSettings(sql);
    if (!asks) {
        QVERIFY_THROWS_NO_EXCEPTION(desktop.startAsItIs());
        QVERIFY(desktop.Dialogs.allCame());
        return;
    }
    const QByteArray before = desktop.settingsBytes();
    desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "No");
    desktop.Dialogs.message(RepairTitle, RepairQuestion, "No");
    QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop.startAsItIs());
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(desktop.settingsBytes(), before);
}

void TestStartup::repairKeepsRecentFiles()
{
    Desktop desktop({1280, 1024}, 96, Complete);
    desktop.alterSettings(deleteValueSql("Options", "ToolTips"));
    desktop.alterSettings(setValueSql("FontMap", "ForeColor", 4, "255"));
    desktop.alterSettings(setValueSql("FontMap", "ForeColorName", 1, "'Red'"));
    desktop.alterSettings(setValueSql("TextBoard", "FontSize", 4, "30"));
    desktop.alterSettings(setValueSql("Options", "VCPosition", 1, "'R'"));
    desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "No");
    desktop.Dialogs.message(RepairTitle, RepairQuestion, "Yes");
    const Zendova *window = desktop.startAsItIs();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(desktop.setting("Options", "ToolTips"), QString("True"));
    QCOMPARE(desktop.setting("FontMap", "ForeColor"), QString("2147483656"));
    QCOMPARE(desktop.setting("FontMap", "ForeColorName"), QString("Window Text"));
    QCOMPARE(desktop.setting("MRU", "9"), QString("/files/9.txt"));
    QCOMPARE(desktop.setting("CFMRU", "1"), QString("/files/1.zcm"));
    QCOMPARE(desktop.setting("Temp", "TBFColorIndex"), QString("3"));
    // The window shows what was written.
    QCOMPARE(window->FontSizeSlider->value(), 18);
    QCOMPARE(window->VCPosition, QString("L"));
    QCOMPARE(window->TextZoom->ForeColor(0), SystemColorValue(8));
    QCOMPARE(window->CharButton->ForeColor(100), SystemColorValue(8));
}

void TestStartup::otherKind_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<Shown>("shown");
    QTest::addColumn<QString>("expected");
    const Shown fontSize = [](const Zendova &z) { return z.FontSizeSlider->number()->text(); };
    const Shown zoomSize = [](const Zendova &z) { return z.ZoomSizeSlider->number()->text(); };
    const Shown mapSize = [](const Zendova &z) { return z.sldSetFMapSize->number()->text(); };
    const Shown toolTips = [](const Zendova &z) {
        return yesNo(z.DisplayTT->isChecked() && !z.SplitBar->toolTip().isEmpty());
    };
    const Shown warning = [](const Zendova &z) { return yesNo(z.DisplayEW->isChecked()); };
    const Shown borders = [](const Zendova &z) {
        return yesNo(z.FMBorders->isChecked() && z.CharButton->BorderStyle(50) == 1);
    };
    const Shown colorName = [](const Zendova &z) { return z.TBColorName; };
    const auto row = [](const char *label, const char *key, const char *name, int kind,
                        const char *literal, Shown shown, const char *expected) {
        QTest::newRow(label) << setValueSql(key, name, kind, literal) << shown << expected;
    };
    row("digits for a number", "TextBoard", "FontSize", 1, "'14'", fontSize, "14");
    row("half to even, down", "TextBoard", "FontSize", 1, "'12.5'", fontSize, "12");
    row("half to even, up", "TextBoard", "FontSize", 1, "' +13.5 '", fontSize, "14");
    row("neither kind", "TextBoard", "FontSize", 3, "'14'", fontSize, "8");
    row("beyond the slider", "TextBoard", "FontSize", 4, "500", fontSize, "36");
    row("number for digits", "Views", "ZoomSize", 4, "40", zoomSize, "40");
    row("digits for the map size", "FontMap", "SizeIndex", 1, "'12'", mapSize, "12");
    row("0 for a truth", "Options", "ToolTips", 4, "0", toolTips, "no");
    row("7 for a truth", "Options", "ToolTips", 4, "7", toolTips, "yes");
    row("digit for a truth", "Options", "ToolTips", 1, "'0'", toolTips, "no");
    row("small letters", "Options", "ExitWarning", 1, "'false'", warning, "no");
    row("truth for a number", "FontMap", "Borders", 1, "'True'", borders, "yes");
    row("untruth for a number", "FontMap", "Borders", 1, "'False'", borders, "no");
    row("number for a name", "TextBoard", "FontColorName", 4, "7", colorName, "7");
}

void TestStartup::otherKind()
{
    QFETCH(QString, sql);
    QFETCH(Shown, shown);
    QFETCH(QString, expected);
    Desktop desktop({1280, 1024}, 96, Complete);
    desktop.alterSettings(sql);
    QVERIFY_THROWS_NO_EXCEPTION(desktop.startAsItIs());
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(shown(*desktop.Window), expected);
}

void TestStartup::unfitText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    // Read for their existence, or not at all.
    const QStringList unconverted = {"CustomColors", "CFMEditor", "Temp", ""};
    const QStringList sampleValues = {"ZoomedLetter", "OFMapStart"};
    const Desktop desktop({1280, 1024}, 96, Complete);
    for (const auto &[key, name, kind, value] : desktop.settings()) {
        const bool truth = value == "True" || value == "False";
        if ((kind == 4 || truth || name == "ZoomSize") && !unconverted.contains(key) &&
            !sampleValues.contains(name))
            QTest::addRow("%s\\%s", qPrintable(key), qPrintable(name)) << key << name << "large";
    }
    QTest::newRow("too large") << "TextBoard"
                               << "FontSize"
                               << "2147483648";
    QTest::newRow("number with a unit") << "FontMap"
                                        << "SizeIndex"
                                        << "4 px";
}

void TestStartup::unfitText()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QFETCH(QString, text);
    Desktop desktop({1280, 1024}, 96, Complete);
    desktop.alterSettings(setValueSql(key, name, 1, '\'' + text + '\''));
    const QByteArray before = desktop.settingsBytes();
    QString failure;
    try {
        desktop.startAsItIs();
    } catch (const ConversionError &error) {
        failure = error.key + '\\' + error.name + '=' + error.text;
    }
    QCOMPARE(failure, key + '\\' + name + '=' + text);
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(desktop.settingsBytes(), before);
}

void TestStartup::emptyText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("asks");
    QTest::newRow("board font") << "TextBoard"
                                << "FontName" << true;
    QTest::newRow("board colour") << "TextBoard"
                                  << "FontColorName" << true;
    QTest::newRow("board colour index") << "TextBoard"
                                        << "FontColorIndex" << true;
    QTest::newRow("map colour") << "FontMap"
                                << "ForeColorName" << true;
    QTest::newRow("map colour index") << "FontMap"
                                      << "ForeColorIndex" << true;
    QTest::newRow("map colour palette") << "FontMap"
                                        << "ForePaletteRef" << true;
    QTest::newRow("map background palette") << "FontMap"
                                            << "BackPaletteRef" << true;
    QTest::newRow("map background") << "FontMap"
                                    << "BackColorName" << false;
    QTest::newRow("map background index") << "FontMap"
                                          << "BackColorIndex" << false;
    QTest::newRow("bold") << "TextBoard"
                          << "Bold" << false;
    QTest::newRow("a folder") << "Last"
                              << "LFLoadPath" << false;
    QTest::newRow("a label") << "CustomLabels"
                             << "7" << false;
}

void TestStartup::emptyText()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QFETCH(bool, asks);
    Desktop desktop({1280, 1024}, 96, Complete);
    desktop.alterSettings(setValueSql(key, name, 1, "''"));
    if (asks)
        desktop.Dialogs.message(FirstRunTitle, FirstRunQuestion, "Yes");
    QVERIFY_THROWS_NO_EXCEPTION(desktop.startAsItIs());
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(desktop.Window->RepairRan, asks);
    QCOMPARE(desktop.setting(key, name).isEmpty(), !asks);
}

void TestStartup::sizeTooLarge()
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
    QCOMPARE(window->SizeIndex, 9);
    QCOMPARE(window->sldSetFMapSize->value(), 9);
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString("9"));
    QCOMPARE(window->sldSetFMapSize->slider()->maximum(), 9);
    QCOMPARE(window->CharButton->pixels(0).size(), QSize(36, 36));
    QCOMPARE(window->CharButton->pixels(223).topLeft(), QPoint(27 * 35, 25 + 7 * 35));
    QCOMPARE(QSizeF(window->FormWidth(), window->FormHeight()), QSizeF(1004, 656) * 15);
    QVERIFY(!window->FMLarger->isEnabled());
    QVERIFY(window->FMSmaller->isEnabled());
    QVERIFY(desktop.close());
    QCOMPARE(desktop.setting("FontMap", "SizeIndex"), QString("9"));
    desktop.startAsItIs();
    QVERIFY(desktop.Dialogs.allCame());
}

void TestStartup::systemColors()
{
    // References have their high bit set, and so are negative as signed numbers.
    Desktop desktop({1280, 1024}, 96, Complete);
    desktop.alterSettings(setValueSql("FontMap", "ForeColor", 4, "2147483662"));
    desktop.alterSettings(setValueSql("FontMap", "BackColor", 4, "2147483661"));
    Zendova *window = desktop.startAsItIs();
    QCOMPARE(window->ForeColor, SystemColorValue(14));
    QCOMPARE(window->TextZoom->BackColor(0), SystemColorValue(13));
    QCOMPARE(window->CharButton->ForeColor(223), SystemColorValue(14));
    QCOMPARE(window->CharButton->BackColor(0), SystemColorValue(13));
    window->WriteDefaultSettings();
    QCOMPARE(desktop.setting("FontMap", "ForeColor"), QString("2147483662"));
    QCOMPARE(desktop.setting("FontMap", "BackColor"), QString("2147483661"));
}

void TestStartup::startupFile_data()
{
    QTest::addColumn<QString>("tail");
    QTest::addColumn<QString>("initMap");
    QTest::addColumn<QString>("notice"); // % is the folder
    QTest::addColumn<QString>("path");   // that is taken, if any
    const QString none;
    const QString missingMap = "\r\rFile 'gone.zcm'\r\rdoes not exist in\r\r%/";
    QTest::newRow("nothing") << none << none << none << none;
    QTest::newRow("file") << "%/a.txt" << none << none << "%/a.txt";
    QTest::newRow("blanks") << "%/two words.txt" << none << none << "%/two words.txt";
    QTest::newRow("quotes") << "\"%/two words.txt\"" << none << none << "%/two words.txt";
    QTest::newRow("lone quote") << "\"%/a.txt" << none << none << "%/a.txt";
    QTest::newRow("no dot") << "%/notatxt" << none << none << "%/notatxt";
    QTest::newRow("capitals") << "%/A.TXT" << none << none << "%/A.TXT";
    QTest::newRow("bare name") << "a.txt" << none << "\r\r\r\rDrive  does not exist." << none;
    QTest::newRow("quotes alone") << "\"\"" << none << none << none;
    QTest::newRow("folder is not there")
        << "%/sub/a.txt" << none << "\r\rFolder\r\r%/sub/\r\rdoes not exist." << none;
    QTest::newRow("file is not there")
        << "%/b.txt" << none << "\r\rFile 'b.txt'\r\rdoes not exist in\r\r%/" << none;
    QTest::newRow("folder given") << "%/" << none << "\r\rFile ''\r\rdoes not exist in\r\r%/"
                                  << none;
    QTest::newRow("two paths") << "%/a.txt %/a.txt" << none
                               << "\r\rFolder\r\r%/a.txt %/\r\rdoes not exist." << none;
    QTest::newRow("other type")
        << "%/a.doc" << none
        << "\r\r\rFiles with extension 'DOC' are not valid Zendova files.\r\r"
           "Only valid extensions are TXT, ZUF and ZCM."
        << "%/a.doc";
    QTest::newRow("start map deleted") << none << "%/gone.zcm" << missingMap << none;
    QTest::newRow("file before start map") << "%/a.txt"
                                           << "%/gone.zcm" << none << "%/a.txt";
}

void TestStartup::startupFile()
{
    QFETCH(QString, tail);
    QFETCH(QString, initMap);
    QFETCH(QString, notice);
    QFETCH(QString, path);
    const QTemporaryDir folder;
    for (const char *name : {"a.txt", "two words.txt", "notatxt", "A.TXT", "a.doc"})
        makeFile(folder.filePath(name));
    for (QString *text : {&tail, &initMap, &notice, &path})
        text->replace('%', folder.path());
    Desktop desktop({1280, 1024}, 96, Complete);
    if (!initMap.isEmpty()) {
        desktop.alterSettings(setValueSql("FontMap", "InitMap", 1, "'True'"));
        desktop.alterSettings(setValueSql("FontMap", "InitMapPath", 1, '\'' + initMap + '\''));
    }
    if (!notice.isEmpty())
        desktop.Dialogs.message(FileTitle, notice, "Ok");
    Zendova *window = desktop.startAsItIs(tail);
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(window->isVisible());
    QCOMPARE(window->LoadedMapPath, QString());
    if (!notice.isEmpty() && path.isEmpty())
        desktop.Dialogs.message(FileTitle, notice, "Ok");
    QCOMPARE(window->GetCommandLine().value_or(QString()), path);
}

void TestStartup::exitWarning_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("warned"); // the toggle
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("dontRepeat");
    QTest::addColumn<bool>("closes");
    QTest::newRow("empty board") << "" << true << "" << false << true;
    QTest::newRow("toggle off") << "abc" << false << "" << false << true;
    QTest::newRow("Yes") << "abc" << true << "Yes" << false << true;
    QTest::newRow("No") << "abc" << true << "No" << false << false;
    QTest::newRow("No, not again") << "abc" << true << "No" << true << false;
}

void TestStartup::exitWarning()
{
    QFETCH(QString, text);
    QFETCH(bool, warned);
    QFETCH(QString, button);
    QFETCH(bool, dontRepeat);
    QFETCH(bool, closes);
    Desktop desktop({1280, 1024}, 96, Complete);
    Zendova *window = desktop.startAsItIs();
    QTest::keyClicks(window->TextBoard, text);
    if (!warned)
        window->DisplayEW->trigger();
    if (!button.isEmpty()) {
        // A minimised window comes back before it asks.
        window->showMinimized();
        desktop.Dialogs.message(ExitTitle, ExitQuestion, button, dontRepeat);
    }
    QCOMPARE(desktop.close(), closes);
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->isVisible(), !closes);
    QVERIFY(button.isEmpty() || !window->isMinimized());
    QCOMPARE(window->DisplayEW->isChecked(), warned && !dontRepeat);
    if (closes)
        return;
    if (!dontRepeat)
        desktop.Dialogs.message(ExitTitle, ExitQuestion, "Yes");
    window->FileExit->trigger();
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!window->isVisible());
    QCOMPARE(desktop.setting("Options", "ExitWarning"), QString("True"));
    QVERIFY(desktop.startAsItIs()->DisplayEW->isChecked());
}

void TestStartup::savedAtExit()
{
    Desktop desktop({1280, 1024}, 96, Complete);
    const auto before = desktop.settings();
    for (const char *name : {"FMFPaletteRef", "FMBPaletteRef", "FMFColorIndex", "FMBColorIndex",
                             "FMFColorName", "FMBColorName"})
        desktop.alterSettings(QString("INSERT INTO settings VALUES('%1', '%2', 4, 3)")
                                  .arg(SettingsPath(u"Temp"), QString(name)));
    Zendova *window = desktop.startAsItIs();
    for (QAction *item :
         {window->DisplayTT, window->DisplayCS, window->DisplayCD, window->DisplayOW,
          window->OptLoadTD, window->OptUnloadTD, window->ViewZoom, window->ViewCode,
          window->ViewKS, window->FMHiLite, window->FMBorders, window->VCOnR, window->AlignCenter,
          window->FFontUnderline})
        item->trigger();
    window->FontSizeSlider->setValue(30);
    window->ZoomSizeSlider->setValue(20);
    window->sldSetFMapSize->setValue(5);
    window->CoolBarCM->setBandWidth(1, 5000);
    window->LFSavePath = "/somewhere/";
    window->move(7, 11);
    QVERIFY(desktop.close());

    const std::set<QString> expected = {
        "Bars\\FMBand3Wdth", "Bars\\MainBand2Wdth", "FontMap\\SizeIndex", "Last\\FormHeight",
        "Last\\FormLeft",    "Last\\FormTop",       "Last\\FormWidth",    "Last\\LFSavePath"};
    QCOMPARE(differences(before, desktop.settings()), expected);
    QCOMPARE(desktop.setting("FontMap", "SizeIndex"), QString("5"));
    QCOMPARE(desktop.setting("Bars", "MainBand2Wdth"), QString("5000"));
    QCOMPARE(desktop.setting("Last", "FormLeft"), QString("105"));
    QCOMPARE(desktop.setting("Last", "FormTop"), QString("165"));
    QCOMPARE(desktop.setting("Last", "FormWidth"), QString::number(15 * (780 + 28 * 4)));
    QCOMPARE(desktop.setting("Last", "FormHeight"), QString::number(15 * (592 + 8 * 4)));

    window = desktop.startAsItIs();
    QCOMPARE(window->pos(), QPoint(7, 11));
    QCOMPARE(window->SizeIndex, 5);
    QCOMPARE(window->CoolBarCM->bandWidth(1), 5000.0);
    QVERIFY(window->DisplayTT->isChecked());
    QCOMPARE(window->FontSizeSlider->value(), 18);
    QCOMPARE(window->ZoomSizeSlider->value(), 72);
}

void TestStartup::minimisedKeepsPlace()
{
    Desktop desktop({1280, 1024}, 96, Complete);
    Zendova *window = desktop.startAsItIs();
    const QString left = desktop.setting("Last", "FormLeft");
    window->move(3, 5);
    window->sldSetFMapSize->setValue(2);
    window->showMinimized();
    QVERIFY(desktop.close());
    QCOMPARE(desktop.setting("Last", "FormLeft"), left);
    QCOMPARE(desktop.setting("Last", "FormWidth"), QString::number(15 * (780 + 28)));
}

void TestStartup::displayChange()
{
    Desktop desktop({1280, 1024}, 96, Complete);
    Zendova *window = desktop.startAsItIs();
    window->sldSetFMapSize->setValue(18);
    desktop.Screen->pretend(SysInfo::Screen{{1600, 1200}, {}, 96});
    QVERIFY(qAbs(window->pos().x() - (1600 - (780 + 28 * 17)) / 2) <= 1);
    QVERIFY(qAbs(window->pos().y() - (1200 - (592 + 8 * 17)) / 2) <= 1);
    QCOMPARE(window->MaxMapSize, MapSize::Largest(1600, 15));
    QCOMPARE(window->sldSetFMapSize->slider()->maximum(), 30);
    QVERIFY(window->FMLarger->isEnabled());

    // A map that no longer fits shrinks to what does.
    desktop.Screen->pretend(SysInfo::Screen{{1024, 768}, {}, 96});
    QCOMPARE(window->SizeIndex, 9);
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString("9"));
    QCOMPARE(window->FormWidth(), 15 * 1004.0);
    QCOMPARE(window->CharButton->pixels(0).width(), 36);
    QVERIFY(!window->FMLarger->isEnabled());
    QVERIFY(desktop.Dialogs.allCame());
}

void TestStartup::displayTooNarrow_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty board") << "";
    QTest::newRow("No changes nothing") << "abc";
}

void TestStartup::displayTooNarrow()
{
    QFETCH(QString, text);
    Desktop desktop({1280, 1024}, 96, Complete);
    Zendova *window = desktop.startAsItIs();
    QTest::keyClicks(window->TextBoard, text);
    window->sldSetFMapSize->setValue(3);
    if (!text.isEmpty())
        desktop.Dialogs.message(ExitTitle, ExitQuestion, "No");
    desktop.Dialogs.message("Zendova" + ScreenTitle, ScreenText, "Ok");
    QVERIFY_THROWS_EXCEPTION(ProgramEnd,
                             desktop.Screen->pretend(SysInfo::Screen{{799, 600}, {}, 96}));
    QVERIFY(desktop.Dialogs.allCame());
    // Where the unload was cancelled, nothing was saved either.
    QCOMPARE(desktop.setting("FontMap", "SizeIndex"), QString(text.isEmpty() ? "3" : "8"));
}

void TestStartup::displayDecidesSizing_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("sizable");
    QTest::addColumn<int>("mapSize"); // of 8 before
    QTest::newRow("800") << 800 << false << 1;
    QTest::newRow("900") << 900 << true << 5;
    QTest::newRow("1024") << 1024 << true << 8;
}

void TestStartup::displayDecidesSizing()
{
    QFETCH(int, width);
    QFETCH(bool, sizable);
    QFETCH(int, mapSize);
    Desktop desktop({1280, 1024}, 96, Complete);
    Zendova *window = desktop.startAsItIs();
    desktop.Screen->pretend(SysInfo::Screen{{width, 768}, {}, 96});
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(window->DisplayEventSeen);
    QCOMPARE(window->SizeIndex, mapSize);
    QCOMPARE(window->FormWidth(), 15 * (780 + 28.0 * (mapSize - 1)));
    QCOMPARE(window->SplitBar->isVisible(), sizable);
    QCOMPARE(window->pbxSetFMapSize->isEnabled(), sizable);
    QCOMPARE(window->FMSmaller->isEnabled(), sizable);
    QVERIFY(!window->tlbCFMapFmt->button("RAFMap")->isEnabled());
    QVERIFY(!window->FMRealign->isEnabled());
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestStartup test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_startup.moc"
