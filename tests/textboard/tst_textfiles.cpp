// Loading the board from files and saving it, by the dialogs, the command line and a drop: what
// arrives, what is asked and said, and what is left after a No or a failure.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

namespace {

constexpr const char *OpenTitle = "Select a File to Load Text From";
constexpr const char *SaveTitle = "Save Text in File";
constexpr const char *NothingLoaded = "Zendova Version 3.0.0 RC2";
constexpr const char *LoadError = "Zendova File Load Error";
constexpr const char *NotReadable = "\r\rThe file you selected could not be loaded successfully"
                                    "\rIt does not seem to be a valid .ZUF or .TXT file.";
constexpr int Limit = 61440;

/// A document with one font and one colour in its tables and this body.
QByteArray document(const QByteArray &body, const QByteArray &font = "Zt Four",
                    const QByteArray &color = "\\red0\\green0\\blue128")
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 " + font + ";}{\\f1 Zt Latin;}}{\\colortbl;" +
           color + ";}\\f0\\fs24\\cf1 " + body + "}";
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
}

/// A started window, a folder for its files, and a person who uses the file dialogs.
struct Run
{
    Run() : Window(Desk.start()) { QDir(Desk.Folder.path()).mkdir("files"); }

    QString path(const QString &name) const { return Desk.Folder.filePath("files/" + name); }
    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("The file %s can't be written.", qPrintable(name));
        return path(name);
    }
    /// The next dialog is a file dialog, in which this name is typed over what stands there.
    void typeName(const char *title, const QString &name)
    {
        Desk.Dialogs.dialog(title, [name](QDialog *dialog) {
            auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
            edit->setCompleter(nullptr); // whose list would take the click below
            QApplication::setActiveWindow(dialog);
            edit->setFocus(); // without it what is typed follows the list instead
            edit->selectAll();
            QTest::keyClicks(edit, name);
            auto *buttons = dialog->findChild<QDialogButtonBox *>();
            for (QAbstractButton *button : buttons->buttons())
                if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                    QTest::mouseClick(button, Qt::LeftButton);
            if (dialog->isVisible()) // it was not taken, and would wait for ever
                dialog->reject();
        });
    }
    void cancel(const char *title)
    {
        Desk.Dialogs.dialog(title, [](QDialog *dialog) {
            QTest::mouseClick(
                dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel),
                Qt::LeftButton);
        });
    }
    void message(const char *title, const QString &text, const QString &button,
                 bool dontRepeat = false)
    {
        Desk.Dialogs.message(title, text, button, dontRepeat);
    }
    void clickLoad() { click("Load"); }
    void clickSave() { click("Save"); }
    void click(const char *key)
    {
        QTest::mouseClick(button(key), Qt::LeftButton, {}, QPoint(8, 8));
        QApplication::setActiveWindow(Window); // no window system gives the focus back here
    }
    /// Loads by the dialog what no guard asks about.
    void load(const QString &name)
    {
        typeName(OpenTitle, path(name));
        clickLoad();
    }
    void load(const QString &name, const QByteArray &content)
    {
        write(name, content);
        load(name);
    }
    void save(const QString &name)
    {
        typeName(SaveTitle, path(name));
        clickSave();
    }
    QToolButton *button(const char *key) const { return Window->LoadSaveTB->button(key); }
    ::TextBoard *board() const { return Window->TextBoard; }
    QString text() const { return Window->TextBoard->Text(); }
    QString title() const { return Window->windowTitle(); }
    bool allCame() { return Desk.Dialogs.allCame(); }
    /// What a load that failed after the clearing leaves behind.
    bool isEmptied() const
    {
        return text().isEmpty() && Window->LoadedFilePath.isEmpty() &&
               Window->LoadedFileTitle.isEmpty() && !button("Save")->isEnabled();
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
    void lineEnds();
    void limit_data();
    void limit();
    void partlyLoaded();
    void formats_data();
    void formats();
    void zufRoundTrip();
    void sizes_data();
    void sizes();
    void foreignColor();
    void mixedAttribute_data();
    void mixedAttribute();
    void notReadable_data();
    void notReadable();
    void wrongType();
    void fontMissing();
    void guards();
    void alreadyLoaded();
    void textDefaults_data();
    void textDefaults();
    void settingsFailLater();
    void endings_data();
    void endings();
    void saveFails();
    void bookkeeping();
    void openDialog();
    void saveDialog();
    void commandLine();
    void drop_data();
    void drop();
    void dropBehindADialog();
};

void TestTextFiles::everyByteSurvives()
{
    Run run;
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        if (code != '\r' && code != '\n')
            all += static_cast<char>(code);
    all += "\r\nend\r\n";
    run.load("all.txt", all);
    QCOMPARE(run.board()->TextLength(), static_cast<int>(all.size()));
    run.save("copy.txt");
    QCOMPARE(contentOf(run.path("copy.txt")), all);
    // The formatted kind keeps them too.
    run.save("copy.zuf");
    const QString before = run.text();
    run.board()->setText({});
    run.typeName(OpenTitle, run.path("copy.zuf"));
    run.message(LoadError, "Do you want to reload the file?", "Yes");
    run.clickLoad();
    QCOMPARE(run.text(), before);
    QVERIFY(run.allCame());
}

void TestTextFiles::lineEnds()
{
    Run run;
    run.load("mixed.txt", "a\nb\rc\r\nd");
    QCOMPARE(run.text(), QString("a\r\nb\r\nc\r\nd"));
    run.save("new.txt");
    QCOMPARE(contentOf(run.path("new.txt")), QByteArray("a\r\nb\r\nc\r\nd"));
}

void TestTextFiles::limit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("answer");
    QTest::newRow("just fits") << "a.txt" << Limit << "";
    QTest::newRow("too long, yes") << "a.txt" << Limit + 1 << "Yes";
    QTest::newRow("too long, no") << "a.txt" << Limit + 1 << "No";
    QTest::newRow("formatted, fits") << "a.zuf" << Limit << "";
    QTest::newRow("formatted, yes") << "a.zuf" << Limit + 1 << "Yes";
}

void TestTextFiles::limit()
{
    QFETCH(QString, name);
    QFETCH(int, length);
    QFETCH(QString, answer);
    Run run;
    const bool formatted = name.endsWith("zuf");
    const QByteArray text(length, 'x');
    if (!answer.isEmpty())
        run.message("Zendova TextBoard Limit Warning",
                    "\rSize of the file you are trying to load exceeds the"
                    "\rmaximum limit (61,440 characters) of the TextBoard."
                    "\rA partial load upto the limit of the TextBoard is possible."
                    "\r\rContinue Loading?"
                    "\r• Press Yes to load partial file."
                    "\r• Press No to cancel load.",
                    answer);
    // The question comes behind the file dialog.
    run.write(name, formatted ? document(text) : text);
    run.Window->PendingFilePath = run.path(name);
    run.Window->PendingFileTitle = name;
    run.Window->LoadTextFile(run.path(name));
    QVERIFY(run.allCame());
    if (answer == "No") {
        QVERIFY(run.isEmptied());
        QCOMPARE(run.title(), QString(NothingLoaded));
        return;
    }
    QCOMPARE(run.text(), QString(Limit, 'x'));
    QVERIFY(!run.Window->TextChanged);
    const QString partly = answer == "Yes" ? " (PARTIALLY LOADED!)" : "";
    QCOMPARE(run.title(), "Zendova :  " + name + partly);
    if (formatted)
        QCOMPARE(run.board()->FontName(), QString("Zt Four"));
}

void TestTextFiles::partlyLoaded()
{
    Run run;
    run.write("long.txt", QByteArray(Limit + 500, 'x'));
    run.typeName(OpenTitle, run.path("long.txt"));
    run.message("Zendova TextBoard Limit Warning", "Press Yes to load partial file.", "Yes");
    run.clickLoad();
    QVERIFY(run.title().endsWith(" (PARTIALLY LOADED!)"));
    run.save("part.txt");
    QCOMPARE(run.title(), QString("Zendova :  part.txt"));
    QCOMPARE(contentOf(run.path("part.txt")).size(), Limit);
    QVERIFY(run.allCame());
}

void TestTextFiles::formats_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QFont>("font"); // size and styles
    QTest::addColumn<int>("alignment");
    const auto font = [](double size, bool bold = false, bool italic = false,
                         bool underline = false, bool strikeout = false) {
        QFont made("Zt Four");
        made.setPointSizeF(size);
        made.setBold(bold);
        made.setItalic(italic);
        made.setUnderline(underline);
        made.setStrikeOut(strikeout);
        return made;
    };
    QTest::newRow("plain") << QByteArray("abc") << font(12) << 0;
    QTest::newRow("bold") << QByteArray("\\b abc") << font(12, true) << 0;
    QTest::newRow("italic, right") << QByteArray("\\qr\\i abc") << font(12, false, true) << 1;
    QTest::newRow("underlined, centred")
        << QByteArray("\\qc\\ul abc") << font(12, false, false, true) << 2;
    QTest::newRow("struck out, 36")
        << QByteArray("\\fs72\\strike abc") << font(36, false, false, false, true) << 0;
    QTest::newRow("all, 8") << QByteArray("\\fs16\\b\\i\\ul\\strike\\qc abc")
                            << font(8, true, true, true, true) << 2;
}

void TestTextFiles::formats()
{
    QFETCH(QByteArray, body);
    QFETCH(QFont, font);
    QFETCH(int, alignment);
    Run run;
    run.load("a.zuf", document(body));
    QVERIFY(run.allCame());
    const Zendova *window = run.Window;
    QCOMPARE(run.text(), QString("abc"));
    QCOMPARE(run.title(), QString("Zendova :  a.zuf"));
    QCOMPARE(run.board()->FontName(), QString("Zt Four"));
    QCOMPARE(window->FontNameCombo->Text(), QString("Zt Four"));
    QCOMPARE(window->TBFontName, QString("Zt Four"));
    QCOMPARE(window->TBFontIndex, window->FontNameCombo->SelectedItem());
    QCOMPARE(run.board()->FontSize(), font.pointSizeF());
    QCOMPARE(window->FontSizeSlider->value(), font.pointSize());
    QCOMPARE(window->FontSizeSlider->number()->text(), QString::number(font.pointSize()));
    QCOMPARE(window->CharButton->cellFont().pointSize(), font.pointSize());
    const std::array<std::pair<const char *, bool>, 4> styles = {
        std::pair{"Bold", font.bold()},
        {"Italic", font.italic()},
        {"Underline", font.underline()},
        {"Strikethrough", font.strikeOut()},
    };
    for (std::size_t i = 0; i < styles.size(); ++i) {
        QCOMPARE(window->FontFormatTB->button(styles[i].first)->isChecked(), styles[i].second);
        QCOMPARE(window->TBStyle[i], styles[i].second ? 1 : 0);
    }
    QCOMPARE(run.board()->FontBold(), font.bold());
    QCOMPARE(run.board()->FontItalic(), font.italic());
    QCOMPARE(run.board()->FontUnderline(), font.underline());
    QCOMPARE(run.board()->FontStrikethru(), font.strikeOut());
    QCOMPARE(window->TextZoom->cellFont().bold(), font.bold());
    QCOMPARE(window->TextZoom->cellFont().underline(), font.underline());
    QCOMPARE(run.board()->Alignment(), alignment);
    constexpr const char *alignments[] = {"AlignLeft", "AlignRight", "CenterText"};
    QVERIFY(window->TextAlignTB->button(alignments[alignment])->isChecked());
    QCOMPARE(run.board()->ForeColor(), QColor(0, 0, 128));
    QCOMPARE(window->TBColorIndex, 1);
    QCOMPARE(window->TBColorName, QString("Navy"));
    QCOMPARE(window->FontFormatTB->button("Color")->toolTip(),
             QString("Set TextBoard Font Color (Currently Navy)"));
}

void TestTextFiles::zufRoundTrip()
{
    Run run;
    Zendova *window = run.Window;
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "20"));
    QTest::mouseClick(window->FontFormatTB->button("Italic"), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("AlignRight"), Qt::LeftButton);
    window->SetColorFromDialog(0x0000FF); // red
    run.board()->setText("one {two} \\three\r\n\r\n\tfour\r\n");
    run.save("a.zuf");
    QVERIFY(contentOf(run.path("a.zuf")).startsWith("{\\rtf1"));
    QVERIFY(chooseFont(window, "Zt Latin"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "10"));
    QTest::mouseClick(window->FontFormatTB->button("Italic"), Qt::LeftButton);
    window->SetColorFromDialog(0);
    run.board()->setText({});
    run.typeName(OpenTitle, run.path("a.zuf"));
    run.message(LoadError, "Do you want to reload the file?", "Yes");
    run.clickLoad();
    QVERIFY(run.allCame());
    QCOMPARE(run.text(), QString("one {two} \\three\r\n\r\n\tfour\r\n"));
    QCOMPARE(run.board()->FontName(), QString("Zt Four"));
    QCOMPARE(run.board()->FontSize(), 20.0);
    QVERIFY(run.board()->FontItalic() && !run.board()->FontBold());
    QCOMPARE(run.board()->Alignment(), 1);
    QCOMPARE(window->TBColorName, QString("Red"));
}

void TestTextFiles::sizes_data()
{
    QTest::addColumn<int>("halfPoints");
    QTest::addColumn<QString>("said");
    QTest::addColumn<double>("board");
    QTest::addColumn<int>("slider");
    const QString small = "\r\rFont size of the file you are trying to load is"
                          "\rsmaller than the minimum TextBoard font Size of 8."
                          "\r\rZendova will load this file"
                          "\rwith a font size of 8.";
    const QString large = "\r\rFont size of the file you are trying to load"
                          "\rexceeds the maximum TextBoard font Size of 36."
                          "\r\rZendova will load this file"
                          "\rwith a font size of 36.";
    QTest::newRow("7") << 14 << small << 8.0 << 8;
    QTest::newRow("7.5 is 8, and stays") << 15 << "" << 7.5 << 8;
    QTest::newRow("8") << 16 << "" << 8.0 << 8;
    QTest::newRow("20.5 is 20, and stays") << 41 << "" << 20.5 << 20;
    QTest::newRow("36.5 is 36, and stays") << 73 << "" << 36.5 << 36;
    QTest::newRow("37") << 74 << large << 36.0 << 36;
    QTest::newRow("200") << 400 << large << 36.0 << 36;
}

void TestTextFiles::sizes()
{
    QFETCH(int, halfPoints);
    QFETCH(QString, said);
    Run run;
    run.write("a.zuf", document("\\fs" + QByteArray::number(halfPoints) + " abc"));
    run.typeName(OpenTitle, run.path("a.zuf"));
    if (!said.isEmpty())
        run.message(LoadError, said, "Ok");
    run.clickLoad();
    QVERIFY(run.allCame());
    QCOMPARE(run.text(), QString("abc"));
    QTEST(run.board()->FontSize(), "board");
    QTEST(run.Window->FontSizeSlider->value(), "slider");
    QTEST(run.Window->CharButton->cellFont().pointSize(), "slider");
}

void TestTextFiles::foreignColor()
{
    Run run;
    run.Window->SetColorFromDialog(0x0000FF);
    run.write("a.zuf", document("abc", "Zt Four", "\\red1\\green2\\blue3"));
    run.typeName(OpenTitle, run.path("a.zuf"));
    run.message(LoadError,
                "\r\rFont color of the file you are trying to load does"
                "\rnot match the 16 predefined Zendova font colors."
                "\r\rZendova will load this file with"
                "\rthe default font color of Black",
                "Ok");
    run.clickLoad();
    QVERIFY(run.allCame());
    // The board shows the file's colour all the same.
    QCOMPARE(run.board()->ForeColor(), QColor(1, 2, 3));
    QCOMPARE(run.Window->TBColorIndex, 0);
    QCOMPARE(run.Window->TBColorName, QString("Black"));
    run.save("b.zuf");
    QVERIFY(contentOf(run.path("b.zuf")).contains("\\red1\\green2\\blue3"));
}

void TestTextFiles::mixedAttribute_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("boldTaken"); // taken before the fault
    QTest::newRow("bold") << QByteArray("a{\\b b}c") << false;
    QTest::newRow("italic") << QByteArray("\\b a{\\i b}c") << true;
    QTest::newRow("underlined") << QByteArray("\\b a{\\ul b}c") << true;
    QTest::newRow("struck out") << QByteArray("\\b a{\\strike b}c") << true;
    QTest::newRow("alignment") << QByteArray("\\b a\\par\\qc b") << true;
}

void TestTextFiles::mixedAttribute()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, boldTaken);
    Run run;
    run.write("a.zuf", document("\\fs40 " + body));
    run.typeName(OpenTitle, run.path("a.zuf"));
    run.message("Zendova Unknown Error",
                "\r\rThe file you selected could not be loaded"
                "\rsuccessfully due to unknown reasons."
                "\r\rPlease write to feedback@zendova.example"
                "\rwith all details of this problem.",
                "Ok");
    run.clickLoad();
    QVERIFY(run.allCame());
    QVERIFY(run.text().startsWith('a'));
    QCOMPARE(run.title(), QString("Zendova :  a.zuf"));
    QCOMPARE(run.Window->LoadedFilePath, run.path("a.zuf"));
    QVERIFY(!run.Window->TextChanged);
    QCOMPARE(run.board()->FontName(), QString("Zt Four"));
    QCOMPARE(run.board()->FontSize(), 20.0);
    QCOMPARE(run.board()->FontBold(), boldTaken);
}

void TestTextFiles::notReadable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); // null: there is no such file
    QTest::newRow("mixed size") << "a.zuf" << document("a{\\fs30 b}c");
    QTest::newRow("mixed font") << "a.zuf" << document("a{\\f1 b}c");
    QTest::newRow("mixed colour") << "a.zuf" << document("a{\\cf0 b}c");
    QTest::newRow("no rich text") << "a.zuf" << QByteArray("plain text");
    QTest::newRow("nothing in it") << "a.zuf" << QByteArray("");
    QTest::newRow("formatted, gone") << "a.zuf" << QByteArray();
    QTest::newRow("text, gone") << "a.txt" << QByteArray();
}

void TestTextFiles::notReadable()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    Run run;
    run.load("first.txt", "first");
    run.board()->setText("old");
    run.Window->TextChanged = false;
    if (!content.isNull())
        run.write(name, content);
    run.message("Zendova TextBoard Overwrite Warning", "You have text", "Yes");
    run.message(LoadError, NotReadable, "Ok");
    run.Window->PendingFilePath = run.path(name);
    run.Window->PendingFileTitle = name;
    run.Window->LoadTextFile(run.path(name));
    QVERIFY(run.allCame());
    QVERIFY(run.isEmptied());
    QCOMPARE(run.title(), QString("Zendova :  first.txt"));
}

void TestTextFiles::wrongType()
{
    Run run;
    run.write("a.doc", "abc");
    run.board()->setText("old");
    run.message("Zendova TextBoard Save Warning", "has been changed", "Yes");
    run.typeName(OpenTitle, run.path("a.doc"));
    run.message("Zendova File Type Error",
                "\r\rZendova allows loading from only two types of files."
                "\rThese are:"
                "\r• *.ZUF (Zendova Uniform Format files)"
                "\r• *.TXT (ASCII Text files)"
                "\rPlease select only the above file types for loading.",
                "Ok");
    run.clickLoad();
    QVERIFY(run.allCame());
    QVERIFY(run.isEmptied());
    QCOMPARE(run.title(), QString(NothingLoaded));
}

void TestTextFiles::fontMissing()
{
    Run run;
    QVERIFY(chooseFont(run.Window, "Zt Gaps"));
    const auto load = [&](const QString &answer) {
        run.board()->setText({});
        run.typeName(OpenTitle, run.path("a.zuf"));
        run.message("Zendova File Font Error",
                    "\rFont: No Such Font"
                    "\rThis font does not exist on your system."
                    "\rIt is used by the file you are trying to load."
                    "\r\rZendova will load this file with current font setting."
                    "\rLoad File?",
                    answer);
        run.clickLoad();
    };
    const QByteArray content = document("\\fs40\\b\\qc abc", "No Such Font");
    run.write("a.zuf", content);
    load("No");
    QVERIFY(run.isEmptied());
    load("Yes");
    QVERIFY(run.allCame());
    QCOMPARE(run.text(), QString("abc"));
    QCOMPARE(run.board()->FontName(), QString("Zt Gaps"));
    QCOMPARE(run.board()->FontSize(), double(run.Window->FontSizeSlider->value()));
    QVERIFY(!run.board()->FontBold());
    QCOMPARE(run.board()->Alignment(), 0);

    // Saving it under its own name would lose its settings, each time anew.
    const auto saveOverIt = [&](const QString &answer) {
        run.typeName(SaveTitle, run.path("a.zuf"));
        run.Desk.Dialogs.dialog(SaveTitle, [](QDialog *dialog) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(dialog)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        run.message("Zendova File Save Warning",
                    "\rThe font settings of this file"
                    "\rwas changed while loading it."
                    "\r\rSaving this file will overwrite"
                    "\rit's original font settings."
                    "\r\rSave File?",
                    answer);
        run.clickSave();
    };
    saveOverIt("No");
    QCOMPARE(contentOf(run.path("a.zuf")), content);
    saveOverIt("Yes");
    QVERIFY(contentOf(run.path("a.zuf")).contains("Zt Gaps"));
    saveOverIt("Yes");
    // Another name is another matter, and ends it.
    run.save("b.zuf");
    QVERIFY(run.allCame());
    QVERIFY(!run.Window->LoadFontReplaced);
}

void TestTextFiles::guards()
{
    Run run;
    run.write("a.txt", "loaded");
    QTest::keyClicks(run.board(), "typed");
    run.message("Zendova TextBoard Save Warning",
                "\r\rText on the TextBoard has been changed."
                "\rYou will lose these changes by loading another file now."
                "\r\rContinue Loading?"
                "\r• Press Yes to continue loading text."
                "\r• Press No to cancel operation.",
                "No");
    run.clickLoad();
    QCOMPARE(run.text(), QString("typed"));
    run.message("Zendova TextBoard Save Warning", "has been changed", "Yes");
    run.load("a.txt");
    QCOMPARE(run.text(), QString("loaded"));
    const QString overwrite = "\r\rYou have text on the TextBoard."
                              "\rYou will lose this text by loading another file now."
                              "\r\rContinue Loading?"
                              "\r• Press Yes to continue loading text."
                              "\r• Press No to cancel operation.";
    run.message("Zendova TextBoard Overwrite Warning", overwrite, "Yes");
    run.cancel(OpenTitle);
    run.clickLoad();
    QCOMPARE(run.text(), QString("loaded"));
    QCOMPARE(run.Window->LoadedFileTitle, QString("a.txt"));
    QVERIFY(run.Window->DisplayOW->isChecked());
    run.message("Zendova TextBoard Overwrite Warning", overwrite, "No", true);
    run.clickLoad();
    QVERIFY(!run.Window->DisplayOW->isChecked());
    // Silenced; and a change of the format is none of the text.
    QVERIFY(fillNumberBox(run.Window->FontSizeSlider, "30"));
    run.write("b.txt", "other");
    run.load("b.txt");
    QCOMPARE(run.text(), QString("other"));
    QVERIFY(run.allCame());
}

void TestTextFiles::alreadyLoaded()
{
    Run run;
    run.Window->DisplayOW->setChecked(false);
    run.load("a.txt", "first");
    run.typeName(OpenTitle, run.path("a.txt"));
    run.message(LoadError,
                "\r\r\r" + run.path("a.txt") + "\r\rText from this file is already loaded.", "Ok");
    run.clickLoad();
    QCOMPARE(run.text(), QString("first"));
    const auto reload = [&](const QString &answer) {
        run.message("Zendova TextBoard Save Warning", "has been changed", "Yes");
        run.typeName(OpenTitle, run.path("a.txt"));
        run.message(LoadError,
                    "\r" + run.path("a.txt") +
                        "\r\rText from this file was loaded"
                        "\rbut has since been changed."
                        "\r\rDo you want to reload the file?\r\r",
                    answer);
        run.clickLoad();
    };
    QTest::keyClicks(run.board(), "x");
    reload("No");
    QCOMPARE(run.text(), QString("xfirst"));
    reload("Yes");
    QCOMPARE(run.text(), QString("first"));
    QVERIFY(run.allCame());
}

void TestTextFiles::textDefaults_data()
{
    QTest::addColumn<bool>("defaults");
    QTest::newRow("defaults") << true;
    QTest::newRow("as it is") << false;
}

void TestTextFiles::textDefaults()
{
    QFETCH(bool, defaults);
    Run run;
    Zendova *window = run.Window;
    const double standard = window->FontSizeSlider->value();
    const QString standardFont = run.board()->FontName();
    QVERIFY(chooseFont(window, "Zt Four"));
    QVERIFY(fillNumberBox(window->FontSizeSlider, "33"));
    QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
    QTest::mouseClick(window->TextAlignTB->button("CenterText"), Qt::LeftButton);
    window->SetColorFromDialog(0x0000FF);
    window->OptLoadTD->setChecked(defaults);
    run.load("a.txt", "abc");
    QVERIFY(run.allCame());
    QCOMPARE(run.board()->FontName(), defaults ? standardFont : QString("Zt Four"));
    QCOMPARE(window->FontNameCombo->Text(), run.board()->FontName());
    QCOMPARE(window->TBFontName, run.board()->FontName());
    QCOMPARE(window->TBFontIndex, window->FontNameCombo->SelectedItem());
    QCOMPARE(run.board()->FontSize(), defaults ? standard : 33.0);
    QCOMPARE(run.board()->FontBold(), !defaults);
    QCOMPARE(window->FontFormatTB->button("Bold")->isChecked(), !defaults);
    QCOMPARE(run.board()->Alignment(), defaults ? 0 : 2);
    QCOMPARE(run.board()->ForeColor(), defaults ? QColor(Qt::black) : QColor(Qt::red));
    QVERIFY(!window->TextChanged);
}

void TestTextFiles::settingsFailLater()
{
    Run run;
    run.Desk.alterSettings("UPDATE settings SET kind = 1, value = 'large' WHERE name = 'FontSize'");
    run.write("a.txt", "abc");
    run.typeName(OpenTitle, run.path("a.txt"));
    run.message(LoadError,
                "\rThe file you selected could not be loaded successfully."
                "\r\rThis may happen sometimes if the size of the file"
                "\rbeing opened is large and the text volume exceeds"
                "\rthe ZRT managed 64KB threshold for TextBoard memory."
                "\r\rTry closing Zendova and reloading the file again.",
                "Ok");
    run.clickLoad();
    QVERIFY(run.allCame());
    QVERIFY(run.isEmptied());
    QVERIFY(!menuItem(run.Window, "FileMRU1")->isVisible());
}

void TestTextFiles::endings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("plain");   // as it is written
    QTest::addColumn<QString>("read"); // what a load shows: "" for nothing
    QTest::newRow("txt") << "a.txt" << true << "abc";
    QTest::newRow("no dot") << "notxt" << true << "abc";
    QTest::newRow("capitals") << "A.TXT" << false << "{\\rtf1";
    QTest::newRow("one capital") << "a.Txt" << false << "{\\rtf1";
    QTest::newRow("zuf") << "a.zuf" << false << "abc";
    QTest::newRow("ZUF") << "A.ZUF" << false << "abc";
    QTest::newRow("no ending") << "report" << false << "";
    QTest::newRow("mark of the title") << "a[*].txt" << true << "abc";
}

void TestTextFiles::endings()
{
    QFETCH(QString, name);
    QFETCH(bool, plain);
    QFETCH(QString, read);
    Run run;
    run.Window->DisplayOW->setChecked(false);
    run.board()->setText("abc");
    run.save(name);
    QCOMPARE(contentOf(run.path(name)) == "abc", plain);
    QCOMPARE(contentOf(run.path(name)).startsWith("{\\rtf1"), !plain);
    QCOMPARE(QDir(run.path("")).entryList(QDir::Files), QStringList{name});
    QCOMPARE(run.title().replace("[*][*]", "[*]"), "Zendova :  " + name);
    run.board()->setText({});
    run.typeName(OpenTitle, run.path(name));
    // An empty board has changed too, but its file is still the loaded one.
    run.message(LoadError, "Do you want to reload the file?", "Yes");
    if (read.isEmpty())
        run.message("Zendova File Type Error", "Please select only the above file types", "Ok");
    run.clickLoad();
    QVERIFY(run.allCame());
    QVERIFY(run.text().startsWith(read));
    QCOMPARE(run.text().isEmpty(), read.isEmpty());
}

void TestTextFiles::saveFails()
{
    Run run;
    const QByteArray old = document("old", "No Such Font");
    run.write("a.zuf", old);
    run.typeName(OpenTitle, run.path("a.zuf"));
    run.message("Zendova File Font Error", "No Such Font", "Yes");
    run.clickLoad();
    const QString folder = run.Window->LFSavePath;
    QTest::keyClicks(run.board(), "x");
    run.typeName(SaveTitle, run.path("no folder/b.zuf"));
    run.message("Zendova File Save Error", run.path("no folder/b.zuf") + " No such file", "Ok");
    run.clickSave();
    QVERIFY(run.allCame());
    QCOMPARE(run.text(), QString("xold"));
    QVERIFY(run.Window->TextChanged);
    QVERIFY(run.Window->LoadFontReplaced);
    QCOMPARE(run.Window->LoadedFilePath, run.path("a.zuf"));
    QCOMPARE(run.title(), QString("Zendova :  a.zuf"));
    QCOMPARE(run.Window->LFSavePath, folder);
    QCOMPARE(menuItem(run.Window, "FileMRU1")->text(), QString("&1 a.zuf"));
    QVERIFY(!menuItem(run.Window, "FileMRU2")->isVisible());
    QCOMPARE(contentOf(run.path("a.zuf")), old);
}

void TestTextFiles::bookkeeping()
{
    Run run;
    run.Window->DisplayEW->setChecked(false);
    QDir(run.path("")).mkdir("sub");
    run.load("a.txt", "abc");
    QCOMPARE(run.Window->LFLoadPath, run.Desk.Folder.filePath("files"));
    QTest::keyClicks(run.board(), "x");
    QVERIFY(run.Window->TextChanged);
    run.save("sub/b.txt");
    QVERIFY(run.allCame());
    QVERIFY(!run.Window->TextChanged);
    QCOMPARE(run.Window->LoadedFilePath, run.path("sub/b.txt"));
    QCOMPARE(run.Window->LoadedFileTitle, QString("b.txt"));
    // A save moves both folders.
    run.Desk.close();
    QCOMPARE(run.Desk.setting("Last", "LFSavePath"), run.path("sub"));
    QCOMPARE(run.Desk.setting("Last", "LFLoadPath"), run.path("sub"));
    QCOMPARE(run.Desk.setting("MRU", "1"), run.path("sub/b.txt"));
}

void TestTextFiles::openDialog()
{
    Run run;
    run.write("REPORT.ZUF", document("abc"));
    run.write("notes.txt", "abc");
    run.Window->LFLoadPath = run.path("gone");
    QString folder;
    run.Desk.Dialogs.dialog(OpenTitle, [&](QDialog *dialog) {
        folder = qobject_cast<QFileDialog *>(dialog)->directory().path();
        dialog->reject();
    });
    run.clickLoad();
    QVERIFY(!folder.isEmpty() && !folder.startsWith(run.path("")));

    run.Window->LFLoadPath = run.Desk.Folder.filePath("files");
    QStringList kinds;
    const QStringList expected[] = {{"REPORT.ZUF"}, {"notes.txt"}};
    QString offered;
    run.Desk.Dialogs.dialog(OpenTitle, [&](QDialog *dialog) {
        auto *kind = dialog->findChild<QComboBox *>("fileTypeCombo");
        auto *list = dialog->findChild<QTreeView *>("treeView");
        offered = dialog->findChild<QLineEdit *>("fileNameEdit")->text();
        const auto names = [&] {
            QStringList found;
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
                found += list->model()->index(row, 0, list->rootIndex()).data().toString();
            return found;
        };
        for (int i = 0; i < 2; ++i) {
            kinds += kind->itemText(i);
            kind->setCurrentIndex(i);
            emit kind->activated(i);
            QTRY_COMPARE(names(), expected[i]);
        }
        dialog->reject();
    });
    run.clickLoad();
    QVERIFY(run.allCame());
    QCOMPARE(kinds, (QStringList{"Zendova Uniform Format Files (*.ZUF)", "Text Files (*.TXT)"}));
    QCOMPARE(offered, QString(""));
}

void TestTextFiles::saveDialog()
{
    Run run;
    run.Window->LFSavePath = run.Desk.Folder.path();
    run.Window->DisplayOW->setChecked(false);
    QString folder;
    QString name;
    int kind = -1;
    const auto look = [&] {
        run.Desk.Dialogs.dialog(SaveTitle, [&](QDialog *dialog) {
            folder = qobject_cast<QFileDialog *>(dialog)->directory().path();
            name = dialog->findChild<QLineEdit *>("fileNameEdit")->text();
            kind = dialog->findChild<QComboBox *>("fileTypeCombo")->currentIndex();
            dialog->reject();
        });
        run.clickSave();
    };
    run.board()->setText("abc");
    look();
    QCOMPARE(folder, run.Desk.Folder.path());
    QCOMPARE(name, QString(""));
    QCOMPARE(kind, 0);
    run.board()->setText({});
    run.load("A.TXT", "abc");
    look();
    QCOMPARE(folder, run.Desk.Folder.filePath("files"));
    QCOMPARE(name, QString("A.TXT"));
    QCOMPARE(kind, 1);

    // No to the question about the file that is there, then Cancel: nothing has happened.
    run.write("b.txt", "there before");
    run.typeName(SaveTitle, run.path("b.txt"));
    run.Desk.Dialogs.dialog(SaveTitle, [](QDialog *dialog) {
        auto *question = qobject_cast<QMessageBox *>(dialog);
        QVERIFY(question->text().contains("b.txt"));
        QTest::mouseClick(question->button(QMessageBox::No), Qt::LeftButton);
        QTest::mouseClick(
            QApplication::activeModalWidget()->findChild<QDialogButtonBox *>()->button(
                QDialogButtonBox::Cancel),
            Qt::LeftButton);
    });
    run.clickSave();
    QVERIFY(run.allCame());
    QCOMPARE(contentOf(run.path("b.txt")), QByteArray("there before"));
    QCOMPARE(run.title(), QString("Zendova :  A.TXT"));
}

void TestTextFiles::commandLine()
{
    Run run;
    run.write("with blank.zuf", document("abc"));
    run.Desk.close();
    // The way there is taken out of the path, which is remembered.
    const Zendova *window = run.Desk.start(run.path("../files/./with blank.zuf"));
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
    QCOMPARE(window->windowTitle(), QString("Zendova :  with blank.zuf"));
    QCOMPARE(window->LoadedFilePath, run.path("with blank.zuf"));
    QCOMPARE(window->LFLoadPath, run.Desk.Folder.filePath("files"));
    QVERIFY(!window->TextChanged);
    QVERIFY(run.allCame());
}

void TestTextFiles::drop_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("title"); // of the message that comes
    QTest::addColumn<QString>("expected");
    const char *const guard = "Zendova TextBoard Save Warning";
    QTest::newRow("text") << QStringList{"a.txt"} << guard << "from a";
    QTest::newRow("the first of several") << QStringList{"a.txt", "b.txt"} << guard << "from a";
    QTest::newRow("none of ours first") << QStringList{"d.png", "b.txt"} << guard << "from b";
    QTest::newRow("formatted") << QStringList{"c.zuf"} << guard << "from c";
    QTest::newRow("other kind") << QStringList{"d.png"} << LoadError << "old";
    QTest::newRow("folder") << QStringList{"folder.txt"} << LoadError << "old";
}

void TestTextFiles::drop()
{
    QFETCH(QStringList, names);
    QFETCH(QString, title);
    QFETCH(QString, expected);
    Run run;
    run.write("a.txt", "from a");
    run.write("b.txt", "from b");
    run.write("c.zuf", document("from c"));
    run.write("d.png", "no picture");
    QDir(run.path("")).mkdir("folder.txt");
    run.board()->setText("old");
    bool answered = false;
    run.Desk.Dialogs.dialog(title, [&](QDialog *dialog) {
        answered = true;
        dialog->findChild<QPushButton *>("Button1")->click();
    });
    QList<QUrl> urls{QUrl("https://zendova.example/x.txt")};
    for (const QString &name : names)
        urls += QUrl::fromLocalFile(run.path(name));
    QMimeData mime;
    mime.setUrls(urls);
    mime.setText(run.path(names.first()));
    // On the board, which takes text but leaves a file to the window.
    QWidget *under = run.board()->viewport();
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(under, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(run.Window, &event);
    QCOMPARE(event.dropAction(), Qt::CopyAction);
    QCOMPARE(run.text(), QString("old")); // nothing happens while the other program waits
    QTRY_VERIFY(answered);
    QTRY_COMPARE(run.text(), expected);
    QVERIFY(run.allCame());
}

void TestTextFiles::dropBehindADialog()
{
    Run run;
    run.write("a.txt", "from a");
    QTest::keyClicks(run.board(), "typed");
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(run.path("a.txt"))});
    run.Desk.Dialogs.dialog("Zendova TextBoard Save Warning", [&](QDialog *dialog) {
        QDropEvent event({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(run.Window, &event);
        QCoreApplication::processEvents();
        dialog->reject();
    });
    run.clickLoad();
    QCOMPARE(run.text(), QString("typed"));
    QVERIFY(run.allCame());
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestTextFiles test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_textfiles.moc"
