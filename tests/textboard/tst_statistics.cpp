// What shows the state of the board while its text changes: count, percentage, fill bar, and the
// commands that need text.
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QFrame>
#include <QLabel>
#include <QLocale>

namespace {

/// Fills the board up to one character less, then types the last one.
void fillTo(Zendova *window, int count)
{
    window->TextBoard->setText(linesOfText(count).chopped(1));
    window->TextBoard->setSelStart(count);
    QTest::keyClicks(window->TextBoard, "y");
}

} // namespace

class TestStatistics : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void counts()
    {
        const QColor white(255, 255, 255);
        const QColor yellow(255, 255, 192);
        const QColor orange(255, 192, 128);
        const QColor red(255, 0, 0);
        const struct
        {
            int Count;
            const char *Shown;
            const char *Percentage;
            int Width; // of the fill, pixels; 0 for none
            QColor Color;
        } rows[] = {
            {307, "307", "0%", 0, white},         {308, "308", "1%", 0, white},
            {1000, "1,000", "2%", 0, white},      {1023, "1,023", "2%", 0, white},
            {1024, "1,024", "2%", 1, white},      {30720, "30,720", "50%", 30, white},
            {30721, "30,721", "50%", 30, yellow}, {46080, "46,080", "75%", 45, yellow},
            {46081, "46,081", "75%", 45, orange}, {58368, "58,368", "95%", 57, orange},
            {58369, "58,369", "95%", 57, red},    {61132, "61,132", "99%", 60, red},
            {61133, "61,133", "100%", 60, red},   {BoardLimit, "61,440", "100%", 60, red},
        };
        QLocale::setDefault(QLocale("en_US"));
        Desktop desktop;
        Zendova *window = desktop.start();
        QVERIFY(!window->TextFile.TextChanged);
        const QWidget *fill = window->TBPContainer->ProgressFore;
        for (const auto &row : rows) {
            fillTo(window, row.Count);
            QCOMPARE(window->TBPContainer->NoOfChars->text(), QString(row.Shown));
            QCOMPARE(window->TBPContainer->PercFilled->text(), QString(row.Percentage));
            QCOMPARE(fill->isVisible() ? fill->width() : 0, row.Width);
            const QImage picture = window->TBPContainer->grab().toImage();
            if (row.Width > 0)
                QCOMPARE(picture.pixelColor(fill->geometry().center()), row.Color);
        }
        QCOMPARE(fill->pos(), window->TBPContainer->ProgressBack->pos());
        QVERIFY(window->TextFile.TextChanged);

        window->TextFile.TextChanged = false; // as after saving
        window->TextBoard->selectAll();
        QTest::keyClick(window->TextBoard, Qt::Key_Backspace);
        QCOMPARE(window->TBPContainer->NoOfChars->text(), QString("0"));
        QCOMPARE(window->TBPContainer->PercFilled->text(), QString("0%"));
        QVERIFY(!fill->isVisible());
        QVERIFY(window->TextFile.TextChanged);
        QTest::keyClicks(window->TextBoard, "ab\rc");
        QCOMPARE(window->TBPContainer->NoOfChars->text(), QString("5"));
    }

    void countsInTheLanguageOfTheUser()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        // Spanish does without a separator in four digits; the count has it all the same.
        for (const auto &[locale, shown] :
             {std::pair("es_ES", "1.000"), std::pair("de_CH", "1\u2019000")}) {
            QLocale::setDefault(QLocale(locale));
            fillTo(window, 1000);
            QCOMPARE(window->TBPContainer->NoOfChars->text(), QString(shown));
        }
    }

    void commandsThatNeedText()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        const auto allAre = [window](bool on) {
            for (const char *key :
                 {"Save", "ClearButton", "CopyButton", "CutButton", "PrintButton", "Find"})
                if (window->findChild<QToolButton *>(key)->isEnabled() != on)
                    return QString(key);
            return QString();
        };
        QTest::keyClicks(window->TextBoard, "a");
        QCOMPARE(allAre(true), QString());
        QTest::keyClick(window->TextBoard, Qt::Key_Backspace);
        QCOMPARE(allAre(false), QString());
        clickCell(window, 5);
        QCOMPARE(allAre(true), QString());
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestStatistics>(argc, argv);
}

#include "tst_statistics.moc"
