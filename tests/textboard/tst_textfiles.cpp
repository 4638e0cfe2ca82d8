// Loading the board from files and saving it, by the dialogs, the command line and a drop: what
// arrives, what is asked and said, and what is left after a No or a failure.
#include "tests/support/BoardText.h"
#include "tests/support/Files.h"
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/SettingConversion.h"
#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/QBColors.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>
#include <cmath>

namespace {

constexpr const char *OpenTitle = "Select a File to Load Text From";
constexpr const char *SaveTitle = "Save Text in File";

/// A message by its title and words of it, in which %1 is the path of the file.
struct Said
{
    QString Title;
    QString Words;
};

const QString LoadError = "Zendova File Load Error";
const Said TextWasChanged = {"Zendova TextBoard Save Warning",
                             "has been changed. You will lose these changes by loading"};
const Said TextIsThere = {"Zendova TextBoard Overwrite Warning",
                          "You have text on the TextBoard. You will lose this text by loading"};
const Said AlreadyLoaded = {LoadError, "%1 Text from this file is already loaded."};
const Said LoadedButChanged = {LoadError, "%1 Text from this file was loaded but has since been "
                                          "changed. Do you want to reload the file?"};
const Said WrongType = {"Zendova File Type Error", "These are: • *.ZUF (Zendova Uniform Format "
                                                   "files) • *.TXT (ASCII Text files)"};
const Said TooLong = {"Zendova TextBoard Limit Warning",
                      "limit (61,440 characters) of the TextBoard. A partial load upto the limit"};
const Said NotReadable = {LoadError, "It does not seem to be a valid .ZUF or .TXT file."};
const Said NotShown = {LoadError, "Try closing Zendova and reloading the file again."};
const Said FontMissing = {"Zendova File Font Error", "Font: No Such Font This font does not exist "
                                                     "on your system. It is used by the file"};
const Said ForeignColor = {LoadError, "does not match the 16 predefined Zendova font colors."};
const Said TooSmall = {LoadError, "smaller than the minimum TextBoard font Size of 8."};
const Said TooLarge = {LoadError, "exceeds the maximum TextBoard font Size of 36."};
const Said UnknownError = {"Zendova Unknown Error",
                           "write to feedback@zendova.example with all details of this problem."};
const Said SettingsReplaced = {"Zendova File Save Warning",
                               "will overwrite it's original font settings. Save File?"};
const Said NotSaved = {"Zendova File Save Error",
                       "It is still on the TextBoard. No such file or directory %1"};

/// A document of 12 points in one font and one colour with this body.
QByteArray document(const QByteArray &body, const QByteArray &font = "Zt Four",
                    const QByteArray &color = "\\red0\\green0\\blue128")
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 " + font + ";}{\\f1 Zt Latin;}}{\\colortbl;" +
           color + ";}\\f0\\fs24\\cf1 " + body + "}";
}

/// A started window, a folder for its files, and a person who uses the file dialogs.
struct Run
{
    Run() : Window(Desk.start()) { QDir(Desk.Folder.path()).mkdir("files"); }

    QString path(const QString &name) const { return Desk.Folder.filePath("files/" + name); }
    QString write(const QString &name, const QByteArray &content) const
    {
        return writeFile(path(name), content);
    }
    /// The next dialog is this message, of the file of this name.
    void expect(const Said &said, const QString &answer = "Ok", const QString &name = {},
                bool dontRepeat = false)
    {
        Desk.Dialogs.message(said.Title, QString(said.Words).replace("%1", path(name)), answer,
                             dontRepeat);
    }
    /// The next dialog is a file dialog, in which this name is typed over what stands there.
    void typeName(const char *title, const QString &name)
    {
        Desk.Dialogs.dialog(title, [path = path(name)](QDialog *dialog) {
            auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
            edit->setCompleter(nullptr); // whose list would take the click below
            QApplication::setActiveWindow(dialog);
            edit->setFocus(); // without it what is typed follows the list instead
            edit->selectAll();
            QTest::keyClicks(edit, path);
            auto *buttons = dialog->findChild<QDialogButtonBox *>();
            for (QAbstractButton *button : buttons->buttons())
                if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                    QTest::mouseClick(button, Qt::LeftButton);
            if (dialog->isVisible()) // it was not taken, and would wait for ever
                dialog->reject();
        });
    }
    /// The next dialog asks whether the file of this name may be replaced.
    void answerOverwrite(const QString &name, QMessageBox::StandardButton answer)
    {
        Desk.Dialogs.dialog(SaveTitle, [name, answer](QDialog *dialog) {
            auto *question = qobject_cast<QMessageBox *>(dialog);
            QVERIFY(question && question->text().contains(name));
            QTest::mouseClick(question->button(answer), Qt::LeftButton);
            if (answer == QMessageBox::No) // back in the file dialog
                qobject_cast<QDialog *>(QApplication::activeModalWidget())->reject();
        });
    }
    void click(const char *key)
    {
        QTest::mouseClick(Window->LoadSaveTB->button(key), Qt::LeftButton, {}, QPoint(8, 8));
        QApplication::setActiveWindow(Window); // no window system gives the focus back here
    }
    /// Loads by the dialog, behind which this is said.
    void load(const QString &name, const Said &said = {}, const QString &answer = "Ok")
    {
        typeName(OpenTitle, name);
        if (!said.Title.isEmpty())
            expect(said, answer, name);
        click("Load");
    }
    void save(const QString &name, const Said &said = {}, const QString &answer = "Ok")
    {
        typeName(SaveTitle, name);
        if (QFile::exists(path(name)))
            answerOverwrite(name, QMessageBox::Yes);
        if (!said.Title.isEmpty())
            expect(said, answer, name);
        click("Save");
    }
    ::TextBoard *board() const { return Window->TextBoard; }
    QString text() const { return Window->TextBoard->Text(); }
    QString title() const { return Window->windowTitle(); }
    bool allCame() { return Desk.Dialogs.allCame(); }
    /// What a load that failed after the clearing leaves behind.
    bool isEmptied() const
    {
        return text().isEmpty() && Window->TextFile.LoadedFilePath.isEmpty() &&
               Window->TextFile.LoadedFileTitle.isEmpty() &&
               !Window->LoadSaveTB->button("Save")->isEnabled();
    }

    Desktop Desk;
    Zendova *Window;
};

} // namespace

class TestTextFiles : public QObject
{
    Q_OBJECT

private slots:
    void everyByteSurvives();
    void formatsSurvive();
    void loads_data();
    void loads();
    void missingFont();
    void guards();
    void loadsAgain();
    void textDefaults();
    void endings();
    void bookkeeping();
    void dialogs();
    void drop();
};

void TestTextFiles::everyByteSurvives()
{
    Run run;
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        if (code != '\r' && code != '\n')
            all += static_cast<char>(code);
    run.write("all.txt", all + "\na\rb\r\nc\n\r\r\n\r\r");
    run.load("all.txt");
    all += "\r\na\r\nb\r\nc" + QByteArray("\r\n").repeated(5);
    QCOMPARE(run.board()->TextLength(), static_cast<int>(all.size()));
    const QString shown = run.text();
    run.save("copy.txt");
    QCOMPARE(contentOf(run.path("copy.txt")), all);
    run.save("copy.zuf");
    run.board()->setText({});
    run.load("copy.zuf", LoadedButChanged, "Yes");
    QCOMPARE(run.text(), shown);
    QVERIFY(run.allCame());
}

void TestTextFiles::formatsSurvive()
{
    const QString text = "one {two} \\three\r\n\r\n\tfour\r\n";
    const char *const styles[] = {"Bold", "Italic", "Underline", "Strikethrough"};
    QByteArray saved;
    {
        Run run;
        QVERIFY(chooseFont(run.Window, "Zt Four"));
        QVERIFY(fillNumberBox(run.Window->FontSizeSlider, "20"));
        for (const char *style : styles)
            QTest::mouseClick(run.Window->FontFormatTB->button(style), Qt::LeftButton);
        QTest::mouseClick(run.Window->TextAlignTB->button("AlignRight"), Qt::LeftButton);
        run.Window->SetColorFromDialog(QBColor(12));
        run.board()->setText(text);
        run.save("a.zuf");
        saved = contentOf(run.path("a.zuf"));
    }
    Run run;
    const Zendova *window = run.Window;
    const ::TextBoard *board = run.board();
    run.write("a.zuf", saved);
    run.load("a.zuf");
    QVERIFY(run.allCame());
    QCOMPARE(run.text(), text);
    QCOMPARE(board->FontName(), QString("Zt Four"));
    QCOMPARE(window->FontNameCombo->Text(), QString("Zt Four"));
    QCOMPARE(window->Format.TBFontName, QString("Zt Four"));
    QCOMPARE(board->FontSize(), 20.0);
    QCOMPARE(window->FontSizeSlider->number()->text(), QString("20"));
    QCOMPARE(window->FMapContainer->CharButton->cellFont().pointSize(), 20);
    for (const char *style : styles)
        QVERIFY2(window->FontFormatTB->button(style)->isChecked(), style);
    QVERIFY(board->FontBold() && board->FontItalic());
    QVERIFY(board->FontUnderline() && board->FontStrikethru());
    QVERIFY(window->ViewsContainer->TextZoom->cellFont().bold() &&
            window->ViewsContainer->TextZoom->cellFont().underline());
    QCOMPARE(board->Alignment(), 1);
    QVERIFY(window->TextAlignTB->button("AlignRight")->isChecked());
    QCOMPARE(board->ForeColor(), QColor(Qt::red));
    QCOMPARE(window->FontFormatTB->button("Color")->toolTip(),
             QString("Set TextBoard Font Color (Currently Red)"));
}

void TestTextFiles::loads_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Said>("said");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("text"); // on the board; empty if nothing is loaded
    QTest::addColumn<double>("points");
    const auto row = [](const char *test, const char *name, const QByteArray &content,
                        const Said &said, const char *answer, const QByteArray &text,
                        double points = 12) {
        QTest::newRow(test) << name << content << said << answer << QString(text) << points;
    };
    const QByteArray full(BoardLimit, 'x');
    row("just fits", "a.txt", full, {}, "", full);
    row("too long, yes", "a.txt", full + 'y', TooLong, "Yes", full);
    row("too long, no", "a.txt", full + 'y', TooLong, "No", "");
    row("formatted, fits", "a.zuf", document(full), {}, "", full);
    row("formatted, yes", "a.zuf", document(full + 'y'), TooLong, "Yes", full);
    row("7 points", "a.zuf", document("\\fs14 abc"), TooSmall, "Ok", "abc", 8);
    row("7.5 points", "a.zuf", document("\\fs15 abc"), {}, "", "abc", 7.5);
    row("8 points", "a.zuf", document("\\fs16 abc"), {}, "", "abc", 8);
    row("20.5 points", "a.zuf", document("\\fs41 abc"), {}, "", "abc", 20.5);
    row("36.5 points", "a.zuf", document("\\fs73 abc"), {}, "", "abc", 36.5);
    row("37 points", "a.zuf", document("\\fs74 abc"), TooLarge, "Ok", "abc", 36);
    row("foreign colour", "a.zuf", document("abc", "Zt Four", "\\red1\\green2\\blue3"),
        ForeignColor, "Ok", "abc");
    row("mixed style", "a.zuf", document("a{\\strike b}c"), UnknownError, "Ok", "abc");
    row("mixed alignment", "a.zuf", document("a\\par\\qc b"), UnknownError, "Ok", "a\r\nb");
    row("mixed size", "a.zuf", document("a{\\fs30 b}c"), NotReadable, "Ok", "");
    row("mixed font", "a.zuf", document("a{\\f1 b}c"), NotReadable, "Ok", "");
    row("mixed colour", "a.zuf", document("a{\\cf0 b}c"), NotReadable, "Ok", "");
    row("no rich text", "a.zuf", "plain text", NotReadable, "Ok", "");
    row("missing font", "a.zuf", document("abc", "No Such Font"), FontMissing, "No", "");
    row("more than is read", "a.txt", {}, NotReadable, "Ok", "");
    row("wrong type", "a.doc", "abc", WrongType, "Ok", "");
}

void TestTextFiles::loads()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(Said, said);
    QFETCH(QString, answer);
    QFETCH(QString, text);
    QFETCH(double, points);
    Run run;
    run.Window->DisplayOW->setChecked(false);
    run.write("first.txt", "first");
    run.load("first.txt");
    run.write(name, content);
    if (content.isNull())
        QVERIFY(QFile::resize(run.path(name), (qint64(256) << 20) + 1));
    run.load(name, said, answer);
    QVERIFY(run.allCame());
    QCOMPARE(run.text(), text);
    if (text.isEmpty()) {
        QVERIFY(run.isEmptied());
        QCOMPARE(run.title(), QString("Zendova :  first.txt"));
        return;
    }
    const char *partly = said.Title == TooLong.Title ? " (PARTIALLY LOADED!)" : "";
    QCOMPARE(run.title(), "Zendova :  " + name + partly);
    QCOMPARE(run.Window->TextFile.LoadedFilePath, run.path(name));
    QVERIFY(!run.Window->TextFile.TextChanged);
    if (name == "a.txt" || said.Title == UnknownError.Title)
        return;
    QCOMPARE(run.board()->FontName(), QString("Zt Four"));
    QCOMPARE(run.board()->FontSize(), points);
    const bool isForeign = said.Title == ForeignColor.Title && said.Words == ForeignColor.Words;
    QCOMPARE(run.board()->ForeColor(), isForeign ? QColor(1, 2, 3) : QColor(0, 0, 128));
    QCOMPARE(run.Window->Format.TBColorName, QString(isForeign ? "Black" : "Navy"));
    QCOMPARE(run.Window->FMapContainer->CharButton->cellFont().pointSize(), std::nearbyint(points));
}

void TestTextFiles::missingFont()
{
    Run run;
    QVERIFY(chooseFont(run.Window, "Zt Gaps"));
    const QByteArray content = document("\\fs40\\b\\qc abc", "No Such Font");
    run.write("a.zuf", content);
    run.load("a.zuf", FontMissing, "Yes");
    QCOMPARE(run.text(), QString("abc"));
    QCOMPARE(run.board()->FontName(), QString("Zt Gaps"));
    QCOMPARE(run.board()->FontSize(), double(run.Window->FontSizeSlider->value()));
    QVERIFY(!run.board()->FontBold());
    QCOMPARE(run.board()->Alignment(), 0);

    // A save that fails leaves everything as it was, also what the file has lost.
    QTest::keyClicks(run.board(), "x");
    const QString folder = run.Window->Folders.LFSavePath;
    run.save("no folder/b.zuf", NotSaved);
    QCOMPARE(run.text(), QString("xabc"));
    QVERIFY(run.Window->TextFile.TextChanged);
    QCOMPARE(run.Window->TextFile.LoadedFilePath, run.path("a.zuf"));
    QCOMPARE(run.title(), QString("Zendova :  a.zuf"));
    QCOMPARE(run.Window->Folders.LFSavePath, folder);
    QVERIFY(!menuItem(run.Window, "FileMRU2")->isVisible());

    // Saving it under its own name would lose its settings, each time anew.
    run.save("a.zuf", SettingsReplaced, "No");
    QCOMPARE(contentOf(run.path("a.zuf")), content);
    run.save("a.zuf", SettingsReplaced, "Yes");
    QVERIFY(contentOf(run.path("a.zuf")).contains("Zt Gaps"));
    run.save("a.zuf", SettingsReplaced, "Yes");
    // Another name is another matter, and ends it.
    run.save("b.zuf");
    run.save("b.zuf");
    QVERIFY(run.allCame());
}

void TestTextFiles::guards()
{
    Run run;
    run.write("a.txt", "loaded");
    run.write("b.txt", "other");
    QTest::keyClicks(run.board(), "typed");
    run.expect(TextWasChanged, "No");
    run.click("Load");
    QCOMPARE(run.text(), QString("typed"));
    run.expect(TextWasChanged, "Yes");
    run.load("a.txt");
    QCOMPARE(run.text(), QString("loaded"));
    run.expect(TextIsThere, "Yes");
    run.Desk.Dialogs.dialog(OpenTitle, [](QDialog *dialog) { dialog->reject(); });
    run.click("Load");
    QCOMPARE(run.text(), QString("loaded"));
    QCOMPARE(run.Window->TextFile.LoadedFileTitle, QString("a.txt"));
    QVERIFY(run.Window->DisplayOW->isChecked());
    run.expect(TextIsThere, "No", {}, true);
    run.click("Load");
    QCOMPARE(run.text(), QString("loaded"));
    // Silenced; and a change of the format is none of the text.
    QVERIFY(fillNumberBox(run.Window->FontSizeSlider, "30"));
    run.load("b.txt");
    QCOMPARE(run.text(), QString("other"));
    QVERIFY(run.allCame());
}

void TestTextFiles::loadsAgain()
{
    Run run;
    run.Window->DisplayOW->setChecked(false);
    run.write("a.txt", "first");
    run.load("a.txt");
    run.load("a.txt", AlreadyLoaded);
    QCOMPARE(run.text(), QString("first"));
    QTest::keyClicks(run.board(), "x");
    run.expect(TextWasChanged, "Yes");
    run.load("a.txt", LoadedButChanged, "No");
    QCOMPARE(run.text(), QString("xfirst"));
    run.expect(TextWasChanged, "Yes");
    run.load("a.txt", LoadedButChanged, "Yes");
    QCOMPARE(run.text(), QString("first"));
    // The settings that a text file needs can be damaged meanwhile: that is no fault of the file.
    run.Desk.alterSettings("UPDATE settings SET kind = 1, value = 'large' WHERE name = 'FontSize'");
    run.write("b.txt", "abc");
    run.Window->TextFile.PendingFilePath = run.path("b.txt");
    QVERIFY_THROWS_EXCEPTION(ConversionError, run.Window->LoadTextFile(run.path("b.txt")));
    QVERIFY(run.allCame());
}

void TestTextFiles::textDefaults()
{
    Run run;
    Zendova *window = run.Window;
    window->DisplayOW->setChecked(false);
    const double size = run.board()->FontSize();
    const QString font = run.board()->FontName();
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "33"));
    QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("CenterText"), Qt::LeftButton);
    window->SetColorFromDialog(QBColor(12));
    for (const bool defaults : {false, true}) {
        window->OptLoadTD->setChecked(defaults);
        const QString name = defaults ? "defaults.txt" : "as it is.txt";
        run.write(name, "abc");
        run.load(name);
        QVERIFY(run.allCame());
        QCOMPARE(run.board()->FontName(), defaults ? font : QString("Zt Four"));
        QCOMPARE(window->FontNameCombo->Text(), run.board()->FontName());
        QCOMPARE(run.board()->FontSize(), defaults ? size : 33.0);
        QCOMPARE(window->FontFormatTB->button("Bold")->isChecked(), !defaults);
        QCOMPARE(run.board()->FontBold(), !defaults);
        QCOMPARE(run.board()->Alignment(), defaults ? 0 : 2);
        QCOMPARE(run.board()->ForeColor(), QColor(defaults ? Qt::black : Qt::red));
        QVERIFY(!window->TextFile.TextChanged);
    }
}

void TestTextFiles::endings()
{
    struct Ending
    {
        const char *Name;
        bool IsPlain;     ///< as it is written
        const char *Read; ///< by its name; nothing if that is refused
    };
    Run run;
    run.Window->DisplayOW->setChecked(false);
    for (const Ending &row : {Ending{"notxt", true, "abc"},
                              {"a.Txt", false, "{\\rtf1"},
                              {"A.ZUF", false, "abc"},
                              {"report", false, ""},
                              {"a[*].txt", true, "abc"}}) {
        const QString name = row.Name;
        run.board()->setText("abc");
        run.save(name);
        QCOMPARE(contentOf(run.path(name)) == "abc", row.IsPlain);
        QCOMPARE(contentOf(run.path(name)).startsWith("{\\rtf1"), !row.IsPlain);
        QVERIFY(QDir(run.path("")).exists(name));
        QCOMPARE(run.title().replace("[*][*]", "[*]"), "Zendova :  " + name);
        run.Window->TextFile.LoadedFilePath.clear();
        run.board()->setText({});
        run.load(name, row.Read[0] ? Said() : WrongType);
        QVERIFY(run.allCame());
        QCOMPARE(run.text().left(int(qstrlen(row.Read)) + (row.IsPlain ? 1 : 0)),
                 QString(row.Read));
    }
}

void TestTextFiles::bookkeeping()
{
    Run run;
    run.Window->DisplayEW->setChecked(false);
    run.write("long.txt", QByteArray(BoardLimit + 500, 'x'));
    run.load("long.txt", TooLong, "Yes");
    QCOMPARE(run.Window->Folders.LFLoadPath, run.Desk.Folder.filePath("files"));
    QTest::keyClick(run.board(), Qt::Key_Delete);
    QVERIFY(run.Window->TextFile.TextChanged);
    QDir(run.path("")).mkdir("sub");
    run.save("sub/b.txt");
    QVERIFY(run.allCame());
    QVERIFY(!run.Window->TextFile.TextChanged);
    QCOMPARE(contentOf(run.path("sub/b.txt")).size(), BoardLimit - 1);
    QCOMPARE(run.Window->TextFile.LoadedFilePath, run.path("sub/b.txt"));
    QCOMPARE(run.title(), QString("Zendova :  b.txt"));
    // A save moves both folders.
    run.Desk.close();
    QCOMPARE(run.Desk.setting("Last", "LFSavePath"), run.path("sub"));
    QCOMPARE(run.Desk.setting("Last", "LFLoadPath"), run.path("sub"));
    QCOMPARE(run.Desk.setting("MRU", "1"), run.path("sub/b.txt"));

    // The way there is taken out of the command line's path, which is remembered.
    run.write("with blank.zuf", document("abc"));
    const Zendova *window = run.Desk.start(run.path("../files/./with blank.zuf"));
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
    QCOMPARE(window->windowTitle(), QString("Zendova :  with blank.zuf"));
    QCOMPARE(window->TextFile.LoadedFilePath, run.path("with blank.zuf"));
    QCOMPARE(window->Folders.LFLoadPath, run.Desk.Folder.filePath("files"));
    QVERIFY(!window->TextFile.TextChanged);
}

void TestTextFiles::dialogs()
{
    Run run;
    run.Window->Folders.LFLoadPath = run.Desk.Folder.filePath("files");
    run.Window->Folders.LFSavePath = run.Desk.Folder.path();
    const auto look = [&](const char *title, const char *key, const QString &folder,
                          const char *name, const char *kind) {
        run.Desk.Dialogs.dialog(title, [=](QDialog *dialog) {
            const auto *combo = dialog->findChild<QComboBox *>("fileTypeCombo");
            QCOMPARE(combo->currentText(), QString(kind));
            QCOMPARE(qobject_cast<QFileDialog *>(dialog)->directory().path(), folder);
            QCOMPARE(dialog->findChild<QLineEdit *>("fileNameEdit")->text(), QString(name));
            dialog->reject();
        });
        run.click(key);
        QVERIFY(run.allCame());
    };
    constexpr const char *Formatted = "Zendova Uniform Format Files (*.ZUF)";
    look(OpenTitle, "Load", run.Window->Folders.LFLoadPath, "", Formatted);
    run.board()->setText("abc");
    look(SaveTitle, "Save", run.Desk.Folder.path(), "", Formatted);
    run.board()->setText({});
    run.write("A.TXT", "abc");
    run.load("A.TXT");
    look(SaveTitle, "Save", run.Window->Folders.LFLoadPath, "A.TXT", "Text Files (*.TXT)");

    run.write("b.txt", "there before");
    run.typeName(SaveTitle, "b.txt");
    run.answerOverwrite("b.txt", QMessageBox::No);
    run.click("Save");
    QVERIFY(run.allCame());
    QCOMPARE(contentOf(run.path("b.txt")), QByteArray("there before"));
    QCOMPARE(run.title(), QString("Zendova :  A.TXT"));
}

void TestTextFiles::drop()
{
    Run run;
    const QString text = run.write("a.txt", "from a");
    const QString other = run.write("b.txt", "from b");
    const QString picture = run.write("c.png", "no picture");
    const QString folder = QFileInfo(run.write("folder.txt/d", "")).path();
    QTest::keyClicks(run.board(), "old");
    const auto drop = [&run](const QStringList &paths) {
        QList<QUrl> urls{QUrl("https://zendova.example/x.txt")};
        for (const QString &path : paths)
            urls += QUrl::fromLocalFile(path);
        QMimeData mime;
        mime.setUrls(urls);
        mime.setText(paths.first());
        // On the board, which takes text but leaves a file to the window.
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, {});
        enter.setAccepted(false);
        QApplication::sendEvent(run.board()->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, {});
        const QString before = run.text();
        QApplication::sendEvent(run.Window, &event);
        QCOMPARE(event.dropAction(), Qt::CopyAction);
        QCOMPARE(run.text(), before); // nothing happens while the other program waits
        QCoreApplication::processEvents();
    };
    run.Desk.Dialogs.message(LoadError, "PNG", "Ok");
    drop({picture});
    run.Desk.Dialogs.message(LoadError, "does not exist", "Ok");
    drop({folder});
    // Behind a dialog it would replace what that one asks about.
    run.Desk.Dialogs.dialog(TextWasChanged.Title, [&](QDialog *dialog) {
        drop({text});
        dialog->reject();
    });
    run.click("Load");
    QCOMPARE(run.text(), QString("old"));
    run.expect(TextWasChanged, "Yes");
    drop({text, other});
    QCOMPARE(run.text(), QString("from a"));
    run.expect(TextIsThere, "Yes");
    drop({picture, other});
    QCOMPARE(run.text(), QString("from b"));
    QVERIFY(run.allCame());
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestTextFiles>(argc, argv);
}

#include "tst_textfiles.moc"
