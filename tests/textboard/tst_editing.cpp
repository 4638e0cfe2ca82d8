// The clipboard, deleting and emptying the board by every way in which a person can do it, with the
// limit of the board at each paste.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <new>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr int Limit = 61440;

QClipboard *clipboard()
{
    return QGuiApplication::clipboard();
}

QString letters(int count)
{
    return QString(count, 'x');
}

void select(const Zendova *window, int start, int length)
{
    window->TextBoard->setSelStart(start);
    window->TextBoard->setSelLength(length);
}

/// Gives a command as a person does: by "menu", "button", or a key.
void give(const Zendova *window, const QString &way, const char *item, const char *button)
{
    if (way == "menu")
        chooseFromMenu(window, "ItemEdit", item);
    else if (way == "button")
        QTest::mouseClick(window->TextEditTB->button(button), Qt::LeftButton);
    else
        QTest::keySequence(window->focusWidget(), QKeySequence(way));
}

void pressPaste(const Zendova *window)
{
    give(window, "button", nullptr, "Paste");
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
const QString Changed = "\r\rText on the TextBoard has been changed.\r"
                        "You will lose these changes by unloading the TextBoard now.\r\r"
                        "Continue Unloading?\r"
                        "\u2022 Press Yes to continue unloading TextBoard.\r"
                        "\u2022 Press No to cancel operation.";
const QString Overwrite = "\r\rYou have text on the TextBoard.\r"
                          "You will lose this text by unloading the TextBoard now.\r\r"
                          "Continue Unloading?\r"
                          "\u2022 Press Yes to continue unloading TextBoard.\r"
                          "\u2022 Press No to cancel operation.";

} // namespace

class TestEditing : public QObject
{
    Q_OBJECT

private slots:
    void init() { clipboard()->setText("old"); }

    void commands_data();
    void commands();
    void keysMeetTheStateOfTheLastOpening();
    void statesFollowSelectionAndClipboard();
    void linesOnTheClipboard();
    void pasteLimit_data();
    void pasteLimit();
    void pasteBringsIntoTheCodePage();
    void pasteOfNothing();
    void partialPasteGoesWhereTheFocusIs();
    void pasteOfMillions();
    void pasteWithoutMemory();
    void boardToClipboard();
    void confirmationCanBeSilenced();
    void cutBoard();
    void unloadAsks_data();
    void unloadAsks();
    void unloadRestoresDefaults_data();
    void unloadRestoresDefaults();
};

void TestEditing::commands_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("ways");
    QTest::addColumn<QString>("board");
    QTest::addColumn<QString>("onClipboard");
    QTest::addColumn<QString>("selected");
    QTest::newRow("cut") << "EditCut" << QStringList{"menu", "button", "Ctrl+X", "Shift+Del"}
                         << "abef"
                         << "cd"
                         << "";
    QTest::newRow("copy") << "EditCopy" << QStringList{"menu", "button", "Ctrl+C", "Ctrl+Ins"}
                          << "abcdef"
                          << "cd"
                          << "cd";
    QTest::newRow("paste") << "EditPaste" << QStringList{"menu", "button", "Ctrl+V", "Shift+Ins"}
                           << "aboldef"
                           << "old"
                           << "";
    QTest::newRow("delete") << "EditDelete" << QStringList{"menu", "Ctrl+D"} << "abef"
                            << "old"
                            << "";
    QTest::newRow("select all") << "EditSelectAll" << QStringList{"menu", "Ctrl+A"} << "abcdef"
                                << "old"
                                << "abcdef";
}

void TestEditing::commands()
{
    QFETCH(QString, item);
    QFETCH(QStringList, ways);
    Desktop desktop;
    Zendova *window = desktop.start();
    // The commands are the board's also while the focus is in the find bar.
    for (const bool inFindBar : {false, true}) {
        for (const QString &way : ways) {
            window->TextBoard->setText("abcdef");
            clipboard()->setText("old");
            if (inFindBar) {
                QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+F"));
                QTest::keyClicks(window->FindString, "find");
                QTest::keySequence(window->FindString, QKeySequence("Shift+Home"));
            }
            select(window, 2, 2);
            give(window, way, qPrintable(item), qPrintable(item.mid(4)));
            QTEST(window->TextBoard->Text(), "board");
            QTEST(window->TextBoard->SelText(), "selected");
            QTEST(clipboard()->text(), "onClipboard");
            QCOMPARE(window->FindString->selectedText(), QString(inFindBar ? "find" : ""));
            QCOMPARE(window->FindHasFocus(), inFindBar);
            window->TextBoard->setText(""); // closes the bar
        }
    }
}

void TestEditing::keysMeetTheStateOfTheLastOpening()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    lookAtMenu(window, "ItemEdit"); // nothing is selected: Cut and Copy are off in the menu
    QVERIFY(!menuItem(window, "EditCopy")->isEnabled());
    QTest::keySequence(window->TextBoard, QKeySequence("Shift+Left"));
    QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+C"));
    QCOMPARE(clipboard()->text(), QString("old"));
    lookAtMenu(window, "ItemEdit");
    QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+C"));
    QCOMPARE(clipboard()->text(), QString("b"));
    // The items are on now; with nothing selected they leave everything as it is.
    QTest::keySequence(window->TextBoard, QKeySequence("Home"));
    for (const char *key : {"Ctrl+C", "Ctrl+X", "Ctrl+D"})
        QTest::keySequence(window->TextBoard, QKeySequence(key));
    QCOMPARE(clipboard()->text(), QString("b"));
    QCOMPARE(window->TextBoard->Text(), QString("ab"));
}

void TestEditing::statesFollowSelectionAndClipboard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto isOn = [window](const char *key) {
        return window->TextEditTB->button(key)->isEnabled();
    };
    const auto inMenu = [window](const char *item) {
        lookAtMenu(window, "ItemEdit");
        return menuItem(window, item)->isEnabled();
    };
    QVERIFY(!inMenu("EditCut") && !inMenu("EditDelete") && !inMenu("EditSelectAll"));
    clickCell(window, cellOf('a'));
    QVERIFY(inMenu("EditSelectAll"));
    QVERIFY(!inMenu("EditDelete"));
    chooseFromMenu(window, "ItemEdit", "EditSelectAll");
    QVERIFY(isOn("Cut") && isOn("Copy") && inMenu("EditCut") && inMenu("EditDelete"));
    clickCell(window, cellOf('b')); // replaces the selection
    QVERIFY(!isOn("Cut") && !isOn("Copy") && !inMenu("EditCopy") && !inMenu("EditDelete"));

    QVERIFY(isOn("Paste"));
    clipboard()->clear();
    QVERIFY(!isOn("Paste") && !inMenu("EditPaste"));
    clipboard()->setImage(QImage(1, 1, QImage::Format_RGB32));
    QVERIFY(!isOn("Paste"));
    clipboard()->setText("text of another program");
    QVERIFY(isOn("Paste") && inMenu("EditPaste"));
}

void TestEditing::linesOnTheClipboard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    for (const char *text : {"a\nb\n\n", "a\rb\r\r", "a\r\nb\r\n\r\n"}) {
        clipboard()->setText(text);
        pressPaste(window);
        QCOMPARE(window->TextBoard->Text(), QString("a\r\nb\r\n\r\n"));
        chooseFromMenu(window, "ItemEdit", "EditSelectAll");
        give(window, "button", nullptr, "Cut");
        QCOMPARE(clipboard()->text(), QString("a\nb\n\n"));
    }
}

void TestEditing::pasteLimit_data()
{
    QTest::addColumn<int>("count"); // characters on the board
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("after");
    QTest::addColumn<int>("caret");
    const auto row = [](const char *name, int count, int selected, const QString &pasted,
                        const QString &question, const char *answer, int after, int caret) {
        QTest::newRow(name) << count << selected << pasted << question << QString(answer) << after
                            << caret;
    };
    row("exactly the room", 61000, 0, letters(440), {}, "", Limit, Limit);
    row("one too many", 61000, 0, letters(441), TooLong, "Yes", Limit, Limit);
    row("500 into 440", 61000, 0, letters(500), TooLong, "Yes", Limit, Limit);
    row("refused", 61000, 0, letters(500), TooLong, "No", 61000, 61000);
    row("full", Limit, 0, "a", CapacityReached, "Ok", Limit, Limit);
    row("full, nothing to paste", Limit, 0, "", CapacityReached, "Ok", Limit, Limit);
    row("full with a selection", Limit, 10, letters(20), TooLong, "Yes", Limit, Limit);
    row("full, a selection that has room", Limit, 10, "abc", TooLong, "Yes", Limit - 7, Limit - 7);
    row("full, selection kept", Limit, 10, "abc", TooLong, "No", Limit, Limit);
    row("selection makes room", 61400, 100, letters(100), TooLong, "Yes", 61400, 61400);
    row("no room for a line end", Limit - 1, 0, "\n", TooLong, "Yes", Limit - 1, Limit - 1);
    row("a line end of two", Limit - 2, 0, "\n", {}, "", Limit, Limit);
    row("cut within a line end", Limit - 3, 0, "ab\ncd", TooLong, "Yes", Limit - 1, Limit - 1);
}

void TestEditing::pasteLimit()
{
    QFETCH(int, count);
    QFETCH(int, selected);
    QFETCH(QString, pasted);
    QFETCH(QString, question);
    QFETCH(QString, answer);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText(letters(count));
    select(window, count - selected, selected);
    clipboard()->setText(pasted);
    if (!question.isEmpty())
        desktop.Dialogs.message(question == TooLong ? "Zendova TextBoard Limit Warning"
                                                    : "Zendova Paste Error",
                                question, answer);
    pressPaste(window);
    QVERIFY(desktop.Dialogs.allCame());
    QTEST(window->TextBoard->TextLength(), "after");
    QTEST(window->TextBoard->SelStart() + window->TextBoard->SelLength(), "caret");
    QCOMPARE(window->TextBoard->SelLength(), answer == "No" ? selected : 0);
}

void TestEditing::pasteBringsIntoTheCodePage()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    // Composed letters, base letters, a ligature of one character that becomes two, and strangers.
    const QString foreign = u"e\u0301\u0151\uFB01\u4E00\U0001F600\u20AC"_s;
    clipboard()->setText(foreign);
    pressPaste(window);
    QCOMPARE(window->TextBoard->Text(), u"\u00E9ofi??\u20AC"_s);

    // It counts as what it becomes: seven characters, one accent less and one letter more.
    window->TextBoard->setText(letters(Limit - 7));
    window->TextBoard->setSelStart(Limit);
    pressPaste(window);
    QCOMPARE(window->TextBoard->TextLength(), Limit);
    QVERIFY(desktop.Dialogs.allCame());
}

void TestEditing::pasteOfNothing()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    QTest::keySequence(window->TextBoard, QKeySequence("Shift+Left"));
    clipboard()->setText("");
    pressPaste(window);
    clipboard()->clear();
    QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+V"));
    QCOMPARE(window->TextBoard->Text(), QString("ab"));
    QCOMPARE(window->TextBoard->SelText(), QString("b"));
}

void TestEditing::partialPasteGoesWhereTheFocusIs()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->TextBoard->setText(letters(Limit - 3));
    QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+F"));
    QTest::keyClicks(window->FindString, "find");
    QTest::keySequence(window->FindString, QKeySequence("Shift+Left"));
    clipboard()->setText("abcdef");
    for (const char *way : {"Ctrl+V", "button", "menu"}) {
        desktop.Dialogs.message("Zendova TextBoard Limit Warning", TooLong, "Yes");
        give(window, way, "EditPaste", "Paste");
    }
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->FindString->text(), QString("finabcabcabc"));
    QCOMPARE(window->TextBoard->TextLength(), Limit - 3);

    // What fits goes onto the board wherever the focus is.
    clipboard()->setText("abc");
    pressPaste(window);
    QCOMPARE(window->FindString->text(), QString("finabcabcabc"));
    QCOMPARE(window->TextBoard->TextLength(), Limit);
}

void TestEditing::pasteOfMillions()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    clipboard()->setText(QString("ab\n").repeated(5'000'000));
    desktop.Dialogs.message("Zendova TextBoard Limit Warning", TooLong, "Yes");
    pressPaste(window);
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->Text(), QString("ab\r\n").repeated(Limit / 4));
}

void TestEditing::pasteWithoutMemory()
{
    const LeaksAllowed inTheToolkit;
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

void TestEditing::boardToClipboard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const QString text = u"1 { \\ } \u00E9\u20AC\r\n\r\nend\r\n"_s;
    window->TextBoard->setText(text);
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "30"));
    QTest::mouseClick(window->FontFormatTB->button("Italic"), Qt::LeftButton);
    QTest::mouseClick(window->FontFormatTB->button("Strikethrough"), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("CenterText"), Qt::LeftButton);
    window->SetColorFromDialog(RGBValue(128, 0, 0));
    desktop.Dialogs.message("Zendova Copy Successful", Copied, "Ok");
    clickOperation(window, "CopyButton");
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(window->DisplayCD->isChecked());
    QCOMPARE(window->TextBoard->Text(), text);

    // Both at once, for another program that takes the one or the other.
    const QMimeData *offered = clipboard()->mimeData();
    QCOMPARE(offered->data("text/plain"), QByteArray("1 { \\ } é€\n\nend\n"));
    QCOMPARE(offered->data("application/rtf"), offered->data("text/rtf"));
    QFile file(desktop.Folder.filePath("offered.rtf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(offered->data("text/rtf"));
    file.close();
    TextBoardRTF rich;
    QVERIFY(!rich.LoadFile(file.fileName(), TextBoardRTF::FileKind::RichText));
    QCOMPARE(rich.Text(), text);
    rich.setSelLength(rich.TextLength());
    QCOMPARE(rich.SelFontName(), QString("Zt Four"));
    QCOMPARE(rich.SelFontSize(), 30.0);
    QCOMPARE(rich.SelBold(), false);
    QCOMPARE(rich.SelItalic(), true);
    QCOMPARE(rich.SelUnderline(), false);
    QCOMPARE(rich.SelStrikeThru(), true);
    QCOMPARE(rich.SelColor(), RGBValue(128, 0, 0));
    QCOMPARE(rich.SelAlignment(), 2);

    // The selection alone goes as plain text, and nothing of the board stays beside it.
    select(window, 0, 1);
    give(window, "button", nullptr, "Copy");
    QCOMPARE(clipboard()->mimeData()->formats(), QStringList("text/plain"));
}

void TestEditing::confirmationCanBeSilenced()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    desktop.Dialogs.message("Zendova Copy Successful", Copied, "Ok", true);
    chooseFromMenu(window, "ItemTools", "ToolsCopy");
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!window->DisplayCD->isChecked());
    clickOperation(window, "CopyButton");
    clickOperation(window, "CutButton");
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->TextBoard->TextLength(), 0);
}

void TestEditing::cutBoard()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    QTest::keySequence(window->TextBoard, QKeySequence("Shift+Left"));
    window->LoadedFilePath = "/a/b.zuf";
    window->setWindowTitle("Zendova :  b.zuf");
    desktop.Dialogs.message("Zendova Cut Successful", WasCut, "Ok", true);
    chooseFromMenu(window, "ItemTools", "ToolsCut");
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!window->DisplayCD->isChecked());
    QCOMPARE(window->TextBoard->Text(), QString());
    QCOMPARE(window->TextBoardRTF.Text(), QString());
    QVERIFY(clipboard()->mimeData()->hasFormat("text/rtf"));
    QCOMPARE(clipboard()->text(), QString("ab"));
    // It still belongs to its file.
    QCOMPARE(window->LoadedFilePath, QString("/a/b.zuf"));
    QCOMPARE(window->windowTitle(), QString("Zendova :  b.zuf"));
    for (const char *key : {"CopyButton", "CutButton", "ClearButton"})
        QVERIFY(!window->TBOperationsTB->button(key)->isEnabled());
    QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+Z"));
    QCOMPARE(window->TextBoard->Text(), QString("ab"));
    QVERIFY(!window->TextEditTB->button("Cut")->isEnabled());
}

void TestEditing::unloadAsks_data()
{
    QTest::addColumn<bool>("changed");
    QTest::addColumn<bool>("warn"); // DisplayOW
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("dontRepeat");
    QTest::newRow("changed, yes") << true << true << "Yes" << false;
    QTest::newRow("changed, no") << true << true << "No" << false;
    QTest::newRow("changed, warning off") << true << false << "No" << false;
    QTest::newRow("unchanged, yes") << false << true << "Yes" << false;
    QTest::newRow("unchanged, no") << false << true << "No" << false;
    QTest::newRow("unchanged, never again") << false << true << "No" << true;
    QTest::newRow("unchanged, warning off") << false << false << "" << false;
}

void TestEditing::unloadAsks()
{
    QFETCH(bool, changed);
    QFETCH(bool, warn);
    QFETCH(QString, answer);
    QFETCH(bool, dontRepeat);
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    window->TextChanged = changed;
    window->DisplayOW->setChecked(warn);
    window->LoadedFilePath = "/a/b.zuf";
    window->LoadedFileTitle = "b.zuf";
    window->setWindowTitle("Zendova :  b.zuf");
    QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+F"));
    if (changed)
        desktop.Dialogs.message("Zendova TextBoard Save Warning", Changed, answer);
    else if (warn)
        desktop.Dialogs.message("Zendova TextBoard Unload Warning", Overwrite, answer, dontRepeat);
    if (warn)
        clickOperation(window, "ClearButton");
    else
        chooseFromMenu(window, "ItemTools", "ToolsClear");
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->DisplayOW->isChecked(), warn && !dontRepeat);
    const bool unloaded = answer != "No";
    QCOMPARE(window->TextBoard->Text(), QString(unloaded ? "" : "ab"));
    QCOMPARE(window->LoadedFilePath, QString(unloaded ? "" : "/a/b.zuf"));
    QCOMPARE(window->LoadedFileTitle, QString(unloaded ? "" : "b.zuf"));
    QCOMPARE(window->windowTitle(),
             QString(unloaded ? "Zendova Version 3.0.0 RC2" : "Zendova :  b.zuf"));
    QCOMPARE(window->FindFrame->isVisible(), !unloaded);
    QCOMPARE(window->TextChanged, changed || unloaded);
}

void TestEditing::unloadRestoresDefaults_data()
{
    QTest::addColumn<bool>("restore");
    QTest::newRow("restored") << true;
    QTest::newRow("kept") << false;
}

void TestEditing::unloadRestoresDefaults()
{
    QFETCH(bool, restore);
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "30"));
    QTest::mouseClick(window->FontFormatTB->button("Italic"), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("AlignRight"), Qt::LeftButton);
    window->SetColorFromDialog(RGBValue(128, 0, 0));
    window->OptUnloadTD->setChecked(restore);
    desktop.Dialogs.message("Zendova TextBoard Save Warning", Changed, "Yes");
    clickOperation(window, "ClearButton");
    QVERIFY(desktop.Dialogs.allCame());
    QTest::keyClicks(window->TextBoard, "c");
    const TextBoard *board = window->TextBoard;
    QCOMPARE(board->FontName(), QString(restore ? "Arial" : "Zt Four"));
    QCOMPARE(window->FontNameCombo->Text(), board->FontName());
    QCOMPARE(window->TBFontIndex, window->FontNameCombo->SelectedItem());
    QCOMPARE(board->FontSize(), restore ? 18.0 : 30.0);
    QCOMPARE(window->FontSizeSlider->number()->text(), QString(restore ? "18" : "30"));
    QCOMPARE(board->FontItalic(), !restore);
    QCOMPARE(window->FontFormatTB->button("Italic")->isChecked(), !restore);
    QCOMPARE(board->Alignment(), restore ? 0 : 1);
    QCOMPARE(window->TextAlignTB->button("AlignRight")->isChecked(), !restore);
    QCOMPARE(board->ForeColor(), restore ? QColor(0, 0, 0) : QColor(128, 0, 0));
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestEditing test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_editing.moc"
