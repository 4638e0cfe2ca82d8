// The board's edit control: its characters and positions, the limit at every way in, undo, the keys
// that it leaves to the window, and what its formatting shows.
#include "tests/support/BoardText.h"

#include "platform/CodePage.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

class TestTextBoard : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Window = std::make_unique<QWidget>();
        auto *column = new QVBoxLayout(Window.get());
        column->addWidget(Board = new TextBoard);
        column->addWidget(Next = new QWidget);
        Next->setFocusPolicy(Qt::StrongFocus);
        Window->resize(600, 400);
        Window->show();
        Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(Window.get()));
        Board->setFocus();
    }
    void cleanup() { Window.reset(); }

    void everyCodeSurvives()
    {
        QString codes;
        for (int code = 0; code < 256; ++code)
            if (code != '\r' && code != '\n')
                codes += CodePage::toUnicode(static_cast<quint8>(code));
        Board->setText(codes);
        QCOMPARE(Board->Text(), codes);
        QCOMPARE(Board->TextLength(), 254);
        Board->selectAll();
        QCOMPARE(Board->SelText(), codes);
        contextMenu("edit-copy");
        QCOMPARE(QApplication::clipboard()->text(), codes);
        contextMenu("edit-delete");
        contextMenu("edit-paste");
        Board->setSelText(codes);
        QCOMPARE(Board->Text(), codes + codes);
    }

    void whatComesInIsFitted()
    {
        const std::pair<QString, QString> rows[] = {
            {u"a\r\nb"_s, u"a\r\nb"_s},
            {u"a\rb\r\r\n"_s, u"a\r\nb\r\n\r\n"_s},
            {u"\n\na\n\r"_s, u"\r\n\r\na\r\n\r\n"_s},
            {u"a\u2028b\u2029c"_s, u"a\r\nb\r\nc"_s},
            {u"\uFDD0\uFDD1"_s, u"??"_s}, // the frames of the toolkit's document
            {u"\u0101\U0001F600"_s, u"a?"_s},
        };
        for (const auto &[given, kept] : rows) {
            Board->setText(given);
            QCOMPARE(Board->Text(), kept);
            for (const QString &way : {u"code"_s, u"commit"_s, u"menu"_s}) {
                Board->setText(QString());
                comesIn(way, given);
                QCOMPARE(Board->Text(), kept);
            }
        }
        Board->setText(QString());
        for (const QString &text : {u"\u0101"_s, u"\U0001F600"_s, u"\u00AD"_s})
            QTest::sendKeyEvent(QTest::Click, Board, Qt::Key_unknown, text, Qt::NoModifier);
        QTest::keyClick(Board, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(Board->Text(), u"a?\u00AD\r\n"_s);
    }

    void positionsBothWays()
    {
        for (const QString &text : {QString(), linesOfText(BoardLimit), u"\r\n"_s.repeated(999)}) {
            Board->setText(text);
            const int length = static_cast<int>(text.size());
            QCOMPARE(Board->TextLength(), length);
            for (int p = 0; p <= length; p += p > 200 && p < length - 200 ? 37 : 1) {
                const bool inLineEnd = p > 0 && p < length && text[p - 1] == u'\r';
                Board->setSelStart(p);
                QCOMPARE(Board->SelStart(), inLineEnd ? p - 1 : p);
            }
            Board->setSelStart(-1);
            Board->setSelLength(std::numeric_limits<int>::max());
            QCOMPARE(Board->SelText(), text);
            Board->setSelStart(std::numeric_limits<int>::max());
            QCOMPARE(Board->SelStart(), length);
        }
    }

    void limitAtEveryWayIn()
    {
        const struct
        {
            int Room;
            int Selected;
            QString Given;
            QString Taken; // what is there then in place of the selection
        } rows[] = {
            {3, 0, u"abcd"_s, u"abc"_s}, {0, 0, u"a"_s, QString()}, {2, 0, u"\r"_s, u"\r\n"_s},
            {1, 0, u"\r"_s, QString()},  {0, 2, u"abc"_s, u"ab"_s}, {0, 1, u"\r"_s, u"x"_s},
        };
        for (const QString &way : {u"type"_s, u"code"_s, u"menu"_s, u"commit"_s, u"drop"_s}) {
            for (const auto &row : rows) {
                if (way == u"drop"_s && row.Selected > 0) // goes beside the selection
                    continue;
                const QString text = linesOfText(BoardLimit - row.Room);
                Board->setText(text);
                Board->setSelStart(1000);
                Board->setSelLength(row.Selected);
                const QSignalSpy changes(Board, &TextBoard::Change);
                comesIn(way, row.Given);
                QString expected = text;
                expected.replace(1000, row.Selected, row.Taken);
                const bool changed = expected != text;
                QVERIFY2(Board->Text() == expected, qPrintable(way + u' ' + row.Given));
                QCOMPARE(!changes.isEmpty(), changed);
                QCOMPARE(Board->SelStart(), changed ? 1000 + row.Taken.size() : 1000);
                QCOMPARE(Board->SelLength(), changed ? 0 : row.Selected);
            }
        }
    }

    void limitOfTheWholeText()
    {
        Board->setText(linesOfText(BoardLimit) + u"x"_s);
        QCOMPARE(Board->Text(), linesOfText(BoardLimit));
        Board->setText(linesOfText(BoardLimit - 1) + u"\r\n"_s);
        QCOMPARE(Board->Text(), linesOfText(BoardLimit - 1));
        // What is committed replaces what it names only if it fits.
        Board->setText(linesOfText(BoardLimit));
        Board->setSelStart(BoardLimit);
        commit(u"abc"_s, -2, 2);
        commit(u"\n"_s, -1, 1);
        QCOMPARE(Board->Text(), linesOfText(BoardLimit - 2) + u"ab"_s);
        // What is dropped leaves its source alone unless all of it arrived.
        Board->setText(linesOfText(BoardLimit - 3));
        QCOMPARE(drop(u"ab"_s), Qt::MoveAction);
        QCOMPARE(drop(u"cd"_s), Qt::CopyAction);
    }

    void dragWithinTheFullBoard()
    {
        Board->setText(u"abc def\r\n"_s + linesOfText(BoardLimit - 9));
        Board->setSelStart(2);
        Board->setSelLength(10);
        const QSignalSpy changes(Board, &TextBoard::Change);
        const auto place = [this](int position) {
            QTextCursor cursor(Board->document());
            cursor.setPosition(position);
            return Board->viewport()->mapTo(Window.get(), Board->cursorRect(cursor).center());
        };
        // The drag runs an event loop of its own, in which the rest of the gesture has to come.
        QWindow *window = Window->windowHandle();
        const QPoint from = place(4);
        const QPoint to = place(0);
        QTimer rest;
        connect(&rest, &QTimer::timeout, this, [&] {
            if (!Board->viewport()->findChild<QDrag *>())
                return;
            rest.stop();
            QTest::mouseMove(window, to);
            QTest::mouseRelease(window, Qt::LeftButton, {}, to);
        });
        rest.start(0);
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        QTest::mouseMove(window, from + QPoint(0, 2 * QApplication::startDragDistance()));
        QTRY_COMPARE(changes.size(), 1);
        QCOMPARE(Board->TextLength(), BoardLimit);
        QCOMPARE(Board->Text().left(14), u"c def\r\nxxxabxx"_s);
        Board->undo();
        QCOMPARE(Board->Text().left(12), u"abc def\r\nxxx"_s);
    }

    void undoAndRedo()
    {
        Board->setText(u"start "_s + linesOfText(BoardLimit - 9));
        const auto after = [this](const char *keys) {
            QTest::keySequence(Board, QKeySequence(QString::fromLatin1(keys)));
            return Board->Text().left(10);
        };
        QCOMPARE(after("Ctrl+Z"), u"start xxxx"_s);
        Board->setSelStart(0);
        Board->setSelLength(5);
        Board->setSelText(u"begin and more"_s);
        QCOMPARE(after("Ctrl+Z"), u"start xxxx"_s);
        QCOMPARE(after("Ctrl+Shift+Z"), u"begin an x"_s);
        QCOMPARE(after("Ctrl+Z"), u"start xxxx"_s);
        QCOMPARE(after("Ctrl+Y"), u"begin an x"_s);
        QCOMPARE(Board->TextLength(), BoardLimit);
    }

    void keysOfTheWindow()
    {
        Board->setText(u"one two"_s);
        Board->setSelStart(4);
        Board->setSelLength(2);
        QApplication::clipboard()->setText(u"clip"_s);
        for (const char *name : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A", "Shift+Del", "Ctrl+Ins",
                                 "Shift+Ins", "Ctrl+D", "Ctrl+K", "Ctrl+U", "Ctrl+H"}) {
            const QKeySequence keys(QString::fromLatin1(name));
            QTest::keySequence(Window->windowHandle(), keys); // no command has them yet
            const QShortcut shortcut(keys, Window.get());
            const QSignalSpy fired(&shortcut, &QShortcut::activated);
            QTest::keySequence(Window->windowHandle(), keys);
            QVERIFY2(fired.size() == 1, name);
            QVERIFY2(Board->Text() == u"one two"_s && Board->SelText() == u"tw"_s, name);
            QVERIFY2(QApplication::clipboard()->text() == u"clip"_s, name);
        }
    }

    void keysOfTheBoard()
    {
        const QShortcut back(QKeySequence(u"Backspace"_s), Window.get());
        const QShortcut undo(QKeySequence(u"Ctrl+Z"_s), Window.get());
        QTest::keyClicks(Board, u"ab"_s);
        QTest::keyClick(Window->windowHandle(), Qt::Key_Backspace);
        QCOMPARE(Board->Text(), u"a"_s);
        QTest::keyClick(Window->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Board->Text(), u"ab"_s);
        QTest::keyClick(Window->windowHandle(), Qt::Key_Tab);
        QVERIFY(Next->hasFocus());
        QTest::keyClick(Window->windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(Board->hasFocus());
    }

    void changeIsTold()
    {
        int changes = 0;
        connect(Board, &TextBoard::Change, this, [&] { ++changes; });
        const auto told = [&] { return std::exchange(changes, 0); };
        Board->setText(u"abc"_s);
        Board->setText(u"abc"_s);
        QCOMPARE(told(), 2);
        Board->setSelText(u"d"_s);
        QCOMPARE(told(), 1);
        Board->setSelText(QString());
        QCOMPARE(told(), 0);
        Board->selectAll();
        QTest::keyClick(Board, Qt::Key_E);
        QCOMPARE(told(), 1);
        QTest::keyClick(Board, Qt::Key_Left);
        QCOMPARE(told(), 0);
        Board->undo();
        Board->redo();
        QCOMPARE(told(), 2);
        QInputMethodEvent composing(u"^"_s, {});
        QApplication::sendEvent(Board, &composing);
        QCOMPARE(told(), 0);
        commit(u"\u00ea"_s);
        QCOMPARE(told(), 1);
        Board->setFontSize(20);
        Board->setAlignment(2);
        QCOMPARE(told(), 0);
    }

    void colourAndSelectionAreSeen()
    {
        QPalette colors = Board->palette();
        colors.setColor(QPalette::Highlight, Qt::yellow);
        colors.setColor(QPalette::HighlightedText, Qt::white);
        colors.setColor(QPalette::Inactive, QPalette::Highlight, QColor(250, 250, 250));
        Board->setPalette(colors);
        Board->setForeColor(Qt::red);
        Board->setText(u"\u2014\u2014\u2014\u2014"_s);
        Board->setFontSize(36);
        const auto shows = [this](const QColor &color) {
            const QImage image = Board->viewport()->grab().toImage();
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (image.pixelColor(x, y) == color)
                        return true;
            return false;
        };
        QVERIFY(shows(Qt::red) && !shows(Qt::yellow));
        Board->selectAll();
        Next->setFocus();
        QVERIFY(shows(Qt::yellow) && !shows(Qt::red));
    }

private:
    /// Text comes in by this way at the caret or in place of the selection.
    void comesIn(QStringView way, const QString &text)
    {
        if (way == u"type"_s) {
            for (const QChar c : text)
                QTest::sendKeyEvent(QTest::Click, Board, c == u'\r' ? Qt::Key_Return : Qt::Key_A, c,
                                    Qt::NoModifier);
        } else if (way == u"code"_s) {
            Board->setSelText(text);
        } else if (way == u"menu"_s) {
            QApplication::clipboard()->setText(text);
            contextMenu("edit-paste");
        } else if (way == u"drop"_s) {
            drop(text);
        } else {
            commit(text);
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

    void contextMenu(const char *name)
    {
        const std::unique_ptr<QMenu> menu(Board->createStandardContextMenu());
        auto *action = menu->findChild<QAction *>(QString::fromLatin1(name));
        QVERIFY(action && action->isEnabled());
        action->trigger();
    }

    std::unique_ptr<QWidget> Window;
    TextBoard *Board = nullptr;
    QWidget *Next = nullptr;
};

QTEST_MAIN(TestTextBoard)
#include "tst_textboard.moc"
