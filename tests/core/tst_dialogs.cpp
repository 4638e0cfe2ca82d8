// Dialogs alone, worked as a person works them: the message with its buttons, keys, close box and
// check box, its first focus and its places; the search of the font dialog.
#include "tests/support/MainWindow.h"

#include "core/Message.h"
#include "platform/controls/CmnDlg.h"

namespace {

using Use = std::function<void(Message &)>;

void click(QWidget *control)
{
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, 8));
}

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

const NamedColor Black = {QString(), 0};

struct Opened
{
    explicit Opened(const QStringList &fonts, const QString &chosen)
        : Fonts(fonts)
        , Dialog({.Fonts = &Fonts,
                  .FontOf = [](const QString &) { return QFont(); },
                  .Colors = {&Black, 1},
                  .LeastSize = 8,
                  .MostSize = 36},
                 {.Name = chosen, .Size = 12}, nullptr)
        , Name(Dialog.findChild<QLineEdit *>({}, Qt::FindDirectChildrenOnly))
        , Names(Dialog.findChild<QListView *>())
    {
        Dialog.show();
        activate(&Dialog);
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
    QStringListModel Fonts;
    FontDialog Dialog;
    QLineEdit *Name;
    QListView *Names;
};

const QStringList Few = {"Arial", "Courier", "New Sans 1040", "Sans", "Sans Serif"};

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
        for (const auto &[name, use, closes, result] :
             QList<std::tuple<const char *, Use, bool, bool>>{
                 {"OK, Ok", first, true, true},
                 {"OK, close box", closeBox, true, false},
                 {"OK, letter", press(Qt::Key_Z), true, false},
                 {"OK, space", press(Qt::Key_Space), true, false},
                 {"OK, Esc", press(Qt::Key_Escape), true, false},
                 {"OK, Shift", press(Qt::Key_Shift), false, false},
                 {"OK, Left", press(Qt::Key_Left), false, false},
                 {"OK, Tab", press(Qt::Key_Tab), false, false},
                 {"OK, held key", held(Qt::Key_Z), false, false},
                 {"YN, held Enter", held(Qt::Key_Return), false, false},
                 {"YN, Yes", first, true, true},
                 {"YN, No", second, true, false},
                 {"YN, close box", closeBox, true, false},
                 {"YN, space on Yes", press(Qt::Key_Space), true, true},
                 {"YN, y", press(Qt::Key_Y), false, false},
                 {"YN, Esc", press(Qt::Key_Escape), false, false}}) {
            MsgResult = true;
            bool closed = false;
            show(QString(name).section(',', 0, 0), [&, &use = use](Message &dialog) {
                use(dialog);
                closed = !dialog.isVisible();
            });
            QVERIFY2(closed == closes && MsgResult == result, name);
        }
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
                activate(&dialog);
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
              {"2040", "", ""},
              {"", "Arial, Courier, New Sans 1040, Sans, Sans Serif", "Courier"}}) {
            const Opened opened(Few, "Courier");
            QCOMPARE(opened.type(typed), QString(chosen));
            QCOMPARE(opened.listed(), QString(left));
            const QRect place = opened.Names->visualRect(opened.Names->currentIndex());
            QVERIFY(!*chosen || opened.Names->viewport()->rect().contains(place));
            QTest::keyClick(opened.Name, Qt::Key_Return);
            QCOMPARE(opened.Dialog.result() == QDialog::Accepted, *chosen != '\0');
        }
        const Opened opened(Few, "Courier");
        const auto *ok =
            opened.Dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        QCOMPARE(opened.type("sans serifs"), QString());
        QVERIFY(!ok->isEnabled());
        QTest::keyClick(opened.Name, Qt::Key_Backspace);
        QVERIFY(ok->isEnabled());
        for (const char *typed : {"sans serif", "", "x", ""})
            QCOMPARE(opened.type(typed), QString(*typed == 'x' ? "" : "Sans Serif"));
        QCOMPARE(opened.listed(), Few.join(", "));
    }
};

ZENDOVA_WINDOW_TEST(TestDialogs)
#include "tst_dialogs.moc"
