// The commands that give the FontMap another text or background colour. They hand the colour of now
// to the palette and take the choice over; touch the map's two colour records, nothing else.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "defaults/FMColorPalette.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/controls/CharCells.h"
#include "textboard/TextBoard.h"

void Zendova::FMFColor_Click()
{
    FontMap &map = *FMapContainer;
    const ColorValue live = ViewsContainer->TextZoom->ForeColor(0);
    if (FMColorPalette->PickAnother("Select A Font Color", *this, map.Fore, live)) {
        map.Fore = PickedColor();
        map.ApplyFontMapColors(true, map.Fore.Color, false, 0);
    }
    TextBoard->setFocus();
}

void Zendova::FMBColor_Click()
{
    FontMap &map = *FMapContainer;
    const ColorValue live = ViewsContainer->TextZoom->BackColor(0);
    // The same block counts too if it was given another colour.
    if (FMColorPalette->PickAnother("Select A Background Color", *this, map.Back, live) ||
        PickColorValue.toInt() != live) {
        map.Back = PickedColor();
        map.ApplyFontMapColors(false, 0, true, map.Back.Color);
    }
    TextBoard->setFocus();
}
