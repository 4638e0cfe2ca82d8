// Memory after long use: what the process has (proportional set size, MiB) once everything has been
// done some times, and at the end of many more. Each round ends with everything painted.
#include "bench/BenchWindow.h"
#include "platform/RegularFile.h"
#include "platform/controls/FontCombo.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QDialog>
#include <QTemporaryDir>
#include <QTimer>

namespace {

/// Paints every dialog that comes up, and closes it.
class Closer : public QObject
{
public:
    Closer() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = event->type() == QEvent::Show ? qobject_cast<QDialog *>(watched) : nullptr;
        if (dialog)
            QTimer::singleShot(0, dialog, [this, dialog] {
                dialog->repaint();
                ++Closed;
                dialog->reject();
            });
        return false;
    }

    benchmark::IterationCount Closed = 0;
};

/// The same action all the time, a tenth of it (at most a thousand) to warm up.
template<class Action>
void measure(benchmark::State &state, Action action)
{
    const auto warmUp = std::min<benchmark::IterationCount>(state.max_iterations / 10, 1000);
    for (benchmark::IterationCount i = 0; i < warmUp; ++i)
        action();
    state.counters["MiB before"] = proportionalMiB();
    for ([[maybe_unused]] auto unused : state)
        action();
    state.counters["MiB after"] = proportionalMiB();
}

/// Through all fonts again and again.
void fontChanges(benchmark::State &state)
{
    int position = 0;
    measure(state, [&position] {
        position = position % window->FontNameCombo->ItemCount() + 1;
        window->FontNameCombo->SelectItem(position);
        window->FontNameCombo_Click();
        paint();
    });
}

/// Texts of 50,000 characters, each in another font, colour and size.
void loads(benchmark::State &state)
{
    const QTemporaryDir folder;
    int number = 0;
    measure(state, [&] {
        const int font = ++number % window->FontNameCombo->ItemCount() + 1;
        const QByteArray text =
            "{\\rtf1\\ansi{\\fonttbl{\\f0 " + window->FontNameCombo->ItemText(font).toUtf8() +
            ";}}{\\colortbl;\\red255;}\\f0\\cf" + QByteArray::number(number % 2) + "\\fs" +
            QByteArray::number(20 + number % 40) +
            QByteArray(" Some words for a line.\\par\n").repeated(2000) + '}';
        const QString path = folder.filePath(QString::number(number % 20) + ".zuf");
        window->TextBoard->setText({}); // nothing is asked about an empty board
        if (RegularFile::write(path, text))
            state.SkipWithError("The file can't be written.");
        window->TextFile.PendingFilePath = path;
        window->LoadTextFile(path);
        paint();
    });
    if (window->TextBoard->TextLength() < 40000)
        state.SkipWithError("The file did not arrive.");
}

void opens(benchmark::State &state, const char *command)
{
    const Closer closer;
    auto *action = window->findChild<QAction *>(command);
    action->setEnabled(true);
    measure(state, [action] {
        action->trigger();
        paint();
    });
    if (closer.Closed < state.max_iterations)
        state.SkipWithError("Not every time there was a dialog.");
}

} // namespace

BENCHMARK(fontChanges)->Unit(benchmark::kMillisecond)->Iterations(100000);
BENCHMARK(loads)->Unit(benchmark::kMillisecond)->Iterations(10000);
BENCHMARK_CAPTURE(opens, text_dialog, "FileLoad")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, custom_map, "FileCFMNew")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, font, "FormatFont")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, color, "FFontColor")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, palette, "FMFColor")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, preview, "ToolsFS")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, font_browser, "ToolsFB")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, keyboard, "ToolsKB")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, options, "ToolsOpt")->Unit(benchmark::kMillisecond)->Iterations(1000);
BENCHMARK_CAPTURE(opens, about, "HelpAbout")->Unit(benchmark::kMillisecond)->Iterations(1000);

int main(int argc, char *argv[])
{
    return runOnWindow(argc, argv);
}
