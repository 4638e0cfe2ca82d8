// The keyboard window as a person uses it: what the keys show, both ways of Shift, fonts and sizes,
// the panel, and the way of a font from it to the board.
#include "fonttools/Keyboard.h"
#include "fonttools/KeyboardLayout.h"
#include "fonttools/KeyboardPicture.h"
#include "tests/support/MainWindow.h"

const QString Plain = "`1234567890-=qwertyuiop[]\\asdfghjkl;'zxcvbnm,./";
const QString Shifted = "~!@#$%^&*()_+QWERTYUIOP{}|ASDFGHJKL:\"ZXCVBNM<>?";
constexpr ExpectedMessage OnlyInformation{" Interaction Error", "displayed for information only."};

static QString spoken(CharCells *cells, int index)
{
    return QAccessible::queryAccessibleInterface(cells)->child(index)->text(QAccessible::Name);
}

class TestKeyboard : public WindowTest
{
    Q_OBJECT

private slots:
    void cleanup() override
    {
        keyboard.reset();
        WindowTest::cleanup();
    }

    void keysLieOnTheirCaps()
    {
        open();
        const QImage picture = keyboard->picKeyboard->grab().toImage();
        QList<QRect> caps;
        for (int key = 0; key < KeyCount; ++key)
            caps += keyboard->lblFontChar->pixels(key).adjusted(-8, -8, 8, 8);
        for (const NamedKey &key : NamedKeys())
            caps += TwipScale().toPixels(key.Place);
        for (const QRect &cap : caps) {
            const auto pixel = [&](int x) { return picture.pixelColor(x, cap.center().y()); };
            QCOMPARE(caps.count(cap), 1);
            QVERIFY(picture.rect().contains(cap));
            for (const auto &[side, beside] : {std::pair(cap.left(), -1), {cap.right(), 1}}) {
                QVERIFY(pixel(side) != pixel(side + beside));     // the case
                QVERIFY(pixel(side) != pixel(side - 4 * beside)); // the face
            }
        }
    }

    void shiftOfTheKeyboard()
    {
        open();
        QWidget *focus = nullptr;
        const auto send = [&](QEvent::Type type, int key, Qt::KeyboardModifiers before,
                              quint32 scanCode = 50) {
            QKeyEvent event(type, key, before, scanCode, 0, 0);
            QApplication::sendEvent(focus, &event);
            return shown();
        };
        for (QWidget *place : QWidgetList{keyboard->cmbFontName->view(),
                                          keyboard->sldFontSize->edit(), keyboard.get()}) {
            focus = place;
            QCOMPARE(send(QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier), Plain);
            QCOMPARE(send(QEvent::KeyPress, Qt::Key_Shift, {}), Shifted);
            QCOMPARE(send(QEvent::KeyRelease, Qt::Key_A, Qt::ShiftModifier), Shifted);
            // The other one is down while the first comes up.
            QCOMPARE(send(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier, 62), Shifted);
            QCOMPARE(send(QEvent::KeyRelease, Qt::Key_Shift, Qt::ShiftModifier, 50), Shifted);
            QCOMPARE(send(QEvent::KeyRelease, Qt::Key_Shift, Qt::ShiftModifier, 62), Plain);
        }
        // One that comes up over another window.
        QCOMPARE(send(QEvent::KeyPress, Qt::Key_Shift, {}), Shifted);
        activate(window);
        QCOMPARE(shown(), Plain);
    }

    void shiftOfTheMouse()
    {
        open();
        const QPoint left(60, 280), right(640, 280); // the two Shift keys
        for (const auto &[press, release] : {std::pair(left, right), std::pair(right, left)}) {
            QCOMPARE(shown(), Plain);
            QCOMPARE(spoken(keyboard->lblFontChar, 1), QString("49, 1, 1"));
            click(press);
            QCOMPARE(shown(), Shifted);
            QCOMPARE(spoken(keyboard->lblFontChar, 1), QString("33, !, Shift+1"));
            click(release);
        }
        for (const QPoint &at : {QPoint(36, 132), QPoint(100, 60)}) { // a key, the case
            expect(OnlyInformation);
            click(at);
        }
    }

    void sizesByHand()
    {
        open();
        for (const auto &[typed, points] : {std::pair("3", 8), {"99", 36}, {"abc", 8}}) {
            QVERIFY(fillNumberBox(keyboard->sldFontSize, typed));
            QCOMPARE(keyboard->sldFontSize->number()->text(), QString::number(points));
            for (const CharCells *cells : {keyboard->lblFontChar, keyboard->lblSplChar})
                QCOMPARE(cells->cellFont().pointSize(), points);
        }
        QVERIFY(fillNumberBox(keyboard->sldFontSize, "20", Qt::Key_Escape));
        QVERIFY(keyboard->isVisible());
    }

    void showsTheFontsOwnGlyphs()
    {
        const auto picture = [this](char code) {
            const QRect key =
                keyboard->lblFontChar->pixels(static_cast<int>(Shifted.indexOf(code)));
            return keyboard->picKeyboard->grab(key.adjusted(-4, -4, 4, 4)).toImage();
        };
        for (const auto &[font, number] : {std::pair("Zt Gaps", 2), {"Zt Symbol", 3}}) {
            open(font);
            keyboard->ShowShifted();
            const QPoint origin = originOfFullRow(picture('O'));
            for (const char code : {'B', 'Q'}) {
                const bool missing = number == 2 && code == 'B';
                QCOMPARE(readGlyph(picture(code), origin),
                         (GlyphPicture{missing ? 0 : code, number, missing}));
            }
        }
        // However large, they stay on the faces of their keys.
        open("Zt Latin", 36);
        const QImage large = keyboard->picKeyboard->grab().toImage();
        open("Zt Latin", 8);
        const QImage small = keyboard->picKeyboard->grab().toImage();
        QVERIFY(large != small);
        for (const QPoint &at : {QPoint(-5, 14), QPoint(33, 14), QPoint(14, -5), QPoint(14, 33)})
            for (int key = 0; key < KeyCount; ++key) {
                const QPoint beside = keyboard->lblFontChar->pixels(key).topLeft() + at;
                QCOMPARE(large.pixel(beside), small.pixel(beside));
            }
    }

    void panelOfCharactersWithoutKey()
    {
        for (const bool on : {true, false}) {
            ToolTipsOn = on;
            open();
            CharCells *cells = keyboard->lblSplChar;
            QVERIFY(!cells->isVisible());
            QTest::mouseClick(keyboard->chkSplChar, Qt::LeftButton);
            QCOMPARE(cells->pixels(1).topLeft(), QPoint(39, 7));
            QCOMPARE(cells->Caption(129), QString("ÿ"));
            QCOMPARE(spoken(cells, 98), QString("224, à, Alt+0224"));
            QCOMPARE(cells->toolTip(129), on ? QString("Alt+0255") : QString());
            QCOMPARE(keyboard->lblRShift->toolTip().isEmpty(), !on);
            click({600, 120}); // the keys are under it
            click({294, 42});
        }
    }

    void takesTheFontHome()
    {
        QVERIFY(chooseFont(window, "Zt Gaps"));
        for (const char *answer : {"No", "Yes"}) {
            desktop->Dialogs.dialog("Keyboard Layout Viewer", [&](QDialog *dialog) {
                auto *opened = qobject_cast<Keyboard *>(dialog);
                FontCombo *combo = opened->cmbFontName;
                const auto type = [combo](Qt::Key key) {
                    QTest::keyClick(combo, key);
                    return combo->Text();
                };
                QCOMPARE(combo->Text(), QString("Zt Gaps"));
                QVERIFY(!opened->cmdSetFont->isEnabled());
                QVERIFY(type(Qt::Key_A).startsWith('A'));
                while (type(Qt::Key_Down) != "Zt Gaps")
                    QVERIFY(opened->cmdSetFont->isEnabled());
                QVERIFY(!opened->cmdSetFont->isEnabled());
                while (type(Qt::Key_Down) != "Zt Latin")
                    continue;
                QCOMPARE(type(Qt::Key_1), QString("Zt Latin"));
                QCOMPARE(board()->FontName(), QString("Zt Gaps"));
                desktop->Dialogs.message("Set Zendova Font",
                                         "Do you want to select the font ZT LATIN as the current "
                                         "font for Zendova? • Press Yes",
                                         answer);
                QTest::mouseClick(opened->cmdSetFont, Qt::LeftButton);
                QCOMPARE(opened->isVisible(), *answer == 'N');
                opened->reject();
            });
            if (*answer == 'N')
                chooseFromMenu(window, "ItemTools", "ToolsKB");
            else
                press("KB");
            const QString name = *answer == 'N' ? "Zt Gaps" : "Zt Latin";
            QCOMPARE(board()->FontName(), name);
            QCOMPARE(window->FontNameCombo->Text(), name);
        }
    }

private:
    void open(const QString &font = "Zt Latin", int size = 24)
    {
        keyboard = std::make_unique<Keyboard>(window->FontList, nullptr);
        desktop->Dialogs.dialog(keyboard->windowTitle(), [](QDialog *) {}); // stays open
        QVERIFY(window->FindFontItem(font));
        keyboard->SetupKeyboard(window->Format.TBFontIndex, font, size);
        keyboard->show();
        activate(keyboard.get());
        QVERIFY(QTest::qWaitForWindowExposed(keyboard.get()));
    }
    void click(const QPoint &at)
    {
        QTest::mouseClick(keyboard->windowHandle(), Qt::LeftButton, {}, at);
    }
    /// The captions of all keys, if the two pressed keys go with them.
    QString shown() const
    {
        QString captions;
        for (int key = 0; key < KeyCount; ++key)
            captions += keyboard->lblFontChar->Caption(key);
        for (const QWidget *pressed : {keyboard->picLShiftPressed, keyboard->picRShiftPressed})
            if (pressed->isVisible() != (captions == Shifted))
                captions += " and a Shift key that does not fit";
        return captions;
    }

    std::unique_ptr<Keyboard> keyboard;
};

ZENDOVA_WINDOW_TEST(TestKeyboard)

#include "tst_keyboard.moc"
