// The commands that give the FontMap another text or background colour. They hand the colour of now
// to the palette and take the choice over; touch the map's two colour records, nothing else.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "defaults/FMColorPalette.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/controls/CharCells.h"
#include "textboard/TextBoard.h"

namespace {

/// Starts the palette from the record and the live colour. True if another block was chosen.
bool pick(FMColorPalette &palette, const QWidget &owner, const QString &caption,
          const ColorRecord &record, ColorValue live)
{
    PickColorIndex = record.ColorIndex;
    PickPaletteRef = record.PaletteRef;
    PickColorValue = QString::number(live);
    palette.PickColor(caption, owner);
    return PickColorIndex != record.ColorIndex || PickPaletteRef != record.PaletteRef;
}

ColorRecord picked()
{
    return {.Color = PickColorValue.toInt(),
            .ColorIndex = PickColorIndex,
            .ColorName = PickColorName,
            .PaletteRef = PickPaletteRef};
}

} // namespace

void Zendova::FMFColor_Click()
{
    FontMap &map = *FMapContainer;
    const ColorValue live = ViewsContainer->TextZoom->ForeColor(0);
    if (pick(*FMColorPalette, *this, "Select A Font Color", map.Fore, live)) {
        map.Fore = picked();
        map.ApplyFontMapColors(true, map.Fore.Color, false, 0);
    }
    TextBoard->setFocus();
}

void Zendova::FMBColor_Click()
{
    FontMap &map = *FMapContainer;
    const ColorValue live = ViewsContainer->TextZoom->BackColor(0);
    // The same block counts too if it was given another colour.
    if (pick(*FMColorPalette, *this, "Select A Background Color", map.Back, live) ||
        PickColorValue.toInt() != live) {
        map.Back = picked();
        map.ApplyFontMapColors(false, 0, true, map.Back.Color);
    }
    TextBoard->setFocus();
}
