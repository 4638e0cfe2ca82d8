// A machine without any font: the catalog is empty and nothing falls over.
#include "fonttools/FontLoadProcedure.h"
#include "platform/FontCatalog.h"
#include "tests/support/TestFonts.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QTest>

class TestNoFonts : public QObject
{
    Q_OBJECT

private slots:
    void catalogIsEmpty()
    {
        FontCatalog &catalog = FontCatalog::current();
        QVERIFY(catalog.families().empty());
        QVERIFY(!catalog.contains("Arial"));
        QVERIFY(QFontMetrics(catalog.font("Arial")).height() > 0);
        FontList list;
        LoadFontList(list);
        QCOMPARE(FontCount, qint16(0));
    }
};

int main(int argc, char *argv[])
{
    const QTemporaryDir folder;
    const TestFonts testFonts(folder.path());
    FontCatalog catalog;
    QGuiApplication application(argc, argv);
    TestNoFonts test;
    return testFonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_nofonts.moc"
