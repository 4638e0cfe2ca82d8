// A custom map while it is edited: each character is in the list or in one slot of the map, and one
// slot is highlighted. Values in, values out; what is shown of it is its window's affair.
#pragma once

#include "fontmap/CustomMapFile.h"

#include <optional>
#include <vector>

class MapEditing
{
public:
    /// Which way the highlight goes on behind a move.
    enum class Shift { Horizontal, Vertical };

    /// All characters are in the list.
    MapEditing();
    /// The map of a file: what it doesn't hold is in the list.
    explicit MapEditing(const CustomMapFile::Captions &captions);

    /// The code of a caption, which is not empty. One of more characters counts as its first, as it
    /// does for the reader of a map.
    static int codeOf(const QString &caption);

    const CustomMapFile::Captions &captions() const { return Slots; }
    const QString &caption(int slot) const { return Slots.at(static_cast<std::size_t>(slot)); }
    /// Of the highlighted slot.
    bool isEmpty() const { return caption(Index).isEmpty(); }
    /// The codes in the list, 32 to 255, each behind the smaller ones.
    std::vector<int> list() const;
    int CharsInList() const;

    /// The highlighted slot, 0 to 223.
    int MapIndex() const { return Index; }
    void setMapIndex(int slot) { Index = slot; }
    /// Moves the highlight by a key (Qt::Key); false for one that is none of the map's.
    bool moveByKey(int key);

    /// Moves a character into the highlighted slot, and the highlight on. False, with nothing
    /// moved, where the slot is taken or the list lacks the character.
    bool listToMap(int code, Shift shift);
    /// Moves the highlighted slot's character to the list, and the highlight back. Gives the code,
    /// or nothing where the slot is empty.
    std::optional<int> mapToList(Shift shift);

    /// Whether a slot differs from what was last read or saved.
    bool isDirty() const { return Slots != SavedMap; }
    void markSaved() { SavedMap = Slots; }

private:
    bool &inList(int code) { return InList.at(static_cast<std::size_t>(code - FirstCode)); }

    CustomMapFile::Captions Slots;
    CustomMapFile::Captions SavedMap;
    std::array<bool, CellCount> InList{}; ///< by code - 32
    int Index = 0;
};

/// The keystroke texts of the editor, by code - 32. They count 127 and 128 as a map does that holds
/// them in the order of their codes.
std::array<QString, CellCount> KeyTexts();
