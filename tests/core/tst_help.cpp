// The Help menu as a person uses it: the About window, what the desktop is asked to open, the help
// window with good and bad files, and which menu items have which picture.
#include "tests/support/MainWindow.h"

#include "platform/controls/HelpViewer.h"
#include "platform/controls/Icons.h"

namespace {

constexpr auto HelpFile = "Zendova300.hlp"; // in the current folder

const auto ourHelp = [] { return contentOf(QString(ZENDOVA_HELP) + '/' + HelpFile); };

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
    QStringList names(22, "-");
    for (const QAction *item : window->menuBar()->findChildren<QAction *>())
        for (int n = 1; n <= 22 && item->isIconVisibleInMenu() && !item->icon().isNull(); ++n)
            if (item->icon().pixmap(32).toImage() == Icons::menuPicture(n).pixmap(32).toImage())
                names[n - 1] = item->menu() ? item->menu()->objectName() : item->objectName();
    return names.join(' ');
}

} // namespace

class TestHelp : public WindowTest
{
    Q_OBJECT

public slots:
    void opened(const QUrl &address) { Opened += address; }

private slots:
    void initTestCase()
    {
        for (const char *scheme : {"https", "http", "mailto", "file"})
            QDesktopServices::setUrlHandler(scheme, this, "opened");
    }
    void init() override // a window that has a help file
    {
        Opened.clear();
        useDesktop();
        QVERIFY(QDir::setCurrent(desktop->Folder.path()));
        writeFile(HelpFile, "<h1>First</h1>");
        restart();
    }

    void about()
    {
        for (const bool byKey : {true, false}) {
            desktop->Dialogs.dialog("About Zendova", [byKey](QDialog *dialog) {
                QVERIFY(dialog->accessibleDescription().contains("learnt from. Press any key or "));
                const auto send = [dialog](Qt::Key key, bool held) {
                    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, {}, held);
                    QApplication::sendEvent(dialog, &event);
                };
                // On the way to another key, with which the desktop may be meant.
                for (const Qt::Key key :
                     {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta,
                      Qt::Key_Super_L, Qt::Key_Super_R})
                    send(key, false);
                send(Qt::Key_Return, true);
                auto *box = dialog->findChild<QWidget *>("Background");
                QTest::mouseClick(box, Qt::RightButton);
                QTest::mouseRelease(box, Qt::LeftButton);
                QTest::mousePress(box, Qt::LeftButton, {}, {3, 3});
                QTest::mouseRelease(box, Qt::LeftButton, {}, {-5, -5});
                QVERIFY(dialog->isVisible());
                auto *logo = dialog->findChild<QWidget *>("ZendovaLogo");
                if (byKey)
                    send(Qt::Key_CapsLock, false);
                else
                    QTest::mouseClick(dialog->childAt(logo->geometry().center()), Qt::LeftButton);
                QVERIFY(!dialog->isVisible());
            });
            menuItem(window, "HelpAbout")->trigger();
        }
    }

    void addressesAndPictures()
    {
        for (const char *command : {"HelpReadme", "HelpCheckUpd", "HelpVisit", "HelpFeedback"})
            menuItem(window, command)->trigger();
        QCOMPARE(Opened,
                 (QList{QUrl::fromLocalFile(qApp->applicationDirPath() + "/Readme.doc"),
                        QUrl("https://zendova.example/updates"), QUrl("https://zendova.example/"),
                        QUrl("mailto:feedback@zendova.example")}));
        const QString all = itemsWithPictures(window);
        QVERIFY(all.startsWith("FileTF FileCFM EditCut EditCopy EditPaste EditFind FormatTB "));
        QVERIFY(all.endsWith(" ToolsOpt HelpContents HelpReadme HelpCheckUpd HelpVisit "
                             "HelpFeedback HelpAbout"));
        QVERIFY(!all.contains('-') && menuItem(window, "HelpContents")->isVisible());
        // A folder is no help file. The last positions count the hidden item too, so that the
        // pictures move down by one.
        QVERIFY(QFile::remove(HelpFile) && QDir().mkdir(HelpFile));
        restart();
        QVERIFY(itemsWithPictures(window).endsWith("Opt - HelpReadme HelpVisit HelpFeedback - -"));
        QVERIFY(!menuItem(window, "HelpContents")->isVisible());
    }

    void contentsAndKey()
    {
        QTest::keyClick(window, Qt::Key_F1);
        auto *viewer = this->viewer();
        QVERIFY(viewer && viewer->isVisible() && !viewer->isModal());
        QCOMPARE(show("<h1>Second</h1>"), viewer);
        QCOMPARE(viewer->Page->toPlainText(), QString("Second"));
        QTest::keyClick(viewer->Page, Qt::Key_Escape);
        QVERIFY(!viewer->isVisible() && window->isVisible());

        QVERIFY(QFile::remove(HelpFile));
        menuItem(window, "HelpContents")->trigger();
        QVERIFY(viewer->Page->toPlainText().contains("not there any more"));

        restart();
        QTest::keyClick(window, Qt::Key_F1);
        auto *menu = window->findChild<QMenu *>("ItemView");
        menu->popup({});
        QTest::keyClick(menu, Qt::Key_F1);
        QCOMPARE(QApplication::activePopupWidget(), menu);
        menu->close();
        QVERIFY(!this->viewer());
    }

    void menuTopics()
    {
        writeFile(HelpFile, ourHelp());
        QTest::keyClicks(window->TextBoard, "a"); // only what is enabled is highlighted
        for (const auto &[name, item, topic] :
             {std::tuple("ItemView", "ViewCode", "The views: zoom, code, keystroke"),
              {"ItemTools", "ToolsClear", "The TextBoard"},
              {"ItemTools", "ToolsCut", "Zendova Help"},
              {"FileTF", "FileLoad", "Zendova Help"}}) {
            if (name == QString("FileTF")) // a menu within a menu
                window->findChild<QMenu *>("ItemFile")->popup({});
            auto *menu = window->findChild<QMenu *>(name);
            menu->popup({});
            menu->setActiveAction(menuItem(window, item));
            QTest::keyClick(menu, Qt::Key_F1);
            QVERIFY2(!QApplication::activePopupWidget(), item);
            const auto *viewer = this->viewer();
            QVERIFY(viewer && viewer->isVisible() && !viewer->Back->isEnabled());
            QCOMPARE(viewer->Page->textCursor().block().text().trimmed(), QString(topic));
            QVERIFY2(qAbs(viewer->Page->cursorRect().top()) <= 40, item);
        }
    }

    void ourHelpHangsTogether()
    {
        QStringList anchors = captures(ourHelp(), "<a name=\"([^\"]*)\">");
        QStringList targets = captures(ourHelp(), "href=\"#([^\"]*)\"");
        for (const QAction *item : window->menuBar()->findChildren<QAction *>())
            if (const int topic = item->property("HelpId").toInt())
                targets += HelpViewer::AnchorOf(topic);
        targets.removeDuplicates();
        targets.sort();
        anchors.sort();
        QCOMPARE(targets, anchors);
        for (const QString &key : captures(ourHelp(), "icon:([^\"]*)\""))
            QVERIFY2(!Icons::icon(key).isNull(), qPrintable(key));
    }

    void badFiles()
    {
        const auto nested = [](int depth) {
            return QByteArray("<b>").repeated(depth) + 'x' + QByteArray("</b>").repeated(depth);
        };
        const auto sized = [](int bytes) { return "<p>" + QByteArray(bytes - 7, 'x') + "</p>"; };
        for (const auto &[content, notice] :
             {std::pair(QByteArray(" \r\n\t\n"), "is empty"),
              {QByteArray("\x7f\2\1\1\0\0\0\0", 8), "not a help text"},
              {"<p>caf\xe9 au lait</p>", "not a help text"},
              {"<div><p>Text</p>", "not a help text"},
              {"<!DOCTYPE a [<!ENTITY e 'eeeeeeeeeeeeeeee'>]><a>&e;</a>", "not a help text"},
              {nested(17), "not a help text"},
              {sized(65537), "too large"}}) {
            const HelpViewer *viewer = show(content);
            const QString text = viewer->Page->toPlainText();
            QVERIFY2(text.contains(notice) && text.contains(HelpFile), content.left(40));
            QVERIFY(text.size() < 200);
        }
        for (const QByteArray &content : {nested(16), sized(65536)})
            QVERIFY(show(content)->Page->toPlainText().startsWith('x'));
    }

    void links()
    {
        HelpViewer *viewer = show(ourHelp());
        const auto followNextLink = [viewer] {
            QTest::keyClick(viewer->Page, Qt::Key_Tab);
            QTest::keyClick(viewer->Page, Qt::Key_Return);
        };
        const QScrollBar *bar = viewer->Page->verticalScrollBar();
        QVERIFY(!viewer->Back->isEnabled());
        followNextLink();
        QTRY_VERIFY(bar->value() > 0);
        const int there = bar->value();
        QVERIFY(viewer->Back->isEnabled() && !viewer->Forward->isEnabled());
        for (const auto &[button, place] :
             {std::pair(viewer->Back, 0), {viewer->Forward, there}, {viewer->Contents, 0}}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QTRY_COMPARE(bar->value(), place);
        }
        show(
            "<p><a href='https://zendova.example/a'>a</a> <a href='mailto:b@zendova.example'>b</a> "
            "<a href='file:///etc/hostname'>c</a> <a href='other.html'>d</a></p>");
        for (int link = 0; link < 4; ++link)
            followNextLink();
        QCOMPARE(Opened,
                 (QList{QUrl("https://zendova.example/a"), QUrl("mailto:b@zendova.example")}));
        QCOMPARE(viewer->Page->toPlainText(), QString("a b c d"));
    }

    void loadsNothingElse()
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

    void findsInPage()
    {
        HelpViewer *viewer = show("<div><p>one cat</p><p>two Cats</p></div>");
        const auto found = [viewer] {
            return viewer->FindResult->text() +
                   QString::number(viewer->Page->textCursor().selectionStart());
        };
        QTest::keyClick(viewer, Qt::Key_F, Qt::ControlModifier);
        QTRY_VERIFY(viewer->FindText->hasFocus());
        QTest::keyClicks(viewer->FindText, "cat");
        QTest::keyClick(viewer->FindText, Qt::Key_Return);
        QCOMPARE(found(), QString("4"));
        QTest::keyClick(viewer, Qt::Key_F3);
        QCOMPARE(found(), QString("12"));
        QTest::mouseClick(viewer->Next, Qt::LeftButton);
        QCOMPARE(found(), QString("Went on at the top4"));
        QTest::mouseClick(viewer->Previous, Qt::LeftButton);
        QVERIFY(found().endsWith("12"));
        QTest::keyClicks(viewer->FindText, "x");
        QTest::keyClick(viewer->FindText, Qt::Key_Return);
        QCOMPARE(found(), QString("Not found12"));
    }

private:
    HelpViewer *show(const QByteArray &content)
    {
        writeFile(HelpFile, content);
        menuItem(window, "HelpContents")->trigger();
        return viewer() && QTest::qWaitForWindowExposed(viewer()) ? viewer() : nullptr;
    }

    HelpViewer *viewer() const { return window->findChild<HelpViewer *>(); }

    QList<QUrl> Opened; ///< what the desktop was asked for
};

ZENDOVA_WINDOW_TEST(TestHelp)

#include "tst_help.moc"
