// The seven operations on the settings, over the one tree made known at start. None reports a
// failure to its caller, but for the flag RegistryError; windows use settings through these alone.
#pragma once

#include "core/SettingConversion.h"
#include "platform/SettingsTree.h"

#include <QString>
#include <QStringView>
#include <variant>

/// The roots of trees: there is one, the user's own.
enum class Root : quint32 { CurrentUser = 0x80000001 };
inline constexpr Root HKEY_CURRENT_USER = Root::CurrentUser;

/// The kinds of value.
inline constexpr quint32 REG_SZ = 1;
inline constexpr quint32 REG_DWORD = 4;

/// What can be written: nothing, a truth value, a 32-bit number or a string. A colour with its high
/// bit set is passed as the negative number of the same bits.
using WrittenValue = std::variant<std::monostate, bool, qint32, QString>;

/// A key to read and write by. Nobody tests whether opening succeeded, so it holds the name alone,
/// and a missing key shows at the read or the write.
struct OpenKey
{
    QStringView path;
};

/// Names the tree that all operations work on; it must outlive its use. With nullptr every read
/// fails and every write is lost.
void UseSettingsTree(SettingsTree *tree);

/// Groups all writes in the life of the result into one transaction on the tree in use.
[[nodiscard]] SettingsTree::Batch GroupRegWrites();

/// Makes the key (a path written whole, from Software\Zendova) and those above it, if missing.
void RegMakeKey(Root root, QStringView keyPath);

/// Removes the key and its values, unless it has subkeys.
void RegDropKey(Root root, QStringView keyPath);

/// RegWriteRaw on the key at the path; lost without a word where the key is missing.
void RegWriteValue(Root root, QStringView keyPath, QStringView valueName, const WrittenValue &value,
                   quint32 kind);

/// Writes as REG_SZ (True or False, a number's digits, "" for nothing) or REG_DWORD (True is -1,
/// strings as toNumber takes them, with its ConversionError); any other kind writes nothing. True
/// where it was written.
bool RegWriteRaw(const OpenKey &openKey, QStringView valueName, quint32 kind,
                 const WrittenValue &value);

/// RegReadRaw on the key at the path.
SettingValue RegReadValue(Root root, QStringView keyPath, QStringView valueName);

/// The value by its stored kind. Nothing, and RegistryError raised, where key or value are missing
/// or cannot be read, or a string has no NUL to end it. Nothing, and the flag as it was, for a
/// string of no length, a number that has not four bytes, or any other kind.
SettingValue RegReadRaw(const OpenKey &openKey, QStringView valueName);

/// Removes the value; a missing one is no matter.
void RegDropValue(Root root, QStringView keyPath, QStringView valueName);
