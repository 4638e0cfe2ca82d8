// Windows code page 1252 and the way into it; values in, values out.
#include "platform/CodePage.h"

#include <QChar>
#include <algorithm>

namespace {

// Codes 80 to 9F hex; the five undefined ones stand for the C1 characters of the same number.
constexpr char16_t upperControls[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool holds(char16_t c)
{
    return c < 0x80 || (c >= 0xA0 && c <= 0xFF) ||
           std::find(std::begin(upperControls), std::end(upperControls), c) !=
               std::end(upperControls);
}

} // namespace

QString CodePage::fit(QStringView text)
{
    QString fitted;
    fitted.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (holds(c.unicode())) {
            fitted += c;
            continue;
        }
        const bool pair =
            c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        i += pair ? 1 : 0;
        const QString parts = pair ? QString() : c.decomposition();
        fitted += !parts.isEmpty() && holds(parts[0].unicode()) ? parts[0] : QChar(u'?');
    }
    return fitted;
}
