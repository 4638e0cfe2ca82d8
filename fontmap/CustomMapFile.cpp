// Reads field by field, so that maps written by hand load too: fields end at a comma or at the end
// of a line, quotes are not needed, and a record may go over several lines.
#include "fontmap/CustomMapFile.h"

#include "platform/CodePage.h"

#include <bitset>

namespace {

/// The double quote, which no quoted field could hold.
constexpr QByteArrayView Quote = "\"";
constexpr QByteArrayView QuoteMark = "xx";

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isSeparator(char c)
{
    return c == ',' || c == '\r' || c == '\n';
}

/// Hands out the fields of a file, one after the other.
class Fields
{
public:
    explicit Fields(QByteArrayView bytes) : Bytes(bytes) {}

    /// Nothing behind the last field, and where a quote is never closed.
    std::optional<QByteArrayView> next()
    {
        skipBlanks();
        if (atEnd())
            return std::nullopt;
        if (Bytes[At] != Quote[0]) {
            const qsizetype from = At;
            while (!atEnd() && !isSeparator(Bytes[At]))
                ++At;
            const QByteArrayView field = Bytes.sliced(from, At - from);
            skipSeparator();
            return field;
        }
        const qsizetype from = At + 1;
        const qsizetype closing = Bytes.indexOf(Quote[0], from);
        if (closing < 0)
            return std::nullopt;
        At = closing + 1;
        skipBlanks();
        skipSeparator();
        return Bytes.sliced(from, closing - from);
    }

private:
    bool atEnd() const { return At >= Bytes.size(); }
    void skipBlanks()
    {
        while (!atEnd() && isBlank(Bytes[At]))
            ++At;
    }
    void skipSeparator()
    {
        if (atEnd() || !isSeparator(Bytes[At]))
            return;
        const bool pair = Bytes.sliced(At).startsWith("\r\n");
        At += pair ? 2 : 1;
    }

    QByteArrayView Bytes;
    qsizetype At = 0;
};

/// A field that holds no number counts as 0.
double numberOf(QByteArrayView field)
{
    return field.trimmed().toDouble();
}

} // namespace

std::optional<CustomMapFile::Captions> CustomMapFile::read(const QByteArray &bytes)
{
    Captions captions;
    Fields fields(bytes);
    std::bitset<CellCount> seen; // by code
    for (std::size_t cell = 0; cell < CellCount; ++cell) {
        const auto number = fields.next();
        auto text = number ? fields.next() : std::nullopt;
        if (!text)
            return std::nullopt;
        if (text->isEmpty())
            continue;
        if (numberOf(*number) != static_cast<double>(cell + 1))
            return std::nullopt;
        if (*text == QuoteMark)
            text = Quote;
        const auto code = static_cast<quint8>(text->front());
        // A zero would cut the text off in other programs, and a quote behind the first character
        // could not be written again.
        const bool foreign = text->contains('\0') || text->sliced(1).contains(Quote[0]);
        if (code < FirstCode || seen[code - FirstCode] || foreign)
            return std::nullopt;
        seen.set(code - FirstCode);
        captions[cell] = CodePage::fromBytes(*text);
    }
    return captions;
}

QByteArray CustomMapFile::write(const Captions &captions)
{
    QByteArray bytes;
    int number = 0;
    for (const QString &caption : captions) {
        const QByteArray text = CodePage::toBytes(caption);
        const QByteArrayView field = text.startsWith(Quote) ? QuoteMark : QByteArrayView(text);
        bytes += QByteArray::number(++number) + ",\"";
        bytes.append(field);
        bytes += "\"\r\n";
    }
    return bytes;
}
