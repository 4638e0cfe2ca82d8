// What the topics of the main window remember: one struct a topic, under which its members are
// found. Each is written by its topic and, at the start, by the settings.
#pragma once

#include <QString>
#include <array>

/// The last folders of the file dialogs.
struct LastFolders
{
    QString LFLoadPath, LFSavePath, LMLoadPath, LMSavePath;
};

/// How the board's text looks, as a whole.
struct BoardFormat
{
    QString TBFontName;
    int TBFontIndex = 0;          ///< position in FontNameCombo
    std::array<int, 4> TBStyle{}; ///< the wish for bold, italic, underline, strikeout
    int TBColorIndex = 0;
    QString TBColorName;
};

/// Which file the board's text is from, and which one is being loaded.
struct TextFileState
{
    bool TextChanged = false;
    QString LoadedFilePath, LoadedFileTitle;
    QString PendingFilePath, PendingFileTitle;
    bool LoadFontReplaced = false; ///< the loaded file's font is not there: another shows the text
    bool IsIncomplete = false;     ///< the loaded file has characters that the board has not
};

/// Which custom map is loaded, and which is to be loaded at the start.
struct CustomMapState
{
    QString LoadedMapPath, LoadedMapName;
    bool InitMap = false;
    QString InitMapPath;
};
