// The message dialog, worked as a person works it: its buttons, keys, close box and check box, the
// first focus and its places.
#include "tests/support/MainWindow.h"

#include "core/Message.h"

#include <QCheckBox>
#include <QPushButton>

namespace {

/// What a test does to the open dialog.
using Use = std::function<void(Message &)>;

void click(QWidget *control)
{
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, 8));
}

Use press(Qt::Key key)
{
    return [key](Message &dialog) { QTest::keyClick(dialog.focusWidget(), key); };
}

/// A key that is held down from before the message came.
Use held(Qt::Key key)
{
    return [key](Message &dialog) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, "x", true);
        QApplication::sendEvent(dialog.focusWidget(), &repeated);
    };
}

/// Shows a message, works it, and waits until it is closed.
void show(const QString &buttons, const Use &use, bool showCheck = false, int defaultButton = 1,
          const QString &text = "\r\rText")
{
    SysInfo screen;
    screen.pretend(SysInfo::Screen{{1280, 1024}, {}, 96});
    Answers answers;
    answers.dialog("Zendova Title", [&](QDialog *dialog) {
        auto *message = qobject_cast<Message *>(dialog);
        QVERIFY(message);
        QVERIFY(message->isModal());
        use(*message);
        if (message->isVisible())
            message->done(QDialog::Rejected);
    });
    ZndvMsg(text, buttons, "Zendova Title", showCheck, defaultButton);
    QVERIFY(answers.allCame());
}

} // namespace

Q_DECLARE_METATYPE(Use)

class TestMessage : public QObject
{
    Q_OBJECT

private slots:
    void answers_data()
    {
        QTest::addColumn<QString>("buttons");
        QTest::addColumn<Use>("use");
        QTest::addColumn<bool>("closes");
        QTest::addColumn<bool>("result");
        const Use first = [](Message &dialog) { click(dialog.Button1); };
        const Use second = [](Message &dialog) { click(dialog.Button2); };
        const Use closeBox = [](Message &dialog) { dialog.close(); };
        const auto row = [](const char *label, const char *buttons, const Use &use, bool closes,
                            bool result = false) {
            QTest::newRow(label) << buttons << use << closes << result;
        };
        row("Ok", "OK", first, true, true);
        row("close box of a notice", "OK", closeBox, true);
        row("letter in a notice", "OK", press(Qt::Key_Z), true);
        row("space in a notice", "OK", press(Qt::Key_Space), true);
        row("Esc in a notice", "OK", press(Qt::Key_Escape), true);
        row("Shift in a notice", "OK", press(Qt::Key_Shift), false);
        row("Left in a notice", "OK", press(Qt::Key_Left), false);
        row("Tab in a notice", "OK", press(Qt::Key_Tab), false);
        row("held key in a notice", "OK", held(Qt::Key_Z), false);
        row("held Enter in a question", "YN", held(Qt::Key_Return), false);
        row("Yes", "YN", first, true, true);
        row("No", "YN", second, true);
        row("close box of a question", "YN", closeBox, true);
        row("space on Yes", "YN", press(Qt::Key_Space), true, true);
        row("y in a question", "YN", press(Qt::Key_Y), false);
        row("Esc in a question", "YN", press(Qt::Key_Escape), false);
    }

    void answers()
    {
        QFETCH(QString, buttons);
        QFETCH(Use, use);
        QFETCH(bool, closes);
        MsgResult = true;
        show(buttons, [&](Message &dialog) {
            use(dialog);
            QCOMPARE(dialog.isVisible(), !closes);
        });
        QTEST(MsgResult, "result");
    }

    void dontRepeat()
    {
        for (const int clicks : {1, 0, 2}) { // each call begins anew
            const auto use = [=](Message &dialog) {
                QVERIFY(dialog.DisplayAgainCheck->isVisible());
                QVERIFY(!dialog.DisplayAgainCheck->isChecked());
                for (int i = 0; i < clicks; ++i)
                    click(dialog.DisplayAgainCheck);
                QTest::keyClick(dialog.DisplayAgainCheck, Qt::Key_Escape);
                QVERIFY(dialog.isVisible());
                click(dialog.Button2);
            };
            show("YN", use, true);
            QCOMPARE(MsgDontRepeat, clicks == 1);
        }
        show("YN", [](Message &dialog) { QVERIFY(!dialog.DisplayAgainCheck->isVisible()); });
    }

    void firstFocus()
    {
        for (const int defaultButton : {1, 2}) {
            const auto use = [=](Message &dialog) {
                QApplication::setActiveWindow(&dialog);
                const QPushButton *first = defaultButton == 1 ? dialog.Button1 : dialog.Button2;
                const QPushButton *other = defaultButton == 1 ? dialog.Button2 : dialog.Button1;
                for (const QWidget *next : {first, other, first}) {
                    QCOMPARE(dialog.focusWidget(), next);
                    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
                }
            };
            show("YN", use, false, defaultButton);
        }
    }

    void places()
    {
        show("OK", [](Message &dialog) {
            QCOMPARE(dialog.Button1->text(), QString("Ok"));
            QCOMPARE(dialog.Button1->pos() * 15, QPoint(4140, 1950));
            QVERIFY(!dialog.Button2->isVisible());
        });
        // Whatever is told, nothing moves or is taken for markup.
        for (const QString &text : {QString("One more line\r").repeated(60), QString(2000, 'W'),
                                    QString("\r\r<b>no markup</b> & no entity")}) {
            const auto use = [text](Message &dialog) {
                QCOMPARE(dialog.MessageArea->textFormat(), Qt::PlainText);
                // Long words have invisible places to break a line.
                QCOMPARE(dialog.MessageArea->text().remove(QChar(0x200B)),
                         QString(text).replace('\r', '\n'));
                QCOMPARE(dialog.MessageArea->text().contains(QChar(0x200B)), text.contains("WW"));
                QCOMPARE(dialog.size() * 15, QSize(5475, 2310));
                QCOMPARE(dialog.MessageArea->size() * 15, QSize(5445, 1845));
                QCOMPARE(dialog.Button1->text(), QString("Yes"));
                QCOMPARE(dialog.Button2->text(), QString("No"));
                QCOMPARE(dialog.Button1->pos() * 15, QPoint(2790, 1950));
                QCOMPARE(dialog.Button2->pos() * 15, QPoint(4140, 1950));
            };
            show("YN", use, false, 1, text);
        }
    }
};

ZENDOVA_WINDOW_TEST(TestMessage)

#include "tst_message.moc"
