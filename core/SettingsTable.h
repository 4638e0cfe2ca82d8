// The settings of the main window as one table: where each stands in the tree, what it is by
// default, and where its value lives while the program runs. Reading, repair and writing walk it.
#pragma once

#include "core/RegistryFunctions.h"

#include <span>

class Zendova;

struct Setting
{
    /// How a value is stored, and what is made of it when it is read. Digits is a number that is
    /// stored as text.
    enum class Type { Text, Number, Truth, Digits };

    QStringView Key; ///< below the root; "" for the root itself
    QStringView Name;
    Type Kind;
    /// What a repair writes; nothing where it follows from the screen, the window or the user.
    std::variant<std::monostate, QStringView, qint32, bool> Default;
    /// The value of now, and taking another over. Null for what no control holds: the repair writes
    /// it, and the start only proves that it is there.
    WrittenValue (*Get)(const Zendova &) = nullptr;
    void (*Set)(Zendova &, const WrittenValue &) = nullptr;
    /// The repair writes the rows of a key by this number, and rows of one number as they stand.
    int WriteOrder = 0;

    quint32 storedKind() const { return Kind == Type::Number ? REG_DWORD : REG_SZ; }
    WrittenValue standard() const;
};

/// All rows, in the order in which the start reads them. Recent files and custom colours are tables
/// of their own.
std::span<const Setting> SettingsTable();

/// The row of a setting, which must be in the table or be the one that the dialog of defaults keeps
/// for itself.
const Setting &SettingOf(QStringView key, QStringView name);

/// Reads one setting in the type of its row. Throws ConversionError where it can't be converted.
WrittenValue ReadSetting(const Setting &setting);
void WriteSetting(const Setting &setting, const WrittenValue &value);
