// The rows, and the ways from a row to where its value lives.
#include "core/SettingsTable.h"

#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"
#include "core/Zendova.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QLabel>
#include <algorithm>

namespace {

using Type = Setting::Type;
using enum Setting::Type;

QString textOf(const WrittenValue &value)
{
    return std::get<QString>(value);
}
qint32 numberOf(const WrittenValue &value)
{
    return std::get<qint32>(value);
}
bool truthOf(const WrittenValue &value)
{
    return std::get<bool>(value);
}

// What a value may live in.

WrittenValue valueOf(const QString &text)
{
    return text;
}
WrittenValue valueOf(const int &number)
{
    return number;
}
WrittenValue valueOf(const bool &truth)
{
    return truth;
}
WrittenValue valueOf(const double &twips)
{
    return qRound(twips);
}
WrittenValue valueOf(const QAction *item)
{
    return item->isChecked();
}

void assign(QString &text, const WrittenValue &value)
{
    text = textOf(value);
}
void assign(int &number, const WrittenValue &value)
{
    number = numberOf(value);
}
void assign(bool &truth, const WrittenValue &value)
{
    truth = truthOf(value);
}
void assign(QAction *item, const WrittenValue &value)
{
    item->setChecked(truthOf(value));
}

/// Follows members from the window on: of the window, then of what that member is or points to.
template<class Object>
auto &reach(Object &object)
{
    return object;
}
template<class Object, class Member, class... Further>
auto &reach(Object &object, Member member, Further... further)
{
    if constexpr (std::is_pointer_v<Object>)
        return reach(object->*member, further...);
    else
        return reach(object.*member, further...);
}

/// A row whose value lives in a member.
template<auto... Path>
constexpr Setting in(QStringView key, QStringView name, Type kind, decltype(Setting::Default) value,
                     int writeOrder = 0)
{
    return {key,
            name,
            kind,
            value,
            [](const Zendova &z) { return valueOf(reach(z, Path...)); },
            [](Zendova &z, const WrittenValue &v) { assign(reach(z, Path...), v); },
            writeOrder};
}

/// A row of the width of a band, in twips.
template<int Band, auto... Bar>
constexpr Setting bandWidth(QStringView name, qint32 width)
{
    return {
        u"Bars",
        name,
        Number,
        width,
        [](const Zendova &z) -> WrittenValue { return qRound(reach(z, Bar...)->bandWidth(Band)); },
        [](Zendova &z, const WrittenValue &v) {
            reach(z, Bar...)->setBandWidth(Band, numberOf(v));
        }};
}

/// A row of one of the four styles: any number that is not 0 is a wish.
template<std::size_t Style>
constexpr Setting style(QStringView name)
{
    return {u"TextBoard",
            name,
            Number,
            0,
            [](const Zendova &z) -> WrittenValue { return z.Format.TBStyle[Style]; },
            [](Zendova &z, const WrittenValue &v) {
                z.Format.TBStyle[Style] = numberOf(v) != 0 ? 1 : 0;
            }};
}

constexpr auto Format = &Zendova::Format;
constexpr auto Folders = &Zendova::Folders;
constexpr auto CustomMap = &Zendova::CustomMap;
constexpr auto Map = &Zendova::FMapContainer;
constexpr auto TheViews = &Zendova::ViewsContainer;
constexpr auto Fore = &FontMap::Fore;
constexpr auto Back = &FontMap::Back;
constexpr std::monostate Elsewhere; ///< the default is not the table's

constexpr Setting Rows[] = {
    {u"", u"MV", Number, 300},
    {u"", u"SV", Number, 2},

    in<Format, &BoardFormat::TBFontName>(u"TextBoard", u"FontName", Text, u"Arial"),
    {u"TextBoard", u"FontSize", Number, Elsewhere,
     [](const Zendova &z) -> WrittenValue { return z.FontSizeSlider->number()->text().toInt(); },
     [](Zendova &z, const WrittenValue &v) { z.FontSizeSlider->setValue(numberOf(v)); }},
    style<0>(u"Bold"),
    style<1>(u"Italic"),
    style<2>(u"Underline"),
    style<3>(u"Strikeout"),
    {u"TextBoard", u"Alignment", Number, 0,
     [](const Zendova &z) -> WrittenValue { return z.TextBoard->Alignment(); },
     [](Zendova &z, const WrittenValue &v) { z.TextBoard->setAlignment(numberOf(v)); }},
    in<Format, &BoardFormat::TBColorIndex>(u"TextBoard", u"FontColorIndex", Number, 0),
    in<Format, &BoardFormat::TBColorName>(u"TextBoard", u"FontColorName", Text, u"Black"),

    {u"Last", u"FormTop", Number, Elsewhere, [](const Zendova &z) { return valueOf(z.FormTop()); },
     [](Zendova &z, const WrittenValue &v) { z.SetFormPosition(z.FormLeft(), numberOf(v)); }},
    {u"Last", u"FormLeft", Number, Elsewhere,
     [](const Zendova &z) { return valueOf(z.FormLeft()); },
     [](Zendova &z, const WrittenValue &v) { z.SetFormPosition(numberOf(v), z.FormTop()); }},
    {u"Last", u"FormHeight", Number, Elsewhere,
     [](const Zendova &z) { return valueOf(z.FormHeight()); },
     [](Zendova &z, const WrittenValue &v) { z.SavedFormHeight = numberOf(v); }},
    {u"Last", u"FormWidth", Number, Elsewhere,
     [](const Zendova &z) { return valueOf(z.FormWidth()); },
     [](Zendova &z, const WrittenValue &v) { z.SavedFormWidth = numberOf(v); }},
    in<Folders, &LastFolders::LFLoadPath>(u"Last", u"LFLoadPath", Text, Elsewhere),
    in<Folders, &LastFolders::LFSavePath>(u"Last", u"LFSavePath", Text, Elsewhere),
    bandWidth<0, &Zendova::CoolBarCM>(u"MainBand1Wdth", MainBandWidths[0]),
    bandWidth<1, &Zendova::CoolBarCM>(u"MainBand2Wdth", MainBandWidths[1]),
    bandWidth<2, &Zendova::CoolBarCM>(u"MainBand3Wdth", MainBandWidths[2]),
    bandWidth<3, &Zendova::CoolBarCM>(u"MainBand4Wdth", MainBandWidths[3]),
    bandWidth<0, &Zendova::CoolBarTB>(u"TBBand1Wdth", TBBandWidths[0]),
    bandWidth<1, &Zendova::CoolBarTB>(u"TBBand2Wdth", TBBandWidths[1]),
    bandWidth<2, &Zendova::CoolBarTB>(u"TBBand3Wdth", TBBandWidths[2]),
    bandWidth<3, &Zendova::CoolBarTB>(u"TBBand4Wdth", TBBandWidths[3]),
    bandWidth<4, &Zendova::CoolBarTB>(u"TBBand5Wdth", TBBandWidths[4]),
    bandWidth<0, Map, &FontMap::clbFontMap>(u"FMBand1Wdth", FMBandWidths[0]),
    bandWidth<1, Map, &FontMap::clbFontMap>(u"FMBand2Wdth", FMBandWidths[1]),
    bandWidth<2, Map, &FontMap::clbFontMap>(u"FMBand3Wdth", FMBandWidths[2]),
    in<Folders, &LastFolders::LMLoadPath>(u"Last", u"LMLoadPath", Text, Elsewhere, 1),
    in<Folders, &LastFolders::LMSavePath>(u"Last", u"LMSavePath", Text, Elsewhere, 1),

    in<Map, Fore, &ColorRecord::ColorName>(u"FontMap", u"ForeColorName", Text, u"Window Text", 2),
    {u"FontMap", u"ForeColor", Number, SystemColorValue(8),
     [](const Zendova &z) -> WrittenValue { return z.ViewsContainer->TextZoom->ForeColor(0); },
     [](Zendova &z, const WrittenValue &v) { z.FMapContainer->Fore.Color = numberOf(v); }},
    in<Map, Fore, &ColorRecord::PaletteRef>(u"FontMap", u"ForePaletteRef", Number, 1, 3),
    in<Map, Fore, &ColorRecord::ColorIndex>(u"FontMap", u"ForeColorIndex", Number, 8, 1),
    in<Map, Back, &ColorRecord::ColorName>(u"FontMap", u"BackColorName", Text, u"Window Background",
                                           2),
    {u"FontMap", u"BackColor", Number, SystemColorValue(5),
     [](const Zendova &z) -> WrittenValue { return z.ViewsContainer->TextZoom->BackColor(0); },
     [](Zendova &z, const WrittenValue &v) { z.FMapContainer->Back.Color = numberOf(v); }},
    in<Map, Back, &ColorRecord::PaletteRef>(u"FontMap", u"BackPaletteRef", Number, 1, 3),
    in<Map, Back, &ColorRecord::ColorIndex>(u"FontMap", u"BackColorIndex", Number, 5, 1),
    {u"FontMap", u"Borders", Number, 1,
     [](const Zendova &z) -> WrittenValue { return z.FMapContainer->CharButton->BorderStyle(0); },
     [](Zendova &z, const WrittenValue &v) {
         z.FMapContainer->FMBorders->setChecked(numberOf(v) != 0);
     },
     5},
    in<Map, &FontMap::FMHiLite>(u"FontMap", u"Hilite", Truth, false, 4),
    // A size below 1 is stored where no size was known: the smallest stands in for it.
    {u"FontMap", u"SizeIndex", Number, Elsewhere,
     [](const Zendova &z) -> WrittenValue { return z.FMapContainer->SizeIndex; },
     [](Zendova &z, const WrittenValue &v) {
         z.FMapContainer->SizeIndex = std::max(1, numberOf(v));
     },
     6},
    in<CustomMap, &CustomMapState::InitMap>(u"FontMap", u"InitMap", Truth, false, 6),
    in<CustomMap, &CustomMapState::InitMapPath>(u"FontMap", u"InitMapPath", Text, u"None", 6),

    in<TheViews, &Views::ViewZoom>(u"Views", u"Zoom", Truth, true),
    in<TheViews, &Views::ViewCode>(u"Views", u"Code", Truth, true),
    in<TheViews, &Views::ViewKS>(u"Views", u"KeyStroke", Truth, true),
    {u"Views", u"ZoomSize", Digits, 72,
     [](const Zendova &z) -> WrittenValue { return z.ViewsContainer->ZoomSizeSlider->value(); },
     [](Zendova &z, const WrittenValue &v) {
         z.ViewsContainer->ZoomSizeSlider->setValue(numberOf(v));
     }},

    in<&Zendova::OptLoadTD>(u"Options", u"TXTLoadSet", Truth, true),
    in<&Zendova::OptUnloadTD>(u"Options", u"ZUFUnLoadSet", Truth, true),
    in<&Zendova::VCPosition>(u"Options", u"VCPosition", Text, u"L", 1),
    in<&Zendova::DisplayCD>(u"Options", u"CopyDialog", Truth, true),
    in<&Zendova::DisplayEW>(u"Options", u"ExitWarning", Truth, true),
    in<&Zendova::DisplayOW>(u"Options", u"OverwriteWarning", Truth, true),
    in<&Zendova::DisplayCS>(u"Options", u"ColorScheme", Truth, true),
    in<&Zendova::DisplayTT>(u"Options", u"ToolTips", Truth, true),

    // The dialogs read these when they open.
    {u"FB", u"SampleText", Text, u"The Quick Brown Fox Jumped Over the Lazy Dog."},
    {u"CFMEditor", u"ListCols", Number, 10},
    {u"CFMEditor", u"ShiftDir", Number, 0},
    {u"Options", u"ZoomedLetter", Number, 65},
    {u"Options", u"OFMapStart", Number, 60},
};

/// No start asks for it and no repair writes it: only the dialog of defaults does.
constexpr Setting MaximizeTB{u"Options", u"MaximizeTB", Truth, Elsewhere};

} // namespace

std::span<const Setting> SettingsTable()
{
    return Rows;
}

const Setting &SettingOf(QStringView key, QStringView name)
{
    const auto row = std::ranges::find_if(
        Rows, [&](const Setting &setting) { return setting.Key == key && setting.Name == name; });
    if (row != std::end(Rows))
        return *row;
    Q_ASSERT(key == MaximizeTB.Key && name == MaximizeTB.Name);
    return MaximizeTB;
}

WrittenValue Setting::standard() const
{
    if (const auto *text = std::get_if<QStringView>(&Default))
        return text->toString();
    if (const auto *number = std::get_if<qint32>(&Default))
        return *number;
    if (const auto *truth = std::get_if<bool>(&Default))
        return *truth;
    return {};
}

WrittenValue ReadSetting(const Setting &setting)
{
    const SettingValue value =
        RegReadValue(HKEY_CURRENT_USER, SettingsPath(setting.Key), setting.Name);
    switch (setting.Kind) {
    case Text:
        return toText(value);
    case Truth:
        return toTruth(value, setting.Key, setting.Name);
    default:
        return toNumber(value, setting.Key, setting.Name);
    }
}

void WriteSetting(const Setting &setting, const WrittenValue &value)
{
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(setting.Key), setting.Name, value,
                  setting.storedKind());
}
