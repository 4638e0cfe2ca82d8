// What the font catalog costs at start-up and when a family is first shown. The number of families
// is that of the configuration in FONTCONFIG_FILE; make_fonts.py makes such configurations.
#include "fonttools/FontLoadProcedure.h"
#include "platform/FontCatalog.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <optional>

namespace {

std::optional<FontCatalog> catalog;

void catalogConstructor(benchmark::State &state)
{
    for ([[maybe_unused]] auto round : state) {
        catalog.reset();
        catalog.emplace();
    }
    state.counters["families"] = static_cast<double>(catalog->families().size());
}

void loadFontList(benchmark::State &state)
{
    FontList list;
    for ([[maybe_unused]] auto round : state)
        LoadFontList(list);
}

/// Another family each time, up to the metrics of its regular face.
void firstLoadOfAFamily(benchmark::State &state)
{
    std::size_t next = 0;
    const auto &families = catalog->families();
    for ([[maybe_unused]] auto round : state) {
        const QFont font = catalog->font(families[next++ % families.size()].name);
        benchmark::DoNotOptimize(QFontMetrics(font).horizontalAdvance(u'A'));
    }
}

/// The toolkit's font database is filled at its first use.
void firstUseOfTheToolkit(benchmark::State &state)
{
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(QFontMetrics(QFont()).horizontalAdvance(u'A'));
}

} // namespace

BENCHMARK(catalogConstructor)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(loadFontList)->Unit(benchmark::kMillisecond);
BENCHMARK(firstUseOfTheToolkit)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(firstLoadOfAFamily)->Unit(benchmark::kMillisecond)->Iterations(25);

int main(int argc, char *argv[])
{
    catalog.emplace();
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
