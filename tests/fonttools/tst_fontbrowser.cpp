// The font browser as it is used: walking through the fonts, setting one, leaving by each way,
// scrolling the sheet, pulling the window and its splitter.
#include "tests/support/MainWindow.h"

#include "fonttools/FontBrowser.h"
#include "fonttools/SamplePlate.h"

constexpr auto Title = "Zendova Font Browser";
const QString Question =
    "\r\rDo you want to select the font\rZT SECOND\ras the current font for Zendova?"
    "\r\r• Press Yes to select the font.\r• Press No to cancel operation.";

/// The first glyph of the sentence where it is 24 points high.
static GlyphPicture glyphOn(const FontBrowser &browser)
{
    constexpr std::size_t line = 2;
    const QPoint start =
        TwipScale().toPixels(browser.SamplePlate->Sheet().TypeSample[line]).topLeft();
    QFont font = FontCatalog::current().font(browser.FontNameLabel->text());
    font.setPointSize(SampleSheet::Points[line]);
    return readGlyph(browser.SamplePlate->grab().toImage(),
                     start + QPoint(0, QFontMetrics(font).ascent()));
}

class TestFontBrowser : public WindowTest
{
    Q_OBJECT

private slots:
    void walksThroughAllFonts()
    {
        const QString current = window->FontNameCombo->Text();
        const FontCatalog &catalog = FontCatalog::current();
        const auto loaded = [this, &catalog] {
            int count = 0;
            for (int row = 0; row < window->FontList.count(); ++row)
                count += catalog.isLoaded(fontFaceName(window->FontList.entry(row)));
            return count;
        };
        const int before = loaded();
        browse([&](FontBrowser &browser) {
            QCOMPARE(browser.FontNameLabel->text(), current);
            QCOMPARE(browser.TotalFonts->text().toInt(), window->FontList.count());
            QCOMPARE(browser.TTFonts->text().toInt(), TTFontCount);
            QTest::keyClick(browser.FontListView, Qt::Key_Home);
            for (int row = 0; row < window->FontList.count(); ++row) {
                const QString name = fontFaceName(window->FontList.entry(row));
                QCOMPARE(browser.FontNameLabel->text(), name);
                QCOMPARE(browser.SetFontButton->isEnabled(), name != current);
                QVERIFY(catalog.isLoaded(name));
                QTest::keyClick(browser.FontListView, Qt::Key_Down);
            }
            QVERIFY2(loaded() <= before + 20, qPrintable(QString::number(loaded())));
        });
        QCOMPARE(loaded(), before); // with that of the board
        makeGlyphsReadable(window);
        QCOMPARE(firstGlyph(window, "A"), (GlyphPicture{.code = 'A', .font = 1}));
    }

    void showsGlyphsOfTheFontAlone()
    {
        desktop->store("FB", "SampleText", QString("B and more"));
        browse([](FontBrowser &browser) {
            for (const auto &[name, glyph] : {std::pair("Zt Second", GlyphPicture{'B', 18}),
                                              {"Zt Gaps", {0, 2, true}},
                                              {"Zt Cyrillic", {0, 21, true}},
                                              {"Zt Symbol", {'B', 3}}}) {
                choose(browser, name);
                QCOMPARE(browser.FontNameLabel->text(), name);
                QCOMPARE(glyphOn(browser), glyph);
            }
        });
    }

    void setsAFont()
    {
        makeGlyphsReadable(window);
        const QString before = window->FontNameCombo->Text();
        browse([this, &before](FontBrowser &browser) {
            choose(browser, "Zt Second");
            desktop->Dialogs.message("Set Zendova Font", Question, "No");
            QTest::mouseClick(browser.SetFontButton, Qt::LeftButton);
            QVERIFY(browser.isVisible());
            QCOMPARE(window->FontNameCombo->Text(), before);
            desktop->Dialogs.message("Set Zendova Font", Question, "Yes");
            browser.SetFontButton->setFocus();
            QTest::keyClick(browser.SetFontButton, Qt::Key_Return);
            QVERIFY(!browser.isVisible());
        });
        QCOMPARE(window->FontNameCombo->Text(), "Zt Second");
        QCOMPARE(firstGlyph(window, "A"), (GlyphPicture{.code = 'A', .font = 18}));
        QCOMPARE(window->FMapContainer->CharButton->cellFont().families(),
                 FontCatalog::current().font("Zt Second").families());
        // The button opens it too.
        desktop->Dialogs.dialog(Title,
                                [](QDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Enter); });
        press("FB");
    }

    void leavesByEachWay()
    {
        const auto widthAtOpening = [this](const std::function<void(FontBrowser &)> &close) {
            double width = 0;
            browse([&width, &close](FontBrowser &browser) {
                width = browser.SamplePlate->Sheet().Width;
                close(browser);
            });
            return width;
        };
        constexpr double design = 6030;
        QVERIFY(widthAtOpening([](FontBrowser &b) { b.close(); }) != design);
        // The close box leaves the name, and the same font is not drawn again.
        QCOMPARE(widthAtOpening([](FontBrowser &b) { QTest::keyClick(&b, Qt::Key_Escape); }),
                 design);
        QVERIFY(widthAtOpening([](FontBrowser &) {}) != design);
        QVERIFY(widthAtOpening([](FontBrowser &b) {
                    QTest::keyClick(b.FontListView, Qt::Key_End);
                    b.close();
                }) != design);
        menuItem(window, "DisplayTT")->trigger();
        browse([](FontBrowser &b) { QVERIFY(b.SetFontButton->toolTip().isEmpty()); });
    }

    void scrolls()
    {
        desktop->store("FB", "SampleText", QString("Too long if scalable"));
        browse([](FontBrowser &browser) {
            browser.resize(720, 400);
            choose(browser, "Zt \"One\", Two");
            const auto at = [&browser] { return browser.SamplePlate->pos(); };
            QWidget *frame = browser.SPlateHolder;
            QTest::keyClick(frame, Qt::Key_Right);
            QCOMPARE(at(), QPoint(qRound(-browser.SHScroll->singleStep() / 15.0), 0));
            QTest::keyClick(frame, Qt::Key_PageDown);
            QCOMPARE(at().y(), qRound(-browser.SVScroll->pageStep() / 15.0));
            const int last = at().y();
            browser.SVScroll->setValue(browser.SVScroll->maximum());
            QCOMPARE(at().y(), last); // it stays where the last step has left it
            QTest::keyClick(frame, Qt::Key_End);
            QCOMPARE(at().y(), qRound(-(browser.SVScroll->maximum() - 1) / 15.0));
            QTest::keyClick(browser.FontListView, Qt::Key_Down);
            QCOMPARE(browser.FontNameLabel->text(),
                     "Zt Bitmap"); // narrower than the frame
            QCOMPARE(browser.SHScroll->maximum(), 0);
            QCOMPARE(at(), QPoint(0, 0));
        });
    }

    void followsTheWindow()
    {
        useDesktop({800, 600});
        restart();
        browse([](FontBrowser &browser) {
            QVERIFY(browser.width() <= 792 && browser.height() <= 573);
            for (const QSize &size : {QSize(1000, 800), QSize(100, 100), QSize(900, 500)}) {
                browser.resize(size);
                const QSize now = size.expandedTo(QSize(712, 293)); // 720 by 320 with the frame
                QCOMPARE(browser.size(), now);
                QCOMPARE(browser.FontListView->height(), now.height() - 140);
                const QWidget *frame = browser.SPlateHolder;
                QCOMPARE(frame->geometry(), QRect(247, 79, now.width() - 259, now.height() - 112));
                QCOMPARE(browser.SHScroll->geometry().bottom(), frame->height() - 5);
                QCOMPARE(browser.OkButton->pos(),
                         QPoint(now.width() + 8 - 86 - 20, now.height() - 28));
                QVERIFY(browser.FontNameLabel->geometry().right() < now.width());
            }
        });
    }

    void splits()
    {
        browse([](FontBrowser &browser) {
            const auto left = [&browser] { return browser.SplitBar->x(); };
            const auto drag = [&browser](int by) {
                QTest::mousePress(browser.SplitBar, Qt::LeftButton, {}, QPoint(2, 50));
                QTest::mouseMove(browser.SplitBar, QPoint(4 + by, 50)); // it is held at its pixel 4
                QTest::mouseRelease(browser.SplitBar, Qt::LeftButton, {}, QPoint(4, 50));
            };
            const int list = browser.FontListView->width();
            QCOMPARE(left(), 243);
            drag(100);
            QCOMPARE(left(), 343);
            QCOMPARE(browser.FontListView->width(), list + 100);
            QCOMPARE(browser.FontNameLabel->x(), 354);
            const QWidget *frame = browser.SPlateHolder;
            QCOMPARE(frame->geometry().left(), 347);
            QCOMPARE(frame->geometry().right(), browser.width() - 13);
            drag(browser.width() - 242 - 343 + 1);
            drag(-102);
            QCOMPARE(left(), 343); // both beyond the limits
            drag(browser.width() - 242 - 343);
            QCOMPARE(left(), browser.width() - 242);
            // Room for the sheet is made where the window has another size.
            browser.resize(browser.width() + 1, browser.height());
            QCOMPARE(browser.width() + 8, browser.SplitBar->x() + 4 + 390);
        });
    }

private:
    /// Opens the browser from the menu; `use` works it, and it is left by Ok if that didn't.
    void browse(const std::function<void(FontBrowser &)> &use)
    {
        desktop->Dialogs.dialog(Title, [&use](QDialog *dialog) {
            auto &browser = dynamic_cast<FontBrowser &>(*dialog);
            use(browser);
            if (browser.isVisible())
                QTest::mouseClick(browser.OkButton, Qt::LeftButton);
        });
        chooseFromMenu(window, "ItemTools", "ToolsFB");
    }
    static void choose(FontBrowser &browser, const QString &name)
    {
        QTest::keyClick(browser.FontListView, Qt::Key_Home); // and no search goes on
        browser.FontListView->keyboardSearch({});
        QTest::keyClicks(browser.FontListView, name);
    }
};

ZENDOVA_WINDOW_TEST(TestFontBrowser)
#include "tst_fontbrowser.moc"
