// The text of the rich-text buffer with its formats: one byte of the code page a character, and
// beside them runs of equal format and of equal alignment. Values only: knows no file, no way to
// write a document down and no window.
#pragma once

#include "platform/ColorValue.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

enum CharacterStyle : quint8 {
    BoldStyle = 1,
    ItalicStyle = 2,
    UnderlineStyle = 4,
    StrikeThruStyle = 8
};

constexpr int MaxHalfPoints = 0x7FFF;

/// A fresh one is that of a text without any format: the first font, 12 points, black.
struct CharacterFormat
{
    quint32 Font = 0; ///< place in the text's list of fonts
    ColorValue Color = 0;
    quint16 HalfPoints = 24;
    quint8 Styles = 0; ///< sum of `CharacterStyle`s

    bool operator==(const CharacterFormat &) const = default;
};

/// 0 left, 1 right, 2 centre.
using ParagraphAlignment = quint8;

/// Values for consecutive places from 0 on, equal neighbours kept as one.
template<class Value>
class Runs
{
public:
    struct Run
    {
        qsizetype Length;
        Value Of;
    };

    auto begin() const { return List.begin(); }
    auto end() const { return List.end(); }
    std::size_t count() const { return List.size(); }

    /// The value of the last place; there must be one.
    const Value &last() const { return List.back().Of; }

    /// Adds places at the end. A length of 0 adds nothing.
    void append(qsizetype length, const Value &value)
    {
        if (length == 0)
            return;
        if (!List.empty() && List.back().Of == value)
            List.back().Length += length;
        else
            List.push_back({length, value});
    }

    /// Takes the last place away; there must be one.
    void chop()
    {
        if (--List.back().Length == 0)
            List.pop_back();
    }

    /// Keeps the first `length` places.
    void truncate(qsizetype length)
    {
        for (const Run &run : std::exchange(List, {})) {
            append(std::min(run.Length, length), run.Of);
            length -= std::min(run.Length, length);
        }
    }

    /// Hands the value of each place in [from, to) to `change`, which may alter it.
    template<class Change>
    void change(qsizetype from, qsizetype to, Change change)
    {
        Runs result;
        qsizetype start = 0;
        for (const Run &run : List) {
            const qsizetype end = start + run.Length;
            const qsizetype first = std::clamp(from, start, end);
            const qsizetype last = std::clamp(to, start, end);
            Value changed = run.Of;
            change(changed);
            result.append(first - start, run.Of);
            result.append(std::max(last - first, qsizetype(0)), changed);
            result.append(end - std::max(first, last), run.Of);
            start = end;
        }
        *this = std::move(result);
    }

    /// What `property` makes of the values in [from, to) where it makes the same of all of them;
    /// nothing where it doesn't, and nothing for no places.
    template<class Property>
    auto common(qsizetype from, qsizetype to, Property property) const
        -> std::optional<decltype(property(std::declval<Value>()))>
    {
        std::optional<decltype(property(std::declval<Value>()))> result;
        qsizetype start = 0;
        for (const Run &run : List) {
            if (start >= to)
                break;
            start += run.Length;
            if (start <= from)
                continue;
            auto value = property(run.Of);
            if (result && *result != value)
                return std::nullopt;
            result = std::move(value);
        }
        return result;
    }

private:
    std::vector<Run> List;
};

struct RichFont
{
    QString Name;
    bool Symbol = false; ///< draws signs of its own for the codes, so they stand for no letters
};

/// Formats and alignments cover one place more than the text: its end, which has the format of a
/// text that is empty and the alignment of a last paragraph that is.
class RichText
{
public:
    QByteArray Codes; ///< lines parted by CR LF; neither CR nor LF stands in any other way
    Runs<CharacterFormat> Formats;
    Runs<ParagraphAlignment> Alignments;
    bool IsFitted = false; ///< the document had characters for which others stand here, or none

    /// The place of a font in the list, where it is added if it is new. A font known as one of
    /// signs stays so.
    quint32 fontPlace(const QString &name, bool symbol)
    {
        const quint32 place = Places.value(name, quint32(Fonts.size()));
        if (place == Fonts.size()) {
            Places.insert(name, place);
            Fonts.push_back({name, symbol});
        }
        Fonts[place].Symbol |= symbol;
        return place;
    }
    const RichFont &font(quint32 place) const { return Fonts[place]; }

private:
    std::vector<RichFont> Fonts;
    QHash<QString, quint32> Places;
};
