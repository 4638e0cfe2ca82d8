// Loading the board's text from ZUF and TXT files and saving it, with every question on the way.
// The order of the steps is fixed: before the board is cleared a load can be given up without a
// trace, after it the old text is gone. Files are touched by TextBoardRTF alone.
#include "core/Zendova.h"

#include "core/Addresses.h"
#include "core/CheckDFFFunctions.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "core/SettingConversion.h"
#include "platform/FileName.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "textboard/QBColors.h"
#include "textboard/TextBoard.h"
#include "textboard/TextFileKind.h"
#include "textboard/TextFileMessages.h"

#include <QAction>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QSlider>
#include <QToolButton>
#include <array>

namespace {

using FileKind = TextBoardRTF::FileKind;

constexpr auto FileFilter = "Zendova Uniform Format Files (*.ZUF)|*.zuf|Text Files (*.TXT)|*.txt";

void tell(const FileMessage &message, const QString &insert = {})
{
    ZndvMsg(QString::fromUtf8(message.Text).replace("%1", insert), message.Buttons,
            ProductName + message.Title, message.ShowCheck, message.DefaultButton);
}

/// True for Yes.
bool ask(const FileMessage &message, const QString &insert = {})
{
    tell(message, insert);
    return MsgResult;
}

/// Gives the reason of a failure. A large file takes a while.
std::optional<QString> loadFile(TextBoardRTF &buffer, const QString &path, FileKind kind)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard(&QGuiApplication::restoreOverrideCursor);
    return buffer.LoadFile(path, kind);
}

void selectAll(TextBoardRTF &buffer)
{
    buffer.setSelStart(0);
    buffer.setSelLength(buffer.TextLength());
}

} // namespace

// Loading

void Zendova::FileLoad_Click()
{
    LoadTextFile({});
}

void Zendova::LoadTextFile(const QString &Path)
{
    if (!MayDiscardText() || (Path.isEmpty() && !AskForTextFile()))
        return;
    EmptyBoard();
    TextFile.LoadedFilePath.clear();
    TextFile.LoadedFileTitle.clear();
    try {
        if (!ReadPendingFile())
            return;
    } catch (const ConversionError &) {
        throw;                         // of a setting: not the file's fault
    } catch (const std::exception &) { // lack of memory
        return tell(FileMessages::NotReadable);
    }
    const bool partially = TextBoardRTF.TextLength() > ::TextBoard::MaxLength();
    if (partially && !ask(FileMessages::TooLong))
        return TextBoardRTF.setText({}); // which may be large
    try {
        if (partially)
            TextBoardRTF.Truncate(::TextBoard::MaxLength());
        TextFile.IsIncomplete = partially || TextBoardRTF.contents().IsFitted;
        ShowLoadedText();
        ShowFileInTitle(partially);
    } catch (const ConversionError &) {
        throw;
    } catch (const std::exception &) {
        tell(FileMessages::NotShown);
    }
}

bool Zendova::MayDiscardText()
{
    if (TextBoard->TextLength() == 0)
        return true;
    if (TextFile.TextChanged)
        return ask(FileMessages::TextWasChanged);
    if (!DisplayOW->isChecked())
        return true;
    const bool yes = ask(FileMessages::TextIsThere);
    DisplayOW->setChecked(!MsgDontRepeat);
    return yes;
}

bool Zendova::AskForTextFile()
{
    const auto chosen = CmnDlg::ShowOpen(this, {.DialogTitle = "Select a File to Load Text From",
                                                .Filter = FileFilter,
                                                .Flags = FileOffer::FileMustExist,
                                                .InitDir = Folders.LFLoadPath});
    if (!chosen || !CheckAlreadyLoaded(chosen->FileName))
        return false;
    TextFile.PendingFilePath = chosen->FileName;
    TextFile.PendingFileTitle = chosen->FileTitle;
    return true;
}

bool Zendova::CheckAlreadyLoaded(const QString &Path)
{
    if (Path != TextFile.LoadedFilePath)
        return true;
    if (TextFile.TextChanged)
        return ask(FileMessages::LoadedButChanged, Path);
    tell(FileMessages::AlreadyLoaded, Path);
    return false;
}

bool Zendova::ReadPendingFile()
{
    const std::optional<FileKind> kind = TextFileKind(TextFile.PendingFilePath);
    if (!kind) {
        tell(FileMessages::WrongType);
        return false;
    }
    if (const auto reason = loadFile(TextBoardRTF, TextFile.PendingFilePath, *kind)) {
        qWarning("%s: %s", qPrintable(TextFile.PendingFilePath), qPrintable(*reason));
        tell(FileMessages::NotReadable);
        return false;
    }
    if (*kind == FileKind::RichText) {
        TextFile.LoadFontReplaced = false;
        if (!TakeFontOfFile())
            return false;
    }
    selectAll(TextBoardRTF);
    if (TextBoardRTF.SelFontSize() && TextBoardRTF.SelColor() && TextBoardRTF.SelFontName())
        return true;
    tell(FileMessages::NotReadable);
    return false;
}

/// False if the font is not there and the user doesn't want the text without it. The font picker
/// moves already here, also where the text turns out not to be uniform and is refused.
bool Zendova::TakeFontOfFile()
{
    const QString name = TextBoardRTF.SelFontName().value();
    if (FindFontItem(name)) {
        FontNameCombo->SelectItem(Format.TBFontIndex);
        return true;
    }
    if (!ask(FileMessages::FontMissing, name))
        return false;
    TextFile.LoadFontReplaced = true;
    return true;
}

void Zendova::ShowLoadedText()
{
    if (TextFileKind(TextFile.PendingFilePath) == FileKind::PlainText) {
        if (OptLoadTD->isChecked())
            RestoreTextBoardDefaults();
    } else if (!TextFile.LoadFontReplaced) {
        ApplyLoadedFont();
    }
    TextBoard->setText(TextBoardRTF.Text());
    TextFile.TextChanged = false;
    SyncEditCommands();

    AddFileToMRU(TextFile.PendingFilePath);
    Format.TBFontName = TextBoard->FontName();
    TextFile.LoadedFilePath = TextFile.PendingFilePath;
    TextFile.LoadedFileTitle = TextFile.PendingFileTitle;
    Folders.LFLoadPath = WithoutSeparator(SplitAtLastSeparator(TextFile.LoadedFilePath).Folder);
}

void Zendova::ApplyLoadedFont()
{
    selectAll(TextBoardRTF);
    TakeColorOfFile();
    LimitSizeOfFile();
    ApplyFontToAll();
    // What was taken over before a fault stays, and the text is shown all the same.
    try {
        TakeFormatOfFile();
    } catch (const std::exception &) {
        tell(FileMessages::UnknownError, FeedbackAddress);
    }
}

void Zendova::TakeColorOfFile()
{
    if (FindColorIndex(TextBoardRTF.SelColor().value())) {
        Format.TBColorName = QBColorName(Format.TBColorIndex);
        RenewColorToolTip();
        return;
    }
    tell(FileMessages::ForeignColor);
    Format.TBColorIndex = 0;
    Format.TBColorName = QBColorName(Format.TBColorIndex);
    TextBoard->setForeColor(ToColor(QBColor(Format.TBColorIndex), palette()));
}

void Zendova::LimitSizeOfFile()
{
    const int points = NumberSlider::whole(TextBoardRTF.SelFontSize().value());
    const int least = FontSizeSlider->slider()->minimum();
    const int most = FontSizeSlider->slider()->maximum();
    if (points < least) {
        tell(FileMessages::SizeTooSmall);
        TextBoardRTF.setSelFontSize(least);
    } else if (points > most) {
        tell(FileMessages::SizeTooLarge);
        TextBoardRTF.setSelFontSize(most);
    }
}

/// Throws where an attribute differs within the text.
void Zendova::TakeFormatOfFile()
{
    const ::TextBoardRTF &file = TextBoardRTF;
    const double points = file.SelFontSize().value();
    TextBoard->setFontName(file.SelFontName().value());
    TextBoard->setFontSize(points);
    TextBoard->setFontBold(file.SelBold().value());
    TextBoard->setFontItalic(file.SelItalic().value());
    TextBoard->setFontUnderline(file.SelUnderline().value());
    TextBoard->setFontStrikethru(file.SelStrikeThru().value());
    // The file's own colour, also where it is none of the sixteen and the model says black.
    TextBoard->setForeColor(ToColor(file.SelColor().value(), palette()));
    TextBoard->setAlignment(file.SelAlignment().value());

    const std::array styles = {TextBoard->FontBold(), TextBoard->FontItalic(),
                               TextBoard->FontUnderline(), TextBoard->FontStrikethru()};
    for (std::size_t style = 0; style < styles.size(); ++style) {
        Format.TBStyle.at(style) = styles.at(style) ? 1 : 0;
        StyleButton(static_cast<int>(style))->setChecked(styles.at(style));
    }
    RenewColorButton();
    SetAlignment(TextBoard->Alignment());
    FontSizeSlider->setValue(NumberSlider::whole(points));
    FontSizeSlider->showNumber(QString::number(FontSizeSlider->value()));
    TextBoard->setFontSize(points); // the slider has given it whole points; a half stays a half
    ShowStylesInZoom();
}

void Zendova::ShowFileInTitle(bool partially)
{
    setWindowTitle(ProductName + " :  " + FileName::inTitle(TextFile.LoadedFileTitle) +
                   (partially ? " (PARTIALLY LOADED!)" : ""));
    announce(this, FileName::shown(TextFile.LoadedFileTitle) +
                       (partially ? " partially loaded" : " loaded"));
}

// Saving

void Zendova::FileSave_Click()
{
    const bool wasText = TextFileKind(TextFile.LoadedFilePath) == FileKind::PlainText;
    const auto chosen = CmnDlg::ShowSave(this, {.DialogTitle = "Save Text in File",
                                                .Filter = FileFilter,
                                                .FilterIndex = wasText ? 2 : 1,
                                                .Flags = FileOffer::OverwritePrompt,
                                                .InitDir = Folders.LFSavePath,
                                                .FileName = TextFile.LoadedFilePath});
    if (!chosen)
        return;
    // What was never shown is lost with the file that holds it.
    const bool isLoaded = chosen->FileName == TextFile.LoadedFilePath;
    if (isLoaded && TextFile.LoadFontReplaced && !ask(FileMessages::SettingsReplaced))
        return;
    if (isLoaded && TextFile.IsIncomplete && !ask(FileMessages::TextReplaced))
        return;
    if (const auto reason = WriteTextFile(*chosen))
        return tell(FileMessages::NotSaved, *reason + '\r' + chosen->FileName);
    if (!isLoaded)
        TextFile.LoadFontReplaced = false;
    TextFile.IsIncomplete = false;
    AddFileToMRU(chosen->FileName);
    TextFile.LoadedFilePath = chosen->FileName;
    TextFile.LoadedFileTitle = chosen->FileTitle;
    Folders.LFSavePath = WithoutSeparator(SplitAtLastSeparator(TextFile.LoadedFilePath).Folder);
    ShowFileInTitle(false);
    TextFile.TextChanged = false;
}

/// Gives the reason of a failure.
std::optional<QString> Zendova::WriteTextFile(const ChosenFile &file)
{
    // Small letters only: any other name, one in capitals too, gets the formatted kind.
    if (file.FileTitle.endsWith("txt")) {
        TextBoardRTF.setText(TextBoard->Text());
        return TextBoardRTF.SaveFile(file.FileName, FileKind::PlainText);
    }
    PrepareRTFBuffer(true);
    return TextBoardRTF.SaveFile(file.FileName, FileKind::RichText);
}
