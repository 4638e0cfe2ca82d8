// The hidden buffer through which the board's text goes to and comes from files, the clipboard and
// the search: a text with formats, and a selection in it. Touches files only in LoadFile and
// SaveFile, and no window.
#pragma once

#include "textboard/RichText.h"

#include <functional>

/// Positions and lengths are characters of the text, counted from 0; a line end is CR LF, two
/// characters. A position between the two means the one before the line end, one outside the text
/// the nearer end of the text. The text holds characters of the code page only: what comes from
/// outside it is fitted in.
class TextBoardRTF
{
public:
    enum class FileKind { RichText = 0, PlainText = 1 };

    /// Tells the fonts of signs by their name; a document says so of each of its fonts. Without it
    /// only fonts that were read as such are.
    explicit TextBoardRTF(std::function<bool(const QString &)> isSymbolFont = {});

    /// Replaces text and formats; the selection goes to 0. Gives nothing, or the reason of a
    /// failure for people: the buffer then is empty. Only a regular file is read, of 256 MiB at
    /// most; a folder, a device or a pipe fails at once. A plain text has one byte a character, and
    /// CR LF, a lone CR and a lone LF end its lines.
    std::optional<QString> LoadFile(const QString &path, FileKind kind);
    /// Gives nothing, or the reason of a failure for people: what stood in the file then still
    /// does, and no other file is left. A file that is replaced keeps its permissions, and a
    /// symbolic link goes on naming it.
    std::optional<QString> SaveFile(const QString &path, FileKind kind) const;

    QString Text() const;
    /// Replaces everything, in one format: 12 points, black, left. CR LF, a lone CR and a lone LF
    /// are line ends. The selection goes to 0.
    void setText(const QString &text);
    /// Cuts off what is longer, never half a line end; what stays keeps its formats. The selection
    /// goes to 0.
    void Truncate(qsizetype length);
    /// The text with its formats as a document in the Rich Text Format.
    QByteArray TextRTF() const;
    /// The text with its formats, to be laid out elsewhere, on paper for example. Good until the
    /// next change.
    const RichText &contents() const { return Contents; }

    qsizetype TextLength() const { return Contents.Codes.size(); }
    qsizetype SelStart() const { return Start; }
    /// Puts the caret there: nothing is selected.
    void setSelStart(qsizetype start);
    qsizetype SelLength() const { return Length; }
    void setSelLength(qsizetype length);
    QString SelText() const;

    // What the selection is like. Nothing is given where it differs within the selection; without a
    // selection the character at the caret counts, at the text's end the last one. Setting changes
    // the selection; without one only an alignment changes, that of the caret's paragraph, but in
    // an empty text everything does.

    /// As the document's table of fonts has it.
    std::optional<QString> SelFontName() const;
    void setSelFontName(const QString &name);
    /// Points in steps of a half. Setting rounds to them; what isn't above 0 is left out.
    std::optional<double> SelFontSize() const;
    void setSelFontSize(double points);
    /// 0x00BBGGRR; the automatic colour of a document is black. Setting takes no system colour.
    std::optional<ColorValue> SelColor() const;
    void setSelColor(ColorValue color);
    std::optional<bool> SelBold() const { return style(BoldStyle); }
    void setSelBold(bool on) { setStyle(BoldStyle, on); }
    std::optional<bool> SelItalic() const { return style(ItalicStyle); }
    void setSelItalic(bool on) { setStyle(ItalicStyle, on); }
    std::optional<bool> SelUnderline() const { return style(UnderlineStyle); }
    void setSelUnderline(bool on) { setStyle(UnderlineStyle, on); }
    std::optional<bool> SelStrikeThru() const { return style(StrikeThruStyle); }
    void setSelStrikeThru(bool on) { setStyle(StrikeThruStyle, on); }
    /// 0 left, 1 right, 2 centre, of all paragraphs that the selection touches. Setting another
    /// number changes nothing.
    std::optional<int> SelAlignment() const;
    void setSelAlignment(int alignment);

    enum FindOption { WholeWord = 2, MatchCase = 4 };
    /// The position of the first match that begins at or after `start` and ends at or before `end`,
    /// the text's end if it isn't given; -1 if there is none or nothing to look for. A match
    /// becomes the selection, which else stays. `options` is a sum of FindOptions. A match is a
    /// whole word if no word (letters with their marks, digits, underscores) goes on across either
    /// of its edges. Letters match in either case where both cases are in the code page.
    qsizetype Find(const QString &text, qsizetype start, std::optional<qsizetype> end = {},
                   int options = 0);

private:
    void setContents(RichText contents);
    template<class Property>
    auto common(Property property) const;
    template<class Change>
    void changeFormats(Change change);
    std::optional<bool> style(CharacterStyle bit) const;
    void setStyle(CharacterStyle bit, bool on);

    std::function<bool(const QString &)> IsSymbolFont;
    RichText Contents;
    qsizetype Start = 0;
    qsizetype Length = 0;
};
