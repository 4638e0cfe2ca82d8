// The two ways of a command, its button and its menu item: what a menu takes over as it opens and
// at no other time, the commands that only one of the two has, and the menus under the right
// button.
#include "tests/support/MainWindow.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QWindow>

namespace {

void selectLastLetter(Zendova *window)
{
    QTest::keySequence(window->TextBoard, QKeySequence("Shift+Left"));
}

void rightClick(const Zendova *window, const QWidget *control)
{
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      control->mapTo(window, control->rect().center()));
}

} // namespace

class TestCommands : public WindowTest
{
    Q_OBJECT

private slots:
    void menusCopyAsTheyOpen()
    {
        constexpr std::pair<const char *, const char *> commands[] = {
            {"FileSave", "Save"},        {"EditCut", "Cut"},        {"EditCopy", "Copy"},
            {"ToolsCopy", "CopyButton"}, {"ToolsCut", "CutButton"}, {"ToolsClear", "ClearButton"},
        };
        const auto openMenus = [this] {
            for (const char *menu : {"ItemFile", "ItemEdit", "ItemTools"})
                lookAtMenu(window, menu);
        };
        const auto expect = [&](bool inMenu, bool onBar) {
            for (const auto &[item, key] : commands) {
                QVERIFY2(menuItem(window, item)->isEnabled() == inMenu, item);
                QVERIFY2(button(key)->isEnabled() == onBar, key);
            }
        };
        openMenus();
        expect(false, false);
        QTest::keyClicks(window->TextBoard, "a");
        selectLastLetter(window);
        expect(false, true);
        QTest::keySequence(window->TextBoard, QKeySequence("Ctrl+X")); // the key of an item
        QCOMPARE(window->TextBoard->Text(), QString("a"));
        openMenus();
        expect(true, true);
        QTest::keyClick(window->TextBoard, Qt::Key_Backspace);
        expect(true, false);
        openMenus();
        expect(false, false);
    }

    void sideOfTheViews()
    {
        // The marks of the two items, and whether the views are on the right.
        const auto state = [this] {
            return QList{window->VCOnL->isChecked(), window->VCOnR->isChecked(),
                         window->ViewsContainer->x() > window->TextBoard->x()};
        };
        lookAtMenu(window, "ItemDisplay");
        QCOMPARE(state(), QList({true, false, false}));
        window->VCOnR->trigger();
        QVERIFY(button("VCRight")->isChecked());
        // The marks are from before; an item that bears one does nothing.
        QCOMPARE(state(), QList({true, true, true}));
        window->VCOnL->trigger();
        QCOMPARE(state(), QList({true, true, true}));
        lookAtMenu(window, "ItemDisplay");
        QCOMPARE(state(), QList({false, true, true}));
        window->VCOnL->trigger();
        QCOMPARE(state(), QList({true, true, false}));
        QVERIFY(button("VCLeft")->isChecked());
    }

    void boardOffersItsCommands()
    {
        auto *menu = window->findChild<QMenu *>("ItemEdit");
        QTest::keyClicks(window->TextBoard, "ba");
        selectLastLetter(window);
        rightClick(window, window->TextBoard->viewport());
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QVERIFY(menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(window->TextBoard->Text(), QString("b"));
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("a"));
        // The menu key.
        const QPoint at(5, 5);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, at, window->TextBoard->mapToGlobal(at));
        QApplication::sendEvent(window->TextBoard, &key);
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QVERIFY(!menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(window->TextBoard->hasFocus());
    }

    void findBoxOffersItsOwn()
    {
        QTest::keyClicks(window->TextBoard, "a");
        lookAtMenu(window, "ItemEdit"); // its Cut and Copy are off, and so are their keys
        press("Find");
        rightClick(window, window->FindFrame->FindString);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu && menu->objectName() != "ItemEdit");
        QVERIFY(menu->actions().size() > 5);
        QVERIFY(menu->actions().at(0)->text().endsWith("\tCtrl+Z")); // the box's own
        // The board's keys are not promised.
        for (const QAction *item : menu->actions())
            for (const char *key : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"})
                QVERIFY2(!item->text().endsWith(key), key);
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(window->FindFrame->FindString->hasFocus());
    }
};

ZENDOVA_WINDOW_TEST(TestCommands)

#include "tst_commands.moc"
