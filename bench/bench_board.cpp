// What a key press and a change of the font cost on a full board, each beside the toolkit's bare
// control with the same text. A key press is one letter typed and painted, and taken back.
#include "textboard/TextBoard.h"

#include <QApplication>
#include <QKeyEvent>
#include <benchmark/benchmark.h>

namespace {

/// 61,439 characters, counting CR LF as two, so that a letter fits.
QString fullText(bool oneParagraph)
{
    constexpr int length = TextBoard::MaxLength() - 1;
    if (oneParagraph)
        return QStringLiteral("fonts ").repeated(length / 6 + 1).left(length);
    const QString line = QStringLiteral("fonts ").repeated(13) + QStringLiteral("\r\n");
    return line.repeated(length / 80) + QString(length % 80, QLatin1Char('x'));
}

template<class Edit>
void prepare(Edit &edit, bool oneParagraph)
{
    if constexpr (std::is_same_v<Edit, TextBoard>)
        edit.setText(fullText(oneParagraph));
    else
        edit.setPlainText(fullText(oneParagraph));
    edit.resize(625, 227);
    edit.show();
    QTextCursor cursor(edit.document());
    cursor.setPosition(edit.document()->characterCount() / 2);
    edit.setTextCursor(cursor);
    QApplication::processEvents();
}

void press(QWidget &edit, Qt::Key key, const QString &text)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&edit, &event);
}

template<class Edit>
void keyPress(benchmark::State &state)
{
    Edit edit;
    prepare(edit, state.range(0) == 1);
    for (auto _ : state) {
        press(edit, Qt::Key_A, QStringLiteral("a"));
        QApplication::processEvents();
        state.PauseTiming();
        press(edit, Qt::Key_Backspace, QString());
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

template<class Edit>
void fontChange(benchmark::State &state)
{
    Edit edit;
    prepare(edit, state.range(0) == 1);
    int size = 10;
    for (auto _ : state) {
        size = size == 10 ? 12 : 10;
        if constexpr (std::is_same_v<Edit, TextBoard>) {
            edit.setFontSize(size);
        } else {
            QFont font = edit.font();
            font.setPointSize(size);
            edit.setFont(font);
        }
        QApplication::processEvents();
    }
}

/// The name and the four styles, as the window sets them when a font is chosen.
void fontWithStyles(benchmark::State &state)
{
    TextBoard edit;
    prepare(edit, false);
    bool serif = false;
    for (auto _ : state) {
        serif = !serif;
        edit.setFontName(serif ? QStringLiteral("serif") : QStringLiteral("sans-serif"));
        for (const bool on : {false, true}) {
            edit.setFontBold(on);
            edit.setFontItalic(on);
            edit.setFontUnderline(on);
            edit.setFontStrikethru(on);
        }
        QApplication::processEvents();
    }
}

void sameFont(benchmark::State &state)
{
    TextBoard edit;
    prepare(edit, false);
    for (auto _ : state) {
        edit.setFontName(edit.FontName());
        edit.setFontSize(edit.FontSize());
        edit.setFontBold(false);
    }
}

void caretPosition(benchmark::State &state)
{
    TextBoard edit;
    prepare(edit, false);
    int position = 0;
    for (auto _ : state) {
        position = (position + 7919) % TextBoard::MaxLength();
        edit.setSelStart(position);
        benchmark::DoNotOptimize(edit.SelStart());
    }
}

void wholeText(benchmark::State &state)
{
    TextBoard edit;
    prepare(edit, false);
    for (auto _ : state)
        benchmark::DoNotOptimize(edit.Text());
}

/// What a paste of a text far beyond the limit costs before it is asked about, in characters.
void fitting(benchmark::State &state)
{
    const QString text = QString(QStringLiteral("fonts ")).repeated(state.range(0) / 6 + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(TextBoard::Fitting(text));
}

} // namespace

BENCHMARK(keyPress<QPlainTextEdit>)
    ->ArgName("paragraph")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(keyPress<TextBoard>)->ArgName("paragraph")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(fontChange<QPlainTextEdit>)
    ->ArgName("paragraph")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(fontChange<TextBoard>)
    ->ArgName("paragraph")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(fontWithStyles)->Unit(benchmark::kMicrosecond);
BENCHMARK(sameFont)->Unit(benchmark::kMicrosecond);
BENCHMARK(caretPosition)->Unit(benchmark::kMicrosecond);
BENCHMARK(wholeText)->Unit(benchmark::kMicrosecond);
BENCHMARK(fitting)
    ->ArgName("characters")
    ->Arg(61440)
    ->Arg(100'000'000)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
