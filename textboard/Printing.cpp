// The two ways of reading the board out: on paper, through the rich-text buffer, and over the whole
// screen. Neither changes the text.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/FileName.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/PrintJob.h"
#include "textboard/BoardPages.h"
#include "textboard/TBPreview.h"
#include "textboard/TextBoard.h"

#include <QGuiApplication>
#include <QScopeGuard>
#include <cmath>

namespace {

/// Gives the reason of a failure.
std::optional<QString> print(PrintJob &job, const RichText &text)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard(&QGuiApplication::restoreOverrideCursor);
    const auto layout = [&text](QPagedPaintDevice &device) {
        const auto pages = std::make_shared<BoardPages>(text, CatalogBoardFont, device);
        return PrintedPages{.Count = pages->count(), .Paint = [pages](QPainter &painter, int page) {
                                pages->paint(painter, page);
                            }};
    };
    return job.Print(layout, ToColor(text.Formats.begin()->Of.Color, QGuiApplication::palette()));
}

} // namespace

void Zendova::ToolsPrint_Click()
{
    PrintBoard();
}

void Zendova::PrintBoard()
{
    const QString file = FileName::shown(TextFile.LoadedFileTitle);
    const auto job =
        CmnDlg::ShowPrinter(this, {.DocName = file.isEmpty() ? ProductName + " TextBoard" : file,
                                   .Selection = TextBoard->SelLength() > 0});
    if (!job)
        return;
    // The whole board, also where only the selection was asked for.
    PrepareRTFBuffer(true);
    if (const auto reason = print(*job, TextBoardRTF.contents()))
        ZndvMsg("\rThe text could not be printed.\rIt is still on the TextBoard.\r\r" + *reason +
                    '\r' + job->Target(),
                "OK", ProductName + " Print Error", false, 1);
}

void Zendova::ToolsFS_Click()
{
    TextSelStart = TextBoard->SelStart();
    ShowFullScreen();
    TextBoard->setSelStart(static_cast<int>(std::lround(TextSelStart)));
}

void Zendova::ShowFullScreen()
{
    TBPreview(*TextBoard, this).exec();
}
