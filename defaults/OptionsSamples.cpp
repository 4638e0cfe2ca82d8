// What the window shows of its values: the sample of the board, the colours and their names, the
// zoomed letter and the strip of the map. All of it is brought into line after every change.
#include "defaults/Options.h"

#include "core/GlobalDeclarations.h"
#include "defaults/PaletteTables.h"
#include "fontmap/CharInfo.h"
#include "platform/CodePage.h"
#include "platform/FileName.h"
#include "platform/FontCatalog.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/ElidedLabel.h"
#include "textboard/TextBoard.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <algorithm>

void Options::showSamples()
{
    OCurrentFont->setWholeText(Values.FontName);
    OFontSizeSlider->showNumber(QString::number(Values.FontSize));
    OZoomSizeSlider->showNumber(QString::number(Values.ZoomSize));
    showTextSample();
    showMapSamples();
    olblInitMap->setWholeText(FileName::shown(Values.InitMapCaption));
    olblInitMap->setEnabled(Values.InitMap);
    ocmdInitMap->setEnabled(Values.InitMap);
    ShowOptionTips();
}

void Options::showTextSample()
{
    {
        const TextBoard::FontChange inOneGo(*OTBSample);
        OTBSample->setFontName(Values.FontName);
        OTBSample->setFontSize(Values.FontSize);
        OTBSample->setFontBold(Values.Bold);
        OTBSample->setFontItalic(Values.Italic);
        OTBSample->setFontUnderline(Values.Underline);
        OTBSample->setFontStrikethru(Values.Strikeout);
    }
    OTBSample->setAlignment(Values.Alignment);
    OTBSample->setForeColor(ToColor(TextColor, QGuiApplication::palette()));
    SetBackColor(OTBFColor, TextColor);
    OTBFColorName->setWholeText(Values.TBColorName);
}

void Options::showMapSamples()
{
    const ColorRecord &fore = Values.Fore;
    const ColorRecord &back = Values.Back;
    SetBackColor(OFMapFColor, fore.Color);
    SetBackColor(OFMapBColor, back.Color);
    OFMFPalName->setText(PaletteName(fore.PaletteRef));
    OFMBPalName->setText(PaletteName(back.PaletteRef));
    OFMFColorName->setWholeText(fore.ColorName);
    OFMBColorName->setWholeText(back.ColorName);

    QFont face = FontCatalog::current().font(Values.FontName);
    face.setPointSize(Values.FontSize);
    OCharButton->setCellFont(face);
    face.setPointSize(Values.ZoomSize);
    OTextZoom->setCellFont(face);
    OTextZoom->setColors(0, fore.Color, back.Color);
    OTextZoom->setCaption(0, CharacterOf(Values.ZoomedLetter));
    for (int cell = 0; cell < OCharButton->count(); ++cell) {
        OCharButton->setColors(cell, fore.Color, back.Color);
        OCharButton->setBorderStyle(cell, Values.Borders ? 1 : 0);
    }
}

void Options::showStrip()
{
    for (int cell = 0; cell < OCharButton->count(); ++cell)
        OCharButton->setCaption(cell, CharacterOf(Values.OFMapStart + cell));
    OCharButtonStart->setText(QString::number(Values.OFMapStart));
    OCharButtonEnd->setText(QString::number(Values.OFMapStart + OCharButton->count() - 1));
    placeBox();
}

/// Round the cell of the zoomed letter, if that is in the strip.
void Options::placeBox()
{
    const int cell = Values.ZoomedLetter - Values.OFMapStart;
    const bool shown = cell >= 0 && cell < OCharButton->count();
    if (shown) {
        TwipRect box = Form.rect(CharButtonBox);
        box.Left = OCharButton->place(cell).Left + 30;
        box.Top = OCharButton->place(cell).Top + 30;
        Form.place(CharButtonBox, box);
    }
    CharButtonBox->setVisible(shown);
    OCharButton->setActiveCell(shown ? cell : -1);
}

void Options::OCharButtonScroll_Change()
{
    Values.OFMapStart = OCharButtonScroll->value();
    showStrip();
}

void Options::OCharButton_Click(int Index)
{
    zoomCode(Values.OFMapStart + Index);
}

void Options::zoomCode(int code)
{
    Values.ZoomedLetter = code;
    OTextZoom->setCaption(0, CharacterOf(code));
    placeBox();
}

void Options::OCharButton_MouseMove(int Index)
{
    if (!Values.Hilite)
        return;
    OCharButton->setColors(HighlightedCell, Values.Fore.Color, Values.Back.Color);
    OCharButton->setColors(Index, Values.Back.Color, Values.Fore.Color);
    HighlightedCell = Index;
}

bool Options::event(QEvent *event)
{
    // The swatches keep their colours, which may be the desktop's.
    if (event->type() == QEvent::PaletteChange && cmdOK)
        showSamples();
    return FormDialog::event(event);
}

void Options::keyPressEvent(QKeyEvent *event)
{
    const bool turns = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (turns && event->modifiers() & Qt::ControlModifier)
        QCoreApplication::sendEvent(SSTabOption, event);
    else
        FormDialog::keyPressEvent(event);
}

bool Options::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == oSampleText)
        return sampleTextEvent(event);
    // What the mouse does by a click on a letter the keyboard does by typing it.
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
        const bool types = !(key->modifiers() & commands) && key->key() != Qt::Key_Delete;
        const QString typed = types ? key->text() : QString();
        const auto code =
            typed.isEmpty() ? std::nullopt : CodePage::toCode(typed.front().unicode());
        if (code && *code >= OptionLimits::FirstStripCode) {
            const int first = *code - OCharButton->count() + 1;
            OCharButtonScroll->setValue(std::clamp<int>(Values.OFMapStart, first, *code));
            zoomCode(*code);
            return true;
        }
    }
    return FormDialog::eventFilter(watched, event);
}

void Options::dropBlankSample()
{
    if (oSampleText->text().trimmed().isEmpty())
        oSampleText->clear();
}

bool Options::sampleTextEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress: // Esc in a text box closes nothing
        return static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    case QEvent::MouseButtonRelease:
        if (!oSampleText->hasSelectedText()) // and nothing was selected by dragging
            oSampleText->selectAll();
        return false;
    case QEvent::FocusOut:
        dropBlankSample();
        return false;
    default:
        return false;
    }
}
