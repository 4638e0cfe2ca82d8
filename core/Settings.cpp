// The settings of the main window: reading and verifying them at start, the repair that fills in
// every default, and what is saved at exit. The order of reading and writing is fixed; a failed
// read raises RegistryError and is looked at here alone.
#include "core/Zendova.h"

#include "core/Display.h"
#include "core/GetWinUserName.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "core/SettingsDefaults.h"
#include "core/SettingsTable.h"
#include "defaults/PaletteTables.h"
#include "fontmap/FontMap.h"
#include "fontmap/MapSize.h"
#include "platform/SysInfo.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <algorithm>
#include <vector>

namespace {

// Keys are named as below the root of the tree.

bool isEmpty(QStringView key, QStringView name)
{
    return std::holds_alternative<std::monostate>(
        RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name));
}

void readForItsExistence(QStringView key, QStringView name)
{
    RegReadValue(HKEY_CURRENT_USER, SettingsPath(key), name);
}

/// Reads the rows of the table that the condition takes, in its order.
template<class Condition>
void readRows(Zendova &window, Condition condition)
{
    for (const Setting &setting : SettingsTable()) {
        if (!condition(setting))
            continue;
        if (setting.Set)
            setting.Set(window, ReadSetting(setting));
        else
            readForItsExistence(setting.Key, setting.Name);
    }
}

/// Writes the values of now of the rows of a key that the condition takes.
template<class Condition>
void writeRows(const Zendova &window, QStringView key, Condition condition)
{
    std::vector<const Setting *> rows;
    for (const Setting &setting : SettingsTable())
        if (setting.Key == key && setting.Get && condition(setting))
            rows.push_back(&setting);
    std::ranges::stable_sort(rows, {}, &Setting::WriteOrder);
    for (const Setting *setting : rows)
        WriteSetting(*setting, setting->Get(window));
}

bool any(const Setting &)
{
    return true;
}

/// What must not be stored with zero length, by key and value: a run can't begin without it.
constexpr std::pair<QStringView, QStringView> Indispensable[] = {
    {u"TextBoard", u"FontName"},      {u"TextBoard", u"FontColorIndex"},
    {u"TextBoard", u"FontColorName"}, {u"FontMap", u"ForeColorIndex"},
    {u"FontMap", u"ForeColorName"},   {u"FontMap", u"ForePaletteRef"},
    {u"FontMap", u"BackPaletteRef"},
};

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
        FontMap &map = *FMapContainer;
        map.MaxMapSize = MapSize::Largest(DisplayMode::Display(), Form.TwipsX());
        if (map.SizeIndex > map.MaxMapSize) {
            ZndvMsg("\rYour screen resolution may have changed\rfrom the last time " + ProductName +
                        " was run.\r\rThe last used FontMap size cannot be\r"
                        "accommodated in the current screen size.\r\r" +
                        ProductName + " will adjust it to suit the current screen size.",
                    "OK", ProductName + " FontMap Size Error", false, 1);
            ScreenWidth = 0;
        } else {
            // The limit comes first: the slider takes no value beyond it.
            if (map.MaxMapSize > 1)
                map.sldSetFMapSize->setMost(map.MaxMapSize);
            map.sldSetFMapSize->setValue(map.SizeIndex);
            map.sldSetFMapSize->showNumber(QString::number(map.SizeIndex));
            map.sldSetFMapSize->edit()->setText(QString::number(map.SizeIndex));
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
    readRows(*this, [](const Setting &setting) { return setting.Key == u"TextBoard"; });
}

void Zendova::ReadLastSettings()
{
    readRows(*this, [](const Setting &setting) {
        return setting.Key != u"TextBoard" && !setting.Key.isEmpty();
    });
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
    for (const Setting &setting : SettingsTable())
        if (setting.Set && !std::holds_alternative<std::monostate>(setting.Default))
            setting.Set(*this, setting.standard());
    const QString folder = SysInfo::documentsFolder();
    Folders = {folder, folder, folder, folder};
    ToolTipsOn = true;
    // One width of the screen has no row: the size then stays without a value, the font size as it
    // is.
    FontMap &map = *FMapContainer;
    map.SizeIndex = 0;
    if (const auto sizes = DefaultsForScreenWidth(DisplayMode::Display())) {
        map.SizeIndex = sizes->SizeIndex;
        // The limit may be that of a reading which broke off; the screen's is set later on.
        map.sldSetFMapSize->setMost(
            std::max(map.sldSetFMapSize->slider()->maximum(), map.SizeIndex));
        FontSizeSlider->setValue(sizes->FontSize);
        map.sldSetFMapSize->setValue(map.SizeIndex);
        map.sldSetFMapSize->showNumber(QString::number(map.SizeIndex));
    }
    const SysInfo &screen = SysInfo::current();
    const double grownWidth = FormWidth() + MapSize::StepAcross * map.SizeIndex * Form.TwipsX();
    const double grownHeight = FormHeight() + MapSize::StepDown * map.SizeIndex * Form.TwipsY();
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
    WriteCustomColors(FirstCustomColors());
}

void Zendova::WriteMiscDefaults()
{
    for (const Setting &setting : SettingsTable())
        if (!setting.Get)
            WriteSetting(setting, setting.standard());
}

void Zendova::WriteDefaultSettings()
{
    for (const QStringView key : {u"TextBoard", u"Options", u"FontMap", u"Views"})
        writeRows(*this, key, any);
}

void Zendova::SaveLastSettings()
{
    const auto oneTransaction = GroupRegWrites();
    WriteMRULists();
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"FontMap"), u"SizeIndex",
                  FMapContainer->sldSetFMapSize->number()->text().toInt(), REG_DWORD);
    writeRows(*this, u"Bars", any);
    const auto isFolder = [](const Setting &row) { return row.Kind == Setting::Type::Text; };
    const auto isPosition = [](const Setting &row) {
        return row.Name == u"FormTop" || row.Name == u"FormLeft";
    };
    writeRows(*this, u"Last", isFolder);
    if (!isMinimized() && !isMaximized() && !isFullScreen())
        writeRows(*this, u"Last", isPosition);
    writeRows(*this, u"Last",
              [&](const Setting &row) { return !isFolder(row) && !isPosition(row); });
}
