// What the views show of a character, and their switches. The hover handler sets texts, nothing
// more.
#include "fontmap/Views.h"

#include "platform/controls/CharCells.h"
#include "platform/controls/Toolbar.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFrame>
#include <QLabel>
#include <QSlider>

namespace {

constexpr ControlRow Rows[] = {
    {"ZSzContainer", "ViewsContainer", {0, -90, 2010, 2460}, "", "Zoom View"},
    {"ViewsTB", "ZSzContainer", {30, 120, 1920, 330}, "", "Views"},
    {"TextZoom", "ZSzContainer", {0, 450, 2010, 2010}, "Zoom View Area"},
    {"CVAContainer", "ViewsContainer", {0, 2310, 2010, 1485}, "", "Code and Keystroke Views"},
    {"ZoomSizeLabel", "CVAContainer", {30, 135, 1005, 240}},
    {"ZoomSizeNumber", "CVAContainer", {1065, 135, 255, 240}, "Zoom Size (Click to Change)"},
    {"ZoomSizeEdit", "CVAContainer", {1050, 105, 300, 285}, "Enter zoom size"},
    // Only so wide, for there the container ends.
    {"ZoomSizeSlider", "CVAContainer", {1335, 135, 675, 270}},
    {"CVACover", "CVAContainer", {0, 420, 2010, 720}, "Code View Area"},
    {"ASCLabel", "CVAContainer", {1080, 480, 450, 180}},
    {"AscCode", "CVAContainer", {1560, 480, 420, 180}},
    {"HexLabel", "CVAContainer", {1080, 675, 450, 180}},
    {"HexCode", "CVAContainer", {1560, 675, 420, 180}},
    {"OctLabel", "CVAContainer", {1080, 870, 450, 180}},
    {"OctCode", "CVAContainer", {1560, 870, 420, 180}},
    {"BinLabel", "CVAContainer", {60, 585, 1005, 180}},
    {"BinCode", "CVAContainer", {60, 765, 1005, 180}},
    {"KVACover", "CVAContainer", {0, 1140, 2010, 315}, "Keystroke View Area"},
    {"KSLabel", "CVAContainer", {30, 1185, 975, 240}},
    {"KS", "CVAContainer", {1065, 1185, 945, 240}},
};

using enum Toolbar::Kind;

constexpr ButtonRow<Views> Buttons[] = {
    {&Views::ViewsTB,
     {"VCLeft", "VCLeft", "Views on the Left", Check},
     [](Views &views) { emit views.SideWanted("L"); }},
    {&Views::ViewsTB, {"", "", ""}},
    {&Views::ViewsTB,
     {"Zoom", "Zoom", "Zoom View On/Off", Check},
     [](Views &views) { views.ZoomViewSet(views.ViewsTB->button("Zoom")->isChecked()); }},
    {&Views::ViewsTB,
     {"Code", "Code", "Code View On/Off", Check},
     [](Views &views) { views.CodeViewSet(views.ViewsTB->button("Code")->isChecked()); }},
    {&Views::ViewsTB,
     {"KS", "KS", "Keystroke View On/Off", Check},
     [](Views &views) { views.KeystrokeViewSet(views.ViewsTB->button("KS")->isChecked()); }},
    {&Views::ViewsTB, {"", "", ""}},
    {&Views::ViewsTB,
     {"VCRight", "VCRight", "Views on the Right", Check},
     [](Views &views) { emit views.SideWanted("R"); }},
};

} // namespace

Views::Views(const TwipScale &scale, QWidget *parent)
    : QWidget(parent), Form(Rows, "ViewsContainer", this, scale)
{
    createControls(scale);
    connectControls();
}

void Views::createControls(const TwipScale &scale)
{
    ZSzContainer = Form.Make<QWidget>("ZSzContainer");
    ViewsTB = Form.Make<Toolbar>("ViewsTB");
    ViewsTB->setContextMenuPolicy(Qt::PreventContextMenu); // a press on it is for no view
    AddButtons(*this, Buttons);
    TextZoom = new CharCells(1, ZSzContainer);
    Form.Adopt(TextZoom, "TextZoom");
    TextZoom->setScale(scale);
    TextZoom->setPlaces({{0, 0, 2010, 2010}});

    CVAContainer = Form.Make<QWidget>("CVAContainer");
    QLabel *sizeLabel = Form.MakeLabel("ZoomSizeLabel", "Zoom Size:", Qt::AlignLeft);
    ZoomSizeSlider =
        Form.MakeNumberSlider({"ZoomSizeSlider", "ZoomSizeNumber", "ZoomSizeEdit", "Set Zoom Size"},
                              8, 72, NumberSlider::NoNumber::CountsZero);
    sizeLabel->setBuddy(ZoomSizeSlider->slider());
    ZoomSizeSlider->slider()->setPageStep(5);
    for (const char *cover : {"CVACover", "KVACover"})
        Form.Make<QFrame>(cover)->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    // The mouse over a text is over its cover, whose tooltip tells what it is.
    const auto text = [this](const char *name, const QString &shown, Qt::Alignment alignment) {
        QLabel *label = Form.MakeLabel(name, shown, alignment);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        return label;
    };
    text("ASCLabel", "Dec:", Qt::AlignLeft);
    AscCode = text("AscCode", {}, Qt::AlignLeft);
    text("HexLabel", "Hex:", Qt::AlignLeft);
    HexCode = text("HexCode", {}, Qt::AlignLeft);
    text("OctLabel", "Oct:", Qt::AlignLeft);
    OctCode = text("OctCode", {}, Qt::AlignLeft);
    text("BinLabel", "Bin", Qt::AlignHCenter);
    BinCode = text("BinCode", {}, Qt::AlignHCenter);
    text("KSLabel", "Keystroke:", Qt::AlignLeft);
    KS = text("KS", {}, Qt::AlignLeft);
    KS->setTextFormat(Qt::PlainText);

    ViewZoom = ControlTable::MakeCommand(this, "ViewZoom");
    ViewCode = ControlTable::MakeCommand(this, "ViewCode");
    ViewKS = ControlTable::MakeCommand(this, "ViewKS");
    ViewAll = ControlTable::MakeCommand(this, "ViewAll");
}

void Views::connectControls()
{
    connect(ZoomSizeSlider, &NumberSlider::ValueChanged, this, &Views::SetZoomSize);
    connect(ZoomSizeSlider, &NumberSlider::Scrolled, this, &Views::FocusFree);
    connect(ZoomSizeSlider, &NumberSlider::Finished, this, &Views::FocusFree);
    connect(ViewZoom, &QAction::triggered, this, &Views::ViewZoom_Click);
    connect(ViewCode, &QAction::triggered, this, &Views::ViewCode_Click);
    connect(ViewKS, &QAction::triggered, this, &Views::ViewKS_Click);
    connect(ViewAll, &QAction::triggered, this, &Views::ViewAll_Click);
}

void Views::SetScale(const TwipScale &scale)
{
    Form.setScale(scale);
    TextZoom->setScale(scale);
}

void Views::ShowCharacter(const QString &caption, const CharTexts &texts)
{
    if (ViewZoom->isChecked())
        TextZoom->setCaption(0, caption);
    if (ViewCode->isChecked()) {
        AscCode->setText(texts[DecimalRow]);
        HexCode->setText(texts[HexRow]);
        OctCode->setText(texts[OctalRow]);
        BinCode->setText(texts[BinaryRow]);
    }
    if (ViewKS->isChecked())
        KS->setText(texts[KeystrokeRow]);
}

void Views::ZoomViewSet(bool On)
{
    ViewZoom->setChecked(On);
    ViewsTB->button("Zoom")->setChecked(On);
    ZoomSizeSlider->slider()->setEnabled(On);
    ZoomSizeSlider->setEditable(On);
    if (!On)
        TextZoom->setCaption(0, {});
    ZoomSizeSlider->showNumber(On ? QString::number(ZoomSizeSlider->value()) : "Off");
}

void Views::CodeViewSet(bool On)
{
    ViewCode->setChecked(On);
    ViewsTB->button("Code")->setChecked(On);
    for (QLabel *code : {AscCode, HexCode, OctCode, BinCode})
        code->setText(On ? "On" : "Off");
}

void Views::KeystrokeViewSet(bool On)
{
    ViewKS->setChecked(On);
    ViewsTB->button("KS")->setChecked(On);
    KS->setText(On ? "On" : "Off");
}

void Views::ViewZoom_Click()
{
    ZoomViewSet(ViewZoom->isChecked());
}

void Views::ViewCode_Click()
{
    CodeViewSet(ViewCode->isChecked());
}

void Views::ViewKS_Click()
{
    KeystrokeViewSet(ViewKS->isChecked());
}

void Views::ViewAll_Click()
{
    const bool on = ViewAll->isChecked();
    ZoomViewSet(on);
    CodeViewSet(on);
    KeystrokeViewSet(on);
}

void Views::SetZoomSize(int Size)
{
    QFont font = TextZoom->cellFont();
    font.setPointSize(Size);
    TextZoom->setCellFont(font);
    if (ViewZoom->isChecked())
        ZoomSizeSlider->showNumber(QString::number(Size));
}

void Views::ShowSide(const QString &Side)
{
    ViewsTB->button("VCLeft")->setChecked(Side != "R");
    ViewsTB->button("VCRight")->setChecked(Side == "R");
}

void Views::contextMenuEvent(QContextMenuEvent *event)
{
    QAction *command = ViewZoom;
    const QPoint at = mapFromGlobal(event->globalPos());
    for (const auto &[cover, ofCover] : {std::pair("CVACover", ViewCode), {"KVACover", ViewKS}}) {
        const QWidget *area = Form.Control(cover);
        if (area->rect().contains(area->mapFrom(this, at)))
            command = ofCover;
    }
    emit MenuWanted(command, event->globalPos());
}

void Views::wheelEvent(QWheelEvent *event)
{
    const QPoint at = TextZoom->mapFrom(this, event->position().toPoint());
    if (!WheelSteps::isMeant(*event) || !ViewZoom->isChecked() || !TextZoom->rect().contains(at)) {
        event->ignore();
        return;
    }
    if (const int steps = Wheel.take(*event))
        ZoomSizeSlider->setValue(ZoomSizeSlider->value() + steps);
    event->accept();
}
