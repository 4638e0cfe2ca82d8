// The message dialog, worked as a person works it: its buttons, keys, close box and check box, the
// first focus, its places, and the colours it wears.
#include "tests/support/MainWindow.h"
#include "tests/support/TestFonts.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/FontCatalog.h"
#include "platform/controls/CharCells.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

/// What a test does to the open dialog.
using Use = void (*)(Message &);

void click(QWidget *control)
{
    QTest::mouseClick(control, Qt::LeftButton);
}

void clickBox(Message &dialog)
{
    QTest::mouseClick(dialog.DisplayAgainCheck, Qt::LeftButton, {}, QPoint(8, 8));
}

QPoint placeOf(const QWidget *control)
{
    return control->pos() * 15;
}

} // namespace

Q_DECLARE_METATYPE(Use)

class TestMessage : public QObject
{
    Q_OBJECT

private slots:
    void answers_data();
    void answers();
    void keysThatClose_data();
    void keysThatClose();
    void escapeAnswersNothing();
    void dontRepeat_data();
    void dontRepeat();
    void firstFocus_data();
    void firstFocus();
    void places();
    void cutsLongText();
    void colors_data();
    void colors();

private:
    /// Shows a message, works it, and waits until it is closed.
    void show(Desktop &desktop, const QString &buttons, const std::function<void(Message &)> &use,
              bool showCheck = false, int defaultButton = 1, const QString &text = "\r\rText");
};

void TestMessage::show(Desktop &desktop, const QString &buttons,
                       const std::function<void(Message &)> &use, bool showCheck, int defaultButton,
                       const QString &text)
{
    desktop.Dialogs.dialog("Zendova Title", [&](QDialog *dialog) {
        auto *message = qobject_cast<Message *>(dialog);
        QVERIFY(message);
        QVERIFY(message->isModal());
        // As it is read: long words have invisible places to break a line.
        QCOMPARE(message->MessageArea->text().remove(QChar(0x200B)),
                 QString(text).replace('\r', '\n'));
        use(*message);
        if (message->isVisible())
            message->done(QDialog::Rejected);
    });
    ZndvMsg(text, buttons, "Zendova Title", showCheck, defaultButton);
    QVERIFY(desktop.Dialogs.allCame());
}

void TestMessage::answers_data()
{
    QTest::addColumn<QString>("buttons");
    QTest::addColumn<Use>("use");
    QTest::addColumn<bool>("result");
    const Use first = [](Message &dialog) { click(dialog.Button1); };
    const Use second = [](Message &dialog) { click(dialog.Button2); };
    const Use closeBox = [](Message &dialog) { dialog.close(); };
    const Use key = [](Message &dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_A); };
    const Use space = [](Message &dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Space); };
    QTest::newRow("Ok") << "OK" << first << true;
    QTest::newRow("key in a notice") << "OK" << key << false;
    QTest::newRow("space in a notice") << "OK" << space << false;
    QTest::newRow("close box of a notice") << "OK" << closeBox << false;
    QTest::newRow("Yes") << "YN" << first << true;
    QTest::newRow("No") << "YN" << second << false;
    QTest::newRow("space on Yes") << "YN" << space << true;
    QTest::newRow("close box of a question") << "YN" << closeBox << false;
}

void TestMessage::answers()
{
    QFETCH(QString, buttons);
    QFETCH(Use, use);
    QFETCH(bool, result);
    Desktop desktop;
    MsgResult = !result;
    MsgDontRepeat = true;
    show(desktop, buttons, [use](Message &dialog) {
        use(dialog);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(MsgResult, result);
    QCOMPARE(MsgDontRepeat, false);
    QCOMPARE(MsgOkMode, buttons == "OK");
}

void TestMessage::keysThatClose_data()
{
    QTest::addColumn<QString>("buttons");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("closes");
    QTest::newRow("letter") << "OK" << int(Qt::Key_Z) << true;
    QTest::newRow("digit") << "OK" << int(Qt::Key_1) << true;
    QTest::newRow("Esc") << "OK" << int(Qt::Key_Escape) << true;
    QTest::newRow("Shift") << "OK" << int(Qt::Key_Shift) << false;
    QTest::newRow("F5") << "OK" << int(Qt::Key_F5) << false;
    QTest::newRow("Left") << "OK" << int(Qt::Key_Left) << false;
    QTest::newRow("Tab") << "OK" << int(Qt::Key_Tab) << false;
    QTest::newRow("letter in a question") << "YN" << int(Qt::Key_Z) << false;
    QTest::newRow("y in a question") << "YN" << int(Qt::Key_Y) << false;
    QTest::newRow("Esc in a question") << "YN" << int(Qt::Key_Escape) << false;
}

void TestMessage::keysThatClose()
{
    QFETCH(QString, buttons);
    QFETCH(int, key);
    QFETCH(bool, closes);
    Desktop desktop;
    show(desktop, buttons, [=](Message &dialog) {
        QTest::keyClick(dialog.focusWidget(), static_cast<Qt::Key>(key));
        QCOMPARE(dialog.isVisible(), !closes);
    });
    QCOMPARE(MsgResult, false);
}

void TestMessage::escapeAnswersNothing()
{
    Desktop desktop;
    show(
        desktop, "YN",
        [](Message &dialog) {
            for (QWidget *control :
                 {static_cast<QWidget *>(dialog.Button1), static_cast<QWidget *>(dialog.Button2),
                  static_cast<QWidget *>(dialog.DisplayAgainCheck)}) {
                QTest::keyClick(control, Qt::Key_Escape);
                QVERIFY(dialog.isVisible());
            }
            click(dialog.Button1);
        },
        true);
    QCOMPARE(MsgResult, true);
}

void TestMessage::dontRepeat_data()
{
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("clicks");
    QTest::addColumn<bool>("result");
    QTest::newRow("not shown") << false << 0 << false;
    QTest::newRow("left alone") << true << 0 << false;
    QTest::newRow("ticked") << true << 1 << true;
    QTest::newRow("ticked and unticked") << true << 2 << false;
}

void TestMessage::dontRepeat()
{
    QFETCH(bool, shown);
    QFETCH(int, clicks);
    QFETCH(bool, result);
    Desktop desktop;
    for (int call = 1; call <= 2; ++call) { // a second call begins anew
        show(
            desktop, "YN",
            [=](Message &dialog) {
                QCOMPARE(dialog.DisplayAgainCheck->isVisible(), shown);
                QCOMPARE(dialog.DisplayAgainCheck->isChecked(), false);
                for (int i = 0; i < clicks; ++i)
                    clickBox(dialog);
                QVERIFY(dialog.isVisible());
                click(dialog.Button2);
            },
            shown);
        QCOMPARE(MsgDontRepeat, result);
        QCOMPARE(MsgResult, false);
    }
}

void TestMessage::firstFocus_data()
{
    QTest::addColumn<QString>("buttons");
    QTest::addColumn<int>("defaultButton");
    QTest::addColumn<QStringList>("tabOrder"); // from the control that has the focus first
    QTest::newRow("notice") << "OK" << 1 << QStringList{"Button1", "Button1"};
    QTest::newRow("first") << "YN" << 1 << QStringList{"Button1", "Button2", "Button1"};
    QTest::newRow("second") << "YN" << 2 << QStringList{"Button2", "Button1", "Button2"};
}

void TestMessage::firstFocus()
{
    QFETCH(QString, buttons);
    QFETCH(int, defaultButton);
    QFETCH(QStringList, tabOrder);
    Desktop desktop;
    show(
        desktop, buttons,
        [&](Message &dialog) {
            QApplication::setActiveWindow(&dialog);
            for (const QString &name : tabOrder) {
                QCOMPARE(dialog.focusWidget()->objectName(), name);
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            }
        },
        false, defaultButton);
}

void TestMessage::places()
{
    Desktop desktop;
    const QPoint first(2790, 1950);
    const QPoint second(4140, 1950);
    show(desktop, "OK", [=](Message &dialog) {
        QCOMPARE(dialog.size() * 15, QSize(5475, 2310));
        QCOMPARE(dialog.Button1->text(), QString("Ok"));
        QCOMPARE(placeOf(dialog.Button1), second);
        QVERIFY(!dialog.Button2->isVisible());
    });
    show(desktop, "YN", [=](Message &dialog) {
        QCOMPARE(dialog.Button1->text(), QString("Yes"));
        QCOMPARE(dialog.Button2->text(), QString("No"));
        QCOMPARE(placeOf(dialog.Button1), first);
        QCOMPARE(placeOf(dialog.Button2), second);
        QCOMPARE(placeOf(dialog.MessageArea), QPoint(15, 60));
        QCOMPARE(dialog.MessageArea->size() * 15, QSize(5445, 1845));
        QVERIFY(!dialog.MessageArea->geometry().intersects(dialog.Button1->geometry()));
    });
}

void TestMessage::cutsLongText()
{
    Desktop desktop;
    const auto check = [](Message &dialog) {
        QCOMPARE(dialog.size() * 15, QSize(5475, 2310));
        QCOMPARE(dialog.MessageArea->size() * 15, QSize(5445, 1845));
    };
    show(desktop, "YN", check, false, 1, QString("One more line\r").repeated(60));
    show(desktop, "YN", check, false, 1, QString(2000, 'W'));
    show(desktop, "YN", check, false, 1, "\r\r<b>no markup</b> & no entity");
}

void TestMessage::colors_data()
{
    QTest::addColumn<bool>("scheme");
    QTest::newRow("off") << false;
    QTest::newRow("on") << true;
}

void TestMessage::colors()
{
    QFETCH(bool, scheme);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->ForeColor = RGBValue(250, 240, 10);
    window->BackColor = RGBValue(0, 0, 200);
    window->ApplyFontMapColors(true, window->ForeColor, true, window->BackColor);
    if (window->DisplayCS->isChecked() != scheme)
        window->DisplayCS->trigger();
    show(desktop, "OK", [=](Message &dialog) {
        const QPalette palette = dialog.MessageArea->palette();
        QCOMPARE(palette.color(QPalette::WindowText) == QColor(250, 240, 10), scheme);
        const QImage picture = dialog.grab().toImage();
        QCOMPARE(picture.pixelColor(20, 115) == QColor(0, 0, 200), scheme);
        // The buttons keep their own.
        QVERIFY(picture.pixelColor(200, 140) != QColor(0, 0, 200));
    });
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestMessage test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_message.moc"
