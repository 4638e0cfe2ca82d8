// Loading the board from files and saving it, by the dialogs, the command line and a drop: what
// arrives, what is asked and said, and what is left after a No or a failure.
#include "tests/support/BoardText.h"
#include "tests/textboard/BoardFormat.h"

#include "core/CommandLine.h"
#include "core/SettingConversion.h"

#include <filesystem>
#include <fstream>

using namespace Says;

constexpr const char *OpenTitle = "Select a File to Load Text From";
constexpr const char *SaveTitle = "Save Text in File";
constexpr ExpectedMessage Nothing = {};

/// A document of 12 points in one font and one colour with this body.
static QByteArray document(const QByteArray &body, const QByteArray &font = "Zt Four",
                           const QByteArray &color = "\\red0\\green0\\blue128")
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 " + font + ";}{\\f1 Zt Latin;}}{\\colortbl;" +
           color + ";}\\f0\\fs24\\cf1 " + body + "}";
}

class TestTextFiles : public WindowTest
{
    Q_OBJECT

private slots:
    void everyByteSurvives()
    {
        QByteArray all;
        for (int code = 0; code < 256; ++code)
            if (code != '\r' && code != '\n')
                all += static_cast<char>(code);
        write("all.txt", all + "\na\rb\r\nc\n\r\r\n\r\r");
        load("all.txt");
        all += "\r\na\r\nb\r\nc" + QByteArray("\r\n").repeated(5);
        QCOMPARE(board()->TextLength(), static_cast<int>(all.size()));
        const QString shown = text();
        save("copy.txt");
        QCOMPARE(contentOf(path("copy.txt")), all);
        save("copy.zuf");
        board()->setText({});
        load("copy.zuf", LoadedButChanged, "Yes");
        QCOMPARE(text(), shown);
        for (const char *keys : {"Ctrl+A", "Ctrl+X", "Ctrl+V", "Ctrl+A"})
            QTest::keySequence(board(), QKeySequence(keys));
        QCOMPARE(board()->SelText(), shown);
    }

    void loads()
    {
        const QByteArray full(BoardLimit, 'x');
        const QString navy = "Zt Four %1 - left #000080 Navy";
        const struct
        {
            QString Name;
            QByteArray Content;
            ExpectedMessage Said;
            const char *Answer = "Ok";
            QByteArray Expected = {}; // on the board; empty if nothing is loaded
            QString Format = {};      // empty if it doesn't matter
        } rows[] = {
            {"a.txt", full, Nothing, "", full, FirstFormat},
            {"a.zuf", document(full + 'y'), FileTooLong, "Yes", full},
            {"a.txt", full + 'y', FileTooLong, "No"},
            {"a.zuf", document("\\fs14 abc"), SizeTooSmall, "Ok", "abc", navy.arg(8)},
            {"a.zuf", document("\\fs15 abc"), Nothing, "", "abc", navy.arg(7.5)},
            {"a.zuf", document("\\fs73 abc"), Nothing, "", "abc", navy.arg(36.5)},
            {"a.zuf", document("\\fs74 abc"), SizeTooLarge, "Ok", "abc", navy.arg(36)},
            {"a.zuf", document("abc", "Zt Four", "\\red1\\green2\\blue3"), ForeignColor, "Ok",
             "abc", "Zt Four 12 - left #010203 Black"},
            {"a.zuf", document("a{\\strike b}c"), UnknownError, "Ok", "abc"},
            {"a.zuf", document("a\\par\\qc b"), UnknownError, "Ok", "a\r\nb"},
            {"a.zuf", document("a{\\fs30 b}c"), NotReadable},
            {"a.zuf", document("a{\\f1 b}c"), NotReadable},
            {"a.zuf", document("a{\\cf0 b}c"), NotReadable},
            {"a.zuf", "plain text", NotReadable},
            {"a.zuf", document("abc", "No Such Font"), FontMissing, "No"},
            {"a.txt", {}, NotReadable}, // more than is read
            {"a.doc", "abc", WrongType},
        };
        for (const auto &row : rows) {
            begin();
            window->DisplayOW->setChecked(false);
            write("first.txt", "first");
            load("first.txt");
            write(row.Name, row.Content);
            if (row.Content.isNull())
                QVERIFY(QFile::resize(path(row.Name), (qint64(256) << 20) + 1));
            load(row.Name, row.Said, row.Answer, "No Such Font");
            QCOMPARE(text(), QString(row.Expected));
            const QString partly =
                row.Said.Title == FileTooLong.Title ? " (PARTIALLY LOADED!)" : "";
            QCOMPARE(state(), row.Expected.isEmpty() ? " | first.txt |  *"
                                                     : row.Expected.left(9) + " | " + row.Name +
                                                           partly + " | " + row.Name);
            QCOMPARE(button("Save")->isEnabled(), !row.Expected.isEmpty());
            if (!row.Format.isEmpty())
                QCOMPARE(formatOf(window), row.Format);
        }
    }

    void missingFont()
    {
        QVERIFY(chooseFont(window, "Zt Gaps"));
        const QByteArray content = document("\\fs40\\b\\qc abc", "No Such Font");
        write("a.zuf", content);
        load("a.zuf", FontMissing, "Yes", "No Such Font");
        QCOMPARE(formatOf(window), QString("Zt Gaps 18 - left #000000 Black"));
        // A save that fails leaves everything as it was, also what the file has lost.
        QTest::keyClicks(board(), "x");
        const QString folder = window->Folders.LFSavePath;
        save("no folder/b.zuf", NotSaved);
        QCOMPARE(state(), QString("xabc | a.zuf | a.zuf *"));
        QCOMPARE(window->Folders.LFSavePath, folder);
        QVERIFY(!menuItem(window, "FileMRU2")->isVisible());
        // Saving it under its own name would lose its settings, each time anew.
        save("a.zuf", SettingsReplaced, "No");
        QCOMPARE(contentOf(path("a.zuf")), content);
        save("a.zuf", SettingsReplaced, "Yes");
        QVERIFY(contentOf(path("a.zuf")).contains("Zt Gaps"));
        save("a.zuf", SettingsReplaced, "Yes");
        save("b.zuf"); // another name is another matter, and ends it
        save("b.zuf");
    }

    void lettersOfOtherPages()
    {
        window->DisplayOW->setChecked(false);
        const QByteArray content = document("a\\u1078?b");
        write("a.zuf", content);
        load("a.zuf");
        QCOMPARE(text(), QString("a?b"));
        save("a.zuf", TextReplaced, "No");
        QCOMPARE(contentOf(path("a.zuf")), content);
        save("b.zuf"); // which has all that the board has
        save("b.zuf");
        load("a.zuf");
        save("a.zuf", TextReplaced, "Yes");
        save("a.zuf");
    }

    void guards()
    {
        write("a.txt", "loaded");
        write("b.txt", "other");
        QTest::keyClicks(board(), "typed");
        expect(TextWasChanged, "No");
        click("Load");
        QCOMPARE(text(), QString("typed"));
        expect(TextWasChanged, "Yes");
        load("a.txt");
        expect(TextIsThere, "Yes");
        desktop->Dialogs.dialog(OpenTitle, [](QDialog *dialog) { dialog->reject(); });
        click("Load");
        expect(TextIsThere, "No", {}, true);
        click("Load");
        QCOMPARE(state(), QString("loaded | a.txt | a.txt"));
        // Silenced; and a change of the format is none of the text.
        QVERIFY(fillNumberBox(window->FontSizeSlider, "30"));
        load("b.txt");
        load("b.txt", AlreadyLoaded);
        QTest::keyClicks(board(), "x");
        for (const auto &[answer, after] : {std::pair("No", "xother"), {"Yes", "other"}}) {
            expect(TextWasChanged, "Yes");
            load("b.txt", LoadedButChanged, answer);
            QCOMPARE(text(), QString(after));
        }
        // The settings that a text file needs can be damaged meanwhile: no fault of the file.
        desktop->alterSettings("UPDATE settings SET kind = 1, value = 'x' WHERE name = 'FontSize'");
        window->TextFile.PendingFilePath = path("a.txt");
        QVERIFY_THROWS_EXCEPTION(ConversionError, window->LoadTextFile(path("a.txt")));
    }

    void endings()
    {
        window->DisplayOW->setChecked(false);
        // How a name's ending has it written, and then read; nothing if that is refused.
        for (const auto &[name, written, read] : {std::tuple("notxt", "abc", "abc"),
                                                  {"a.Txt", "{\\rtf1", "{\\rtf1"},
                                                  {"A.ZUF", "{\\rtf1", "abc"},
                                                  {"report", "{\\rtf1", ""},
                                                  {"a[*].txt", "abc", "abc"}}) {
            board()->setText("abc");
            save(name);
            QVERIFY(contentOf(path(name)).startsWith(written));
            QCOMPARE(window->windowTitle().replace("[*][*]", "[*]"), QString("Zendova :  ") + name);
            window->TextFile.LoadedFilePath.clear();
            board()->setText({});
            load(name, *read ? Nothing : WrongType);
            QVERIFY(text().startsWith(read) && text().isEmpty() == !*read);
        }
    }

    void bookkeeping()
    {
        window->DisplayEW->setChecked(false);
        write("files/long.txt", QByteArray(BoardLimit + 500, 'x'));
        load("files/long.txt", FileTooLong, "Yes");
        QCOMPARE(window->Folders.LFLoadPath, path("files"));
        QTest::keyClick(board(), Qt::Key_Delete);
        QVERIFY(window->TextFile.TextChanged);
        QVERIFY(QDir(path("files")).mkdir("sub"));
        save("files/sub/b.txt");
        QCOMPARE(state(), QString("xxxxxxxxx | b.txt | files/sub/b.txt"));
        QCOMPARE(contentOf(path("files/sub/b.txt")).size(), BoardLimit - 1);

        // A save moves both folders. The way there is taken out of the command line's path, which
        // is remembered.
        write("files/with blank.zuf", document("abc"));
        QVERIFY(desktop->close());
        restart(path("files/sub/.././with blank.zuf"));
        for (const char *name : {"LFSavePath", "LFLoadPath"})
            QCOMPARE(desktop->setting("Last", name), path("files/sub"));
        QCOMPARE(desktop->setting("MRU", "1"), path("files/sub/b.txt"));
        QCOMPARE(state(), QString("abc | with blank.zuf | files/with blank.zuf"));
        QCOMPARE(window->Folders.LFLoadPath, path("files"));
    }

    void dialogs()
    {
        write("files/A.TXT", "abc");
        window->Folders.LFLoadPath = path("files");
        window->Folders.LFSavePath = desktop->Folder.path();
        const auto look = [this](const char *title, const char *key, const QString &expected) {
            desktop->Dialogs.dialog(title, [expected](QDialog *dialog) {
                const QString kind = dialog->findChild<QComboBox *>("fileTypeCombo")->currentText();
                const QString name = dialog->findChild<QLineEdit *>("fileNameEdit")->text();
                QCOMPARE(qobject_cast<QFileDialog *>(dialog)->directory().path() + " | " + name +
                             " | " + kind,
                         expected);
                dialog->reject();
            });
            click(key);
        };
        const QString formatted = " |  | Zendova Uniform Format Files (*.ZUF)";
        look(OpenTitle, "Load", path("files") + formatted);
        board()->setText("abc");
        look(SaveTitle, "Save", desktop->Folder.path() + formatted);
        board()->setText({});
        load("files/A.TXT");
        look(SaveTitle, "Save", path("files") + " | A.TXT | Text Files (*.TXT)");
        write("b.txt", "there before");
        typeName(SaveTitle, "b.txt");
        answerOverwrite("b.txt", QMessageBox::No);
        click("Save");
        QCOMPARE(contentOf(path("b.txt")), QByteArray("there before"));
        QCOMPARE(state(), QString("abc | A.TXT | files/A.TXT"));
    }

    void nameThatIsNoText()
    {
        const QString folder = QFileInfo(write("texts/other", "")).path();
        const std::string name = folder.toStdString() + "/caf\xE9 \xC3\xA9.txt";
        const QString shown = QString::fromUtf8("caf\uFFFD \u00E9.txt");
        const std::size_t blank = name.rfind(' '); // what a shell takes for two words
        const std::string words[] = {name.substr(0, blank), name.substr(blank + 1)};
        const char *const arguments[] = {"zendova", words[0].c_str(), words[1].c_str()};
        expect(StartupFile, "Ok", "File '" + shown + "'");
        restart(CommandLine::Path(3, arguments));
        std::ofstream(name) << "abc";
        restart(CommandLine::Path(3, arguments));
        QCOMPARE(text(), QString("abc"));
        QCOMPARE(window->windowTitle(), "Zendova :  " + shown);
        QTest::keyClicks(board(), "d");
        desktop->Dialogs.dialog(SaveTitle, [shown](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QLineEdit *>("fileNameEdit")->text(), shown);
            auto *buttons = dialog->findChild<QDialogButtonBox *>();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Save), Qt::LeftButton);
        });
        click("Save");
        std::string content;
        std::ifstream(name) >> content;
        QCOMPARE(content, std::string("dabc"));
        const std::filesystem::directory_iterator files(folder.toStdString());
        QCOMPARE(std::distance(std::filesystem::begin(files), std::filesystem::end(files)), 2);
        std::filesystem::remove(name); // which the folder's own removal can't find
        window->DisplayEW->setChecked(false);
        QVERIFY(desktop->close());
        QCOMPARE(desktop->setting("MRU", "1"), QString()); // it would be another's
    }

    void drop()
    {
        const QString first = write("a.txt", "from a");
        const QString other = write("b.txt", "from b");
        QTest::keyClicks(board(), "old");
        const auto drop = [this](const QStringList &paths) {
            QList<QUrl> urls{QUrl("https://zendova.example/x.txt")};
            for (const QString &dropped : paths)
                urls += QUrl::fromLocalFile(dropped);
            QMimeData mime;
            mime.setUrls(urls);
            mime.setText(paths.first());
            // On the board, which takes text but leaves a file to the window.
            const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
            QDragEnterEvent enter({5, 5}, actions, &mime, Qt::LeftButton, {});
            enter.setAccepted(false);
            QApplication::sendEvent(board()->viewport(), &enter);
            QVERIFY(enter.isAccepted());
            QDropEvent event({5, 5}, actions, &mime, Qt::LeftButton, {});
            QApplication::sendEvent(window, &event);
            QCOMPARE(event.dropAction(), Qt::CopyAction);
            QCoreApplication::processEvents(); // nothing happens while the other program waits
        };
        expect(LoadError, "Ok", "PNG");
        drop({write("c.png", "no picture")});
        expect(LoadError, "Ok", "does not exist");
        drop({QFileInfo(write("folder.txt/d", "")).path()});
        // Behind a dialog it would replace what that one asks about.
        desktop->Dialogs.dialog("Zendova TextBoard Save Warning", [&](QDialog *dialog) {
            drop({first});
            dialog->reject();
        });
        click("Load");
        QCOMPARE(text(), QString("old"));
        expect(TextWasChanged, "Yes");
        drop({first, other});
        QCOMPARE(text(), QString("from a"));
    }

private:
    QString path(const QString &name) const { return desktop->Folder.filePath(name); }
    QString write(const QString &name, const QByteArray &content) const
    {
        return writeFile(path(name), content);
    }
    /// The next dialog is a file dialog, in which this name is typed over what stands there.
    void typeName(const char *title, const QString &name)
    {
        desktop->Dialogs.dialog(
            title, [whole = path(name)](QDialog *dialog) { typeFileName(dialog, whole); });
    }
    /// The next dialog asks whether the file of this name may be replaced.
    void answerOverwrite(const QString &name, QMessageBox::StandardButton answer)
    {
        desktop->Dialogs.dialog(SaveTitle, [name, answer](QDialog *dialog) {
            auto *question = qobject_cast<QMessageBox *>(dialog);
            QVERIFY(question && question->text().contains(name));
            QTest::mouseClick(question->button(answer), Qt::LeftButton);
            if (answer == QMessageBox::No) // back in the file dialog
                qobject_cast<QDialog *>(QApplication::activeModalWidget())->reject();
        });
    }
    void click(const char *key) const
    {
        QTest::mouseClick(button(key), Qt::LeftButton, {}, QPoint(8, 8));
        activate(window); // no window system gives the focus back here
    }
    /// Loads by the dialog, behind which this is said.
    void load(const QString &name, const ExpectedMessage &said = {}, const QString &answer = "Ok",
              const QString &insert = {})
    {
        typeName(OpenTitle, name);
        if (said.Title)
            expect(said, answer, insert.isNull() ? path(name) : insert);
        click("Load");
    }
    void save(const QString &name, const ExpectedMessage &said = {}, const QString &answer = "Ok")
    {
        typeName(SaveTitle, name);
        if (QFile::exists(path(name)))
            answerOverwrite(name, QMessageBox::Yes);
        if (said.Title)
            expect(said, answer, "No such file or directory " + path(name));
        click("Save");
    }
    QString text() const { return board()->Text(); }
    /// "text | title | path" of what is loaded, with a star if it was changed since.
    QString state() const
    {
        return text().left(9) + " | " + window->windowTitle().section(" :  ", 1) + " | " +
               window->TextFile.LoadedFilePath.mid(desktop->Folder.path().size() + 1) +
               (window->TextFile.TextChanged ? " *" : "");
    }
};

ZENDOVA_WINDOW_TEST(TestTextFiles)
#include "tst_textfiles.moc"
