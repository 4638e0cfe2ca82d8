// Puts a rich text together from what a document says one thing after the other. Knows what lines,
// cells and accents do to the text, and nothing of how a document is written.
#pragma once

#include "textboard/RichText.h"

struct RichTextLook
{
    CharacterFormat Format;
    ParagraphAlignment Alignment = 0;
};

/// A line end takes the format of the text before it in its line: its own can't be seen and often
/// differs. A paragraph has the alignment in force at its end.
class RichTextBuilder
{
public:
    /// Room for this many characters is set aside.
    explicit RichTextBuilder(qsizetype capacity) { Text.Codes.reserve(capacity); }

    /// As RichText::fontPlace.
    quint32 fontPlace(const QString &name, bool symbol) { return Text.fontPlace(name, symbol); }

    /// Codes with no line end among them.
    void append(const char *codes, qsizetype length, const RichTextLook &look);
    /// Characters with no line end among them, brought into the code page. Accents in front go to
    /// the character before them.
    void append(QString characters, const RichTextLook &look);
    /// For a character that is not added, but what the document has in its place.
    void noteSubstitute() { Text.IsFitted = true; }
    void endLine(const RichTextLook &look);
    /// A line end, unless the text ends with it.
    void closeParagraph(const RichTextLook &look);
    /// A tab, unless the row ends with it.
    void endCell(const RichTextLook &look);
    void endRow(const RichTextLook &look);

    /// The format changed more often than is kept; nothing should be added any more.
    bool hasTooManyRuns() const;
    /// Hands out the text; an open last paragraph has this look where it is empty.
    RichText finish(const RichTextLook &look);

private:
    bool isLineEmpty() const { return LineStart == Text.Codes.size(); }
    void dropLast();

    RichText Text;
    qsizetype LineStart = 0;
    qsizetype ClosedAt = -1; ///< the length of the text when the last paragraph was closed
    qsizetype CellAt = -1;   ///< and when the last cell was ended
    ParagraphAlignment LastAlignment = 0;
};
