// Settings by key and name. Touches the tree in use and the flag RegistryError, nothing else.
#include "core/RegistryFunctions.h"

#include "core/GlobalDeclarations.h"

#include <QtEndian>

namespace {

SettingsTree *treeInUse = nullptr;

// A written value as a reader would get it back: a truth value is its word.
SettingValue asRead(const WrittenValue &value)
{
    if (const auto *truth = std::get_if<bool>(&value))
        return *truth ? QStringLiteral("True") : QStringLiteral("False");
    if (const auto *number = std::get_if<qint32>(&value))
        return *number;
    if (const auto *text = std::get_if<QString>(&value))
        return *text;
    return {};
}

} // namespace

void UseSettingsTree(SettingsTree *tree)
{
    treeInUse = tree;
}

SettingsTree::Batch GroupRegWrites()
{
    return SettingsTree::Batch(treeInUse);
}

void RegMakeKey(Root, QStringView keyPath)
{
    if (treeInUse)
        treeInUse->createKey(keyPath);
}

void RegDropKey(Root, QStringView keyPath)
{
    if (treeInUse)
        treeInUse->deleteKey(keyPath);
}

void RegWriteValue(Root, QStringView keyPath, QStringView valueName, const WrittenValue &value,
                   quint32 kind)
{
    RegWriteRaw({keyPath}, valueName, kind, value);
}

bool RegWriteRaw(const OpenKey &openKey, QStringView valueName, quint32 kind,
                 const WrittenValue &value)
{
    // Converted first: text that is no number ends the program even where nothing can be written.
    switch (kind) {
    case REG_SZ: {
        const QString text = toText(asRead(value));
        return treeInUse && treeInUse->setText(openKey.path, valueName, text);
    }
    case REG_DWORD: {
        const qint32 number = toNumber(asRead(value), openKey.path, valueName);
        return treeInUse && treeInUse->setNumber(openKey.path, valueName, number);
    }
    default:
        return false;
    }
}

SettingValue RegReadValue(Root, QStringView keyPath, QStringView valueName)
{
    return RegReadRaw({keyPath}, valueName);
}

SettingValue RegReadRaw(const OpenKey &openKey, QStringView valueName)
{
    const auto stored = treeInUse ? treeInUse->value(openKey.path, valueName) : std::nullopt;
    if (!stored) {
        RegistryError = true;
        return {};
    }
    const QByteArray &bytes = stored->bytes;
    if (stored->kind == REG_SZ) {
        if (bytes.isEmpty())
            return {};
        const qsizetype end = bytes.indexOf('\0');
        if (end < 0) {
            RegistryError = true;
            return {};
        }
        return QString::fromUtf8(bytes.first(end));
    }
    if (stored->kind == REG_DWORD && bytes.size() == sizeof(qint32))
        return qFromUnaligned<qint32>(bytes.constData());
    return {};
}

void RegDropValue(Root, QStringView keyPath, QStringView valueName)
{
    if (treeInUse)
        treeInUse->deleteValue(keyPath, valueName);
}
