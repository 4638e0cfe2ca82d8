// The find bar as a person uses it: opening and closing, where it stands, what it finds, and where
// keys and the map's characters go meanwhile.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "platform/controls/AltCode.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QPushButton>
#include <QSlider>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *NotInBoard = "Word not found upto end of TextBoard.";
constexpr const char *NotInSelection = "Word not found within selection.";

void press(const Zendova *window, const char *keys)
{
    QTest::keySequence(window->focusWidget(), QKeySequence(keys));
}

/// Opens the bar and types into it, by the map what the test's keyboard lacks.
void lookFor(Zendova *window, const QString &text)
{
    press(window, "Ctrl+F");
    window->FindString->clear();
    for (const QChar character : text) {
        if (character.unicode() < 128)
            QTest::keyClicks(window->FindString, character);
        else
            clickCell(window, cellOf(*CodePage::toCode(character.unicode())));
    }
}

void select(const Zendova *window, int start, int length)
{
    window->TextBoard->setSelStart(start);
    window->TextBoard->setSelLength(length);
}

void expectNotFound(Desktop &desktop, const QString &text, const char *where)
{
    desktop.Dialogs.message("Zendova Find Error", "\r\r\r" + text + "\r\r" + where, "Ok");
}

/// The bar lies right under the board, in the room that the board gave it, above the split bar.
void checkOpen(const Zendova *window, int boardBottomWhenClosed)
{
    const QRect board = window->TextBoard->geometry();
    const QRect bar = window->FindFrame->geometry();
    QVERIFY(window->FindFrame->isVisible());
    QCOMPARE(bar.top(), board.bottom() + 1 + 2);
    QCOMPARE(bar.bottom(), boardBottomWhenClosed);
    QCOMPARE(bar.height(), 23);
    QCOMPARE(bar.right(), board.right());
    QVERIFY(bar.bottom() < window->SplitBar->y());
}

} // namespace

class TestFindBar : public QObject
{
    Q_OBJECT

private slots:
    void opensAndCloses_data();
    void opensAndCloses();
    void commandsByTheText();
    void standsUnderTheBoard_data();
    void standsUnderTheBoard();
    void takesTheSelection();
    void buttonsNeedText();

    void finds_data();
    void finds();
    void goesOnFromHitToHit();
    void findAgain();
    void hitShowsWithoutTheFocus_data();
    void hitShowsWithoutTheFocus();
    void longBoard();

    void charactersOfTheMap();
    void ordinaryKeys();
    void staysInTheCodePage();
    void tabOrder();
    void fontOfTheBoard();
    void toolTips();
};

void TestFindBar::opensAndCloses_data()
{
    QTest::addColumn<QString>("opens");
    QTest::addColumn<QString>("closes");
    QTest::newRow("menu") << "menu"
                          << "menu";
    QTest::newRow("key") << "Ctrl+F"
                         << "Ctrl+F";
    QTest::newRow("toolbar") << "button"
                             << "button";
    QTest::newRow("Close") << "button"
                           << "Close";
    QTest::newRow("Escape") << "Ctrl+F"
                            << "Esc";
    QTest::newRow("key after menu") << "menu"
                                    << "Ctrl+F";
}

void TestFindBar::opensAndCloses()
{
    QFETCH(QString, opens);
    QFETCH(QString, closes);
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "cat");
    const QRect board = window->TextBoard->geometry();
    const auto give = [window](const QString &way) {
        if (way == "menu")
            chooseFromMenu(window, "ItemEdit", "EditFind");
        else if (way == "button")
            QTest::mouseClick(window->TextEditTB->button("Find"), Qt::LeftButton);
        else if (way == "Close")
            QTest::mouseClick(window->CloseFindButton, Qt::LeftButton);
        else
            press(window, qPrintable(way));
    };
    for (int round = 0; round < 2; ++round) {
        give(opens);
        checkOpen(window, board.bottom());
        QVERIFY(window->FindString->hasFocus());
        QVERIFY(window->TextEditTB->button("Find")->isChecked());
        lookAtMenu(window, "ItemEdit");
        QVERIFY(menuItem(window, "EditFind")->isChecked());
        give(closes);
        QVERIFY(!window->FindFrame->isVisible());
        QCOMPARE(window->TextBoard->geometry(), board);
        QVERIFY(window->TextBoard->hasFocus());
        QVERIFY(!window->TextEditTB->button("Find")->isChecked());
        lookAtMenu(window, "ItemEdit");
        QVERIFY(!menuItem(window, "EditFind")->isChecked());
    }
}

void TestFindBar::commandsByTheText()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const QRect board = window->TextBoard->geometry();
    QVERIFY(!menuItem(window, "EditFind")->isEnabled());
    QVERIFY(!window->TextEditTB->button("Find")->isEnabled());
    press(window, "Ctrl+F");
    QVERIFY(!window->FindFrame->isVisible());
    QTest::keyClicks(window->TextBoard, "a");
    QVERIFY(menuItem(window, "EditFind")->isEnabled());
    press(window, "Ctrl+F");
    QVERIFY(window->FindFrame->isVisible());
    // The last character goes while the focus is in the bar.
    press(window, "Ctrl+A");
    press(window, "Ctrl+D");
    QVERIFY(!window->FindFrame->isVisible());
    QCOMPARE(window->TextBoard->geometry(), board);
    QVERIFY(!window->TextEditTB->button("Find")->isChecked());
    QVERIFY(!menuItem(window, "EditFind")->isEnabled());
    QVERIFY(window->TextBoard->hasFocus());
}

void TestFindBar::standsUnderTheBoard_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<bool>("splitMoved");
    for (const char *side : {"VCLeft", "VCRight"})
        for (const bool moved : {false, true})
            QTest::addRow("%s%s", side, moved ? ", split moved" : "") << QString(side) << moved;
}

void TestFindBar::standsUnderTheBoard()
{
    QFETCH(QString, side);
    QFETCH(bool, splitMoved);
    Desktop desktop({1280, 1024});
    Zendova *window = desktop.start();
    window->TextBoard->setText("cat");
    const auto boardBottom = [window] { return window->SplitBar->y() - 1; };
    const auto doubleClickSplit = [window] {
        QTest::mouseDClick(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
    };
    QTest::mouseClick(window->ViewsTB->button(side), Qt::LeftButton);
    if (splitMoved)
        doubleClickSplit();
    const int height = window->TextBoard->height();
    press(window, "Ctrl+F");
    checkOpen(window, boardBottom());
    QCOMPARE(window->FindFrame->x(), window->TextBoard->x() + 2);

    // Open, it follows the split bar, the side of the views and the map's size.
    doubleClickSplit();
    checkOpen(window, boardBottom());
    doubleClickSplit();
    checkOpen(window, boardBottom());
    QTest::mouseClick(window->ViewsTB->button(side == "VCLeft" ? "VCRight" : "VCLeft"),
                      Qt::LeftButton);
    checkOpen(window, boardBottom());
    QTest::mouseClick(window->ViewsTB->button(side), Qt::LeftButton);
    press(window, "Ctrl+F"); // closed
    QCOMPARE(window->TextBoard->height(), height);

    press(window, "Ctrl+F");
    const int boxWidth = window->FindString->width();
    const int boardWidth = window->TextBoard->width();
    for (const int size : {1, 12}) {
        window->sldSetFMapSize->setValue(size);
        const QWidget *bar = window->FindFrame;
        QCOMPARE(bar->y(), window->TextBoard->geometry().bottom() + 3);
        QCOMPARE(bar->geometry().bottom(), boardBottom());
        QCOMPARE(bar->width(), window->TextBoard->width() - 2);
        QCOMPARE(window->FindString->width() - boxWidth, window->TextBoard->width() - boardWidth);
        QCOMPARE(window->FindNextButton->x(), bar->width() - 400);
        QVERIFY(window->CloseFindButton->geometry().right() < bar->width());
    }
    window->sldSetFMapSize->setValue(8);
    press(window, "Ctrl+F");
    press(window, "Esc");
    QCOMPARE(window->TextBoard->geometry().bottom(), boardBottom());
}

void TestFindBar::takesTheSelection()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "cat dog");
    press(window, "Ctrl+Shift+Left");
    press(window, "Ctrl+F");
    QCOMPARE(window->FindString->text(), QString("dog"));
    QCOMPARE(window->FindString->selectedText(), QString("dog"));
    press(window, "Esc");
    press(window, "End");
    press(window, "Ctrl+F");
    QCOMPARE(window->FindString->text(), QString());
    // The boxes keep their marks over closing.
    QTest::mouseClick(window->FindOpt[1], Qt::LeftButton, {}, QPoint(8, 8));
    press(window, "Esc");
    press(window, "Ctrl+F");
    QVERIFY(window->FindOpt[1]->isChecked());
    QVERIFY(!window->FindOpt[0]->isChecked());
}

void TestFindBar::buttonsNeedText()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "cat");
    press(window, "Ctrl+F");
    QVERIFY(!window->FindNextButton->isEnabled() && !window->ClearFindButton->isEnabled());
    press(window, "Return"); // presses a button that is off
    QVERIFY(!menuItem(window, "EditFindAgain")->isEnabled());
    QTest::keyClicks(window->FindString, "cat");
    QVERIFY(window->FindNextButton->isEnabled() && window->ClearFindButton->isEnabled());
    window->CloseFindButton->setFocus();
    QTest::mouseClick(window->ClearFindButton, Qt::LeftButton);
    QCOMPARE(window->FindString->text(), QString());
    QVERIFY(window->FindString->hasFocus());
    QVERIFY(!window->FindNextButton->isEnabled() && !window->ClearFindButton->isEnabled());
}

void TestFindBar::finds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start"); // of the selection before
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("wholeWord");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<int>("hit"); // -1: none in the board, -2: none in the selection
    const auto row = [](const char *name, const QString &text, int start, int length,
                        const QString &word, int hit, bool wholeWord = false,
                        bool matchCase = false) {
        QTest::newRow(name) << text << start << length << word << wholeWord << matchCase << hit;
    };
    row("passes over the start", "cat cat", 0, 0, "cat", 4);
    row("from behind the first", "cat cat", 3, 0, "cat", 4);
    row("not at the caret", "cat cat", 4, 0, "cat", -1);
    row("not again at a selection", "cat cat", 4, 3, "cat", -1);
    row("no way round", "cat dog", 5, 0, "cat", -1);
    row("overlapping", "aaaa", 1, 2, "aa", 2);
    row("at the very end", "a dog", 0, 0, "dog", 2);
    row("line ends count two", "a\r\n\r\ncat", 0, 0, "cat", 5);
    row("part of a word", "a concat", 0, 0, "cat", 5);
    row("whole word", "a concat cat", 0, 0, "cat", 9, true);
    row("whole word, none", "a concat", 0, 0, "cat", -1, true);
    row("either case", "a Cat", 0, 0, "cAT", 2);
    row("match case", "a cat Cat", 0, 0, "Cat", 6, false, true);
    row("match case, none", "a cat", 0, 0, "Cat", -1, false, true);
    row("both boxes", "a concat cats Cat cat", 0, 0, "cat", 18, true, true);
    row("accents", u"a \u00C9t\u00E9"_s, 0, 0, u"\u00E9T\u00C9"_s, 2);
    row("within lines", "a cat\r\nb cat\r\ncat", 0, 8, "cat", 2);
    row("only within lines", "a dog\r\nb dog\r\ncat", 0, 10, "cat", -2);
    row("partly within lines", "a dog\r\nb cat", 0, 10, "cat", -2);
    row("a selection of one line limits nothing", "a dog cat", 0, 5, "cat", 6);
    row("nothing but blanks", "a  b", 3, 0, "  ", -1);
    row("blanks around", "a dog", 0, 0, " cat ", -1);
}

void TestFindBar::finds()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(QString, word);
    QFETCH(bool, wholeWord);
    QFETCH(bool, matchCase);
    QFETCH(int, hit);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText(text);
    lookFor(window, word);
    const bool marks[] = {wholeWord, matchCase};
    for (std::size_t box = 0; box < std::size(marks); ++box)
        if (marks[box])
            QTest::mouseClick(window->FindOpt[box], Qt::LeftButton, {}, QPoint(8, 8));
    select(window, start, length);
    if (hit < 0)
        expectNotFound(desktop, word.trimmed(), hit == -1 ? NotInBoard : NotInSelection);
    QTest::mouseClick(window->FindNextButton, Qt::LeftButton);
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->SelStart(), hit < 0 ? start : hit);
    QCOMPARE(window->TextBoard->SelLength(), hit < 0 ? length : static_cast<int>(word.size()));
    QCOMPARE(window->focusWidget(), static_cast<QWidget *>(window->FindNextButton));
}

void TestFindBar::goesOnFromHitToHit()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText("a cat\r\na cat\r\nno dog, cat");
    lookFor(window, "cat");
    select(window, 0, 8); // two lines
    // By Enter alone, first in the box, then on the button.
    for (const int hit : {2, 9, 22}) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QCOMPARE(window->TextBoard->SelStart(), hit);
        QCOMPARE(window->TextBoard->SelText(), QString("cat"));
        QVERIFY(window->FindNextButton->hasFocus());
    }
    for (int round = 0; round < 2; ++round) {
        expectNotFound(desktop, "cat", NotInBoard);
        QTest::keyClick(window->focusWidget(), Qt::Key_Enter);
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->TextBoard->SelStart(), 22);
    }
}

void TestFindBar::findAgain()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText("a cat dog cat dog");
    QVERIFY(!menuItem(window, "EditFindAgain")->isEnabled());
    press(window, "F3");
    lookFor(window, "cat");
    press(window, "Return");
    window->FindString->setText("dog"); // no search yet: the last one's word counts
    press(window, "F3");
    QCOMPARE(window->TextBoard->SelStart(), 10);
    QVERIFY(window->FindNextButton->hasFocus());
    press(window, "Esc");
    window->TextBoard->setSelStart(0);
    chooseFromMenu(window, "ItemEdit", "EditFindAgain");
    QCOMPARE(window->TextBoard->SelStart(), 2);
    QVERIFY(window->TextBoard->hasFocus());
    QVERIFY(!window->FindFrame->isVisible());
    window->TextBoard->setText("empty of it");
    expectNotFound(desktop, "cat", NotInBoard);
    press(window, "F3");
    QVERIFY(desktop.Dialogs.allCame());
}

void TestFindBar::hitShowsWithoutTheFocus_data()
{
    QTest::addColumn<QColor>("desktopColor");
    QTest::addColumn<QColor>("highlight");
    QTest::newRow("light") << QColor(239, 239, 239) << QColor(60, 130, 200);
    QTest::newRow("dark") << QColor(40, 40, 40) << QColor(20, 90, 160);
}

void TestFindBar::hitShowsWithoutTheFocus()
{
    QFETCH(QColor, desktopColor);
    QFETCH(QColor, highlight);
    const QPalette before = QApplication::palette();
    QPalette colors(desktopColor);
    colors.setColor(QPalette::Highlight, highlight);
    colors.setColor(QPalette::Inactive, QPalette::Highlight, QColor(250, 250, 250));
    QApplication::setPalette(colors);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText("a OOO");
    lookFor(window, "ooo");
    const QImage without = pictureOf(window->TextBoard);
    press(window, "Return");
    QVERIFY(!window->TextBoard->hasFocus());
    const QImage with = pictureOf(window->TextBoard);
    int highlighted = 0;
    for (int x = 0; x < with.width(); ++x)
        highlighted += with.pixelColor(x, 8) == highlight && without.pixelColor(x, 8) == Qt::white;
    QApplication::setPalette(before);
    QVERIFY2(highlighted > 20, qPrintable(QString::number(highlighted)));
}

void TestFindBar::longBoard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText(QString(78, 'x').append("\r\n").repeated(767) + QString(74, 'x') +
                               "needle");
    QCOMPARE(window->TextBoard->TextLength(), 61440);
    lookFor(window, "needle");
    press(window, "Return");
    QCOMPARE(window->TextBoard->SelStart(), 61434);
    QVERIFY(window->TextBoard->viewport()->rect().contains(window->TextBoard->cursorRect()));
    // Opening takes two lines from the board, but not those with the caret.
    press(window, "Esc");
    press(window, "Ctrl+F");
    QVERIFY(window->TextBoard->viewport()->rect().contains(window->TextBoard->cursorRect()));
}

void TestFindBar::charactersOfTheMap()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    press(window, "Ctrl+F");
    QTest::keyClicks(window->FindString, "xy");
    press(window, "Shift+Left");
    for (const int code : {0xE9, 0x80})
        clickCell(window, cellOf(code));
    QCOMPARE(window->FindString->text(), u"x\u00E9\u20AC"_s);
    QVERIFY(window->FindString->hasFocus());
    QTest::keyClicks(window->FindString, "z");
    QCOMPARE(window->FindString->text(), u"x\u00E9\u20ACz"_s);
    QCOMPARE(window->TextBoard->Text(), QString("ab"));

    // The search takes the focus away, even while its message is in front of the window.
    window->FindString->setText("nowhere");
    expectNotFound(desktop, "nowhere", NotInBoard);
    press(window, "Return");
    QVERIFY(desktop.Dialogs.allCame());
    clickCell(window, cellOf('c'));
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
    QCOMPARE(window->focusWidget(), static_cast<QWidget *>(window->TextBoard));
    QApplication::setActiveWindow(window); // as a window manager does once the message is gone
    // A menu in front does not.
    window->FindString->setFocus();
    clickCell(window, cellOf('d'), Qt::RightButton);
    QApplication::activePopupWidget()->close();
    clickCell(window, cellOf('!'));
    QCOMPARE(window->FindString->text(), QString("nowhere!"));
    window->FindString->setFocus();
    press(window, "Esc");
    clickCell(window, cellOf('d'));
    QCOMPARE(window->TextBoard->Text(), QString("abcd"));
}

void TestFindBar::ordinaryKeys()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "board");
    lookFor(window, "abcdef");
    const auto textAfter = [window](const char *keys) {
        press(window, keys);
        return window->FindString->text();
    };
    QCOMPARE(textAfter("Backspace"), QString("abcde"));
    press(window, "Home");
    QCOMPARE(textAfter("Del"), QString("bcde"));
    press(window, "Shift+Right");
    press(window, "Shift+End");
    QCOMPARE(window->FindString->selectedText(), QString("bcde"));
    QCOMPARE(textAfter("Del"), QString());
    QCOMPARE(textAfter("Ctrl+Z"), QString("bcde"));
    // Keys with Ctrl that the toolkit has for editing are the window's here.
    for (const char *keys : {"Ctrl+K", "Ctrl+U", "Ctrl+W"})
        QCOMPARE(textAfter(keys), QString("bcde"));
    QVERIFY(window->TextBoard->FontUnderline());
    QCOMPARE(window->TextBoard->Text(), QString("board"));
}

void TestFindBar::staysInTheCodePage()
{
    AltCode altCode([](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
    qApp->installEventFilter(&altCode);
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "a");
    press(window, "Ctrl+F");
    FindBox *box = window->FindString;
    box->insert(u"\u0151\uFB01"_s);
    QCOMPARE(box->text(), QString("ofi"));
    QTest::keyClicks(box, "!"); // behind what it became
    QCOMPARE(box->text(), QString("ofi!"));
    box->clear();
    const auto event = [box](bool press, int key, Qt::KeyboardModifiers held) {
        QTest::simulateEvent(box, press, key, held, {}, false);
    };
    event(true, Qt::Key_Alt, {});
    for (const char digit : {'0', '1', '2', '8'})
        for (const bool press : {true, false})
            event(press, digit, Qt::AltModifier | Qt::KeypadModifier);
    event(false, Qt::Key_Alt, Qt::AltModifier);
    QCOMPARE(box->text(), u"\u20AC"_s);
}

void TestFindBar::tabOrder()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "a");
    const auto walk = [window](const QList<QWidget *> &order) {
        window->TextBoard->setFocus();
        for (QWidget *next : order) {
            press(window, "Tab");
            QCOMPARE(window->focusWidget(), next);
        }
    };
    QWidget *zoom = window->ZoomSizeSlider->slider();
    QWidget *fontSize = window->FontSizeSlider->slider();
    QWidget *mapSize = window->sldSetFMapSize->slider();
    press(window, "Ctrl+F");
    QTest::keyClicks(window->FindString, "a");
    walk({zoom, window->FontNameCombo, fontSize, window->FindString, window->FindOpt[0],
          window->FindOpt[1], window->FindNextButton, window->CloseFindButton, mapSize});
    window->CloseFindButton->setFocus();
    QTest::keyClick(window->CloseFindButton, Qt::Key_Return);
    QVERIFY(!window->FindFrame->isVisible());
    walk({zoom, window->FontNameCombo, fontSize, mapSize});
}

void TestFindBar::fontOfTheBoard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto sizeWith = [window](const char *size) {
        fillNumberBox(window->FontSizeSlider, size);
        return window->FindString->font().pointSizeF();
    };
    QCOMPARE(sizeWith("20"), 12.0);
    QCOMPARE(sizeWith("10"), 10.0);
    QVERIFY(chooseFont(window, "Zt Four"));
    QCOMPARE(window->FindString->font().family(), window->CharButton->cellFont().family());
    QCOMPARE(window->FindString->font().pointSizeF(), 10.0);
    QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
    QVERIFY(!window->FindString->font().bold());
}

void TestFindBar::toolTips()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->DisplayTT->trigger(); // off: these are no business of the toggle
    const std::pair<const QWidget *, const char *> tips[] = {
        {window->FindString, "Enter a serch string"},
        {window->FindNextButton, "Find the next occurance"},
        {window->ClearFindButton, "Clear search field"},
        {window->FindOpt[0], "Check to search as whole word"},
        {window->FindOpt[1], "Check for a case-sensitive search"},
        {window->CloseFindButton, "Close Find bar"},
    };
    for (const auto &[control, tip] : tips)
        QCOMPARE(control->toolTip(), QString(tip));
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestFindBar test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_findbar.moc"
