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
        struct Row
        {
            int From;
            int Right, Down; ///< also behind a move to the map
            int Left, Up;    ///< also behind a move to the list
        };
        const Row rows[] = {{0, 1, 28, 223, 223}, {1, 2, 29, 0, 196},      {27, 28, 55, 26, 222},
                            {28, 29, 56, 27, 0},  {196, 197, 1, 195, 168}, {222, 223, 27, 221, 194},
                            {223, 0, 0, 222, 195}};
        for (const Row &row : rows) {
            MapEditing map;
            const auto gone = [&](auto move) {
                map.setMapIndex(row.From);
                return move() ? map.MapIndex() : -1;
            };
            QCOMPARE(gone([&] { return map.listToMap('A', Across); }), row.Right);
            QCOMPARE(gone([&] { return map.mapToList(Across) == 'A'; }), row.Left);
            QCOMPARE(gone([&] { return map.listToMap('A', Down); }), row.Down);
            QCOMPARE(gone([&] { return map.mapToList(Down) == 'A'; }), row.Up);
            QCOMPARE(gone([&] { return map.moveByKey(Qt::Key_Up); }), row.Up);
            QCOMPARE(gone([&] { return map.moveByKey(Qt::Key_Home); }), 0);
            QCOMPARE(gone([&] { return map.moveByKey(Qt::Key_End); }), 223);
            QCOMPARE(gone([&] { return map.moveByKey(Qt::Key_PageDown); }), -1);
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
