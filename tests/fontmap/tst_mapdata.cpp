// A custom map without a window: what the file's writer makes of it and what its reader takes; and
// what moves between list and map of the editor do to characters, highlight and state.
#include "fontmap/CustomMapFile.h"
#include "fontmap/MapEditing.h"

#include <QTest>

using CustomMapFile::Captions;

namespace {

constexpr auto Across = MapEditing::Shift::Horizontal;
constexpr auto Down = MapEditing::Shift::Vertical;

bool isInList(const MapEditing &map, int code)
{
    return std::ranges::count(map.list(), code) == 1;
}

/// Records "1", "2" and so on without texts, with these instead of the first ones.
QByteArray withRecords(const QByteArray &first, int count)
{
    QByteArray bytes = first;
    for (int number = count + 1; number <= CellCount; ++number)
        bytes += QByteArray::number(number) + ",\"\"\r\n";
    return bytes;
}

} // namespace

class TestMapData : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatItReads()
    {
        const QByteArray blank = CustomMapFile::write({});
        QCOMPARE(blank.size(), 1684);
        QVERIFY(blank.startsWith("1,\"\"\r\n2,\"\"\r\n") && blank.endsWith("\r\n224,\"\"\r\n"));
        QVERIFY(CustomMapFile::read(blank) == Captions());

        Captions map; // turned round, so that no cell has its own code
        for (int cell = 0; cell < CellCount; ++cell)
            map.at(static_cast<std::size_t>(cell)) = CharacterOf(FirstCode + 223 - cell);
        const QByteArray full = CustomMapFile::write(map);
        QCOMPARE(full.size(), 1909);
        QVERIFY(full.startsWith("1,\"\xFF\"\r\n") && full.contains("\r\n222,\"xx\"\r\n") &&
                full.contains("\r\n212,\",\"\r\n") && full.endsWith("\r\n224,\" \"\r\n"));
        QVERIFY(CustomMapFile::read(full) == map);
        QVERIFY(CustomMapFile::read(full + "225,\"A\"\r\n\"") == map);
    }

    void takes()
    {
        for (const auto &[first, expected] :
             {std::pair("1,A\r\n2,B \n 3 ,  \"C\" \r4,\tD,5,E\n",
                        Captions{"A", "B ", "C", "D", "E"}),
              {"1\n\"A\"\r\n2\r\nB\n3,\n4,\n5,\n", {"A", "B"}},  // over lines
              {"9,\"\"\nx,\n-1,\n4,D\n5,\n", {"", "", "", "D"}}, // wrong numbers of blank records
              {"1,\"\x81\"\n2,\x9D\n3,\n4,\n5,\n", {QChar(0x81), QChar(0x9D)}},
              {"1,Q9\n2,\"xxx\"\n3,\n4,\n5,\n", {"Q9", "xxx"}},
              {"1,xx\n2,x\n3,\n4,\n5,\n", {"\"", "x"}}}) {
            const auto read = CustomMapFile::read(withRecords(first, 5));
            QVERIFY2(read == expected, first);
            QVERIFY2(CustomMapFile::read(CustomMapFile::write(*read)) == read, first);
        }
    }

    void rejects()
    {
        const QByteArray blank = CustomMapFile::write({});
        QByteArrayList rows{
            "",
            QByteArray(CustomMapFile::MostBytes, 'A'),
            blank.chopped(8), // one record short, then without a text, then without a quote
            blank.chopped(4),
            blank.chopped(3),
            withRecords(QByteArray("1,A\0\n", 5), 1)};
        for (const QByteArray first : {"2,A\n", "1.5,A\n", "one,A\n", "1,\x1F\n", "1,\"\n\"\n",
                                       "1,\"A\"B\n", "1,A\n2,A\n", "1,xx\n2,\"xx\"\n"})
            rows += withRecords(first, int(first.count('\n')));
        for (const QByteArray &bytes : rows)
            QVERIFY2(!CustomMapFile::read(bytes), bytes.left(20));
    }

    void keystrokes()
    {
        int control = 1;
        QStringList texts;
        for (const int code : {128, 127, 32, 33, 126, 129, 255})
            texts += CustomCharTexts(CharacterOf(code), control)[KeystrokeRow];
        QCOMPARE(texts,
                 QStringList({"Ctrl+1", "Ctrl+2", "Space Bar", "!", "~", "Alt+0129", "Alt+0255"}));
        QCOMPARE(CustomCharTexts("Q9", control), (CharTexts{"81", "51", "121", "1010001", "Q9"}));
        QCOMPARE(CustomCharTexts({}, control), CharTexts());
    }

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

QTEST_APPLESS_MAIN(TestMapData)
#include "tst_mapdata.moc"
