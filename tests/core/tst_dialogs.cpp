// Dialogs alone, worked as a person works them: the message with its buttons, keys, close box and
// check box, its first focus and its places; the search of the font dialog.
#include "tests/support/MainWindow.h"

#include "core/Message.h"
#include "platform/controls/CmnDlg.h"

namespace {

using Use = std::function<void(Message &)>;

const auto click = [](QWidget *at) { QTest::mouseClick(at, Qt::LeftButton, {}, QPoint(8, 8)); };

Use pressed(Qt::Key key)
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

} // namespace

class TestDialogs : public WindowTest
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
            {"OK", true, false, {closeBox, pressed(Qt::Key_Z), pressed(Qt::Key_Space)}},
            {"OK", false, false, {pressed(Qt::Key_Shift), pressed(Qt::Key_Tab), held(Qt::Key_Z)}},
            {"YN", true, true, {first, pressed(Qt::Key_Space)}},
            {"YN", true, false, {second, closeBox}},
            {"YN",
             false,
             false,
             {pressed(Qt::Key_Y), pressed(Qt::Key_Escape), held(Qt::Key_Return)}}};
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
        // Whatever is told, nothing moves, is lost or is taken for markup. Where blank lines give
        // way, nothing has to be scrolled.
        for (const QString &text : {QString("One more line\r").repeated(60), QString(2000, 'W'),
                                    QString("\r\r<b>no markup</b> & no entity"),
                                    "\r\r\r\r" + QString(180, 'W') + "\rdoes not exist."}) {
            const auto use = [text](Message &dialog) {
                QCOMPARE(dialog.MessageArea->textFormat(), Qt::PlainText);
                // Long words and folders have invisible places to break a line.
                const bool breaks = text.contains("WW") || text.contains('/');
                QCOMPARE(dialog.MessageArea->text().contains(QChar(0x200B)), breaks);
                QString shown = dialog.MessageArea->text();
                shown.remove(QChar(0x200B)).remove(QChar(0x200E));
                QCOMPARE(shown.simplified(), text.simplified());
                QCOMPARE(dialog.size() * 15, QSize(5475, 2310));
                QCOMPARE(dialog.MessageArea->height() * 15 > 1845, !text.startsWith('\r'));
                QTest::keyClick(dialog.focusWidget(), Qt::Key_End);
                const QRect seen = dialog.MessageArea->visibleRegion().boundingRect();
                QVERIFY(seen.height() > 100 && seen.height() * 15 <= 1845);
                QCOMPARE(seen.bottom(), dialog.MessageArea->rect().bottom());
                QCOMPARE(dialog.Button1->text() + dialog.Button2->text(), QString("YesNo"));
                QCOMPARE(dialog.Button1->pos() * 15, QPoint(2790, 1950));
                QCOMPARE(dialog.Button2->pos() * 15, QPoint(4140, 1950));
            };
            show("YN", use, false, 1, text);
        }
    }

    void typingLeavesFonts()
    {
        const QString all = "Arial, Courier, New Sans 1040, Sans, Sans Serif";
        QStringListModel fonts(all.split(", "));
        const FontOffer offer{.Fonts = &fonts,
                              .FontOf = [](const QString &) { return QFont(); },
                              .Colors = {},
                              .LeastSize = 8,
                              .MostSize = 36};
        // What is typed, each instead of the one before, what is left of the list, and what Enter
        // takes of it.
        const std::tuple<QStringList, QString, QString> rows[] = {
            {{"1040"}, "New Sans 1040", "New Sans 1040"},
            {{"SANS"}, "New Sans 1040, Sans, Sans Serif", "Sans"},  // the whole name first
            {{"sans "}, "New Sans 1040, Sans Serif", "Sans Serif"}, // the beginning, then
            {{"."}, "", ""},                                        // no pattern
            {{""}, all, "Courier"},
            {{"sans serif", "", "x", ""}, all, "Sans Serif"}};
        for (const auto &row : rows) {
            const auto &[typed, left, taken] = row;
            desktop->Dialogs.dialog("Font", [&row](QDialog *dialog) {
                auto *name = dialog->findChild<QLineEdit *>({}, Qt::FindDirectChildrenOnly);
                const auto *names = dialog->findChild<QListView *>();
                activate(dialog);
                for (const QString &text : std::get<0>(row)) {
                    name->selectAll();
                    QTest::keyClick(name, Qt::Key_Delete);
                    QTest::keyClicks(name, text);
                }
                QStringList listed;
                for (int at = 0; at < names->model()->rowCount(); ++at)
                    listed += names->model()->index(at, 0).data().toString();
                QCOMPARE(listed.join(", "), std::get<1>(row));
                const QRect chosen = names->visualRect(names->currentIndex());
                QVERIFY(listed.isEmpty() || names->viewport()->rect().contains(chosen));
                QTest::keyClick(name, Qt::Key_Return);
                if (dialog->isVisible())
                    dialog->reject();
            });
            ChosenFont choice{.Name = "Courier", .Size = 12};
            QCOMPARE(CmnDlg::ShowFont(window, offer, choice), !taken.isEmpty());
            QCOMPARE(choice.Name, taken.isEmpty() ? "Courier" : taken);
        }
    }

private:
    void show(const QString &buttons, const Use &use, bool showCheck = false, int defaultButton = 1,
              const QString &text = "\r\rText")
    {
        desktop->Dialogs.dialog("Zendova Title", [&use](QDialog *dialog) {
            auto *message = qobject_cast<Message *>(dialog);
            QVERIFY(message && message->isModal());
            use(*message);
            if (message->isVisible())
                message->done(QDialog::Rejected);
        });
        ZndvMsg(text, buttons, "Zendova Title", showCheck, defaultButton);
    }
};

ZENDOVA_WINDOW_TEST(TestDialogs)
#include "tst_dialogs.moc"
