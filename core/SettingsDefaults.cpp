// Look-ups in the tables of default settings.
#include "core/SettingsDefaults.h"

#include <algorithm>
#include <limits>

namespace {

struct ScreenRow
{
    int narrowest;
    int widest;
    ScreenDefault standard;
};

// Pixels across. No row holds 1901: the thresholds were settled so.
constexpr std::array<ScreenRow, 7> ScreenRows{{
    {650, 800, {1, 10}},
    {801, 1024, {4, 14}},
    {1025, 1280, {8, 18}},
    {1281, 1440, {12, 22}},
    {1441, 1600, {16, 26}},
    {1601, 1900, {20, 30}},
    {1902, std::numeric_limits<int>::max(), {24, 34}},
}};

} // namespace

QString SettingsPath(QStringView key)
{
    QString path = SettingsRoot.toString();
    if (!key.isEmpty())
        path.append(u'\\').append(key);
    return path;
}

std::optional<ScreenDefault> DefaultsForScreenWidth(int pixels)
{
    const auto row = std::ranges::find_if(ScreenRows, [pixels](const ScreenRow &candidate) {
        return candidate.narrowest <= pixels && pixels <= candidate.widest;
    });
    return row == ScreenRows.end() ? std::nullopt : std::optional(row->standard);
}
