// What the desktop does to the running window (assistive tools that ask what is there, the colours
// changed while it runs, changes under a dialog), and menus that take over states as they open.
#include "tests/support/MainWindow.h"

#include "core/Message.h"

namespace {

QAccessibleInterface *speaker(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

void rightClick(const Zendova *window, const QWidget *control)
{
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      control->mapTo(window, control->rect().center()));
}

} // namespace

class TestDesktop : public WindowTest
{
    Q_OBJECT

private slots:
    void cleanup() override
    {
        QApplication::setPalette(QPalette());
        WindowTest::cleanup();
    }

    void colorsChangeWhileRunning()
    {
        const QPalette light(QColor(240, 240, 240), QColor(240, 240, 240));
        QPalette dark(QColor(60, 60, 60), QColor(45, 45, 45));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(role, QColor(230, 230, 230));
        dark.setColor(QPalette::Base, QColor(30, 30, 30));

        QApplication::setPalette(light);
        begin(); // a window that has met no other palette
        const auto pixel = [](const QImage &image) { return image.pixelColor(2, 2); };
        const auto sample = [this](std::size_t label) {
            return window->SampleText[label]->palette().color(QPalette::WindowText);
        };
        FontMap &map = *window->FMapContainer;
        for (const QPalette &palette : {dark, light}) {
            QApplication::setPalette(palette);
            QCoreApplication::processEvents();
            const QColor base = palette.color(QPalette::Base);
            QCOMPARE(pixel(pictureOf(map.CharButton, 0)), base);
            QCOMPARE(pixel(window->ViewsContainer->TextZoom->grab().toImage()), base);
            QCOMPARE(sample(0), base);
            QCOMPARE(sample(1), palette.color(QPalette::Text));
            // Paper stays paper, with the ink that was chosen.
            QCOMPARE(pixel(pictureOf(board())), QColor(Qt::white));
            QCOMPARE(board()->ForeColor(), QColor(Qt::black));
        }
        // Colours of the map's own are no colours of the desktop's.
        map.Fore.Color = RGBValue(250, 240, 10);
        map.Back.Color = RGBValue(0, 0, 200);
        map.ApplyFontMapColors(true, map.Fore.Color, true, map.Back.Color);
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        QCOMPARE(pixel(pictureOf(map.CharButton, 0)), QColor(0, 0, 200));
        QCOMPARE(sample(1), QColor(250, 240, 10));
        // Messages wear them too, as long as that is wished.
        for (const bool scheme : {true, false}) {
            QCOMPARE(window->DisplayCS->isChecked(), scheme);
            desktop->Dialogs.dialog("Zendova Title", [scheme](QDialog *dialog) {
                const QPalette palette = dialog->findChild<QLabel *>("MessageArea")->palette();
                QCOMPARE(palette.color(QPalette::WindowText) == QColor(250, 240, 10), scheme);
                const QImage picture = dialog->grab().toImage();
                QCOMPARE(picture.pixelColor(20, 115) == QColor(0, 0, 200), scheme);
                QVERIFY(picture.pixelColor(200, 140) != QColor(0, 0, 200)); // the button
                dialog->reject();
            });
            ZndvMsg("\r\rText", "OK", "Zendova Title", false, 1);
            window->DisplayCS->trigger();
        }
    }

    void mapIsATable()
    {
        FontMap &panel = *window->FMapContainer;
        QAccessibleInterface *map = speaker(panel.CharButton);
        QCOMPARE(map->role(), QAccessible::List);
        QAccessibleTableInterface *table = map->tableInterface();
        QCOMPARE(QSize(table->columnCount(), table->rowCount()), QSize(28, 8));
        QCOMPARE(map->childCount(), 224);
        QVERIFY(!table->cellAt(8, 0) && !table->cellAt(0, 28) && !table->cellAt(-1, 0));
        QVERIFY(!map->child(224));
        for (const int index : {0, 27, 28, 223}) {
            QAccessibleInterface *cell = table->cellAt(index / 28, index % 28);
            QCOMPARE(cell, map->child(index));
            QCOMPARE(map->indexOfChild(cell), index);
            QCOMPARE(cell->tableCellInterface()->rowIndex(), index / 28);
            QCOMPARE(cell->tableCellInterface()->columnIndex(), index % 28);
            QCOMPARE(map->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
        }
        QAccessibleInterface *letter = map->child(cellOf('A'));
        QAccessibleInterface *accented = map->child(cellOf(233));
        QCOMPARE(letter->text(QAccessible::Name), QString("65, A, A"));
        QCOMPARE(accented->text(QAccessible::Name), QString("233, é, Alt+0233"));
        panel.CharButton_MouseMove(cellOf(233));
        QCOMPARE(map->focusChild(), accented);
        QVERIFY(accented->state().active && !letter->state().active);
        panel.CharButton->setCaption(cellOf(233), {});
        panel.CharInfo.at(cellOf(233)) = {};
        QCOMPARE(accented->text(QAccessible::Name), QString("Empty"));
        const QSignalSpy picked(&panel, &FontMap::CharacterPicked);
        QAccessibleActionInterface *actions = letter->actionInterface();
        actions->doAction(actions->actionNames().value(0));
        QCOMPARE(picked.value(0).value(0).toString(), QString("A"));
        // A tool may still hold it.
        const QAccessible::Id gone = QAccessible::uniqueId(map->child(5));
        desktop->Window.reset();
        const QAccessibleInterface *left = QAccessible::accessibleInterface(gone);
        QVERIFY(!left || !left->isValid());
    }

    void locksAreShown()
    {
        LockPanels panels(nullptr);
        std::optional<LockState> keyboard;
        panels.locks().readFrom([&keyboard] { return keyboard; });
        for (const auto &[state, shown, told] :
             {std::tuple(std::optional<LockState>(), "000", "unknown"),
              {LockState{.Num = true}, "100", "on"},
              {LockState{.Caps = true, .Scroll = true}, "011", "off"},
              {{}, "000", "unknown"}}) {
            keyboard = state;
            panels.locks().refresh();
            QString on;
            for (const char *name : {"NUM", "CAPS", "SCRL"})
                on += panels.findChild<QLabel *>(name)->isEnabled() ? '1' : '0';
            QCOMPARE(on, QString(shown));
            QCOMPARE(speaker(panels.findChild<QLabel *>("NUM"))->text(QAccessible::Description),
                     QString(told));
        }
        window->StatBar->locks().readFrom([] { return LockState{.Caps = true}; });
        QEvent activation(QEvent::WindowActivate);
        QApplication::sendEvent(window, &activation);
        QVERIFY(window->StatBar->findChild<QLabel *>("CAPS")->isEnabled());
    }

    void changesUnderADialog()
    {
        window->FMapContainer->sldSetFMapSize->setValue(18);
        QTest::keyClicks(board(), "abc");
        desktop->Dialogs.dialog("Pick A Color for TextBoard Font", [&](QDialog *dialog) {
            QVERIFY(!window->close()); // and asks nothing
            desktop->Screen->pretend(SysInfo::Screen{{1280, 1024}, {}, 120});
            QCOMPARE(window->FMapContainer->SizeIndex, 11);
            desktop->Screen->pretend(SysInfo::Screen{{1024, 768}, {}, 96});
            QCOMPARE(window->FMapContainer->SizeIndex, 9);
            QVERIFY(dialog->isVisible());
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        window->ShowColorPicker();
        expect(Says::Exit, "Yes");
        QVERIFY(desktop->close());
    }

    void contextMenus()
    {
        auto *menu = window->findChild<QMenu *>("ItemEdit");
        QTest::keyClicks(board(), "ba");
        keys("Shift+Left");
        rightClick(window, board()->viewport());
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QVERIFY(menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(board()->Text(), QString("b"));
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {5, 5},
                                  board()->mapToGlobal(QPoint()));
        QApplication::sendEvent(board(), &menuKey);
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QVERIFY(!menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(board()->hasFocus());
        QTest::keyClicks(board(), "a");
        press("Find");
        rightClick(window, window->FindFrame->FindString);
        menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu && menu->objectName() != "ItemEdit");
        QVERIFY(menu->actions().at(0)->text().endsWith("\tCtrl+Z")); // the box's own
        for (const QAction *item : menu->actions())
            for (const char *key : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"})
                QVERIFY2(!item->text().endsWith(key), key);
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(window->FindFrame->FindString->hasFocus());
    }
};

ZENDOVA_WINDOW_TEST(TestDesktop)
#include "tst_desktop.moc"
