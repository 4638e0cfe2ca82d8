// Any bytes as a plain text file, from which the buffer loads a text, selects in it, searches and
// cuts. The first six bytes say what is looked for and where.
#include "platform/CodePage.h"
#include "tests/fuzz/Require.h"
#include "textboard/TextBoardRTF.h"

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file in memory with these contents, reachable by a path.
QString fileOf(QByteArrayView bytes)
{
    static const int file = memfd_create("text", MFD_CLOEXEC);
    REQUIRE(ftruncate(file, 0) == 0);
    REQUIRE(pwrite(file, bytes.data(), std::size_t(bytes.size()), 0) == bytes.size());
    return QStringLiteral("/proc/self/fd/%1").arg(file);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    constexpr std::size_t HeadSize = 6;
    if (size < HeadSize)
        return 0;
    const QByteArrayView bytes(data + HeadSize, qsizetype(size - HeadSize));
    TextBoardRTF buffer;
    REQUIRE(!buffer.LoadFile(fileOf(bytes), TextBoardRTF::FileKind::PlainText));
    const QString text = buffer.Text();
    QString expected = CodePage::fromBytes(bytes);
    expected.replace("\r\n", "\n").replace('\r', '\n').replace("\n", "\r\n");
    REQUIRE(text == expected && buffer.TextLength() == text.size());

    const int options = data[0] & (TextBoardRTF::MatchCase | TextBoardRTF::WholeWord);
    const qsizetype start = data[1];
    const qsizetype end = data[2];
    buffer.setSelStart(data[3]);
    buffer.setSelLength(data[4]);
    const QString wanted = buffer.SelText().left(data[5]);
    // Half a line end would be looked for as a whole one.
    if (!wanted.isEmpty() && !wanted.endsWith('\r')) {
        const qsizetype found = buffer.Find(wanted, start, end, options);
        const qsizetype slowly = text.left(end).indexOf(
            wanted, start, options ? Qt::CaseSensitive : Qt::CaseInsensitive);
        REQUIRE(options & TextBoardRTF::WholeWord || found == slowly);
        REQUIRE(found < 0 || (buffer.SelStart() == found && buffer.SelLength() == wanted.size()));
    }

    buffer.setSelBold(true);
    buffer.setSelAlignment(1);
    buffer.Truncate(end);
    REQUIRE(text.startsWith(buffer.Text()) && buffer.TextLength() <= end);
    TextBoardRTF again;
    REQUIRE(!again.LoadFile(fileOf(buffer.TextRTF()), TextBoardRTF::FileKind::RichText));
    REQUIRE(again.Text() == buffer.Text());
    return 0;
}
