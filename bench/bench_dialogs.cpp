// What the other windows cost: each from its command to the painted window and closed again, and
// what is done most in them. Each round ends with everything painted.
#include "bench/BenchWindow.h"
#include "fontmap/CustomMap.h"
#include "fontmap/CustomMapFile.h"
#include "fonttools/Keyboard.h"
#include "platform/RegularFile.h"
#include "platform/controls/FontCombo.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QDialog>
#include <QTemporaryDir>
#include <QTimer>

namespace {

/// Closes every dialog as soon as it has been painted.
class Closer : public QObject
{
public:
    Closer() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = event->type() == QEvent::Paint ? qobject_cast<QDialog *>(watched) : nullptr;
        if (dialog)
            QTimer::singleShot(0, dialog, &QDialog::reject);
        return false;
    }
};

void opens(benchmark::State &state, const char *command)
{
    window->TextBoard->setText(
        QString("The quick brown fox jumps over the lazy dog.\n").repeated(1340));
    paint();
    const Closer closer;
    auto *action = window->findChild<QAction *>(command);
    action->setEnabled(true);
    for ([[maybe_unused]] auto unused : state)
        action->trigger();
}

/// A full map from its file to the painted grid.
void loadMap(benchmark::State &state)
{
    const QTemporaryDir folder;
    CustomMapFile::Captions captions;
    for (int cell = 0; cell < CellCount; ++cell)
        captions.at(static_cast<std::size_t>(cell)) = CharacterOf(255 - cell);
    const QString path = folder.filePath("full.zcm");
    if (RegularFile::write(path, CustomMapFile::write(captions)))
        return state.SkipWithError("The file can't be written.");
    for ([[maybe_unused]] auto unused : state) {
        window->LoadCustomMap(path);
        paint();
        state.PauseTiming();
        window->FileCFMUnld_Click();
        paint();
        state.ResumeTiming();
    }
}

/// All characters from the list to the map, one after the other.
void fillMap(benchmark::State &state)
{
    for ([[maybe_unused]] auto unused : state) {
        state.PauseTiming();
        CustomMap editor(window->FontList, window);
        editor.SetupNewCFMap(1, window->FontNameCombo->ItemText(1), 12);
        editor.show();
        paint();
        state.ResumeTiming();
        for (int move = 0; move < CellCount; ++move) {
            editor.cmdListToMap_Click();
            paint();
        }
        state.PauseTiming();
        editor.hide();
        state.ResumeTiming();
    }
}

void shift(benchmark::State &state)
{
    Keyboard keyboard(window->FontList, window);
    keyboard.SetupKeyboard(1, window->FontNameCombo->ItemText(1), 12);
    keyboard.show();
    paint();
    bool shifted = false;
    for ([[maybe_unused]] auto unused : state) {
        shifted = !shifted;
        shifted ? keyboard.ShowShifted() : keyboard.ShowUnshifted();
        paint();
    }
}

} // namespace

BENCHMARK_CAPTURE(opens, custom_map, "FileCFMNew")->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(opens, palette, "FMFColor")->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(opens, options, "ToolsOpt")->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(opens, font_browser, "ToolsFB")->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(opens, keyboard, "ToolsKB")->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(opens, preview, "ToolsFS")->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(loadMap)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(fillMap)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(shift)->Unit(benchmark::kMillisecond)->Iterations(50);

int main(int argc, char *argv[])
{
    return runOnWindow(argc, argv);
}
