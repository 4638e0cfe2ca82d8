// The Help menu as a person uses it: the About window and how it goes away, what the desktop is
// asked to open, the help window with good and bad files, and which menu items have which picture.
#include "tests/support/Files.h"
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/About.h"
#include "platform/FontCatalog.h"
#include "platform/controls/HelpViewer.h"
#include "platform/controls/Icons.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>

namespace {

constexpr auto HelpFile = "Zendova300.hlp"; // in the current folder

QByteArray ourHelp()
{
    return contentOf(QString(ZENDOVA_HELP) + '/' + HelpFile);
}

QStringList captures(const QByteArray &text, const char *pattern)
{
    QStringList found;
    for (const auto &match : QRegularExpression(pattern).globalMatch(text))
        found += match.captured(1);
    return found;
}

/// The items with the pictures 1 to 22, in their order; "-" for a picture that is nowhere.
QString itemsWithPictures(const Zendova *window)
{
    const auto imageOf = [](const QIcon &icon) { return icon.pixmap({32, 32}, 1.0).toImage(); };
    QStringList names(22, "-");
    for (const QAction *item : window->menuBar()->findChildren<QAction *>())
        for (int n = 1; n <= 22 && !item->icon().isNull() && item->isIconVisibleInMenu(); ++n)
            if (imageOf(item->icon()) == imageOf(Icons::menuPicture(n)))
                names[n - 1] = item->menu() ? item->menu()->objectName() : item->objectName();
    return names.join(' ');
}

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT

public slots:
    void opened(const QUrl &address) { Opened += address; }

private slots:
    void initTestCase();
    void init();
    void cleanup() { QVERIFY(Place->Dialogs.allCame()); }

    void about();
    void addresses();
    void pictures();
    void contentsAndKey();
    void menuTopics();
    void ourHelpHangsTogether();
    void badFiles();
    void links();
    void loadsNothingElse();
    void findsInPage();

private:
    /// Chooses the contents from the menu, with this help file.
    HelpViewer *show(const QByteArray &content);

    std::unique_ptr<Desktop> Place; ///< its folder is the current one
    Zendova *Window = nullptr;      ///< started with a help file
    QList<QUrl> Opened;             ///< what the desktop was asked for
};

void TestHelp::initTestCase()
{
    for (const char *scheme : {"https", "http", "mailto", "file"})
        QDesktopServices::setUrlHandler(scheme, this, "opened");
}

void TestHelp::init()
{
    Opened.clear();
    Place.reset();
    Place = std::make_unique<Desktop>();
    QVERIFY(QDir::setCurrent(Place->Folder.path()));
    writeFile(HelpFile, "<h1>First</h1>");
    Window = Place->start();
}

void TestHelp::about()
{
    struct Row
    {
        bool Closes;
        void (*Use)(About &);
    };
    constexpr Row rows[] = {
        {true, [](About &about) { QTest::keyClick(&about, Qt::Key_Tab); }},
        {false, [](About &about) { QTest::keyClick(&about, Qt::Key_Alt); }}, // on the way to Tab
        {false,
         [](About &about) {
             QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
             QApplication::sendEvent(&about, &held);
         }},
        {true,
         [](About &about) { // on what is under the mouse
             const QPoint logo = about.ZendovaLogo->geometry().center();
             QTest::mouseClick(about.childAt(logo), Qt::LeftButton);
         }},
        {false, [](About &about) { QTest::mouseClick(about.Background, Qt::RightButton); }},
        {false, [](About &about) { QTest::mouseRelease(about.Background, Qt::LeftButton); }},
        {false,
         [](About &about) {
             QTest::mousePress(about.Background, Qt::LeftButton, {}, {3, 3});
             QTest::mouseRelease(about.Background, Qt::LeftButton, {}, {-5, -5});
         }},
    };
    for (const Row &row : rows) {
        Place->Dialogs.dialog("About Zendova", [&row](QDialog *dialog) {
            // All of its labels.
            QCOMPARE(dialog->accessibleDescription(),
                     QString("Zendova Version 3.0.0 RC2 © Zendova Works: made with patience and a "
                             "love of letters and dedicated to the passion, commitment and "
                             "generosity of all the freeware coders I am indebted to and have "
                             "learnt from. Press any key or click on box to continue..."));
            row.Use(*qobject_cast<About *>(dialog));
            QCOMPARE(dialog->isVisible(), !row.Closes);
            dialog->reject();
        });
        menuItem(Window, "HelpAbout")->trigger();
    }
}

void TestHelp::addresses()
{
    for (const char *command : {"HelpReadme", "HelpCheckUpd", "HelpVisit", "HelpFeedback"})
        menuItem(Window, command)->trigger();
    QCOMPARE(Opened,
             (QList{QUrl::fromLocalFile(qApp->applicationDirPath() + "/Readme.doc"),
                    QUrl("https://zendova.example/updates"), QUrl("https://zendova.example/"),
                    QUrl("mailto:feedback@zendova.example")}));
}

void TestHelp::pictures()
{
    const QString always = "FileTF FileCFM EditCut EditCopy EditPaste EditFind FormatTB FormatFM "
                           "ToolsCopy ToolsCut ToolsFS ToolsPrint ToolsClear ToolsFB ToolsKB "
                           "ToolsOpt ";
    QCOMPARE(itemsWithPictures(Window), always + "HelpContents HelpReadme HelpCheckUpd HelpVisit "
                                                 "HelpFeedback HelpAbout");
    QVERIFY(menuItem(Window, "HelpContents")->isVisible());
    // A folder is no help file. The last positions count the hidden item too, so that the pictures
    // move down by one.
    QVERIFY(QFile::remove(HelpFile) && QDir().mkdir(HelpFile));
    Window = Place->start();
    QCOMPARE(itemsWithPictures(Window), always + "- HelpReadme HelpVisit HelpFeedback - -");
    QVERIFY(!menuItem(Window, "HelpContents")->isVisible());
}

HelpViewer *TestHelp::show(const QByteArray &content)
{
    writeFile(HelpFile, content);
    menuItem(Window, "HelpContents")->trigger();
    auto *viewer = Window->findChild<HelpViewer *>();
    return viewer && QTest::qWaitForWindowExposed(viewer) ? viewer : nullptr;
}

void TestHelp::contentsAndKey()
{
    QTest::keyClick(Window, Qt::Key_F1);
    auto *viewer = Window->findChild<HelpViewer *>();
    QVERIFY(viewer && viewer->isVisible() && !viewer->isModal());
    QCOMPARE(viewer->windowTitle(), QString("Zendova Help"));
    QCOMPARE(viewer->Page->toPlainText(), QString("First"));
    // The window that is open is used again, and has what the file holds now.
    QCOMPARE(show("<h1>Second</h1>"), viewer);
    QCOMPARE(viewer->Page->toPlainText(), QString("Second"));
    QTest::keyClick(viewer->Page, Qt::Key_Escape);
    QVERIFY(!viewer->isVisible() && Window->isVisible());

    QVERIFY(QFile::remove(HelpFile));
    menuItem(Window, "HelpContents")->trigger();
    QVERIFY(viewer->Page->toPlainText().contains("not there any more"));

    Window = Place->start();
    QTest::keyClick(Window, Qt::Key_F1);
    auto *menu = Window->findChild<QMenu *>("ItemView");
    menu->popup({});
    QTest::keyClick(menu, Qt::Key_F1);
    QCOMPARE(QApplication::activePopupWidget(), menu);
    menu->close();
    QVERIFY(!Window->findChild<HelpViewer *>());
}

void TestHelp::menuTopics()
{
    writeFile(HelpFile, ourHelp());
    QTest::keyClicks(Window->TextBoard, "a"); // only what is enabled is highlighted
    for (const auto &[name, item, topic] :
         {std::tuple("ItemView", "ViewCode", "The views: zoom, code, keystroke"),
          {"ItemTools", "ToolsCopy", "Cut, copy and paste"},
          {"ItemTools", "ToolsClear", "The TextBoard"},
          {"ItemTools", "ToolsCut", "Zendova Help"},
          {"FileTF", "FileLoad", "Zendova Help"}}) {
        if (name == QString("FileTF")) // a menu within a menu
            Window->findChild<QMenu *>("ItemFile")->popup({});
        auto *menu = Window->findChild<QMenu *>(name);
        menu->popup({});
        menu->setActiveAction(menuItem(Window, item));
        QTest::keyClick(menu, Qt::Key_F1);
        QVERIFY2(!QApplication::activePopupWidget(), item);
        const auto *viewer = Window->findChild<HelpViewer *>();
        QVERIFY(viewer && viewer->isVisible() && !viewer->Back->isEnabled());
        QCOMPARE(viewer->Page->textCursor().block().text().trimmed(), QString(topic));
        QVERIFY2(qAbs(viewer->Page->cursorRect().top()) <= 40, item);
    }
}

void TestHelp::ourHelpHangsTogether()
{
    QStringList anchors = captures(ourHelp(), "<a name=\"([^\"]*)\">");
    QStringList targets = captures(ourHelp(), "href=\"#([^\"]*)\"");
    for (const QAction *item : Window->menuBar()->findChildren<QAction *>())
        if (const int topic = item->property("HelpId").toInt())
            targets += HelpViewer::AnchorOf(topic);
    targets.removeDuplicates();
    targets.sort();
    anchors.sort();
    QCOMPARE(targets, anchors);
    for (const QString &key : captures(ourHelp(), "icon:([^\"]*)\""))
        QVERIFY2(!Icons::icon(key).isNull(), qPrintable(key));
}

void TestHelp::badFiles()
{
    const auto nested = [](int depth) {
        return QByteArray("<b>").repeated(depth) + 'x' + QByteArray("</b>").repeated(depth);
    };
    const auto sized = [](int bytes) { return "<p>" + QByteArray(bytes - 7, 'x') + "</p>"; };
    const QByteArray bomb = "<!DOCTYPE a [<!ENTITY e 'eeeeeeeeeeeeeeee'>]><a>&e;</a>";
    for (const auto &[content, notice] : {std::pair(QByteArray(" \r\n\t\n"), "is empty"),
                                          {QByteArray("\x7f\2\1\1\0\0\0\0", 8), "not a help text"},
                                          {"<p>caf\xe9 au lait</p>", "not a help text"},
                                          {"<div><p>Text</p>", "not a help text"},
                                          {bomb, "not a help text"},
                                          {nested(17), "not a help text"},
                                          {sized(65537), "too large"}}) {
        const HelpViewer *viewer = show(content);
        QVERIFY(viewer);
        const QString text = viewer->Page->toPlainText();
        QVERIFY2(text.contains(notice) && text.contains(HelpFile), content.left(40));
        QVERIFY(text.size() < 200);
    }
    for (const QByteArray &content : {nested(16), sized(65536)})
        QVERIFY(show(content)->Page->toPlainText().startsWith('x'));
}

void TestHelp::links()
{
    HelpViewer *viewer = show(ourHelp());
    QVERIFY(viewer && !viewer->Back->isEnabled());
    const auto followNextLink = [viewer] {
        QTest::keyClick(viewer->Page, Qt::Key_Tab);
        QTest::keyClick(viewer->Page, Qt::Key_Return);
    };
    const QScrollBar *bar = viewer->Page->verticalScrollBar();
    followNextLink();
    QTRY_VERIFY(bar->value() > 0);
    const int there = bar->value();
    QVERIFY(viewer->Back->isEnabled() && !viewer->Forward->isEnabled());
    QTest::mouseClick(viewer->Back, Qt::LeftButton);
    QTRY_COMPARE(bar->value(), 0);
    QTest::mouseClick(viewer->Forward, Qt::LeftButton);
    QTRY_COMPARE(bar->value(), there);
    QTest::mouseClick(viewer->Contents, Qt::LeftButton);
    QTRY_COMPARE(bar->value(), 0);

    show("<p><a href='https://zendova.example/a'>a</a> <a href='mailto:b@zendova.example'>b</a> "
         "<a href='file:///etc/hostname'>c</a> <a href='other.html'>d</a></p>");
    for (int link = 0; link < 4; ++link)
        followNextLink();
    QCOMPARE(Opened, (QList{QUrl("https://zendova.example/a"), QUrl("mailto:b@zendova.example")}));
    QCOMPARE(viewer->Page->toPlainText(), QString("a b c d"));
}

void TestHelp::loadsNothingElse()
{
    QVERIFY(QImage(60, 40, QImage::Format_RGB32).save("there.png"));
    const QUrl absolute = QUrl::fromLocalFile(QDir::current().filePath("there.png"));
    const QTextDocument *page = show("<p>Text</p>")->Page->document();
    for (const auto &[address, side] :
         {std::pair(QUrl("there.png"), 1), {absolute, 1}, {QUrl("icon:Find"), 16}}) {
        const QVariant picture = page->resource(QTextDocument::ImageResource, address);
        QCOMPARE(picture.value<QPixmap>().deviceIndependentSize(), QSizeF(side, side));
    }
}

void TestHelp::findsInPage()
{
    HelpViewer *viewer = show("<div><p>one cat</p><p>two Cats</p></div>");
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
    QCOMPARE(viewer->FindResult->text(), QString("Went on at the top"));
    QTest::mouseClick(viewer->Previous, Qt::LeftButton);
    QCOMPARE(place(), 12);
    QTest::keyClicks(viewer->FindText, "x");
    QTest::keyClick(viewer->FindText, Qt::Key_Return);
    QCOMPARE(viewer->FindResult->text(), QString("Not found"));
    QCOMPARE(place(), 12);
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestHelp>(argc, argv);
}

#include "tst_help.moc"
