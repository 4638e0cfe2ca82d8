// The public variables that windows and modules share. The one user-interface thread reads and
// writes them, so nothing here is locked. Each has one writer's rule, told beside it.
#pragma once

#include <QString>
#include <vector>

/// Grown a few characters at each start-up step; complete when the window shows.
inline QString ProductName;
inline QString CreditLine;

/// Behind the product's name in the window's title, and in the About window.
inline constexpr const char *VersionSuffix = " Version 3.0.0 RC2";

/// Set by any failed read of a setting; cleared and looked at by LoadSettings alone.
inline bool RegistryError = false;

/// The logged-on user; set during a repair only. Nothing is made of it here, where the documents
/// folder is asked for itself and need not be put together from the name.
inline QString WinUserName;

/// State of DisplayTT: tooltips of the switchable controls are shown.
inline bool ToolTipsOn = false;
/// State of DisplayCS: dialogs wear the FontMap's two colours.
inline bool ColorSchemeOn = false;

/// Answer of the message dialog: true only if its first button closed it.
inline bool MsgResult = false;
/// State of the dialog's "Do not display again" box.
inline bool MsgDontRepeat = false;
/// The running call asked for the single button "OK".
inline bool MsgOkMode = false;

/// The colour handed into and out of the colour windows: its place in its table, its name, its
/// value as decimal text, and the palette tab (0 Preset, 1 System, 2 Custom).
inline int PickColorIndex = 0;
inline QString PickColorName;
inline QString PickColorValue;
inline int PickPaletteRef = 0;

/// Set by the map editor: the loaded map was saved in it and is to be loaded again.
inline bool MapEditSaved = false;

/// The caret, carried from the board to the full-screen preview and back.
inline double TextSelStart = 0;

/// What is known of a font's design, under the names of the Win32 structure LOGFONT. Heights and
/// widths are 0 (any size), as are the fields for which fontconfig has no counterpart: the record
/// is whole, so that a list of fonts can show any of its columns.
struct LogicalFont
{
    qint32 lfHeight = 0;
    qint32 lfWidth = 0;
    qint32 lfEscapement = 0;
    qint32 lfOrientation = 0;
    qint32 lfWeight = 0; ///< 1..1000, regular 400
    quint8 lfItalic = 0;
    quint8 lfUnderline = 0;
    quint8 lfStrikeOut = 0;
    quint8 lfCharSet = 0; ///< 0 text, 2 symbol
    quint8 lfOutPrecision = 0;
    quint8 lfClipPrecision = 0;
    quint8 lfQuality = 0;
    quint8 lfPitchAndFamily = 0; ///< 1 fixed, 2 variable
    QString lfFaceName;
};

/// A font's measures, under the names of the Win32 structure NEWTEXTMETRIC. What only the font file
/// could tell is 0: no file is opened for the list. Kept beside LogicalFont for the same reason.
struct TextMetric
{
    qint32 tmHeight = 0;
    qint32 tmAscent = 0;
    qint32 tmDescent = 0;
    qint32 tmInternalLeading = 0;
    qint32 tmExternalLeading = 0;
    qint32 tmAveCharWidth = 0;
    qint32 tmMaxCharWidth = 0;
    qint32 tmWeight = 0;
    qint32 tmOverhang = 0;
    qint32 tmDigitizedAspectX = 0;
    qint32 tmDigitizedAspectY = 0;
    quint8 tmFirstChar = 0;
    quint8 tmLastChar = 0;
    quint8 tmDefaultChar = 0;
    quint8 tmBreakChar = 0;
    quint8 tmItalic = 0;
    quint8 tmUnderlined = 0;
    quint8 tmStruckOut = 0;
    quint8 tmPitchAndFamily = 0; ///< 1 variable (sic), 2 outline, 4 TrueType
    quint8 tmCharSet = 0;
    qint32 ntmFlags = 0;
    qint32 ntmSizeEM = 0;
    qint32 ntmCellHeight = 0;
    qint32 ntmAvgWidth = 0;
};

inline qint16 FontCount = 0;    ///< fonts enumerated; also the column that the next font gets
inline qint16 TTFontCount = 0;  ///< of these, TrueType
inline qint16 SysFontCount = 0; ///< of these, all others

/// One column a font, in the order in which the system delivered them.
inline std::vector<LogicalFont> FontLF;
inline std::vector<TextMetric> FontTM;
