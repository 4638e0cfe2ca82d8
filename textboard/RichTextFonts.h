// The table of fonts of a document in the Rich Text Format, while it is told and afterwards. Knows
// no tokens.
#pragma once

#include <QHash>
#include <QString>
#include <optional>

class RichTextFonts
{
public:
    struct Font
    {
        QString Name;
        int Page = 0; ///< the code page of its bytes; 0 for that of the document
        bool Symbol = false;
        std::optional<quint32> Place; ///< for the caller: its place in the text's list
    };

    /// The number of the default font, before the table is told or after.
    void setDefault(quint32 number);

    // While the table is told: fonts one after the other, each finished before the next begins.

    void beginTable();
    void beginFont(quint32 number);
    void setCharset(int charset);
    void setPage(int page) { Entry.Page = page; }
    /// A name gets no longer than a thousand characters or so: further pieces of it are left out.
    void addToName(const QString &piece);
    /// Enters the font; a later one of the same number replaces it. Without a name or a number it
    /// is none, and a document can't have more fonts than its numbers, 65,536.
    void finishFont();
    /// The code page of the name at hand; 0 for that of the document.
    int pageOfName() const { return Entry.Page; }

    /// The font of this number; for an unknown number the default font, for an unknown default the
    /// first of the table. Good until another font is entered or made the default.
    Font &font(quint32 number);

private:
    QHash<quint32, Font> Fonts;
    Font NoFont; ///< of a document without fonts
    std::optional<quint32> FirstNumber, DefaultNumber;
    Font *Last = nullptr; ///< what was asked for last
    quint32 LastNumber = 0;

    Font Entry;
    std::optional<quint32> EntryNumber;
};
