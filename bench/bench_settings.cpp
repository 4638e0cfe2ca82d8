// What the settings cost: the whole tree read value by value, as at start, and written in one
// batch, as by a repair. Works on a file in a temporary folder.
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "core/SettingsTable.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <utility>
#include <vector>

namespace {

struct StoredSetting
{
    QString key;
    QString name;
    WrittenValue value;
    quint32 kind;
};

// All values that a repair writes, the recent files filled in.
std::vector<StoredSetting> wholeTree()
{
    std::vector<StoredSetting> tree;
    const auto add = [&tree](QStringView key, const QString &name, const WrittenValue &value) {
        const bool isNumber = std::holds_alternative<qint32>(value);
        tree.push_back({SettingsPath(key), name, value, isNumber ? REG_DWORD : REG_SZ});
    };
    for (const Setting &row : SettingsTable())
        if (const WrittenValue standard = row.standard(); standard.index() != 0)
            add(row.Key, row.Name.toString(), standard);
    for (int i = 0; i < int(CustomColorDefaults.size()); ++i) {
        add(u"CustomColors", QString::number(i + 1), CustomColorDefaults[i].stored);
        add(u"CustomLabels", QString::number(i + 1), CustomColorDefaults[i].label.toString());
    }
    const QString path = QStringLiteral("/home/somebody/Documents/Letters/A letter.zuf");
    for (int i = 1; i <= 9; ++i)
        add(u"MRU", QString::number(i), path);
    for (int i = 1; i <= 5; ++i)
        add(u"CFMRU", QString::number(i), path);
    for (const char *name : {"FormTop", "FormLeft", "FormHeight", "FormWidth"})
        add(u"Last", name, 11730);
    for (const char *name : {"LFLoadPath", "LFSavePath", "LMLoadPath", "LMSavePath"})
        add(u"Last", name, path);
    add(u"FontMap", QStringLiteral("SizeIndex"), 8);
    add(u"TextBoard", QStringLiteral("FontSize"), 18);
    return tree;
}

void repair(const std::vector<StoredSetting> &settings)
{
    const auto batch = GroupRegWrites();
    for (const QStringView key : SettingsKeys)
        RegMakeKey(HKEY_CURRENT_USER, SettingsPath(key));
    for (const StoredSetting &setting : settings)
        RegWriteValue(HKEY_CURRENT_USER, setting.key, setting.name, setting.value, setting.kind);
}

// The target is 5 ms.
void openAndReadWholeTree(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto settings = wholeTree();
    {
        SettingsTree tree(folder.filePath("settings.sqlite"));
        UseSettingsTree(&tree);
        repair(settings);
    }
    for (auto _ : state) {
        SettingsTree tree(folder.filePath("settings.sqlite"));
        UseSettingsTree(&tree);
        for (const StoredSetting &setting : settings) {
            SettingValue value = RegReadValue(HKEY_CURRENT_USER, setting.key, setting.name);
            if (value.index() == 0)
                state.SkipWithError("a value is missing");
            benchmark::DoNotOptimize(value);
        }
    }
    UseSettingsTree(nullptr);
    state.counters["values"] = double(settings.size());
}
BENCHMARK(openAndReadWholeTree)->Unit(benchmark::kMillisecond)->UseRealTime();

// The target is 50 ms, on a disk that takes its time to sync too.
void repairNewTree(benchmark::State &state)
{
    const auto settings = wholeTree();
    for (auto _ : state) {
        state.PauseTiming();
        const QTemporaryDir folder;
        state.ResumeTiming();
        SettingsTree tree(folder.filePath("settings.sqlite"));
        UseSettingsTree(&tree);
        repair(settings);
        state.PauseTiming();
        if (!tree.value(settings.back().key, settings.back().name))
            state.SkipWithError("the repair was lost");
        UseSettingsTree(nullptr);
        state.ResumeTiming();
    }
    state.counters["values"] = double(settings.size());
}
BENCHMARK(repairNewTree)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same values leave the pages as they are, so every second round writes others.
void repairExistingTree(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto settings = wholeTree();
    auto others = settings;
    for (StoredSetting &setting : others)
        setting.value = setting.kind == REG_DWORD ? WrittenValue(7) : QStringLiteral("other");
    SettingsTree tree(folder.filePath("settings.sqlite"));
    UseSettingsTree(&tree);
    bool odd = false;
    for (auto _ : state)
        repair((odd = !odd) ? settings : others);
    UseSettingsTree(nullptr);
    state.counters["values"] = double(settings.size());
}
BENCHMARK(repairExistingTree)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
