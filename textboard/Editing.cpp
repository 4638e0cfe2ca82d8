// The Edit commands, which work on the selection, and the Tools commands, which work on the whole
// board: the clipboard, deleting, and emptying the board. All of them act on the board wherever the
// focus is; only a partial paste goes where the focus is.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/ClipboardFormats.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <algorithm>
#include <new>

namespace {

/// Runs a step of pasting. A large text may find no memory, which is told; false then.
template<class Step>
bool paste(Step step)
{
    try {
        step();
        return true;
    } catch (const std::bad_alloc &) {
        ZndvMsg("\r\rPaste operation cannot be completed successfully\r"
                "because of memory constraints.\r\r"
                "You may try to reduce the size of the\r"
                "string on Windows Clipboard and try again.",
                "OK", ProductName + " Paste Error", false, 1);
        return false;
    }
}

/// Says that the board is on the clipboard, unless the user has silenced it.
void confirm(QAction *display, const QString &body, const QString &title)
{
    if (!display->isChecked())
        return;
    ZndvMsg(body, "OK", ProductName + title, true, 1);
    display->setChecked(!MsgDontRepeat);
}

} // namespace

void Zendova::EditCut_Click()
{
    ClipboardFormats::setText(TextBoard->SelText());
    TextBoard->setSelText({});
    SyncEditCommands();
}

void Zendova::EditCopy_Click()
{
    ClipboardFormats::setText(TextBoard->SelText());
    SyncEditCommands();
}

void Zendova::EditPaste_Click()
{
    const int count = TextBoard->TextLength();
    if (count == ::TextBoard::MaxLength() && TextBoard->SelLength() == 0) {
        ZndvMsg("\r\r\r\rPaste operation cannot be completed successfully.\r"
                "The TextBoard is already filled to it's capacity.",
                "OK", ProductName + " Paste Error", false, 1);
        return;
    }
    QString text;
    const bool read = paste([&] {
        const std::optional<QString> offered = ClipboardFormats::text();
        // An owner that answers no more has told of no change. It isn't asked again.
        ClipboardHasText = offered.has_value();
        text = ::TextBoard::Fitting(offered.value_or(QString()));
    });
    if (!read)
        return;
    if (text.isEmpty()) {
        SyncEditCommands();
        return;
    }
    // Whether all of it fits is asked as if the selection stayed; how much fits is not.
    if (text.size() <= TextBoard->MaxLength() - count) {
        if (paste([&] { TextBoard->setSelText(text); }))
            SyncEditCommands();
        return;
    }
    ZndvMsg("\rLength of the text string you are trying to paste exceeds\r"
            "the maximum limit (61,440 characters) of the TextBoard.\r"
            "A partial paste upto the limit of the TextBoard is possible.\r\r"
            "Continue Paste?\r"
            "• Press Yes to paste partial string.\r"
            "• Press No to cancel paste.",
            "YN", ProductName + " TextBoard Limit Warning", false, 1);
    if (!MsgResult)
        return;
    const QString part = text.left(TextBoard->MaxLength() - (count - TextBoard->SelLength()));
    paste([&] {
        if (FindFrame->FindHasFocus())
            FindFrame->FindString->insert(part);
        else
            TextBoard->setSelText(part);
    });
}

void Zendova::EditDelete_Click()
{
    TextBoard->setSelText({});
    SyncEditCommands();
}

void Zendova::EditSelectAll_Click()
{
    TextBoard->selectAll(); // a caret that is set would scroll to it
}

void Zendova::EditFind_Click()
{
    // The menu's mark is a copy of the button's state, and the toolkit has flipped it by now.
    QToolButton *button = TextEditTB->button("Find");
    button->setChecked(!button->isChecked());
    FindFrame->ShowFindBar(button->isChecked() ? 1 : 0);
}

void Zendova::Clipboard_Change()
{
    ClipboardDue = true;
    SyncEditCommands();
}

void Zendova::PrepareRTFBuffer(bool Whole)
{
    TextBoardRTF.setText(Whole ? TextBoard->Text() : TextBoard->SelText());
    TextBoardRTF.setSelStart(0);
    TextBoardRTF.setSelLength(TextBoardRTF.TextLength());
    TextBoardRTF.setSelFontName(TextBoard->FontName());
    TextBoardRTF.setSelFontSize(TextBoard->FontSize());
    TextBoardRTF.setSelBold(TextBoard->FontBold());
    TextBoardRTF.setSelItalic(TextBoard->FontItalic());
    TextBoardRTF.setSelUnderline(TextBoard->FontUnderline());
    TextBoardRTF.setSelStrikeThru(TextBoard->FontStrikethru());
    TextBoardRTF.setSelColor(FromColor(TextBoard->ForeColor()));
    TextBoardRTF.setSelAlignment(TextBoard->Alignment());
}

void Zendova::CopyBoardToClipboard()
{
    PrepareRTFBuffer(true);
    ClipboardFormats::setText(TextBoard->Text(), TextBoardRTF.TextRTF());
}

void Zendova::ToolsCopy_Click()
{
    CopyBoardToClipboard();
    confirm(DisplayCD, "\r\r\r\rTextBoard contents have been copied to Windows Clipboard.",
            " Copy Successful");
}

void Zendova::ToolsCut_Click()
{
    CopyBoardToClipboard();
    EditSelectAll_Click();
    TextBoard->setSelText({}); // can be undone, as nothing asked before
    TextBoardRTF.setText({});
    confirm(DisplayCD, "\r\r\r\rTextBoard contents have been cut to Windows Clipboard.",
            " Cut Successful");
}

void Zendova::EmptyBoard()
{
    TextBoard->setText({});
    TextBoardRTF.setText({});
}

bool Zendova::MayUnload()
{
    const QString question = "Continue Unloading?\r"
                             "• Press Yes to continue unloading TextBoard.\r"
                             "• Press No to cancel operation.";
    if (TextFile.TextChanged) {
        ZndvMsg("\r\rText on the TextBoard has been changed.\r"
                "You will lose these changes by unloading the TextBoard now.\r\r" +
                    question,
                "YN", ProductName + " TextBoard Save Warning", false, 1);
        return MsgResult;
    }
    if (!DisplayOW->isChecked())
        return true;
    ZndvMsg("\r\rYou have text on the TextBoard.\r"
            "You will lose this text by unloading the TextBoard now.\r\r" +
                question,
            "YN", ProductName + " TextBoard Unload Warning", true, 1);
    DisplayOW->setChecked(!MsgDontRepeat);
    return MsgResult;
}

void Zendova::ToolsClear_Click()
{
    if (!MayUnload())
        return;
    EmptyBoard();
    TextFile.LoadedFilePath.clear();
    TextFile.LoadedFileTitle.clear();
    setWindowTitle(ProductName + VersionSuffix);
    if (OptUnloadTD->isChecked())
        RestoreTextBoardDefaults();
    if (!FindFrame->isHidden())
        FindFrame->CloseFindButton_Click();
    SyncEditCommands();
}

void Zendova::RestoreTextBoardDefaults()
{
    ReadTextBoardDefaults();
    ApplyTextBoardSettings();
    SelectStoredFont();
    ApplyFontToAll();
}
