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
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class tst_AltCode : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_window = std::make_unique<QMainWindow>();
        auto *content = new QWidget;
        auto *column = new QVBoxLayout(content);
        column->addWidget(m_board = new TextBoard);
        column->addWidget(m_line = new QLineEdit);
        column->addWidget(m_combo = new QComboBox);
        m_combo->setEditable(true);
        m_window->setCentralWidget(content);
        m_window->menuBar()->addMenu(u"&File"_s)->addAction(u"&Open"_s);
        m_filter = std::make_unique<AltCode>(
            [](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
        qApp->installEventFilter(m_filter.get());
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_board->setFocus();
    }
    void cleanup()
    {
        m_filter.reset();
        m_window.reset();
    }

    void codes()
    {
        const std::pair<QString, QString> rows[] = {
            {u"0032"_s, u" "_s},      {u"0255"_s, u"\u00FF"_s}, {u"0128"_s, u"\u20AC"_s},
            {u"0129"_s, u"\u0081"_s}, {u"0031"_s, QString()},   {u"0256"_s, QString()},
            {u"1065"_s, QString()},   {u"065"_s, QString()},    {u"00065"_s, QString()},
        };
        for (const auto &[digits, text] : rows) {
            m_board->setText(QString());
            code(digits);
            QVERIFY2(m_board->Text() == text, qPrintable(digits));
        }
        // The digits above the letters, and the pad without Num Lock: 0, 2, 3, 9.
        m_board->setText(QString());
        code(u"0233"_s, Qt::NoModifier);
        key(true, Qt::Key_Alt, Qt::NoModifier);
        for (const int pad : {Qt::Key_Insert, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageUp})
            key(true, pad, Qt::AltModifier | Qt::KeypadModifier);
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(m_board->Text(), u"\u00E9\u00EF"_s);
    }

    void everyTextBox()
    {
        m_board->setText(u"abc"_s);
        m_board->setSelStart(1);
        m_board->setSelLength(1);
        code(u"0233"_s);
        QCOMPARE(m_board->Text(), u"a\u00E9c"_s);
        m_line->setMaxLength(1);
        m_line->setFocus();
        code(u"0065"_s);
        code(u"0066"_s);
        QCOMPARE(m_line->text(), u"A"_s);
        m_combo->setFocus();
        code(u"0065"_s);
        QCOMPARE(m_combo->currentText(), u"A"_s);
    }

    void cancelled()
    {
        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits(u"006"_s);
        key(true, Qt::Key_Right, Qt::AltModifier);
        digits(u"5"_s);
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(m_board->Text(), QString());

        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits(u"0065"_s);
        m_line->setFocus();
        m_board->setFocus();
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(m_board->Text() + m_line->text(), QString());
        code(u"0065"_s);
        QCOMPARE(m_board->Text(), u"A"_s);
    }

    void shortcutsAndMenuBarStayQuiet()
    {
        const QShortcut shortcut(QKeySequence(u"Alt+0"_s), m_window.get());
        const QSignalSpy fired(&shortcut, &QShortcut::activated);
        code(u"0065"_s);
        QCOMPARE(fired.size(), 0);
        QVERIFY(m_board->hasFocus());
        // Alt alone still goes to the menu bar, and a box that takes no text leaves it the digits.
        code(QString());
        QVERIFY(!m_board->hasFocus());
        m_line->setFocus();
        m_line->setReadOnly(true);
        code(u"0"_s, Qt::NoModifier);
        QCOMPARE(fired.size(), 1);
    }

private:
    void key(bool press, int key, Qt::KeyboardModifiers modifiers, const QString &text = {})
    {
        QTest::simulateEvent(m_window->windowHandle(), press, key, modifiers, text, false);
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

    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<AltCode> m_filter;
    TextBoard *m_board = nullptr;
    QLineEdit *m_line = nullptr;
    QComboBox *m_combo = nullptr;
};

QTEST_MAIN(tst_AltCode)
#include "tst_altcode.moc"
