// Alt codes typed into a real window: what goes in, what cancels, and who else hears of the keys.
#include "platform/CodePage.h"
#include "platform/controls/AltCode.h"
#include "textboard/TextBoard.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

namespace {

class Window : public QMainWindow
{
public:
    Window()
    {
        auto *content = new QWidget;
        auto *column = new QVBoxLayout(content);
        for (QWidget *widget : std::initializer_list<QWidget *>{&board, &line, &combo, &spin})
            column->addWidget(widget);
        combo.setEditable(true);
        setCentralWidget(content);
        menu = menuBar()->addMenu(QStringLiteral("&File"));
        menu->addAction(QStringLiteral("&Open"));
    }

    void hold(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QTest::simulateEvent(windowHandle(), true, key, modifiers, QString(), false);
    }
    void letGo(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QTest::simulateEvent(windowHandle(), false, key, modifiers, QString(), false);
    }
    void digits(const QString &digits, Qt::KeyboardModifiers modifiers = Qt::KeypadModifier)
    {
        for (const QChar digit : digits) {
            const auto key = static_cast<Qt::Key>(digit.unicode());
            const auto held = Qt::AltModifier | modifiers;
            QTest::simulateEvent(windowHandle(), true, key, held, QString(digit), false);
            QTest::simulateEvent(windowHandle(), false, key, held, QString(digit), false);
        }
    }
    void code(const QString &number)
    {
        hold(Qt::Key_Alt, Qt::NoModifier);
        digits(number);
        letGo(Qt::Key_Alt, Qt::AltModifier);
    }

    TextBoard board;
    QLineEdit line;
    QComboBox combo;
    QSpinBox spin;
    QMenu *menu;
};

} // namespace

class tst_AltCode : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_window = std::make_unique<Window>();
        m_filter = std::make_unique<AltCode>(
            [](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
        qApp->installEventFilter(m_filter.get());
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_window->board.setFocus();
    }

    void cleanup()
    {
        m_filter.reset();
        m_window.reset();
    }

    void inserts_data()
    {
        QTest::addColumn<QString>("digits");
        QTest::addColumn<QString>("text");
        QTest::newRow("first") << "0032"
                               << " ";
        QTest::newRow("last") << "0255" << QString(QChar(255));
        QTest::newRow("letter") << "0065"
                                << "A";
        QTest::newRow("no-break space") << "0160" << QString(QChar(160));
        QTest::newRow("delete") << "0127" << QString(QChar(127));
        QTest::newRow("euro") << "0128" << QString(QChar(0x20AC));
        QTest::newRow("undefined in the code page") << "0129" << QString(QChar(129));
        QTest::newRow("below") << "0031"
                               << "";
        QTest::newRow("above") << "0256"
                               << "";
        QTest::newRow("no leading 0") << "1065"
                                      << "";
        QTest::newRow("three digits") << "065"
                                      << "";
        QTest::newRow("five digits") << "00065"
                                     << "";
        QTest::newRow("none") << ""
                              << "";
    }
    void inserts()
    {
        QFETCH(const QString, digits);
        QFETCH(const QString, text);
        m_window->code(digits);
        QCOMPARE(m_window->board.Text(), text);
    }

    void everyTextBox()
    {
        Window &w = *m_window;
        w.board.setText(QStringLiteral("abc"));
        w.board.setSelStart(1);
        w.board.setSelLength(1);
        w.code(QStringLiteral("0233"));
        QCOMPARE(w.board.Text(), QStringLiteral("a\u00e9c"));
        QCOMPARE(w.board.SelStart(), 2);

        w.line.setMaxLength(1);
        w.line.setFocus();
        w.code(QStringLiteral("0065"));
        w.code(QStringLiteral("0066"));
        QCOMPARE(w.line.text(), QStringLiteral("A"));

        w.combo.setFocus();
        w.code(QStringLiteral("0065"));
        QCOMPARE(w.combo.currentText(), QStringLiteral("A"));

        w.line.clear();
        w.line.setReadOnly(true);
        w.line.setFocus();
        w.code(QStringLiteral("0065"));
        QCOMPARE(w.line.text(), QString());
    }

    void digitRowAndPadWithoutNumLock()
    {
        Window &w = *m_window;
        w.hold(Qt::Key_Alt, Qt::NoModifier);
        w.digits(QStringLiteral("0233"), Qt::NoModifier);
        w.letGo(Qt::Key_Alt, Qt::AltModifier);
        w.hold(Qt::Key_Alt, Qt::NoModifier);
        for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageUp})
            w.hold(key, Qt::AltModifier | Qt::KeypadModifier);
        w.letGo(Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(w.board.Text(), QStringLiteral("\u00e9\u00ef"));
    }

    void cancelledByAnotherKey()
    {
        Window &w = *m_window;
        w.hold(Qt::Key_Alt, Qt::NoModifier);
        w.digits(QStringLiteral("006"));
        w.hold(Qt::Key_Right, Qt::AltModifier);
        w.letGo(Qt::Key_Right, Qt::AltModifier);
        w.digits(QStringLiteral("5"));
        w.letGo(Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(w.board.Text(), QString());
        w.hold(Qt::Key_Alt, Qt::NoModifier);
        w.digits(QStringLiteral("0065"));
        w.hold(Qt::Key_Right, Qt::AltModifier);
        w.letGo(Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(w.board.Text(), QString());
        w.code(QStringLiteral("0065"));
        QCOMPARE(w.board.Text(), QStringLiteral("A"));
    }

    void cancelledByLossOfFocus()
    {
        Window &w = *m_window;
        w.hold(Qt::Key_Alt, Qt::NoModifier);
        w.digits(QStringLiteral("0065"));
        w.line.setFocus();
        w.board.setFocus();
        w.letGo(Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(w.board.Text() + w.line.text(), QString());
    }

    void mnemonicsStayQuiet()
    {
        Window &w = *m_window;
        QShortcut shortcut(QKeySequence(QStringLiteral("Alt+0")), &w);
        QSignalSpy fired(&shortcut, &QShortcut::activated);
        w.code(QStringLiteral("0065"));
        QCOMPARE(fired.size(), 0);
        w.spin.setFocus();
        w.spin.setReadOnly(true);
        w.digits(QStringLiteral("0"), Qt::NoModifier);
        QCOMPARE(fired.size(), 1);
    }

    void menuBarStaysClosed()
    {
        Window &w = *m_window;
        w.code(QStringLiteral("0065"));
        QVERIFY(w.board.hasFocus());
        QCOMPARE(w.board.Text(), QStringLiteral("A"));
        // Alt alone still goes to the menu bar.
        w.code(QString());
        QVERIFY(!w.board.hasFocus());
    }

private:
    std::unique_ptr<Window> m_window;
    std::unique_ptr<AltCode> m_filter;
};

QTEST_MAIN(tst_AltCode)
#include "tst_altcode.moc"
