// The find bar in the window: opening and closing, where it stands, and where keys and the map's
// characters go meanwhile.
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSlider>

using namespace Qt::StringLiterals;

class TestFindBar : public WindowTest
{
    Q_OBJECT

private slots:
    void opensAndCloses()
    {
        const QRect board = window->TextBoard->geometry();
        keys("Ctrl+F"); // is off, as the board is empty
        QVERIFY(!bar()->isVisible());
        const auto give = [this](const QString &way) {
            if (way == "menu")
                chooseFromMenu(window, "ItemEdit", "EditFind");
            else if (way == "button")
                press("Find");
            else if (way == "Close")
                QTest::mouseClick(bar()->CloseFindButton, Qt::LeftButton);
            else if (way == "Esc on the board")
                QTest::keyClick(window->TextBoard, Qt::Key_Escape);
            else
                keys(way);
        };
        const auto isMarked = [this] {
            lookAtMenu(window, "ItemEdit");
            return QList{button("Find")->isChecked(), menuItem(window, "EditFind")->isChecked()};
        };
        QTest::keyClicks(window->TextBoard, "a");
        const std::pair<const char *, const char *> ways[] = {
            {"menu", "menu"},    {"Ctrl+F", "Ctrl+F"}, {"button", "button"},
            {"button", "Close"}, {"Ctrl+F", "Esc"},    {"Ctrl+F", "Esc on the board"}};
        for (const auto &[opens, closes] : ways) {
            give(opens);
            checkOpen();
            QCOMPARE(window->FindFrame->geometry().bottom(), board.bottom());
            QVERIFY(box()->hasFocus());
            QCOMPARE(isMarked(), QList({true, true}));
            give(closes);
            QVERIFY(!bar()->isVisible());
            QCOMPARE(window->TextBoard->geometry(), board);
            QVERIFY(window->TextBoard->hasFocus());
            QCOMPARE(isMarked(), QList({false, false}));
        }
        // It closes too when the last character goes while the focus is in it.
        keys("Ctrl+F");
        keys("Ctrl+A");
        keys("Ctrl+D");
        QVERIFY(!bar()->isVisible());
        QVERIFY(window->TextBoard->hasFocus());
        QVERIFY(!menuItem(window, "EditFind")->isEnabled());
    }

    void standsUnderTheBoard()
    {
        window->TextBoard->setText("cat");
        keys("Ctrl+F");
        // Open, it follows the split bar, the side of the views and the map's size.
        for (const char *side : {"VCRight", "VCLeft"}) {
            press(side);
            checkOpen();
            QCOMPARE(bar()->x(), window->TextBoard->x() + 2);
            QTest::mouseDClick(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
            checkOpen();
        }
        const int rest = window->TextBoard->width() - box()->width();
        for (const int size : {1, 12, 8}) {
            window->FMapContainer->sldSetFMapSize->setValue(size);
            QCOMPARE(bar()->geometry().bottom(), window->SplitBar->y() - 1);
            QCOMPARE(bar()->width(), window->TextBoard->width() - 2);
            QCOMPARE(window->TextBoard->width() - box()->width(), rest);
            QVERIFY(bar()->CloseFindButton->geometry().right() < bar()->width());
        }
        keys("Ctrl+F"); // closed
        QCOMPARE(window->TextBoard->geometry().bottom(), window->SplitBar->y() - 1);
    }

    void goesOnFromHitToHit()
    {
        ::TextBoard *board = window->TextBoard;
        board->setText("a cat\r\na cat\r\nno dog, cat");
        keys("F3"); // is off, as nothing was looked for yet
        lookFor("cat");
        select(window, 0, 8); // two lines
        // By Enter alone, first on an option, then on the button.
        bar()->FindOpt[1]->setFocus();
        for (const int hit : {2, 9, 22}) {
            keys("Return");
            QCOMPARE(board->SelStart(), hit);
            QCOMPARE(board->SelText(), QString("cat"));
            QVERIFY(bar()->FindNextButton->hasFocus());
        }
        // Again: the last search's word counts, with the bar closed too.
        box()->setText("dog");
        board->setSelStart(3);
        keys("F3");
        QCOMPARE(board->SelStart(), 9);
        keys("Esc");
        board->setSelStart(0);
        chooseFromMenu(window, "ItemEdit", "EditFindAgain");
        QCOMPARE(board->SelStart(), 2);
        QVERIFY(board->hasFocus() && !bar()->isVisible());
        board->setSelStart(22);
        expect(Says::NotFound, "Ok", "cat");
        keys("F3");
        QCOMPARE(board->SelStart(), 22);
    }

    void hitsAreSeen()
    {
        const TextBoard *board = window->TextBoard;
        window->TextBoard->setText(linesOfText(BoardLimit - 6) + "needle");
        lookFor("needle");
        keys("Return");
        QCOMPARE(board->SelStart(), BoardLimit - 6);
        QVERIFY(board->viewport()->rect().contains(board->cursorRect()));
        // Opening takes two lines from the board, but not those with the caret.
        keys("Esc");
        keys("Ctrl+F");
        QVERIFY(board->viewport()->rect().contains(board->cursorRect()));
        QCOMPARE(box()->selectedText(), QString("needle"));
    }

    void charactersOfTheMap()
    {
        QTest::keyClicks(window->TextBoard, "ab");
        keys("Ctrl+F");
        QTest::keyClicks(box(), "xy");
        keys("Shift+Left");
        clickCell(window, cellOf(0x80));
        QVERIFY(box()->hasFocus());
        QTest::keyClicks(box(), "z");
        QCOMPARE(box()->text(), u"x\u20ACz"_s);
        // The search takes the focus away, even while its message is in front of the window.
        expect(Says::NotFound, "Ok", u"x\u20ACz"_s);
        keys("Return");
        clickCell(window, cellOf('c'));
        QCOMPARE(window->TextBoard->Text(), QString("abc"));
        QApplication::setActiveWindow(window); // as a window manager does once the message is gone
        // A menu in front does not.
        box()->setFocus();
        clickCell(window, cellOf('d'), Qt::RightButton);
        QApplication::activePopupWidget()->close();
        clickCell(window, cellOf('!'));
        QCOMPARE(box()->text(), u"x\u20ACz!"_s);
        keys("Esc");
        clickCell(window, cellOf('d'));
        QCOMPARE(window->TextBoard->Text(), QString("abcd"));
    }

    void tabOrder()
    {
        QTest::keyClicks(window->TextBoard, "a");
        lookFor("a");
        window->TextBoard->setFocus();
        QStringList order;
        for (int i = 0; i < 9; ++i) {
            keys("Tab");
            order += window->focusWidget()->objectName();
        }
        QCOMPARE(order.join(' '),
                 QString("ZoomSizeSlider FontNameCombo FontSizeSlider FindString FindOpt0 "
                         "FindOpt1 FindNextButton CloseFindButton sldSetFMapSize"));
    }

    void fontOfTheBoard()
    {
        press("Bold");
        QVERIFY(chooseFont(window, "Zt Four"));
        for (const auto &[size, shown] : {std::pair("20", 12.0), {"10", 10.0}}) {
            QVERIFY(fillNumberBox(window->FontSizeSlider, size));
            const QFont font = box()->font();
            QCOMPARE(font.family(), window->FMapContainer->CharButton->cellFont().family());
            QCOMPARE(font.pointSizeF(), shown);
            QVERIFY(!font.bold());
        }
    }

private:
    const FindBar *bar() const { return window->FindFrame; }
    FindBox *box() const { return bar()->FindString; }
    void keys(const QString &sequence) const
    {
        QTest::keySequence(window->focusWidget(), QKeySequence(sequence));
    }
    /// Opens the bar and puts the text into it.
    void lookFor(const QString &text) const
    {
        keys("Ctrl+F");
        box()->setText(text);
    }
    /// The bar lies right under the board, in the room that the board gave it.
    void checkOpen() const
    {
        const QRect board = window->TextBoard->geometry();
        QVERIFY(bar()->isVisible());
        QCOMPARE(bar()->y(), board.bottom() + 1 + 2);
        QCOMPARE(bar()->geometry().bottom(), window->SplitBar->y() - 1);
        QCOMPARE(bar()->height(), 23);
        QCOMPARE(bar()->geometry().right(), board.right());
    }
};

ZENDOVA_WINDOW_TEST(TestFindBar)
#include "tst_findbar.moc"
