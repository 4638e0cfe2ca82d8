// What the running window costs: a change of the font over map, zoom and a full board, the size of
// the map, the mouse over the cells, the font browser, a full board from and to a file. Each round
// ends with everything painted.
#include "bench/BenchWindow.h"
#include "fontmap/FontMap.h"
#include "fonttools/FontBrowser.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "textboard/FindBar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

void chooseFont(int position)
{
    window->FontNameCombo->SelectItem(position);
    window->FontNameCombo_Click();
    paint();
}

void fillBoard()
{
    window->TextBoard->setText(
        QString("The quick brown fox jumps over the lazy dog, and then some more words to 78.\n")
            .repeated(800));
    paint();
}

void changeToKnownFont(benchmark::State &state)
{
    fillBoard();
    chooseFont(2);
    int position = 1;
    for ([[maybe_unused]] auto unused : state)
        chooseFont(position = 3 - position);
}

void changeToNewFont(benchmark::State &state)
{
    fillBoard();
    int position = 2;
    for ([[maybe_unused]] auto unused : state)
        chooseFont(++position);
}

void hover(benchmark::State &state, bool highlight)
{
    window->FMapContainer->FMHiLite->setChecked(highlight);
    int cell = 0;
    for ([[maybe_unused]] auto unused : state) {
        window->FMapContainer->CharButton_MouseMove(cell = (cell + 1) % CellCount);
        paint();
    }
    window->FMapContainer->FMHiLite->setChecked(false);
}

/// What the program itself does as its menus open, all of them.
void menusOpen(benchmark::State &state)
{
    const QList<QMenu *> menus = window->menuBar()->findChildren<QMenu *>();
    for ([[maybe_unused]] auto unused : state)
        for (QMenu *menu : menus)
            emit menu->aboutToShow();
}

void mapSizeJump(benchmark::State &state)
{
    int size = 1;
    for ([[maybe_unused]] auto unused : state) {
        size = size == 1 ? 24 : 1;
        window->FMapContainer->sldSetFMapSize->setValue(size);
        paint();
    }
}

/// A file of 61,440 characters to the painted board.
void loadFile(benchmark::State &state)
{
    const QTemporaryDir folder;
    window->TextFile.PendingFilePath = folder.filePath("full.zuf");
    fillBoard();
    window->PrepareRTFBuffer(true);
    if (window->TextBoardRTF.SaveFile(window->TextFile.PendingFilePath,
                                      TextBoardRTF::FileKind::RichText))
        return state.SkipWithError("The file can't be written.");
    for ([[maybe_unused]] auto unused : state) {
        state.PauseTiming();
        window->TextBoard->setText({}); // nothing is asked about an empty board
        paint();
        state.ResumeTiming();
        window->LoadTextFile(window->TextFile.PendingFilePath);
        paint();
    }
    if (window->TextBoard->TextLength() != TextBoard::MaxLength())
        state.SkipWithError("The file did not arrive.");
}

/// The same to the bytes of the file, the disk left out.
void writeFile(benchmark::State &state)
{
    fillBoard();
    for ([[maybe_unused]] auto unused : state) {
        window->PrepareRTFBuffer(true);
        benchmark::DoNotOptimize(window->TextBoardRTF.TextRTF());
    }
}

/// From the click on the button to the selected hit, over the whole board.
void search(benchmark::State &state)
{
    const QString needle = "needle";
    fillBoard();
    window->TextBoard->setSelStart(TextBoard::MaxLength() - static_cast<int>(needle.size()));
    window->TextBoard->setSelLength(static_cast<int>(needle.size()));
    window->TextBoard->setSelText(needle);
    window->FindFrame->ShowFindBar(1);
    window->FindFrame->FindString->setText(needle);
    for ([[maybe_unused]] auto unused : state) {
        state.PauseTiming();
        window->TextBoard->setSelStart(0);
        paint();
        state.ResumeTiming();
        window->FindFrame->FindNextButton->click();
    }
    if (window->TextBoard->SelText() != needle)
        state.SkipWithError("not found");
    window->FindFrame->CloseFindButton_Click();
}

/// The whole board to the clipboard in both formats.
void copyBoard(benchmark::State &state)
{
    fillBoard();
    for ([[maybe_unused]] auto unused : state)
        window->CopyBoardToClipboard();
}

/// The font browser from the click to the painted window, closed again.
void browserOpens(benchmark::State &state)
{
    for ([[maybe_unused]] auto unused : state) {
        QString shown;
        FontBrowser browser(window->FontList, shown, window);
        browser.FontNameXchg(1, window->FontNameCombo->ItemText(1));
        browser.show();
        paint();
        state.PauseTiming();
        browser.hide();
        paint();
        state.ResumeTiming();
    }
}

/// Rows of the browser's list one after the other, as with the arrow held down: every row once, or
/// the first two in turn. Tells the memory that the process then has, in MiB of proportional set
/// size.
void browse(benchmark::State &state, bool known)
{
    QString shown;
    FontBrowser browser(window->FontList, shown, window);
    browser.FontNameXchg(1, window->FontNameCombo->ItemText(1));
    browser.show();
    paint();
    const QAbstractItemModel &items = *browser.FontListView->model();
    int row = 0;
    for ([[maybe_unused]] auto unused : state) {
        row = known ? 1 - row : (row + 1) % items.rowCount();
        browser.FontListView->setCurrentIndex(items.index(row, 0));
        paint();
    }
    state.counters["MiB"] = proportionalMiB();
}

} // namespace

BENCHMARK(browserOpens)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(browse, knownFonts, true)->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK_CAPTURE(browse, newFonts, false)->Unit(benchmark::kMillisecond)->Iterations(10000);
BENCHMARK(changeToKnownFont)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(changeToNewFont)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(hover, plain, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hover, highlighted, true)->Unit(benchmark::kMillisecond);
BENCHMARK(menusOpen)->Unit(benchmark::kMillisecond);
BENCHMARK(mapSizeJump)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(search)->Unit(benchmark::kMillisecond);
BENCHMARK(copyBoard)->Unit(benchmark::kMillisecond);
BENCHMARK(loadFile)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(writeFile)->Unit(benchmark::kMillisecond);

int main(int argc, char *argv[])
{
    return runOnWindow(argc, argv);
}
