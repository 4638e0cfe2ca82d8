// The font dialog's search: which fonts are left for what is typed, which one is taken, and that
// nothing is where no font has the name.
#include "platform/controls/CmnDlg.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QTest>

namespace {

const NamedColor Black = {QString(), 0};

/// The dialog over these fonts, open.
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
        , Ok(Dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok))
    {
        Dialog.show();
        QApplication::setActiveWindow(&Dialog);
    }

    void type(const QString &text) const
    {
        Name->selectAll();
        QTest::keyClick(Name, Qt::Key_Delete);
        QTest::keyClicks(Name, text);
    }
    QStringList listed() const
    {
        QStringList names;
        for (int row = 0; row < Names->model()->rowCount(); ++row)
            names += Names->model()->index(row, 0).data().toString();
        return names;
    }
    QString chosen() const { return Dialog.choice().Name; }
    bool isChosenVisible() const
    {
        return Names->viewport()->rect().contains(Names->visualRect(Names->currentIndex()));
    }

    QStringListModel Fonts;
    FontDialog Dialog;
    QLineEdit *Name;
    QListView *Names;
    QPushButton *Ok;
};

const QStringList Few = {"Arial", "Courier", "New Sans 1040", "Sans", "Sans Serif"};

} // namespace

class TestFontDialog : public QObject
{
    Q_OBJECT

private slots:
    void typingLeaves_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("left");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("a part") << "1040" << QStringList{"New Sans 1040"} << "New Sans 1040";
        QTest::newRow("the whole name comes first")
            << "SANS" << QStringList{"New Sans 1040", "Sans", "Sans Serif"} << "Sans";
        QTest::newRow("the beginning before a part")
            << "sans " << QStringList{"New Sans 1040", "Sans Serif"} << "Sans Serif";
        QTest::newRow("no pattern") << "." << QStringList() << "";
        QTest::newRow("nothing") << "2040" << QStringList() << "";
        QTest::newRow("cleared") << "" << Few << "Courier";
    }

    void typingLeaves()
    {
        QFETCH(QString, typed);
        QFETCH(QString, chosen);
        const Opened opened(Few, "Courier");
        QCOMPARE(opened.listed(), Few);
        opened.type(typed);
        QTEST(opened.listed(), "left");
        QCOMPARE(opened.chosen(), chosen);
        QCOMPARE(opened.Ok->isEnabled(), !chosen.isEmpty());
        QTest::keyClick(opened.Name, Qt::Key_Return);
        QCOMPARE(opened.Dialog.result() == QDialog::Accepted, !chosen.isEmpty());
    }

    void nameThatWasNotThereIsGivenUp()
    {
        const Opened opened(Few, "Courier");
        opened.type("sans serifs");
        QCOMPARE(opened.chosen(), QString());
        QTest::keyClick(opened.Name, Qt::Key_Backspace);
        QCOMPARE(opened.chosen(), QString("Sans Serif"));
        QVERIFY(opened.Ok->isEnabled());
        opened.type("");
        QCOMPARE(opened.listed(), Few);
        QCOMPARE(opened.chosen(), QString("Sans Serif"));
        opened.type("x");
        opened.type("");
        QCOMPARE(opened.chosen(), QString("Sans Serif"));
    }

    void chosenStaysVisible()
    {
        QStringList many;
        for (int i = 0; i < 10000; ++i)
            many += QString("Font %1").arg(i);
        const Opened opened(many, "Font 9000");
        QTRY_VERIFY(opened.isChosenVisible());
        opened.type("font 5040");
        QCOMPARE(opened.chosen(), QString("Font 5040"));
        opened.type("");
        QCOMPARE(opened.chosen(), QString("Font 5040"));
        QTRY_VERIFY(opened.isChosenVisible());
        opened.type("40");
        QTRY_VERIFY(opened.isChosenVisible());
    }
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    TestFontDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fontdialog.moc"
