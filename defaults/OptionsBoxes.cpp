// The boxes and options of the window: one row each with the value behind it, by which they are
// made and by which all controls take the values.
#include "defaults/Options.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>

namespace {

struct BoxRow
{
    const char *Name;
    const char *Caption;
    bool OptionValues::*Value;
};
using V = OptionValues;

constexpr BoxRow Boxes[] = {
    {"OFFontBold", "Bold", &V::Bold},
    {"OFFontItalic", "Italic", &V::Italic},
    {"OFFontUnderline", "Underline", &V::Underline},
    {"OFFontStrikethrough", "Strikethrough", &V::Strikeout},
    {"OOptMaxTB", "Maximize TextBoard when space permits", &V::MaximizeTB},
    {"OFMapBorders", "Show Grid", &V::Borders},
    {"OFMapHilite", "Show Highlight", &V::Hilite},
    {"ochkInitMap", "Startup Custom FontMap:", &V::InitMap},
    {"OViewZoom", "Zoom View", &V::Zoom},
    {"OViewCode", "Code View", &V::Code},
    {"OViewKS", "Keystroke View", &V::KeyStroke},
    {"ODisplayCD", "\"Text Copied to Clipboard\" Confirmation", &V::CopyDialog},
    {"ODisplayEW", "\"Discard Text and Exit\" Warning", &V::ExitWarning},
    {"ODisplayOW", "TextBoard (if unchanged) Unload/Overwrite Warning", &V::OverwriteWarning},
    {"ODisplayCS", "Use FontMap colors for all dialogs", &V::ColorScheme},
    {"ODisplayTT", "Show ToolTips", &V::ToolTips},
};

/// One of several that exclude one another.
struct ChoiceRow
{
    const char *Name;
    const char *Caption;
    bool (*IsChosen)(const OptionValues &);
    void (*Choose)(OptionValues &);
};

template<auto Value, auto Choice>
constexpr ChoiceRow choice(const char *name, const char *caption)
{
    return {name, caption, [](const OptionValues &v) { return v.*Value == Choice; },
            [](OptionValues &v) { v.*Value = Choice; }};
}

constexpr ChoiceRow Choices[] = {
    choice<&V::Alignment, 0>("OAlign0", "Left"),
    choice<&V::Alignment, 1>("OAlign1", "Right"),
    choice<&V::Alignment, 2>("OAlign2", "Center"),
    choice<&V::ViewsOnRight, false>("OVCOnL", "On Left"),
    choice<&V::ViewsOnRight, true>("OVCOnR", "On Right"),
    choice<&V::ShiftDir, 0>("ooptShiftDir0", "Move Map highlight Horizontally"),
    choice<&V::ShiftDir, 1>("ooptShiftDir1", "Move Map highlight Vertically"),
    choice<&V::TXTLoadSet, true>("OOptLoadTD1", "Using Default Settings"),
    choice<&V::TXTLoadSet, false>("OOptLoadTD2", "Using Current Settings"),
    choice<&V::ZUFUnLoadSet, true>("OOptUnloadTD1", "Restore Default Settings"),
    choice<&V::ZUFUnLoadSet, false>("OOptUnloadTD2", "Keep Current Settings"),
};

} // namespace

void Options::createBoxes()
{
    for (const BoxRow &row : Boxes) {
        auto *box = Form.Make<QCheckBox>(row.Name, row.Caption);
        box->setAccessibleName(row.Caption);
        connect(box, &QCheckBox::toggled, this, [this, value = row.Value](bool on) {
            Values.*value = on;
            showSamples();
        });
    }
    for (const ChoiceRow &row : Choices) {
        auto *button = Form.Make<QRadioButton>(row.Name, row.Caption);
        button->setAccessibleName(row.Caption); // the tags of two are each other's
        connect(button, &QRadioButton::toggled, this, [this, choose = row.Choose](bool on) {
            if (on)
                choose(Values);
            showSamples();
        });
    }
}

QAbstractButton *Options::button(const char *name) const
{
    return static_cast<QAbstractButton *>(Form.Control(name));
}

void Options::showValues()
{
    for (const BoxRow &row : Boxes) {
        const QSignalBlocker silent(button(row.Name));
        button(row.Name)->setChecked(Values.*row.Value);
    }
    for (const ChoiceRow &row : Choices) {
        const QSignalBlocker silent(button(row.Name));
        button(row.Name)->setChecked(row.IsChosen(Values));
    }
    const QSignalBlocker noFontSize(OFontSizeSlider);
    OFontSizeSlider->setValue(Values.FontSize);
    const QSignalBlocker noZoomSize(OZoomSizeSlider);
    OZoomSizeSlider->setValue(Values.ZoomSize);
    const QSignalBlocker noText(oSampleText);
    oSampleText->setText(Values.SampleText);
    const QSignalBlocker noStrip(OCharButtonScroll);
    OCharButtonScroll->setValue(Values.OFMapStart);
    showStrip();
    showSamples();
}
