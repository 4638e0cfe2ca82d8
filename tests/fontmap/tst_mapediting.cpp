// What moves between list and map of the editor do to the characters, the highlight and the state
// of the map, without a window.
#include "fontmap/MapEditing.h"

#include <QTest>

namespace {

using Shift = MapEditing::Shift;

/// A map with these texts in the first slots.
MapEditing mapOf(const QStringList &texts)
{
    CustomMapFile::Captions captions;
    std::ranges::copy(texts, captions.begin());
    return MapEditing(captions);
}

bool isInList(const MapEditing &map, int code)
{
    return std::ranges::count(map.list(), code) == 1;
}

} // namespace

class TestMapEditing : public QObject
{
    Q_OBJECT

private slots:
    void highlightMoves_data();
    void highlightMoves();
    void fillsToTheBrim();
    void thereAndBack();
    void nothingIsLost();
    void keystrokes();
};

void TestMapEditing::highlightMoves_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QList<int>>("behindToMap"); // horizontally, vertically
    QTest::addColumn<QList<int>>("behindToList");
    QTest::addColumn<QList<int>>("keys"); // left, up, right, down
    const auto row = [](int from, const QList<int> &toMap, const QList<int> &toList,
                        const QList<int> &keys) {
        QTest::addRow("%d", from) << from << toMap << toList << keys;
    };
    row(0, {1, 28}, {223, 223}, {223, 223, 1, 28});
    row(1, {2, 29}, {0, 196}, {0, 196, 2, 29});
    row(27, {28, 55}, {26, 222}, {26, 222, 28, 55});
    row(28, {29, 56}, {27, 0}, {27, 0, 29, 56});
    row(196, {197, 1}, {195, 168}, {195, 168, 197, 1});
    row(222, {223, 27}, {221, 194}, {221, 194, 223, 27});
    row(223, {0, 0}, {222, 195}, {222, 195, 0, 0});
}

void TestMapEditing::highlightMoves()
{
    QFETCH(int, from);
    QFETCH(QList<int>, behindToMap);
    QFETCH(QList<int>, behindToList);
    QFETCH(QList<int>, keys);
    for (const int direction : {0, 1}) {
        MapEditing map;
        map.setMapIndex(from);
        QVERIFY(map.listToMap('A', Shift(direction)));
        QCOMPARE(map.MapIndex(), behindToMap[direction]);
        map.setMapIndex(from);
        QCOMPARE(map.mapToList(Shift(direction)), std::optional<int>('A'));
        QCOMPARE(map.MapIndex(), behindToList[direction]);
    }
    MapEditing map;
    int key = Qt::Key_Left;
    for (const int to : keys) {
        map.setMapIndex(from);
        QVERIFY(map.moveByKey(key++));
        QCOMPARE(map.MapIndex(), to);
    }
    QVERIFY(!map.moveByKey(Qt::Key_PageDown) && !map.moveByKey(Qt::Key_A));
    QVERIFY(map.moveByKey(Qt::Key_Home));
    QCOMPARE(map.MapIndex(), 0);
    QVERIFY(map.moveByKey(Qt::Key_End));
    QCOMPARE(map.MapIndex(), 223);
}

void TestMapEditing::fillsToTheBrim()
{
    for (const Shift shift : {Shift::Horizontal, Shift::Vertical}) {
        MapEditing map;
        for (int code = 32; code < 256; ++code)
            QVERIFY(map.listToMap(code, shift));
        QVERIFY(map.list().empty());
        QCOMPARE(map.CharsInList(), 0);
        QCOMPARE(map.MapIndex(), 0); // full round
        QCOMPARE(map.caption(shift == Shift::Vertical ? 28 : 1), QString("!"));
        QCOMPARE(map.caption(223), QString("ÿ"));
        QVERIFY(!map.listToMap('A', shift));
    }
}

void TestMapEditing::thereAndBack()
{
    MapEditing map = mapOf({"A", "", "\"", "Q9"});
    QCOMPARE(map.CharsInList(), 221);
    for (const int code : {'A', '"', 'Q'})
        QVERIFY(!isInList(map, code));
    QVERIFY(isInList(map, '9') && !map.isDirty());
    QCOMPARE(map.mapToList(Shift::Horizontal), std::optional<int>('A'));
    QVERIFY(isInList(map, 'A') && map.isDirty());
    map.setMapIndex(0);
    QVERIFY(map.listToMap('A', Shift::Horizontal));
    QVERIFY(!map.isDirty());
    map.setMapIndex(3);
    QCOMPARE(map.mapToList(Shift::Horizontal), std::optional<int>('Q'));
    QVERIFY(map.isDirty());
    map.markSaved();
    QVERIFY(!map.isDirty());
    QCOMPARE(map.CharsInList(), 222);
}

void TestMapEditing::nothingIsLost()
{
    MapEditing map = mapOf({"A"});
    const auto before = map.captions();
    QVERIFY(!map.listToMap('B', Shift::Horizontal)); // the slot is taken
    map.setMapIndex(5);
    QVERIFY(!map.listToMap('A', Shift::Horizontal)); // it is in the map
    QVERIFY(!map.mapToList(Shift::Horizontal));      // the slot is empty
    QCOMPARE(map.MapIndex(), 5);
    QVERIFY(map.captions() == before && isInList(map, 'B'));
}

void TestMapEditing::keystrokes()
{
    const auto texts = KeyTexts();
    const auto text = [&](std::size_t code) { return texts.at(code - 32); };
    QCOMPARE(QStringList({text(32), text(126), text(127), text(128), text(129), text(255)}),
             QStringList({"Space Bar", "~", "Ctrl+1", "Ctrl+2", "Alt+0129", "Alt+0255"}));
}

QTEST_APPLESS_MAIN(TestMapEditing)
#include "tst_mapediting.moc"
