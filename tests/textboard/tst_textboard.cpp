// The board's edit control: its characters and positions, the limit at every way in, the keys that
// it leaves to the window, and Alt codes typed into it.
#include "tests/support/BoardText.h"

#include "platform/CodePage.h"
#include "platform/controls/AltCode.h"
#include "textboard/TextBoard.h"

#include <QtTest>
#include <QtWidgets>

class TestTextBoard : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Window = std::make_unique<QMainWindow>();
        Window->setCentralWidget(Board = new TextBoard);
        Window->menuBar()->setCornerWidget(Next = new QLineEdit);
        Window->menuBar()->addMenu("&File")->addAction("&Open");
        Window->resize(600, 400);
        Window->show();
        Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(Window.get()));
        Board->setFocus();
    }
    void cleanup() { Window.reset(); }
    void initTestCase() { qApp->installEventFilter(&Filter); }

    void whatComesInIsFitted()
    {
        for (const auto &[given, kept] :
             {std::pair("a\r\nb\rc\r\r\n\n\nd\n\re", "a\r\nb\r\nc\r\n\r\n\r\n\r\nd\r\n\r\ne"),
              {"a\u2028b\u2029c", "a\r\nb\r\nc"},
              {"\uFDD0\uFDD1", "??"}, // the frames of the toolkit's document
              {"\u0101\U0001F600", "a?"}}) {
            for (const char *way : {"whole", "code", "commit", "menu"}) {
                Board->setText({});
                comesIn(way, given);
                QCOMPARE(Board->Text(), QString(kept));
            }
        }
        Board->setText({});
        for (const char *text : {"\u0101", "\U0001F600", "\u00AD"})
            QTest::sendKeyEvent(QTest::Click, Board, Qt::Key_unknown, QString(text), {});
        QTest::keyClick(Board, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(Board->Text(), QString("a?\u00AD\r\n"));
    }

    void limitAtEveryWayIn()
    {
        // Room, length of the selection, what is given, and what is there then in its place.
        const std::tuple<int, int, QString, QString> rows[] = {
            {3, 0, "abcd", "abc"}, {0, 0, "a", ""},     {2, 0, "\r", "\r\n"},
            {1, 0, "\r", ""},      {0, 2, "abc", "ab"}, {0, 1, "\r", "x"}};
        for (const QString way : {"type", "code", "menu", "commit", "drop"}) {
            for (const auto &[room, selected, given, taken] : rows) {
                if (way == "drop" && selected > 0) // goes beside the selection
                    continue;
                const QString text = linesOfText(BoardLimit - room);
                Board->setText(text);
                select(1000, selected);
                const QSignalSpy changes(Board, &TextBoard::Change);
                comesIn(way, given);
                QString expected = text;
                expected.replace(1000, selected, taken);
                const bool changed = expected != text;
                QVERIFY2(Board->Text() == expected, qPrintable(way + ' ' + given));
                QCOMPARE(!changes.isEmpty(), changed);
                QCOMPARE(Board->SelStart(), changed ? 1000 + taken.size() : 1000);
                QCOMPARE(Board->SelLength(), changed ? 0 : selected);
            }
        }
    }

    void limitOfTheWholeText()
    {
        Board->setText(linesOfText(BoardLimit) + 'x');
        QCOMPARE(Board->Text(), linesOfText(BoardLimit));
        Board->setText(linesOfText(BoardLimit - 1) + "\r\n");
        QCOMPARE(Board->Text(), linesOfText(BoardLimit - 1));
        // What is committed replaces what it names only if it fits.
        Board->setText(linesOfText(BoardLimit));
        Board->setSelStart(BoardLimit);
        commit("abc", -2, 2);
        commit("\n", -1, 1);
        QCOMPARE(Board->Text(), linesOfText(BoardLimit - 2) + "ab");
        Board->setText(linesOfText(BoardLimit - 3));
        QCOMPARE(drop("ab"), Qt::MoveAction);
        QCOMPARE(drop("cd"), Qt::CopyAction);
    }

    void keys()
    {
        Board->setText("one two");
        select(4, 2);
        QApplication::clipboard()->setText("clip");
        for (const char *name : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A", "Shift+Del", "Ctrl+Ins",
                                 "Shift+Ins", "Ctrl+D", "Ctrl+K", "Ctrl+U", "Ctrl+H"}) {
            QTest::keySequence(Window->windowHandle(), QKeySequence(name)); // no command's yet
            const QShortcut shortcut(QKeySequence(name), Window.get());
            const QSignalSpy fired(&shortcut, &QShortcut::activated);
            QTest::keySequence(Window->windowHandle(), QKeySequence(name));
            QVERIFY2(fired.size() == 1, name);
            QVERIFY2(Board->Text() == "one two" && Board->SelText() == "tw", name);
            QVERIFY2(QApplication::clipboard()->text() == "clip", name);
        }
        // These are the board's, whoever else has them.
        for (const auto &[key, text] :
             {std::pair("Backspace", "one o"), {"Ctrl+Z", "one two"}, {"Ctrl+Y", "one o"}}) {
            const QShortcut shortcut(QKeySequence(key), Window.get());
            QTest::keySequence(Window->windowHandle(), QKeySequence(key));
            QCOMPARE(Board->Text(), QString(text));
        }
        QTest::keyClick(Window->windowHandle(), Qt::Key_Tab);
        QVERIFY(Next->hasFocus());
        QTest::keyClick(Window->windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(Board->hasFocus());
    }

    void altCodes()
    {
        const std::pair<const char *, QString> rows[] = {
            {"0032", " "}, {"0255", "\u00FF"}, {"0128", "\u20AC"}, {"0129", "\u0081"}, {"0031", ""},
            {"0256", ""},  {"1065", ""},       {"065", ""},        {"00065", ""}};
        for (const auto &[digits, text] : rows) {
            Board->setText({});
            code(digits);
            QVERIFY2(Board->Text() == text, digits);
        }
        // The digits above the letters, and the pad without Num Lock: 0, 2, 3, 9.
        Board->setText("abc");
        Board->selectAll();
        code("0233", Qt::NoModifier);
        key(true, Qt::Key_Alt, Qt::NoModifier);
        for (const int pad : {Qt::Key_Insert, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageUp})
            key(true, pad, Qt::AltModifier | Qt::KeypadModifier);
        key(false, Qt::Key_Alt, Qt::AltModifier);
        // Wayland tells the pad's keys by their symbols alone.
        key(true, Qt::Key_Alt, Qt::NoModifier);
        for (const auto &[pad, symbol] : {std::pair(Qt::Key_Insert, 0xFF9E),
                                          {Qt::Key_Insert, 0xFF9E},
                                          {Qt::Key_Right, 0xFF98},
                                          {Qt::Key_Clear, 0xFF9D}}) {
            QKeyEvent event(QEvent::KeyPress, pad, Qt::AltModifier, 0, symbol, 0);
            QSpontaneKeyEvent::setSpontaneous(&event); // as one of the window system's
            qApp->notify(Board, &event);
        }
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text(), QString("\u00E9\u00EFA"));
        Next->setMaxLength(1);
        Next->setFocus();
        code("0065");
        code("0066");
        QCOMPARE(Next->text(), QString("A"));
    }

    void altCodesCancelledAndAside()
    {
        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits("006");
        key(true, Qt::Key_Right, Qt::AltModifier);
        digits("5");
        key(false, Qt::Key_Alt, Qt::AltModifier);
        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits("0065");
        Next->setFocus();
        Board->setFocus();
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text() + Next->text(), QString());
        code("0065");
        QCOMPARE(Board->Text(), QString("A"));
        const QShortcut shortcut(QKeySequence("Alt+0"), Window.get());
        const QSignalSpy fired(&shortcut, &QShortcut::activated);
        code("0065");
        QCOMPARE(fired.size(), 0);
        QVERIFY(Board->hasFocus());
        // Alt alone still goes to the menu bar, and a box that takes no text leaves it the digits.
        code({});
        QVERIFY(!Board->hasFocus());
        Next->setFocus();
        Next->setReadOnly(true);
        code("0", Qt::NoModifier);
        QCOMPARE(fired.size(), 1);
    }

    void changeIsTold()
    {
        const QSignalSpy changes(Board, &TextBoard::Change);
        auto told = [&changes, before = qsizetype(0)]() mutable {
            return changes.size() - std::exchange(before, changes.size());
        };
        Board->setText("abc");
        Board->setText("abc");
        QCOMPARE(told(), 2);
        Board->setSelText("d");
        Board->setSelText({});
        QCOMPARE(told(), 1);
        Board->selectAll();
        QTest::keyClick(Board, Qt::Key_E);
        QTest::keyClick(Board, Qt::Key_Left);
        QCOMPARE(told(), 1);
        QInputMethodEvent composing("^", {});
        QApplication::sendEvent(Board, &composing);
        QCOMPARE(told(), 0);
        commit("\u00ea");
        QCOMPARE(told(), 1);
    }

private:
    void select(int start, int length)
    {
        Board->setSelStart(start);
        Board->setSelLength(length);
    }

    /// Text comes in by this way at the caret or in place of the selection.
    void comesIn(const QString &way, const QString &text)
    {
        if (way == "type") {
            for (const QChar c : text)
                QTest::sendKeyEvent(QTest::Click, Board, c == '\r' ? Qt::Key_Return : Qt::Key_A, c,
                                    {});
        } else if (way == "menu") {
            QApplication::clipboard()->setText(text);
            const std::unique_ptr<QMenu> menu(Board->createStandardContextMenu());
            menu->findChild<QAction *>("edit-paste")->trigger();
        } else if (way == "drop") {
            drop(text);
        } else if (way == "commit") {
            commit(text);
        } else {
            way == "whole" ? Board->setText(text) : Board->setSelText(text);
        }
    }

    void commit(const QString &text, int from = 0, int replaced = 0)
    {
        QInputMethodEvent event;
        event.setCommitString(text, from, replaced);
        QApplication::sendEvent(Board, &event);
    }

    /// Drops text from elsewhere at the caret; gives the action that its source is told.
    Qt::DropAction drop(const QString &text)
    {
        QMimeData mime;
        mime.setText(text);
        const QPoint caret = Board->cursorRect().center();
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(caret, actions, &mime, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(Board->viewport(), &enter);
        QDropEvent event(caret, actions, &mime, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(Board->viewport(), &event);
        return event.dropAction();
    }

    void key(bool press, int key, Qt::KeyboardModifiers modifiers, const QString &text = {})
    {
        QTest::simulateEvent(Window->windowHandle(), press, key, modifiers, text, false);
    }
    void digits(const QString &digits, Qt::KeyboardModifiers modifiers = Qt::KeypadModifier)
    {
        for (const QChar digit : digits)
            for (const bool press : {true, false})
                key(press, digit.unicode(), Qt::AltModifier | modifiers, digit);
    }
    void code(const QString &number, Qt::KeyboardModifiers modifiers = Qt::KeypadModifier)
    {
        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits(number, modifiers);
        key(false, Qt::Key_Alt, Qt::AltModifier);
    }

    std::unique_ptr<QMainWindow> Window;
    AltCode Filter{[](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); }};
    TextBoard *Board = nullptr;
    QLineEdit *Next = nullptr;
};

QTEST_MAIN(TestTextBoard)
#include "tst_textboard.moc"
