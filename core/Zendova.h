// The main window. It owns the run: its load event is the start-up. It ties its panels and the
// topics of the board together; what is a thing of its own on the screen is a class of its own.
// Each topic has a file of its own, listed here in the order in which a run meets them.
#pragma once

#include "core/WindowState.h"
#include "fonttools/FontLoadProcedure.h"
#include "fonttools/PassingFonts.h"
#include "platform/RecentDocuments.h"
#include "platform/controls/ControlTable.h"
#include "textboard/RecentFiles.h"
#include "textboard/TextBoardRTF.h"

#include <QMainWindow>
#include <array>
#include <optional>

class BandBar;
class CustomMap;
class FMColorPalette;
class FillBar;
class FindBar;
class FontCombo;
class FontMap;
class LockPanels;
class QAction;
class QKeyEvent;
class QMenu;
class QToolButton;
class SplitBar;
class TextBoard;
class Toolbar;
class Views;
struct ChosenFile;

/// Thrown by EndProgram: the process ends at once, without any further event of the window.
struct ProgramEnd
{
};

class Zendova : public QMainWindow
{
    Q_OBJECT

public:
    /// The command tail is everything behind the program's name, as one string.
    explicit Zendova(QString commandTail);
    ~Zendova() override;

    // ---- core/Startup.cpp: the order of a run

    /// Runs Form_Initialize and Form_Load and shows the window. Throws ProgramEnd where start-up
    /// ends the program and ConversionError where a setting can't be converted.
    void Start();
    void Form_Initialize();
    void Form_Load();
    void Form_Activate();
    /// False cancels the unload.
    bool Form_QueryUnload();
    void Form_Unload();
    void FileExit_Click();
    void SysInfo_DisplayChanged();
    /// The start-up file's path after all checks, or nothing.
    std::optional<QString> GetCommandLine();
    /// Takes a checked path to where its kind of file is loaded. A kind that is not the program's
    /// is told under this title, without the product's name.
    void RouteFile(const QString &path, const QString &title);
    /// Loads the file as one given at start, with the same checks.
    void OpenDroppedFile(const QString &path);
    void CaptureDesignLayout();
    /// The height that the window had when it was closed, if the map of now fits into it.
    void RestoreStoredWindow();
    void ApplyViewSettings();
    [[noreturn]] void EndProgram();

    bool LoadAborted = false;
    bool FirstActivate = false;    ///< start-up runs, until the end of the first activation
    bool RepairRan = false;        ///< for whoever debugs a run that began with the question
    bool DefaultsApplied = false;  ///< the store was just created or repaired
    bool DisplayEventSeen = false; ///< the same for a change of the display

    // ---- core/Settings.cpp: reading, repairing and saving the settings

    void LoadSettings();
    /// The repair: defaults into memory, controls and store. "Ask" asks first, "Act" does not.
    void InitSettings(const QString &Mode);
    void ReadTextBoardDefaults();
    void ReadLastSettings();
    void CreateSettingsKeys();
    void WriteCustomColorDefaults();
    void WriteMiscDefaults();
    void WriteDefaultSettings();
    void SaveLastSettings();

    LastFolders Folders;
    QString VCPosition;         ///< "L" or "R": side of the views
    double SavedFormHeight = 0; ///< twips, as the settings give them
    double SavedFormWidth = 0;  ///< the same, from the map's width to the screen's
    RecentFiles TextFiles;
    RecentFiles MapFiles;

    // ---- core/Controls.cpp: the controls and their places

    void CreateControls();

    ControlTable Form;
    QWidget *Client = nullptr;
    BandBar *CoolBarCM = nullptr;
    FontCombo *FontNameCombo = nullptr;
    NumberSlider *FontSizeSlider = nullptr; ///< with FontSizeNumber and FontSizeEdit
    BandBar *CoolBarTB = nullptr;
    FillBar *TBPContainer = nullptr;
    ::TextBoard *TextBoard = nullptr;
    FindBar *FindFrame = nullptr;
    ::SplitBar *SplitBar = nullptr;
    FontMap *FMapContainer = nullptr;
    Views *ViewsContainer = nullptr;
    QWidget *LLVContainer = nullptr;
    std::array<QLabel *, 2> SampleText{};
    LockPanels *StatBar = nullptr;

    // ---- core/Layout.cpp: the window's size and the areas in it

    void Form_Resize();
    /// "L" or "R".
    void SetViewsSide(const QString &Side);
    /// Takes the side over as VCPosition too.
    void PutViews(const QString &Side);
    /// Moves everything below the board so that the bar's top is there, in twips.
    void MoveSplit(double target);
    void SplitBar_MouseUp();
    void SplitBar_DblClick();
    bool SplitIsDown() const; ///< the split bar stands below its topmost place
    /// Outer size of the window in twips, menu bar and frame of this desktop left out of account.
    double FormWidth() const { return OuterWidth; }
    double FormHeight() const { return OuterHeight; }
    void SetFormSize(double Width, double Height);
    /// Place of the window with its frame on the desktop, in twips. Where the desktop keeps that to
    /// itself it is the place last asked for, so that the settings keep it for another desktop.
    double FormLeft() const;
    double FormTop() const;
    void SetFormPosition(double Left, double Top);
    /// Moves the window into the work area of its screen.
    void KeepInView();
    /// Takes the screen's twips per pixel over, if they have changed.
    void AdoptScale();
    /// The board gives so many twips of its height to the find bar under it, or takes them back.
    void GiveFindRoom(double Room);

    double EdgeMargin = 105; ///< twips
    int ScreenWidth = 0; ///< pixels, for which MaxMapSize was computed; 0 forces a new computation
    double FindRoom = 0; ///< twips that the board gave to the open find bar

    // ---- core/Menus.cpp: the menus

    void CreateMenus();
    /// Runs the opening procedure of the menu in which an item has this key, so that the key acts
    /// on the state of now.
    void PrepareShortcut(const QKeyEvent &Key);
    void WearDesktopFonts();
    // Run as each menu opens; nothing else brings the items in step.
    void ItemFile_Click();
    void ItemEdit_Click();
    void ItemView_Click();
    void ItemFormat_Click();
    void ItemTools_Click();
    void ItemDisplay_Click();
    void ToolsOpt_Click();
    void VCOnL_Click();
    void VCOnR_Click();
    void DisplayCS_Click();
    void DisplayTT_Click();
    /// One command in a menu of its own, at a point of the screen.
    void OfferCommand(QAction *Command, const QPoint &At);

    QMenu *FormatFM = nullptr;
    QAction *EditDelete = nullptr, *EditSelectAll = nullptr, *EditFind = nullptr;
    QAction *FFontBold = nullptr, *FFontItalic = nullptr;
    QAction *FFontUnderline = nullptr, *FFontStrikethrough = nullptr;
    QAction *AlignLeft = nullptr, *AlignCenter = nullptr, *AlignRight = nullptr;
    QAction *OptLoadTD = nullptr, *OptUnloadTD = nullptr;
    QAction *VCOnL = nullptr, *VCOnR = nullptr;
    QAction *DisplayCD = nullptr, *DisplayOW = nullptr, *DisplayEW = nullptr;
    QAction *DisplayCS = nullptr, *DisplayTT = nullptr;
    QAction *HelpContents = nullptr;

    // ---- core/SetMenuPics.cpp: the pictures of the menus

    /// All pictures, once; shows HelpContents if there is a help file.
    void SetAllMenuPics();

    // ---- core/Help.cpp: the commands of the Help menu

    /// In the current folder, or where the program has its files; it need not be there.
    static QString HelpFile();
    void HelpContents_Click();
    /// The key of the help, pressed in an open menu: closes all menus and shows the topic of the
    /// item that is highlighted, or else of the menu. False, with nothing done, for any other key
    /// and where there is no help file.
    bool ShowMenuHelp(const QMenu &Menu, const QKeyEvent &Key);
    void HelpReadme_Click();
    void HelpCheckUpd_Click();
    void HelpVisit_Click();
    void HelpFeedback_Click();
    void HelpAbout_Click();

    // ---- core/Toolbars.cpp: the toolbars, master copies of the commands' states

    void CreateToolbars();
    void SetToolbarImages();
    void SetToolTips();

    Toolbar *LoadSaveTB = nullptr, *ZndvDefTB = nullptr;
    Toolbar *TBOperationsTB = nullptr, *TextEditTB = nullptr;
    Toolbar *FontFormatTB = nullptr, *TextAlignTB = nullptr;

    // ---- fontmap/MapSizing.cpp: how the window follows the map

    void InitFontMapSizing();
    void FMapContainer_Resized(double Width, double Height);
    void FMapContainer_SizeChanged();
    void FMapContainer_CharacterPicked(const QString &Character);
    /// Lays map, board and window out for the size Steps + 1.
    void ResetSplit(int Steps);
    void FMRealign_Click();
    /// 1: commands that depend on a loaded custom map; 2: on the size and the split bar.
    void UpdateMapCommands(int Which);

    // ---- fontmap/CustomMaps.cpp: loading, unloading and editing custom maps

    void FileCFMLoad_Click();
    void AskLoadCustomMap();
    /// False, and the user is told, if this map is in the grid.
    bool CheckMapNotLoaded(const QString &Path);
    /// Shows the map of a file in the grid. A file that holds none is told, and nothing changes.
    void LoadCustomMap(const QString &Path);
    void FileCFMNew_Click();
    /// Opens the editor on the loaded map, and loads it again if it was saved there.
    void FileCFMEdit_Click();
    /// Back to the default map.
    void FileCFMUnld_Click();

    CustomMapState CustomMap;

    // ---- defaults/MapColors.cpp: the colours of the map

    void FMFColor_Click();
    void FMBColor_Click();

    ::FMColorPalette *FMColorPalette = nullptr; ///< from start-up to the unload

    // ---- fonttools/FontPicking.cpp: the fonts of the system in the font picker

    void InitFonts();
    /// Position in FontNameCombo of the item with the text TBFontName, or 0.
    int FindCurrentFontIndex() const;
    /// True if there is an item with exactly this text; TBFontIndex is then its position.
    bool FindFontItem(const QString &FaceName);
    /// Selects the font of the settings, or the first one where that isn't there.
    void SelectStoredFont();
    void SelectFontByName(const QString &FaceName);
    void FontNameCombo_Click();
    static bool IsSymbolFont(const QString &Name);
    void ToolsFB_Click();
    void ToolsKB_Click();
    /// What follows every window in which a font can be set: the font goes to the board, unless it
    /// is empty, and from there to all that show the board's.
    void TakeFont(const QString &Chosen);

    class FontList FontList;
    QString BrowserFont; ///< SelFont of the font browser, from one opening to the next

    // ---- textboard/Statistics.cpp: the board's text and what shows its state

    void TextBoard_Change();
    /// The commands that need text on the board.
    void EnableTextCommands(bool On);
    void UpdateProgressBar();
    void SyncEditCommands();
    void ApplyTextBoardSettings();
    void SetTabOrder();

    // ---- textboard/TextFiles.cpp: loading and saving the board's text

    void FileLoad_Click();
    /// An empty path asks for the file. A caller that gives a path has put it into PendingFilePath
    /// and its name into PendingFileTitle. From the first question on, what is said to the user is
    /// the only result.
    void LoadTextFile(const QString &Path);
    /// False if the text of this very path is on the board and the user keeps it.
    bool CheckAlreadyLoaded(const QString &Path);
    /// Brings board and controls into line with what TextBoardRTF holds.
    void ApplyLoadedFont();
    void FileSave_Click();

    TextFileState TextFile;

    // ---- textboard/RecentLists.cpp: the lists of recent files in menus and drop-downs, and the
    // ---- desktop's

    /// What one of the two lists has of its own.
    struct RecentList;

    void ReadMRULists();
    void WriteMRULists();
    /// Enters a whole path at the top, and makes its folder the one to load from.
    void AddFileToMRU(const QString &Path);
    void AddMapToMRU(const QString &Path);
    /// Loads the file of a row, counted from 1.
    void FileMRU_Click(int Index);
    void CFMRU_Click(int Index);
    /// Run as the drop-downs of the buttons Load and CFMapLoad open.
    void FillLoadMenu();
    void FillMapMenu(QMenu *menu);

    RecentDocuments Documents;

    // ---- textboard/Editing.cpp: clipboard, deleting, emptying the board

    void EditCut_Click();
    void EditCopy_Click();
    void EditPaste_Click();
    void EditDelete_Click();
    void EditSelectAll_Click();
    void EditFind_Click();
    void ToolsCopy_Click();
    void ToolsCut_Click();
    void ToolsClear_Click();
    /// Puts the whole board on the clipboard, as plain text and as rich text.
    void CopyBoardToClipboard();
    /// Copies the whole text, or the selected one, into TextBoardRTF in the board's format.
    void PrepareRTFBuffer(bool Whole);
    /// Asks the clipboard what it offers, once the window has been painted; until then the board
    /// goes by its last answer.
    void Clipboard_Change();
    /// Takes font, size, styles, alignment and colour from the settings again.
    void RestoreTextBoardDefaults();

    ::TextBoardRTF TextBoardRTF{&Zendova::IsSymbolFont};
    /// Kept, as the answer is another program's and may take long.
    bool ClipboardHasText = false;

    // ---- textboard/Formatting.cpp: font, size, styles, colour and alignment

    void ApplyFontToAll();
    void FontSizeSlider_Change(int Value);
    void SetBold(int On);
    void SetItalic(int On);
    void SetUnderline(int On);
    void SetStrikeout(int On);
    /// 0 left, 1 right, 2 centre.
    void SetAlignment(int Alignment);
    void SetColorFromDialog(ColorValue Color);
    void ShowColorPicker();
    void FormatFont_Click();
    void FFontBold_Click();
    void FFontItalic_Click();
    void FFontUnderline_Click();
    void FFontStrikethrough_Click();
    void AlignLeft_Click();
    void AlignCenter_Click();
    void AlignRight_Click();
    /// Looks for the colour among the sixteen; found, TBColorIndex is its index.
    bool FindColorIndex(ColorValue Color);

    BoardFormat Format;
    PassingFonts ShownFonts; ///< of the map, the zoom and the board

    // ---- textboard/Printing.cpp: the board on paper and over the whole screen

    void ToolsPrint_Click();
    void PrintBoard();
    /// The caret goes to the preview and comes back with its Close.
    void ToolsFS_Click();
    void ShowFullScreen();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override; ///< of the menus
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void CreateMainBar();
    void CreateBoard();
    void ConnectPanels();
    void ConnectBoard();
    void FirstRunPath();
    void CheckScreen();
    double TopmostSplit() const;
    double LowestSplit() const;
    void PlaceFindBar();
    void ShowLoadedMap();
    void ShowEditor(::CustomMap &editor);
    void EmptyBoard();
    bool MayUnload();
    void CopyButtonStates(const char *Menu);
    bool MayDiscardText();
    bool AskForTextFile();
    bool ReadPendingFile();
    bool TakeFontOfFile();
    void ShowLoadedText();
    void TakeColorOfFile();
    void LimitSizeOfFile();
    void TakeFormatOfFile();
    std::optional<QString> WriteTextFile(const ChosenFile &file);
    void ShowFileInTitle(bool partially);
    QAction *RecentItem(const RecentList &list, int index) const;
    void ShowRecentList(const RecentList &list);
    void AddToRecentList(const RecentList &list, const QString &path);
    void LoadRecent(const RecentList &list, int index);
    void FillRecentMenu(const RecentList &list, QMenu *menu);
    static bool WasUnchecked(QAction *item);
    void SetStyle(int style, int on);
    void ShowStylesInZoom();
    void ToggleStyle(int style, const QAction *item);
    void RenewColorButton();
    void RenewColorToolTip();
    void ColorSampleText();
    void EnableSizing(bool on);
    QPoint FormPlace() const;
    QToolButton *StyleButton(int style) const;

    QString CommandTail;
    bool Unloaded = false;
    bool Activating = false;
    QPoint AskedPlace;                             ///< pixels
    bool FirstPaint = true;                        ///< is still to come
    bool ClipboardDue = true;                      ///< to be asked what it offers
    double OuterWidth = 11700, OuterHeight = 8880; ///< twips; the design size
    double LaidOutWidth = OuterWidth;              ///< twips, for which the areas stand
};
