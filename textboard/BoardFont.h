// How text looks, on a board as on paper: what stands behind the name of a font, the one rule by
// which it is drawn, and the alignments. Knows no window.
#pragma once

#include <QFont>
#include <QString>
#include <array>
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

/// The toolkit's alignments of 0 left, 1 right, 2 centre. Left is left also where a line begins on
/// the right, as in Hebrew and Arabic.
inline constexpr std::array<Qt::Alignment, 3> BoardAlignments = {
    Qt::AlignLeft | Qt::AlignAbsolute, Qt::AlignRight | Qt::AlignAbsolute, Qt::AlignHCenter};

/// Gives what stands behind a name.
using BoardFontFactory = std::function<BoardFont(const QString &name)>;
