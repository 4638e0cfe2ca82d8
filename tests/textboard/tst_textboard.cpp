// The board's edit control: its characters and positions, the limit at every way in, undo, the keys
// that it leaves to the window, and what its formatting shows.
#include "platform/CodePage.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int limit = 61440;

class Board : public TextBoard
{
public:
    using TextBoard::insertFromMimeData;
    using TextBoard::TextBoard;
};

QString letters(int count)
{
    return QString(count, u'x');
}

/// So many characters in lines of 78 letters and CR LF, letters at the end.
QString lines(int count)
{
    const int whole = (count - 1) / 80;
    return (letters(78) + u"\r\n"_s).repeated(whole) + letters(count - whole * 80);
}

} // namespace

class tst_TextBoard : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto *column = new QVBoxLayout(m_window.get());
        m_board = new Board;
        m_next = new QWidget;
        m_next->setFocusPolicy(Qt::StrongFocus);
        column->addWidget(m_board);
        column->addWidget(m_next);
        m_window->resize(600, 400);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_board->setFocus();
    }
    void cleanup() { m_window.reset(); }

    // Characters

    void everyCodeSurvives()
    {
        QString codes;
        for (int code = 0; code < 256; ++code)
            if (code != '\r' && code != '\n')
                codes += CodePage::toUnicode(static_cast<quint8>(code));

        m_board->setText(codes);
        QCOMPARE(m_board->Text(), codes);
        QCOMPARE(m_board->TextLength(), 254);
        m_board->selectAll();
        QCOMPARE(m_board->SelText(), codes);
        contextMenu("edit-copy");
        QCOMPARE(QApplication::clipboard()->text(), codes);
        contextMenu("edit-delete");
        QCOMPARE(m_board->Text(), QString());
        contextMenu("edit-paste");
        QCOMPARE(m_board->Text(), codes);
        m_board->setSelText(codes);
        QCOMPARE(m_board->Text(), codes + codes);
    }

    void whatComesInIsFitted_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("kept");
        QTest::newRow("CR LF") << u"a\r\nb"_s << u"a\r\nb"_s;
        QTest::newRow("CR") << u"a\rb\r"_s << u"a\r\nb\r\n"_s;
        QTest::newRow("LF") << u"\n\na"_s << u"\r\n\r\na"_s;
        QTest::newRow("LF CR") << u"\n\r"_s << u"\r\n\r\n"_s;
        QTest::newRow("CR CR LF") << u"\r\r\n"_s << u"\r\n\r\n"_s;
        QTest::newRow("separators") << u"a\u2028b\u2029c"_s << u"a\r\nb\r\nc"_s;
        QTest::newRow("frames of the document") << u"a\uFDD0b\uFDD1"_s << u"a?b?"_s;
        QTest::newRow("base letter") << u"\u0101"_s << u"a"_s;
        QTest::newRow("surrogates") << u"\U0001F600"_s << u"?"_s;
    }
    void whatComesInIsFitted()
    {
        QFETCH(const QString, given);
        QFETCH(const QString, kept);
        m_board->setText(given);
        QCOMPARE(m_board->Text(), kept);
        m_board->setText(u"-"_s);
        m_board->selectAll();
        m_board->setSelText(given);
        QCOMPARE(m_board->Text(), kept);
        m_board->setText(QString());
        commit(given);
        QCOMPARE(m_board->Text(), kept);
        m_board->setText(QString());
        paste(given);
        QCOMPARE(m_board->Text(), kept);
    }

    void typedCharactersAreFitted()
    {
        QTest::sendKeyEvent(QTest::Click, m_board, Qt::Key_unknown, u"\u0101"_s, Qt::NoModifier);
        QTest::sendKeyEvent(QTest::Click, m_board, Qt::Key_unknown, u"\U0001F600"_s,
                            Qt::NoModifier);
        QTest::sendKeyEvent(QTest::Click, m_board, Qt::Key_hyphen, u"\u00AD"_s, Qt::NoModifier);
        QTest::keyClick(m_board, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(m_board, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(m_board->Text(), u"a?\u00AD\r\n\r\n"_s);
    }

    // Positions

    void positionsBothWays_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("one paragraph") << letters(limit);
        QTest::newRow("lines of 80") << lines(limit);
        QTest::newRow("empty lines") << u"\r\n"_s.repeated(limit / 2);
    }
    void positionsBothWays()
    {
        QFETCH(const QString, text);
        Board board;
        board.setText(text);
        QCOMPARE(board.TextLength(), text.size());
        const int length = static_cast<int>(text.size());
        for (int p = 0; p <= length; p += p > 200 && p < length - 200 ? 37 : 1) {
            const bool inLineEnd = p > 0 && p < length && text[p - 1] == u'\r';
            board.setSelStart(p);
            QCOMPARE(board.SelStart(), inLineEnd ? p - 1 : p);
            QCOMPARE(board.SelLength(), 0);
        }
        board.setSelStart(-1);
        QCOMPARE(board.SelStart(), 0);
        board.setSelLength(std::numeric_limits<int>::max());
        QCOMPARE(board.SelLength(), length);
        QCOMPARE(board.SelText(), text);
        board.setSelStart(std::numeric_limits<int>::max());
        QCOMPARE(board.SelStart(), length);
        QCOMPARE(board.SelLength(), 0);
    }

    void selection()
    {
        m_board->setText(u"one\r\ntwo\r\nthree"_s);
        m_board->setSelStart(2);
        m_board->setSelLength(4);
        QCOMPARE(m_board->SelText(), u"e\r\nt"_s);
        m_board->setSelLength(2);
        QCOMPARE(m_board->SelText(), u"e"_s);
        m_board->setSelLength(-1);
        QCOMPARE(m_board->SelLength(), 0);
        QCOMPARE(m_board->SelStart(), 2);

        m_board->setSelLength(4);
        m_board->setSelText(u"12\r\n3"_s);
        QCOMPARE(m_board->Text(), u"on12\r\n3wo\r\nthree"_s);
        QCOMPARE(m_board->SelStart(), 7);
        QCOMPARE(m_board->SelLength(), 0);
        QTest::keyClick(m_board, Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(m_board->SelStart(), 6);
        m_board->setSelText(QString());
        QCOMPARE(m_board->Text(), u"on12\r\nwo\r\nthree"_s);
    }

    void caretComesIntoView()
    {
        m_board->setText(lines(limit));
        for (const int start : {limit, 0, 30000}) {
            m_board->setSelStart(start);
            QVERIFY(m_board->viewport()->rect().contains(m_board->cursorRect()));
        }
        m_board->setText(lines(limit / 2));
        m_board->setSelStart(limit / 2);
        m_board->verticalScrollBar()->setValue(0);
        m_board->setSelText(u"y"_s);
        QVERIFY(m_board->viewport()->rect().contains(m_board->cursorRect()));
    }

    // The limit

    void limitAtEveryWayIn_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<int>("filled");
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("taken");
        for (const QString &way : {u"code"_s, u"paste"_s, u"menu"_s, u"drop"_s, u"commit"_s}) {
            const auto row = [&way](const char *name, int filled, int selected,
                                    const QString &given, const QString &taken) {
                // What is dropped goes beside the selection and doesn't replace it.
                if (way != u"drop"_s || selected == 0)
                    QTest::addRow("%s: %s", qPrintable(way), name)
                        << way << filled << selected << given << taken;
            };
            row("the last one", limit - 1, 0, u"a"_s, u"a"_s);
            row("full", limit, 0, u"a"_s, QString());
            row("as much as fits", limit - 3, 0, u"abcd"_s, u"abc"_s);
            row("line end fits", limit - 2, 0, u"\n"_s, u"\r\n"_s);
            row("no half line end", limit - 2, 0, u"a\nb"_s, u"a"_s);
            row("no room for a line end", limit - 1, 0, u"\r\na"_s, QString());
            row("selection makes room", limit, 2, u"abc"_s, u"ab"_s);
            row("selection stays if nothing fits", limit, 1, u"\n"_s, u"x"_s);
        }
        QTest::newRow("type: the last one") << u"type"_s << limit - 1 << 0 << u"a"_s << u"a"_s;
        QTest::newRow("type: one too many") << u"type"_s << limit - 1 << 0 << u"ab"_s << u"a"_s;
        QTest::newRow("type: full") << u"type"_s << limit << 0 << u"a"_s << QString();
        QTest::newRow("type: selection") << u"type"_s << limit << 3 << u"abcd"_s << u"abc"_s;
        QTest::newRow("type: line end") << u"type"_s << limit - 2 << 0 << u"\r"_s << u"\r\n"_s;
        QTest::newRow("type: half") << u"type"_s << limit - 1 << 0 << u"\r"_s << QString();
        QTest::newRow("type: replaced by line end")
            << u"type"_s << limit << 2 << u"\r"_s << u"\r\n"_s;
        QTest::newRow("type: nothing for it") << u"type"_s << limit << 1 << u"\r"_s << u"x"_s;
    }
    void limitAtEveryWayIn()
    {
        QFETCH(const QString, way);
        QFETCH(const int, filled);
        QFETCH(const int, selected);
        QFETCH(const QString, given);
        QFETCH(const QString, taken);
        const QString text = lines(filled);
        m_board->setText(text);
        m_board->setSelStart(1000);
        m_board->setSelLength(selected);
        m_board->ensureCursorVisible();
        QSignalSpy changes(m_board, &TextBoard::Change);

        if (way == u"type"_s) {
            for (const QChar c : given)
                QTest::sendKeyEvent(QTest::Click, m_board, c == u'\r' ? Qt::Key_Return : Qt::Key_A,
                                    c, Qt::NoModifier);
        } else if (way == u"code"_s) {
            m_board->setSelText(given);
        } else if (way == u"paste"_s) {
            paste(given);
        } else if (way == u"menu"_s) {
            QApplication::clipboard()->setText(given);
            contextMenu("edit-paste");
        } else if (way == u"drop"_s) {
            drop(given);
        } else {
            commit(given);
        }

        QString expected = text;
        expected.replace(1000, selected, taken);
        QCOMPARE(m_board->TextLength(), expected.size());
        QCOMPARE(m_board->Text(), expected);
        QCOMPARE(changes.isEmpty(), expected == text);
        if (expected == text)
            QCOMPARE(m_board->SelLength(), selected);
        else
            QCOMPARE(m_board->SelStart(), 1000 + taken.size());
    }

    void limitOfTheWholeText()
    {
        m_board->setText(lines(limit) + u"x"_s);
        QCOMPARE(m_board->Text(), lines(limit));
        m_board->setText(u"x"_s + lines(limit - 2) + u"\r\n"_s);
        QCOMPARE(m_board->Text(), u"x"_s + lines(limit - 2));
        m_board->setText(lines(limit - 2) + u"\n"_s);
        QCOMPARE(m_board->TextLength(), limit);
    }

    void commitReplacesWhatItNames()
    {
        m_board->setText(lines(limit));
        m_board->setSelStart(limit);
        commit(u"abc"_s, -2, 2);
        QCOMPARE(m_board->Text(), lines(limit - 2) + u"ab"_s);
        commit(u"\n"_s, -1, 1);
        QCOMPARE(m_board->Text(), lines(limit - 2) + u"ab"_s);
    }

    void dragWithinTheFullBoard()
    {
        m_board->setText(u"abc def\r\n"_s + lines(limit - 9));
        m_board->setSelStart(2);
        m_board->setSelLength(10);
        QSignalSpy changes(m_board, &TextBoard::Change);
        const QString moved = m_board->SelText();
        QCOMPARE(moved, u"c def\r\nxxx"_s);
        const auto place = [this](int position) {
            QTextCursor cursor(m_board->document());
            cursor.setPosition(position);
            const QPoint inside = m_board->cursorRect(cursor).center();
            return m_board->viewport()->mapTo(m_window.get(), inside);
        };
        // The drag runs an event loop of its own, in which the rest of the gesture has to come.
        QWindow *window = m_window->windowHandle();
        const QPoint from = place(4);
        const QPoint to = place(0);
        QTimer rest;
        connect(&rest, &QTimer::timeout, this, [&] {
            if (!m_board->viewport()->findChild<QDrag *>())
                return;
            rest.stop();
            QTest::mouseMove(window, to);
            QTest::mouseRelease(window, Qt::LeftButton, {}, to);
        });
        rest.start(0);
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        QTest::mouseMove(window, from + QPoint(0, 2 * QApplication::startDragDistance()));
        QTRY_COMPARE(changes.size(), 1);
        QCOMPARE(m_board->TextLength(), limit);
        QCOMPARE(m_board->Text().left(25), u"c def\r\nxxxab"_s + letters(13));
        m_board->undo();
        QCOMPARE(m_board->Text().left(12), u"abc def\r\nxxx"_s);
    }

    void cutDropLeavesItsSourceAlone()
    {
        m_board->setText(lines(limit - 1));
        QCOMPARE(drop(u"ab"_s), Qt::CopyAction);
        m_board->setText(lines(limit - 2));
        QCOMPARE(drop(u"ab"_s), Qt::MoveAction);
    }

    // Undo

    void undoAndRedo()
    {
        m_board->setText(u"start "_s + lines(limit - 9));
        QVERIFY(!m_board->document()->isUndoAvailable());
        m_board->setSelStart(6);
        QTest::keyClicks(m_board, u"abcdef"_s);
        QCOMPARE(m_board->TextLength(), limit);
        QTest::keyClick(m_board, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_board->TextLength(), limit - 3);
        QTest::keyClick(m_board, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(m_board->Text().left(10), u"start abcx"_s);
        QCOMPARE(m_board->TextLength(), limit);

        m_board->setSelStart(0);
        m_board->setSelLength(5);
        m_board->setSelText(u"begin and more"_s);
        QCOMPARE(m_board->Text().left(10), u"begin abcx"_s);
        QTest::keyClick(m_board, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_board->Text().left(10), u"start abcx"_s);
        QTest::keyClick(m_board, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(m_board->Text().left(10), u"begin abcx"_s);
        QCOMPARE(m_board->TextLength(), limit);

        m_board->setText(u"new"_s);
        QTest::keyClick(m_board, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_board->Text(), u"new"_s);
    }

    // Keys

    void keysOfTheWindow_data()
    {
        QTest::addColumn<QKeySequence>("keys");
        for (const char *keys : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A", "Shift+Del", "Ctrl+Ins",
                                 "Shift+Ins", "Ctrl+D", "Ctrl+B", "Ctrl+I", "Ctrl+U", "Ctrl+K",
                                 "Ctrl+F", "Ctrl+L", "Ctrl+S", "Ctrl+E", "Ctrl+H"})
            QTest::newRow(keys) << QKeySequence(QString::fromLatin1(keys));
    }
    void keysOfTheWindow()
    {
        QFETCH(const QKeySequence, keys);
        m_board->setText(u"one two"_s);
        m_board->setSelStart(4);
        m_board->setSelLength(2);
        QApplication::clipboard()->setText(u"clip"_s);
        const QKeyCombination key = keys[0];
        const auto press = [&] {
            QTest::sendKeyEvent(QTest::Click, m_window->windowHandle(), key.key(),
                                QString(QChar(key.key() & 0x1F)), key.keyboardModifiers());
        };
        Listener listener;
        m_window->installEventFilter(&listener);
        press();
        QCOMPARE(listener.keys.value(1), key.key()); // after the modifier

        QShortcut shortcut(keys, m_window.get());
        QSignalSpy fired(&shortcut, &QShortcut::activated);
        press();
        QCOMPARE(fired.size(), 1);

        QCOMPARE(m_board->Text(), u"one two"_s);
        QCOMPARE(m_board->SelText(), u"tw"_s);
        QCOMPARE(QApplication::clipboard()->text(), u"clip"_s);
    }

    void keysOfTheBoard_data()
    {
        QTest::addColumn<QKeySequence>("keys");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("caret");
        QTest::newRow("Del") << QKeySequence(Qt::Key_Delete) << u"one to three"_s << 5;
        QTest::newRow("Backspace") << QKeySequence(Qt::Key_Backspace) << u"one wo three"_s << 4;
        QTest::newRow("Ctrl+Right") << QKeySequence(u"Ctrl+Right"_s) << u"one two three"_s << 8;
        QTest::newRow("Ctrl+End") << QKeySequence(u"Ctrl+End"_s) << u"one two three"_s << 13;
        QTest::newRow("Ctrl+Z") << QKeySequence(u"Ctrl+Z"_s) << u"one  three"_s << 4;
    }
    void keysOfTheBoard()
    {
        QFETCH(const QKeySequence, keys);
        QFETCH(const QString, text);
        QFETCH(const int, caret);
        m_board->setText(u"one  three"_s);
        m_board->setSelStart(4);
        QTest::keyClicks(m_board, u"two"_s);
        m_board->setSelStart(5);
        QShortcut shortcut(keys, m_window.get());
        QSignalSpy fired(&shortcut, &QShortcut::activated);
        QTest::keySequence(m_window->windowHandle(), keys);
        QCOMPARE(fired.size(), 0);
        QCOMPARE(m_board->Text(), text);
        QCOMPARE(m_board->SelStart(), caret);
    }

    void tabMovesOn()
    {
        m_board->setText(u"a\tb"_s);
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QVERIFY(m_next->hasFocus());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(m_board->hasFocus());
        QCOMPARE(m_board->Text(), u"a\tb"_s);
    }

    // What is told

    void changeIsTold()
    {
        int changes = 0;
        QString seen;
        connect(m_board, &TextBoard::Change, this, [&] {
            ++changes;
            seen = m_board->Text();
        });
        const auto told = [&] { return std::exchange(changes, 0); };

        m_board->setText(u"abc"_s);
        QCOMPARE(told(), 1);
        m_board->setText(u"abc"_s);
        QCOMPARE(told(), 1);
        m_board->setSelText(u"d"_s);
        QCOMPARE(told(), 1);
        QCOMPARE(seen, u"dabc"_s);
        m_board->setSelText(QString());
        QCOMPARE(told(), 0);
        m_board->selectAll();
        QTest::keyClick(m_board, Qt::Key_E);
        QCOMPARE(told(), 1);
        QCOMPARE(seen, u"e"_s);
        QTest::keyClick(m_board, Qt::Key_Return);
        QTest::keyClick(m_board, Qt::Key_Left);
        QCOMPARE(told(), 1);
        m_board->undo();
        QCOMPARE(told(), 1);
        m_board->redo();
        QCOMPARE(told(), 1);

        QInputMethodEvent composing(u"^"_s, {});
        QApplication::sendEvent(m_board, &composing);
        QCOMPARE(told(), 0);
        QCOMPARE(m_board->Text(), u"e\r\n"_s);
        commit(u"\u00ea"_s);
        QCOMPARE(told(), 1);

        m_board->setFontName(u"Some Family"_s);
        m_board->setFontSize(20);
        m_board->setFontBold(true);
        m_board->setFontUnderline(true);
        m_board->setForeColor(Qt::red);
        m_board->setAlignment(2);
        m_board->grab();
        QCOMPARE(told(), 0);
        m_board->setText(QString());
        m_board->setText(QString());
        QCOMPARE(told(), 2);
    }

    void keyAndMouseAreTold()
    {
        QSignalSpy keys(m_board, &TextBoard::KeyUp);
        QSignalSpy clicks(m_board, &TextBoard::MouseUp);
        QTest::keyClick(m_board, Qt::Key_Right);
        QTest::mouseClick(m_board->viewport(), Qt::LeftButton);
        QCOMPARE(keys.size(), 1);
        QCOMPARE(clicks.size(), 1);
    }

    // Looks

    void builtInStyles()
    {
        QStringList asked;
        Board board(nullptr, [&](const QString &name) {
            asked += name;
            return BoardFont{QFont(name), name == u"Heavy"_s, name == u"Slanted"_s};
        });
        board.setFontName(u"Plain"_s);
        board.setFontName(u"Plain"_s);
        QVERIFY(!board.FontBold() && !board.FontItalic());
        board.setFontBold(true);
        board.setFontItalic(true);
        QVERIFY(board.FontBold() && board.FontItalic());
        QVERIFY(board.font().bold() && board.font().italic());
        board.setFontName(u"Heavy"_s);
        board.setFontBold(false);
        QVERIFY(board.FontBold() && board.FontItalic());
        board.setFontBold(true);
        QVERIFY(!board.font().bold() && board.font().italic());
        board.setFontName(u"Slanted"_s);
        QVERIFY(board.font().bold() && !board.font().italic());
        QVERIFY(board.font().styleStrategy() & QFont::NoFontMerging);
        QCOMPARE(asked, QStringList({u"Plain"_s, u"Heavy"_s, u"Slanted"_s}));
    }

    void fontIsTheBoardsOwn()
    {
        m_board->setFontSize(20);
        m_board->setFontStrikethru(true);
        m_board->setFontSize(0);
        QFont other = m_window->font();
        other.setBold(true);
        other.setUnderline(true);
        other.setPointSize(7);
        m_window->setFont(other);
        const QFont shown = m_board->document()->defaultFont();
        QCOMPARE(shown.pointSizeF(), 20.0);
        QVERIFY(shown.strikeOut() && !shown.bold() && !shown.underline());
        QCOMPARE(m_board->FontSize(), 20.0);
        m_board->undo();
        QCOMPARE(m_board->FontSize(), 20.0);
    }

    void alignmentIsSeen()
    {
        m_board->setText(u"i"_s);
        const int width = m_board->viewport()->width();
        QVERIFY(m_board->cursorRect().x() < width / 8);
        m_board->setAlignment(1);
        QVERIFY(m_board->cursorRect().x() > width * 7 / 8);
        m_board->setAlignment(2);
        QVERIFY(qAbs(m_board->cursorRect().x() - width / 2) < width / 8);
        m_board->setAlignment(3);
        QCOMPARE(m_board->Alignment(), 2);
        m_board->setText(u"j"_s);
        QVERIFY(qAbs(m_board->cursorRect().x() - width / 2) < width / 8);
        m_board->setAlignment(0);
        QVERIFY(m_board->cursorRect().x() < width / 8);
    }

    void colourAndSelectionAreSeen()
    {
        QPalette colors = m_board->palette();
        colors.setColor(QPalette::Highlight, Qt::yellow);
        colors.setColor(QPalette::HighlightedText, Qt::yellow);
        m_board->setPalette(colors);
        m_board->setForeColor(Qt::red);
        QCOMPARE(m_board->ForeColor(), QColor(Qt::red));
        m_board->setText(u"\u2014\u2014\u2014\u2014"_s);
        m_board->setFontSize(36);
        const auto shows = [this](const QColor &color) {
            const QImage image = m_board->viewport()->grab().toImage();
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (image.pixelColor(x, y) == color)
                        return true;
            return false;
        };
        QVERIFY(shows(Qt::red) && !shows(Qt::yellow));
        m_board->selectAll();
        m_next->setFocus();
        QVERIFY(shows(Qt::yellow) && !shows(Qt::red));
    }

private:
    /// Notes the keys that come up to the window.
    struct Listener : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::KeyPress)
                keys += static_cast<QKeyEvent *>(event)->key();
            return false;
        }
        QList<int> keys;
    };

    void commit(const QString &text, int from = 0, int replaced = 0)
    {
        QInputMethodEvent event;
        event.setCommitString(text, from, replaced);
        QApplication::sendEvent(m_board, &event);
    }

    void paste(const QString &text)
    {
        QMimeData mime;
        mime.setText(text);
        m_board->insertFromMimeData(&mime);
    }

    /// Drops text from elsewhere at the caret; gives the action that its source is told.
    Qt::DropAction drop(const QString &text)
    {
        QMimeData mime;
        mime.setText(text);
        QDragEnterEvent enter(m_board->cursorRect().center(), Qt::CopyAction | Qt::MoveAction,
                              &mime, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(m_board->viewport(), &enter);
        QDropEvent event(m_board->cursorRect().center(), Qt::CopyAction | Qt::MoveAction, &mime,
                         Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(m_board->viewport(), &event);
        return event.dropAction();
    }

    void contextMenu(const char *name)
    {
        const std::unique_ptr<QMenu> menu(m_board->createStandardContextMenu());
        auto *action = menu->findChild<QAction *>(QString::fromLatin1(name));
        QVERIFY(action && action->isEnabled());
        action->trigger();
    }

    std::unique_ptr<QWidget> m_window;
    Board *m_board = nullptr;
    QWidget *m_next = nullptr;
};

QTEST_MAIN(tst_TextBoard)
#include "tst_textboard.moc"
