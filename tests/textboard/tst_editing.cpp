// The clipboard, deleting and emptying the board by every way in which a person can do it, with the
// limit of the board at each paste.
#include "tests/support/BoardText.h"
#include "tests/textboard/BoardFormat.h"

using namespace Qt::StringLiterals;
using namespace Says;

class TestEditing : public WindowTest
{
    Q_OBJECT

private slots:
    void init() override
    {
        begin();
        clipboard()->setText("old");
    }

    void commands()
    {
        // An item, its ways, and then the board, the clipboard and the selection.
        const std::tuple<const char *, QStringList, QString, QString, QString> rows[] = {
            {"EditCut", {"menu", "button", "Ctrl+X", "Shift+Del", "F20"}, "abef", "cd", ""},
            {"EditCopy", {"menu", "button", "Ctrl+C", "Ctrl+Ins", "F16"}, "abcdef", "cd", "cd"},
            {"EditPaste", {"menu", "button", "Ctrl+V", "Shift+Ins", "F18"}, "aboldef", "old", ""},
            {"EditDelete", {"menu", "Ctrl+D"}, "abef", "old", ""},
            {"EditSelectAll", {"menu", "Ctrl+A"}, "abcdef", "old", "abcdef"}};
        // The commands are the board's also while the focus is in the find bar.
        for (const bool inFindBar : {false, true}) {
            for (const auto &[item, ways, text, copied, selected] : rows) {
                for (const QString &way : ways) {
                    board()->setText("abcdef");
                    clipboard()->setText("old");
                    if (inFindBar) {
                        keys("Ctrl+F");
                        QTest::keyClicks(window->FindFrame->FindString, "find");
                        keys("Shift+Home");
                    }
                    select(window, 2, 2);
                    give(way, item);
                    QCOMPARE(board()->Text(), text);
                    QCOMPARE(board()->SelText(), selected);
                    QCOMPARE(clipboard()->text(), copied);
                    QCOMPARE(window->FindFrame->FindString->selectedText(),
                             QString(inFindBar ? "find" : ""));
                    board()->setText(""); // closes the bar
                }
            }
        }
    }

    void statesFollowTextSelectionAndClipboard()
    {
        const auto isOn = [this](const char *key) {
            lookAtMenu(window, "ItemEdit");
            const QToolButton *button = window->TextEditTB->findChild<QToolButton *>(key);
            const bool inMenu = menuItem(window, qPrintable(QString("Edit") + key))->isEnabled();
            return inMenu && (!button || button->isEnabled());
        };
        const auto whatNeedsTextIsOn = [this](bool on) {
            for (const char *key :
                 {"Save", "ClearButton", "CopyButton", "CutButton", "PrintButton", "Find"})
                QVERIFY2(button(key)->isEnabled() == on, key);
        };
        QVERIFY(!isOn("Cut") && !isOn("Delete") && !isOn("SelectAll"));
        whatNeedsTextIsOn(false);
        lookAtMenu(window, "ItemTools");
        QTest::keyClicks(board(), "ab");
        QVERIFY(window->TextFile.TextChanged);
        whatNeedsTextIsOn(true);
        for (const bool opened : {false, true}) { // the menu comes in step as it opens
            for (const char *item : {"ToolsCopy", "ToolsCut", "ToolsClear"})
                QVERIFY2(menuItem(window, item)->isEnabled() == opened, item);
            lookAtMenu(window, "ItemTools");
        }
        QCOMPARE(window->TBPContainer->NoOfChars->text(), QString("2"));
        QVERIFY(isOn("SelectAll") && !isOn("Delete"));
        keys("Shift+Left");
        // A key meets the state of now, not that in which the menu last opened.
        keys("Ctrl+C");
        QCOMPARE(clipboard()->text(), QString("b"));
        QVERIFY(isOn("Cut") && isOn("Copy") && isOn("Delete"));
        for (const char *key : {"Home", "Ctrl+C", "Ctrl+X", "Ctrl+D"})
            keys(key);
        QCOMPARE(clipboard()->text() + board()->Text(), QString("bab"));
        QVERIFY(!button("Cut")->isEnabled() && !isOn("Copy"));
        clipboard()->clear();
        QVERIFY(!button("Paste")->isEnabled() && !isOn("Paste"));
        clipboard()->setText("text of another program");
        QVERIFY(isOn("Paste"));
        clipboard()->setText(""); // replaces nothing
        keys("Ctrl+A");
        keys("Ctrl+V");
        QCOMPARE(board()->SelText(), QString("ab"));
        keys("Backspace");
        whatNeedsTextIsOn(false);
    }

    void pasteLimit()
    {
        const struct
        {
            int Count;    // characters on the board
            int Selected; // at their end
            QString Pasted;
            int After;
            ExpectedMessage Question = {};
            const char *Answer = "";
        } rows[] = {
            {61000, 0, QString(440, 'y'), BoardLimit},
            {61000, 0, QString(441, 'y'), BoardLimit, PasteTooLong, "Yes"},
            {61000, 5, QString(500, 'y'), 61000, PasteTooLong, "No"},
            {BoardLimit, 0, "a", BoardLimit, BoardIsFull, "Ok"},
            {BoardLimit, 10, "abc", BoardLimit - 7, PasteTooLong, "Yes"},
            {61400, 100, QString(100, 'y'), 61400, PasteTooLong, "Yes"},
            {BoardLimit - 2, 0, "\n", BoardLimit},
            {80, 80, QString("ab\n").repeated(5'000'000), BoardLimit, PasteTooLong, "Yes"},
            {BoardLimit - 3, 0, "ab\ncd", BoardLimit - 1, PasteTooLong, "Yes"},
            // It counts as what it becomes: one accent less and one letter more.
            {BoardLimit - 7, 0, u"e\u0301\u0151\uFB01\u4E00\U0001F600\u20AC"_s, BoardLimit},
        };
        for (const auto &row : rows) {
            board()->setText(linesOfText(row.Count));
            select(window, row.Count - row.Selected, row.Selected);
            clipboard()->setText(row.Pasted);
            if (row.Question.Title)
                expect(row.Question, row.Answer);
            give("button", "EditPaste");
            QCOMPARE(board()->TextLength(), row.After);
            QCOMPARE(board()->SelLength(), QString(row.Answer) == "No" ? row.Selected : 0);
        }
        QCOMPARE(board()->Text().right(7), u"\u00E9ofi??\u20AC"_s);
    }

    void boardToClipboard()
    {
        board()->setText(u"1 { \\ } \u00E9\u20AC\r\n\r\nend\r\n"_s);
        giveFormat(window);
        expect(Copied, "Ok");
        press("CopyButton");
        const QMimeData *offered = clipboard()->mimeData();
        QCOMPARE(offered->data("text/plain"), QByteArray("1 { \\ } é€\n\nend\n"));
        const QByteArray rich = offered->data("text/rtf");
        QCOMPARE(offered->data("application/rtf"), rich);
        for (const char *part : {"1 \\{ \\\\ \\} ", "Zt Four", "\\fs60", "\\i", "\\qr", "\\red255"})
            QVERIFY2(rich.contains(part), rich.constData());
        // The selection alone goes as plain text, and nothing of the board stays beside it.
        select(window, 0, 1);
        give("button", "EditCopy");
        QCOMPARE(clipboard()->mimeData()->formats(), QStringList("text/plain"));
    }

    void cutBoard()
    {
        QTest::keyClicks(board(), "ab");
        window->TextFile.LoadedFilePath = "/a/b.zuf";
        expect(WasCut, "Ok", {}, true);
        chooseFromMenu(window, "ItemTools", "ToolsCut");
        QVERIFY(!window->DisplayCD->isChecked());
        QCOMPARE(board()->Text(), QString());
        QVERIFY(clipboard()->mimeData()->hasFormat("text/rtf"));
        QCOMPARE(clipboard()->text(), QString("ab"));
        QCOMPARE(window->TextFile.LoadedFilePath, QString("/a/b.zuf")); // it still is its file's
        keys("Ctrl+Z");
        press("CopyButton"); // the confirmation is silenced
        press("CutButton");
        QCOMPARE(board()->TextLength(), 0);
    }

    void unloadAsks()
    {
        // Changed, warned about a text (DisplayOW), answered with; nothing if nothing is asked.
        const std::tuple<bool, bool, const char *> rows[] = {{true, true, "Yes"},
                                                             {true, false, "No"},
                                                             {false, true, "Yes"},
                                                             {false, true, "No"},
                                                             {false, false, ""}};
        for (const auto &[changed, warn, answer] : rows) {
            begin();
            QTest::keyClicks(board(), "ab");
            window->TextFile.TextChanged = changed;
            window->DisplayOW->setChecked(warn);
            window->TextFile.LoadedFilePath = "/a/b.zuf";
            window->setWindowTitle("Zendova :  b.zuf");
            keys("Ctrl+F");
            const bool unloaded = QString(answer) != "No";
            if (changed || warn)
                expect(changed ? UnloadChanged : Unload, answer, {}, !changed && !unloaded);
            if (warn)
                press("ClearButton");
            else
                chooseFromMenu(window, "ItemTools", "ToolsClear");
            QCOMPARE(window->DisplayOW->isChecked(), warn && unloaded);
            QCOMPARE(
                board()->Text() + window->TextFile.LoadedFilePath + window->windowTitle(),
                QString(unloaded ? "Zendova Version 3.0.0 RC2" : "ab/a/b.zufZendova :  b.zuf"));
            QCOMPARE(window->FindFrame->isVisible(), !unloaded);
            QCOMPARE(window->TextFile.TextChanged, changed || unloaded);
        }
    }

    void unloadRestoresDefaults()
    {
        const QString first = window->FontNameCombo->ItemText(1);
        giveFormat(window);
        QTest::keyClicks(board(), "ab");
        desktop->store("TextBoard", "FontName", "No Such");
        expect(UnloadChanged, "Yes");
        press("ClearButton");
        QCOMPARE(formatOf(window), first + QString(FirstFormat).mid(5));
        QCOMPARE(window->Format.TBFontName, first);
        QCOMPARE(window->Format.TBFontIndex, 1);
    }

private:
    static QClipboard *clipboard() { return QGuiApplication::clipboard(); }
    /// Gives an Edit command as a person does: by "menu", "button", or a key.
    void give(const QString &way, const char *item) const
    {
        if (way == "menu")
            chooseFromMenu(window, "ItemEdit", item);
        else if (way == "button")
            press(item + strlen("Edit"));
        else
            keys(way);
    }
};

ZENDOVA_WINDOW_TEST(TestEditing)
#include "tst_editing.moc"
