// Alt codes typed into a real window: what goes in, what cancels, and who else hears of the keys.
#include "platform/CodePage.h"
#include "platform/controls/AltCode.h"
#include "textboard/TextBoard.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

class TestAltCode : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Window = std::make_unique<QMainWindow>();
        Window->setCentralWidget(Board = new TextBoard);
        Window->menuBar()->setCornerWidget(Line = new QLineEdit);
        Window->menuBar()->addMenu("&File")->addAction("&Open");
        Filter = std::make_unique<AltCode>(
            [](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
        qApp->installEventFilter(Filter.get());
        Window->show();
        Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(Window.get()));
        Board->setFocus();
    }
    void cleanup()
    {
        Filter.reset();
        Window.reset();
    }

    void codes()
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
        QCOMPARE(Board->Text(), QString("\u00E9\u00EF"));
    }

    void fullTextBox()
    {
        Line->setMaxLength(1);
        Line->setFocus();
        code("0065");
        code("0066");
        QCOMPARE(Line->text(), QString("A"));
    }

    void cancelled()
    {
        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits("006");
        key(true, Qt::Key_Right, Qt::AltModifier);
        digits("5");
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text(), QString());

        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits("0065");
        Line->setFocus();
        Board->setFocus();
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text() + Line->text(), QString());
        code("0065");
        QCOMPARE(Board->Text(), QString("A"));
    }

    void shortcutsAndMenuBarStayQuiet()
    {
        const QShortcut shortcut(QKeySequence("Alt+0"), Window.get());
        const QSignalSpy fired(&shortcut, &QShortcut::activated);
        code("0065");
        QCOMPARE(fired.size(), 0);
        QVERIFY(Board->hasFocus());
        // Alt alone still goes to the menu bar, and a box that takes no text leaves it the digits.
        code({});
        QVERIFY(!Board->hasFocus());
        Line->setFocus();
        Line->setReadOnly(true);
        code("0", Qt::NoModifier);
        QCOMPARE(fired.size(), 1);
    }

private:
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
    std::unique_ptr<AltCode> Filter;
    TextBoard *Board = nullptr;
    QLineEdit *Line = nullptr;
};

QTEST_MAIN(TestAltCode)
#include "tst_altcode.moc"
