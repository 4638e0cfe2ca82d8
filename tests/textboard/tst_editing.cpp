// The clipboard, deleting and emptying the board by every way in which a person can do it, with the
// limit of the board at each paste.
#include "tests/support/BoardText.h"
#include "tests/textboard/BoardFormat.h"

#include <QClipboard>
#include <QMimeData>
#include <new>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using namespace Qt::StringLiterals;
using namespace Says;

namespace {

QClipboard *clipboard()
{
    return QGuiApplication::clipboard();
}

/// The toolkit does not tidy up behind an exception that passes through it.
class LeaksAllowed
{
#ifdef __SANITIZE_ADDRESS__
    __lsan::ScopedDisabler Disabler;
#endif
};

} // namespace

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
        const struct
        {
            const char *Item;
            QStringList Ways;
            const char *Board;
            const char *Clipboard;
            const char *Selected;
        } rows[] = {
            {"EditCut", {"menu", "button", "Ctrl+X", "Shift+Del", "F20"}, "abef", "cd", ""},
            {"EditCopy", {"menu", "button", "Ctrl+C", "Ctrl+Ins", "F16"}, "abcdef", "cd", "cd"},
            {"EditPaste", {"menu", "button", "Ctrl+V", "Shift+Ins", "F18"}, "aboldef", "old", ""},
            {"EditDelete", {"menu", "Ctrl+D"}, "abef", "old", ""},
            {"EditSelectAll", {"menu", "Ctrl+A"}, "abcdef", "old", "abcdef"},
        };
        // The commands are the board's also while the focus is in the find bar.
        for (const bool inFindBar : {false, true}) {
            for (const auto &row : rows) {
                for (const QString &way : row.Ways) {
                    board()->setText("abcdef");
                    clipboard()->setText("old");
                    if (inFindBar) {
                        keys("Ctrl+F");
                        QTest::keyClicks(window->FindFrame->FindString, "find");
                        window->FindFrame->FindString->selectAll();
                    }
                    select(window, 2, 2);
                    give(way, row.Item);
                    QCOMPARE(board()->Text(), QString(row.Board));
                    QCOMPARE(board()->SelText(), QString(row.Selected));
                    QCOMPARE(clipboard()->text(), QString(row.Clipboard));
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
        const auto allNeedingTextAre = [this](bool on) {
            for (const char *key :
                 {"Save", "ClearButton", "CopyButton", "CutButton", "PrintButton", "Find"})
                if (button(key)->isEnabled() != on)
                    return QString(key);
            return QString();
        };
        QVERIFY(!isOn("Cut") && !isOn("Delete") && !isOn("SelectAll"));
        QCOMPARE(allNeedingTextAre(false), QString());
        QVERIFY(!window->TextFile.TextChanged);
        QTest::keyClicks(board(), "ab");
        QVERIFY(window->TextFile.TextChanged);
        QCOMPARE(allNeedingTextAre(true), QString());
        QCOMPARE(window->TBPContainer->NoOfChars->text(), QString("2"));
        QVERIFY(isOn("SelectAll") && !isOn("Delete"));
        keys("Shift+Left");
        // A key meets the state of now, not that in which the menu last opened.
        keys("Ctrl+C");
        QCOMPARE(clipboard()->text(), QString("b"));
        QVERIFY(isOn("Cut") && isOn("Copy") && isOn("Delete"));
        QTest::mouseClick(board()->viewport(), Qt::LeftButton);
        QVERIFY(!button("Cut")->isEnabled() && !isOn("Copy"));
        give("menu", "EditSelectAll");
        QVERIFY(isOn("Cut") && isOn("Copy"));
        for (const char *key : {"Home", "Ctrl+C", "Ctrl+X", "Ctrl+D"})
            keys(key);
        QCOMPARE(clipboard()->text(), QString("b"));
        QCOMPARE(board()->Text(), QString("ab"));

        clipboard()->clear();
        QVERIFY(!button("Paste")->isEnabled() && !isOn("Paste"));
        clipboard()->setText("text of another program");
        QVERIFY(isOn("Paste"));
        // An empty text replaces nothing.
        clipboard()->setText("");
        give("menu", "EditSelectAll");
        keys("Ctrl+V");
        QCOMPARE(board()->SelText(), QString("ab"));
        keys("Backspace");
        QCOMPARE(allNeedingTextAre(false), QString());
    }

    void pasteLimit()
    {
        const struct
        {
            int Count; // characters on the board, the last of them selected
            int Selected;
            QString Pasted;
            ExpectedMessage Question;
            const char *Answer;
            int After;
        } rows[] = {
            {61000, 0, QString(440, 'y'), {}, "", BoardLimit},
            {61000, 0, QString(441, 'y'), PasteTooLong, "Yes", BoardLimit},
            {61000, 5, QString(500, 'y'), PasteTooLong, "No", 61000},
            {BoardLimit, 0, "a", BoardIsFull, "Ok", BoardLimit},
            {BoardLimit, 10, "abc", PasteTooLong, "Yes", BoardLimit - 7},
            {61400, 100, QString(100, 'y'), PasteTooLong, "Yes", 61400},
            {BoardLimit - 2, 0, "\n", {}, "", BoardLimit},
            {80, 80, QString("ab\n").repeated(5'000'000), PasteTooLong, "Yes", BoardLimit},
            {BoardLimit - 3, 0, "ab\ncd", PasteTooLong, "Yes", BoardLimit - 1},
            // It counts as what it becomes: one accent less and one letter more.
            {BoardLimit - 7, 0, u"e\u0301\u0151\uFB01\u4E00\U0001F600\u20AC"_s, {}, "", BoardLimit},
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

    void partialPasteGoesWhereTheFocusIs()
    {
        board()->setText(linesOfText(BoardLimit - 3));
        keys("Ctrl+F");
        expect(PasteTooLong, "Yes");
        for (const char *text : {"abcdef", "ghi"}) {
            clipboard()->setText(text);
            give("button", "EditPaste");
        }
        QCOMPARE(window->FindFrame->FindString->text(), QString("abc"));
        QCOMPARE(board()->TextLength(), BoardLimit);
    }

    void pasteWithoutMemory()
    {
        [[maybe_unused]] const LeaksAllowed inTheToolkit; // of use under the sanitizers only
        restart();
        const auto failure =
            connect(board(), &TextBoard::Change, window, [] { throw std::bad_alloc(); });
        expect(NoMemory, "Ok");
        QTRY_VERIFY(button("Paste")->isEnabled()); // the clipboard is asked behind the first paint
        give("button", "EditPaste");
        disconnect(failure);
        QTest::keyClicks(board(), "!");
        QCOMPARE(board()->Text(), QString("old!"));
    }

    void boardToClipboard()
    {
        board()->setText(u"1 { \\ } \u00E9\u20AC\r\n\r\nend\r\n"_s);
        giveFormat(window);
        expect(Copied, "Ok");
        press("CopyButton");
        // Both at once, for another program that takes the one or the other.
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
        QCOMPARE(board()->Text(), QString("ab"));
        // The confirmation is silenced.
        press("CopyButton");
        press("CutButton");
        QCOMPARE(board()->TextLength(), 0);
    }

    void unloadAsks()
    {
        // Changed, warned about a text (DisplayOW), answered with; nothing if nothing is asked.
        for (const auto &[changed, warn, answer] : {std::tuple(true, true, "Yes"),
                                                    {true, false, "No"},
                                                    {false, true, "Yes"},
                                                    {false, true, "No"},
                                                    {false, false, ""}}) {
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
            QCOMPARE(QStringList(
                         {board()->Text(), window->TextFile.LoadedFilePath, window->windowTitle()}),
                     unloaded ? QStringList({"", "", "Zendova Version 3.0.0 RC2"})
                              : QStringList({"ab", "/a/b.zuf", "Zendova :  b.zuf"}));
            QCOMPARE(window->FindFrame->isVisible(), !unloaded);
            QCOMPARE(window->TextFile.TextChanged, changed || unloaded);
        }
    }

    void unloadRestoresDefaults()
    {
        const QString first = window->FontNameCombo->ItemText(1);
        for (const QString stored : {"", "Arial", "No Such"}) { // nothing: the format stays
            QApplication::setActiveWindow(window); // no window system gives the focus back here
            QTest::keyClicks(board(), "ab");
            if (stored != "Arial") // after the first round it is there already
                giveFormat(window);
            window->OptUnloadTD->setChecked(!stored.isEmpty());
            desktop->alterSettings("UPDATE settings SET value = '" + stored +
                                   "' WHERE name = 'FontName'");
            expect(UnloadChanged, "Yes");
            press("ClearButton");
            const QString after = stored == "No Such" ? first + QString(FirstFormat).mid(5)
                                  : stored.isEmpty()  ? GivenFormat
                                                      : FirstFormat;
            QCOMPARE(formatOf(window), after);
        }
        QCOMPARE(window->Format.TBFontName, first);
        QCOMPARE(window->Format.TBFontIndex, 1);
    }

private:
    ::TextBoard *board() const { return window->TextBoard; }
    void keys(const QString &sequence) const
    {
        QTest::keySequence(window->focusWidget(), QKeySequence(sequence));
    }
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
