// Font, size, styles, colour and alignment by every way in which a person can set them, and where
// each of them shows.
#include "tests/textboard/BoardFormat.h"

enum Style { Bold, Italic, Underline, Strikeout };
constexpr const char *StyleButtons[] = {"Bold", "Italic", "Underline", "Strikethrough"};
constexpr const char *StyleCommands[] = {"FFontBold", "FFontItalic", "FFontUnderline",
                                         "FFontStrikethrough"};
constexpr Qt::Key StyleKeys[] = {Qt::Key_B, Qt::Key_I, Qt::Key_U, Qt::Key_K};

static bool has(const QFont &font, int style)
{
    return QList{font.bold(), font.italic(), font.underline(), font.strikeOut()}[style];
}

class TestFormatting : public WindowTest
{
    Q_OBJECT

private slots:
    void styles()
    {
        QVERIFY(chooseFont(window, "Zt Four"));
        hover(window, cellOf('K'));
        const QImage plain = pictureOf(zoomCell(), 0);
        for (int style = Bold; style <= Strikeout; ++style) {
            bool on = false;
            for (const QString way : {"button", "menu", "keys", "button", "menu", "keys"}) {
                on = !on;
                if (way == "button")
                    press(StyleButtons[style]);
                else if (way == "menu")
                    give(StyleCommands[style]);
                else
                    pressKeys(style);
                QCOMPARE(formatOf(window), QString("Zt Four 18 %1 left #000000 Black")
                                               .arg(on ? QChar("bius"[style]) : QChar('-')));
                QCOMPARE(window->Format.TBStyle.at(static_cast<std::size_t>(style)), on ? 1 : 0);
                QCOMPARE(isMarked(StyleCommands[style]), on);
                QCOMPARE(has(boardFont(), style), on);
                QVERIFY(!has(mapCells()->cellFont(), style));
                QCOMPARE(pictureOf(zoomCell(), 0) == plain, !on);
            }
        }
    }

    void builtInStyle()
    {
        makeGlyphsReadable(window);
        for (const auto &[name, number, style, wished] :
             {std::tuple("Zt Bold Only", 4, Bold, false),
              {"Zt Italic Only", 13, Italic, true},
              {"Zt Bold Only", 4, Bold, true}}) {
            QVERIFY(chooseFont(window, "Zt Four"));
            if (wished)
                press(StyleButtons[style]);
            const auto wish = window->Format.TBStyle;

            QVERIFY(chooseFont(window, name));
            QVERIFY(!button(StyleButtons[style])->isEnabled());
            QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = number}));
            // Pressed before the menu has opened, a key finds its command on.
            pressKeys(style);
            press(StyleButtons[style]);
            QCOMPARE(window->Format.TBStyle, wish);
            QVERIFY(button(StyleButtons[style])->isChecked());
            QVERIFY(isMarked(StyleCommands[style]));
            QVERIFY(!menuItem(window, StyleCommands[style])->isEnabled());
            // Asked for again, in the board or the zoom, it would be drawn twice.
            QVERIFY(!has(boardFont(), style) && !has(zoomCell()->cellFont(), style));

            QVERIFY(chooseFont(window, "Zt Four"));
            QVERIFY(button(StyleButtons[style])->isEnabled());
            QCOMPARE(button(StyleButtons[style])->isChecked(), wished);
            QCOMPARE(has(boardFont(), style) && has(zoomCell()->cellFont(), style), wished);
            if (wished)
                press(StyleButtons[style]);
        }
    }

    void alignment()
    {
        for (const bool byMenu : {false, true}) {
            // The places are a share of the board's width; once more does nothing.
            for (const auto &[key, command, name, share] :
                 {std::tuple("CenterText", "AlignCenter", "centre", 0.5),
                  {"CenterText", "AlignCenter", "centre", 0.5},
                  {"AlignRight", "AlignRight", "right", 1},
                  {"AlignLeft", "AlignLeft", "left", 0}}) {
                if (byMenu)
                    give(command);
                else
                    press(key);
                QCOMPARE(formatOf(window), QString("Arial 18 - %1 #000000 Black").arg(name));
                const double place = board()->cursorRect().x();
                QVERIFY(qAbs(place / board()->viewport()->width() - share) < 0.1);
                for (const char *other : {"AlignCenter", "AlignRight", "AlignLeft"})
                    QCOMPARE(isMarked(other), !strcmp(other, command));
            }
        }
    }

    void size()
    {
        const int zoomed = zoomCell()->cellFont().pointSize();
        for (const auto &[typed, size] : {std::pair("21", 21), {"7", 8}, {"37", 36}, {"", 36}}) {
            QVERIFY(fillNumberBox(window->FontSizeSlider, typed));
            QCOMPARE(formatOf(window), QString("Arial %1 - left #000000 Black").arg(size));
        }
        QVERIFY(board()->hasFocus());
        QTest::keyClick(window->FontSizeSlider->slider(), Qt::Key_Left);
        QVERIFY(chooseFont(window, "Zt Gaps")); // the size goes with the font
        QCOMPARE(formatOf(window), QString("Zt Gaps 35 - left #000000 Black"));
        const QFont find = window->FindFrame->FindString->font();
        QCOMPARE(find.pointSizeF(), 12.0); // never too high for its box
        QCOMPARE(zoomCell()->cellFont().pointSize(), zoomed);
        for (const QFont &font : {find, zoomCell()->cellFont()})
            QCOMPARE(font.family(), mapCells()->cellFont().family());
    }

    void colour()
    {
        const auto pick = [this](Qt::Key move, bool byMenu) {
            desktop->Dialogs.dialog("Pick A Color for TextBoard Font", [move](QDialog *dialog) {
                QTRY_VERIFY(dialog->focusWidget() && dialog->focusWidget()->hasFocus());
                QTest::keyClick(dialog->focusWidget(), move);
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            });
            if (byMenu)
                give("FFontColor");
            else
                press("Color");
        };
        for (const auto &[move, name, value] : {std::tuple(Qt::Key_End, "White", QColor(Qt::white)),
                                                {Qt::Key_Right, "Black", QColor(Qt::black)},
                                                {Qt::Key_Down, "Grey", QColor(128, 128, 128)}}) {
            pick(move, move == Qt::Key_Down);
            QCOMPARE(window->Format.TBColorName, QString(name));
            QCOMPARE(board()->ForeColor(), value);
            QVERIFY(button("Color")->toolTip().endsWith(QString("(Currently %1)").arg(name)));
        }
        // A colour that is none of the sixteen stays where nothing else is chosen.
        const QColor another(1, 2, 3);
        window->SetColorFromDialog(FromColor(another));
        pick(Qt::Key_Space, false);
        desktop->Dialogs.dialog("Font", [](QDialog *dialog) {
            QTest::keyClick(dialog->findChild<QLineEdit *>(), Qt::Key_Return);
        });
        give("FormatFont");
        QCOMPARE(board()->ForeColor(), another);
        QCOMPARE(window->Format.TBFontName, QString("Arial"));
    }

    void fontDialog()
    {
        QTest::keyClicks(board(), "ab");
        window->TextFile.TextChanged = false; // as after saving
        for (const auto &[end, format] :
             {std::pair(QDialogButtonBox::Cancel, FirstFormat),
              {QDialogButtonBox::Ok, "Zt Four 30 bius left #808080 Grey"}}) {
            desktop->Dialogs.dialog("Font", [end = end](QDialog *dialog) {
                auto *name = dialog->findChild<QLineEdit *>({}, Qt::FindDirectChildrenOnly);
                QCOMPARE(name->text(), QString("Arial"));
                QTRY_VERIFY(name->hasFocus());
                QTest::keyClicks(name, "zt fo");
                auto *size = dialog->findChild<QSpinBox *>();
                QCOMPARE(size->value(), 18);
                size->selectAll();
                QTest::keyClicks(size, "30");
                for (QCheckBox *style : dialog->findChildren<QCheckBox *>())
                    QTest::mouseClick(style, Qt::LeftButton, {}, {8, 8});
                QTest::keyClicks(dialog->findChild<QComboBox *>(), "Gra");
                auto *buttons = dialog->findChild<QDialogButtonBox *>();
                QTest::mouseClick(buttons->button(end), Qt::LeftButton);
            });
            give("FormatFont");
            QCOMPARE(formatOf(window), QString(format));
        }
        QVERIFY(window->focusWidget() == board());
        press("CenterText");
        QVERIFY(!window->TextFile.TextChanged); // formatting is no change of the text
        QCOMPARE(board()->Text(), QString("ab"));
    }

private:
    QFont boardFont() const { return board()->document()->defaultFont(); }
    CharCells *mapCells() const { return window->FMapContainer->CharButton; }
    CharCells *zoomCell() const { return window->ViewsContainer->TextZoom; }
    void pressKeys(int style) const
    {
        board()->setFocus();
        QTest::keyClick(board(), StyleKeys[style], Qt::ControlModifier);
    }
    /// A menu command as a person gives it: the menu opens first, and its marks are made.
    void give(const char *command) const
    {
        lookAtMenu(window, "ItemFormat");
        menuItem(window, command)->trigger();
    }
    bool isMarked(const char *command) const
    {
        lookAtMenu(window, "ItemFormat");
        return menuItem(window, command)->isChecked();
    }
};

ZENDOVA_WINDOW_TEST(TestFormatting)
#include "tst_formatting.moc"
