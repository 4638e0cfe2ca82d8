// What shows the state of the board while its text changes: count, percentage, fill bar, and the
// commands that need text.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/FontCatalog.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QApplication>
#include <QClipboard>
#include <QFrame>
#include <QLabel>
#include <QLocale>
#include <QTest>

namespace {

constexpr int Limit = 61440;

/// Fills the board up to one character less, in lines, then types the last one.
void fillTo(Zendova *window, int count)
{
    const QString line = QString(78, 'x') + "\r\n";
    const int lines = (count - 1) / 80;
    window->TextBoard->setText(line.repeated(lines) + QString(count - 1 - lines * 80, 'x'));
    window->TextBoard->setSelStart(count);
    QTest::keyClicks(window->TextBoard, "y");
}

} // namespace

class TestStatistics : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void countsInTheLanguageOfTheUser_data();
    void countsInTheLanguageOfTheUser();
    void percentage_data();
    void percentage();
    void fillBar_data();
    void fillBar();
    void emptyBoard();
    void lineEndsCountTwo();
    void commandsThatNeedText();
    void editCommandsFollowSelectionAndClipboard();
    void fullBoardTakesNoMore();
};

void TestStatistics::countsInTheLanguageOfTheUser_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("shown");
    QTest::newRow("no separator needed") << "en_US" << 999 << "999";
    QTest::newRow("comma") << "en_US" << 1000 << "1,000";
    QTest::newRow("full board") << "en_US" << Limit << "61,440";
    QTest::newRow("point") << "de_DE" << Limit << "61.440";
    QTest::newRow("apostrophe") << "de_CH" << Limit << "61\u2019440";
}

void TestStatistics::countsInTheLanguageOfTheUser()
{
    QFETCH(QString, locale);
    QFETCH(int, count);
    QLocale::setDefault(QLocale(locale));
    Desktop desktop;
    Zendova *window = desktop.start();
    fillTo(window, count);
    QTEST(window->NoOfChars->text(), "shown");
    QCOMPARE(window->PercFilled->text(), count == Limit ? QString("100%") : QString("2%"));
    QCOMPARE(window->ProgressFore->isVisible(), count == Limit);
}

void TestStatistics::percentage_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("shown");
    QTest::newRow("one") << 1 << "0%";
    QTest::newRow("below a half") << 307 << "0%";
    QTest::newRow("above a half") << 308 << "1%";
    QTest::newRow("two and a half") << 1536 << "3%";
    QTest::newRow("half") << 30720 << "50%";
    QTest::newRow("99.5 less a bit") << 61132 << "99%";
    QTest::newRow("99.5 and a bit") << 61133 << "100%";
    QTest::newRow("full") << Limit << "100%";
}

void TestStatistics::percentage()
{
    QFETCH(int, count);
    Desktop desktop;
    Zendova *window = desktop.start();
    fillTo(window, count);
    QTEST(window->PercFilled->text(), "shown");
}

void TestStatistics::fillBar_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width"); // pixels; 0 for none
    QTest::addColumn<QColor>("color");
    const QColor white(255, 255, 255);
    const QColor yellow(255, 255, 192);
    const QColor orange(255, 192, 128);
    const auto row = [](int count, int width, const QColor &color) {
        QTest::addRow("%d", count) << count << width << color;
    };
    row(1023, 0, white);
    row(1024, 1, white);
    row(30720, 30, white);
    row(30721, 30, yellow);
    row(46080, 45, yellow);
    row(46081, 45, orange);
    row(58368, 57, orange);
    row(58369, 57, QColor(255, 0, 0));
    row(Limit, 60, QColor(255, 0, 0));
}

void TestStatistics::fillBar()
{
    QFETCH(int, count);
    QFETCH(int, width);
    QFETCH(QColor, color);
    Desktop desktop;
    Zendova *window = desktop.start();
    const QWidget *fill = window->ProgressFore;
    fillTo(window, count);
    QCOMPARE(fill->isVisible(), width > 0);
    if (width) {
        QCOMPARE(fill->width(), width);
        QCOMPARE(fill->pos(), window->ProgressBack->pos());
        const QImage picture = window->TBPContainer->grab().toImage();
        QCOMPARE(picture.pixelColor(fill->geometry().center()), color);
    }
    // Back below the first threshold it is as at the start.
    window->TextBoard->setText("x");
    QVERIFY(!fill->isVisible());
}

void TestStatistics::emptyBoard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QVERIFY(!window->TextChanged);
    fillTo(window, 2000);
    QVERIFY(window->TextChanged);
    window->TextBoard->selectAll();
    QTest::keyClick(window->TextBoard, Qt::Key_Backspace);
    QCOMPARE(window->NoOfChars->text(), QString("0"));
    QCOMPARE(window->PercFilled->text(), QString("0%"));
    QVERIFY(!window->ProgressFore->isVisible());
    QVERIFY(window->TextChanged);
}

void TestStatistics::lineEndsCountTwo()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab\rc");
    QCOMPARE(window->NoOfChars->text(), QString("5"));
}

void TestStatistics::commandsThatNeedText()
{
    const std::pair<Toolbar * Zendova::*, const char *> buttons[] = {
        {&Zendova::LoadSaveTB, "Save"},
        {&Zendova::TBOperationsTB, "ClearButton"},
        {&Zendova::TBOperationsTB, "CopyButton"},
        {&Zendova::TBOperationsTB, "CutButton"},
        {&Zendova::TBOperationsTB, "PrintButton"},
        {&Zendova::TBOperationsTB, "FullScreen"},
        {&Zendova::TextEditTB, "Find"},
    };
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto allAre = [&](bool on) {
        for (const auto &[bar, key] : buttons) {
            // Full screen is not built yet, and its button stays off.
            const bool built = qstrcmp(key, "FullScreen") != 0;
            if ((window->*bar)->button(key)->isEnabled() != (on && built)) {
                qWarning("%s", key);
                return false;
            }
        }
        return true;
    };
    QTest::keyClicks(window->TextBoard, "a");
    QVERIFY(allAre(true));
    QTest::keyClick(window->TextBoard, Qt::Key_Backspace);
    QVERIFY(allAre(false));
    clickCell(window, 5);
    QVERIFY(allAre(true));
}

void TestStatistics::editCommandsFollowSelectionAndClipboard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto isOn = [window](const char *key) {
        return window->TextEditTB->button(key)->isEnabled();
    };
    const auto isOff = [&](const char *key) { return !isOn(key); };
    QGuiApplication::clipboard()->clear();
    QTest::keyClicks(window->TextBoard, "ab");
    QVERIFY(isOff("Cut") && isOff("Copy") && isOff("Paste"));
    QTest::keyClick(window->TextBoard, Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(isOn("Cut") && isOn("Copy"));
    QGuiApplication::clipboard()->setText("z");
    QTest::mouseClick(window->TextBoard->viewport(), Qt::LeftButton);
    QVERIFY(isOff("Cut") && isOff("Copy") && isOn("Paste"));
}

void TestStatistics::fullBoardTakesNoMore()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    fillTo(window, Limit);
    const QString full = window->TextBoard->Text();
    clickCell(window, cellOf('A'));
    QTest::keyClicks(window->TextBoard, "z");
    QCOMPARE(window->TextBoard->Text(), full);
    QCOMPARE(window->TextBoard->SelStart(), Limit);
    QVERIFY(window->TextBoard->hasFocus());
    QTest::keyClick(window->TextBoard, Qt::Key_Left, Qt::ShiftModifier);
    clickCell(window, cellOf('A'));
    QCOMPARE(window->TextBoard->Text(), full.chopped(1) + 'A');
    QVERIFY(desktop.Dialogs.allCame());
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestStatistics test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_statistics.moc"
