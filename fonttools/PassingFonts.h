// Fonts that a window shows one after the other. The toolkit keeps what it once was given, and each
// family that it has makes the next one slower: walking through ten thousand must not end with all
// of them in memory. Knows no window.
#pragma once

#include <QFont>
#include <QStringList>

class PassingFonts
{
public:
    PassingFonts() = default;
    /// Gives back all that are left. Nothing may show them any more.
    ~PassingFonts();
    Q_DISABLE_COPY_MOVE(PassingFonts)

    /// As FontCatalog::font, in the regular style. Only this font and the few asked for before it
    /// may still be shown; families that others had asked for before are left alone.
    QFont font(const QString &family);

private:
    QStringList Lent; ///< the last one asked for stands at the end
};
