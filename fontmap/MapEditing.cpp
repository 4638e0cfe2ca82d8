// Moves between list and map, and where they leave the highlight.
#include "fontmap/MapEditing.h"

#include "platform/CodePage.h"
#include "platform/controls/MoveInGrid.h"

#include <algorithm>

namespace {

int goneFrom(int slot, int key)
{
    return MoveInGrid(slot + 1, key, CellCount, MapColumns) - 1;
}

} // namespace

MapEditing::MapEditing()
{
    InList.fill(true);
}

MapEditing::MapEditing(const CustomMapFile::Captions &captions) : MapEditing()
{
    Slots = SavedMap = captions;
    for (const QString &caption : captions)
        if (!caption.isEmpty())
            inList(codeOf(caption)) = false;
}

int MapEditing::codeOf(const QString &caption)
{
    return CodePage::toCode(caption.front().unicode()).value();
}

std::vector<int> MapEditing::list() const
{
    std::vector<int> codes;
    for (int i = 0; i < CellCount; ++i)
        if (InList.at(static_cast<std::size_t>(i)))
            codes.push_back(FirstCode + i);
    return codes;
}

int MapEditing::CharsInList() const
{
    return static_cast<int>(std::ranges::count(InList, true));
}

bool MapEditing::moveByKey(int key)
{
    constexpr std::array keys = {Qt::Key_End, Qt::Key_Home,  Qt::Key_Left,
                                 Qt::Key_Up,  Qt::Key_Right, Qt::Key_Down};
    if (std::ranges::find(keys, key) == keys.end())
        return false;
    Index = goneFrom(Index, key);
    return true;
}

bool MapEditing::listToMap(int code, Shift shift)
{
    if (!isEmpty() || !inList(code))
        return false;
    inList(code) = false;
    Slots.at(static_cast<std::size_t>(Index)) = CharacterOf(code);
    Index = goneFrom(Index, shift == Shift::Vertical ? Qt::Key_Down : Qt::Key_Right);
    return true;
}

std::optional<int> MapEditing::mapToList(Shift shift)
{
    if (isEmpty())
        return std::nullopt;
    const int code = codeOf(caption(Index));
    inList(code) = true;
    Slots.at(static_cast<std::size_t>(Index)).clear();
    Index = goneFrom(Index, shift == Shift::Vertical ? Qt::Key_Up : Qt::Key_Left);
    return code;
}

std::array<QString, CellCount> KeyTexts()
{
    std::array<QString, CellCount> texts;
    int control = 1;
    for (int i = 0; i < CellCount; ++i)
        texts.at(static_cast<std::size_t>(i)) =
            CustomCharTexts(CharacterOf(FirstCode + i), control)[KeystrokeRow];
    return texts;
}
