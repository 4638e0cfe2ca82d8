// What the desktop does to the running window (assistive tools that ask what is there, the colours
// changed while it runs, changes under a dialog), and the two ways of a command, its button and its
// menu item: what a menu takes over as it opens and at no other time.
#include "tests/support/MainWindow.h"

#include "core/Message.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QWindow>
#include <set>

namespace {

QAccessibleInterface *speaker(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString nameOf(QObject *object)
{
    return speaker(object)->text(QAccessible::Name);
}

/// Every control below the parent, hidden ones too, but not the insides of the toolkit's own.
QWidgetList controlsBelow(QWidget *parent)
{
    QWidgetList found;
    for (QWidget *child : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() || child->objectName().startsWith("qt_"))
            continue;
        found += child;
        if (!child->inherits("QAbstractScrollArea") && !child->inherits("QComboBox") &&
            !child->inherits("QLineEdit"))
            found += controlsBelow(child);
    }
    return found;
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

    void everythingHasAName()
    {
        hover(window, cellOf('A')); // the labels of the views show texts
        std::set<QString> focusable;
        for (QWidget *control : controlsBelow(window->Client)) {
            const QByteArray which =
                control->objectName().toUtf8() + control->metaObject()->className();
            const QAccessibleInterface *told = speaker(control);
            QVERIFY2(told && told->isValid() && told->role() != QAccessible::NoRole, which);
            // The name of a loaded map is empty where there is none.
            if (told->role() == QAccessible::Separator ||
                control == window->FMapContainer->lblCFMName ||
                control == window->TBPContainer->ProgressFore)
                continue;
            QVERIFY2(!nameOf(control).trimmed().isEmpty(), which);
            if (control->focusPolicy() != Qt::NoFocus)
                QVERIFY2(focusable.insert(nameOf(control)).second, which);
        }
        QVERIFY(focusable.size() >= 5);
        // The labels that stand before a control are told with it.
        for (const char *name : {"FontLabel", "FontSizeLabel", "ZoomSizeLabel", "MapSizeLabel"}) {
            const auto *label = window->findChild<QLabel *>(name);
            QVERIFY2(label->buddy(), name);
            const auto labels = speaker(label->buddy())->relations(QAccessible::Label);
            QVERIFY2(labels.size() == 1 && labels[0].first->object() == label, name);
        }
        QCOMPARE(nameOf(button("Bold")), QString("Toggle Bold Style"));
        QCOMPARE(speaker(window->ViewsContainer->ViewsTB)->role(), QAccessible::ToolBar);
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

    void locksAreReadAsTheWindowComesBack()
    {
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

    void menusCopyAsTheyOpen()
    {
        const auto openMenus = [this] {
            for (const char *menu : {"ItemFile", "ItemEdit", "ItemTools"})
                lookAtMenu(window, menu);
        };
        const auto areOn = [&](bool inMenu, bool onBar) {
            for (const auto &[item, key] : {std::pair("FileSave", "Save"),
                                            {"EditCut", "Cut"},
                                            {"EditCopy", "Copy"},
                                            {"ToolsCopy", "CopyButton"},
                                            {"ToolsCut", "CutButton"},
                                            {"ToolsClear", "ClearButton"}}) {
                QVERIFY2(menuItem(window, item)->isEnabled() == inMenu, item);
                QVERIFY2(button(key)->isEnabled() == onBar, key);
            }
        };
        openMenus();
        areOn(false, false);
        QTest::keyClicks(board(), "a");
        keys("Shift+Left");
        areOn(false, true);
        openMenus();
        areOn(true, true);
        keys("Backspace");
        areOn(true, false);
        openMenus();
        areOn(false, false);
        // A key brings its menu in step first.
        QTest::keyClicks(board(), "a");
        keys("Shift+Left");
        keys("Ctrl+X");
        QCOMPARE(board()->Text(), QString());
    }

    void sideOfTheViews()
    {
        // The marks of the two items, and whether the views are on the right.
        const auto state = [this] {
            return QList{window->VCOnL->isChecked(), window->VCOnR->isChecked(),
                         window->ViewsContainer->x() > board()->x()};
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
        QTest::keyClicks(board(), "ba");
        keys("Shift+Left");
        rightClick(window, board()->viewport());
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QVERIFY(menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(board()->Text(), QString("b"));
        // The menu key.
        const QPoint at(5, 5);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, at, board()->mapToGlobal(at));
        QApplication::sendEvent(board(), &key);
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QVERIFY(!menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(board()->hasFocus());
    }

    void findBoxOffersItsOwn()
    {
        QTest::keyClicks(board(), "a");
        press("Find");
        rightClick(window, window->FindFrame->FindString);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu && menu->objectName() != "ItemEdit");
        QVERIFY(menu->actions().at(0)->text().endsWith("\tCtrl+Z")); // the box's own
        // The board's keys are not promised.
        for (const QAction *item : menu->actions())
            for (const char *key : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"})
                QVERIFY2(!item->text().endsWith(key), key);
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(window->FindFrame->FindString->hasFocus());
    }
};

ZENDOVA_WINDOW_TEST(TestDesktop)
#include "tst_desktop.moc"
