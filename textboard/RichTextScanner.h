// Takes a document in the Rich Text Format apart into its tokens. Bytes in, tokens out, without
// memory of what came before; what the tokens mean is the reader's affair.
#pragma once

#include <QByteArrayView>
#include <optional>
#include <string_view>

struct RichTextToken
{
    enum TokenKind {
        End,        ///< of the bytes
        OpenGroup,  ///< `{`
        CloseGroup, ///< `}`
        Stretch,    ///< `Text` stands for itself in every code page
        Byte,       ///< `Code` means what the code page in force says
        Symbol,     ///< a backslash with the character `Code`, a line end being LF
        Word        ///< the control word `Text` with its `Number`
    };

    TokenKind Kind = End;
    std::string_view Text = {}; ///< of the document's own bytes
    quint8 Code = 0;
    std::optional<int> Number = {}; ///< a larger one becomes the largest that there is
};

/// `source` must outlive this and the tokens. It may break off anywhere.
class RichTextScanner
{
public:
    explicit RichTextScanner(QByteArrayView source) : At(source.begin()), Stop(source.end()) {}

    /// Goes to the opening `{\rtf` of a document, over a byte order mark and white space. False if
    /// the bytes are no document.
    bool begin();
    RichTextToken next();

    /// Goes on behind this many bytes, or to the end; nowhere for a negative number.
    void skipBytes(qsizetype count);
    /// Goes to the `}` of the group at hand.
    void skipRestOfGroup();
    /// Goes behind the group that comes next, if one does.
    void skipNextGroup();

private:
    RichTextToken readWord();
    RichTextToken readSymbol();

    const char *At;
    const char *Stop;
};
