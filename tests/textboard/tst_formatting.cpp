// Font, size, styles, colour and alignment by every way in which a person can set them, and where
// each of them shows.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/GlobalDeclarations.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TBColorPicker.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <array>

namespace {

constexpr const char *PickerTitle = "Pick A Color for TextBoard Font";

/// A menu command as a person gives it: the menu opens first.
void giveFormatCommand(const Zendova *window, const char *name)
{
    lookAtMenu(window, "ItemFormat");
    menuItem(window, name)->trigger();
}

/// Its marks are made when the menu opens.
bool isMarked(const Zendova *window, const char *name)
{
    lookAtMenu(window, "ItemFormat");
    return menuItem(window, name)->isChecked();
}

enum Style { Bold, Italic, Underline, Strikeout };
constexpr const char *StyleButtons[] = {"Bold", "Italic", "Underline", "Strikethrough"};
constexpr const char *StyleCommands[] = {"FFontBold", "FFontItalic", "FFontUnderline",
                                         "FFontStrikethrough"};
constexpr Qt::Key StyleKeys[] = {Qt::Key_B, Qt::Key_I, Qt::Key_U, Qt::Key_K};

bool has(const QFont &font, int style)
{
    const bool states[] = {font.bold(), font.italic(), font.underline(), font.strikeOut()};
    return states[style];
}

void clickBlock(TBColorPicker *picker, int n)
{
    ColorBlocks *blocks = picker->ColorContainer;
    QTest::mouseClick(blocks, Qt::LeftButton, {}, blocks->pixels(n).center());
}

template<class Widget>
Widget *theOnly(const QDialog *dialog, const QString &text = {})
{
    for (Widget *candidate : dialog->findChildren<Widget *>())
        if (text.isEmpty() || candidate->property("text").toString().remove('&') == text)
            return candidate;
    return nullptr;
}

QFont boardFont(const Zendova *window)
{
    return window->TextBoard->document()->defaultFont();
}

} // namespace

class TestFormatting : public QObject
{
    Q_OBJECT

private slots:
    void fontReachesEverything()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        makeGlyphsReadable(window);
        window->ViewsContainer->ZoomSizeSlider->setValue(24);
        const QRect inner(4, 4, 126, 126); // of the zoom, within its frame
        const auto cell = [window](int code) {
            return pictureOf(window->FMapContainer->CharButton, cellOf(code));
        };
        const auto zoom = [&] {
            return pictureOf(window->ViewsContainer->TextZoom, 0).copy(inner);
        };
        hover(window, cellOf(FullRowCode));
        const QPoint cellOrigin = originOfFullRow(cell(FullRowCode));
        const QPoint zoomOrigin = originOfFullRow(zoom());
        hover(window, cellOf('K'));
        for (const auto &[name, font] : {std::pair("Zt Symbol", 3), std::pair("Zt Four", 8)}) {
            QVERIFY(chooseFont(window, name));
            const GlyphPicture expected{.code = 'K', .font = font};
            QCOMPARE(readGlyph(cell('K'), cellOrigin), expected);
            QCOMPARE(readGlyph(zoom(), zoomOrigin), expected);
            QCOMPARE(firstGlyph(window, "K"), expected);
        }
        // A style chooses the face of its own that the font has, on the board only.
        for (const auto &[style, font] :
             {std::pair("Bold", 9), std::pair("Italic", 11), std::pair("Bold", 10)}) {
            QTest::mouseClick(window->FontFormatTB->button(style), Qt::LeftButton);
            QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = font}));
        }
        QCOMPARE(readGlyph(cell('K'), cellOrigin), (GlyphPicture{.code = 'K', .font = 8}));
    }

    void styles()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QVERIFY(chooseFont(window, "Zt Four"));
        hover(window, cellOf('K'));
        const QImage plain = pictureOf(window->ViewsContainer->TextZoom, 0);
        for (int style = Bold; style <= Strikeout; ++style) {
            QToolButton *button = window->FontFormatTB->button(StyleButtons[style]);
            bool on = false;
            for (const QString way : {"button", "menu", "keys", "button", "menu", "keys"}) {
                on = !on;
                window->TextBoard->setFocus();
                if (way == "button")
                    QTest::mouseClick(button, Qt::LeftButton);
                else if (way == "menu")
                    giveFormatCommand(window, StyleCommands[style]);
                else
                    QTest::keyClick(window->TextBoard, StyleKeys[style], Qt::ControlModifier);
                QCOMPARE(button->isChecked(), on);
                QCOMPARE(isMarked(window, StyleCommands[style]), on);
                std::array<int, 4> expected{};
                expected.at(static_cast<std::size_t>(style)) = on ? 1 : 0;
                QCOMPARE(window->Format.TBStyle, expected);
                QCOMPARE(has(boardFont(window), style), on);
                QVERIFY(!has(window->FMapContainer->CharButton->cellFont(), style));
                QCOMPARE(pictureOf(window->ViewsContainer->TextZoom, 0) == plain, !on);
            }
        }
    }

    void builtInStyle_data()
    {
        QTest::addColumn<int>("number"); // of the font's glyphs
        QTest::addColumn<int>("style");
        QTest::newRow("Zt Bold Only") << 4 << int(Bold);
        QTest::newRow("Zt Italic Only") << 13 << int(Italic);
    }
    void builtInStyle()
    {
        QFETCH(int, number);
        QFETCH(int, style);
        Desktop desktop;
        Zendova *window = desktop.start();
        makeGlyphsReadable(window);
        QToolButton *button = window->FontFormatTB->button(StyleButtons[style]);
        for (const bool wished : {false, true}) {
            QVERIFY(chooseFont(window, "Zt Four"));
            if (wished)
                QTest::mouseClick(button, Qt::LeftButton);
            const auto wish = window->Format.TBStyle;

            QVERIFY(chooseFont(window, QTest::currentDataTag()));
            QVERIFY(!button->isEnabled());
            QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = number}));
            QVERIFY(!has(boardFont(window), style)); // asked for again it would be drawn twice
            QVERIFY(isMarked(window, StyleCommands[style]));
            QVERIFY(!menuItem(window, StyleCommands[style])->isEnabled());
            window->TextBoard->setFocus();
            QTest::keyClick(window->TextBoard, StyleKeys[style], Qt::ControlModifier);
            QTest::mouseClick(button, Qt::LeftButton);
            QVERIFY(button->isChecked());
            QCOMPARE(window->Format.TBStyle, wish);

            QVERIFY(chooseFont(window, "Zt Four"));
            QVERIFY(button->isEnabled());
            QCOMPARE(button->isChecked(), wished);
            QCOMPARE(has(boardFont(window), style), wished);
        }
    }

    void alignment()
    {
        const struct
        {
            const char *Button;
            const char *Command;
            int Alignment;
            double Place; // of the text, as a share of the board's width
        } ways[] = {{"CenterText", "AlignCenter", 2, 0.5},
                    {"CenterText", "AlignCenter", 2, 0.5}, // once more does nothing
                    {"AlignRight", "AlignRight", 1, 1},
                    {"AlignLeft", "AlignLeft", 0, 0}};
        Desktop desktop;
        Zendova *window = desktop.start();
        const TextBoard *board = window->TextBoard;
        for (const bool byMenu : {false, true}) {
            for (const auto &way : ways) {
                if (byMenu)
                    giveFormatCommand(window, way.Command);
                else
                    QTest::mouseClick(window->TextAlignTB->button(way.Button), Qt::LeftButton);
                QCOMPARE(board->Alignment(), way.Alignment);
                const double place = double(board->cursorRect().x()) / board->viewport()->width();
                QVERIFY(qAbs(place - way.Place) < 0.1);
                for (const auto &other : ways) {
                    const bool chosen = other.Alignment == way.Alignment;
                    QCOMPARE(window->TextAlignTB->button(other.Button)->isChecked(), chosen);
                    QCOMPARE(isMarked(window, other.Command), chosen);
                }
            }
        }
    }

    void size()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        NumberSlider *sizes = window->FontSizeSlider;
        const int zoomed = window->ViewsContainer->TextZoom->cellFont().pointSize();
        const auto isEverywhere = [window, sizes](int size) {
            return QList{sizes->value(), sizes->number()->text().toInt(),
                         boardFont(window).pointSize(),
                         window->FMapContainer->CharButton->cellFont().pointSize()} ==
                   QList<int>(4, size);
        };
        QVERIFY(isEverywhere(18));
        const std::tuple<const char *, Qt::Key, int> rows[] = {
            {"21", Qt::Key_Enter, 21}, {"7", Qt::Key_Return, 8},   {"37", Qt::Key_Return, 36},
            {"", Qt::Key_Return, 36},  {"20", Qt::Key_Escape, 36},
        };
        for (const auto &[typed, key, size] : rows) {
            QVERIFY(fillNumberBox(sizes, typed, key));
            QVERIFY2(isEverywhere(size), typed);
        }
        QVERIFY(window->TextBoard->hasFocus());
        QTest::keyClick(sizes->slider(), Qt::Key_Left);
        QVERIFY(isEverywhere(35));
        QVERIFY(chooseFont(window, "Zt Gaps")); // the size goes with the font
        QVERIFY(isEverywhere(35));
        QCOMPARE(window->ViewsContainer->TextZoom->cellFont().pointSize(), zoomed);
        QVERIFY(desktop.Dialogs.allCame());
    }

    void pickerKeys()
    {
        const std::tuple<Qt::Key, int, int> moves[] = {
            {Qt::Key_Left, 9, 8}, {Qt::Key_Up, 2, 9}, {Qt::Key_Down, 8, 16}, {Qt::Key_End, 2, 16}};
        Desktop desktop;
        Zendova *window = desktop.start();
        desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
            auto *picker = qobject_cast<TBColorPicker *>(dialog);
            QTRY_VERIFY(picker->ColorContainer->hasFocus());
            for (const auto &[key, from, to] : moves) {
                clickBlock(picker, from);
                QTest::keyClick(picker->ColorContainer, key);
                QCOMPARE(picker->ChosenCell(), to);
            }
            QTest::keyClick(picker->ColorContainer, Qt::Key_Escape);
        });
        QTest::mouseClick(window->FontFormatTB->button("Color"), Qt::LeftButton);
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->Format.TBColorIndex, 0);
    }

    void pickerChoice()
    {
        const struct
        {
            QString Way;
            int Cell;
            QString Name;
            QString Label; // the cells have a spelling of their own
            QColor Color;
        } rows[] = {{"Ok", 9, "Grey", "Gray", {128, 128, 128}},
                    {"Enter", 8, "Silver", "Silver", {192, 192, 192}},
                    {"double click", 4, "Teal", "Teal", {0, 128, 128}},
                    {"Cancel", 13, "Teal", "Teal", {0, 128, 128}},
                    {"Esc on a button", 13, "Teal", "Teal", {0, 128, 128}}};
        Desktop desktop;
        Zendova *window = desktop.start();
        const auto *button = window->FontFormatTB->button("Color");
        QString label = "Black";
        for (const auto &row : rows) {
            desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
                auto *picker = qobject_cast<TBColorPicker *>(dialog);
                QCOMPARE(picker->CurrentColorLabel->text(), label);
                QCOMPARE(picker->ColorLabel->text(), label);
                QCOMPARE(picker->CurrentColorBlock->grab().toImage().pixelColor(6, 6),
                         window->TextBoard->ForeColor());
                ColorBlocks *blocks = picker->ColorContainer;
                clickBlock(picker, row.Cell);
                if (row.Way == "double click")
                    QTest::mouseDClick(blocks, Qt::LeftButton, {},
                                       blocks->pixels(row.Cell).center());
                else if (row.Way == "Enter")
                    QTest::keyClick(blocks, Qt::Key_Return);
                else if (row.Way == "Esc on a button")
                    QTest::keyClick(picker->Button1, Qt::Key_Escape);
                else
                    QTest::mouseClick(theOnly<QPushButton>(dialog, row.Way), Qt::LeftButton);
            });
            giveFormatCommand(window, "FFontColor");
            QVERIFY(desktop.Dialogs.allCame());
            QCOMPARE(window->Format.TBColorName, row.Name);
            QCOMPARE(window->TextBoard->ForeColor(), row.Color);
            QVERIFY(button->toolTip().endsWith("(Currently " + row.Name + ')'));
            label = row.Label;
        }
        window->DisplayTT->trigger();
        QCOMPARE(button->toolTip(), QString());
    }

    void dialogsKeepAnotherColour()
    {
        const QColor another(1, 2, 3);
        Desktop desktop;
        Zendova *window = desktop.start();
        window->SetColorFromDialog(FromColor(another));
        QCOMPARE(window->Format.TBColorName, QString("Black"));
        desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
            auto *picker = qobject_cast<TBColorPicker *>(dialog);
            QCOMPARE(picker->CurrentColorBlock->grab().toImage().pixelColor(6, 6), another);
            QTest::mouseClick(picker->Button1, Qt::LeftButton);
        });
        window->ShowColorPicker();
        QCOMPARE(window->TextBoard->ForeColor(), another);
        desktop.Dialogs.dialog("Font", [](QDialog *dialog) {
            QTest::keyClick(theOnly<QLineEdit>(dialog), Qt::Key_Return);
        });
        menuItem(window, "FormatFont")->trigger();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->TextBoard->ForeColor(), another);
        QCOMPARE(window->Format.TBFontName, QString("Arial"));
    }

    void fontDialog()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "ab");
        window->TextFile.TextChanged = false; // as after saving
        for (const bool accepted : {false, true}) {
            desktop.Dialogs.dialog("Font", [&](QDialog *dialog) {
                auto *name = theOnly<QLineEdit>(dialog);
                QCOMPARE(name->text(), QString("Arial"));
                QTRY_VERIFY(name->hasFocus());
                QTest::keyClicks(name, "zt fo");
                auto *size = theOnly<QSpinBox>(dialog);
                QCOMPARE(size->value(), 18);
                size->selectAll();
                QTest::keyClicks(size, "30");
                for (const char *style : {"Bold", "Strikeout"})
                    QTest::mouseClick(theOnly<QCheckBox>(dialog, style), Qt::LeftButton, {},
                                      {8, 8});
                QTest::keyClicks(theOnly<QComboBox>(dialog), "Gra");
                const auto button = accepted ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
                QTest::mouseClick(theOnly<QDialogButtonBox>(dialog)->button(button),
                                  Qt::LeftButton);
            });
            menuItem(window, "FormatFont")->trigger();
            QVERIFY(desktop.Dialogs.allCame());
            QCOMPARE(window->FontNameCombo->Text(), QString(accepted ? "Zt Four" : "Arial"));
            QCOMPARE(window->TextBoard->FontName(), window->FontNameCombo->Text());
            QCOMPARE(window->FontSizeSlider->value(), accepted ? 30 : 18);
            QCOMPARE(window->FMapContainer->CharButton->cellFont().pointSize(), accepted ? 30 : 18);
            const int on = accepted ? 1 : 0;
            QCOMPARE(window->Format.TBStyle, (std::array{on, 0, 0, on}));
            QCOMPARE(has(boardFont(window), Bold) && has(boardFont(window), Strikeout), accepted);
            QCOMPARE(window->TextBoard->ForeColor().red(), accepted ? 128 : 0);
            QCOMPARE(window->Format.TBColorName, QString(accepted ? "Grey" : "Black"));
        }
        QCOMPARE(window->focusWidget(), static_cast<QWidget *>(window->TextBoard));
        QTest::mouseClick(window->TextAlignTB->button("CenterText"), Qt::LeftButton);
        QVERIFY(!window->TextFile.TextChanged); // formatting is no change of the text
        QCOMPARE(window->TextBoard->Text(), QString("ab"));
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestFormatting>(argc, argv);
}

#include "tst_formatting.moc"
