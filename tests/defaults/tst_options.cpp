// The dialog of default options as a person uses it: what is set in it, seen at the next start; its
// samples, its rules, and what it makes of damaged settings.
#include "tests/support/MainWindow.h"
#include "tests/support/OtherProgram.h"

#include "core/Message.h"
#include "defaults/FMColorPalette.h"
#include "defaults/Options.h"
#include "fontmap/CustomMapFile.h"
#include "fonttools/FontBrowser.h"
#include "fonttools/SamplePlate.h"
#include "platform/controls/ElidedLabel.h"
#include "tests/textboard/BoardFormat.h"

constexpr auto BoardColor = "Pick A Color for TextBoard Font";
constexpr auto MapColor = "Select A Font Color";
constexpr auto MapGround = "Select A Background Color";
constexpr ExpectedMessage Changed{" Default Settings Changed",
                                  "\r\r\rChanges made in Zendova default settings\rwill take "
                                  "effect the next time Zendova starts."};
constexpr ExpectedMessage Unchanged{
    " User input Error", "\r\rYou have not yet made any change in\rZendova default settings."
                         "\r\rPress the 'Set' button after making changes."};

class TestOptions : public WindowTest
{
    Q_OBJECT

private slots:
    void everyDefault_data()
    {
        QTest::addColumn<QString>("changed");
        const auto row = [](const char *control, const char *changed) {
            QTest::newRow(control) << QString(changed);
        };
        row("ChgFont", "text Zt Four 18 - left #000000 Black");
        row("OFontSizeNumber", "text Arial 30 - left #000000 Black");
        row("OFFontBold", "text Arial 18 b left #000000 Black");
        row("OFFontItalic", "text Arial 18 i left #000000 Black");
        row("OFFontUnderline", "text Arial 18 u left #000000 Black");
        row("OFFontStrikethrough", "text Arial 18 s left #000000 Black");
        row("OAlign1", "text Arial 18 - right #000000 Black");
        row("OAlign2", "text Arial 18 - centre #000000 Black");
        row("ChgTBFColor", "text Arial 18 - left #000080 Navy");
        row("ChgFMFColor", "cells  #ffc0c0#ffffff");
        row("ChgFMBColor", "cells  #000000#556b2f");
        row("OFMapHilite", "hovered 0");
        row("OFMapBorders", "grid 0");
        row("ocmdInitMap", "cells m#ffffff#ffffff|views "); // the other cells are blank
        row("OViewZoom", "views 65A");
        row("OViewCode", "views AOffA");
        row("OViewKS", "views A65Off");
        row("OZoomSizeNumber", "zoom 20");
        row("OVCOnR", "side right");
        row("OOptLoadTD2", "loading keeps the format 1");
        row("OOptUnloadTD2", "unloading keeps the format 1");
        row("ODisplayCD", "copying is told 0");
        row("ODisplayOW", "cleared ");
        row("ODisplayEW", "closes 1");
        row("ODisplayCS", "dialogs in colors 0");
        row("ODisplayTT", "tip ");
        row("ooptShiftDir1", "editor down");
        row("oSampleText", "browser ab");
        row("OOptMaxTB", "own 243255ÿ1");
    }

    void everyDefault()
    {
        const QStringList before = seen();
        restart();
        use([&](Options &o) {
            work(o, QTest::currentDataTag());
            set(o);
        });
        QCOMPARE(formatOf(window), QString(FirstFormat)); // nothing changes now
        QVERIFY(desktop->close());
        restart();
        QStringList after = seen();
        for (const QString &line : before)
            after.removeOne(line);
        QTEST(after.join('|'), "changed");
    }

    void asksForAChange()
    {
        use([&](Options &o) {
            set(o, Unchanged);
            QTest::keyClick(o.OCharButtonScroll, Qt::Key_Right);
            clickCell(o, 0);
            click(o, "OFFontBold");
            click(o, "OFFontBold");
            set(o, Unchanged);
            click(o, "OFFontBold");
            click(o, "oSampleText");
            QTest::keyClick(o.oSampleText, Qt::Key_Escape);
            QVERIFY(o.isVisible());
            QTest::keyClick(o.ChgFont, Qt::Key_Escape);
            QVERIFY(!o.isVisible());
        });
        QCOMPARE(desktop->setting("Options", "OFMapStart"), "60");
        QCOMPARE(desktop->setting("TextBoard", "Bold"), "0");
    }

    void samplesFollow()
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
            QCOMPARE(o.OTBSample->FontName(), "Zt Bold Only");
            QCOMPARE(o.OFontSizeSlider->number()->text(), "20");
            QVERIFY(!o.findChild<QWidget *>("OFFontBold")->isEnabled());
            QVERIFY(o.findChild<QWidget *>("OFFontItalic")->isEnabled());
            o.FindTextColor(RGBValue(1, 2, 3)); // none of the sixteen
            QCOMPARE(o.OTBFColorName->wholeText(), "Black");
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
            QCOMPARE(o.OTextZoom->Caption(0), ">");
            QVERIFY(o.OCharButton->pixels(2).contains(o.CharButtonBox->geometry()));
            QCOMPARE(o.OCharButton->spokenCell(), 2);
            QTest::keyClick(o.OCharButtonScroll, Qt::Key_PageDown);
            QCOMPARE(o.OCharButtonStart->text(), "139");
            QVERIFY(!o.CharButtonBox->isVisible());
            QTest::keyClicks(o.OCharButtonScroll, "z");
            QCOMPARE(o.OCharButton->Caption(0) + o.OTextZoom->Caption(0), "zz");
            QVERIFY(o.CharButtonBox->isVisible());
            for (const bool on : {true, false}) {
                click(o, "OFMapHilite");
                QCOMPARE(ground(o.OCharButton, 3), QColor(Qt::white));
                QTest::mouseMove(o.windowHandle(), QPoint(1, 1));
                QTest::mouseMove(o.windowHandle(),
                                 o.OCharButton->mapTo(&o, o.OCharButton->pixels(3).center()));
                QCoreApplication::processEvents();
                QCOMPARE(ground(o.OCharButton, 3), QColor(on ? Qt::black : Qt::white));
            }
            click(o, "OFMapBorders");
            QCOMPARE(o.OCharButton->BorderStyle(12), 0);
            click(o, "oSampleText");
            QTest::keyClicks(o.oSampleText, QString(50, ' '));
            QCOMPARE(o.oSampleText->text().size(), 45);
            o.ChgFont->setFocus();
            QCOMPARE(o.oSampleText->text(), QString());
        });
    }

    void chooses()
    {
        const auto temp = [this](const char *name) { return desktop->setting("Temp", name); };
        use([&](Options &o) {
            chooseColor(o, "ChgTBFColor", BoardColor, Qt::Key_Right);
            chooseColor(o, "ChgFMFColor", MapColor, Qt::Key_End, SystemPalette);
            QCOMPARE(o.OTBSample->ForeColor(), QColor(0, 0, 128));
            QCOMPARE(o.OFMFColorName->wholeText(), "ToolTip Background");
            QCOMPARE(o.OTextZoom->ForeColor(0), SystemColorValue(24));
            QCOMPARE(o.OCharButton->ForeColor(12), SystemColorValue(24));
            QCOMPARE(temp("FMFColorName") + temp("FMFColorIndex") + temp("FMFPaletteRef"),
                     "ToolTip Background241");
            QVERIFY(!o.ocmdInitMap->isEnabled());
            QCOMPARE(o.olblInitMap->wholeText(), "None");
            QPalette desktopPalette(QColor(50, 60, 70));
            QApplication::setPalette(desktopPalette);
            QCoreApplication::processEvents();
            QCOMPARE(o.OFMapBColor->grab().toImage().pixelColor(9, 9),
                     desktopPalette.color(QPalette::Base));
            QApplication::setPalette(QPalette());
            const QString path = chooseMap(o, "sub/<b>.zcm");
            QCOMPARE(o.olblInitMap->wholeText(), "<b>.zcm");
            QVERIFY(o.olblInitMap->toolTip().contains(path.toHtmlEscaped()));
            choose(o, "ocmdInitMap", "Specify Startup Custom Map", [&](QDialog *dialog) {
                QVERIFY(
                    path.startsWith(static_cast<QFileDialog *>(dialog)->directory().path() + "/<"));
                dialog->reject();
            });
        });
        QVERIFY(desktop->close());
        QCOMPARE(temp("TBFColorIndex"), "1");
        QVERIFY(temp("FMFColorName").isNull());
        restart();
        use([&](Options &o) { // what was cancelled is gone
            QCOMPARE(o.OTBFColorName->wholeText() + o.OFMFColorName->wholeText(),
                     "BlackWindow Text");
            click(o, "OFFontBold");
            set(o);
        });
        QCOMPARE(desktop->setting("FontMap", "InitMapPath"), "");
        QCOMPARE(desktop->setting("FontMap", "Hilite"), "0");
    }

    void keyboard()
    {
        const char *const pages[] = {
            "OFFontBold OFFontItalic OFFontUnderline OFFontStrikethrough OAlign0 ChgTBFColor "
            "OOptMaxTB",
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
                QCOMPARE(met.takeLast(), o.SSTabOption->tabBar()->objectName());
                QCOMPARE(met.join(' '),
                         QString("ChgFont OFontSizeSlider %1 OCharButtonScroll cmdOK "
                                 "cmdCancel")
                             .arg(pages[page]));
            }
            const auto *right = o.findChild<QAbstractButton *>("OAlign1");
            QCOMPARE(right->toolTip(), "Select to center text");
            QCOMPARE(right->accessibleName(), "Right");
        });
    }

    void whatCanNotBeSaved()
    {
        use([this](Options &o) {
            click(o, "OVCOnR");
            {
                OtherProgram other(desktop->settingsFile());
                QVERIFY(other.run("BEGIN EXCLUSIVE"));
                set(o, {" Default Settings Error", "The changes could not be saved"});
            }
            set(o); // the dialog is still there, with all that was chosen
        });
    }

    void badValues()
    {
        for (const char *name : {"ZoomedLetter", "OFMapStart", "VCPosition"})
            desktop->store("Options", name, 300);
        for (const char *name : {"FontSize", "FontColorIndex", "Alignment", "Bold"})
            desktop->store("TextBoard", name, 500);
        for (const char *name : {"BackPaletteRef", "InitMapPath"})
            desktop->store("FontMap", name, 5);
        desktop->store("TextBoard", "FontName", QString("None such"));
        desktop->store("FontMap", "BackColorName", QString(200, 'W'));
        desktop->store("FontMap", "Hilite", QString("1"));
        desktop->store("Views", "ZoomSize", QString("-3"));
        desktop->store("FB", "SampleText", QString());
        use([](Options &o) {
            QCOMPARE(o.OCurrentFont->wholeText(), "None such");
            QCOMPARE(o.OFontSizeSlider->number()->text(), "36");
            QCOMPARE(o.OTBFColorName->wholeText(), "Black");
            for (const char *chosen : {"OAlign0", "OFFontBold", "OFMapHilite", "OVCOnL"})
                QVERIFY2(o.findChild<QAbstractButton *>(chosen)->isChecked(), chosen);
            QCOMPARE(o.OFMBPalName->text(), "Custom");
            QVERIFY(o.OFMBColorName->sizeHint().width() <= o.OFMBColorName->width());
            QCOMPARE(o.olblInitMap->wholeText(), "5");
            QCOMPARE(o.OZoomSizeSlider->number()->text(), "8");
            QCOMPARE(o.OTextZoom->Caption(0) + o.OCharButton->Caption(0), "@<");
        });
        QCOMPARE(desktop->setting("Options", "ZoomedLetter"), "64");
        QCOMPARE(desktop->setting("Options", "OFMapStart"), "60");
        // What can't be converted is told, and nothing is mended before.
        desktop->store("Options", "ZoomedLetter", 300);
        desktop->store("TextBoard", "FontSize", QString("letters"));
        QVERIFY_EXCEPTION_THROWN(
            Options(window->FontNameCombo->model(), *window->FMColorPalette, window),
            ConversionError);
        QCOMPARE(desktop->setting("Options", "ZoomedLetter"), "300");
    }

private:
    /// Opens the window by its button; `what` works it, and it is closed if that didn't.
    void use(const std::function<void(Options &)> &what)
    {
        desktop->Dialogs.dialog("Default Options", [&](QDialog *dialog) {
            activate(dialog);
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
    /// Presses Set, which says this.
    void set(Options &o, const ExpectedMessage &said = Changed)
    {
        expect(said);
        click(o, "cmdOK");
        QCOMPARE(o.isVisible(), said.Title != Changed.Title);
    }
    /// Clicks the button and works the dialog that comes.
    void choose(Options &o, const char *button, const char *title,
                const std::function<void(QDialog *)> &how)
    {
        desktop->Dialogs.dialog(title, [how](QDialog *dialog) {
            activate(dialog);
            how(dialog);
        });
        click(o, button);
        activate(&o);
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
    /// Chooses a colour by a key, on this page of the palette if it has pages.
    void chooseColor(Options &o, const char *button, const char *title, Qt::Key key, int page = 0)
    {
        choose(o, button, title, [=](QDialog *dialog) {
            if (auto *palette = qobject_cast<FMColorPalette *>(dialog))
                palette->SSTabColor->setCurrentIndex(page);
            QTest::keyClick(dialog->focusWidget(), key);
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
    static QColor ground(CharCells *cells, int cell)
    {
        return pictureOf(cells, cell).pixelColor(3, 3);
    }

    /// All that a person sees of the defaults, the last of it by closing the window.
    QStringList seen()
    {
        const QString first = formatOf(window);
        QStringList all{"text " + first};
        CharCells *cells = window->FMapContainer->CharButton;
        const QImage image = pictureOf(cells, cellOf(FullRowCode)).copy(2, 2, 24, 24);
        QColor ink(Qt::white);
        for (int i = 0; i < 24 * 24; ++i)
            if (const QColor color = image.pixelColor(i % 24, i / 24);
                color.value() < ink.value() || color.green() < ink.green())
                ink = color;
        all += "cells " + cells->Caption(0) + ink.name() + ground(cells, 5).name();
        all += "grid " + QString::number(pictureOf(cells, 0).pixelColor(0, 5) != ground(cells, 0));
        hover(window, cellOf('A'));
        all += "hovered " + QString::number(ground(cells, cellOf('A')) == ground(cells, 5));
        const Views &views = *window->ViewsContainer;
        all += "views " + views.TextZoom->Caption(0) + views.AscCode->text() + views.KS->text();
        all += "zoom " + QString::number(views.TextZoom->cellFont().pointSize());
        all += QString("side ") + (views.x() < window->TextBoard->x() ? "left" : "right");
        all += "tip " + button("Opt")->toolTip();
        desktop->Dialogs.dialog("Zendova Font Browser", [&all](QDialog *dialog) {
            all += "browser " + static_cast<FontBrowser *>(dialog)->SamplePlate->sampleText();
            dialog->reject();
        });
        press("FB");
        desktop->Dialogs.dialog("Zendova Custom Map Editor", [&all](QDialog *dialog) {
            const bool down = dialog->findChild<QAbstractButton *>("optShiftDir1")->isChecked();
            all += QString("editor ") + (down ? "down" : "across");
            dialog->reject();
        });
        press("CFMapNew");
        use([&all](Options &o) {
            all += "own " + o.OCharButtonStart->text() + o.OCharButtonEnd->text() +
                   o.OTextZoom->Caption(0) +
                   QString::number(o.findChild<QAbstractButton *>("OOptMaxTB")->isChecked());
        });

        press("Italic");
        window->OpenDroppedFile(writeFile(desktop->Folder.filePath("a.txt"), "x"));
        all += "loading keeps the format " + QString::number(formatOf(window) != first);
        if (window->DisplayOW->isChecked())
            expect(Says::Unload, "No");
        press("ClearButton");
        all += "cleared " + window->TextBoard->Text();
        QTest::keyClicks(window->TextBoard, "a");
        if (window->DisplayCD->isChecked())
            expect(Says::Copied);
        press("CopyButton");
        all += "copying is told " + QString::number(window->DisplayCD->isChecked());
        press("Italic");
        expect(Says::UnloadChanged, "Yes");
        press("ClearButton");
        all += "unloading keeps the format " + QString::number(formatOf(window) != first);

        FontMap &map = *window->FMapContainer;
        map.Back.Color = RGBValue(0, 0, 200);
        map.ApplyFontMapColors(false, 0, true, map.Back.Color);
        desktop->Dialogs.dialog("Title", [&all](QDialog *dialog) {
            const bool worn = dialog->grab().toImage().pixelColor(20, 115) == QColor(0, 0, 200);
            all += "dialogs in colors " + QString::number(worn);
            dialog->reject();
        });
        ZndvMsg("Text", "OK", "Title", false, 1);
        QTest::keyClicks(window->TextBoard, "a");
        if (window->DisplayEW->isChecked())
            expect(Says::Exit, "No");
        all += "closes " + QString::number(desktop->close());
        return all;
    }

    /// What is done with a control after the click.
    void work(Options &o, const QString &control)
    {
        if (control == "ChgFont")
            chooseFontName(o, "zt fo");
        else if (control == "ChgTBFColor")
            chooseColor(o, "ChgTBFColor", BoardColor, Qt::Key_Right);
        else if (control == "ChgFMFColor")
            chooseColor(o, "ChgFMFColor", MapColor, Qt::Key_Right);
        else if (control == "ChgFMBColor")
            chooseColor(o, "ChgFMBColor", MapGround, Qt::Key_Down, CustomPalette);
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
};

ZENDOVA_WINDOW_TEST(TestOptions)
#include "tst_options.moc"
