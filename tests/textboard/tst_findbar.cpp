// What stands around the board: the find bar, alone and in the window, the count with its fill bar,
// and the dialog of colours.
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"

#include "platform/controls/ColorBlocks.h"
#include "textboard/TBColorPicker.h"

using namespace Qt::StringLiterals;

class TestFindBar : public WindowTest
{
    Q_OBJECT

private slots:
    void opensAndCloses()
    {
        const QRect closed = board()->geometry();
        keys("Ctrl+F"); // is off, as the board is empty
        QVERIFY(!bar()->isVisible());
        const auto give = [this](const QString &way) {
            if (way == "menu")
                chooseFromMenu(window, "ItemEdit", "EditFind");
            else if (way == "button")
                press("Find");
            else if (way == "Close")
                QTest::mouseClick(bar()->CloseFindButton, Qt::LeftButton);
            else if (way == "Esc on the board") {
                board()->setFocus();
                keys("Esc");
            } else
                keys(way);
        };
        const auto isMarked = [this] {
            lookAtMenu(window, "ItemEdit");
            return QList{button("Find")->isChecked(), menuItem(window, "EditFind")->isChecked()};
        };
        QTest::keyClicks(board(), "a");
        const std::pair<const char *, const char *> rows[] = {
            {"menu", "menu"},    {"Ctrl+F", "Ctrl+F"}, {"button", "button"},
            {"button", "Close"}, {"Ctrl+F", "Esc"},    {"Ctrl+F", "Esc on the board"}};
        for (const auto &[opens, closes] : rows) {
            give(opens);
            checkOpen();
            QCOMPARE(bar()->geometry().bottom(), closed.bottom());
            QVERIFY(box()->hasFocus());
            QCOMPARE(isMarked(), QList({true, true}));
            give(closes);
            QVERIFY(!bar()->isVisible());
            QCOMPARE(board()->geometry(), closed);
            QVERIFY(board()->hasFocus());
            QCOMPARE(isMarked(), QList({false, false}));
        }
        // It closes too when the last character goes while the focus is in it.
        for (const char *key : {"Ctrl+F", "Ctrl+A", "Ctrl+D"})
            keys(key);
        QVERIFY(!bar()->isVisible() && board()->hasFocus());
        QVERIFY(!menuItem(window, "EditFind")->isEnabled());
    }

    void standsUnderTheBoard()
    {
        board()->setText("cat");
        keys("Ctrl+F");
        // Open, it follows the split bar, the side of the views and the map's size.
        for (const char *side : {"VCRight", "VCLeft"}) {
            press(side);
            checkOpen();
            QTest::mouseDClick(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
            checkOpen();
        }
        const int rest = board()->width() - box()->width();
        for (const int size : {1, 12, 8}) {
            window->FMapContainer->sldSetFMapSize->setValue(size);
            QCOMPARE(bar()->geometry().bottom(), window->SplitBar->y() - 1);
            QCOMPARE(bar()->width(), board()->width() - 2);
            QCOMPARE(board()->width() - box()->width(), rest);
        }
        keys("Ctrl+F"); // closed
        QCOMPARE(board()->geometry().bottom(), window->SplitBar->y() - 1);
    }

    void searches()
    {
        using Says::NotFound, Says::NotInSelection;
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
            {"cat cat", 4, 3, "cat", 0, &NotFound},
            {"a concat cat", 0, 0, "cat", 9, nullptr, true},
            {"a concat cats Cat cat", 0, 0, "cat", 18, nullptr, true, true},
            {"a dog", 0, 0, " cat ", 0, &NotFound},
            // A selection is a limit if it has several lines.
            {"a cat\r\nb cat\r\ncat", 0, 8, "cat", 2},
            {"a dog\r\nb cat", 0, 10, "cat", 0, &NotInSelection},
            {"a dog cat", 0, 5, "cat", 6},
        };
        for (const auto &row : rows) {
            board()->setText(row.Text);
            if (!bar()->isVisible())
                keys("Ctrl+F");
            box()->setText(row.Word);
            bar()->FindOpt[0]->setChecked(row.WholeWord);
            bar()->FindOpt[1]->setChecked(row.MatchCase);
            select(window, row.Start, row.Length);
            if (row.Failure)
                expect(*row.Failure, "Ok", row.Word.trimmed());
            QTest::mouseClick(bar()->FindNextButton, Qt::LeftButton);
            QCOMPARE(board()->SelStart(), row.Failure ? row.Start : row.Hit);
            QCOMPARE(board()->SelLength(), row.Failure ? row.Length : row.Word.size());
        }
    }

    void goesOnFromHitToHit()
    {
        board()->setText("a cat\r\na cat\r\nno dog, cat");
        keys("F3"); // is off, as nothing was looked for yet
        lookFor("cat");
        select(window, 0, 8); // two lines
        bar()->FindOpt[1]->setFocus();
        for (const int hit : {2, 9, 22}) {
            keys("Return");
            QCOMPARE(board()->SelStart(), hit);
            QVERIFY(bar()->FindNextButton->hasFocus());
        }
        // Again: the last search's word counts, with the bar closed too.
        box()->setText("dog");
        board()->setSelStart(3);
        keys("F3");
        QCOMPARE(board()->SelStart(), 9);
        keys("Esc");
        board()->setSelStart(0);
        chooseFromMenu(window, "ItemEdit", "EditFindAgain");
        QCOMPARE(board()->SelStart(), 2);
        QVERIFY(board()->hasFocus() && !bar()->isVisible());
        // A hit is brought into sight; opening takes two lines from the board, but not those.
        board()->setText(linesOfText(BoardLimit - 6) + "needle");
        lookFor("needle");
        keys("Return");
        QCOMPARE(board()->SelStart(), BoardLimit - 6);
        QVERIFY(board()->viewport()->rect().contains(board()->cursorRect()));
        keys("Esc");
        keys("Ctrl+F");
        QVERIFY(board()->viewport()->rect().contains(board()->cursorRect()));
        QCOMPARE(box()->selectedText(), QString("needle"));
    }

    void findBox()
    {
        board()->setText("cat dog");
        select(window, 4, 3);
        keys("Ctrl+F");
        QCOMPARE(box()->selectedText(), QString("dog"));
        const auto buttons = [this] {
            return QList{bar()->FindNextButton->isEnabled(), bar()->ClearFindButton->isEnabled()};
        };
        QCOMPARE(buttons(), QList({true, true}));
        bar()->CloseFindButton->setFocus();
        QTest::mouseClick(bar()->ClearFindButton, Qt::LeftButton);
        QVERIFY(box()->text().isEmpty() && box()->hasFocus());
        QCOMPARE(buttons(), QList({false, false}));
        keys("Return"); // presses a button that is off
        // Another letter's base and a ligature; typing goes on behind what they became. Keys with
        // Ctrl that the toolkit has for editing are the window's here.
        box()->insert(u"\u0151\uFB01"_s);
        QTest::keyClicks(box(), "!");
        QCOMPARE(box()->text(), QString("ofi!"));
        for (const char *key : {"Backspace", "Home", "Del", "Ctrl+K", "Ctrl+U", "Ctrl+W"})
            QTest::keySequence(box(), QKeySequence(key));
        QCOMPARE(box()->text(), QString("fi"));
        QTest::keySequence(box(), QKeySequence("Ctrl+Z"));
        QCOMPARE(box()->text(), QString("ofi"));
        QCOMPARE(board()->Text(), QString("cat dog"));
    }

    void charactersOfTheMap()
    {
        QTest::keyClicks(board(), "ab");
        keys("Ctrl+F");
        QTest::keyClicks(box(), "xy");
        keys("Shift+Left");
        clickCell(window, cellOf(0x80));
        QVERIFY(box()->hasFocus());
        QTest::keyClicks(box(), "z");
        // The search takes the focus away, even while its message is in front of the window.
        expect(Says::NotFound, "Ok", u"x\u20ACz"_s);
        keys("Return");
        clickCell(window, cellOf('c'));
        QCOMPARE(board()->Text(), QString("abc"));
        activate(window); // as a window manager does once the message is gone
        box()->setFocus();
        clickCell(window, cellOf('d'), Qt::RightButton);
        QApplication::activePopupWidget()->close();
        clickCell(window, cellOf('!'));
        QCOMPARE(box()->text(), u"x\u20ACz!"_s);
        keys("Esc");
        clickCell(window, cellOf('d'));
        QCOMPARE(board()->Text(), QString("abcd"));
    }

    void tabOrder()
    {
        QTest::keyClicks(board(), "a");
        lookFor("a");
        board()->setFocus();
        QString order;
        for (int i = 0; i < 9; ++i) {
            keys("Tab");
            order += ' ' + window->focusWidget()->objectName();
        }
        QCOMPARE(order, QString(" ZoomSizeSlider FontNameCombo FontSizeSlider FindString FindOpt0 "
                                "FindOpt1 FindNextButton CloseFindButton sldSetFMapSize"));
    }

    void count()
    {
        FillBar fillBar({}, BoardLimit, nullptr);
        fillBar.show();
        QLocale::setDefault(QLocale("en_US"));
        QString shown; // count, percentage, and of a fill its width in pixels and its colour
        for (const int characters : {0, 307, 308, 1023, 1024, 30720, 30721, 46080, 46081, 58368,
                                     58369, 61132, 61133, 1000}) {
            fillBar.ShowCount(characters);
            const QRect fill = fillBar.ProgressFore->geometry();
            shown += fillBar.NoOfChars->text() + ' ' + fillBar.PercFilled->text();
            const int width = fillBar.ProgressFore->isVisible() ? fill.width() : 0;
            if (width > 0)
                shown += ' ' + QString::number(width);
            if (width > 1) // one pixel lies under the frame
                shown += fillBar.grab().toImage().pixelColor(fill.center()).name();
            shown += "; ";
            QCOMPARE(fill.topLeft(), fillBar.ProgressBack->pos());
        }
        QCOMPARE(shown, "0 0%; 307 0%; 308 1%; 1,023 2%; 1,024 2% 1; "
                        "30,720 50% 30#ffffff; 30,721 50% 30#ffffc0; 46,080 75% 45#ffffc0; "
                        "46,081 75% 45#ffc080; 58,368 95% 57#ffc080; 58,369 95% 57#ff0000; "
                        "61,132 99% 60#ff0000; 61,133 100% 60#ff0000; 1,000 2%; ");
        // Spanish does without a separator in four digits; the count has it all the same.
        for (const auto &[locale, text] : {std::pair("es_ES", "1.000"), {"de_CH", "1’000"}}) {
            QLocale::setDefault(QLocale(locale));
            fillBar.ShowCount(1000);
            QCOMPARE(fillBar.NoOfChars->text(), QString(text));
        }
        QLocale::setDefault(QLocale::c());
    }

    void colorPicker()
    {
        const std::tuple<QString, int, const char *> rows[] = {
            {"Ok", 9, "Gray"},  {"Enter", 8, "Silver"}, {"double click", 4, "Teal"},
            {"Cancel", 13, ""}, {"Esc", 13, ""},        {"Esc on a button", 13, ""}};
        for (const auto &[way, cell, name] : rows) {
            PickColorIndex = 1;
            PickColorName = "before";
            PickColorValue = QString::number(RGBValue(1, 2, 3));
            TBColorPicker picker(nullptr);
            desktop->Dialogs.dialog(
                "Pick A Color for TextBoard Font", [&, &way = way, cell = cell](QDialog *) {
                    QCOMPARE(picker.CurrentColorLabel->text(), QString("Navy"));
                    QCOMPARE(picker.CurrentColorBlock->grab().toImage().pixel(6, 6), qRgb(1, 2, 3));
                    // The name goes with the cell, at first that of the present colour.
                    QString labels;
                    for (const Qt::Key key :
                         {Qt::Key_Shift, Qt::Key_Right, Qt::Key_Down, Qt::Key_End}) {
                        QTest::keyClick(picker.focusWidget(), key);
                        labels += picker.ColorLabel->text() + ' ';
                    }
                    QCOMPARE(labels, QString("Navy Green Lime White "));
                    const QPoint middle = picker.ColorContainer->pixels(cell).center();
                    QTest::mouseClick(picker.ColorContainer, Qt::LeftButton, {}, middle);
                    QCOMPARE(picker.ChosenCell(), cell);
                    QWidget *button = way == "Ok" ? picker.Button1 : picker.Button2;
                    if (way == "double click")
                        QTest::mouseDClick(picker.ColorContainer, Qt::LeftButton, {}, middle);
                    else if (way == "Ok" || way == "Cancel")
                        QTest::mouseClick(button, Qt::LeftButton);
                    else
                        QTest::keyClick(way.endsWith("button") ? button : picker.focusWidget(),
                                        way == "Enter" ? Qt::Key_Return : Qt::Key_Escape);
                });
            picker.exec();
            QCOMPARE(PickColorIndex, *name ? cell - 1 : 1);
            QCOMPARE(PickColorName, QString(*name ? name : "before"));
        }
    }

private:
    const FindBar *bar() const { return window->FindFrame; }
    FindBox *box() const { return bar()->FindString; }
    void lookFor(const QString &text) const
    {
        keys("Ctrl+F");
        box()->setText(text);
    }
    /// The bar lies right under the board, in the room that the board gave it.
    void checkOpen() const
    {
        QVERIFY(bar()->isVisible());
        QCOMPARE(bar()->y(), board()->geometry().bottom() + 1 + 2);
        QCOMPARE(bar()->geometry().bottom(), window->SplitBar->y() - 1);
        QCOMPARE(bar()->height(), 23);
        QCOMPARE(bar()->geometry().right(), board()->geometry().right());
    }
};

ZENDOVA_WINDOW_TEST(TestFindBar)
#include "tst_findbar.moc"
