// Loading and unloading custom maps, and the way to their editor: the commands, the drop-down of
// CFMapLoad, and what is said of a file that is no map. What the file holds is CustomMapFile's
// affair, how the cells show it the FontMap's.
#include "core/Zendova.h"

#include "core/CheckDFFFunctions.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "fontmap/CustomMap.h"
#include "fontmap/CustomMapFile.h"
#include "fontmap/FontMap.h"
#include "platform/FileName.h"
#include "platform/RegularFile.h"
#include "platform/controls/CmnDlg.h"
#include "textboard/TextBoard.h"

#include <algorithm>
#include <utility>

namespace {

void tell(const QString &text)
{
    ZndvMsg(text, "OK", ProductName + " Custom Map Load Error", false, 1);
}

/// The reason of the system, if it gives one.
void tellUnloadable(const QString &path, const QString &reason)
{
    const QString why = reason.isEmpty() ? QStringLiteral("It has either become corrupt"
                                                          "\ror has been manually edited.")
                                         : reason + '.';
    tell('\r' + path + "\rThis Zendova Custom Map is unloadable.\r\r" + why +
         "\r\rZendova cannot load this Map.");
}

} // namespace

void Zendova::FileCFMLoad_Click()
{
    AskLoadCustomMap();
    UpdateMapCommands(1);
}

void Zendova::AskLoadCustomMap()
{
    const auto chosen = CmnDlg::ShowOpen(this, {.DialogTitle = "Load a Custom Map",
                                                .Filter = CustomMapFile::FileFilter,
                                                .Flags = FileOffer::FileMustExist,
                                                .InitDir = Folders.LMLoadPath});
    if (chosen && CheckMapNotLoaded(chosen->FileName))
        LoadCustomMap(chosen->FileName);
}

bool Zendova::CheckMapNotLoaded(const QString &Path)
{
    if (Path != CustomMap.LoadedMapPath)
        return true;
    tell("\r\r\r" + Path + "\r\rThis Custom Map is already loaded.");
    return false;
}

void Zendova::LoadCustomMap(const QString &Path)
{
    const RegularFile::Reading file = RegularFile::read(Path, CustomMapFile::MostBytes);
    const auto captions = CustomMapFile::read(file.Bytes);
    if (!captions)
        return tellUnloadable(Path, file.Reason);
    FMapContainer->FillCustomMap(*captions);
    AddMapToMRU(Path);
    CustomMap.LoadedMapPath = Path;
    CustomMap.LoadedMapName = SplitAtLastSeparator(Path).Name;
    UpdateMapCommands(1);
}

void Zendova::FileCFMNew_Click()
{
    ::CustomMap editor(FontList, this);
    editor.SetupNewCFMap(Format.TBFontIndex, TextBoard->FontName(), TextBoard->FontSize());
    ShowEditor(editor);
    UpdateMapCommands(1);
}

void Zendova::FileCFMEdit_Click()
{
    const QString path = CustomMap.LoadedMapPath;
    ::CustomMap editor(FontList, this);
    const auto failure = editor.SetupEditCFMap(path, CustomMap.LoadedMapName, Format.TBFontIndex,
                                               TextBoard->FontName(), TextBoard->FontSize());
    if (failure)
        tellUnloadable(path, *failure);
    else
        ShowEditor(editor);
    UpdateMapCommands(1);
}

void Zendova::ShowEditor(::CustomMap &editor)
{
    MapEditSaved = false;
    editor.LMSavePath = Folders.LMSavePath;
    editor.exec();
    Folders.LMSavePath = editor.LMSavePath;
    for (const QString &path : std::as_const(editor.WrittenPaths))
        Documents.add(path, MimeTypeOf(path));
    // The grid shows what its file holds, by whichever command that was written.
    if (MapEditSaved || editor.WrittenPaths.contains(CustomMap.LoadedMapPath))
        LoadCustomMap(CustomMap.LoadedMapPath);
}

void Zendova::FileCFMUnld_Click()
{
    CustomMap.LoadedMapPath.clear();
    CustomMap.LoadedMapName.clear();
    FMapContainer->FillDefaultMap();
    UpdateMapCommands(1);
}

void Zendova::ShowLoadedMap()
{
    const QString &name = CustomMap.LoadedMapName;
    constexpr qsizetype ending = 4; // with its dot
    FMapContainer->ShowLoadedMap(!CustomMap.LoadedMapPath.isEmpty(),
                                 FileName::shown(name.chopped(std::min(ending, name.size()))));
}
