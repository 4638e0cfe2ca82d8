// The characters for the bytes are those of Python's "surrogateescape" (PEP 383).
#include "platform/FileName.h"

#include <QStringDecoder>
#include <algorithm>

namespace {

constexpr char16_t FirstByte = 0xDC80;
constexpr char16_t LastByte = 0xDCFF;

/// The character at this place stands for a byte: it is no second half of a pair.
bool isByte(const QString &text, qsizetype at)
{
    const char16_t c = text[at].unicode();
    return c >= FirstByte && c <= LastByte && (at == 0 || !text[at - 1].isHighSurrogate());
}

/// How many bytes the character at the beginning has; 0 if there is none.
qsizetype lengthOfCharacter(QByteArrayView bytes)
{
    constexpr qsizetype Most = 4;
    for (qsizetype length = 1; length <= std::min(Most, bytes.size()); ++length)
        if (bytes.first(length).isValidUtf8())
            return length;
    return 0;
}

} // namespace

QString FileName::fromBytes(const QByteArray &name)
{
    // The mark of the byte order is a character like others in a name.
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    if (name.isValidUtf8())
        return decode(name);
    QString text;
    for (QByteArrayView rest = name; !rest.isEmpty();) {
        const qsizetype length = lengthOfCharacter(rest);
        if (length > 0)
            text += QString(decode(rest.first(length)));
        else
            text += QChar(char16_t(0xDC00 + static_cast<uchar>(rest.front())));
        rest = rest.sliced(std::max<qsizetype>(length, 1));
    }
    return text;
}

QByteArray FileName::toBytes(const QString &text)
{
    QByteArray name;
    qsizetype done = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!isByte(text, at))
            continue;
        name += QStringView(text).sliced(done, at - done).toUtf8();
        name += static_cast<char>(text[at].unicode() - 0xDC00);
        done = at + 1;
    }
    return name + QStringView(text).sliced(done).toUtf8();
}

QString FileName::shown(QString text)
{
    for (qsizetype at = 0; at < text.size(); ++at)
        if (isByte(text, at))
            text[at] = QChar::ReplacementCharacter;
    return text;
}

QString FileName::inTitle(const QString &text)
{
    return shown(text).replace("[*]", "[*][*]"); // twice, the mark stands for itself
}

bool FileName::isText(const QString &text)
{
    return shown(text) == text;
}
