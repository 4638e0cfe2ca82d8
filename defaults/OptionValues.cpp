// The table of the options, and the rules about their values.
#include "defaults/OptionValues.h"

#include "textboard/QBColors.h"

#include <algorithm>

namespace {

void assign(QString &text, const WrittenValue &value)
{
    text = std::get<QString>(value);
}
void assign(int &number, const WrittenValue &value)
{
    number = std::get<qint32>(value);
}
void assign(bool &truth, const WrittenValue &value)
{
    const auto *number = std::get_if<qint32>(&value);
    truth = number ? *number != 0 : std::get<bool>(value);
}

/// A row of the value that these members lead to.
template<auto... Path>
constexpr OptionRow in(QStringView key, QStringView name)
{
    return {key, name, [](const OptionValues &v) -> WrittenValue { return (v.*....*Path); },
            [](OptionValues &v, const WrittenValue &value) { assign((v.*....*Path), value); }};
}

/// A row of a truth value that is written as 0 or 1.
template<auto Value>
constexpr OptionRow asDigit(QStringView key, QStringView name)
{
    OptionRow row = in<Value>(key, name);
    row.Get = [](const OptionValues &v) -> WrittenValue { return v.*Value ? 1 : 0; };
    return row;
}

using V = OptionValues;
constexpr auto Fore = &V::Fore;
constexpr auto Back = &V::Back;

constexpr OptionRow Rows[] = {
    in<&V::FontName>(u"TextBoard", u"FontName"),
    in<&V::FontSize>(u"TextBoard", u"FontSize"),
    asDigit<&V::Bold>(u"TextBoard", u"Bold"),
    asDigit<&V::Italic>(u"TextBoard", u"Italic"),
    asDigit<&V::Underline>(u"TextBoard", u"Underline"),
    asDigit<&V::Strikeout>(u"TextBoard", u"Strikeout"),
    in<&V::Alignment>(u"TextBoard", u"Alignment"),
    in<&V::TBColorIndex>(u"TextBoard", u"FontColorIndex"),
    in<&V::TBColorName>(u"TextBoard", u"FontColorName"),
    in<Fore, &ColorRecord::Color>(u"FontMap", u"ForeColor"),
    in<Back, &ColorRecord::Color>(u"FontMap", u"BackColor"),
    in<Fore, &ColorRecord::ColorIndex>(u"FontMap", u"ForeColorIndex"),
    in<Back, &ColorRecord::ColorIndex>(u"FontMap", u"BackColorIndex"),
    in<Fore, &ColorRecord::ColorName>(u"FontMap", u"ForeColorName"),
    in<Back, &ColorRecord::ColorName>(u"FontMap", u"BackColorName"),
    in<Fore, &ColorRecord::PaletteRef>(u"FontMap", u"ForePaletteRef"),
    in<Back, &ColorRecord::PaletteRef>(u"FontMap", u"BackPaletteRef"),
    asDigit<&V::Hilite>(u"FontMap", u"Hilite"), // a text all the same
    asDigit<&V::Borders>(u"FontMap", u"Borders"),
    in<&V::InitMap>(u"FontMap", u"InitMap"),
    in<&V::InitMapPath>(u"FontMap", u"InitMapPath"),
    in<&V::Zoom>(u"Views", u"Zoom"),
    in<&V::Code>(u"Views", u"Code"),
    in<&V::KeyStroke>(u"Views", u"KeyStroke"),
    in<&V::ZoomSize>(u"Views", u"ZoomSize"),
    in<&V::OFMapStart>(u"Options", u"OFMapStart"),
    in<&V::ZoomedLetter>(u"Options", u"ZoomedLetter"),
    in<&V::TXTLoadSet>(u"Options", u"TXTLoadSet"),
    in<&V::ZUFUnLoadSet>(u"Options", u"ZUFUnLoadSet"),
    in<&V::MaximizeTB>(u"Options", u"MaximizeTB"),
    in<&V::CopyDialog>(u"Options", u"CopyDialog"),
    in<&V::ExitWarning>(u"Options", u"ExitWarning"),
    in<&V::OverwriteWarning>(u"Options", u"OverwriteWarning"),
    in<&V::ColorScheme>(u"Options", u"ColorScheme"),
    in<&V::ToolTips>(u"Options", u"ToolTips"),
    {u"Options", u"VCPosition",
     [](const V &v) -> WrittenValue { return QString(v.ViewsOnRight ? u'R' : u'L'); },
     [](V &v, const WrittenValue &value) { v.ViewsOnRight = std::get<QString>(value) == u"R"; }},
    in<&V::ShiftDir>(u"CFMEditor", u"ShiftDir"),
    in<&V::SampleText>(u"FB", u"SampleText"),
};

} // namespace

std::span<const OptionRow> OptionRows()
{
    return Rows;
}

OptionValues Sensible(OptionValues values)
{
    using namespace OptionLimits;
    const auto within = [](int value, int least, int most) {
        return least <= value && value <= most;
    };
    values.FontSize = std::clamp(values.FontSize, LeastSize, MostFontSize);
    values.ZoomSize = std::clamp(values.ZoomSize, LeastSize, MostZoomSize);
    if (!within(values.Alignment, 0, 2))
        values.Alignment = 0;
    if (!within(values.TBColorIndex, 0, QBColorCount - 1)) {
        values.TBColorIndex = 0;
        values.TBColorName = QBColorName(0);
    }
    for (ColorRecord *record : {&values.Fore, &values.Back})
        record->PaletteRef = std::clamp(record->PaletteRef, 0, 2);
    if (!within(values.ZoomedLetter, 33, 255))
        values.ZoomedLetter = 64; // and not the 65 that a repair writes
    if (!within(values.OFMapStart, FirstStripCode, LastStripCode))
        values.OFMapStart = 60;
    if (values.ShiftDir != 1)
        values.ShiftDir = 0;
    values.SampleText.truncate(LongestSampleText);
    return values;
}

OptionSnapshot TakeSnapshot(const OptionValues &v)
{
    const bool down = v.ShiftDir == 1;
    return {v.FontName,
            v.FontSize,
            v.Bold,
            v.Italic,
            v.Underline,
            v.Strikeout,
            v.TBColorIndex,
            v.Alignment,
            v.MaximizeTB,
            v.Fore.ColorIndex,
            v.Back.ColorIndex,
            v.InitMap,
            v.InitMapCaption,
            v.Hilite,
            v.Borders,
            v.Zoom,
            v.Code,
            v.KeyStroke,
            !v.ViewsOnRight,
            v.ViewsOnRight,
            v.ZoomSize,
            v.CopyDialog,
            v.ExitWarning,
            v.OverwriteWarning,
            v.ColorScheme,
            v.SampleText,
            !down,
            down,
            v.TXTLoadSet,
            !v.TXTLoadSet,
            v.ZUFUnLoadSet,
            !v.ZUFUnLoadSet,
            v.ToolTips};
}
