// Keeps the last families and gives back older ones, several at a time.
#include "fonttools/PassingFonts.h"

#include "platform/FontCatalog.h"

namespace {

/// Enough for going back and forth among a few.
constexpr int Kept = 8;
/// The toolkit reads its fonts anew after each return, so they go by the dozen.
constexpr int Most = 20;

} // namespace

PassingFonts::~PassingFonts()
{
    FontCatalog::current().giveBack(Lent);
}

QFont PassingFonts::font(const QString &family)
{
    FontCatalog &catalog = FontCatalog::current();
    if (Lent.removeOne(family) || !catalog.isLoaded(family)) {
        if (Lent.size() == Most) {
            catalog.giveBack(Lent.mid(0, Most - Kept));
            Lent.remove(0, Most - Kept);
        }
        Lent += family;
    }
    QFont font = catalog.font(family);
    // The desktop may have its texts bold.
    font.setBold(false);
    font.setItalic(false);
    font.setUnderline(false);
    font.setStrikeOut(false);
    return font;
}
