// What the rich-text buffer costs: reading and writing 50 MB of uniform rich text, with the memory
// that reading takes, and a search over a full board that finds nothing.
#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"
#include "textboard/TextBoardRTF.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <malloc.h>
#include <string>

namespace {

constexpr qsizetype DocumentSize = 50'000'000;
constexpr qsizetype BoardSize = 61'440;

QByteArray uniformDocument()
{
    QByteArray document = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}}\r\n"
                          "{\\colortbl ;\\red0\\green0\\blue128;}\r\n\\pard\\f0\\fs24\\cf1\\b ";
    const QByteArray line = QByteArray("fonts ").repeated(13) + "\\'e9\\par\r\n";
    document += line.repeated((DocumentSize - document.size()) / line.size());
    return document + '}';
}

/// Bytes of a row of /proc/self/status.
double statusOf(const std::string &name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == name && status >> word)
            return std::stod(word) * 1024;
    return 0;
}

// The targets are 200 MB/s and three times the text, the document itself included.
void readUniformDocument(benchmark::State &state)
{
    const QByteArray document = uniformDocument();
    double peak = 0;
    double retained = 0;
    double text = 0;
    for (auto _ : state) {
        state.PauseTiming();
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << 5; // the peak begins anew
        const double before = statusOf("VmRSS:");
        state.ResumeTiming();
        const auto read = readRichText(document);
        state.PauseTiming();
        text = double(read->Codes.size());
        peak = statusOf("VmHWM:") - before;
        retained = statusOf("VmRSS:") - before;
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * document.size());
    state.counters["peak/text"] = (peak + double(document.size())) / text;
    state.counters["retained/text"] = retained / text;
}
BENCHMARK(readUniformDocument)->Unit(benchmark::kMillisecond)->UseRealTime();

void writeUniformDocument(benchmark::State &state)
{
    const auto text = readRichText(uniformDocument());
    for (auto _ : state)
        benchmark::DoNotOptimize(writeRichText(*text));
    state.SetBytesProcessed(state.iterations() * text->Codes.size());
}
BENCHMARK(writeUniformDocument)->Unit(benchmark::kMillisecond)->UseRealTime();

// What the save of a full board does, without the file.
void writeFullBoard(benchmark::State &state)
{
    const QString text = QStringLiteral("fonts ").repeated(BoardSize / 6);
    TextBoardRTF buffer;
    for (auto _ : state) {
        buffer.setText(text);
        buffer.setSelLength(buffer.TextLength());
        buffer.setSelFontName(QStringLiteral("Arial"));
        buffer.setSelBold(true);
        buffer.setSelAlignment(2);
        benchmark::DoNotOptimize(buffer.TextRTF());
    }
}
BENCHMARK(writeFullBoard)->Unit(benchmark::kMicrosecond);

// The target is 1 ms, the copy of the board's text included.
void findInFullBoard(benchmark::State &state)
{
    const QString text = QStringLiteral("fonts ").repeated(BoardSize / 6);
    TextBoardRTF buffer;
    for (auto _ : state) {
        buffer.setText(text);
        benchmark::DoNotOptimize(
            buffer.Find(QStringLiteral("fontz"), 1, {}, TextBoardRTF::WholeWord));
    }
}
BENCHMARK(findInFullBoard)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
