// The format of the board in a test: another one as a person gives it, and all that is seen of it.
#pragma once

#include "tests/support/MainWindow.h"

#include <cmath>

constexpr const char *FirstFormat = "Arial 18 - left #000000 Black";

inline void giveFormat(Zendova *window)
{
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "30"));
    for (const char *style : {"Bold", "Italic", "Underline", "Strikethrough"})
        QTest::mouseClick(window->FontFormatTB->button(style), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("AlignRight"), Qt::LeftButton);
    window->SetColorFromDialog(RGBValue(255, 0, 0));
}

/// The board's font, size, styles, alignment and colour, the name of the colour, and the controls
/// that show something else.
inline QString formatOf(const Zendova *window)
{
    const ::TextBoard *board = window->TextBoard;
    QString styles;
    QString others;
    const auto check = [&others](const char *control, bool same) {
        others += same ? QString() : QString(" but not ") + control;
    };
    using Style = bool (::TextBoard::*)() const;
    for (const auto &[key, get] : {std::pair("Bold", Style(&::TextBoard::FontBold)),
                                   {"Italic", &::TextBoard::FontItalic},
                                   {"Underline", &::TextBoard::FontUnderline},
                                   {"Strikethrough", &::TextBoard::FontStrikethru}}) {
        styles += (board->*get)() ? QString(key).left(1).toLower() : QString();
        check(key, window->FontFormatTB->button(key)->isChecked() == (board->*get)());
    }
    int place = 0;
    for (const char *key : {"AlignLeft", "AlignRight", "CenterText"})
        check(key,
              window->TextAlignTB->button(key)->isChecked() == (place++ == board->Alignment()));
    const int points = static_cast<int>(std::nearbyint(board->FontSize()));
    check("picker", window->FontNameCombo->Text() == board->FontName());
    check("number", window->FontSizeSlider->number()->text().toInt() == points);
    check("map", window->FMapContainer->CharButton->cellFont().pointSize() == points);
    return QString("%1 %2 %3 %4 %5 %6")
               .arg(board->FontName())
               .arg(board->FontSize())
               .arg(styles.isEmpty() ? "-" : styles,
                    QStringList{"left", "right", "centre"}[board->Alignment()],
                    board->ForeColor().name(), window->Format.TBColorName) +
           others;
}
