// Any bytes as a rich-text document: what is read of them is a sound text, and comes back with its
// formats when it is written and read again.
#include "tests/fuzz/Require.h"
#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"

namespace {

template<class Value>
std::vector<Value> spread(const Runs<Value> &runs)
{
    std::vector<Value> values;
    for (const auto &run : runs)
        values.insert(values.end(), std::size_t(run.Length), run.Of);
    return values;
}

void requireSound(const RichText &text)
{
    for (qsizetype i = 0; i < text.Codes.size(); ++i) {
        REQUIRE(text.Codes[i] != '\r' || (i + 1 < text.Codes.size() && text.Codes[i + 1] == '\n'));
        REQUIRE(text.Codes[i] != '\n' || (i > 0 && text.Codes[i - 1] == '\r'));
    }
    REQUIRE(qsizetype(spread(text.Formats).size()) == text.Codes.size() + 1);
    REQUIRE(qsizetype(spread(text.Alignments).size()) == text.Codes.size() + 1);
}

void requireSameFormats(const RichText &one, const RichText &other)
{
    REQUIRE(spread(one.Alignments) == spread(other.Alignments));
    const auto formats = spread(one.Formats);
    const auto others = spread(other.Formats);
    for (std::size_t i = 0; i + 1 < formats.size(); ++i) {
        CharacterFormat expected = formats[i];
        REQUIRE(one.font(expected.Font).Name == other.font(others[i].Font).Name);
        expected.Font = others[i].Font;
        REQUIRE(expected == others[i]);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    QByteArray document(reinterpret_cast<const char *>(data), qsizetype(size));
    auto text = readRichText(document);
    if (!text) // most bytes leave groups open
        text = readRichText(document += QByteArray(64, '}'));
    if (!text)
        return 0;
    requireSound(*text);
    const auto again = readRichText(writeRichText(*text));
    REQUIRE(again.has_value());
    requireSound(*again);
    REQUIRE(again->Codes == text->Codes);
    requireSameFormats(*text, *again);
    // Read once, a written document is what it will always be.
    const QByteArray written = writeRichText(*again);
    REQUIRE(writeRichText(*readRichText(written)) == written);
    return 0;
}
