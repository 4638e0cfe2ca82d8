// Font, size, styles, colour and alignment by every way in which a person can set them, and where
// each of them shows.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/GlobalDeclarations.h"
#include "platform/FontCatalog.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TBColorPicker.h"
#include "textboard/TextBoard.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <array>

namespace {

constexpr const char *PickerTitle = "Pick A Color for TextBoard Font";

/// Opens the Format menu, so that its marks are those of now, and closes it.
void lookAtFormatMenu(const Zendova *window)
{
    auto *menu = window->findChild<QMenu *>("ItemFormat");
    menu->popup({});
    menu->close();
}

/// A menu command as a person gives it: the menu opens first.
void giveFormatCommand(const Zendova *window, const QString &name)
{
    lookAtFormatMenu(window);
    menuItem(window, qPrintable(name))->trigger();
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

} // namespace

class TestFormatting : public QObject
{
    Q_OBJECT

private slots:
    void fontReachesEverything();
    void firstLetterJump_data();
    void firstLetterJump();
    void styles_data();
    void styles();
    void stylesChooseTheFace();
    void builtInStyle_data();
    void builtInStyle();
    void alignment_data();
    void alignment();
    void sizeBox_data();
    void sizeBox();
    void sizeBySlider();
    void pickerKeys_data();
    void pickerKeys();
    void pickerChoice_data();
    void pickerChoice();
    void pickerWithoutToolTips();
    void pickerLeavesAnotherColour();
    void fontDialog();
    void fontDialogKeepsAnotherColour();
    void formattingIsNoChangeOfTheText();
};

void TestFormatting::fontReachesEverything()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    makeGlyphsReadable(window);
    window->ZoomSizeSlider->setValue(24);
    hover(window, cellOf(FullRowCode));
    const QPoint cellOrigin = originOfFullRow(pictureOf(window->CharButton, cellOf(FullRowCode)));
    const QRect inner(4, 4, 126, 126);
    const QPoint zoomOrigin = originOfFullRow(pictureOf(window->TextZoom, 0).copy(inner));
    hover(window, cellOf('K'));
    const auto shows = [&](int font) {
        const GlyphPicture expected{.code = 'K', .font = font};
        return readGlyph(pictureOf(window->CharButton, cellOf('K')), cellOrigin) == expected &&
               readGlyph(pictureOf(window->TextZoom, 0).copy(inner), zoomOrigin) == expected &&
               firstGlyph(window, "K") == expected;
    };
    QVERIFY(shows(1));
    QVERIFY(chooseFont(window, "Zt Symbol"));
    QVERIFY(shows(3));
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(shows(8));
    // From the open list, by the mouse.
    window->FontNameCombo->showPopup();
    QAbstractItemView *list = window->FontNameCombo->view();
    const int row = window->FontNameCombo->findText("Zt Gaps");
    const QModelIndex item = list->model()->index(row, 0);
    list->scrollTo(item);
    const auto clicked = [&] {
        if (list->isVisible()) // for a moment after it opened it takes no release of a button
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualRect(item).center());
        return !list->isVisible();
    };
    QTRY_VERIFY(clicked());
    QCOMPARE(window->TBFontName, QString("Zt Gaps"));
    QCOMPARE(window->TBFontIndex, row + 1);
    QVERIFY(shows(2));
}

void TestFormatting::firstLetterJump_data()
{
    QTest::addColumn<char>("key");
    QTest::addColumn<QString>("font"); // empty for the one that was there
    QTest::newRow("lower case") << 'a' << "Arial";
    QTest::newRow("upper case") << 'A' << "Arial";
    QTest::newRow("first of many") << 'z' << "Zt \"One\", Two";
    QTest::newRow("no such letter") << 'q' << "";
    QTest::newRow("bracket, in the range") << '[' << "";
    QTest::newRow("at sign, below it") << '@' << "";
    QTest::newRow("digit") << '2' << "";
    QTest::newRow("brace, above it") << '{' << "";
}

void TestFormatting::firstLetterJump()
{
    QFETCH(char, key);
    QFETCH(QString, font);
    Desktop desktop;
    Zendova *window = desktop.start();
    QVERIFY(chooseFont(window, "Zt Latin"));
    QTest::keyClick(window->FontNameCombo, key);
    const QString expected = font.isEmpty() ? "Zt Latin" : font;
    QCOMPARE(window->FontNameCombo->Text(), expected);
    QCOMPARE(window->TBFontName, expected);
    QCOMPARE(window->TextBoard->FontName(), expected);
    QCOMPARE(window->TBFontIndex, window->FontNameCombo->SelectedItem());
}

void TestFormatting::styles_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("way");
    for (const char *way : {"button", "menu", "keys"})
        for (int style = Bold; style <= Strikeout; ++style)
            QTest::addRow("%s by %s", StyleButtons[style], way) << style << way;
}

void TestFormatting::styles()
{
    QFETCH(int, style);
    QFETCH(QString, way);
    Desktop desktop;
    Zendova *window = desktop.start();
    QVERIFY(chooseFont(window, "Zt Four"));
    hover(window, cellOf('K'));
    window->TextBoard->setFocus();
    QToolButton *button = window->FontFormatTB->button(StyleButtons[style]);
    const QImage plain = pictureOf(window->TextZoom, 0);
    for (const bool on : {true, false, true}) {
        if (way == "button")
            QTest::mouseClick(button, Qt::LeftButton);
        else if (way == "menu")
            giveFormatCommand(window, StyleCommands[style]);
        else
            QTest::keyClick(window->TextBoard, StyleKeys[style], Qt::ControlModifier);
        QCOMPARE(button->isChecked(), on);
        for (int other = Bold; other <= Strikeout; ++other) {
            const bool expected = on && other == style;
            QCOMPARE(window->TBStyle[static_cast<std::size_t>(other)], expected ? 1 : 0);
            QCOMPARE(has(window->TextBoard->document()->defaultFont(), other), expected);
            QCOMPARE(has(window->TextZoom->cellFont(), other), expected);
            QVERIFY(!has(window->CharButton->cellFont(), other));
        }
        QCOMPARE(pictureOf(window->TextZoom, 0) == plain, !on);
        lookAtFormatMenu(window);
        QCOMPARE(menuItem(window, StyleCommands[style])->isChecked(), on);
    }
    // Another font keeps the style.
    QVERIFY(chooseFont(window, "Zt Latin"));
    QVERIFY(button->isChecked() && has(window->TextBoard->document()->defaultFont(), style));
}

void TestFormatting::stylesChooseTheFace()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    makeGlyphsReadable(window);
    const QPoint origin = originOfFullRow(pictureOf(window->CharButton, cellOf(FullRowCode)));
    QVERIFY(chooseFont(window, "Zt Four"));
    QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = 8}));
    QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
    QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = 9}));
    QTest::mouseClick(window->FontFormatTB->button("Italic"), Qt::LeftButton);
    QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = 11}));
    QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
    QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = 10}));
    QCOMPARE(readGlyph(pictureOf(window->CharButton, cellOf('K')), origin),
             (GlyphPicture{.code = 'K', .font = 8}));
}

void TestFormatting::builtInStyle_data()
{
    QTest::addColumn<QString>("font");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("wished");
    QTest::newRow("bold") << "Zt Bold Only" << 4 << int(Bold) << false;
    QTest::newRow("bold, wished") << "Zt Bold Only" << 4 << int(Bold) << true;
    QTest::newRow("italic") << "Zt Italic Only" << 13 << int(Italic) << false;
    QTest::newRow("italic, wished") << "Zt Italic Only" << 13 << int(Italic) << true;
}

void TestFormatting::builtInStyle()
{
    QFETCH(QString, font);
    QFETCH(int, number);
    QFETCH(int, style);
    QFETCH(bool, wished);
    Desktop desktop;
    Zendova *window = desktop.start();
    makeGlyphsReadable(window);
    QVERIFY(chooseFont(window, "Zt Four"));
    QToolButton *button = window->FontFormatTB->button(StyleButtons[style]);
    QToolButton *other = window->FontFormatTB->button(StyleButtons[style == Bold ? Italic : Bold]);
    if (wished)
        QTest::mouseClick(button, Qt::LeftButton);
    const auto wish = window->TBStyle;

    QVERIFY(chooseFont(window, font));
    QVERIFY(button->isChecked() && !button->isEnabled());
    QVERIFY(!other->isChecked() && other->isEnabled());
    QCOMPARE(firstGlyph(window, "K"), (GlyphPicture{.code = 'K', .font = number}));
    lookAtFormatMenu(window);
    QVERIFY(menuItem(window, StyleCommands[style])->isChecked());
    QVERIFY(!menuItem(window, StyleCommands[style])->isEnabled());
    window->TextBoard->setFocus();
    QTest::keyClick(window->TextBoard, StyleKeys[style], Qt::ControlModifier);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->isChecked());
    QCOMPARE(window->TBStyle, wish);

    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(button->isEnabled());
    QCOMPARE(button->isChecked(), wished);
    QCOMPARE(has(window->TextBoard->document()->defaultFont(), style), wished);
    lookAtFormatMenu(window);
    QVERIFY(menuItem(window, StyleCommands[style])->isEnabled());
}

void TestFormatting::alignment_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::newRow("buttons") << false;
    QTest::newRow("menu") << true;
}

void TestFormatting::alignment()
{
    QFETCH(bool, byMenu);
    struct Way
    {
        const char *Button;
        const char *Command;
        int Alignment;
        double Place; // of the text, as a share of the board's width
    };
    constexpr Way ways[] = {{"CenterText", "AlignCenter", 2, 0.5},
                            {"CenterText", "AlignCenter", 2, 0.5}, // once more does nothing
                            {"AlignRight", "AlignRight", 1, 1},
                            {"AlignLeft", "AlignLeft", 0, 0}};
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "i");
    for (const Way &way : ways) {
        if (byMenu)
            giveFormatCommand(window, way.Command);
        else
            QTest::mouseClick(window->TextAlignTB->button(way.Button), Qt::LeftButton);
        QCOMPARE(window->TextBoard->Alignment(), way.Alignment);
        const double place =
            double(window->TextBoard->cursorRect().x()) / window->TextBoard->viewport()->width();
        QVERIFY(qAbs(place - way.Place) < 0.1);
        lookAtFormatMenu(window);
        for (const Way &other : ways) {
            const bool chosen = other.Alignment == way.Alignment;
            QCOMPARE(window->TextAlignTB->button(other.Button)->isChecked(), chosen);
            QCOMPARE(menuItem(window, other.Command)->isChecked(), chosen);
        }
    }
}

void TestFormatting::sizeBox_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("size");
    const auto row = [](const char *name, const QString &typed, Qt::Key key, int size) {
        QTest::newRow(name) << typed << static_cast<int>(key) << size;
    };
    row("a size", "20", Qt::Key_Return, 20);
    row("number pad's Enter", "21", Qt::Key_Enter, 21);
    row("too small", "7", Qt::Key_Return, 8);
    row("negative", "-20", Qt::Key_Return, 8);
    row("too large", "99", Qt::Key_Return, 36);
    row("far too large", "99999999999", Qt::Key_Return, 36);
    row("with a fraction", "12.4", Qt::Key_Return, 12);
    row("half to the even", "12.5", Qt::Key_Return, 12);
    row("blanks round it", " 20 ", Qt::Key_Return, 20);
    row("no number", "abc", Qt::Key_Return, 18);
    row("number and letters", "20pt", Qt::Key_Return, 18);
    row("blanks", "   ", Qt::Key_Return, 18);
    row("nothing", "", Qt::Key_Return, 18);
    row("Esc", "20", Qt::Key_Escape, 18);
}

void TestFormatting::sizeBox()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(int, size);
    Desktop desktop;
    Zendova *window = desktop.start();
    QCOMPARE(window->FontSizeSlider->number()->text(), QString("18"));
    const int zoomed = window->TextZoom->cellFont().pointSize();
    QVERIFY(fillNumberBox(window->FontSizeSlider, typed, static_cast<Qt::Key>(key)));
    QCOMPARE(window->FontSizeSlider->value(), size);
    QCOMPARE(window->FontSizeSlider->number()->text(), QString::number(size));
    QCOMPARE(window->TextBoard->document()->defaultFont().pointSize(), size);
    QCOMPARE(window->CharButton->cellFont().pointSize(), size);
    QCOMPARE(window->TextZoom->cellFont().pointSize(), zoomed);
    if (size != 18 || key == Qt::Key_Escape)
        QVERIFY(window->TextBoard->hasFocus());
    QVERIFY(desktop.Dialogs.allCame());
}

void TestFormatting::sizeBySlider()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QSlider *slider = window->FontSizeSlider->slider();
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(window->FontSizeSlider->number()->text(), QString("19"));
    QCOMPARE(window->CharButton->cellFont().pointSize(), 19);
    QCOMPARE(window->TextBoard->document()->defaultFont().pointSize(), 19);
    slider->setSliderDown(true);
    slider->setSliderPosition(30);
    QCOMPARE(window->FontSizeSlider->number()->text(), QString("30"));
    QVERIFY(window->TextBoard->hasFocus());
    slider->setSliderDown(false);
    QCOMPARE(window->CharButton->cellFont().pointSize(), 30);
    // What was typed is dropped when the box loses the focus.
    QVERIFY(fillNumberBox(window->FontSizeSlider, "9", Qt::Key(0)));
    QTest::mouseClick(window->TextBoard->viewport(), Qt::LeftButton);
    QVERIFY(!window->FontSizeSlider->edit()->isVisible());
    QCOMPARE(window->FontSizeSlider->value(), 30);
    // The size goes with the font.
    QVERIFY(chooseFont(window, "Zt Gaps"));
    QCOMPARE(window->CharButton->cellFont().pointSize(), 30);
    QCOMPARE(window->TextBoard->document()->defaultFont().pointSize(), 30);
}

void TestFormatting::pickerKeys_data()
{
    using Row = std::array<int, 16>; // where the key leads from cells 1 to 16
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<int>>("to");
    const auto row = [](const char *name, Qt::Key key, const Row &to) {
        QTest::newRow(name) << static_cast<int>(key) << QList<int>(to.begin(), to.end());
    };
    row("Left", Qt::Key_Left, {16, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
    row("Right", Qt::Key_Right, {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 1});
    row("Up", Qt::Key_Up, {16, 9, 10, 11, 12, 13, 14, 15, 1, 2, 3, 4, 5, 6, 7, 8});
    row("Down", Qt::Key_Down, {9, 10, 11, 12, 13, 14, 15, 16, 2, 3, 4, 5, 6, 7, 8, 1});
    row("Home", Qt::Key_Home, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
    row("End", Qt::Key_End, {16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16});
    row("another", Qt::Key_A, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
}

void TestFormatting::pickerKeys()
{
    QFETCH(int, key);
    QFETCH(QList<int>, to);
    const QStringList labels{"Black", "Navy",    "Green",  "Teal", "Maroon", "Purple",
                             "Olive", "Silver",  "Gray",   "Blue", "Lime",   "Aqua",
                             "Red",   "Fuchsia", "Yellow", "White"};
    Desktop desktop;
    Zendova *window = desktop.start();
    desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
        auto *picker = qobject_cast<TBColorPicker *>(dialog);
        QTRY_VERIFY(picker->ColorContainer->hasFocus());
        for (int n = 1; n <= 16; ++n) {
            clickBlock(picker, n);
            QCOMPARE(picker->ColorLabel->text(), labels.at(n - 1));
            QTest::keyClick(picker->ColorContainer, static_cast<Qt::Key>(key));
            QCOMPARE(picker->ChosenCell(), to.at(n - 1));
            QCOMPARE(picker->ColorLabel->text(), labels.at(to.at(n - 1) - 1));
        }
        QTest::keyClick(picker->ColorContainer, Qt::Key_Escape);
    });
    QTest::mouseClick(window->FontFormatTB->button("Color"), Qt::LeftButton);
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TBColorIndex, 0);
}

void TestFormatting::pickerChoice_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QColor>("color");
    const QColor black(0, 0, 0);
    QTest::newRow("Ok") << 13 << "Ok" << 12 << "Red" << QColor(255, 0, 0);
    QTest::newRow("Enter") << 8 << "Enter" << 7 << "Silver" << QColor(192, 192, 192);
    QTest::newRow("double click") << 4 << "double click" << 3 << "Teal" << QColor(0, 128, 128);
    QTest::newRow("two spellings") << 9 << "Ok" << 8 << "Grey" << QColor(128, 128, 128);
    QTest::newRow("Cancel") << 13 << "Cancel" << 0 << "Black" << black;
    QTest::newRow("Esc") << 13 << "Esc" << 0 << "Black" << black;
    QTest::newRow("Esc on a button") << 13 << "Esc on a button" << 0 << "Black" << black;
    QTest::newRow("no change") << 1 << "Ok" << 0 << "Black" << black;
}

void TestFormatting::pickerChoice()
{
    QFETCH(int, cell);
    QFETCH(QString, way);
    QFETCH(QString, name);
    QFETCH(QColor, color);
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "K");
    desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
        auto *picker = qobject_cast<TBColorPicker *>(dialog);
        QCOMPARE(picker->CurrentColorLabel->text(), QString("Black"));
        ColorBlocks *blocks = picker->ColorContainer;
        if (way == "double click") {
            QTest::mouseDClick(blocks, Qt::LeftButton, {}, blocks->pixels(cell).center());
            return;
        }
        clickBlock(picker, cell);
        if (way == "Ok")
            QTest::mouseClick(picker->Button1, Qt::LeftButton);
        else if (way == "Enter")
            QTest::keyClick(blocks, Qt::Key_Return);
        else if (way == "Cancel")
            QTest::mouseClick(picker->Button2, Qt::LeftButton);
        else
            QTest::keyClick(way == "Esc" ? static_cast<QWidget *>(blocks) : picker->Button1,
                            Qt::Key_Escape);
    });
    giveFormatCommand(window, "FFontColor");
    QVERIFY(desktop.Dialogs.allCame());
    QTEST(window->TBColorIndex, "index");
    QCOMPARE(window->TBColorName, name);
    QCOMPARE(window->TextBoard->ForeColor(), color);
    const QToolButton *button = window->FontFormatTB->button("Color");
    QVERIFY2(button->toolTip().endsWith("(Currently " + name + ')'), qPrintable(button->toolTip()));

    // The next opening starts from the choice; its labels speak the cells' spelling.
    desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
        const auto *picker = qobject_cast<TBColorPicker *>(dialog);
        const QString label = name == "Grey" ? "Gray" : name;
        QCOMPARE(picker->CurrentColorLabel->text(), label);
        QCOMPARE(picker->ColorLabel->text(), label);
        QCOMPARE(picker->CurrentColorBlock->grab().toImage().pixelColor(6, 6), color);
        dialog->reject();
    });
    giveFormatCommand(window, "FFontColor");
    QVERIFY(desktop.Dialogs.allCame());
}

void TestFormatting::pickerWithoutToolTips()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->DisplayTT->trigger();
    desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
        auto *picker = qobject_cast<TBColorPicker *>(dialog);
        clickBlock(picker, 3);
        QCOMPARE(picker->CurrentColorLabel->text(), QString());
        QCOMPARE(picker->ColorLabel->text(), QString());
        QTest::mouseClick(picker->Button1, Qt::LeftButton);
    });
    QTest::mouseClick(window->FontFormatTB->button("Color"), Qt::LeftButton);
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TBColorName, QString("Green"));
    QCOMPARE(window->TextBoard->ForeColor(), QColor(0, 128, 0));
    QCOMPARE(window->FontFormatTB->button("Color")->toolTip(), QString());
    window->DisplayTT->trigger();
    QVERIFY(window->FontFormatTB->button("Color")->toolTip().endsWith("Green)"));
}

void TestFormatting::pickerLeavesAnotherColour()
{
    const QColor another(1, 2, 3);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->SetColorFromDialog(FromColor(another));
    QCOMPARE(window->TBColorIndex, 0);
    QCOMPARE(window->TBColorName, QString("Black"));
    QCOMPARE(window->TextBoard->ForeColor(), another);
    desktop.Dialogs.dialog(PickerTitle, [&](QDialog *dialog) {
        auto *picker = qobject_cast<TBColorPicker *>(dialog);
        QCOMPARE(picker->CurrentColorBlock->grab().toImage().pixelColor(6, 6), another);
        QCOMPARE(picker->CurrentColorLabel->text(), QString("Black"));
        QTest::mouseClick(picker->Button1, Qt::LeftButton);
    });
    window->ShowColorPicker();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->ForeColor(), another);
}

void TestFormatting::fontDialog()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    for (const bool accepted : {false, true}) {
        desktop.Dialogs.dialog("Font", [&](QDialog *dialog) {
            auto *name = theOnly<QLineEdit>(dialog);
            QCOMPARE(name->text(), QString("Arial"));
            QTRY_VERIFY(name->hasFocus());
            QTest::keyClicks(name, "zt fo");
            auto *size = theOnly<QSpinBox>(dialog);
            QCOMPARE(size->value(), 18);
            size->setFocus();
            size->selectAll();
            QTest::keyClicks(size, "30");
            for (const char *style : {"Bold", "Strikeout"})
                QTest::mouseClick(theOnly<QCheckBox>(dialog, style), Qt::LeftButton, {}, {8, 8});
            auto *color = theOnly<QComboBox>(dialog);
            QCOMPARE(color->count(), 16);
            color->setFocus();
            QTest::keyClicks(color, "Gra");
            const auto button = accepted ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
            QTest::mouseClick(theOnly<QDialogButtonBox>(dialog)->button(button), Qt::LeftButton);
        });
        window->FormatFont->trigger();
        QVERIFY(desktop.Dialogs.allCame());
        const QFont font = window->TextBoard->document()->defaultFont();
        QCOMPARE(window->TBFontName, QString(accepted ? "Zt Four" : "Arial"));
        QCOMPARE(window->FontNameCombo->Text(), window->TBFontName);
        QCOMPARE(window->TextBoard->FontName(), window->TBFontName);
        QCOMPARE(window->FontSizeSlider->value(), accepted ? 30 : 18);
        QCOMPARE(window->CharButton->cellFont().pointSize(), accepted ? 30 : 18);
        QCOMPARE(font.bold() && font.strikeOut(), accepted);
        QVERIFY(!font.italic() && !font.underline());
        QCOMPARE(window->TBStyle, accepted ? (std::array{1, 0, 0, 1}) : (std::array{0, 0, 0, 0}));
        QCOMPARE(window->TextBoard->ForeColor(),
                 accepted ? QColor(128, 128, 128) : QColor(0, 0, 0));
        QCOMPARE(window->TBColorName, QString(accepted ? "Grey" : "Black"));
        if (accepted)
            QCOMPARE(window->focusWidget(), static_cast<QWidget *>(window->TextBoard));
    }
}

void TestFormatting::fontDialogKeepsAnotherColour()
{
    const QColor another(1, 2, 3);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->SetColorFromDialog(FromColor(another));
    desktop.Dialogs.dialog("Font", [&](QDialog *dialog) {
        QTest::keyClick(theOnly<QLineEdit>(dialog), Qt::Key_Return); // as it is
    });
    window->FormatFont->trigger();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->ForeColor(), another);
    QCOMPARE(window->TBFontName, QString("Arial"));
    QCOMPARE(window->FontSizeSlider->value(), 18);
}

void TestFormatting::formattingIsNoChangeOfTheText()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    QVERIFY(window->TextChanged);
    window->TextChanged = false; // as after saving
    QVERIFY(chooseFont(window, "Zt Bold Only"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "30"));
    for (const char *style : StyleButtons)
        QTest::mouseClick(window->FontFormatTB->button(style), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("CenterText"), Qt::LeftButton);
    desktop.Dialogs.dialog(PickerTitle, [](QDialog *dialog) {
        auto *picker = qobject_cast<TBColorPicker *>(dialog);
        clickBlock(picker, 3);
        QTest::mouseClick(picker->Button1, Qt::LeftButton);
    });
    QTest::mouseClick(window->FontFormatTB->button("Color"), Qt::LeftButton);
    desktop.Dialogs.dialog("Font", [](QDialog *dialog) { dialog->accept(); });
    window->FormatFont->trigger();
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!window->TextChanged);
    QCOMPARE(window->TextBoard->Text(), QString("ab"));
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestFormatting test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_formatting.moc"
