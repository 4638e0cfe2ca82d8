// The font list's order and entries, the counters' limit, the tables, and the first-letter jump.
#include "fonttools/FontLoadProcedure.h"
#include "platform/FontCatalog.h"
#include "tests/support/TestFonts.h"

#include <QGuiApplication>
#include <QTest>
#include <stdexcept>

class TestFontLoad : public QObject
{
    Q_OBJECT

private slots:
    void sortsByTheWholeEntry_data();
    void sortsByTheWholeEntry();
    void readsAnEntry_data();
    void readsAnEntry();
    void loadsTheCatalog();
    void firstFontDiscardsTheTables();
    void tooManyFontsEndTheProgram();
    void sortsManyFontsAtOnce();
    void firstLetterMatch_data();
    void firstLetterMatch();
};

void TestFontLoad::sortsByTheWholeEntry_data()
{
    QTest::addColumn<QStringList>("added");
    QTest::addColumn<QStringList>("sorted");
    QTest::newRow("blank before digit")
        << QStringList{"Arial4", "Arial Black4"} << QStringList{"Arial Black4", "Arial4"};
    QTest::newRow("the type counts")
        << QStringList{"Font4", "Font2"} << QStringList{"Font2", "Font4"};
    QTest::newRow("case does not")
        << QStringList{"b4", "C4", "a4", "B2"} << QStringList{"a4", "B2", "b4", "C4"};
    QTest::newRow("equal keeps its order")
        << QStringList{"ab4", "AB4", "aB4"} << QStringList{"ab4", "AB4", "aB4"};
    QTest::newRow("folded, so between Z and a")
        << QStringList{"_4", "Z4", "a4"} << QStringList{"_4", "a4", "Z4"};
    QTest::newRow("no rules of a language")
        << QStringList{"Ä4", "B4", "Z4"} << QStringList{"B4", "Z4", "Ä4"};
    QTest::newRow("code points, not surrogates")
        << QStringList{"𝐀4", "ﬀ4", "\uFFFD4"} << QStringList{"ﬀ4", "\uFFFD4", "𝐀4"};
}

void TestFontLoad::sortsByTheWholeEntry()
{
    QFETCH(QStringList, added);
    QFETCH(QStringList, sorted);
    FontList list;
    for (int i = 0; i < added.size(); ++i)
        list.add(added[i], i);
    list.sort();
    QCOMPARE(list.count(), static_cast<int>(sorted.size()));
    for (int i = 0; i < list.count(); ++i) {
        QCOMPARE(list.entry(i), sorted[i]);
        QCOMPARE(added[list.column(i)], sorted[i]);
    }
}

void TestFontLoad::readsAnEntry_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("faceName");
    QTest::addColumn<QString>("iconKey");
    QTest::newRow("TrueType") << "Arial4"
                              << "Arial"
                              << "TT";
    QTest::newRow("name ends in a digit") << "Font244"
                                          << "Font24"
                                          << "TT";
    QTest::newRow("name ends in 4, but raster") << "Font41"
                                                << "Font4"
                                                << "SF";
    QTest::newRow("device") << "Type2"
                            << "Type"
                            << "SF";
    QTest::newRow("combination with TrueType") << "Both6"
                                               << "Both"
                                               << "SF";
    QTest::newRow("no type flag") << "None0"
                                  << "None"
                                  << "SF";
    QTest::newRow("empty") << ""
                           << ""
                           << "SF";
}

void TestFontLoad::readsAnEntry()
{
    QFETCH(QString, entry);
    QFETCH(QString, faceName);
    QFETCH(QString, iconKey);
    QCOMPARE(fontFaceName(entry), faceName);
    QCOMPARE(fontIconKey(fontClass(entry)), iconKey);
}

void TestFontLoad::loadsTheCatalog()
{
    FontList list;
    list.add(QStringLiteral("Left over4"), 0);
    LoadFontList(list);
    QCOMPARE(list.count(), static_cast<int>(FontCatalog::current().families().size()));
    QCOMPARE(FontCount, list.count());
    QCOMPARE(FontLF.size(), static_cast<std::size_t>(FontCount));
    QCOMPARE(FontTM.size(), static_cast<std::size_t>(FontCount));
    QCOMPARE(list.entry(0), QStringLiteral("Arial4"));
    QStringList entries;
    for (int i = 0; i < list.count(); ++i) {
        const auto column = static_cast<std::size_t>(list.column(i));
        entries += list.entry(i);
        QCOMPARE(FontLF[column].lfFaceName, fontFaceName(list.entry(i)));
        QCOMPARE(FontLF[column].lfCharSet == 2,
                 list.entry(i) == u"Zt Symbol4" || list.entry(i) == u"Zt Liar4");
        QCOMPARE(FontLF[column].lfWeight, list.entry(i) == u"Zt Bold Only4" ? 700 : 400);
        QCOMPARE(FontTM[column].tmItalic, list.entry(i) == u"Zt Italic Only4" ? 1 : 0);
    }
    for (const char *entry : {"Zt Bitmap1", "Zt Outline2", "Zt Test 244", "Zt \"One\", Two4"})
        QVERIFY2(entries.contains(QLatin1String(entry)), entry);
}

void TestFontLoad::firstFontDiscardsTheTables()
{
    FontLF.resize(7);
    FontTM.resize(7);
    FontCount = 0;
    FontList list;
    for (const char *name : {"First", "Second"})
        QCOMPARE(FontEnumProc({.lfFaceName = QLatin1String(name)}, {}, TRUETYPE_FONTTYPE, list), 1);
    QCOMPARE(FontLF.size(), 2u);
    QCOMPARE(FontTM.size(), 2u);
    QCOMPARE(FontLF[1].lfFaceName, QStringLiteral("Second"));
    QCOMPARE(list.column(1), 1);
}

void TestFontLoad::tooManyFontsEndTheProgram()
{
    FontCount = 32766;
    FontList list;
    FontEnumProc({}, {}, RASTER_FONTTYPE, list);
    QCOMPARE(FontCount, qint16(32767));
    QVERIFY_EXCEPTION_THROWN(FontEnumProc({}, {}, RASTER_FONTTYPE, list), std::overflow_error);
    QCOMPARE(FontCount, qint16(32767));
}

void TestFontLoad::sortsManyFontsAtOnce()
{
    // In the worst order for sorting by insertion; quadratic work would run into the time limit.
    FontCount = 0;
    FontList list;
    for (int i = 32766; i >= 0; --i)
        FontEnumProc({.lfFaceName = QStringLiteral("F%1").arg(i, 6, 10, QChar(u'0'))}, {}, 4, list);
    list.sort();
    QCOMPARE(list.entry(0), QStringLiteral("F0000004"));
    QCOMPARE(list.column(0), 32766);
}

void TestFontLoad::firstLetterMatch_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("index");
    constexpr int none = -1;
    QTest::newRow("first of several") << int('a') << 1;
    QTest::newRow("upper case") << int('A') << 1;
    QTest::newRow("lower-case item") << int('Z') << 4;
    QTest::newRow("no such item") << int('q') << none;
    QTest::newRow("bracket finds a bracket") << int('[') << 5;
    QTest::newRow("at sign is below the range") << int('@') << none;
    QTest::newRow("brace is above it") << int('{') << none;
    QTest::newRow("digit is below it") << int('2') << none;
}

void TestFontLoad::firstLetterMatch()
{
    QFETCH(int, key);
    QFETCH(int, index);
    const QStringList items{"@Vertical", "Arial", "Avant", "", "zapf", "[New]", "2nd", "{Odd}"};
    const auto found = FirstLetterMatch(
        items.size(), [&](int i) { return items.at(i); }, key);
    QCOMPARE(found.value_or(-1), index);
    QCOMPARE(isJumpKey(key), key != '@' && key != '{' && key != '2');
}

int main(int argc, char *argv[])
{
    const TestFonts testFonts;
    FontCatalog catalog;
    QGuiApplication application(argc, argv);
    TestFontLoad test;
    return testFonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontload.moc"
