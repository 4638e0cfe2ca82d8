// The two ways of a command, its button and its menu item: what a menu takes over as it opens and
// at no other time, the commands that only one of the two has, and the menus under the right
// button.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"
#include "tests/support/TestFonts.h"

#include "platform/FontCatalog.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QWindow>

namespace {

QMenu *menuOf(const Zendova *window, const QString &name)
{
    return window->findChild<QMenu *>(name);
}

void openAndClose(QMenu *menu)
{
    menu->popup({});
    menu->close();
}

/// Types a letter and selects it.
void typeAndSelect(Zendova *window)
{
    QTest::keyClicks(window->TextBoard, "a");
    QTest::keyClick(window->TextBoard, Qt::Key_Left, Qt::ShiftModifier);
}

void rightClick(const Zendova *window, const QWidget *control)
{
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      control->mapTo(window, control->rect().center()));
}

} // namespace

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void menusCopyAsTheyOpen_data();
    void menusCopyAsTheyOpen();
    void keysOfWhatIsOff_data();
    void keysOfWhatIsOff();
    void printButton();
    void sideOfTheViews();
    void fixedToolTips();
    void boardOffersItsCommands();
    void findBoxOffersItsOwn();
};

void TestCommands::menusCopyAsTheyOpen_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("button");
    QTest::newRow("FileSave") << "ItemFile"
                              << "Save";
    QTest::newRow("EditCut") << "ItemEdit"
                             << "Cut";
    QTest::newRow("EditCopy") << "ItemEdit"
                              << "Copy";
    QTest::newRow("ToolsCopy") << "ItemTools"
                               << "CopyButton";
    QTest::newRow("ToolsCut") << "ItemTools"
                              << "CutButton";
    QTest::newRow("ToolsClear") << "ItemTools"
                                << "ClearButton";
}

void TestCommands::menusCopyAsTheyOpen()
{
    QFETCH(QString, menu);
    QFETCH(QString, button);
    Desktop desktop;
    Zendova *window = desktop.start();
    const QAction *item = menuItem(window, QTest::currentDataTag());
    const auto *master = window->findChild<QToolButton *>(button);
    const auto states = [&] { return QList{master->isEnabled(), item->isEnabled()}; };
    openAndClose(menuOf(window, menu));
    QCOMPARE(states(), QList({false, false}));
    typeAndSelect(window);
    QCOMPARE(states(), QList({true, false}));
    openAndClose(menuOf(window, menu));
    QCOMPARE(states(), QList({true, true}));
    QTest::keyClick(window->TextBoard, Qt::Key_Backspace);
    QCOMPARE(states(), QList({false, true}));
    openAndClose(menuOf(window, menu));
    QCOMPARE(states(), QList({false, false}));
}

void TestCommands::keysOfWhatIsOff_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("clipboard"); // after the key, once the item is on
    QTest::addColumn<QString>("text");
    QTest::newRow("cut") << "ItemEdit" << static_cast<int>(Qt::Key_X) << "a"
                         << "";
    QTest::newRow("copy") << "ItemEdit" << static_cast<int>(Qt::Key_C) << "a"
                          << "a";
}

void TestCommands::keysOfWhatIsOff()
{
    QFETCH(QString, menu);
    QFETCH(int, key);
    Desktop desktop;
    Zendova *window = desktop.start();
    QGuiApplication::clipboard()->setText("before");
    openAndClose(menuOf(window, menu));
    typeAndSelect(window);
    const auto press = [&] {
        QTest::keyClick(window->TextBoard, static_cast<Qt::Key>(key), Qt::ControlModifier);
    };
    press();
    QCOMPARE(window->TextBoard->Text(), QString("a"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));
    openAndClose(menuOf(window, menu));
    press();
    QTEST(window->TextBoard->Text(), "text");
    QTEST(QGuiApplication::clipboard()->text(), "clipboard");
    QVERIFY(desktop.Dialogs.allCame());
}

void TestCommands::printButton()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QToolButton *button = window->TBOperationsTB->button("PrintButton");
    QVERIFY(!button->isEnabled());
    typeAndSelect(window);
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(window->TextBoard->SelText(), QString("a"));
    QVERIFY(window->TextBoard->hasFocus());
}

void TestCommands::sideOfTheViews()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QMenu *menu = menuOf(window, "ItemDisplay");
    const auto marks = [window] {
        return QList{window->VCOnL->isChecked(), window->VCOnR->isChecked()};
    };
    const auto isRight = [window] { return window->ViewsContainer->x() > window->TextBoard->x(); };
    openAndClose(menu);
    QCOMPARE(marks(), QList({true, false}));
    window->VCOnR->trigger();
    QVERIFY(isRight());
    QVERIFY(window->ViewsTB->button("VCRight")->isChecked());
    // The marks are from before; an item that bears one does nothing.
    QCOMPARE(marks(), QList({true, true}));
    window->VCOnL->trigger();
    QVERIFY(isRight());
    QCOMPARE(marks(), QList({true, true}));
    openAndClose(menu);
    QCOMPARE(marks(), QList({false, true}));
    window->VCOnR->trigger();
    QVERIFY(isRight());
    QCOMPARE(marks(), QList({false, true}));
    window->VCOnL->trigger();
    QVERIFY(!isRight());
    QVERIFY(window->ViewsTB->button("VCLeft")->isChecked());
    QCOMPARE(window->VCPosition, QString("L"));
}

void TestCommands::fixedToolTips()
{
    const std::pair<const char *, const char *> fixed[] = {
        {"FindString", "Enter a serch string"},
        {"FindNextButton", "Find the next occurance"},
        {"ClearFindButton", "Clear search field"},
        {"CloseFindButton", "Close Find bar"},
        {"FindOpt0", "Check to search as whole word"},
        {"FindOpt1", "Check for a case-sensitive search"},
        {"ZoomSizeSlider", "Set Zoom Size"},
        {"FontSizeSlider", "Set Font Size"},
        {"sldSetFMapSize", "Set FontMap Size"},
        {"FontNameCombo", "Select a Font"},
    };
    Desktop desktop;
    Zendova *window = desktop.start();
    for (const bool on : {false, true}) {
        window->DisplayTT->trigger();
        QCOMPARE(window->DisplayTT->isChecked(), on);
        for (const auto &[name, toolTip] : fixed)
            QCOMPARE(window->Control(name)->toolTip(), QString(toolTip));
        QCOMPARE(window->Control("FontSizeNumber")->toolTip().isEmpty(), !on);
    }
}

void TestCommands::boardOffersItsCommands()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QMenu *menu = menuOf(window, "ItemEdit");
    QTest::keyClicks(window->TextBoard, "b");
    typeAndSelect(window);
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

void TestCommands::findBoxOffersItsOwn()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    typeAndSelect(window);
    QTest::mouseClick(window->TextEditTB->button("Find"), Qt::LeftButton);
    rightClick(window, window->FindString);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu && menu != menuOf(window, "ItemEdit"));
    QStringList keys;
    for (const QAction *item : menu->actions())
        if (item->text().contains('\t'))
            keys += item->text().section('\t', 1);
    QVERIFY(menu->actions().size() > 5);
    QCOMPARE(keys.value(0), QString("Ctrl+Z")); // the box's own
    for (const char *key : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"})
        QVERIFY2(!keys.contains(key), key);
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(window->FindString->hasFocus());
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestCommands test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_commands.moc"
