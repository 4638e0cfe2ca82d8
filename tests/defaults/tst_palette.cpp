// The palette as a person uses it from the main window: choosing by mouse and keys, changing the
// custom colours and their names, what is kept and when, and the colours of the desktop in it.
#include "tests/support/MainWindow.h"

#include "defaults/FMColorPalette.h"
#include "platform/controls/ColorBlocks.h"

class TestPalette : public WindowTest
{
    Q_OBJECT

    /// Opens the palette for a colour of the map; `work` must close it.
    void use(const char *key, const std::function<void(FMColorPalette &)> &work)
    {
        const QString what = qstrcmp(key, "FMapFC") == 0 ? "Font" : "Background";
        desktop->Dialogs.dialog("Select A " + what + " Color", [&](QDialog *dialog) {
            activate(dialog);
            work(*window->FMColorPalette);
        });
        window->FontNameCombo->setFocus();
        press(key);
        QVERIFY(!window->FMColorPalette->isVisible());
        QVERIFY(window->focusWidget() == window->TextBoard);
    }
    static void click(QWidget *widget, const QPoint &at = {8, 8})
    {
        QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    }
    static QColor seen(QWidget *widget, const QPoint &at = {8, 8})
    {
        return widget->grab().toImage().pixelColor(at);
    }
    static constexpr auto ResetTitle = "Reset Custom Color Blocks";
    static QPoint middle(const ColorBlocks *blocks, int n) { return blocks->pixels(n).center(); }

private slots:
    void choosing()
    {
        const FontMap &map = *window->FMapContainer;
        map.FMHiLite->trigger();
        hover(window, cellOf('B'));
        use("FMapFC", [](FMColorPalette &palette) {
            QCOMPARE(palette.CurrentColorLabel->text(), QString("System, Window Text"));
            QCOMPARE(palette.SCLabel->text(), QString("Window Text")); // the chosen one
            QTest::keyClick(palette.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
            for (const auto &[key, name] : {std::pair(Qt::Key_Right, "Midnight Blue"),
                                            {Qt::Key_Up, "Beige"},
                                            {Qt::Key_End, "Ivory"}}) {
                QTest::keyClick(palette.focusWidget(), key);
                QCOMPARE(palette.CCLabel->text(), QString(name));
            }
            QTest::keyClick(palette.focusWidget(), Qt::Key_Return);
        });
        const QColor ivory(0xFF, 0xFF, 0xF0);
        QCOMPARE(map.CharButton->ForeColor(cellOf('A')), FromColor(ivory));
        QCOMPARE(pictureOf(map.CharButton, cellOf('B')).pixelColor(2, 2), ivory); // reversed
        use("FMapBC", [](FMColorPalette &palette) {
            palette.SSTabColor->setCurrentIndex(0);
            QTest::mouseDClick(palette.PColorContainer, Qt::LeftButton, {},
                               middle(palette.PColorContainer, 12));
        });
        QCOMPARE(map.Back.ColorName, QString("#12"));
        QCOMPARE(seen(map.CharButton, {2, 30}), QColor(0xFF, 0xFF, 0x80));
        // From the colour of now, not from the last place; and nothing chosen.
        use("FMapFC", [](FMColorPalette &palette) {
            QCOMPARE(palette.CurrentColorLabel->text(), QString("Custom, Ivory"));
            QCOMPARE(palette.PColorContainer->ChosenBlock(), 1);
            QTest::keyClick(palette.focusWidget(), Qt::Key_Home);
            QTest::keyClick(palette.focusWidget(), Qt::Key_Escape);
        });
        QCOMPARE(map.Fore.ColorName, QString("Ivory"));
    }

    void customColorsAreChanged()
    {
        const QColor red(250, 1, 2);
        const auto inStore = [this] { return desktop->setting("CustomColors", "26").toInt(); };
        /// Recolours a block with Ok or Cancel in the desktop's dialog.
        const auto redden = [&](QPushButton *FMColorPalette::*end, bool take) {
            use("FMapBC", [&](FMColorPalette &palette) {
                palette.SSTabColor->setCurrentIndex(2);
                click(palette.CColorContainer, middle(palette.CColorContainer, 26));
                desktop->Dialogs.dialog("Color", [&](QDialog *dialog) {
                    qobject_cast<QColorDialog *>(dialog)->setCurrentColor(red);
                    take ? dialog->accept() : dialog->reject();
                });
                click(palette.ColorButton);
                click(palette.*end);
            });
            return window->FMapContainer->Back.Color;
        };
        redden(&FMColorPalette::Button2, true);
        QCOMPARE(redden(&FMColorPalette::Button1, false), RGBValue(0xE2, 0x97, 0x22));
        QCOMPARE(redden(&FMColorPalette::Button1, true), FromColor(red)); // the same block
        QCOMPARE(inStore(), RGBValue(0xE2, 0x97, 0x22));
        use("FMapBC", [](FMColorPalette &palette) { palette.close(); });
        QCOMPARE(inStore(), FromColor(red));
        use("FMapBC", [&](FMColorPalette &palette) {
            for (const char *answer : {"No", "Yes", "Yes"}) { // there is something for good
                desktop->Dialogs.message(ResetTitle, "Continue with Reset?", answer);
                click(palette.ResetButton);
                QCOMPARE(seen(palette.CColorContainer, middle(palette.CColorContainer, 26)) == red,
                         answer[0] == 'N');
            }
            click(palette.Button1);
        });
        QVERIFY(desktop->close());
        QCOMPARE(inStore(), RGBValue(0xB2, 0x22, 0x22));
    }

    void labelsAreEdited()
    {
        use("FMapFC", [&](FMColorPalette &palette) {
            QLabel *shown = palette.CCLabel;
            palette.SSTabColor->setCurrentIndex(2);
            desktop->Dialogs.message(ResetTitle, "There is nothing to Reset.", "Ok");
            click(palette.ResetButton);
            activate(&palette);
            for (const auto &[key, name] :
                 {std::pair(Qt::Key_Escape, "Medium Blue"), {Qt::Key_Return, "Mine"}}) {
                click(palette.TextButton);
                QTest::keyClicks(palette.focusWidget(), "Mine"); // over all of it
                QTest::keyClick(palette.CCText, key);
                QVERIFY(palette.isVisible() && palette.focusWidget() == palette.CColorContainer);
                QCOMPARE(shown->text(), QString(name));
            }
            click(palette.TextButton);
            QTest::keyClicks(palette.CCText, "First");
            click(palette.CColorContainer, middle(palette.CColorContainer, 2));
            QCOMPARE(palette.CColorContainer->label(1), QString("First"));
            QCOMPARE(shown->text(), QString("Midnight Blue"));
            click(palette.TextButton);
            QTest::keyClicks(palette.CCText, "Taken");
            click(palette.TextButton);
            QVERIFY(!palette.TextButton->isChecked());
            click(palette.Button1);
        });
        QCOMPARE(window->FMapContainer->Fore.ColorName, QString("Taken"));
    }

    void desktopAndScheme()
    {
        FontMap &map = *window->FMapContainer;
        map.Back.Color = RGBValue(0, 0, 200);
        map.ApplyFontMapColors(false, 0, true, map.Back.Color);
        for (const QColor &face : {QColor(50, 60, 50), QColor(240, 230, 220)}) {
            use("FMapFC", [&](FMColorPalette &palette) {
                const QPalette now(face, face);
                QApplication::setPalette(now);
                QCoreApplication::processEvents();
                ColorBlocks *blocks = palette.SColorContainer;
                QCOMPARE(seen(blocks) == QColor(0, 0, 200), ColorSchemeOn);
                QCOMPARE(seen(blocks, middle(blocks, 6)), now.color(QPalette::Base));
                QCOMPARE(seen(palette.CurrentColorBlock), now.color(QPalette::Text));
                palette.reject();
            });
            window->DisplayCS->trigger();
        }
        QApplication::setPalette(QPalette());
    }

    void strangeRecords()
    {
        QVERIFY(desktop->close());
        desktop->store("FontMap", "ForePaletteRef", 7);
        desktop->store("FontMap", "ForeColorIndex", -3);
        desktop->store("CustomLabels", "1", QString(300, u'W'));
        restart();
        for (const double dotsPerInch : {96.0, 120.0}) { // the screen's, while the program runs
            desktop->Screen->pretend(SysInfo::Screen{{1600, 1200}, {}, dotsPerInch});
            use("FMapFC", [&](FMColorPalette &palette) {
                QVERIFY(palette.CCLabel->sizeHint().width() <= palette.CCLabel->width());
                QVERIFY(palette.rect().contains(palette.Button2->geometry()));
                QCOMPARE(palette.CColorContainer->pixels(1).width(), dotsPerInch == 96 ? 28 : 35);
                palette.reject();
            });
        }
    }
};

ZENDOVA_WINDOW_TEST(TestPalette)
#include "tst_palette.moc"
