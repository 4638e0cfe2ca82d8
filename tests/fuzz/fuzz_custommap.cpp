// Any bytes as the file of a custom map: what the reader takes, it takes again from the writer.
#include "fontmap/CustomMapFile.h"
#include "tests/fuzz/Require.h"

#include <set>

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto captions = CustomMapFile::read(bytes);
    if (!captions)
        return 0;
    std::set<QChar> first;
    int filled = 0;
    for (const QString &caption : *captions) {
        if (caption.isEmpty())
            continue;
        ++filled;
        first.insert(caption.front());
    }
    REQUIRE(int(first.size()) == filled);
    REQUIRE(CustomMapFile::read(CustomMapFile::write(*captions)) == captions);
    return 0;
}
