// Recent files in the settings: one value a row, the whole path in one string.
#include "textboard/RecentFiles.h"

#include "core/CheckDFFFunctions.h"
#include "core/RegistryFunctions.h"
#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"

#include <algorithm>

const char *MimeTypeOf(const QString &path)
{
    const QString ending = EndingOf(path);
    return ending == "ZUF"   ? "application/x-zendova-text"
           : ending == "ZCM" ? "application/x-zendova-map"
           : ending == "TXT" ? "text/plain"
           : ending == "RTF" ? "application/rtf"
                             : "application/octet-stream";
}

RecentFiles::RecentFiles(QStringView key, int rows) : Key(key), Rows(static_cast<std::size_t>(rows))
{
}

void RecentFiles::read()
{
    Counter = 0;
    for (RecentFile &row : Rows)
        row = {};
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const QString name = QString::number(i + 1);
        const QString path = toText(RegReadValue(HKEY_CURRENT_USER, SettingsPath(Key), name));
        if (path.trimmed().isEmpty()) {
            Counter = static_cast<int>(i + 1);
            return;
        }
        auto [folder, file] = SplitAtLastSeparator(path);
        Rows[i] = {.Folder = std::move(folder), .Name = std::move(file)};
    }
}

void RecentFiles::add(const QString &path)
{
    bool found = false;
    if (Counter > 1) {
        const auto lookedAt = Rows.begin() + Counter;
        const auto old = std::find_if(Rows.begin(), lookedAt, [&](const RecentFile &row) {
            return !row.Name.isEmpty() && row.Folder + row.Name == path;
        });
        found = old != lookedAt;
        const auto overwritten = found ? old : std::prev(lookedAt);
        std::move_backward(Rows.begin(), overwritten, std::next(overwritten));
    }
    auto [folder, name] = SplitAtLastSeparator(path);
    Rows.front() = {.Folder = std::move(folder), .Name = std::move(name)};
    Counter = std::min(Counter + (found ? 2 : 1), static_cast<int>(Rows.size()));
}

void RecentFiles::write() const
{
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const RecentFile &row = Rows[i];
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(Key), QString::number(i + 1),
                      row.Folder.isEmpty() ? QString() : row.Folder + row.Name, REG_SZ);
    }
}
