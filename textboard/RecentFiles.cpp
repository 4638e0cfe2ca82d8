// Recent files in the settings: one value a row, the whole path in one string.
#include "textboard/RecentFiles.h"

#include "core/CheckDFFFunctions.h"
#include "core/RegistryFunctions.h"
#include "core/SettingConversion.h"
#include "core/SettingsDefaults.h"

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

void RecentFiles::write() const
{
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const RecentFile &row = Rows[i];
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(Key), QString::number(i + 1),
                      row.Folder.isEmpty() ? QString() : row.Folder + row.Name, REG_SZ);
    }
}
