// The end of a document's text that is not settled yet: the second of two bytes may follow, or an
// accent.
#pragma once

#include "textboard/DocumentCodePage.h"

#include <QByteArray>
#include <QString>

/// Bytes and characters in the order in which they come. All bytes between two calls of `take` or
/// `add` of a character are of one code page.
class PendingCharacters
{
public:
    /// The next byte can only be the second of a character.
    bool awaitsSecondByte() const { return IsHalf; }
    bool isEmpty() const { return Characters.isEmpty() && Bytes.isEmpty(); }
    /// More is not to be gathered, and can be taken without cutting a character.
    bool isFull() const;

    void add(quint8 byte, int page);
    /// Settles the bytes before it, which are of this page.
    void add(char32_t character, int page);
    /// All of it; a lone first byte is a question mark.
    QString take(int page);

private:
    void decode(int page);

    QString Characters;
    QByteArray Bytes; ///< behind the characters
    int Page = 0;     ///< of the bytes
    bool IsHalf = false;
    DocumentCodePage::Decoder Decoder;
};
