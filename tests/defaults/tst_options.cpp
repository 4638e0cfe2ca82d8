// The dialog of default options as a person uses it: what is set in it, seen at the next start; its
// samples, its rules, and what it makes of damaged settings.
#include "tests/support/MainWindow.h"

#include "core/Message.h"
#include "defaults/FMColorPalette.h"
#include "defaults/Options.h"
#include "fontmap/CustomMapFile.h"
#include "platform/controls/ElidedLabel.h"
#include "tests/textboard/BoardFormat.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>

class TestOptions : public WindowTest
{
    Q_OBJECT

private slots:
    void everyDefault_data();
    void everyDefault();
    void asksForAChange();
    void samplesFollow();
    void chooses();
    void keyboard();
    void badValues();

private:
    using See = QString (TestOptions::*)();
    struct Default
    {
        const char *Control; ///< that is clicked, and worked further by `work`
        See Seen;            ///< in the program, before and at the next start
        const char *Before;
        const char *After;
    };
    static const Default Defaults[];

    /// Opens the window by its button; `what` works it, and it is closed if that didn't.
    void use(const std::function<void(Options &)> &what)
    {
        desktop->Dialogs.dialog("Default Options", [&](QDialog *dialog) {
            QApplication::setActiveWindow(dialog);
            what(static_cast<Options &>(*dialog));
            dialog->reject();
        });
        press("Opt");
    }
    /// Clicks a control, on its page if it stands on one.
    static void click(Options &o, const char *name)
    {
        auto *control = o.findChild<QWidget *>(name);
        QTabBar *tabs = o.SSTabOption->tabBar();
        for (int page = 0; page < tabs->count(); ++page)
            if (o.SSTabOption->widget(page)->isAncestorOf(control))
                QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(page).center());
        QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
    }
    static void clickCell(const Options &o, int cell)
    {
        const QPoint middle = o.OCharButton->pixels(cell).center();
        QTest::mouseClick(o.OCharButton, Qt::LeftButton, {}, middle);
    }
    /// Presses Set and answers the message that comes.
    void set(Options &o, bool changed = true)
    {
        if (changed)
            desktop->Dialogs.message("Zendova Default Settings Changed",
                                     "\r\r\rChanges made in Zendova default settings\rwill take "
                                     "effect the next time Zendova starts.",
                                     "Ok");
        else
            desktop->Dialogs.message("Zendova User input Error",
                                     "\r\rYou have not yet made any change in\rZendova default "
                                     "settings.\rPress the 'Set' button after making changes.",
                                     "Ok");
        click(o, "cmdOK");
        QCOMPARE(o.isVisible(), !changed);
    }
    /// Clicks the button and works the dialog that comes.
    void choose(Options &o, const char *button, const char *title,
                const std::function<void(QDialog *)> &how)
    {
        desktop->Dialogs.dialog(title, [how](QDialog *dialog) {
            QApplication::setActiveWindow(dialog);
            how(dialog);
        });
        click(o, button);
        QApplication::setActiveWindow(&o);
    }
    void chooseFontName(Options &o, const char *name)
    {
        choose(o, "ChgFont", "Font", [name](QDialog *dialog) {
            auto *edit = dialog->findChild<QLineEdit *>({}, Qt::FindDirectChildrenOnly);
            edit->setFocus();
            edit->selectAll();
            QTest::keyClicks(edit, name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
    void chooseMapColor(Options &o, bool fore, int palette, Qt::Key key)
    {
        choose(o, fore ? "ChgFMFColor" : "ChgFMBColor",
               fore ? "Select A Font Color" : "Select A Background Color", [=](QDialog *dialog) {
                   static_cast<FMColorPalette *>(dialog)->SSTabColor->setCurrentIndex(palette);
                   QTest::keyClick(dialog->focusWidget(), key);
                   QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
               });
    }
    void chooseTextColor(Options &o)
    {
        choose(o, "ChgTBFColor", "Pick A Color for TextBoard Font", [](QDialog *dialog) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Right);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        });
    }
    QString chooseMap(Options &o, const char *name)
    {
        const QString path = writeFile(desktop->Folder.filePath(name), CustomMapFile::write({"m"}));
        click(o, "ochkInitMap");
        choose(o, "ocmdInitMap", "Specify Startup Custom Map",
               [path](QDialog *dialog) { typeFileName(dialog, path); });
        return path;
    }
    void work(Options &o, const QString &control);

    CharCells *cells() const { return window->FMapContainer->CharButton; }
    static QColor ground(CharCells *cells, int cell)
    {
        return pictureOf(cells, cell).pixelColor(3, 3);
    }
    QString format() { return formatOf(window); }
    QString ink() // of the first glyph's cells
    {
        const QImage image = pictureOf(cells(), cellOf(FullRowCode));
        const QPoint in = originOfFullRow(image.copy(3, 3, 22, 22)) + QPoint(6, 1);
        return image.pixelColor(in).name();
    }
    QString backColor() { return ground(cells(), 5).name(); }
    QString highlight()
    {
        hover(window, 5);
        return backColor();
    }
    QString grid() { return pictureOf(cells(), 0).pixelColor(0, 5).name(); }
    QString firstCell() { return cells()->Caption(0); }
    QString views()
    {
        hover(window, cellOf('A'));
        const Views &v = *window->ViewsContainer;
        return v.TextZoom->Caption(0) + ' ' + v.AscCode->text() + ' ' + v.KS->text();
    }
    QString zoom()
    {
        return QString::number(window->ViewsContainer->TextZoom->cellFont().pointSize()) + ' ' +
               window->ViewsContainer->ZoomSizeSlider->number()->text();
    }
    QString side()
    {
        return window->ViewsContainer->x() < window->TextBoard->x() ? "left" : "right";
    }
    QString tip() { return button("Opt")->toolTip(); }
    QString loadText()
    {
        press("Bold");
        window->OpenDroppedFile(writeFile(desktop->Folder.filePath("a.txt"), "x"));
        return format();
    }
    QString unload()
    {
        press("Bold");
        QTest::keyClicks(window->TextBoard, "a");
        expect(Says::UnloadChanged, "Yes");
        press("ClearButton");
        return format();
    }
    QString copy()
    {
        QTest::keyClicks(window->TextBoard, "a");
        return told("Zendova Copy Successful", [this] { press("CopyButton"); });
    }
    QString overwrite()
    {
        loadText();
        return told("Zendova TextBoard Unload Warning", [this] { press("ClearButton"); });
    }
    QString exit()
    {
        QTest::keyClicks(window->TextBoard, "a");
        return told("Zendova Exit Warning", [this] { desktop->close(); });
    }
    /// Whether a message of this title comes.
    QString told(const char *title, const std::function<void()> &act)
    {
        if (!Changed)
            desktop->Dialogs.dialog(title, [](QDialog *dialog) { dialog->reject(); });
        act();
        return Changed ? "silent" : "told";
    }
    QString scheme()
    {
        FontMap &map = *window->FMapContainer;
        map.Back.Color = RGBValue(0, 0, 200);
        map.ApplyFontMapColors(false, 0, true, map.Back.Color);
        QColor seen;
        desktop->Dialogs.dialog("Title", [&seen](QDialog *dialog) {
            seen = dialog->grab().toImage().pixelColor(20, 115);
            dialog->reject();
        });
        ZndvMsg("Text", "OK", "Title", false, 1);
        return seen == QColor(0, 0, 200) ? "the map's" : "its own";
    }
    /// What other dialogs read when they open.
    QString ofOthers()
    {
        return desktop->setting("CFMEditor", "ShiftDir") + desktop->setting("FB", "SampleText");
    }
    /// What the window keeps for itself.
    QString own()
    {
        QString seen;
        use([&seen](Options &o) {
            seen = o.OCharButtonStart->text() + '-' + o.OCharButtonEnd->text() +
                   o.OTextZoom->Caption(0) +
                   (o.findChild<QAbstractButton *>("OOptMaxTB")->isChecked() ? " on" : " off");
        });
        return seen;
    }

    bool Changed = false; ///< the default that is looked at
};

const TestOptions::Default TestOptions::Defaults[] = {
    {"ChgFont", &TestOptions::format, FirstFormat, "Zt Four 18 - left #000000 Black"},
    {"OFontSizeNumber", &TestOptions::format, FirstFormat, "Arial 30 - left #000000 Black"},
    {"OFFontBold", &TestOptions::format, FirstFormat, "Arial 18 b left #000000 Black"},
    {"OFFontItalic", &TestOptions::format, FirstFormat, "Arial 18 i left #000000 Black"},
    {"OFFontUnderline", &TestOptions::format, FirstFormat, "Arial 18 u left #000000 Black"},
    {"OFFontStrikethrough", &TestOptions::format, FirstFormat, "Arial 18 s left #000000 Black"},
    {"OAlign1", &TestOptions::format, FirstFormat, "Arial 18 - right #000000 Black"},
    {"OAlign2", &TestOptions::format, FirstFormat, "Arial 18 - centre #000000 Black"},
    {"ChgTBFColor", &TestOptions::format, FirstFormat, "Arial 18 - left #000080 Navy"},
    {"ChgFMFColor", &TestOptions::ink, "#000000", "#ffc0c0"},
    {"ChgFMBColor", &TestOptions::backColor, "#ffffff", "#556b2f"},
    {"OFMapHilite", &TestOptions::highlight, "#ffffff", "#000000"},
    {"OFMapBorders", &TestOptions::grid, "#b3b3b3", "#ffffff"},
    {"ocmdInitMap", &TestOptions::firstCell, " ", "m"},
    {"OViewZoom", &TestOptions::views, "A 65 A", " 65 A"},
    {"OViewCode", &TestOptions::views, "A 65 A", "A Off A"},
    {"OViewKS", &TestOptions::views, "A 65 A", "A 65 Off"},
    {"OZoomSizeNumber", &TestOptions::zoom, "72 72", "20 20"},
    {"OVCOnR", &TestOptions::side, "left", "right"},
    {"OOptLoadTD2", &TestOptions::loadText, FirstFormat, "Arial 18 b left #000000 Black"},
    {"OOptUnloadTD2", &TestOptions::unload, FirstFormat, "Arial 18 b left #000000 Black"},
    {"ODisplayCD", &TestOptions::copy, "told", "silent"},
    {"ODisplayOW", &TestOptions::overwrite, "told", "silent"},
    {"ODisplayEW", &TestOptions::exit, "told", "silent"},
    {"ODisplayCS", &TestOptions::scheme, "the map's", "its own"},
    {"ODisplayTT", &TestOptions::tip, "Set Default Options", ""},
    {"ooptShiftDir1", &TestOptions::ofOthers, "0The Quick Brown Fox Jumped Over the Lazy Dog.",
     "1The Quick Brown Fox Jumped Over the Lazy Dog."},
    {"oSampleText", &TestOptions::ofOthers, "0The Quick Brown Fox Jumped Over the Lazy Dog.",
     "0ab"},
    {"OOptMaxTB", &TestOptions::own, "60-72A off", "243-255ÿ on"},
};

/// What is done with a control after the click.
void TestOptions::work(Options &o, const QString &control)
{
    if (control == "ChgFont")
        chooseFontName(o, "zt fo");
    else if (control == "ChgTBFColor")
        chooseTextColor(o);
    else if (control == "ChgFMFColor")
        chooseMapColor(o, true, PresetPalette, Qt::Key_Right);
    else if (control == "ChgFMBColor")
        chooseMapColor(o, false, CustomPalette, Qt::Key_Down);
    else if (control == "ocmdInitMap")
        chooseMap(o, "sub/a.zcm");
    else
        click(o, control.toLatin1());
    if (control == "OFontSizeNumber")
        QVERIFY(fillNumberBox(o.OFontSizeSlider, "30"));
    else if (control == "OZoomSizeNumber")
        QVERIFY(fillNumberBox(o.OZoomSizeSlider, "20"));
    else if (control == "oSampleText")
        QTest::keyClicks(o.oSampleText, "ab"); // over all that was there
    else if (control == "OOptMaxTB") {
        QTest::keyClick(o.OCharButtonScroll, Qt::Key_End);
        clickCell(o, 12);
    }
}

void TestOptions::everyDefault_data()
{
    QTest::addColumn<int>("index");
    for (const Default &row : Defaults)
        QTest::newRow(row.Control) << static_cast<int>(&row - Defaults);
}

void TestOptions::everyDefault()
{
    QFETCH(int, index);
    const Default &row = Defaults[index];
    Changed = false;
    QCOMPARE((this->*row.Seen)(), QString(row.Before));
    restart();
    use([&](Options &o) {
        work(o, row.Control);
        set(o);
    });
    QCOMPARE(format(), QString(FirstFormat)); // nothing changes now
    QVERIFY(desktop->close());
    restart();
    Changed = true;
    QCOMPARE((this->*row.Seen)(), QString(row.After));
}

void TestOptions::asksForAChange()
{
    const auto all = [this] {
        QStringList lines;
        for (const StoredSetting &setting : desktop->settings())
            lines += setting.Key + setting.Name + setting.Value;
        return lines;
    };
    const QStringList before = all();
    use([&](Options &o) {
        set(o, false);
        QTest::keyClick(o.OCharButtonScroll, Qt::Key_Right);
        clickCell(o, 0);
        click(o, "OFFontBold");
        click(o, "OFFontBold");
        set(o, false);
        click(o, "OFFontBold");
        click(o, "oSampleText");
        QTest::keyClick(o.oSampleText, Qt::Key_Escape);
        QVERIFY(o.isVisible());
        QTest::keyClick(o.ChgFont, Qt::Key_Escape);
        QVERIFY(!o.isVisible());
    });
    QCOMPARE(all(), before);
}

void TestOptions::samplesFollow()
{
    use([&](Options &o) {
        for (const char *name : {"OFFontBold", "OFFontStrikethrough", "OAlign2"})
            click(o, name);
        QVERIFY(o.OTBSample->FontBold() && o.OTBSample->FontStrikethru());
        QCOMPARE(o.OTBSample->Alignment(), 2);
        QVERIFY(!o.OCharButton->cellFont().bold() && !o.OTextZoom->cellFont().bold());
        o.OFontSizeSlider->slider()->setValue(36);
        QCOMPARE(o.OTBSample->FontSize(), 36.0);
        QCOMPARE(o.OCharButton->cellFont().pointSize(), 36);
        chooseFontName(o, "zt bold"); // in the dialog, which knows no size above 20
        QCOMPARE(o.OTBSample->FontName(), QString("Zt Bold Only"));
        QCOMPARE(o.OFontSizeSlider->number()->text(), QString("20"));
        QVERIFY(!o.findChild<QWidget *>("OFFontBold")->isEnabled());
        QVERIFY(o.findChild<QWidget *>("OFFontItalic")->isEnabled());
        o.FindTextColor(RGBValue(1, 2, 3)); // none of the sixteen
        QCOMPARE(o.OTBFColorName->wholeText(), QString("Black"));
        // Letters in a size box count as nothing; what is beyond a limit is brought there.
        QVERIFY(fillNumberBox(o.OFontSizeSlider, "abc"));
        QCOMPARE(o.OTBSample->FontSize(), 8.0);
        click(o, "OZoomSizeNumber");
        QVERIFY(fillNumberBox(o.OZoomSizeSlider, "10") &&
                fillNumberBox(o.OZoomSizeSlider, "99", Qt::Key_Escape) && o.isVisible());
        QCOMPARE(o.OTextZoom->cellFont().pointSize(), 10);
        QVERIFY(fillNumberBox(o.OZoomSizeSlider, "99"));
        QCOMPARE(o.OTextZoom->cellFont().pointSize(), 72);

        clickCell(o, 2);
        QCOMPARE(o.OTextZoom->Caption(0), QString(">"));
        QVERIFY(o.OCharButton->pixels(2).contains(o.CharButtonBox->geometry()));
        QTest::keyClick(o.OCharButtonScroll, Qt::Key_PageDown);
        QCOMPARE(o.OCharButtonStart->text(), QString("139"));
        QVERIFY(!o.CharButtonBox->isVisible());
        QTest::keyClicks(o.OCharButtonScroll, "z");
        QCOMPARE(o.OCharButton->Caption(0) + o.OTextZoom->Caption(0), QString("zz"));
        QVERIFY(o.CharButtonBox->isVisible());
        for (const bool on : {true, false}) {
            click(o, "OFMapHilite");
            QCOMPARE(ground(o.OCharButton, 3), QColor(Qt::white));
            QTest::mouseMove(&o, QPoint(1, 1));
            QTest::mouseMove(o.OCharButton, o.OCharButton->pixels(3).center());
            QCOMPARE(ground(o.OCharButton, 3), QColor(on ? Qt::black : Qt::white));
        }
        click(o, "oSampleText");
        QTest::keyClicks(o.oSampleText, "  ");
        o.ChgFont->setFocus();
        QCOMPARE(o.oSampleText->text(), QString());
    });
}

void TestOptions::chooses()
{
    const auto temp = [this](const char *name) { return desktop->setting("Temp", name); };
    use([&](Options &o) {
        chooseTextColor(o);
        chooseMapColor(o, true, SystemPalette, Qt::Key_End);
        QCOMPARE(o.OTBSample->ForeColor(), QColor(0, 0, 128));
        QCOMPARE(o.OFMFColorName->wholeText(), QString("ToolTip Background"));
        QCOMPARE(o.OTextZoom->ForeColor(0), SystemColorValue(24));
        QCOMPARE(o.OCharButton->ForeColor(12), SystemColorValue(24));
        QCOMPARE(temp("FMFColorName") + temp("FMFColorIndex") + temp("FMFPaletteRef"),
                 QString("ToolTip Background241"));
        QVERIFY(!o.ocmdInitMap->isEnabled());
        QCOMPARE(o.olblInitMap->wholeText(), QString("None"));
        const QString path = chooseMap(o, "sub/<b>.zcm");
        QCOMPARE(o.olblInitMap->wholeText(), QString("<b>.zcm"));
        QVERIFY(o.olblInitMap->toolTip().contains(path.toHtmlEscaped()));
        choose(o, "ocmdInitMap", "Specify Startup Custom Map", [&](QDialog *dialog) {
            QVERIFY(path.startsWith(static_cast<QFileDialog *>(dialog)->directory().path() + "/<"));
            dialog->reject();
        });
    });
    QVERIFY(desktop->close());
    QCOMPARE(temp("TBFColorIndex"), QString("1"));
    QVERIFY(temp("FMFColorName").isNull());
    restart();
    use([&](Options &o) { // what was cancelled is gone
        QCOMPARE(o.OTBFColorName->wholeText() + o.OFMFColorName->wholeText(),
                 QString("BlackWindow Text"));
        click(o, "OFFontBold");
        set(o);
    });
    QCOMPARE(desktop->setting("FontMap", "InitMapPath"), QString(""));
    QCOMPARE(desktop->setting("FontMap", "Hilite"), QString("0"));
}

void TestOptions::keyboard()
{
    const char *const pages[] = {
        "OFFontBold OFFontItalic OFFontUnderline OFFontStrikethrough OAlign0 ChgTBFColor OOptMaxTB",
        "ChgFMFColor ChgFMBColor OFMapBorders OFMapHilite ochkInitMap",
        "OViewZoom OViewCode OViewKS OVCOnR OZoomSizeSlider",
        "ODisplayCD ODisplayEW ODisplayOW ODisplayCS",
        "oSampleText ooptShiftDir0",
        "OOptLoadTD1 OOptUnloadTD1 ODisplayTT",
    };
    use([&](Options &o) {
        click(o, "OVCOnR");
        for (int page = 0; page < 6; ++page) {
            o.SSTabOption->setCurrentIndex(page);
            o.ChgFont->setFocus();
            QStringList met;
            do {
                met += o.focusWidget()->objectName();
                QTest::keyClick(o.focusWidget(), Qt::Key_Tab);
            } while (o.focusWidget() != o.ChgFont && met.size() < 30);
            met.removeLast(); // the tabs
            QCOMPARE(met.join(' '), QString("ChgFont OFontSizeSlider %1 OCharButtonScroll cmdOK "
                                            "cmdCancel")
                                        .arg(pages[page]));
        }
        const auto *right = o.findChild<QAbstractButton *>("OAlign1");
        QCOMPARE(right->toolTip(), QString("Select to center text"));
        QCOMPARE(right->accessibleName(), QString("Right"));
    });
}

void TestOptions::badValues()
{
    const std::tuple<const char *, const char *, WrittenValue> bad[] = {
        {"Options", "ZoomedLetter", 300},     {"Options", "OFMapStart", 300},
        {"Options", "VCPosition", 7},         {"TextBoard", "FontName", QString("None such")},
        {"TextBoard", "FontSize", 500},       {"TextBoard", "FontColorIndex", -1},
        {"TextBoard", "Alignment", 9},        {"TextBoard", "Bold", 7},
        {"FontMap", "BackPaletteRef", 77},    {"FontMap", "BackColorName", QString(200, 'W')},
        {"FontMap", "Hilite", QString("1")},  {"FontMap", "InitMapPath", 5},
        {"Views", "ZoomSize", QString("-3")}, {"FB", "SampleText", QString()},
    };
    for (const auto &[key, name, value] : bad)
        desktop->store(key, name, value);
    use([](Options &o) {
        QCOMPARE(o.OCurrentFont->wholeText(), QString("None such"));
        QCOMPARE(o.OFontSizeSlider->number()->text(), QString("36"));
        QCOMPARE(o.OTBFColorName->wholeText(), QString("Black"));
        for (const char *chosen : {"OAlign0", "OFFontBold", "OFMapHilite", "OVCOnL"})
            QVERIFY2(o.findChild<QAbstractButton *>(chosen)->isChecked(), chosen);
        QCOMPARE(o.OFMBPalName->text(), QString("Custom"));
        QVERIFY(o.OFMBColorName->sizeHint().width() <= o.OFMBColorName->width());
        QCOMPARE(o.olblInitMap->wholeText(), QString("5"));
        QCOMPARE(o.OZoomSizeSlider->number()->text(), QString("8"));
        QCOMPARE(o.OTextZoom->Caption(0) + o.OCharButton->Caption(0), QString("@<"));
    });
    QCOMPARE(desktop->setting("Options", "ZoomedLetter"), QString("64"));
    QCOMPARE(desktop->setting("Options", "OFMapStart"), QString("60"));
    // What can't be converted is told, and nothing is mended before.
    desktop->store("Options", "ZoomedLetter", 300);
    desktop->store("TextBoard", "FontSize", QString("letters"));
    QVERIFY_EXCEPTION_THROWN(
        Options(window->FontNameCombo->model(), *window->FMColorPalette, window), ConversionError);
    QCOMPARE(desktop->setting("Options", "ZoomedLetter"), QString("300"));
}

ZENDOVA_WINDOW_TEST(TestOptions)
#include "tst_options.moc"
