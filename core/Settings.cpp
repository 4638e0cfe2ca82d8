// The settings of the main window: reading and verifying them at start, the repair that fills in
// every default, and what is saved at exit. The order of reading and writing is fixed; a failed
// read raises RegistryError and is looked at here alone.
#include "core/Zendova.h"

#include "core/Display.h"
#include "core/GetWinUserName.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "core/RegistryFunctions.h"
#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"
#include "fontmap/MapSize.h"
#include "platform/SysInfo.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace {

// Keys are named as below the root of the tree.

QString readText(QStringView key, QStringView name)
{
    return toText(RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name));
}

qint32 readNumber(QStringView key, QStringView name)
{
    return toNumber(RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name), key, name);
}

bool readTruth(QStringView key, QStringView name)
{
    return toTruth(RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name), key, name);
}

bool isEmpty(QStringView key, QStringView name)
{
    return std::holds_alternative<std::monostate>(
        RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name));
}

void readForItsExistence(QStringView key, QStringView name)
{
    RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name);
}

void write(QStringView key, QStringView name, const QString &text)
{
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(key), name, text, REG_SZ);
}

void write(QStringView key, QStringView name, qint32 number)
{
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(key), name, number, REG_DWORD);
}

void writeTruth(QStringView key, QStringView name, bool truth)
{
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(key), name, truth, REG_SZ);
}

/// A band of a bar and the settings value that keeps its width.
struct BandSetting
{
    BandBar *Zendova::*Bar;
    QStringView Prefix;
    std::span<const qint32> Defaults;
};
constexpr BandSetting BandSettings[] = {
    {&Zendova::CoolBarCM, u"MainBand", MainBandWidths},
    {&Zendova::CoolBarTB, u"TBBand", TBBandWidths},
    {&Zendova::clbFontMap, u"FMBand", FMBandWidths},
};

QString bandName(const BandSetting &setting, int band)
{
    return QStringLiteral("%1%2Wdth").arg(setting.Prefix).arg(band + 1);
}

/// A last folder and its value's name.
constexpr std::pair<QString Zendova::*, QStringView> TextFolders[] = {
    {&Zendova::LFLoadPath, u"LFLoadPath"}, {&Zendova::LFSavePath, u"LFSavePath"}};
constexpr std::pair<QString Zendova::*, QStringView> MapFolders[] = {
    {&Zendova::LMLoadPath, u"LMLoadPath"}, {&Zendova::LMSavePath, u"LMSavePath"}};

/// A toggle and its value's name in the key Options.
constexpr std::pair<QAction * Zendova::*, QStringView> Toggles[] = {
    {&Zendova::OptLoadTD, u"TXTLoadSet"},       {&Zendova::OptUnloadTD, u"ZUFUnLoadSet"},
    {&Zendova::DisplayCD, u"CopyDialog"},       {&Zendova::DisplayEW, u"ExitWarning"},
    {&Zendova::DisplayOW, u"OverwriteWarning"}, {&Zendova::DisplayCS, u"ColorScheme"},
    {&Zendova::DisplayTT, u"ToolTips"},
};
constexpr std::size_t MiscDefaultCount = 7;
constexpr std::size_t TogglesBeforeSide = 2; // the views' side is read behind these

constexpr std::pair<QAction * Zendova::*, QStringView> ViewSwitches[] = {
    {&Zendova::ViewZoom, u"Zoom"}, {&Zendova::ViewCode, u"Code"}, {&Zendova::ViewKS, u"KeyStroke"}};

/// What must not be stored with zero length, by key and value: a run can't begin without it.
constexpr std::pair<QStringView, QStringView> Indispensable[] = {
    {u"TextBoard", u"FontName"},      {u"TextBoard", u"FontColorIndex"},
    {u"TextBoard", u"FontColorName"}, {u"FontMap", u"ForeColorIndex"},
    {u"FontMap", u"ForeColorName"},   {u"FontMap", u"ForePaletteRef"},
    {u"FontMap", u"BackPaletteRef"},
};

constexpr std::array<QStringView, 4> StyleNames = {u"Bold", u"Italic", u"Underline", u"Strikeout"};

} // namespace

void Zendova::LoadSettings()
{
    RegistryError = false;
    // The product's last five letters and five of the credit's, in turn.
    for (const char letter : {'n', 'd', 'o', 'v', 'a'}) {
        ProductName += letter;
        CreditLine += letter;
    }
    // Read as a proof that they are there; the palette reads them itself.
    for (int i = 1; i <= static_cast<int>(CustomColorDefaults.size()); ++i) {
        readForItsExistence(u"CustomColors", QString::number(i));
        readForItsExistence(u"CustomLabels", QString::number(i));
    }
    if (RegistryError)
        return FirstRunPath();
    ReadMRULists();
    if (!RegistryError)
        ReadTextBoardDefaults();
    if (!RegistryError)
        ReadLastSettings();
    if (!RegistryError) {
        MaxMapSize = MapSize::Largest(Display(), TwipsX);
        if (SizeIndex > MaxMapSize) {
            ZndvMsg("\rYour screen resolution may have changed\rfrom the last time " + ProductName +
                        " was run.\r\rThe last used FontMap size cannot be\r"
                        "accommodated in the current screen size.\r\r" +
                        ProductName + " will adjust it to suit the current screen size.",
                    "OK", ProductName + " FontMap Size Error", false, 1);
            ScreenWidth = 0;
        } else {
            // The limit comes first: the slider takes no value beyond it.
            if (MaxMapSize > 1)
                sldSetFMapSize->setMost(MaxMapSize);
            sldSetFMapSize->setValue(SizeIndex);
            sldSetFMapSize->showNumber(QString::number(SizeIndex));
            sldSetFMapSize->edit()->setText(QString::number(SizeIndex));
        }
        ToolTipsOn = DisplayTT->isChecked();
        if (std::ranges::none_of(Indispensable, [](const auto &setting) {
                return isEmpty(setting.first, setting.second);
            }))
            return;
    }
    FirstRunPath();
}

void Zendova::FirstRunPath()
{
    RepairRan = true;
    ZndvMsg("\r\r\r\rAre you running " + ProductName + " for the first time?", "YN",
            ProductName + " Init Information", false, 1);
    InitSettings(MsgResult ? "Act" : "Ask");
}

void Zendova::ReadTextBoardDefaults()
{
    constexpr QStringView key = u"TextBoard";
    TBFontName = readText(key, u"FontName");
    FontSizeSlider->setValue(readNumber(key, u"FontSize"));
    for (std::size_t style = 0; style < TBStyle.size(); ++style)
        TBStyle[style] = readNumber(key, StyleNames[style]) != 0 ? 1 : 0;
    TextBoard->setAlignment(readNumber(key, u"Alignment"));
    TBColorIndex = readNumber(key, u"FontColorIndex");
    TBColorName = readText(key, u"FontColorName");
}

void Zendova::ReadLastSettings()
{
    constexpr QStringView last = u"Last";
    const double top = readNumber(last, u"FormTop");
    SetFormPosition(readNumber(last, u"FormLeft"), top);
    SavedFormHeight = readNumber(last, u"FormHeight");
    SavedFormWidth = readNumber(last, u"FormWidth");
    for (const auto &[folder, name] : TextFolders)
        this->*folder = readText(last, name);
    for (const BandSetting &setting : BandSettings) {
        BandBar *bar = this->*setting.Bar;
        for (int band = 0; band < bar->bandCount(); ++band)
            bar->setBandWidth(band, readNumber(u"Bars", bandName(setting, band)));
    }
    for (const auto &[folder, name] : MapFolders)
        this->*folder = readText(last, name);

    constexpr QStringView map = u"FontMap";
    ForeColorName = readText(map, u"ForeColorName");
    ForeColor = readNumber(map, u"ForeColor");
    ForePaletteRef = readNumber(map, u"ForePaletteRef");
    ForeColorIndex = readNumber(map, u"ForeColorIndex");
    BackColorName = readText(map, u"BackColorName");
    BackColor = readNumber(map, u"BackColor");
    BackPaletteRef = readNumber(map, u"BackPaletteRef");
    BackColorIndex = readNumber(map, u"BackColorIndex");
    FMBorders->setChecked(readNumber(map, u"Borders") != 0);
    FMHiLite->setChecked(readTruth(map, u"Hilite"));
    // A size below 1 is stored where no size was known: the smallest stands in for it.
    SizeIndex = std::max(1, readNumber(map, u"SizeIndex"));
    InitMap = readTruth(map, u"InitMap");
    InitMapPath = readText(map, u"InitMapPath");

    for (const auto &[item, name] : ViewSwitches)
        (this->*item)->setChecked(readTruth(u"Views", name));
    ZoomSizeSlider->setValue(readNumber(u"Views", u"ZoomSize"));

    constexpr QStringView options = u"Options";
    const std::span toggles(Toggles);
    for (const auto &[item, name] : toggles.first(TogglesBeforeSide))
        (this->*item)->setChecked(readTruth(options, name));
    VCPosition = readText(options, u"VCPosition");
    for (const auto &[item, name] : toggles.subspan(TogglesBeforeSide))
        (this->*item)->setChecked(readTruth(options, name));

    // For their existence only; the dialogs read them when they open.
    readForItsExistence(u"FB", u"SampleText");
    readForItsExistence(u"CFMEditor", u"ListCols");
    readForItsExistence(u"CFMEditor", u"ShiftDir");
    readForItsExistence(options, u"ZoomedLetter");
    readForItsExistence(options, u"OFMapStart");
}

void Zendova::InitSettings(const QString &Mode)
{
    if (Mode == "Ask") {
        ZndvMsg("\r" + ProductName +
                    " registry entries seem to be incorrect.  \r\rContinue Loading?\r\r"
                    "• Press Yes to repair registry and continue loading.\r"
                    "(all settings will be reset to default values)      \r"
                    "• Press No to terminate loading.",
                "YN", ProductName + " Registry Initialization Error", false, 1);
        if (!MsgResult) {
            LoadAborted = true;
            return;
        }
    }
    DefaultsApplied = true;
    FetchWinUserName();
    const QString folder = SysInfo::documentsFolder();
    LFLoadPath = LFSavePath = LMLoadPath = LMSavePath = folder;
    for (QAction *item : {ViewZoom, ViewCode, ViewKS, OptLoadTD, OptUnloadTD, DisplayEW, DisplayCD,
                          DisplayOW, DisplayCS, DisplayTT})
        item->setChecked(true);
    ToolTipsOn = true;
    VCPosition = DefaultText(u"Options", u"VCPosition");
    constexpr QStringView board = u"TextBoard";
    TBFontName = DefaultText(board, u"FontName");
    TextBoard->setAlignment(DefaultNumber(board, u"Alignment"));
    TBColorIndex = DefaultNumber(board, u"FontColorIndex");
    TBColorName = DefaultText(board, u"FontColorName");
    ZoomSizeSlider->setValue(DefaultText(u"Views", u"ZoomSize").toInt());
    TBStyle = {};
    constexpr QStringView map = u"FontMap";
    ForeColorName = DefaultText(map, u"ForeColorName");
    ForePaletteRef = DefaultNumber(map, u"ForePaletteRef");
    ForeColorIndex = DefaultNumber(map, u"ForeColorIndex");
    BackColorName = DefaultText(map, u"BackColorName");
    BackPaletteRef = DefaultNumber(map, u"BackPaletteRef");
    BackColorIndex = DefaultNumber(map, u"BackColorIndex");
    // A reading that broke off may have brought some of these with it already.
    ForeColor = TextZoom->ForeColor(0);
    BackColor = TextZoom->BackColor(0);
    FMHiLite->setChecked(false);
    FMBorders->setChecked(true);
    // One width of the screen has no row: the size then stays without a value, the font size as it
    // is.
    SizeIndex = 0;
    if (const auto sizes = DefaultsForScreenWidth(Display())) {
        SizeIndex = sizes->SizeIndex;
        FontSizeSlider->setValue(sizes->FontSize);
        sldSetFMapSize->setValue(SizeIndex);
        sldSetFMapSize->showNumber(QString::number(SizeIndex));
    }
    InitMap = false;
    InitMapPath = DefaultText(map, u"InitMapPath");
    for (const BandSetting &setting : BandSettings)
        for (std::size_t band = 0; band < setting.Defaults.size(); ++band)
            (this->*setting.Bar)->setBandWidth(static_cast<int>(band), setting.Defaults[band]);
    const SysInfo &screen = SysInfo::current();
    const double grownWidth = FormWidth() + MapSize::StepAcross * SizeIndex * TwipsX;
    const double grownHeight = FormHeight() + MapSize::StepDown * SizeIndex * TwipsY;
    SetFormPosition(screen.WorkAreaLeft() + (screen.WorkAreaWidth() - grownWidth) / 2,
                    screen.WorkAreaTop() + (screen.WorkAreaHeight() - grownHeight) / 2);

    const auto oneTransaction = GroupRegWrites();
    RegMakeKey(HKEY_CURRENT_USER, SettingsRoot);
    RegDropKey(HKEY_CURRENT_USER, SettingsRoot);
    CreateSettingsKeys();
    WriteCustomColorDefaults();
    WriteMiscDefaults();
    WriteDefaultSettings();
    SaveLastSettings();
}

void Zendova::CreateSettingsKeys()
{
    for (const QStringView key : SettingsKeys)
        RegMakeKey(HKEY_CURRENT_USER, SettingsPath(key));
}

void Zendova::WriteCustomColorDefaults()
{
    int number = 0;
    for (const CustomColorDefault &color : CustomColorDefaults)
        write(u"CustomColors", QString::number(++number), color.stored);
    number = 0;
    for (const CustomColorDefault &color : CustomColorDefaults)
        write(u"CustomLabels", QString::number(++number), color.label.toString());
}

void Zendova::WriteMiscDefaults()
{
    // The first rows of the table, in its order: those that no control holds.
    for (const SettingDefault &setting : std::span(SettingDefaults).first(MiscDefaultCount)) {
        if (const auto *number = std::get_if<qint32>(&setting.standard))
            write(setting.key, setting.value, *number);
        else
            write(setting.key, setting.value, std::get<QStringView>(setting.standard).toString());
    }
}

void Zendova::WriteDefaultSettings()
{
    constexpr QStringView board = u"TextBoard";
    write(board, u"FontName", TBFontName);
    write(board, u"FontSize", FontSizeSlider->number()->text().toInt());
    for (std::size_t style = 0; style < TBStyle.size(); ++style)
        write(board, StyleNames[style], TBStyle[style]);
    write(board, u"Alignment", TextBoard->Alignment());
    write(board, u"FontColorIndex", TBColorIndex);
    write(board, u"FontColorName", TBColorName);

    for (const auto &[item, name] : Toggles)
        writeTruth(u"Options", name, (this->*item)->isChecked());
    write(u"Options", u"VCPosition", VCPosition);

    constexpr QStringView map = u"FontMap";
    write(map, u"ForeColor", TextZoom->ForeColor(0));
    write(map, u"BackColor", TextZoom->BackColor(0));
    write(map, u"ForeColorIndex", ForeColorIndex);
    write(map, u"BackColorIndex", BackColorIndex);
    write(map, u"ForeColorName", ForeColorName);
    write(map, u"BackColorName", BackColorName);
    write(map, u"ForePaletteRef", ForePaletteRef);
    write(map, u"BackPaletteRef", BackPaletteRef);
    writeTruth(map, u"Hilite", FMHiLite->isChecked());
    write(map, u"Borders", CharButton->BorderStyle(0));
    write(map, u"SizeIndex", SizeIndex);
    writeTruth(map, u"InitMap", InitMap);
    write(map, u"InitMapPath", InitMapPath);

    for (const auto &[item, name] : ViewSwitches)
        writeTruth(u"Views", name, (this->*item)->isChecked());
    write(u"Views", u"ZoomSize", QString::number(ZoomSizeSlider->value()));
}

void Zendova::SaveLastSettings()
{
    const auto oneTransaction = GroupRegWrites();
    WriteMRULists();
    write(u"FontMap", u"SizeIndex", sldSetFMapSize->number()->text().toInt());
    for (const BandSetting &setting : BandSettings) {
        const BandBar *bar = this->*setting.Bar;
        for (int band = 0; band < bar->bandCount(); ++band)
            write(u"Bars", bandName(setting, band), qRound(bar->bandWidth(band)));
    }
    constexpr QStringView last = u"Last";
    for (const auto &[folder, name] : TextFolders)
        write(last, name, this->*folder);
    for (const auto &[folder, name] : MapFolders)
        write(last, name, this->*folder);
    if (!isMinimized() && !isMaximized() && !isFullScreen()) {
        write(last, u"FormTop", qRound(FormTop()));
        write(last, u"FormLeft", qRound(FormLeft()));
    }
    write(last, u"FormHeight", qRound(FormHeight()));
    write(last, u"FormWidth", qRound(FormWidth()));
}
