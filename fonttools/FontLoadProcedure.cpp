// Walks the catalog's families and makes of each an entry of the list and its columns in FontLF and
// FontTM.
#include "fonttools/FontLoadProcedure.h"

#include "platform/FontCatalog.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace {

constexpr quint8 symbolCharSet = 2;
constexpr quint8 fixedPitch = 1;
constexpr quint8 variablePitch = 2;

LogicalFont logicalFontOf(const FontFamily &family, const FontTraits &traits)
{
    return {.lfWeight = traits.weight,
            .lfItalic = traits.italic,
            .lfCharSet = traits.symbol ? symbolCharSet : quint8(0),
            .lfPitchAndFamily = traits.fixedPitch ? fixedPitch : variablePitch,
            .lfFaceName = family.name.left(family.name.indexOf(QChar(u'\0')))};
}

TextMetric textMetricOf(const FontFamily &family, const FontTraits &traits)
{
    const int pitch = (traits.fixedPitch ? 0 : 1) | (family.fontType != RASTER_FONTTYPE ? 2 : 0) |
                      (family.fontType == TRUETYPE_FONTTYPE ? 4 : 0);
    return {.tmWeight = traits.weight,
            .tmItalic = traits.italic,
            .tmPitchAndFamily = static_cast<quint8>(pitch),
            .tmCharSet = traits.symbol ? symbolCharSet : quint8(0)};
}

} // namespace

void FontList::clear()
{
    Entries.clear();
}

void FontList::add(const QString &entry, int column)
{
    Entries.push_back({entry, column});
}

void FontList::sort()
{
    // The order of UTF-8 bytes is the order of code points, which that of UTF-16 is not.
    std::vector<std::pair<QByteArray, Entry>> keyed;
    keyed.reserve(Entries.size());
    for (Entry &entry : Entries) {
        QByteArray key = entry.text.toCaseFolded().toUtf8();
        keyed.emplace_back(std::move(key), std::move(entry));
    }
    std::ranges::stable_sort(keyed, {}, &std::pair<QByteArray, Entry>::first);
    std::ranges::transform(keyed, Entries.begin(), [](auto &pair) { return pair.second; });
}

FontClass fontClass(QStringView entry)
{
    return entry.endsWith(u'4') ? FontClass::TrueType : FontClass::System;
}

QString fontIconKey(FontClass fontClass)
{
    return fontClass == FontClass::TrueType ? QStringLiteral("TT") : QStringLiteral("SF");
}

QString fontFaceName(QStringView entry)
{
    return entry.chopped(std::min<qsizetype>(1, entry.size())).toString();
}

void LoadFontList(FontList &list)
{
    list.clear();
    FontCount = 0;
    FontLF.clear();
    FontTM.clear();
    const FontCatalog &catalog = FontCatalog::current();
    for (int i = 0; i < static_cast<int>(catalog.families().size()); ++i) {
        const FontFamily &family = catalog.families()[static_cast<std::size_t>(i)];
        const FontTraits traits = catalog.traits(i);
        FontEnumProc(logicalFontOf(family, traits), textMetricOf(family, traits), family.fontType,
                     list);
    }
    list.sort();
}

int FontEnumProc(const LogicalFont &logicalFont, const TextMetric &textMetric, int fontType,
                 FontList &list)
{
    list.add(logicalFont.lfFaceName + QString::number(fontType), FontCount);
    if (FontCount < 1) {
        FontLF.clear();
        FontTM.clear();
    }
    FontLF.push_back(logicalFont);
    FontTM.push_back(textMetric);
    countFont(FontCount);
    return 1;
}

void countFont(qint16 &counter)
{
    if (counter == std::numeric_limits<qint16>::max())
        throw std::overflow_error("More than 32,767 fonts are installed.");
    ++counter;
}
