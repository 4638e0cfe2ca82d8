// The code pages in which documents of word processors have their bytes, by their numbers. Bytes
// in, characters out.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>
#include <map>

namespace DocumentCodePage {

/// The page of a font's `\fcharset` in the Rich Text Format; 0 where that leaves it to the
/// document.
int ofCharset(int charset);

/// The charset of a page that the program can be used in.
int charsetOf(int page);

/// The byte is the first of two that make one character.
bool isLeadByte(int page, quint8 byte);

/// The byte can be the second of two, in any page: controls, blanks and digits stand for themselves
/// also behind a first byte.
constexpr bool isTrailByte(quint8 byte)
{
    return byte >= 0x40;
}

/// Keeps what it needs for each page that it has met.
class Decoder
{
public:
    /// Bytes of a page that isn't known are taken for those of the page in force.
    QString decode(int page, QByteArrayView bytes);

private:
    std::map<int, QStringDecoder> Decoders;
};

} // namespace DocumentCodePage
