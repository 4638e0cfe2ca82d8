// One row a language, or a language of one country or script; the first that fits counts.
#include "platform/UserCodePage.h"

#include "platform/CodePage.h"

#include <QByteArrayList>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <utility>

namespace {

struct Row
{
    std::string_view Language;
    std::string_view Where; ///< country, or the script as BCP 47 spells it; empty for all others
    int Page;
};

// Languages that are written in several scripts have the less common ones first.
constexpr Row Rows[] = {
    {"az", "Cyrl", 1251}, {"az", "IR", 1256},   {"az", "Arab", 1256}, {"az", "", 1254},
    {"bs", "Cyrl", 1251}, {"bs", "", 1250},     {"kk", "CN", 1256},   {"kk", "Arab", 1256},
    {"kk", "", 1251},     {"ku", "IQ", 1256},   {"ku", "Arab", 1256}, {"ku", "", 1254},
    {"ky", "", 1251},     {"mn", "Mong", 1252}, {"mn", "CN", 1252},   {"mn", "", 1251},
    {"pa", "PK", 1256},   {"pa", "Arab", 1256}, {"ro", "Cyrl", 1251}, {"ro", "", 1250},
    {"sd", "Deva", 1252}, {"ks", "Deva", 1252}, {"sd", "", 1256},     {"sr", "Latn", 1250},
    {"sr", "", 1251},     {"be", "Latn", 1250}, {"tt", "Latn", 1254}, {"tt", "", 1251},
    {"uz", "Cyrl", 1251}, {"uz", "AF", 1256},   {"uz", "Arab", 1256}, {"uz", "", 1254},

    {"cs", "", 1250},     {"csb", "", 1250},    {"dsb", "", 1250},    {"hr", "", 1250},
    {"hsb", "", 1250},    {"hu", "", 1250},     {"pl", "", 1250},     {"sh", "", 1250},
    {"sk", "", 1250},     {"sl", "", 1250},     {"sq", "", 1250},     {"szl", "", 1250},
    {"tk", "", 1250},

    {"ba", "", 1251},     {"be", "", 1251},     {"bg", "", 1251},     {"ce", "", 1251},
    {"cv", "", 1251},     {"mhr", "", 1251},    {"mk", "", 1251},     {"os", "", 1251},
    {"ru", "", 1251},     {"sah", "", 1251},    {"tg", "", 1251},     {"uk", "", 1251},

    {"el", "", 1253},     {"crh", "", 1254},    {"tr", "", 1254},     {"he", "", 1255},
    {"iw", "", 1255},     {"yi", "", 1255},     {"ar", "", 1256},     {"ckb", "", 1256},
    {"fa", "", 1256},     {"ks", "", 1256},     {"ps", "", 1256},     {"ug", "", 1256},
    {"ur", "", 1256},     {"et", "", 1257},     {"lt", "", 1257},     {"ltg", "", 1257},
    {"lv", "", 1257},     {"sgs", "", 1257},    {"vi", "", 1258},     {"th", "", 874},
};

/// The C library's names of scripts, behind the "@".
struct Modifier
{
    std::string_view Name, Script;
};
constexpr Modifier Modifiers[] = {
    {"latin", "Latn"}, {"iqtelif", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}};

/// The first that is set to something, in the order of POSIX.
QByteArray userLocale()
{
    for (const char *variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const QByteArray value = qgetenv(variable); !value.isEmpty())
            return value;
    return {};
}

/// What stands before the sign and behind it.
std::pair<QByteArrayView, QByteArrayView> cut(QByteArrayView text, char sign)
{
    const qsizetype at = text.indexOf(sign);
    return at < 0 ? std::pair(text, QByteArrayView())
                  : std::pair(text.first(at), text.sliced(at + 1));
}

} // namespace

int UserCodePage::ofLocale(QByteArrayView locale)
{
    // language_COUNTRY.encoding@modifier, all but the language optional
    const auto [place, modifier] = cut(locale, '@');
    QByteArrayList where = cut(place, '.').first.toByteArray().split('_');
    const QByteArray language = where.takeFirst().toLower();
    for (const auto &[name, script] : Modifiers)
        if (modifier == QByteArrayView(name))
            where.prepend(QByteArrayView(script).toByteArray());
    const auto row = std::ranges::find_if(Rows, [&](const Row &candidate) {
        return QByteArrayView(candidate.Language) == language &&
               (candidate.Where.empty() || std::ranges::any_of(where, [&](const QByteArray &part) {
                    return part.compare(QByteArrayView(candidate.Where), Qt::CaseInsensitive) == 0;
                }));
    });
    return row == std::end(Rows) ? CodePage::Western : row->Page;
}

void UserCodePage::settle()
{
    const QByteArray wanted = qgetenv("ZENDOVA_CODEPAGE");
    if (!wanted.isEmpty()) {
        if (CodePage::use(wanted.toInt()))
            return;
        std::fprintf(stderr, "zendova: ZENDOVA_CODEPAGE=%s is no code page that can be used\n",
                     wanted.constData());
    }
    const int page = ofLocale(userLocale());
    if (!CodePage::use(page))
        std::fprintf(stderr, "zendova: no decoder for code page %d; %d is used\n", page,
                     CodePage::number());
}
