// The clipboard, deleting and emptying the board by every way in which a person can do it, with the
// limit of the board at each paste.
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <new>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using namespace Qt::StringLiterals;

namespace {

QClipboard *clipboard()
{
    return QGuiApplication::clipboard();
}

/// Gives an Edit command as a person does: by "menu", "button", or a key.
void give(const Zendova *window, const QString &way, const char *item)
{
    if (way == "menu")
        chooseFromMenu(window, "ItemEdit", item);
    else if (way == "button")
        QTest::mouseClick(window->TextEditTB->button(item + strlen("Edit")), Qt::LeftButton);
    else
        QTest::keySequence(window->focusWidget(), QKeySequence(way));
}

void pressPaste(const Zendova *window)
{
    give(window, "button", "EditPaste");
}

void clickOperation(const Zendova *window, const char *key)
{
    QTest::mouseClick(window->TBOperationsTB->button(key), Qt::LeftButton);
}

/// The toolkit does not tidy up behind an exception that passes through it.
class LeaksAllowed
{
#ifdef __SANITIZE_ADDRESS__
    __lsan::ScopedDisabler Disabler;
#endif
};

const QString CapacityReached = "\r\r\r\rPaste operation cannot be completed successfully.\r"
                                "The TextBoard is already filled to it's capacity.";
const QString TooLong = "\rLength of the text string you are trying to paste exceeds\r"
                        "the maximum limit (61,440 characters) of the TextBoard.\r"
                        "A partial paste upto the limit of the TextBoard is possible.\r\r"
                        "Continue Paste?\r"
                        "\u2022 Press Yes to paste partial string.\r"
                        "\u2022 Press No to cancel paste.";
const QString NoMemory = "\r\rPaste operation cannot be completed successfully\r"
                         "because of memory constraints.\r\r"
                         "You may try to reduce the size of the\r"
                         "string on Windows Clipboard and try again.";
const QString Copied = "\r\r\r\rTextBoard contents have been copied to Windows Clipboard.";
const QString WasCut = "\r\r\r\rTextBoard contents have been cut to Windows Clipboard.";
const QString AskUnload = "Continue Unloading?\r"
                          "\u2022 Press Yes to continue unloading TextBoard.\r"
                          "\u2022 Press No to cancel operation.";
const QString Changed = "\r\rText on the TextBoard has been changed.\r"
                        "You will lose these changes by unloading the TextBoard now.\r\r" +
                        AskUnload;
const QString Overwrite = "\r\rYou have text on the TextBoard.\r"
                          "You will lose this text by unloading the TextBoard now.\r\r" +
                          AskUnload;

/// Gives the board a font, a size, a style, an alignment and a colour other than the first ones.
void format(Zendova *window)
{
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "30"));
    QTest::mouseClick(window->FontFormatTB->button("Italic"), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("AlignRight"), Qt::LeftButton);
    window->SetColorFromDialog(RGBValue(128, 0, 0));
}

} // namespace

class TestEditing : public QObject
{
    Q_OBJECT

private slots:
    void init() { clipboard()->setText("old"); }

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
        Desktop desktop;
        Zendova *window = desktop.start();
        // The commands are the board's also while the focus is in the find bar.
        for (const bool inFindBar : {false, true}) {
            for (const auto &row : rows) {
                for (const QString &way : row.Ways) {
                    window->TextBoard->setText("abcdef");
                    clipboard()->setText("old");
                    if (inFindBar) {
                        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+F"));
                        QTest::keyClicks(window->FindFrame->FindString, "find");
                        window->FindFrame->FindString->selectAll();
                    }
                    select(window, 2, 2);
                    give(window, way, row.Item);
                    QCOMPARE(window->TextBoard->Text(), QString(row.Board));
                    QCOMPARE(window->TextBoard->SelText(), QString(row.Selected));
                    QCOMPARE(clipboard()->text(), QString(row.Clipboard));
                    QCOMPARE(window->FindFrame->FindString->selectedText(),
                             QString(inFindBar ? "find" : ""));
                    window->TextBoard->setText(""); // closes the bar
                }
            }
        }
    }

    void statesFollowSelectionAndClipboard()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        const auto isOn = [window](const char *key) {
            lookAtMenu(window, "ItemEdit");
            const QToolButton *button = window->TextEditTB->findChild<QToolButton *>(key);
            const bool inMenu = menuItem(window, qPrintable(QString("Edit") + key))->isEnabled();
            return inMenu && (!button || button->isEnabled());
        };
        QVERIFY(!isOn("Cut") && !isOn("Delete") && !isOn("SelectAll"));
        QTest::keyClicks(window->TextBoard, "ab");
        QVERIFY(isOn("SelectAll") && !isOn("Delete"));
        QTest::keySequence(window->TextBoard, QKeySequence("Shift+Left"));
        // A key meets the state of now, not that in which the menu last opened.
        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+C"));
        QCOMPARE(clipboard()->text(), QString("b"));
        QVERIFY(isOn("Cut") && isOn("Copy") && isOn("Delete"));
        QTest::mouseClick(window->TextBoard->viewport(), Qt::LeftButton);
        QVERIFY(!window->TextEditTB->button("Cut")->isEnabled() && !isOn("Copy"));
        chooseFromMenu(window, "ItemEdit", "EditSelectAll");
        QVERIFY(isOn("Cut") && isOn("Copy"));
        QTest::keySequence(window->TextBoard, QKeySequence("Home"));
        for (const char *key : {"Ctrl+C", "Ctrl+X", "Ctrl+D"})
            QTest::keySequence(window->TextBoard, QKeySequence(key));
        QCOMPARE(clipboard()->text(), QString("b"));
        QCOMPARE(window->TextBoard->Text(), QString("ab"));

        QVERIFY(isOn("Paste"));
        clipboard()->clear();
        QVERIFY(!window->TextEditTB->button("Paste")->isEnabled() && !isOn("Paste"));
        clipboard()->setText("text of another program");
        QVERIFY(isOn("Paste"));
        // An empty text replaces nothing.
        clipboard()->setText("");
        chooseFromMenu(window, "ItemEdit", "EditSelectAll");
        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+V"));
        QCOMPARE(window->TextBoard->SelText(), QString("ab"));
    }

    void pasteFitsTheText()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        for (const char *text : {"a\nb\n\n", "a\rb\r\r", "a\r\nb\r\n\r\n"}) {
            clipboard()->setText(text);
            pressPaste(window);
            QCOMPARE(window->TextBoard->Text(), QString("a\r\nb\r\n\r\n"));
            chooseFromMenu(window, "ItemEdit", "EditSelectAll");
            give(window, "button", "EditCut");
            QCOMPARE(clipboard()->text(), QString("a\nb\n\n"));
        }
        // It counts as what it becomes: seven characters, one accent less and one letter more.
        clipboard()->setText(u"e\u0301\u0151\uFB01\u4E00\U0001F600\u20AC"_s);
        window->TextBoard->setText(linesOfText(BoardLimit - 7));
        window->TextBoard->setSelStart(BoardLimit);
        pressPaste(window);
        QCOMPARE(window->TextBoard->Text().right(7), u"\u00E9ofi??\u20AC"_s);
        QVERIFY(desktop.Dialogs.allCame());
    }

    void pasteLimit()
    {
        const auto letters = [](int count) { return QString(count, 'y'); };
        const struct
        {
            int Count; // characters on the board, the last of them selected
            int Selected;
            QString Pasted;
            QString Question;
            QString Answer;
            int After;
        } rows[] = {
            {61000, 0, letters(440), {}, {}, BoardLimit},
            {61000, 0, letters(441), TooLong, "Yes", BoardLimit},
            {61000, 5, letters(500), TooLong, "No", 61000},
            {BoardLimit, 0, "a", CapacityReached, "Ok", BoardLimit},
            {BoardLimit, 10, "abc", TooLong, "Yes", BoardLimit - 7},
            {61400, 100, letters(100), TooLong, "Yes", 61400},
            {BoardLimit - 2, 0, "\n", {}, {}, BoardLimit},
            {80, 80, QString("ab\n").repeated(5'000'000), TooLong, "Yes", BoardLimit},
            {BoardLimit - 3, 0, "ab\ncd", TooLong, "Yes", BoardLimit - 1},
        };
        Desktop desktop;
        Zendova *window = desktop.start();
        for (const auto &row : rows) {
            window->TextBoard->setText(linesOfText(row.Count));
            select(window, row.Count - row.Selected, row.Selected);
            clipboard()->setText(row.Pasted);
            if (!row.Question.isEmpty())
                desktop.Dialogs.message(row.Question == TooLong ? "Zendova TextBoard Limit Warning"
                                                                : "Zendova Paste Error",
                                        row.Question, row.Answer);
            pressPaste(window);
            QVERIFY(desktop.Dialogs.allCame());
            QCOMPARE(window->TextBoard->TextLength(), row.After);
            QCOMPARE(window->TextBoard->SelLength(), row.Answer == "No" ? row.Selected : 0);
        }
    }

    void partialPasteGoesWhereTheFocusIs()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        window->TextBoard->setText(linesOfText(BoardLimit - 3));
        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+F"));
        for (const char *text : {"abcdef", "ghi"}) {
            clipboard()->setText(text);
            if (strlen(text) > 3)
                desktop.Dialogs.message("Zendova TextBoard Limit Warning", TooLong, "Yes");
            pressPaste(window);
        }
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->FindFrame->FindString->text(), QString("abc"));
        QCOMPARE(window->TextBoard->TextLength(), BoardLimit);
    }

    void pasteWithoutMemory()
    {
        [[maybe_unused]] const LeaksAllowed inTheToolkit; // of use under the sanitizers only
        Desktop desktop;
        Zendova *window = desktop.start();
        const auto failure =
            connect(window->TextBoard, &TextBoard::Change, window, [] { throw std::bad_alloc(); });
        desktop.Dialogs.message("Zendova Paste Error", NoMemory, "Ok");
        pressPaste(window);
        QVERIFY(desktop.Dialogs.allCame());
        disconnect(failure);
        QTest::keyClicks(window->TextBoard, "!");
        QCOMPARE(window->TextBoard->Text(), QString("old!"));
    }

    void boardToClipboard()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        const QString text = u"1 { \\ } \u00E9\u20AC\r\n\r\nend\r\n"_s;
        window->TextBoard->setText(text);
        format(window);
        desktop.Dialogs.message("Zendova Copy Successful", Copied, "Ok");
        clickOperation(window, "CopyButton");
        QVERIFY(desktop.Dialogs.allCame());

        // Both at once, for another program that takes the one or the other.
        const QMimeData *offered = clipboard()->mimeData();
        QCOMPARE(offered->data("text/plain"), QByteArray("1 { \\ } é€\n\nend\n"));
        const QByteArray rich = offered->data("text/rtf");
        QCOMPARE(offered->data("application/rtf"), rich);
        for (const char *part : {"1 \\{ \\\\ \\} ", "Zt Four", "\\fs60", "\\i", "\\qr", "\\red128"})
            QVERIFY2(rich.contains(part), rich.constData());

        // The selection alone goes as plain text, and nothing of the board stays beside it.
        select(window, 0, 1);
        give(window, "button", "EditCopy");
        QCOMPARE(clipboard()->mimeData()->formats(), QStringList("text/plain"));
    }

    void cutBoard()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "ab");
        window->TextFile.LoadedFilePath = "/a/b.zuf";
        desktop.Dialogs.message("Zendova Cut Successful", WasCut, "Ok", true);
        chooseFromMenu(window, "ItemTools", "ToolsCut");
        QVERIFY(!window->DisplayCD->isChecked());
        QCOMPARE(window->TextBoard->Text(), QString());
        QVERIFY(clipboard()->mimeData()->hasFormat("text/rtf"));
        QCOMPARE(clipboard()->text(), QString("ab"));
        QCOMPARE(window->TextFile.LoadedFilePath,
                 QString("/a/b.zuf")); // it still belongs to its file
        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+Z"));
        QCOMPARE(window->TextBoard->Text(), QString("ab"));
        // The confirmation is silenced.
        clickOperation(window, "CopyButton");
        clickOperation(window, "CutButton");
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->TextBoard->TextLength(), 0);
    }

    void unloadAsks_data()
    {
        QTest::addColumn<bool>("changed");
        QTest::addColumn<bool>("warn"); // DisplayOW
        QTest::addColumn<QString>("answer");
        QTest::newRow("changed, yes") << true << true << "Yes";
        QTest::newRow("changed, warning off") << true << false << "No";
        QTest::newRow("unchanged, yes") << false << true << "Yes";
        QTest::newRow("unchanged, never again") << false << true << "No";
        QTest::newRow("unchanged, warning off") << false << false << "";
    }
    void unloadAsks()
    {
        QFETCH(bool, changed);
        QFETCH(bool, warn);
        QFETCH(QString, answer);
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "ab");
        window->TextFile.TextChanged = changed;
        window->DisplayOW->setChecked(warn);
        window->TextFile.LoadedFilePath = "/a/b.zuf";
        window->setWindowTitle("Zendova :  b.zuf");
        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+F"));
        const bool unloaded = answer != "No";
        if (changed)
            desktop.Dialogs.message("Zendova TextBoard Save Warning", Changed, answer);
        else if (warn)
            desktop.Dialogs.message("Zendova TextBoard Unload Warning", Overwrite, answer,
                                    !unloaded);
        if (warn)
            clickOperation(window, "ClearButton");
        else
            chooseFromMenu(window, "ItemTools", "ToolsClear");
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->DisplayOW->isChecked(), warn && unloaded);
        QCOMPARE(window->TextBoard->Text(), QString(unloaded ? "" : "ab"));
        QCOMPARE(window->TextFile.LoadedFilePath, QString(unloaded ? "" : "/a/b.zuf"));
        QCOMPARE(window->windowTitle(),
                 QString(unloaded ? "Zendova Version 3.0.0 RC2" : "Zendova :  b.zuf"));
        QCOMPARE(window->FindFrame->isVisible(), !unloaded);
        QCOMPARE(window->TextFile.TextChanged, changed || unloaded);
    }

    void unloadWithoutTheDefaultFont()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "ab");
        format(window);
        window->OptUnloadTD->setChecked(true);
        desktop.alterSettings("UPDATE settings SET value = 'No Such' WHERE name = 'FontName'");
        desktop.Dialogs.message("Zendova TextBoard Save Warning", Changed, "Yes");
        clickOperation(window, "ClearButton");
        QVERIFY(desktop.Dialogs.allCame());
        const QString first = window->FontNameCombo->ItemText(1);
        QCOMPARE(QStringList({window->TextBoard->FontName(), window->Format.TBFontName}),
                 QStringList({first, first}));
        QCOMPARE(window->Format.TBFontIndex, 1);
    }

    void unloadRestoresDefaults()
    {
        for (const bool restore : {true, false}) {
            Desktop desktop;
            Zendova *window = desktop.start();
            QTest::keyClicks(window->TextBoard, "ab");
            format(window);
            window->OptUnloadTD->setChecked(restore);
            desktop.Dialogs.message("Zendova TextBoard Save Warning", Changed, "Yes");
            clickOperation(window, "ClearButton");
            QVERIFY(desktop.Dialogs.allCame());
            const TextBoard *board = window->TextBoard;
            QCOMPARE(board->FontName(), QString(restore ? "Arial" : "Zt Four"));
            QCOMPARE(window->FontNameCombo->Text(), board->FontName());
            QCOMPARE(board->FontSize(), restore ? 18.0 : 30.0);
            QCOMPARE(window->FontSizeSlider->number()->text(), QString(restore ? "18" : "30"));
            QCOMPARE(board->FontItalic(), !restore);
            QCOMPARE(board->Alignment(), restore ? 0 : 1);
            QCOMPARE(board->ForeColor(), restore ? QColor(0, 0, 0) : QColor(128, 0, 0));
        }
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestEditing>(argc, argv);
}

#include "tst_editing.moc"
