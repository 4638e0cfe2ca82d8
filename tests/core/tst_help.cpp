// The Help menu as a person uses it: the About window and how it goes away, what the desktop is
// asked to open, the help window with good and bad files, and which menu items have which picture.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"
#include "tests/support/TestFonts.h"

#include "core/About.h"
#include "core/SetMenuPics.h"
#include "platform/FontCatalog.h"
#include "platform/controls/HelpViewer.h"
#include "platform/controls/Icons.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <set>
#include <sys/stat.h>

namespace {

constexpr auto HelpFile = "Zendova300.hlp";

using Use = void (*)(About &);

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(QSize(32, 32), 1.0).toImage();
}

/// The number of the picture that an item shows; 0 for none.
int pictureOn(const QAction *item)
{
    for (int number = 1; number <= 22; ++number)
        if (!item->icon().isNull() && imageOf(item->icon()) == imageOf(Icons::menuPicture(number)))
            return item->isIconVisibleInMenu() ? number : -number;
    return item->icon().isNull() ? 0 : -99;
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray ourHelp()
{
    QFile file(QString(ZENDOVA_HELP) + '/' + HelpFile);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList captures(const QString &text, const char *pattern)
{
    QStringList found;
    for (const auto &match : QRegularExpression(pattern).globalMatch(text))
        found += match.captured(1);
    return found;
}

} // namespace

Q_DECLARE_METATYPE(Use)

class TestHelp : public QObject
{
    Q_OBJECT

public slots:
    void opened(const QUrl &address) { Opened += address; }

private slots:
    void init();
    void cleanup();

    void aboutCloses_data();
    void aboutCloses();
    void aboutTexts();
    void commandsOpen_data();
    void commandsOpen();
    void pictures_data();
    void pictures();
    void picturesByPosition();
    void contentsAndKey();
    void badFiles_data();
    void badFiles();
    void vanishedFile();
    void links();
    void loadsNothingElse();
    void findsInPage();
    void ourHelpHangsTogether();

private:
    /// Starts with this help file in the current folder and opens it by the menu.
    HelpViewer *openHelp(Desktop &desktop, const QByteArray &content);

    QString FormerFolder;
    std::unique_ptr<QTemporaryDir> Folder; ///< the current folder
    QList<QUrl> Opened;                    ///< what the desktop was asked for
};

void TestHelp::init()
{
    FormerFolder = QDir::currentPath();
    Folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(Folder->path()));
    Opened.clear();
    for (const char *scheme : {"https", "http", "mailto", "file"})
        QDesktopServices::setUrlHandler(scheme, this, "opened");
}

void TestHelp::cleanup()
{
    for (const char *scheme : {"https", "http", "mailto", "file"})
        QDesktopServices::unsetUrlHandler(scheme);
    QDir::setCurrent(FormerFolder);
}

void TestHelp::aboutCloses_data()
{
    QTest::addColumn<Use>("use");
    QTest::addColumn<bool>("closes");
    const auto row = [](const char *name, bool closes, Use use) {
        QTest::newRow(name) << use << closes;
    };
    row("letter", true, [](About &about) { QTest::keyClick(&about, Qt::Key_Z); });
    row("Esc", true, [](About &about) { QTest::keyClick(&about, Qt::Key_Escape); });
    row("Enter", true, [](About &about) { QTest::keyClick(&about, Qt::Key_Return); });
    row("Tab", true, [](About &about) { QTest::keyClick(&about, Qt::Key_Tab); });
    row("F5", true, [](About &about) { QTest::keyClick(&about, Qt::Key_F5); });
    row("Left", true, [](About &about) { QTest::keyClick(&about, Qt::Key_Left); });
    row("Alt on the way to Tab", false, [](About &about) { QTest::keyClick(&about, Qt::Key_Alt); });
    row("a key still held down", false, [](About &about) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(&about, &held);
    });
    // A click lands on whatever is under the mouse.
    row("click on the background", true,
        [](About &about) { QTest::mouseClick(about.childAt(3, 3), Qt::LeftButton); });
    row("click on the name", true, [](About &about) {
        QTest::mouseClick(about.childAt(about.ZendovaName->geometry().center()), Qt::LeftButton);
    });
    row("click on the logo", true, [](About &about) {
        QTest::mouseClick(about.childAt(about.ZendovaLogo->geometry().center()), Qt::LeftButton);
    });
    row("right click", false,
        [](About &about) { QTest::mouseClick(about.childAt(3, 3), Qt::RightButton); });
    row("let go outside", false, [](About &about) {
        QTest::mousePress(about.Background, Qt::LeftButton, {}, QPoint(3, 3));
        QTest::mouseRelease(about.Background, Qt::LeftButton, {}, QPoint(-5, -5));
    });
    row("let go without a press", false,
        [](About &about) { QTest::mouseRelease(about.Background, Qt::LeftButton); });
}

void TestHelp::aboutCloses()
{
    QFETCH(Use, use);
    QFETCH(bool, closes);
    Desktop desktop;
    Zendova *window = desktop.start();
    bool closed = !closes;
    desktop.Dialogs.dialog("About Zendova", [&](QDialog *dialog) {
        auto *about = qobject_cast<About *>(dialog);
        QVERIFY(about && about->isModal());
        use(*about);
        closed = !about->isVisible();
        about->reject();
    });
    menuItem(window, "HelpAbout")->trigger();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(closed, closes);
}

void TestHelp::aboutTexts()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    desktop.Dialogs.dialog("About Zendova", [](QDialog *dialog) {
        const auto *about = qobject_cast<About *>(dialog);
        QCOMPARE(about->ZendovaName->text(), QString("Zendova"));
        QVERIFY(about->ZendovaName->font().bold());
        QCOMPARE(about->ZendovaVer->text(), QString("Version 3.0.0 RC2"));
        QVERIFY(about->ZendovaAuthor->text().startsWith(QChar(169) + QString(" Zendova Works")));
        QCOMPARE(about->Label2->text(),
                 QString("dedicated to the passion, commitment and generosity of all the "
                         "freeware coders I am indebted to and have learnt from."));
        QCOMPARE(about->Label3->text(), QString("and"));
        QCOMPARE(about->Label5->text(), QString("Press any key or click on box to continue..."));
        QCOMPARE(about->Background->geometry(), about->rect());
        const QList<QWidget *> controls = about->Background->findChildren<QWidget *>();
        for (const QWidget *control : controls) {
            QVERIFY(about->rect().contains(control->geometry()));
            for (const QWidget *other : controls)
                QVERIFY(control == other || !control->geometry().intersects(other->geometry()));
        }
        dialog->reject();
    });
    menuItem(window, "HelpAbout")->trigger();
    QVERIFY(desktop.Dialogs.allCame());
}

void TestHelp::commandsOpen_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QUrl>("address");
    QTest::newRow("readme") << "HelpReadme"
                            << QUrl::fromLocalFile(QCoreApplication::applicationDirPath() +
                                                   "/Readme.doc");
    QTest::newRow("updates") << "HelpCheckUpd" << QUrl("https://zendova.example/updates");
    QTest::newRow("home page") << "HelpVisit" << QUrl("https://zendova.example/");
    QTest::newRow("mail") << "HelpFeedback" << QUrl("mailto:feedback@zendova.example");
}

void TestHelp::commandsOpen()
{
    QFETCH(QString, command);
    QFETCH(QUrl, address);
    Desktop desktop;
    menuItem(desktop.start(), qPrintable(command))->trigger();
    QCOMPARE(Opened, QList{address});
    QVERIFY(desktop.Dialogs.allCame());
}

void TestHelp::pictures_data()
{
    using Pictures = QMap<QString, int>;
    const Pictures always = {
        {"FileTF", 1},      {"FileCFM", 2},   {"EditCut", 3},  {"EditCopy", 4},
        {"EditPaste", 5},   {"EditFind", 6},  {"FormatTB", 7}, {"FormatFM", 8},
        {"ToolsCopy", 9},   {"ToolsCut", 10}, {"ToolsFS", 11}, {"ToolsPrint", 12},
        {"ToolsClear", 13}, {"ToolsFB", 14},  {"ToolsKB", 15}, {"ToolsOpt", 16},
    };
    Pictures with = always;
    with.insert({{"HelpContents", 17},
                 {"HelpReadme", 18},
                 {"HelpCheckUpd", 19},
                 {"HelpVisit", 20},
                 {"HelpFeedback", 21},
                 {"HelpAbout", 22}});
    // The last positions count the hidden item too, so that the pictures move down by one.
    Pictures without = always;
    without.insert({{"HelpReadme", 18}, {"HelpVisit", 19}, {"HelpFeedback", 20}});

    QTest::addColumn<QString>("made");
    QTest::addColumn<bool>("there");
    QTest::addColumn<Pictures>("expected");
    QTest::newRow("with the help file") << "file" << true << with;
    QTest::newRow("without") << "" << false << without;
    QTest::newRow("a folder of that name") << "folder" << false << without;
}

void TestHelp::pictures()
{
    QFETCH(QString, made);
    QFETCH(bool, there);
    using Pictures = QMap<QString, int>;
    QFETCH(Pictures, expected);
    if (made == "file")
        QVERIFY(writeFile(HelpFile, "<p>Help</p>"));
    else if (made == "folder")
        QVERIFY(QDir().mkdir(HelpFile));
    Desktop desktop;
    const Zendova *window = desktop.start();
    QCOMPARE(menuItem(window, "HelpContents")->isVisible(), there);
    QVERIFY(menuItem(window, "HelpSep1")->isVisible());
    Pictures shown;
    for (const QAction *item : window->menuBar()->findChildren<QAction *>()) {
        const QString name = item->menu() ? item->menu()->objectName() : item->objectName();
        if (const int picture = pictureOn(item))
            shown.insert(name, picture);
    }
    QCOMPARE(shown, expected);
}

void TestHelp::picturesByPosition()
{
    QMenuBar bar;
    bar.addMenu("Hidden")->menuAction()->setVisible(false);
    QMenu *menu = bar.addMenu("Shown");
    QAction *hidden = menu->addAction("Hidden");
    hidden->setVisible(false);
    QAction *first = menu->addAction("First");
    QAction *line = menu->addSeparator();
    QAction *last = menu->addAction("Last");
    last->setCheckable(true);
    for (const auto &[menuPosition, itemPosition, picture] :
         {std::tuple(0, 0, 3), {0, 1, 4}, {0, 2, 5}, {0, 3, 6}, {0, -1, 7}, {1, 0, 8}, {-1, 0, 9}})
        SetMenuPic(bar, menuPosition, itemPosition, picture);
    QCOMPARE(pictureOn(hidden), 0);
    QCOMPARE(pictureOn(first), 3);
    QCOMPARE(pictureOn(line), 0);
    QCOMPARE(pictureOn(last), 5);
    last->setChecked(true);
    QCOMPARE(pictureOn(last), 5);
}

HelpViewer *TestHelp::openHelp(Desktop &desktop, const QByteArray &content)
{
    if (!writeFile(HelpFile, content))
        return nullptr;
    Zendova *window = desktop.start();
    menuItem(window, "HelpContents")->trigger();
    auto *viewer = window->findChild<HelpViewer *>();
    return viewer && QTest::qWaitForWindowExposed(viewer) ? viewer : nullptr;
}

void TestHelp::contentsAndKey()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClick(window, Qt::Key_F1);
    QVERIFY(!window->findChild<HelpViewer *>());

    QVERIFY(writeFile(HelpFile, "<h1>First</h1>"));
    window = desktop.start();
    QTest::keyClick(window, Qt::Key_F1);
    auto *viewer = window->findChild<HelpViewer *>();
    QVERIFY(viewer && viewer->isVisible());
    QVERIFY(!viewer->isModal());
    QCOMPARE(viewer->windowTitle(), QString("Zendova Help"));
    QCOMPARE(viewer->Page->toPlainText(), QString("First"));

    // The window that is open is used again, and has what the file holds now.
    QVERIFY(writeFile(HelpFile, "<h1>Second</h1>"));
    menuItem(window, "HelpContents")->trigger();
    QCOMPARE(window->findChildren<HelpViewer *>().size(), 1);
    QCOMPARE(viewer->Page->toPlainText(), QString("Second"));
    QTest::keyClick(viewer->Page, Qt::Key_Escape);
    QVERIFY(!viewer->isVisible());
    QVERIFY(window->isVisible());
}

void TestHelp::badFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("notice");
    QTest::newRow("empty") << QByteArray("") << "is empty";
    QTest::newRow("blanks") << QByteArray(" \r\n\t\n") << "is empty";
    QTest::newRow("program") << QByteArray("\x7f"
                                           "ELF\2\1\1\0\0\0\0\0",
                                           12)
                             << "not a help text";
    QTest::newRow("other encoding") << QByteArray("caf\xe9 au lait") << "not a help text";
    QTest::newRow("plain text") << QByteArray("Read me") << "not a help text";
    QTest::newRow("not closed") << QByteArray("<div><p>Text</div>") << "not a help text";
    QTest::newRow("no end") << QByteArray("<div><p>Text</p>") << "not a help text";
    QTest::newRow("thousands deep")
        << QByteArray("<table><tr><td>").repeated(4000) << "not a help text";
    QTest::newRow("grows when read")
        << QByteArray("<!DOCTYPE a [<!ENTITY e 'eeeeeeeeeeeeeeeeeeeeeeee'>]><a>&e;</a>")
        << "not a help text";
    QTest::newRow("huge") << "<p>" + QByteArray(0x1000000, 'x') + "</p>"
                          << "too large";
}

void TestHelp::badFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, notice);
    Desktop desktop;
    HelpViewer *viewer = openHelp(desktop, content);
    QVERIFY(viewer);
    const QString text = viewer->Page->toPlainText();
    QVERIFY2(text.contains(notice), qPrintable(text.left(200)));
    QVERIFY2(text.contains(HelpFile), qPrintable(text.left(200)));
    QVERIFY(text.size() < 200);
}

void TestHelp::vanishedFile()
{
    Desktop desktop;
    HelpViewer *viewer = openHelp(desktop, "<p>Here</p>");
    QVERIFY(viewer);
    QVERIFY(QFile::remove(HelpFile));
    menuItem(desktop.Window.get(), "HelpContents")->trigger();
    QVERIFY(viewer->Page->toPlainText().contains("not there any more"));
    // A pipe without a writer would keep a reader waiting for ever.
    QCOMPARE(mkfifo(HelpFile, 0600), 0);
    menuItem(desktop.Window.get(), "HelpContents")->trigger();
    QVERIFY(viewer->Page->toPlainText().contains("not there any more"));
}

void TestHelp::links()
{
    Desktop desktop;
    HelpViewer *viewer = openHelp(desktop, ourHelp());
    QVERIFY(viewer);
    const QScrollBar *bar = viewer->Page->verticalScrollBar();
    QVERIFY(!viewer->Back->isEnabled());
    // Tab goes from link to link: the second of the contents.
    QTest::keyClick(viewer->Page, Qt::Key_Tab);
    QTest::keyClick(viewer->Page, Qt::Key_Tab);
    QTest::keyClick(viewer->Page, Qt::Key_Return);
    QTRY_VERIFY(bar->value() > 0);
    const int there = bar->value();
    QVERIFY(viewer->Back->isEnabled() && !viewer->Forward->isEnabled());
    QTest::mouseClick(viewer->Back, Qt::LeftButton);
    QTRY_COMPARE(bar->value(), 0);
    QTest::mouseClick(viewer->Forward, Qt::LeftButton);
    QTRY_COMPARE(bar->value(), there);
    QTest::mouseClick(viewer->Contents, Qt::LeftButton);
    QTRY_COMPARE(bar->value(), 0);
    QVERIFY(Opened.isEmpty());

    viewer =
        openHelp(desktop, "<p><a href='https://zendova.example/a'>a</a> "
                          "<a href='mailto:b@zendova.example'>b</a> "
                          "<a href='file:///etc/hostname'>c</a> <a href='other.html'>d</a></p>");
    QVERIFY(viewer);
    for (int link = 0; link < 4; ++link) {
        QTest::keyClick(viewer->Page, Qt::Key_Tab);
        QTest::keyClick(viewer->Page, Qt::Key_Return);
    }
    QCOMPARE(Opened, (QList{QUrl("https://zendova.example/a"), QUrl("mailto:b@zendova.example")}));
    QCOMPARE(viewer->Page->toPlainText(), QString("a b c d"));
}

void TestHelp::loadsNothingElse()
{
    const QSize size(60, 40);
    QVERIFY(QImage(size, QImage::Format_RGB32).save("there.png"));
    const QUrl absolute = QUrl::fromLocalFile(QDir::current().filePath("there.png"));
    Desktop desktop;
    HelpViewer *viewer =
        openHelp(desktop, "<p><img src='there.png'/><img src='" + absolute.toEncoded() +
                              "'/><img src='icon:Find'/></p>");
    QVERIFY(viewer);
    viewer->Page->grab();
    const auto picture = [viewer](const QUrl &url) {
        return viewer->Page->document()->resource(QTextDocument::ImageResource, url);
    };
    QCOMPARE(picture(QUrl("there.png")).value<QPixmap>().size(), QSize(1, 1));
    QCOMPARE(picture(absolute).value<QPixmap>().size(), QSize(1, 1));
    QCOMPARE(picture(QUrl("icon:Find")).value<QPixmap>().deviceIndependentSize(), QSizeF(16, 16));
}

void TestHelp::findsInPage()
{
    Desktop desktop;
    HelpViewer *viewer = openHelp(desktop, "<div><p>one cat</p><p>two Cats</p></div>");
    QVERIFY(viewer);
    const auto place = [viewer] { return viewer->Page->textCursor().selectionStart(); };
    QTest::keyClick(viewer, Qt::Key_F, Qt::ControlModifier);
    QTRY_VERIFY(viewer->FindText->hasFocus());
    QTest::keyClicks(viewer->FindText, "cat");
    QTest::keyClick(viewer->FindText, Qt::Key_Return);
    QCOMPARE(place(), 4);
    QTest::keyClick(viewer, Qt::Key_F3);
    QCOMPARE(place(), 12);
    QCOMPARE(viewer->FindResult->text(), QString());
    QTest::mouseClick(viewer->Next, Qt::LeftButton);
    QCOMPARE(place(), 4);
    QVERIFY(viewer->FindResult->text().contains("top"));
    QTest::mouseClick(viewer->Previous, Qt::LeftButton);
    QCOMPARE(place(), 12);
    QVERIFY(viewer->FindResult->text().contains("bottom"));
    QTest::keyClicks(viewer->FindText, "x");
    QCOMPARE(viewer->FindResult->text(), QString());
    QTest::keyClick(viewer->FindText, Qt::Key_Return);
    QCOMPARE(viewer->FindResult->text(), QString("Not found"));
    QCOMPARE(place(), 12);
}

void TestHelp::ourHelpHangsTogether()
{
    const QString help = QString::fromUtf8(ourHelp());
    const QStringList anchors = captures(help, "<a name=\"([^\"]*)\">");
    const QStringList targets = captures(help, "href=\"#([^\"]*)\"");
    QCOMPARE(std::set(anchors.begin(), anchors.end()).size(), std::size_t(anchors.size()));
    QCOMPARE(std::set(targets.begin(), targets.end()), std::set(anchors.begin(), anchors.end()));
    for (const QString &key : captures(help, "icon:([^\"]*)\""))
        QVERIFY2(!Icons::icon(key).isNull(), qPrintable(key));
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestHelp test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_help.moc"
