// The size of the map, from 1 to what the screen allows: the cells grow by a pixel a side, and the
// bars above them follow. What the window does about it is the window's.
#include "core/Display.h"
#include "fontmap/FontMap.h"
#include "fontmap/MapSize.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/Toolbar.h"

#include <QAction>
#include <algorithm>

namespace {

constexpr int MapRows = CellCount / MapColumns;

} // namespace

void FontMap::SetFontMapSize(int Steps, bool Grow)
{
    MapResizing = true;
    hide();
    const double across = (Grow ? 1 : -1) * Steps * Form.TwipsX();
    const double down = (Grow ? 1 : -1) * Steps * Form.TwipsY();
    const double side = CharButton->place(0).Width;
    std::vector<TwipRect> places;
    places.reserve(CellCount);
    for (int cell = 0; cell < CellCount; ++cell) {
        const int column = cell % MapColumns;
        const int row = cell / MapColumns;
        TwipRect place = CharButton->place(cell);
        place.Left += across * column;
        place.Top += down * row;
        place.Width = side + across;
        place.Height = side + down;
        places.push_back(place);
    }
    CharButton->setPlaces(places);

    const TwipRect &first = CharButton->place(0);
    const double width = MapColumns * first.Width - 23 * Form.TwipsX();
    const double height = Form.height(clbFontMap) + MapRows * first.Height - 4 * Form.TwipsY();
    Form.setWidth(clbFontMap, width);
    Form.setWidth(CharButton, width);
    Form.setHeight(CharButton, height);
    const double nameWidth =
        std::max(0.0, width - (clbFontMap->bandWidth(0) + clbFontMap->bandWidth(1)));
    clbFontMap->setBandWidth(NameBand, nameWidth);
    emit Resized(width, height);
    show();
    MapResizing = false;
}

void FontMap::sldSetFMapSize_Change(int Value)
{
    sldSetFMapSize->showNumber(QString::number(Value));
    // While no size is known the cells stand as they were made, at the smallest.
    const int from = std::max(SizeIndex, 1);
    if (Value != SizeIndex) {
        SetFontMapSize(std::abs(Value - from), Value > from);
        SizeIndex = Value;
    }
    emit SizeChanged();
}

void FontMap::FMLarger_Click()
{
    sldSetFMapSize->setValue(sldSetFMapSize->value() + 1);
}

void FontMap::FMSmaller_Click()
{
    sldSetFMapSize->setValue(sldSetFMapSize->value() - 1);
}

void FontMap::wheelEvent(QWheelEvent *event)
{
    if (!WheelSteps::isMeant(*event) || !pbxSetFMapSize->isEnabled()) {
        event->ignore();
        return;
    }
    if (const int steps = Wheel.take(*event))
        sldSetFMapSize->setValue(sldSetFMapSize->value() + steps);
    event->accept();
}

void FontMap::ComputeMaxMapSize()
{
    MaxMapSize = MapSize::Largest(DisplayMode::Display(), Form.TwipsX());
    pbxSetFMapSize->setEnabled(MaxMapSize > 1 && Sizable);
    // A narrow screen gives 0 or less, and size 1 stands on every screen.
    sldSetFMapSize->setMost(std::max(MaxMapSize, 1));
}

void FontMap::FitScreen()
{
    ComputeMaxMapSize();
    pbxSetFMapSize->setVisible(MaxMapSize > 1);
    if (SizeIndex <= MaxMapSize)
        return;
    sldSetFMapSize->setValue(MaxMapSize);
    // The slider tells of no change where it stood there already.
    if (SizeIndex != sldSetFMapSize->value())
        sldSetFMapSize_Change(sldSetFMapSize->value());
}

void FontMap::EnableSizing(bool On)
{
    Sizable = On;
    for (const char *key : {"FMap-", "FMap+", "RAFMap"})
        tlbCFMapFmt->enableButton(key, On);
    pbxSetFMapSize->setEnabled(On);
    for (QAction *item : {FMSmaller, FMLarger, FMRealign})
        item->setEnabled(On);
}

void FontMap::UpdateSizeCommands(bool aligned)
{
    if (Sizable) {
        pbxSetFMapSize->setEnabled(aligned);
        for (const char *key : {"FMap+", "FMap-"})
            tlbCFMapFmt->enableButton(key, aligned);
        FMSmaller->setEnabled(aligned);
        FMLarger->setEnabled(aligned);
        tlbCFMapFmt->enableButton("RAFMap", !aligned);
        FMRealign->setEnabled(!aligned);
    }
    const auto limit = [this](bool reached, const char *key, QAction *item) {
        if (!reached && !pbxSetFMapSize->isEnabled())
            return;
        tlbCFMapFmt->enableButton(key, !reached);
        item->setEnabled(!reached);
    };
    limit(MaxMapSize == SizeIndex, "FMap+", FMLarger);
    limit(SizeIndex <= 1, "FMap-", FMSmaller);
}
