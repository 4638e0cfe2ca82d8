// The order of a run: start-up, first activation, the start-up file, a change of the display, the
// question at the end and the tear-down. It calls the procedures of all other topics; the order of
// the calls is the whole of its knowledge.
#include "core/Zendova.h"

#include "core/CheckDFFFunctions.h"
#include "core/Display.h"
#include "core/GlobalDeclarations.h"
#include "core/LockPanels.h"
#include "core/Message.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "defaults/FMColorPalette.h"
#include "fontmap/FontMap.h"
#include "fontmap/MapSize.h"
#include "fontmap/Views.h"
#include "platform/SysInfo.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/SplitBar.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"
#include "textboard/TextFileKind.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMimeData>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace {

constexpr int LeastScreenWidth = 800; // pixels

void showScreenMessage()
{
    ZndvMsg("\rYour screen and/or font size is not adequate to run Zendova.\r\r"
            "To run properly, Zendova needs at least 800x600 resolution\r"
            " with Small Fonts or 1024x768 resolution with Large Fonts.\r\r"
            "Please change your screen resolution and/or\r"
            "font size accordingly and try again.",
            "OK", ProductName + " Resource Initilalization Error", false, 1);
}

constexpr auto StartupTitle = " Startup File Load Error";
constexpr auto DropTitle = " File Load Error";
constexpr auto MapTitle = " Custom Map Load Error";

/// Of the files of this computer in what is being dragged the first that can be loaded, or the
/// first of all; empty if there is none.
QString firstFile(const QMimeData *dragged)
{
    QStringList files;
    for (const QUrl &url : dragged->urls())
        if (url.isLocalFile())
            files += url.toLocalFile();
    const auto ours = std::ranges::find_if(
        files, [](const QString &path) { return TextFileKind(path).has_value(); });
    return ours != files.end() ? *ours : files.value(0);
}

/// True for a good path; the user is told otherwise.
bool isThere(const QString &path, const QString &title)
{
    const QString notice = PathNotice(path);
    if (!notice.isEmpty())
        ZndvMsg(notice, "OK", ProductName + title, false, 1);
    return notice.isEmpty();
}

} // namespace

Zendova::~Zendova() = default;

void Zendova::Start()
{
    Form_Initialize();
    Form_Load();
    create(); // the window system's window, by which its screen is known
    SysInfo::current().follow(windowHandle());
    KeepInView();
    show();
}

void Zendova::Form_Initialize()
{
    // The family of the platform decides about its common controls; this toolkit has no such call.
    static_assert(SysInfo::OSPlatform == 2 && SysInfo::OSVersion >= 5);
}

void Zendova::Form_Load()
{
    // Both names grow along the way and are whole only at the end; a message shown before shows
    // them as far as they have come.
    ProductName = "Z";
    CreditLine = QChar(169);
    LoadAborted = false;
    CreditLine += " Z";

    CaptureDesignLayout();
    CheckScreen();
    FirstActivate = true;
    LoadSettings();
    if (LoadAborted)
        EndProgram();
    FMapContainer->FillDefaultMap();
    SetToolbarImages();
    FontMap &map = *FMapContainer;
    if (map.SizeIndex > 1) {
        map.SetFontMapSize(map.SizeIndex - 1, true);
        if (!DefaultsApplied)
            RestoreStoredWindow();
        DefaultsApplied = false;
        if (map.MaxMapSize == map.SizeIndex)
            map.FMLarger->setEnabled(false);
        map.FMSmaller->setEnabled(true);
    }
    InitFonts();
    if (LoadAborted)
        EndProgram();
    ApplyFontToAll();
    if (LoadAborted)
        EndProgram();
    FMColorPalette = new ::FMColorPalette(this);
    InitFontMapSizing();
    CreditLine += "ork";
    ApplyTextBoardSettings();
    ApplyViewSettings();
    SetAllMenuPics();
}

void Zendova::CheckScreen()
{
    if (DisplayMode::Display() < LeastScreenWidth) {
        // Not as a request to close: that would wait for an open dialog, and this does not.
        if (!FirstActivate && Form_QueryUnload())
            Form_Unload();
        showScreenMessage();
        LoadAborted = true;
    }
    if (LoadAborted)
        EndProgram();
}

void Zendova::CaptureDesignLayout()
{
    TextFile.TextChanged = false;
    DefaultsApplied = false;
    EdgeMargin = Form.left(SplitBar);
    ScreenWidth = DisplayMode::Display();
    FontMap &map = *FMapContainer;
    map.Fore.Color = ViewsContainer->TextZoom->ForeColor(0);
    map.Back.Color = ViewsContainer->TextZoom->BackColor(0);
    ColorSampleText();
    ProductName += 'e';
    CreditLine += 'e';
}

void Zendova::RestoreStoredWindow()
{
    const FontMap &map = *FMapContainer;
    const TwipScale scale = Form.wholeScale();
    // A height or a size that this screen can't show would put the map out of reach.
    const double saved = std::min(SavedFormHeight, SysInfo::current().WorkAreaHeight());
    if (saved <= MapSize::FormHeight(map.SizeIndex - 1, scale) || map.SizeIndex > map.MaxMapSize)
        return;
    Form.setTop(FMapContainer, saved - Form.height(FMapContainer) - 68 * scale.Y);
    Form.setHeight(TextBoard,
                   saved - Form.top(TextBoard) - Form.height(FMapContainer) - 70 * scale.Y);
    // A width that is damaged, or of another density, may neither cut the map off nor leave the
    // screen.
    const double least = MapSize::FormWidth(map.SizeIndex - 1, scale);
    const double most = std::max(least, SysInfo::current().WorkAreaWidth());
    SetFormSize(std::clamp(SavedFormWidth, least, most), saved);
}

void Zendova::ApplyViewSettings()
{
    Views &views = *ViewsContainer;
    views.ZoomViewSet(views.ViewZoom->isChecked());
    views.CodeViewSet(views.ViewCode->isChecked());
    views.KeystrokeViewSet(views.ViewKS->isChecked());
    views.SetZoomSize(views.ZoomSizeSlider->value());
    SetViewsSide(VCPosition);
    FontMap &map = *FMapContainer;
    map.ApplyFontMapColors(views.TextZoom->ForeColor(0) != map.Fore.Color, map.Fore.Color,
                           views.TextZoom->BackColor(0) != map.Back.Color, map.Back.Color);
    ColorSchemeOn = DisplayCS->isChecked();
    UpdateMapCommands(1);
    map.tlbCFMapFmt->button("FMapH")->setChecked(map.FMHiLite->isChecked());
    map.SetCellBorders(map.FMBorders->isChecked() ? 1 : 0);
    map.tlbCFMapFmt->button("FMapG")->setChecked(map.FMBorders->isChecked());
    if (FirstActivate)
        UpdateProgressBar();
    SetToolTips();
    SetTabOrder();
    CreditLine += 's';
}

bool Zendova::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
        Form_Resize();
        // A window manager may keep a new window from taking the focus; it is a window all the
        // same.
        QMetaObject::invokeMethod(this, &Zendova::Form_Activate, Qt::QueuedConnection);
        break;
    case QEvent::WindowActivate:
        StatBar->locks().refresh(); // another window may have had the keyboard
        // Later, as questions may be asked and this is still on its way to others.
        QMetaObject::invokeMethod(this, &Zendova::Form_Activate, Qt::QueuedConnection);
        break;
    case QEvent::ShortcutOverride:
        PrepareShortcut(static_cast<const QKeyEvent &>(*event));
        break;
    case QEvent::Paint:
        // What waits for it is done when this is on the screen.
        if (std::exchange(FirstPaint, false))
            QMetaObject::invokeMethod(this, &Zendova::SyncEditCommands, Qt::QueuedConnection);
        break;
    case QEvent::PaletteChange:
        // What is painted asks for its colours then; what keeps them takes the new ones.
        if (SampleText.back())
            ColorSampleText();
        break;
    default:
        break;
    }
    return QMainWindow::event(event);
}

void Zendova::Form_Activate()
{
    // A message of this very procedure lets the window be activated again while it is open.
    if (!FirstActivate || Activating || Unloaded)
        return;
    Activating = true;
    StatBar->locks().refresh();
    for (QLabel *label : SampleText)
        label->setText(CreditLine + label->text());
    setWindowTitle(ProductName + VersionSuffix);
    TextBoard->setFocus();
    if (const std::optional<QString> path = GetCommandLine())
        RouteFile(*path, StartupTitle);
    FirstActivate = false;
}

void Zendova::RouteFile(const QString &path, const QString &title)
{
    const auto [folder, name] = SplitAtLastSeparator(path);
    if (EndingOf(path) == "ZCM") {
        Folders.LMLoadPath = folder;
        if (CheckMapNotLoaded(path))
            LoadCustomMap(path);
    } else if (!TextFileKind(path)) {
        ZndvMsg("\r\r\rFiles with extension '" + EndingOf(path) + "' are not valid " + ProductName +
                    " files.\r\rOnly valid extensions are TXT, ZUF and ZCM.",
                "OK", ProductName + title, false, 1);
    } else if (CheckAlreadyLoaded(path)) {
        Folders.LFLoadPath = folder;
        TextFile.PendingFilePath = path;
        TextFile.PendingFileTitle = name;
        LoadTextFile(TextFile.PendingFilePath);
    }
}

std::optional<QString> Zendova::GetCommandLine()
{
    QString path = CommandTail;
    if (path.isEmpty() && CustomMap.InitMap)
        path = CustomMap.InitMapPath;
    if (path.startsWith('"'))
        path.remove(0, 1);
    if (path.endsWith('"'))
        path.chop(1);
    if (path.isEmpty())
        return std::nullopt;
    // What is remembered of the file must lead to it from any other folder too. Behind a link to a
    // folder ".." is not the folder before it.
    if (path.contains('/') && !path.endsWith('/')) {
        path = QFileInfo(path).absoluteFilePath();
        if (const QString clean = QDir::cleanPath(path); QFileInfo(clean) == QFileInfo(path))
            path = clean;
    }
    if (!isThere(path, StartupTitle))
        return std::nullopt;
    return path;
}

void Zendova::dragEnterEvent(QDragEnterEvent *event)
{
    if (firstFile(event->mimeData()).isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void Zendova::dropEvent(QDropEvent *event)
{
    // Later, as questions may be asked and the program that the file comes from waits for this to
    // return. It is only read, whatever that program proposes.
    QMetaObject::invokeMethod(
        this, [this, path = firstFile(event->mimeData())] { OpenDroppedFile(path); },
        Qt::QueuedConnection);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void Zendova::OpenDroppedFile(const QString &path)
{
    // A command may have been quicker and have its dialog open, whose text this would replace.
    if (Unloaded || IsDialogOpen())
        return;
    activateWindow();
    const QString title = EndingOf(path) == "ZCM" ? MapTitle : DropTitle;
    if (isThere(path, title))
        RouteFile(path, title);
}

void Zendova::FileExit_Click()
{
    close();
}

void Zendova::closeEvent(QCloseEvent *event)
{
    if (Unloaded) {
        event->accept();
        return;
    }
    // The window system asks for no close while a dialog is open, but the end of a session does.
    // The dialog is answered first, and the exit asked for again: what runs goes to its end.
    if (IsDialogOpen() || !Form_QueryUnload()) {
        event->ignore();
        return;
    }
    Form_Unload();
    event->accept();
}

bool Zendova::Form_QueryUnload()
{
    if (!DisplayEW->isChecked() || TextBoard->TextLength() == 0)
        return true;
    if (isMinimized())
        showNormal();
    ZndvMsg("\r\r\r\rDiscard text on the TextBoard and Exit?", "YN", ProductName + " Exit Warning",
            true, 2);
    DisplayEW->setChecked(!MsgDontRepeat);
    return MsgResult;
}

void Zendova::Form_Unload()
{
    Unloaded = true;
    hide();
    if (FMColorPalette) // a screen that is too small ends the start before
        FMColorPalette->SaveCustomColors();
    for (const QStringView name : {u"FMFPaletteRef", u"FMBPaletteRef", u"FMFColorIndex",
                                   u"FMBColorIndex", u"FMFColorName", u"FMBColorName"})
        RegDropValue(HKEY_CURRENT_USER, SettingsPath(u"Temp"), name);
    RepairRan = false;
    SaveLastSettings();
}

void Zendova::EndProgram()
{
    throw ProgramEnd();
}

void Zendova::SysInfo_DisplayChanged()
{
    if (Unloaded)
        return;
    CheckScreen();
    DisplayEventSeen = true;
    AdoptScale();
    Form_Resize(); // takes the new width over and brings the map into it
    if (!isMinimized() && !isMaximized() && !isFullScreen()) {
        const SysInfo &screen = SysInfo::current();
        SetFormPosition(screen.WorkAreaLeft() + screen.WorkAreaWidth() / 2 - FormWidth() / 2,
                        screen.WorkAreaTop() + screen.WorkAreaHeight() / 2 - FormHeight() / 2);
    }
    InitFontMapSizing();
    ViewsContainer->ViewsTB->update();
}
