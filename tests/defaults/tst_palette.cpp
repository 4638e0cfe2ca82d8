// The palette as a person uses it from the main window: choosing by mouse and keys, changing the
// custom colours and their names, what is kept and when, and the colours of the desktop in it.
#include "tests/support/MainWindow.h"

#include "defaults/FMColorPalette.h"
#include "platform/controls/ColorBlocks.h"

#include <QColorDialog>
#include <QLineEdit>
#include <QPushButton>

class TestPalette : public WindowTest
{
    Q_OBJECT

private slots:
    void cleanup() override
    {
        QApplication::setPalette(QPalette());
        WindowTest::cleanup();
    }

    void choosing();
    void customColorsAreChanged();
    void labelsAreEdited();
    void resetting();
    void desktopAndScheme();
    void strangeRecords();

private:
    /// Opens the palette for a colour of the map; `what` must close it.
    void use(const std::function<void(FMColorPalette &)> &what, const char *key = "FMapFC")
    {
        FMColorPalette &palette = *window->FMColorPalette;
        const bool fore = qstrcmp(key, "FMapFC") == 0;
        desktop->Dialogs.dialog(fore ? "Select A Font Color" : "Select A Background Color",
                                [&](QDialog *) {
                                    QApplication::setActiveWindow(&palette);
                                    what(palette);
                                });
        press(key);
        QVERIFY(!palette.isVisible() && window->focusWidget() == window->TextBoard);
    }
    static void click(ColorBlocks *blocks, int n)
    {
        QTest::mouseClick(blocks, Qt::LeftButton, {}, blocks->pixels(n).center());
    }
    static void click(QPushButton *pressed) { QTest::mouseClick(pressed, Qt::LeftButton); }
    static QColor ground(QWidget *widget, int x = 2, int y = 2)
    {
        return widget->grab().toImage().pixelColor(x, y);
    }
    static QColor seen(ColorBlocks *blocks, int n)
    {
        const QPoint middle = blocks->pixels(n).center();
        return ground(blocks, middle.x(), middle.y());
    }
    /// The chosen block gets another colour from the desktop's dialog, or it is cancelled.
    void recolor(const FMColorPalette &palette, const QColor &color, bool take = true)
    {
        desktop->Dialogs.dialog("Color", [=, &palette](QDialog *dialog) {
            auto *chooser = qobject_cast<QColorDialog *>(dialog);
            QCOMPARE(chooser->currentColor(),
                     seen(palette.CColorContainer, palette.CColorContainer->ChosenBlock()));
            chooser->setCurrentColor(color);
            take ? chooser->accept() : chooser->reject();
        });
        click(palette.ColorButton);
        QVERIFY(palette.focusWidget() == palette.CColorContainer);
    }
    QString nameOf(int n) const { return window->FMColorPalette->CColorContainer->label(n); }
};

void TestPalette::choosing()
{
    FontMap &map = *window->FMapContainer;
    map.FMHiLite->trigger();
    hover(window, cellOf('B'));
    use([](FMColorPalette &palette) {
        QCOMPARE(palette.CurrentColorLabel->text(), QString("System, Window Text"));
        QCOMPARE(palette.SColorContainer->ChosenBlock(), 9);
        QCOMPARE(palette.SCLabel->text(), QString("Window Text"));
        QTest::keyClick(palette.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyClick(palette.focusWidget(), Qt::Key_Left);
        QCOMPARE(palette.CCLabel->text(), QString("Ivory"));
        QTest::keyClick(palette.focusWidget(), Qt::Key_Return);
    });
    const QColor ivory(0xFF, 0xFF, 0xF0);
    QVERIFY(map.Fore.ColorIndex == 39 && map.Fore.PaletteRef == 2);
    QCOMPARE(map.Fore.ColorName, QString("Ivory"));
    QCOMPARE(map.CharButton->ForeColor(cellOf('A')), FromColor(ivory));
    QCOMPARE(pictureOf(map.CharButton, cellOf('B')).pixelColor(2, 2), ivory); // reversed
    use(
        [](FMColorPalette &palette) {
            QCOMPARE(palette.CurrentColorLabel->accessibleName(),
                     QString("System, Window Background"));
            palette.SSTabColor->setCurrentIndex(0);
            click(palette.PColorContainer, 2); // "#2"
            QTest::mouseDClick(palette.PColorContainer, Qt::LeftButton, {},
                               palette.PColorContainer->pixels(12).center());
        },
        "FMapBC");
    QCOMPARE(map.Back.ColorName, QString("#12"));
    QCOMPARE(pictureOf(map.CharButton, cellOf('A')).pixelColor(2, 2), QColor(0xFF, 0xFF, 0x80));
    // From the colour of now, not from the last place; and away again.
    for (const bool box : {false, true}) {
        desktop->Dialogs.dialog("Select A Font Color", [&](QDialog *dialog) {
            FMColorPalette &palette = *window->FMColorPalette;
            QCOMPARE(palette.CurrentColorLabel->text(), QString("Custom, Ivory"));
            QCOMPARE(palette.PColorContainer->ChosenBlock(), 1);
            QTest::keyClick(palette.focusWidget(), Qt::Key_Home);
            box ? void(dialog->close()) : QTest::keyClick(palette.focusWidget(), Qt::Key_Escape);
        });
        chooseFromMenu(window, "FormatFM", "FMFColor");
        QCOMPARE(map.Fore.ColorIndex, 39);
    }
    QVERIFY(desktop->close());
    QCOMPARE(desktop->setting("FontMap", "ForeColorName"), QString("Window Text"));
}

void TestPalette::customColorsAreChanged()
{
    FontMap &map = *window->FMapContainer;
    const QString before = desktop->setting("CustomColors", "3");
    const auto redden = [&](QPushButton *FMColorPalette::*end, bool take) {
        return [=, this](FMColorPalette &palette) {
            palette.SSTabColor->setCurrentIndex(2);
            click(palette.CColorContainer, 3);
            recolor(palette, QColor(250, 1, 2), take);
            click(palette.*end);
        };
    };
    use(redden(&FMColorPalette::Button2, true));
    use(redden(&FMColorPalette::Button1, false), "FMapBC");
    QCOMPARE(map.Back.Color, RGBValue(0x22, 0x8B, 0x22));  // as it was
    use(redden(&FMColorPalette::Button1, true), "FMapBC"); // the same block in another colour
    QCOMPARE(map.Back.Color, RGBValue(250, 1, 2));
    QCOMPARE(desktop->setting("CustomColors", "3"), before);
    use([](FMColorPalette &palette) { palette.close(); });
    QCOMPARE(desktop->setting("CustomColors", "3"), stored(RGBValue(250, 1, 2)));
    use([this](FMColorPalette &palette) {
        palette.SSTabColor->setCurrentIndex(2);
        recolor(palette, Qt::green);
        click(palette.Button1);
    });
    QVERIFY(desktop->close());
    QCOMPARE(desktop->setting("CustomColors", "1"), stored(RGBValue(0, 255, 0)));
    restart();
    use([](FMColorPalette &palette) {
        QCOMPARE(seen(palette.CColorContainer, 1), QColor(Qt::green));
        palette.reject();
    });
}

void TestPalette::labelsAreEdited()
{
    use([this](FMColorPalette &palette) {
        palette.SSTabColor->setCurrentIndex(2);
        const auto type = [&palette](const char *text) {
            click(palette.TextButton);
            QVERIFY(palette.focusWidget() == palette.CCText);
            QTest::keyClicks(palette.CCText, text); // over all of it
        };
        type("Esc");
        QTest::keyClick(palette.CCText, Qt::Key_Escape);
        QVERIFY(palette.isVisible() && !palette.CCText->isVisible());
        QCOMPARE(nameOf(1), QString("Medium Blue"));
        type("Enter");
        QTest::keyClick(palette.CCText, Qt::Key_Return);
        QVERIFY(palette.isVisible() && palette.focusWidget() == palette.CColorContainer);
        QCOMPARE(palette.CCLabel->text(), QString("Enter"));
        type("Button");
        click(palette.TextButton);
        QVERIFY(!palette.TextButton->isChecked());
        QCOMPARE(nameOf(1), QString("Button"));
        type("Block");
        click(palette.CColorContainer, 2); // the name is the first one's
        QCOMPARE(nameOf(1), QString("Block"));
        QCOMPARE(palette.CCLabel->text(), QString("Midnight Blue"));
        type("Tab");
        palette.SSTabColor->setCurrentIndex(1);
        QCOMPARE(nameOf(2), QString("Tab"));
        QVERIFY(palette.focusWidget() == palette.SColorContainer);
        palette.SSTabColor->setCurrentIndex(2);
        type("Taken");
        click(palette.Button1);
    });
    QCOMPARE(window->FMapContainer->Fore.ColorName, QString("Taken"));
    use([this](FMColorPalette &palette) {
        click(palette.TextButton);
        QTest::keyClicks(palette.CCText, "Lost");
        click(palette.Button2);
        QCOMPARE(nameOf(2), QString("Taken"));
    });
}

void TestPalette::resetting()
{
    constexpr auto title = "Reset Custom Color Blocks";
    const auto firebrick = QColor(0xB2, 0x22, 0x22);
    use([&](FMColorPalette &palette) {
        palette.SSTabColor->setCurrentIndex(2);
        desktop->Dialogs.message(title, "There is nothing to Reset.", "Ok");
        click(palette.ResetButton);
        recolor(palette, Qt::green);
        desktop->Dialogs.message(title, "Continue with Reset?", "No");
        click(palette.ResetButton);
        QCOMPARE(seen(palette.CColorContainer, 1), QColor(Qt::green));
        for (int times = 0; times < 2; ++times) { // for good, there is something to reset
            desktop->Dialogs.message(title, "Continue with Reset?", "Yes");
            click(palette.ResetButton);
            QCOMPARE(seen(palette.CColorContainer, 1), QColor(0, 0, 0xCD));
            QCOMPARE(seen(palette.CColorContainer, 26), firebrick);
            QVERIFY(palette.focusWidget() == palette.CColorContainer);
        }
        click(palette.Button2);
        QCOMPARE(seen(palette.CColorContainer, 26), QColor(0xE2, 0x97, 0x22));
    });
}

void TestPalette::desktopAndScheme()
{
    FontMap &map = *window->FMapContainer;
    map.Back.Color = RGBValue(0, 0, 200);
    map.ApplyFontMapColors(false, 0, true, map.Back.Color);
    for (const bool scheme : {true, false}) {
        use([&](FMColorPalette &palette) {
            for (const QColor &face : {QColor(50, 60, 50), QColor(240, 230, 220)}) {
                QPalette desktopPalette(face, face);
                QApplication::setPalette(desktopPalette);
                QCoreApplication::processEvents();
                QCOMPARE(ground(palette.SColorContainer),
                         scheme ? QColor(0, 0, 200) : desktopPalette.color(QPalette::Midlight));
                QCOMPARE(seen(palette.SColorContainer, 6), desktopPalette.color(QPalette::Base));
                QCOMPARE(ground(palette.CurrentColorBlock, 8, 8),
                         desktopPalette.color(QPalette::Text));
            }
            palette.reject();
        });
        window->DisplayCS->trigger();
    }
}

void TestPalette::strangeRecords()
{
    QVERIFY(desktop->close());
    desktop->store("FontMap", "ForePaletteRef", 7);
    desktop->store("FontMap", "ForeColorIndex", -3);
    desktop->store("CustomLabels", "1", QString(300, u'W'));
    restart();
    use([&](FMColorPalette &palette) {
        QCOMPARE(palette.SSTabColor->currentIndex(), 2);
        QVERIFY(palette.CurrentColorLabel->text().startsWith("Custom, WW"));
        QVERIFY(palette.CCLabel->sizeHint().width() <= palette.CCLabel->width());
        palette.reject();
    });
    // A screen of another density while the program runs.
    desktop->Screen->pretend(SysInfo::Screen{{1600, 1200}, {}, 120});
    use([&](FMColorPalette &palette) {
        QVERIFY(palette.rect().contains(palette.Button2->geometry()));
        QVERIFY(palette.CColorContainer->rect().contains(palette.CColorContainer->pixels(40)));
        QCOMPARE(palette.CColorContainer->pixels(1).width(), 35);
        palette.reject();
    });
}

ZENDOVA_WINDOW_TEST(TestPalette)
#include "tst_palette.moc"
