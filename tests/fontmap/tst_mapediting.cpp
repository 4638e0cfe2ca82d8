// What moves between list and map of the editor do to the characters, the highlight and the state
// of the map, without a window.
#include "fontmap/MapEditing.h"

#include <QTest>

namespace {

constexpr auto Across = MapEditing::Shift::Horizontal;
constexpr auto Down = MapEditing::Shift::Vertical;

bool isInList(const MapEditing &map, int code)
{
    return std::ranges::count(map.list(), code) == 1;
}

} // namespace

class TestMapEditing : public QObject
{
    Q_OBJECT

private slots:
    void highlightMoves()
    {
        for (const auto &[from, right, down, left, up] : {std::tuple(0, 1, 28, 223, 223),
                                                          {27, 28, 55, 26, 222},
                                                          {196, 197, 1, 195, 168},
                                                          {223, 0, 0, 222, 195}}) {
            MapEditing map;
            for (const auto &[shift, forward, back] :
                 {std::tuple(Across, right, left), {Down, down, up}}) {
                map.setMapIndex(from);
                QVERIFY(map.listToMap('A', shift));
                QCOMPARE(map.MapIndex(), forward);
                map.setMapIndex(from);
                QCOMPARE(map.mapToList(shift), std::optional<int>('A'));
                QCOMPARE(map.MapIndex(), back);
            }
        }
    }

    void thereAndBack()
    {
        MapEditing map({"A", "", "\"", "Q9"});
        QCOMPARE(map.CharsInList(), 221);
        QVERIFY(!isInList(map, 'A') && !isInList(map, '"') && !isInList(map, 'Q'));
        QVERIFY(isInList(map, '9') && !map.isDirty());
        QCOMPARE(map.mapToList(Across), std::optional<int>('A'));
        QVERIFY(isInList(map, 'A') && map.isDirty());
        map.setMapIndex(0);
        QVERIFY(map.listToMap('A', Across) && !map.isDirty());
        map.setMapIndex(3);
        QCOMPARE(map.mapToList(Across), std::optional<int>('Q'));
        map.markSaved();
        QVERIFY(isInList(map, 'Q') && !map.isDirty());
    }

    void nothingIsLost()
    {
        MapEditing map({"A"});
        QVERIFY(!map.listToMap('B', Across)); // the slot is taken
        map.setMapIndex(5);
        QVERIFY(!map.listToMap('A', Across)); // it is in the map
        QVERIFY(!map.mapToList(Across));      // the slot is empty
        QCOMPARE(map.MapIndex(), 5);
        QVERIFY(!map.isDirty() && isInList(map, 'B'));
    }
};

QTEST_APPLESS_MAIN(TestMapEditing)
#include "tst_mapediting.moc"
