// The toolkit trusts a face. It copies glyphs of several bits a pixel into room for one bit a
// pixel, past its end; copies from nowhere where an outline was too big to be filled; keeps widths
// and heights of bitmaps in one byte; and divides by the size that a bitmap face states. So a face
// is taken only if nothing of that can happen.
#include "platform/FaceCheck.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <cstdlib>
#include <ft2build.h>
#include <set>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace {

constexpr int longestSide = 255;
/// An outline may reach this many ems from its origin. FreeType gives up on some that reach 32, at
/// any size; text of the widest swashes stays below 10.
constexpr int longestReach = 16;
constexpr int farthest = 1000; ///< pixels from the origin, for positions and advances

bool sizeIsSound(const FT_Bitmap_Size &size)
{
    const auto sound = [](FT_Pos pixels64) {
        return pixels64 >= 64 && pixels64 <= 64 * longestSide;
    };
    return sound(size.x_ppem) && sound(size.y_ppem) && size.height > 0 &&
           size.height <= longestSide && size.width >= 0 && size.width <= longestSide;
}

/// True for glyphs that can't be loaded: the toolkit leaves them out.
bool glyphIsSound(FT_Face face, FT_UInt glyph)
{
    if (FT_Load_Glyph(face, glyph, FT_LOAD_DEFAULT) != 0)
        return true;
    const FT_GlyphSlot slot = face->glyph;
    const FT_Bitmap &bitmap = slot->bitmap;
    if (slot->format != FT_GLYPH_FORMAT_BITMAP || bitmap.rows > longestSide ||
        bitmap.width > longestSide || std::abs(slot->bitmap_left) > farthest ||
        std::abs(slot->bitmap_top) > farthest || std::abs(slot->advance.x) > 64 * farthest)
        return false;
    const bool nothingToCopy = bitmap.rows == 0 || bitmap.width == 0;
    return nothingToCopy || (bitmap.pixel_mode == FT_PIXEL_MODE_MONO && bitmap.buffer &&
                             bitmap.pitch >= static_cast<int>(bitmap.width + 7) / 8);
}

/// Calls `isSound` for the missing glyph and those of all codes, plain and of symbol fonts.
template<typename Test>
bool allGlyphs(FT_Face face, const Test &isSound)
{
    std::set<FT_UInt> glyphs{0};
    // In each of the face's tables: FreeType chooses none for a face without Unicode, the toolkit
    // does.
    for (int table = 0; table < face->num_charmaps; ++table) {
        if (FT_Set_Charmap(face, face->charmaps[table]) != 0)
            continue;
        for (int code = 32; code < 256; ++code) {
            const char16_t character = CodePage::toUnicode(static_cast<quint8>(code)).unicode();
            for (const FT_ULong mapped :
                 {FT_ULong{character}, 0xF000 + static_cast<FT_ULong>(code)})
                glyphs.insert(FT_Get_Char_Index(face, mapped));
        }
    }
    return std::ranges::all_of(glyphs, [&](FT_UInt glyph) { return isSound(face, glyph); });
}

bool outlineIsSound(FT_Face face, FT_UInt glyph)
{
    if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
        face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return true;
    const long unit = 64L * face->size->metrics.y_ppem;
    FT_BBox box;
    FT_Outline_Get_CBox(&face->glyph->outline, &box);
    return std::max({std::labs(box.xMin), std::labs(box.xMax), std::labs(box.yMin),
                     std::labs(box.yMax)}) < longestReach * unit;
}

bool sizeCanBeDrawn(FT_Face face, int size)
{
    if (!sizeIsSound(face->available_sizes[size]) || FT_Select_Size(face, size) != 0)
        return false;
    const FT_Size_Metrics &metrics = face->size->metrics;
    return std::max({std::labs(metrics.ascender), std::labs(metrics.descender),
                     std::labs(metrics.height), std::labs(metrics.max_advance)}) <= 64 * farthest &&
           allGlyphs(face, glyphIsSound);
}

/// A face, open as long as this lives.
class OpenFace
{
public:
    OpenFace(const char *file, int index)
    {
        if (FT_Init_FreeType(&Library) == 0 && FT_New_Face(Library, file, index, &Face) != 0)
            Face = nullptr;
    }
    ~OpenFace() { FT_Done_FreeType(Library); } // closes the face as well
    OpenFace(const OpenFace &) = delete;
    OpenFace &operator=(const OpenFace &) = delete;

    FT_Face face() const { return Face; }

private:
    FT_Library Library = nullptr;
    FT_Face Face = nullptr;
};

} // namespace

std::vector<int> drawableSizes(const char *file, int index)
{
    const OpenFace open(file, index);
    std::vector<int> sizes;
    for (int size = 0; open.face() && size < open.face()->num_fixed_sizes; ++size) {
        if (!sizeCanBeDrawn(open.face(), size))
            return {};
        sizes.push_back(static_cast<int>(open.face()->available_sizes[size].y_ppem + 32) / 64);
    }
    return sizes;
}

bool hasDrawableOutlines(const char *file, int index)
{
    const OpenFace open(file, index);
    return open.face() && FT_Set_Pixel_Sizes(open.face(), 0, 64) == 0 &&
           allGlyphs(open.face(), outlineIsSound);
}
