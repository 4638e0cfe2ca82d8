// Dialogs alone, worked as a person works them: the message with its buttons, keys, close box and
// check box, its first focus and its places; the search of the font dialog.
#include "tests/support/MainWindow.h"

#include "core/Message.h"
#include "platform/controls/CmnDlg.h"

namespace {

using Use = std::function<void(Message &)>;

const auto click = [](QWidget *at) { QTest::mouseClick(at, Qt::LeftButton, {}, QPoint(8, 8)); };

Use press(Qt::Key key)
{
    return [key](Message &dialog) { QTest::keyClick(dialog.focusWidget(), key); };
}

Use held(Qt::Key key)
{
    return [key](Message &dialog) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, "x", true);
        QApplication::sendEvent(dialog.focusWidget(), &repeated);
    };
}

void show(const QString &buttons, const Use &use, bool showCheck = false, int defaultButton = 1,
          const QString &text = "\r\rText")
{
    SysInfo screen;
    screen.pretend(SysInfo::Screen{{1280, 1024}, {}, 96});
    Answers answers;
    answers.dialog("Zendova Title", [&](QDialog *dialog) {
        auto *message = qobject_cast<Message *>(dialog);
        QVERIFY(message && message->isModal());
        use(*message);
        if (message->isVisible())
            message->done(QDialog::Rejected);
    });
    ZndvMsg(text, buttons, "Zendova Title", showCheck, defaultButton);
    QVERIFY(answers.allCame());
}

const QStringList Few = {"Arial", "Courier", "New Sans 1040", "Sans", "Sans Serif"};

/// The font dialog of these, with the second one chosen.
struct Opened
{
    Opened()
    {
        Dialog.show();
        QApplication::setActiveWindow(&Dialog);
    }
    /// The name that is chosen once this is typed.
    QString type(const QString &text) const
    {
        Name->selectAll();
        QTest::keyClick(Name, Qt::Key_Delete);
        QTest::keyClicks(Name, text);
        return Dialog.choice().Name;
    }
    QString listed() const
    {
        QStringList names;
        for (int row = 0; row < Names->model()->rowCount(); ++row)
            names += Names->model()->index(row, 0).data().toString();
        return names.join(", ");
    }
    QStringListModel Fonts{Few};
    FontDialog Dialog{{.Fonts = &Fonts,
                       .FontOf = [](const QString &) { return QFont(); },
                       .Colors = {},
                       .LeastSize = 8,
                       .MostSize = 36},
                      {.Name = "Courier", .Size = 12},
                      nullptr};
    QLineEdit *Name = Dialog.findChild<QLineEdit *>({}, Qt::FindDirectChildrenOnly);
    QListView *Names = Dialog.findChild<QListView *>();
};

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void answers()
    {
        const Use first = [](Message &dialog) { click(dialog.Button1); };
        const Use second = [](Message &dialog) { click(dialog.Button2); };
        const Use closeBox = [](Message &dialog) { dialog.close(); };
        // Whether it closes, and with which result.
        const std::tuple<QString, bool, bool, QList<Use>> rows[] = {
            {"OK", true, true, {first}},
            {"OK", true, false, {closeBox, press(Qt::Key_Z), press(Qt::Key_Space)}},
            {"OK", false, false, {press(Qt::Key_Shift), press(Qt::Key_Tab), held(Qt::Key_Z)}},
            {"YN", true, true, {first, press(Qt::Key_Space)}},
            {"YN", true, false, {second, closeBox}},
            {"YN", false, false, {press(Qt::Key_Y), press(Qt::Key_Escape), held(Qt::Key_Return)}}};
        for (const auto &[buttons, closes, result, uses] : rows) {
            for (const Use &use : uses) {
                MsgResult = true;
                show(buttons, [&use, closes = closes](Message &dialog) {
                    use(dialog);
                    QCOMPARE(dialog.isVisible(), !closes);
                });
                QCOMPARE(MsgResult, result);
            }
        }
    }

    void dontRepeat()
    {
        for (const int clicks : {1, 0, 2}) { // each call begins anew
            const auto use = [=](Message &dialog) {
                QVERIFY(dialog.DisplayAgainCheck->isVisible());
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
                QList<QWidget *> order{dialog.Button1, dialog.Button2, dialog.Button1};
                for (const QWidget *next : order.mid(defaultButton - 1)) {
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
                QCOMPARE(dialog.Button1->text() + dialog.Button2->text(), QString("YesNo"));
                QCOMPARE(dialog.Button1->pos() * 15, QPoint(2790, 1950));
                QCOMPARE(dialog.Button2->pos() * 15, QPoint(4140, 1950));
            };
            show("YN", use, false, 1, text);
        }
    }

    void typingLeavesFonts()
    {
        for (const auto &[typed, left, chosen] :
             {std::tuple("1040", "New Sans 1040", "New Sans 1040"),
              {"SANS", "New Sans 1040, Sans, Sans Serif", "Sans"},  // the whole name first
              {"sans ", "New Sans 1040, Sans Serif", "Sans Serif"}, // the beginning, then
              {".", "", ""},                                        // no pattern
              {"", "Arial, Courier, New Sans 1040, Sans, Sans Serif", "Courier"}}) {
            const Opened opened;
            QCOMPARE(opened.type(typed), QString(chosen));
            QCOMPARE(opened.listed(), QString(left));
            const QRect place = opened.Names->visualRect(opened.Names->currentIndex());
            QVERIFY(!*chosen || opened.Names->viewport()->rect().contains(place));
            QTest::keyClick(opened.Name, Qt::Key_Return);
            QCOMPARE(opened.Dialog.result() == QDialog::Accepted, *chosen != '\0');
        }
        const Opened opened;
        for (const char *typed : {"sans serif", "", "x", ""})
            QCOMPARE(opened.type(typed), QString(*typed == 'x' ? "" : "Sans Serif"));
        QCOMPARE(opened.listed(), Few.join(", "));
        QTest::keyClick(opened.Name, Qt::Key_Return);
        QCOMPARE(opened.Dialog.result(), int(QDialog::Accepted));
    }
};

ZENDOVA_WINDOW_TEST(TestDialogs)
#include "tst_dialogs.moc"
