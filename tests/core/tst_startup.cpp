// Start-up and the end of a run as a person meets them: the questions, settings that are missing or
// unfit, the start-up file, the exit warning, what is kept, and a change of the display.
#include "tests/support/MainWindow.h"

#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"
#include "core/SettingsTable.h"

namespace {

/// Width and height in pixels of a window whose map has this size.
QSizeF outerSize(int mapSize)
{
    return {780.0 + 28 * (mapSize - 1), 592.0 + 8 * (mapSize - 1)};
}

QSizeF outerSize(const Zendova &window)
{
    return {window.FormWidth() / 15, window.FormHeight() / 15};
}

QList<bool> sizing(const Zendova &window)
{
    return {window.FMapContainer->FMSmaller->isEnabled(),
            window.FMapContainer->tlbCFMapFmt->button("FMap-")->isEnabled(),
            window.FMapContainer->pbxSetFMapSize->isEnabled(), window.SplitBar->isVisible()};
}

/// A value that only this row of the table of settings has. Of those that know two values only,
/// the bits of the row's number say in which round which one it is.
WrittenValue ownValue(int row, const Setting &setting, int round)
{
    const bool bit = (row >> round & 1) == 1;
    const QHash<QString, WrittenValue> limited = {
        {"FontName", "Zt Gaps"}, {"FontSize", 17},      {"Alignment", 2},
        {"FontColorIndex", 9},   {"FormTop", 750},      {"FormLeft", 900},
        {"SizeIndex", 3},        {"VCPosition", "R"},   {"ZoomSize", 33},
        {"Bold", int(bit)},      {"Italic", int(bit)},  {"Underline", int(bit)},
        {"Strikeout", int(bit)}, {"Borders", int(bit)},
    };
    WrittenValue own = 7000 + 15 * row;
    if (setting.Kind == Setting::Type::Truth)
        own = bit;
    else if (setting.Kind == Setting::Type::Text)
        own = QString("value %1").arg(row);
    return limited.value(setting.Name.toString(), own);
}

} // namespace

class TestStartup : public WindowTest
{
    Q_OBJECT

private:
    QByteArray Complete; ///< settings of a first run, with full lists of recent files

    void start(const QString &commandTail = {}) { window = desktop->startAsItIs(commandTail); }
    void endsAtStart()
    {
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop->startAsItIs());
        QVERIFY(!desktop->Window->isVisible());
        QVERIFY(desktop->Dialogs.allCame());
    }
    QByteArray settingsFile() const { return contentOf(desktop->settingsFile()); }

private slots:
    void initTestCase()
    {
        begin();
        QVERIFY(desktop->close());
        desktop->alterSettings("UPDATE settings SET value = '/files/' || name || '.txt' "
                               "WHERE key LIKE '%MRU'");
        desktop->alterSettings(QString("INSERT INTO settings VALUES('%1', 'TBFColorIndex', 4, 3), "
                                       "('%1', 'FMFColorIndex', 4, 3)")
                                   .arg(SettingsPath(u"Temp")));
        Complete = settingsFile();
    }
    void init() override { useDesktop({1280, 1024}, 96, Complete); }

    void refusesNarrowScreen()
    {
        for (const bool settingsExist : {true, false}) {
            useDesktop({799, 600}, 96, settingsExist ? Complete : QByteArray());
            // The program's name has not come further yet.
            desktop->Dialogs.message("Ze" + QString(Says::ScreenTooSmall.Title),
                                     Says::ScreenTooSmall.Text, "Ok");
            endsAtStart();
            // The end of a run saves what the window holds, and that is its design.
            QCOMPARE(desktop->setting("Last", "FormWidth"), QString(settingsExist ? "11700" : ""));
            QCOMPARE(desktop->setting("MRU", "1"), QString());
        }
    }

    void firstRun()
    {
        useDesktop();
        expect(Says::FirstRun, "No");
        expect(Says::Repair, "No");
        endsAtStart();
        QVERIFY(!QFile::exists(desktop->settingsFile())); // given up
        useDesktop({1902, 1200});
        expect(Says::FirstRun, "Yes");
        start();
        QCOMPARE(window->windowTitle(), QString("Zendova Version 3.0.0 RC2"));
        for (const Setting &row : SettingsTable())
            if (const WrittenValue value = row.standard(); value.index() != 0)
                QCOMPARE(desktop->setting(row.Key.toString(), row.Name.toString()), stored(value));
        for (const char *name : {"LFLoadPath", "LFSavePath", "LMLoadPath", "LMSavePath"})
            QCOMPARE(desktop->setting("Last", name), SysInfo::documentsFolder());
        for (int run = 1; run <= 2; ++run) {
            QCOMPARE(window->FontSizeSlider->number()->text(), QString("34"));
            QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(), 27 + 24);
            QCOMPARE(outerSize(*window), outerSize(24));
            const QSizeF around = QSizeF(1902, 1200) - outerSize(25);
            QCOMPARE(window->pos(), QPointF(around.width() / 2, around.height() / 2).toPoint());
            QVERIFY(desktop->close());
            start(); // asks nothing
        }
    }

    void missingSetting()
    {
        QList<std::pair<QString, bool>> faults; // and whether they are asked about
        useDesktop({1280, 1024}, 96, Complete);
        for (const QString &path : desktop->settings().keys())
            faults.emplaceBack(QString("DELETE FROM settings WHERE key || '\\' || name = '%1'")
                                   .arg(SettingsPath(path)),
                               path.contains('\\') && !path.startsWith("Temp"));
        for (const QString name :
             {"FontName", "FontColorName", "FontColorIndex", "ForeColorName", "ForeColorIndex",
              "ForePaletteRef", "BackPaletteRef", "LFLoadPath"})
            faults.emplaceBack("UPDATE settings SET kind = 1, value = '' WHERE name = '" + name +
                                   "'",
                               name != "LFLoadPath");
        for (const auto &[sql, asks] : faults) {
            init();
            desktop->alterSettings(sql);
            const QByteArray before = settingsFile();
            if (asks) {
                expect(Says::FirstRun, "No");
                expect(Says::Repair, "No");
                endsAtStart();
            } else {
                start();
            }
            QVERIFY2(settingsFile() == before, qPrintable(sql));
        }
    }

    void repairKeepsRecentFiles()
    {
        desktop->alterSettings("DELETE FROM settings WHERE name = 'ToolTips'");
        desktop->store("FontMap", "ForeColor", 255);
        desktop->store("FontMap", "Hilite", true);
        desktop->store("TextBoard", "FontSize", 30);
        expect(Says::FirstRun, "No");
        expect(Says::Repair, "Yes");
        start();
        QCOMPARE(desktop->setting("Options", "ToolTips"), QString("True"));
        QCOMPARE(desktop->setting("FontMap", "ForeColor"), QString("2147483656"));
        QCOMPARE(desktop->setting("MRU", "9"), QString("/files/9.txt"));
        QCOMPARE(desktop->setting("CFMRU", "1"), QString("/files/1.txt"));
        QCOMPARE(desktop->setting("Temp", "TBFColorIndex"), QString("3"));
        QCOMPARE(window->FontSizeSlider->value(), 18);
        QCOMPARE(window->FMapContainer->CharButton->ForeColor(100), SystemColorValue(8));
        QVERIFY(!button("FMapH")->isChecked());
        // So it does where the standard size is too large for the screen.
        useDesktop({850, 700}, 96, Complete);
        desktop->store("FontMap", "ForeColorName", "");
        desktop->store("FontMap", "SizeIndex", 3);
        expect(Says::FirstRun, "Yes");
        start();
        const FontMap &map = *window->FMapContainer;
        QCOMPARE(map.SizeIndex, map.sldSetFMapSize->value());
        QCOMPARE(map.CharButton->pixels(0).width(), 27 + map.SizeIndex);
    }

    void everySettingHasItsPlace()
    {
        // What the start itself changes, or gives out in other words.
        const QSet<QString> passing{"FormHeight", "FormWidth", "FMBand3Wdth"};
        for (int round = 0; round < 6; ++round) {
            int number = 0;
            for (const Setting &row : SettingsTable())
                desktop->store(row.Key.toString(), row.Name.toString(),
                               ownValue(++number, row, round), int(row.storedKind()));
            if (desktop->setting("FontMap", "InitMap") == "True") // and its path is no file
                expect(Says::StartupFile);
            start();
            QCOMPARE(window->SavedFormHeight, qreal(7000 + 15 * 14));
            QCOMPARE(window->SavedFormWidth, qreal(7000 + 15 * 15));
            number = 0;
            for (const Setting &row : SettingsTable()) {
                const WrittenValue own = ownValue(++number, row, round);
                if (row.Get && !passing.contains(row.Name.toString()))
                    QVERIFY2(stored(row.Get(*window)) == stored(own),
                             qPrintable(row.Name.toString()));
            }
        }
    }

    void writtenByOthers()
    {
        desktop->store("TextBoard", "FontSize", " +13.5 ");
        desktop->store("TextBoard", "FontColorName", 7);
        desktop->store("Views", "ZoomSize", 500);
        desktop->store("Options", "ToolTips", 0);
        desktop->store("FontMap", "SizeIndex", 0);
        desktop->store("FontMap", "Borders", "True");
        // A reference to a colour has its high bit set, and is a negative number in the program.
        desktop->store("FontMap", "ForeColor", SystemColorValue(14));
        start();
        QCOMPARE(window->FontSizeSlider->number()->text(), QString("14"));
        QCOMPARE(window->Format.TBColorName, QString("7"));
        QCOMPARE(window->ViewsContainer->ZoomSizeSlider->number()->text(), QString("72"));
        QVERIFY(!window->DisplayTT->isChecked());
        QVERIFY(window->SplitBar->toolTip().isEmpty());
        QCOMPARE(window->FMapContainer->sldSetFMapSize->number()->text(), QString("1"));
        QCOMPARE(window->FMapContainer->CharButton->BorderStyle(50), 1);
        QCOMPARE(window->FMapContainer->CharButton->ForeColor(223), SystemColorValue(14));
        window->WriteDefaultSettings();
        QCOMPARE(desktop->setting("FontMap", "ForeColor"), QString("2147483662"));
    }

    void unfitText()
    {
        for (const auto &[key, name] :
             {std::pair("TextBoard", "FontSize"), {"Last", "FormTop"}, {"Options", "ToolTips"}}) {
            init();
            desktop->store(key, name, "large");
            const QByteArray before = settingsFile();
            QString failure;
            try {
                start();
            } catch (const ConversionError &error) {
                failure = error.key + ' ' + error.name + ' ' + error.text;
            }
            QCOMPARE(failure, QString("%1 %2 large").arg(key, name));
            QCOMPARE(settingsFile(), before);
        }
    }

    void storedMapTooLarge()
    {
        // With the height of a split bar that was pulled down, which is of no use then.
        for (const int height : {0, 1100 * 15}) {
            useDesktop({1024, 1200}, 96, Complete);
            desktop->store("FontMap", "SizeIndex", 24);
            desktop->store("Last", "FormHeight", height);
            expect(Says::MapTooLarge);
            start();
            QCOMPARE(outerSize(*window), outerSize(9));
            QVERIFY(!window->SplitIsDown());
            QVERIFY(!window->FMapContainer->FMLarger->isEnabled());
            QCOMPARE(sizing(*window), QList<bool>(4, true));
            QVERIFY(desktop->close());
            QCOMPARE(desktop->setting("FontMap", "SizeIndex"), QString("9"));
        }
    }

    void startupFile()
    {
        const QString folder = desktop->Folder.path();
        for (const char *name : {"two words.txt", "a.doc"})
            writeFile(folder + '/' + name, "abc");
        desktop->store("FontMap", "InitMap", "True");
        desktop->store("FontMap", "InitMapPath", folder + "/gone.zcm");
        const QString noMap = "\r\rFile 'gone.zcm'\r\rdoes not exist in\r\r" + folder + '/';
        const QString otherType = "\r\r\rFiles with extension 'DOC' are not valid Zendova files."
                                  "\r\rOnly valid extensions are TXT, ZUF and ZCM.";
        for (const auto &[tail, notice] : {std::pair("%/two words.txt", QString()),
                                           {"\"%/two words.txt\"", QString()},
                                           {"\"\"", QString()},
                                           {"a.txt", "\r\r\r\rDrive  does not exist."},
                                           {"%/a.doc", otherType},
                                           {"", noMap}}) {
            if (!notice.isEmpty())
                expect(Says::StartupFile, "Ok", notice);
            start(QString(tail).replace('%', folder));
            QVERIFY(desktop->Dialogs.allCame());
            QCOMPARE(board()->Text(), QString(strstr(tail, "words") ? "abc" : ""));
        }
    }

    void exitWarning()
    {
        start();
        QTest::keyClicks(board(), "abc");
        window->showMinimized(); // comes back before it asks
        expect(Says::Exit, "No");
        QVERIFY(!desktop->close());
        QVERIFY(window->isVisible() && !window->isMinimized());
        expect(Says::Exit, "No", {}, true);
        menuItem(window, "FileExit")->trigger();
        QVERIFY(desktop->Dialogs.allCame());
        QCOMPARE(board()->Text(), QString("abc"));
        QVERIFY(window->isVisible() && !window->DisplayEW->isChecked());
        menuItem(window, "FileExit")->trigger();
        QVERIFY(!window->isVisible());
        QCOMPARE(desktop->setting("Options", "ExitWarning"), QString("True")); // asks again
        start();
        QTest::keyClicks(board(), "abc");
        expect(Says::Exit, "Yes");
        QVERIFY(desktop->close());
        QVERIFY(!window->isVisible());
    }

    void savedAtExit()
    {
        start();
        window->DisplayTT->trigger();
        window->FontSizeSlider->setValue(30);
        window->FMapContainer->sldSetFMapSize->setValue(5);
        window->CoolBarCM->setBandWidth(1, 7000);
        window->Folders.LFSavePath = "/somewhere/";
        window->move(7, 11);
        QVERIFY(desktop->close());
        QVERIFY(desktop->setting("Temp", "FMFColorIndex").isNull());
        start();
        QCOMPARE(window->pos(), QPoint(7, 11));
        QCOMPARE(outerSize(*window), outerSize(5));
        QCOMPARE(window->CoolBarCM->bandWidth(1), 7000.0);
        QCOMPARE(window->Folders.LFSavePath, QString("/somewhere/"));
        QCOMPARE(desktop->setting("MRU", "9"), QString("/files/9.txt"));
        // How things look is kept with the default options only.
        QVERIFY(window->DisplayTT->isChecked());
        QCOMPARE(window->FontSizeSlider->value(), 18);
        window->FMapContainer->sldSetFMapSize->setValue(2);
        window->showMinimized();
        QVERIFY(desktop->close());
        QCOMPARE(desktop->setting("Last", "FormLeft"), QString::number(15 * 7));
        QCOMPARE(desktop->setting("Last", "FormWidth"), QString::number(15 * (780 + 28)));
        // A desktop that alone places windows leaves the place that another one had given.
        desktop->Screen->pretend(SysInfo::Screen{{1280, 1024}, {}, 96, false});
        start();
        window->move(0, 0);
        QVERIFY(desktop->close());
        QCOMPARE(desktop->setting("Last", "FormTop"), QString::number(15 * 11));
    }

    void displayChange()
    {
        start();
        window->FMapContainer->sldSetFMapSize->setValue(18);
        for (const auto &[pixels, size, canGrow] : {std::tuple(QSize(1600, 1200), 18, true),
                                                    {{1024, 768}, 9, false},
                                                    {{800, 768}, 1, false}}) {
            desktop->Screen->pretend(SysInfo::Screen{pixels, {}, 96});
            QCOMPARE(outerSize(*window), outerSize(size));
            const QSizeF around = QSizeF(pixels) - outerSize(size);
            QVERIFY(qAbs(window->pos().x() - around.width() / 2) <= 1);
            QVERIFY(qAbs(window->pos().y() - around.height() / 2) <= 1);
            QCOMPARE(sizing(*window), QList<bool>(4, size > 1));
            QCOMPARE(window->FMapContainer->FMLarger->isEnabled(), canGrow);
        }
        QTest::keyClicks(board(), "abc");
        const QByteArray before = settingsFile();
        expect(Says::Exit, "No");
        expect(Says::ScreenTooSmall);
        const SysInfo::Screen narrow{{799, 600}, {}, 96};
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop->Screen->pretend(narrow));
        QCOMPARE(settingsFile(), before); // the unload was cancelled
    }
};

ZENDOVA_WINDOW_TEST(TestStartup)

#include "tst_startup.moc"
