// The file of a custom map: what the writer makes of a map, and what the reader takes.
#include "fontmap/CustomMapFile.h"

#include <QTest>
#include <algorithm>
#include <functional>

using CustomMapFile::Captions;

namespace {

Captions fullMap()
{
    Captions captions;
    for (int cell = 0; cell < CellCount; ++cell) // turned round, so that no cell has its own code
        captions.at(static_cast<std::size_t>(cell)) = CharacterOf(FirstCode + 223 - cell);
    return captions;
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

class TestCustomMapFile : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatItReads()
    {
        const QByteArray blank = CustomMapFile::write({});
        QCOMPARE(blank.size(), 1684);
        QVERIFY(blank.startsWith("1,\"\"\r\n2,\"\"\r\n") && blank.endsWith("\r\n224,\"\"\r\n"));
        QVERIFY(CustomMapFile::read(blank) == Captions());

        const QByteArray full = CustomMapFile::write(fullMap());
        QCOMPARE(full.size(), 1909);
        QVERIFY(full.startsWith("1,\"\xFF\"\r\n") && full.contains("\r\n222,\"xx\"\r\n") &&
                full.contains("\r\n212,\",\"\r\n") && full.endsWith("\r\n224,\" \"\r\n"));
        QVERIFY(CustomMapFile::read(full) == fullMap());
        QVERIFY(CustomMapFile::read(full + "225,\"A\"\r\n\"") == fullMap());
    }

    void takes_data()
    {
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<int>("records");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("by hand") << QByteArray("1,A\r\n2,B \n 3 ,  \"C\" \r4,\tD,5,E\n") << 5
                                 << QStringList{"A", "B ", "C", "D", "E"};
        QTest::newRow("over lines")
            << QByteArray("1\n\"A\"\r\n2\r\nB\n") << 2 << QStringList{"A", "B"};
        QTest::newRow("wrong numbers of blank records")
            << QByteArray("9,\"\"\nx,\n-1,\n4,D\n") << 4 << QStringList{"", "", "", "D"};
        QTest::newRow("undefined codes")
            << QByteArray("1,\"\x81\"\n2,\x9D\n") << 2 << QStringList{QChar(0x81), QChar(0x9D)};
        QTest::newRow("two characters")
            << QByteArray("1,Q9\n2,\"xxx\"\n") << 2 << QStringList{"Q9", "xxx"};
        QTest::newRow("quote") << QByteArray("1,xx\n2,x\n") << 2 << QStringList{"\"", "x"};
    }
    void takes()
    {
        QFETCH(QByteArray, first);
        QFETCH(int, records);
        QFETCH(QStringList, expected);
        const auto read = CustomMapFile::read(withRecords(first, records));
        QVERIFY(read);
        expected.resize(CellCount);
        QVERIFY(QStringList(read->begin(), read->end()) == expected);
        QVERIFY(CustomMapFile::read(CustomMapFile::write(*read)) == read);
    }

    void rejects_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray blank = CustomMapFile::write({});
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one record short") << blank.chopped(8);
        QTest::newRow("last text missing") << blank.chopped(4);
        QTest::newRow("quote never closed") << blank.chopped(3);
        for (const char *first : {"2,A\n", "1.5,A\n", "one,A\n", "1,\x1F\n", "1,\"\n\"\n",
                                  "1,\"A\"B\n", "1,A\n2,A\n", "1,xx\n2,\"xx\"\n"})
            QTest::newRow(first) << withRecords(first, QByteArray(first).count('\n'));
        QTest::newRow("zero") << withRecords(QByteArray("1,A\0\n", 5), 1);
        QTest::newRow("huge") << QByteArray(CustomMapFile::MostBytes, 'A');
    }
    void rejects()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!CustomMapFile::read(bytes));
    }

    void keystrokes()
    {
        int control = 1;
        const auto keystroke = [&](int code) {
            return CustomCharTexts(CharacterOf(code), control)[KeystrokeRow];
        };
        QStringList texts;
        for (const int code : {128, 127, 32, 33, 126, 129, 255})
            texts += keystroke(code);
        QCOMPARE(texts,
                 QStringList({"Ctrl+1", "Ctrl+2", "Space Bar", "!", "~", "Alt+0129", "Alt+0255"}));
        QCOMPARE(CustomCharTexts("Q9", control), (CharTexts{"81", "51", "121", "1010001", "Q9"}));
        QCOMPARE(CustomCharTexts({}, control), CharTexts());
    }
};

QTEST_APPLESS_MAIN(TestCustomMapFile)
#include "tst_custommapfile.moc"
