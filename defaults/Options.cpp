// From the settings to the values of the window and back, and the dialogs from which values come.
#include "defaults/Options.h"

#include "core/CheckDFFFunctions.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "core/SettingsDefaults.h"
#include "core/SettingsTable.h"
#include "defaults/FMColorPalette.h"
#include "fontmap/CustomMapFile.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/ElidedLabel.h"
#include "platform/controls/PlainToolTip.h"
#include "textboard/FontChoice.h"
#include "textboard/QBColors.h"
#include "textboard/TBColorPicker.h"
#include "textboard/TextBoard.h"

#include <QAbstractButton>
#include <utility>

namespace {

constexpr QStringView NoMap = u"None";

WrittenValue read(QStringView key, QStringView name)
{
    return ReadSetting(SettingOf(key, name));
}

/// What is put aside of a choice before Set is pressed. Nobody reads it.
void writeTemp(const QString &name, const WrittenValue &value, quint32 kind = REG_DWORD)
{
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"Temp"), name, value, kind);
}

} // namespace

/// One of the map's two colours.
struct Options::MapColor
{
    const char *Caption; ///< of the palette
    ColorRecord OptionValues::*Value;
    const char *Temp; ///< how the names of the values put aside begin
};

void Options::ReadOptions()
{
    for (const OptionRow &row : OptionRows())
        row.Set(Values, read(row.Key, row.Name));
    const OptionValues asStored = std::exchange(Values, Sensible(Values));
    for (const OptionRow &row : OptionRows()) {
        const bool isOfStrip = row.Name == u"ZoomedLetter" || row.Name == u"OFMapStart";
        if (isOfStrip && row.Get(Values) != row.Get(asStored))
            WriteSetting(SettingOf(row.Key, row.Name), row.Get(Values));
    }
    if (Values.InitMapPath == NoMap) {
        Values.InitMapPath.clear();
        Values.InitMapCaption = NoMap.toString();
        MapFolder = std::get<QString>(read(u"Last", u"LMLoadPath"));
    } else {
        takeMapPath(Values.InitMapPath);
    }
    TextColor = QBColor(Values.TBColorIndex);
    TestFontStyles(Values.FontName);
    showValues();
    OptSnapshot = TakeSnapshot(Values);
}

bool Options::WriteOptions() const
{
    auto oneTransaction = GroupRegWrites();
    for (const OptionRow &row : OptionRows())
        WriteSetting(SettingOf(row.Key, row.Name), row.Get(Values));
    return oneTransaction.Commit();
}

void Options::ShowOptionTips()
{
    SetToolTips(ToolTipsOn);
    olblInitMap->setToolTip(ToolTipsOn ? PlainToolTip(Values.InitMapPath) : QString());
    olblInitMap->setAccessibleDescription(Values.InitMapPath);
}

void Options::ChgFont_Click()
{
    const auto chosen = AskFont(this, Fonts, *OTBSample, OptionLimits::LeastSize,
                                OptionLimits::MostFontSizeInDialog);
    if (!chosen)
        return;
    if (chosen->Name != Values.FontName) {
        Values.FontName = chosen->Name;
        TestFontStyles(chosen->Name);
    }
    Values.FontSize = NumberSlider::whole(chosen->Size);
    Values.Bold = chosen->Bold;
    Values.Italic = chosen->Italic;
    Values.Underline = chosen->Underline;
    Values.Strikeout = chosen->Strikeout;
    if (chosen->Color != TextColor)
        takeTextColor(chosen->Color);
    showValues();
}

void Options::TestFontStyles(const QString &name)
{
    {
        const TextBoard::FontChange inOneGo(*TestFont);
        TestFont->setFontName(name);
        TestFont->setFontBold(false);
        TestFont->setFontItalic(false);
        TestFont->setFontUnderline(false);
        TestFont->setFontStrikethru(false);
    }
    button("OFFontBold")->setEnabled(!TestFont->FontBold());
    button("OFFontItalic")->setEnabled(!TestFont->FontItalic());
    button("OFFontUnderline")->setEnabled(!TestFont->FontUnderline());
    button("OFFontStrikethrough")->setEnabled(!TestFont->FontStrikethru());
}

void Options::FindTextColor(ColorValue color)
{
    if (const std::optional<int> index = FindQBColor(color)) {
        Values.TBColorIndex = *index;
        Values.TBColorName = QBColorName(*index);
    }
}

void Options::takeTextColor(ColorValue color)
{
    FindTextColor(color);
    TextColor = color;
}

void Options::ChgTBFColor_Click()
{
    PickColorIndex = Values.TBColorIndex;
    PickColorValue = QString::number(TextColor);
    TBColorPicker(this).exec();
    if (PickColorIndex == Values.TBColorIndex)
        return;
    takeTextColor(QBColor(PickColorIndex));
    writeTemp("TBFColorIndex", Values.TBColorIndex);
    showSamples();
}

void Options::ChgFMFColor_Click()
{
    changeMapColor({"Select A Font Color", &OptionValues::Fore, "FMF"});
}

void Options::ChgFMBColor_Click()
{
    changeMapColor({"Select A Background Color", &OptionValues::Back, "FMB"});
}

void Options::changeMapColor(const MapColor &which)
{
    ColorRecord &record = Values.*which.Value;
    if (!Palette.PickAnother(which.Caption, *this, record, record.Color))
        return;
    record = PickedColor();
    // An empty name in the settings would count as damage at the next start.
    if (record.ColorName.isEmpty())
        record.ColorName = PaletteName(record.PaletteRef);
    const QString prefix = which.Temp;
    writeTemp(prefix + "PaletteRef", record.PaletteRef);
    writeTemp(prefix + "ColorIndex", record.ColorIndex);
    writeTemp(prefix + "ColorName", record.ColorName, REG_SZ);
    showSamples();
}

void Options::ocmdInitMap_Click()
{
    const auto chosen = CmnDlg::ShowOpen(this, {.DialogTitle = "Specify Startup Custom Map",
                                                .Filter = CustomMapFile::FileFilter,
                                                .Flags = FileOffer::FileMustExist,
                                                .InitDir = MapFolder});
    if (!chosen)
        return;
    // The caption is only a file's name as a rule, so this seldom holds.
    if (chosen->FileName == Values.InitMapCaption) {
        const QString title = "Zendova Custom Map Selection Error";
        ZndvMsg("\r\r\r" + title + "\r\rThis Custom Map is already specified.", "OK", title, false,
                1);
        return;
    }
    takeMapPath(chosen->FileName);
    showValues();
}

void Options::takeMapPath(const QString &path)
{
    const auto [folder, name] = SplitAtLastSeparator(path);
    Values.InitMapPath = path;
    Values.InitMapCaption = name;
    MapFolder = folder;
}

void Options::cmdOK_Click()
{
    dropBlankSample(); // the Enter key comes here without leaving the text
    if (TakeSnapshot(Values) == OptSnapshot) {
        ZndvMsg("\r\rYou have not yet made any change in\rZendova default settings."
                "\r\rPress the 'Set' button after making changes.",
                "OK", "Zendova User input Error", false, 1);
        return;
    }
    if (!WriteOptions()) {
        ZndvMsg("\r\rThe changes could not be saved in the settings."
                "\r\rThe disk may be full or the settings protected.",
                "OK", "Zendova Default Settings Error", false, 1);
        return;
    }
    ZndvMsg("\r\r\rChanges made in Zendova default settings\r"
            "will take effect the next time Zendova starts.",
            "OK", "Zendova Default Settings Changed", false, 1);
    accept();
}
