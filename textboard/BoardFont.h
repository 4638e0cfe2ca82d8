// What stands behind the name of a font, and the one rule by which it is drawn: on a board as on
// paper. Knows no window.
#pragma once

#include <QFont>
#include <QString>
#include <functional>

struct BoardFont
{
    QFont font;                 ///< size and styles are the text's affair
    bool builtInBold = false;   ///< the family has no upright weight: it always shows bold
    bool builtInItalic = false; ///< the family always shows slanted

    /// The font in this size, in points, with these styles. A style that is built in is not asked
    /// for once more.
    QFont drawn(double points, bool bold, bool italic, bool underline, bool strikethru) const
    {
        // Each property is set even to the value that it has: one that isn't would follow that of
        // the widget's parent.
        QFont result = font;
        result.setPointSizeF(points);
        result.setWeight(bold && !builtInBold ? QFont::Bold : font.weight());
        result.setStyle(italic && !builtInItalic ? QFont::StyleItalic : font.style());
        result.setUnderline(underline);
        result.setStrikeOut(strikethru);
        // A glyph that the font lacks is shown as missing, never borrowed from another font.
        result.setStyleStrategy(
            static_cast<QFont::StyleStrategy>(font.styleStrategy() | QFont::NoFontMerging));
        return result;
    }
};

/// Gives what stands behind a name.
using BoardFontFactory = std::function<BoardFont(const QString &name)>;
