// What the views beside the board tell of the character under the mouse, and their switches. The
// hover handler looks texts up and sets them, nothing more.
#include "core/Zendova.h"

#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QSlider>

void Zendova::CharButton_MouseMove(int Index)
{
    if (FMHiLite->isChecked()) {
        const ColorValue fore = TextZoom->ForeColor(0);
        const ColorValue back = TextZoom->BackColor(0);
        if (LastCell != Index)
            CharButton->setColors(LastCell, fore, back);
        CharButton->setColors(Index, back, fore);
    }
    const CharTexts &texts = CharInfo.at(static_cast<std::size_t>(Index));
    if (ViewZoom->isChecked())
        TextZoom->setCaption(0, CharButton->Caption(Index));
    if (ViewCode->isChecked()) {
        AscCode->setText(texts[DecimalRow]);
        HexCode->setText(texts[HexRow]);
        OctCode->setText(texts[OctalRow]);
        BinCode->setText(texts[BinaryRow]);
    }
    if (ViewKS->isChecked())
        KS->setText(texts[KeystrokeRow]);
    LastCell = Index;
    CharButton->setActiveCell(Index);
}

QString Zendova::SpokenCell(int Index) const
{
    const CharTexts &texts = CharInfo.at(static_cast<std::size_t>(Index));
    QStringList spoken;
    for (const QString &text : {texts[DecimalRow], CharButton->Caption(Index), texts[KeystrokeRow]})
        if (!text.trimmed().isEmpty())
            spoken += text;
    return spoken.isEmpty() ? "Empty" : spoken.join(", ");
}

void Zendova::ZoomViewSet(bool On)
{
    ViewZoom->setChecked(On);
    ViewsTB->button("Zoom")->setChecked(On);
    ZoomSizeSlider->slider()->setEnabled(On);
    ZoomSizeSlider->setEditable(On);
    if (!On)
        TextZoom->setCaption(0, {});
    ZoomSizeSlider->showNumber(On ? QString::number(ZoomSizeSlider->value()) : "Off");
}

void Zendova::CodeViewSet(bool On)
{
    ViewCode->setChecked(On);
    ViewsTB->button("Code")->setChecked(On);
    for (QLabel *code : {AscCode, HexCode, OctCode, BinCode})
        code->setText(On ? "On" : "Off");
}

void Zendova::KeystrokeViewSet(bool On)
{
    ViewKS->setChecked(On);
    ViewsTB->button("KS")->setChecked(On);
    KS->setText(On ? "On" : "Off");
}

void Zendova::ViewZoom_Click()
{
    ZoomViewSet(ViewZoom->isChecked());
}

void Zendova::ViewCode_Click()
{
    CodeViewSet(ViewCode->isChecked());
}

void Zendova::ViewKS_Click()
{
    KeystrokeViewSet(ViewKS->isChecked());
}

void Zendova::ViewAll_Click()
{
    const bool on = ViewAll->isChecked();
    ZoomViewSet(on);
    CodeViewSet(on);
    KeystrokeViewSet(on);
}

void Zendova::SetZoomSize(int Size)
{
    QFont font = TextZoom->cellFont();
    font.setPointSize(Size);
    TextZoom->setCellFont(font);
    if (ViewZoom->isChecked())
        ZoomSizeSlider->showNumber(QString::number(Size));
}

void Zendova::OfferView(const QContextMenuEvent &Event)
{
    QAction *command = ViewZoom;
    const QPoint at = ViewsContainer->mapFromGlobal(Event.globalPos());
    for (const auto &[cover, ofCover] : {std::pair("CVACover", ViewCode), {"KVACover", ViewKS}}) {
        const QWidget *area = Control(cover);
        if (area->rect().contains(area->mapFrom(ViewsContainer, at)))
            command = ofCover;
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->installEventFilter(this); // for the key of the help
    menu->addAction(command);
    menu->popup(Event.globalPos());
}
