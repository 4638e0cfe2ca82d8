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

class TestAltCode : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Window = std::make_unique<QMainWindow>();
        auto *content = new QWidget;
        auto *column = new QVBoxLayout(content);
        column->addWidget(Board = new TextBoard);
        column->addWidget(Line = new QLineEdit);
        column->addWidget(Combo = new QComboBox);
        Combo->setEditable(true);
        Window->setCentralWidget(content);
        Window->menuBar()->addMenu(u"&File"_s)->addAction(u"&Open"_s);
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
        const std::pair<QString, QString> rows[] = {
            {u"0032"_s, u" "_s},      {u"0255"_s, u"\u00FF"_s}, {u"0128"_s, u"\u20AC"_s},
            {u"0129"_s, u"\u0081"_s}, {u"0031"_s, QString()},   {u"0256"_s, QString()},
            {u"1065"_s, QString()},   {u"065"_s, QString()},    {u"00065"_s, QString()},
        };
        for (const auto &[digits, text] : rows) {
            Board->setText(QString());
            code(digits);
            QVERIFY2(Board->Text() == text, qPrintable(digits));
        }
        // The digits above the letters, and the pad without Num Lock: 0, 2, 3, 9.
        Board->setText(QString());
        code(u"0233"_s, Qt::NoModifier);
        key(true, Qt::Key_Alt, Qt::NoModifier);
        for (const int pad : {Qt::Key_Insert, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageUp})
            key(true, pad, Qt::AltModifier | Qt::KeypadModifier);
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text(), u"\u00E9\u00EF"_s);
    }

    void everyTextBox()
    {
        Board->setText(u"abc"_s);
        Board->setSelStart(1);
        Board->setSelLength(1);
        code(u"0233"_s);
        QCOMPARE(Board->Text(), u"a\u00E9c"_s);
        Line->setMaxLength(1);
        Line->setFocus();
        code(u"0065"_s);
        code(u"0066"_s);
        QCOMPARE(Line->text(), u"A"_s);
        Combo->setFocus();
        code(u"0065"_s);
        QCOMPARE(Combo->currentText(), u"A"_s);
    }

    void cancelled()
    {
        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits(u"006"_s);
        key(true, Qt::Key_Right, Qt::AltModifier);
        digits(u"5"_s);
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text(), QString());

        key(true, Qt::Key_Alt, Qt::NoModifier);
        digits(u"0065"_s);
        Line->setFocus();
        Board->setFocus();
        key(false, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(Board->Text() + Line->text(), QString());
        code(u"0065"_s);
        QCOMPARE(Board->Text(), u"A"_s);
    }

    void shortcutsAndMenuBarStayQuiet()
    {
        const QShortcut shortcut(QKeySequence(u"Alt+0"_s), Window.get());
        const QSignalSpy fired(&shortcut, &QShortcut::activated);
        code(u"0065"_s);
        QCOMPARE(fired.size(), 0);
        QVERIFY(Board->hasFocus());
        // Alt alone still goes to the menu bar, and a box that takes no text leaves it the digits.
        code(QString());
        QVERIFY(!Board->hasFocus());
        Line->setFocus();
        Line->setReadOnly(true);
        code(u"0"_s, Qt::NoModifier);
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
    QComboBox *Combo = nullptr;
};

QTEST_MAIN(TestAltCode)
#include "tst_altcode.moc"
