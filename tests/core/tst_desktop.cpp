// What the desktop does to the running window: assistive tools that ask what is there, the colours
// changed while it runs, a request to close and a change of the display while a dialog is open.
#include "tests/support/MainWindow.h"

#include "core/Message.h"

#include <QAccessible>
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
        init(); // a window that has met no other palette
        const auto pixel = [](const QImage &image) { return image.pixelColor(2, 2); };
        const auto sample = [this](std::size_t label) {
            return window->SampleText[label]->palette().color(QPalette::WindowText);
        };
        for (const QPalette &palette : {dark, light}) {
            QApplication::setPalette(palette);
            QCoreApplication::processEvents();
            QCOMPARE(pixel(pictureOf(window->FMapContainer->CharButton, 0)),
                     palette.color(QPalette::Base));
            QCOMPARE(pixel(window->ViewsContainer->TextZoom->grab().toImage()),
                     palette.color(QPalette::Base));
            QCOMPARE(sample(0), palette.color(QPalette::Base));
            QCOMPARE(sample(1), palette.color(QPalette::Text));
            // Paper stays paper, with the ink that was chosen.
            QCOMPARE(pixel(pictureOf(window->TextBoard)), QColor(Qt::white));
            QCOMPARE(window->TextBoard->ForeColor(), QColor(Qt::black));
        }
        // Colours of the map's own are no colours of the desktop's.
        FontMap &map = *window->FMapContainer;
        map.Fore.Color = RGBValue(10, 20, 30);
        map.Back.Color = RGBValue(200, 210, 220);
        map.ApplyFontMapColors(true, map.Fore.Color, true, map.Back.Color);
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        QCOMPARE(pixel(pictureOf(window->FMapContainer->CharButton, 0)), QColor(200, 210, 220));
        QCOMPARE(sample(1), QColor(10, 20, 30));
    }

    void messagesWearTheMapsColors()
    {
        FontMap &map = *window->FMapContainer;
        map.Fore.Color = RGBValue(250, 240, 10);
        map.Back.Color = RGBValue(0, 0, 200);
        map.ApplyFontMapColors(true, map.Fore.Color, true, map.Back.Color);
        for (const bool scheme : {true, false}) {
            QCOMPARE(window->DisplayCS->isChecked(), scheme);
            desktop->Dialogs.dialog("Zendova Title", [scheme](QDialog *dialog) {
                const QPalette palette = dialog->findChild<QLabel *>("MessageArea")->palette();
                QCOMPARE(palette.color(QPalette::WindowText) == QColor(250, 240, 10), scheme);
                const QImage picture = dialog->grab().toImage();
                QCOMPARE(picture.pixelColor(20, 115) == QColor(0, 0, 200), scheme);
                // The buttons keep their own.
                QVERIFY(picture.pixelColor(200, 140) != QColor(0, 0, 200));
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
        QTest::keyClicks(window->TextBoard, "abc");
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
        QVERIFY(window->isVisible());
        QCOMPARE(window->TextBoard->Text(), QString("abc"));
        expect(Says::Exit, "Yes");
        QVERIFY(desktop->close());
    }
};

ZENDOVA_WINDOW_TEST(TestDesktop)

#include "tst_desktop.moc"
