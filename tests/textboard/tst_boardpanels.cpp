// What stands around the board, each part alone without the main window: the count with its fill
// bar, the find bar, and the dialog of colours.
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"

#include "platform/controls/ColorBlocks.h"
#include "textboard/TBColorPicker.h"

#include <QCheckBox>
#include <QFrame>
#include <QLocale>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

struct Search
{
    QWidget Window;
    ::TextBoard Board{&Window};
    ::TextBoardRTF Buffer;
    FindBar Bar{{}, Board, Buffer, &Window};

    Search()
    {
        Window.show();
        QApplication::setActiveWindow(&Window);
        Board.setFocus();
    }
    /// Opens the bar and puts the text into it.
    void lookFor(const QString &text)
    {
        Bar.ShowFindBar(1);
        Bar.FindString->setText(text);
    }
    void select(int start, int length)
    {
        Board.setSelStart(start);
        Board.setSelLength(length);
    }
};

} // namespace

class TestBoardPanels : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        ProductName = "Zendova";
        Screen.pretend(SysInfo::Screen{{1280, 1024}, {}, 96});
    }
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(Dialogs.allCame());
    }

    void count()
    {
        const struct
        {
            int Count;
            const char *Shown; // count, percentage and width of the fill in pixels, 0 for none
            const char *Color = "";
        } rows[] = {
            {0, "0 0% 0"},
            {307, "307 0% 0"},
            {308, "308 1% 0"},
            {1023, "1,023 2% 0"},
            {1024, "1,024 2% 1", "#ffffff"},
            {30720, "30,720 50% 30", "#ffffff"},
            {30721, "30,721 50% 30", "#ffffc0"},
            {46080, "46,080 75% 45", "#ffffc0"},
            {46081, "46,081 75% 45", "#ffc080"},
            {58368, "58,368 95% 57", "#ffc080"},
            {58369, "58,369 95% 57", "#ff0000"},
            {61132, "61,132 99% 60", "#ff0000"},
            {61133, "61,133 100% 60", "#ff0000"},
            {1000, "1,000 2% 0"},
        };
        FillBar bar({}, BoardLimit, nullptr);
        bar.show();
        QLocale::setDefault(QLocale("en_US"));
        for (const auto &row : rows) {
            bar.ShowCount(row.Count);
            const QWidget *fill = bar.ProgressFore;
            QCOMPARE(QString("%1 %2 %3")
                         .arg(bar.NoOfChars->text(), bar.PercFilled->text())
                         .arg(fill->isVisible() ? fill->width() : 0),
                     QString(row.Shown));
            QCOMPARE(fill->pos(), bar.ProgressBack->pos());
            if (fill->isVisible() && fill->width() > 2) // else it lies under the frame
                QCOMPARE(bar.grab().toImage().pixelColor(fill->geometry().center()),
                         QColor(row.Color));
        }
        // Spanish does without a separator in four digits; the count has it all the same.
        for (const auto &[locale, shown] : {std::pair("es_ES", "1.000"), {"de_CH", "1’000"}}) {
            QLocale::setDefault(QLocale(locale));
            bar.ShowCount(1000);
            QCOMPARE(bar.NoOfChars->text(), QString(shown));
        }
    }

    void findBox()
    {
        Search search;
        search.Board.setText("cat dog");
        search.select(4, 3);
        search.Bar.ShowFindBar(1);
        FindBox *box = search.Bar.FindString;
        QCOMPARE(box->selectedText(), QString("dog"));
        const auto buttons = [&search] {
            return QList{search.Bar.FindNextButton->isEnabled(),
                         search.Bar.ClearFindButton->isEnabled()};
        };
        QCOMPARE(buttons(), QList({true, true}));
        search.Bar.CloseFindButton->setFocus();
        QTest::mouseClick(search.Bar.ClearFindButton, Qt::LeftButton);
        QVERIFY(box->text().isEmpty() && box->hasFocus());
        QCOMPARE(buttons(), QList({false, false}));
        QTest::keyClick(box, Qt::Key_Return); // presses a button that is off

        // Another letter's base and a ligature; typing goes on behind what they became. Keys with
        // Ctrl that the toolkit has for editing are the window's here.
        box->insert(u"\u0151\uFB01"_s);
        QTest::keyClicks(box, "!");
        QCOMPARE(box->text(), QString("ofi!"));
        for (const char *keys : {"Backspace", "Home", "Del", "Ctrl+K", "Ctrl+U", "Ctrl+W"})
            QTest::keySequence(box, QKeySequence(keys));
        QCOMPARE(box->text(), QString("fi"));
        for (const auto &[keys, text] : {std::pair("Ctrl+Z", "ofi"), {"Ctrl+Y", "fi"}}) {
            QTest::keySequence(box, QKeySequence(keys));
            QCOMPARE(box->text(), QString(text));
        }
        QCOMPARE(search.Board.Text(), QString("cat dog"));
    }

    void finds()
    {
        const struct
        {
            QString Text;
            int Start; // of the selection before
            int Length;
            QString Word;
            int Hit;
            const ExpectedMessage *Failure = nullptr; // in place of a hit
            bool WholeWord = false;
            bool MatchCase = false;
        } rows[] = {
            {"cat cat", 0, 0, "cat", 4}, // passes over the start
            {"cat cat", 4, 3, "cat", 0, &Says::NotFound},
            {"a concat cat", 0, 0, "cat", 9, nullptr, true},
            {"a concat cats Cat cat", 0, 0, "cat", 18, nullptr, true, true},
            {"a dog", 0, 0, " cat ", 0, &Says::NotFound},
            // A selection is a limit if it has several lines.
            {"a cat\r\nb cat\r\ncat", 0, 8, "cat", 2},
            {"a dog\r\nb cat", 0, 10, "cat", 0, &Says::NotInSelection},
            {"a dog cat", 0, 5, "cat", 6},
        };
        Search search;
        for (const auto &row : rows) {
            search.Board.setText(row.Text);
            search.lookFor(row.Word);
            search.Bar.FindOpt[0]->setChecked(row.WholeWord);
            search.Bar.FindOpt[1]->setChecked(row.MatchCase);
            search.select(row.Start, row.Length);
            if (row.Failure)
                Dialogs.message(*row.Failure, "Ok", row.Word.trimmed());
            QTest::mouseClick(search.Bar.FindNextButton, Qt::LeftButton);
            QCOMPARE(search.Board.SelStart(), row.Failure ? row.Start : row.Hit);
            QCOMPARE(search.Board.SelLength(), row.Failure ? row.Length : row.Word.size());
        }
    }

    void colorPicker()
    {
        const struct
        {
            QString Way;
            int Cell;
            QString Label; // nothing if the choice isn't taken
        } rows[] = {{"Ok", 9, "Gray"},  {"Enter", 8, "Silver"}, {"double click", 4, "Teal"},
                    {"Cancel", 13, ""}, {"Esc", 13, ""},        {"Esc on a button", 13, ""}};
        ToolTipsOn = true;
        for (const auto &row : rows) {
            PickColorIndex = 1;
            PickColorName = "before";
            PickColorValue = QString::number(RGBValue(1, 2, 3));
            TBColorPicker picker(nullptr);
            ColorBlocks *blocks = picker.ColorContainer;
            Dialogs.dialog("Pick A Color for TextBoard Font", [&](QDialog *) {
                QCOMPARE(picker.CurrentColorLabel->text(), QString("Navy"));
                QCOMPARE(picker.CurrentColorBlock->grab().toImage().pixelColor(6, 6),
                         QColor(1, 2, 3));
                // The name goes with the cell, at first that of the present colour.
                for (const auto &[key, name] : {std::pair(Qt::Key_Shift, "Navy"),
                                                {Qt::Key_Right, "Green"},
                                                {Qt::Key_Down, "Lime"},
                                                {Qt::Key_End, "White"}}) {
                    QTest::keyClick(picker.focusWidget(), key);
                    QCOMPARE(picker.ColorLabel->text(), QString(name));
                }
                const QPoint cell = blocks->pixels(row.Cell).center();
                QTest::mouseClick(blocks, Qt::LeftButton, {}, cell);
                QCOMPARE(picker.ChosenCell(), row.Cell);
                if (row.Way == "double click")
                    QTest::mouseDClick(blocks, Qt::LeftButton, {}, cell);
                else if (row.Way == "Ok" || row.Way == "Cancel")
                    QTest::mouseClick(row.Way == "Ok" ? picker.Button1 : picker.Button2,
                                      Qt::LeftButton);
                else
                    QTest::keyClick(row.Way.endsWith("button") ? picker.Button1
                                                               : picker.focusWidget(),
                                    row.Way == "Enter" ? Qt::Key_Return : Qt::Key_Escape);
            });
            picker.exec();
            QCOMPARE(PickColorIndex, row.Label.isEmpty() ? 1 : row.Cell - 1);
            QCOMPARE(PickColorName, row.Label.isEmpty() ? "before" : row.Label);
        }
    }

private:
    SysInfo Screen;
    Answers Dialogs;
};

ZENDOVA_WINDOW_TEST(TestBoardPanels)
#include "tst_boardpanels.moc"
