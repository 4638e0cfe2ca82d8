// The find bar as a person uses it: opening and closing, where it stands, what it finds, and where
// keys and the map's characters go meanwhile.
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *NotInBoard = "Word not found upto end of TextBoard.";
constexpr const char *NotInSelection = "Word not found within selection.";

void press(const Zendova *window, const char *keys)
{
    QTest::keySequence(window->focusWidget(), QKeySequence(keys));
}

/// Opens the bar and puts the text into it.
void lookFor(Zendova *window, const QString &text)
{
    press(window, "Ctrl+F");
    window->FindFrame->FindString->setText(text);
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
    void opensAndCloses()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        const QRect board = window->TextBoard->geometry();
        press(window, "Ctrl+F"); // is off, as the board is empty
        QVERIFY(!window->FindFrame->isVisible());
        const auto give = [window](const QString &way) {
            if (way == "menu")
                chooseFromMenu(window, "ItemEdit", "EditFind");
            else if (way == "button")
                QTest::mouseClick(window->TextEditTB->button("Find"), Qt::LeftButton);
            else if (way == "Close")
                QTest::mouseClick(window->FindFrame->CloseFindButton, Qt::LeftButton);
            else if (way == "Esc on the board")
                QTest::keyClick(window->TextBoard, Qt::Key_Escape);
            else
                press(window, qPrintable(way));
        };
        const auto isMarked = [window] {
            lookAtMenu(window, "ItemEdit");
            return QList{window->TextEditTB->button("Find")->isChecked(),
                         menuItem(window, "EditFind")->isChecked()};
        };
        QTest::keyClicks(window->TextBoard, "a");
        const std::pair<const char *, const char *> ways[] = {{"menu", "menu"},
                                                              {"Ctrl+F", "Ctrl+F"},
                                                              {"button", "button"},
                                                              {"button", "Close"},
                                                              {"Ctrl+F", "Esc"},
                                                              {"menu", "Ctrl+F"},
                                                              {"Ctrl+F", "Esc on the board"}};
        for (const auto &[opens, closes] : ways) {
            give(opens);
            checkOpen(window, board.bottom());
            QVERIFY(window->FindFrame->FindString->hasFocus());
            QCOMPARE(isMarked(), QList({true, true}));
            give(closes);
            QVERIFY(!window->FindFrame->isVisible());
            QCOMPARE(window->TextBoard->geometry(), board);
            QVERIFY(window->TextBoard->hasFocus());
            QCOMPARE(isMarked(), QList({false, false}));
        }
        // It closes too when the last character goes while the focus is in it.
        press(window, "Ctrl+F");
        press(window, "Ctrl+A");
        press(window, "Ctrl+D");
        QVERIFY(!window->FindFrame->isVisible());
        QVERIFY(window->TextBoard->hasFocus());
        QVERIFY(!menuItem(window, "EditFind")->isEnabled());
    }

    void standsUnderTheBoard()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        window->TextBoard->setText("cat");
        const auto boardBottom = [window] { return window->SplitBar->y() - 1; };
        press(window, "Ctrl+F");
        // Open, it follows the split bar, the side of the views and the map's size.
        for (const char *side : {"VCRight", "VCLeft"}) {
            QTest::mouseClick(window->ViewsContainer->ViewsTB->button(side), Qt::LeftButton);
            checkOpen(window, boardBottom());
            QCOMPARE(window->FindFrame->x(), window->TextBoard->x() + 2);
            QTest::mouseDClick(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
            checkOpen(window, boardBottom());
        }
        const int rest = window->TextBoard->width() - window->FindFrame->FindString->width();
        for (const int size : {1, 12, 8}) {
            window->FMapContainer->sldSetFMapSize->setValue(size);
            const QWidget *bar = window->FindFrame;
            QCOMPARE(bar->geometry().bottom(), boardBottom());
            QCOMPARE(bar->width(), window->TextBoard->width() - 2);
            QCOMPARE(window->TextBoard->width() - window->FindFrame->FindString->width(), rest);
            QVERIFY(window->FindFrame->CloseFindButton->geometry().right() < bar->width());
        }
        press(window, "Ctrl+F"); // closed
        QCOMPARE(window->TextBoard->geometry().bottom(), boardBottom());
    }

    void box()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "cat dog");
        press(window, "Ctrl+Shift+Left");
        press(window, "Ctrl+F");
        QCOMPARE(window->FindFrame->FindString->text(), QString("dog"));
        QCOMPARE(window->FindFrame->FindString->selectedText(), QString("dog"));
        const auto buttons = [window] {
            return QList{window->FindFrame->FindNextButton->isEnabled(),
                         window->FindFrame->ClearFindButton->isEnabled()};
        };
        QCOMPARE(buttons(), QList({true, true}));
        window->FindFrame->CloseFindButton->setFocus();
        QTest::mouseClick(window->FindFrame->ClearFindButton, Qt::LeftButton);
        QCOMPARE(window->FindFrame->FindString->text(), QString());
        QVERIFY(window->FindFrame->FindString->hasFocus());
        QCOMPARE(buttons(), QList({false, false}));
        press(window, "Return"); // presses a button that is off
        QVERIFY(!menuItem(window, "EditFindAgain")->isEnabled());

        // Another letter's base and a ligature; typing goes on behind what they became.
        window->FindFrame->FindString->insert(u"\u0151\uFB01"_s);
        QTest::keyClicks(window->FindFrame->FindString, "!");
        QCOMPARE(window->FindFrame->FindString->text(), QString("ofi!"));
        press(window, "Backspace");
        press(window, "Home");
        press(window, "Del");
        QCOMPARE(window->FindFrame->FindString->text(), QString("fi"));
        // Keys with Ctrl that the toolkit has for editing are the window's here.
        for (const char *keys : {"Ctrl+K", "Ctrl+U", "Ctrl+W"})
            press(window, keys);
        QCOMPARE(window->FindFrame->FindString->text(), QString("fi"));
        QVERIFY(window->TextBoard->FontUnderline());
        for (const auto &[keys, text] : {std::pair("Ctrl+Z", "ofi"), {"Ctrl+Y", "fi"}}) {
            press(window, keys);
            QCOMPARE(window->FindFrame->FindString->text(), QString(text));
        }
        QCOMPARE(window->TextBoard->Text(), QString("cat dog"));
    }

    void finds()
    {
        const struct
        {
            QString Text;
            int Start; // of the selection before
            int Length;
            QString Word;
            int Hit;
            const char *Failure = nullptr; // in place of a hit
            bool WholeWord = false;
            bool MatchCase = false;
        } rows[] = {
            {"cat cat", 0, 0, "cat", 4}, // passes over the start
            {"cat cat", 4, 3, "cat", 0, NotInBoard},
            {"a\r\n\r\nconcat", 0, 0, "cat", 8},
            {"a concat cat", 0, 0, "cat", 9, nullptr, true},
            {u"a \u00C9T\u00E9"_s, 0, 0, u"\u00E9t\u00C9"_s, 2},
            {"a cat Cat", 0, 0, "Cat", 6, nullptr, false, true},
            {"a concat cats Cat cat", 0, 0, "cat", 18, nullptr, true, true},
            {"a dog", 0, 0, " cat ", 0, NotInBoard},
            // A selection is a limit if it has several lines.
            {"a cat\r\nb cat\r\ncat", 0, 8, "cat", 2},
            {"a dog\r\nb cat", 0, 10, "cat", 0, NotInSelection},
            {"a dog cat", 0, 5, "cat", 6},
        };
        Desktop desktop;
        Zendova *window = desktop.start();
        for (const auto &row : rows) {
            window->TextBoard->setText(row.Text);
            lookFor(window, row.Word);
            window->FindFrame->FindOpt[0]->setChecked(row.WholeWord);
            window->FindFrame->FindOpt[1]->setChecked(row.MatchCase);
            select(window, row.Start, row.Length);
            if (row.Failure)
                expectNotFound(desktop, row.Word.trimmed(), row.Failure);
            QTest::mouseClick(window->FindFrame->FindNextButton, Qt::LeftButton);
            QVERIFY(desktop.Dialogs.allCame());
            QCOMPARE(window->TextBoard->SelStart(), row.Failure ? row.Start : row.Hit);
            QCOMPARE(window->TextBoard->SelLength(), row.Failure ? row.Length : row.Word.size());
            press(window, "Esc");
        }
    }

    void goesOnFromHitToHit()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        window->TextBoard->setText("a cat\r\na cat\r\nno dog, cat");
        press(window, "F3"); // is off, as nothing was looked for yet
        lookFor(window, "cat");
        select(window, 0, 8); // two lines
        // By Enter alone, first on an option, then on the button.
        window->FindFrame->FindOpt[1]->setFocus();
        for (const int hit : {2, 9, 22}) {
            QTest::keyClick(window->focusWidget(), Qt::Key_Return);
            QCOMPARE(window->TextBoard->SelStart(), hit);
            QCOMPARE(window->TextBoard->SelText(), QString("cat"));
            QVERIFY(window->FindFrame->FindNextButton->hasFocus());
        }
        // Again: the last search's word counts, with the bar closed too.
        window->FindFrame->FindString->setText("dog");
        window->TextBoard->setSelStart(3);
        press(window, "F3");
        QCOMPARE(window->TextBoard->SelStart(), 9);
        press(window, "Esc");
        window->TextBoard->setSelStart(0);
        chooseFromMenu(window, "ItemEdit", "EditFindAgain");
        QCOMPARE(window->TextBoard->SelStart(), 2);
        QVERIFY(window->TextBoard->hasFocus());
        QVERIFY(!window->FindFrame->isVisible());
        window->TextBoard->setSelStart(22);
        expectNotFound(desktop, "cat", NotInBoard);
        press(window, "F3");
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->TextBoard->SelStart(), 22);
    }

    void longBoard()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        const TextBoard *board = window->TextBoard;
        window->TextBoard->setText(linesOfText(BoardLimit - 6) + "needle");
        lookFor(window, "needle");
        press(window, "Return");
        QCOMPARE(board->SelStart(), BoardLimit - 6);
        QVERIFY(board->viewport()->rect().contains(board->cursorRect()));
        // Opening takes two lines from the board, but not those with the caret.
        press(window, "Esc");
        press(window, "Ctrl+F");
        QVERIFY(board->viewport()->rect().contains(board->cursorRect()));
    }

    void charactersOfTheMap()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "ab");
        press(window, "Ctrl+F");
        QTest::keyClicks(window->FindFrame->FindString, "xy");
        press(window, "Shift+Left");
        clickCell(window, cellOf(0x80));
        QVERIFY(window->FindFrame->FindString->hasFocus());
        QTest::keyClicks(window->FindFrame->FindString, "z");
        QCOMPARE(window->FindFrame->FindString->text(), u"x\u20ACz"_s);
        // The search takes the focus away, even while its message is in front of the window.
        expectNotFound(desktop, u"x\u20ACz"_s, NotInBoard);
        press(window, "Return");
        QVERIFY(desktop.Dialogs.allCame());
        clickCell(window, cellOf('c'));
        QCOMPARE(window->TextBoard->Text(), QString("abc"));
        QApplication::setActiveWindow(window); // as a window manager does once the message is gone
        // A menu in front does not.
        window->FindFrame->FindString->setFocus();
        clickCell(window, cellOf('d'), Qt::RightButton);
        QApplication::activePopupWidget()->close();
        clickCell(window, cellOf('!'));
        QCOMPARE(window->FindFrame->FindString->text(), u"x\u20ACz!"_s);
        press(window, "Esc");
        clickCell(window, cellOf('d'));
        QCOMPARE(window->TextBoard->Text(), QString("abcd"));
    }

    void tabOrder()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "a");
        QWidget *zoom = window->ViewsContainer->ZoomSizeSlider->slider();
        QWidget *fontSize = window->FontSizeSlider->slider();
        QWidget *mapSize = window->FMapContainer->sldSetFMapSize->slider();
        lookFor(window, "a");
        window->TextBoard->setFocus();
        for (QWidget *next : std::initializer_list<QWidget *>{
                 zoom, window->FontNameCombo, fontSize, window->FindFrame->FindString,
                 window->FindFrame->FindOpt[0], window->FindFrame->FindOpt[1],
                 window->FindFrame->FindNextButton, window->FindFrame->CloseFindButton, mapSize}) {
            press(window, "Tab");
            QCOMPARE(window->focusWidget(), next);
        }
    }

    void fontOfTheBoard()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
        QVERIFY(chooseFont(window, "Zt Four"));
        for (const auto &[size, shown] : {std::pair("20", 12.0), std::pair("10", 10.0)}) {
            QVERIFY(fillNumberBox(window->FontSizeSlider, size));
            const QFont font = window->FindFrame->FindString->font();
            QCOMPARE(font.family(), window->FMapContainer->CharButton->cellFont().family());
            QCOMPARE(font.pointSizeF(), shown);
            QVERIFY(!font.bold());
        }
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestFindBar>(argc, argv);
}

#include "tst_findbar.moc"
