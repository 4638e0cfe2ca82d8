// The keyboard window as a person uses it: what the keys show, both ways of Shift, fonts and sizes,
// the panel, and the way of a font from it to the board.
#include "fonttools/Keyboard.h"
#include "fonttools/KeyboardLayout.h"
#include "fonttools/KeyboardPicture.h"
#include "tests/support/MainWindow.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString Plain = "`1234567890-=qwertyuiop[]\\asdfghjkl;'zxcvbnm,./";
const QString Shifted = "~!@#$%^&*()_+QWERTYUIOP{}|ASDFGHJKL:\"ZXCVBNM<>?";
constexpr ExpectedMessage OnlyInformation{" Interaction Error", "displayed for information only."};

QString spoken(CharCells *cells, int index)
{
    return QAccessible::queryAccessibleInterface(cells)->child(index)->text(QAccessible::Name);
}

} // namespace

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
        const QWidgetList places{keyboard.get(), keyboard->cmdOK, keyboard->cmbFontName->view(),
                                 keyboard->sldFontSize->edit()};
        for (QWidget *focus : places) {
            QTest::keyPress(focus, Qt::Key_Shift, Qt::ControlModifier);
            QCOMPARE(shown(), Plain);
            QTest::keyPress(focus, Qt::Key_Shift);
            QCOMPARE(shown(), Shifted);
            QKeyEvent other(QEvent::KeyRelease, Qt::Key_A, Qt::ShiftModifier);
            QApplication::sendEvent(focus, &other);
            QCOMPARE(shown(), Shifted);
            QTest::keyRelease(focus, Qt::Key_Shift, Qt::ShiftModifier);
            QCOMPARE(shown(), Plain);
        }
    }

    void twoShiftKeys()
    {
        open();
        // The event of the second one tells of no state, as the toolkit takes it for a change back.
        const auto send = [this](QEvent::Type type, quint32 key, Qt::KeyboardModifiers before) {
            QKeyEvent event(type, Qt::Key_Shift, before, key, 0, 0);
            QApplication::sendEvent(keyboard.get(), &event);
            return shown();
        };
        QCOMPARE(send(QEvent::KeyPress, 50, {}), Shifted);
        QCOMPARE(send(QEvent::KeyPress, 62, Qt::ShiftModifier), Shifted);
        QCOMPARE(send(QEvent::KeyRelease, 50, Qt::ShiftModifier), Shifted);
        QCOMPARE(send(QEvent::KeyRelease, 62, Qt::ShiftModifier), Plain);
        // One that comes up over another window.
        QCOMPARE(send(QEvent::KeyPress, 50, {}), Shifted);
        QApplication::setActiveWindow(window);
        QCOMPARE(shown(), Plain);
    }

    void shiftOfTheMouse()
    {
        open();
        const QPoint left(60, 280), right(640, 280); // the two Shift keys
        for (const auto &[press, release] : {std::pair(left, right), std::pair(right, left)}) {
            QCOMPARE(spoken(keyboard->lblFontChar, 1), QString("49, 1, 1"));
            click(press);
            QCOMPARE(shown(), Shifted);
            QCOMPARE(spoken(keyboard->lblFontChar, 1), QString("33, !, Shift+1"));
            click(release);
            QCOMPARE(shown(), Plain);
        }
        for (const QPoint &at : {QPoint(36, 132), QPoint(100, 60)}) { // a key, the case
            expect(OnlyInformation);
            click(at);
        }
    }

    void picksFonts()
    {
        open();
        const auto press = [this](Qt::Key key) {
            QTest::keyClick(keyboard->cmbFontName, key);
            return keyboard->cmbFontName->Text();
        };
        QVERIFY(!keyboard->cmdSetFont->isEnabled());
        const QString picked = press(Qt::Key_A);
        QVERIFY(picked.startsWith('A'));
        QCOMPARE(press(Qt::Key_1), picked);
        QVERIFY(keyboard->cmdSetFont->isEnabled());
        while (press(Qt::Key_Down) != "Zt Latin")
            QVERIFY(keyboard->cmdSetFont->isEnabled());
        QVERIFY(!keyboard->cmdSetFont->isEnabled());
        QCOMPARE(window->TextBoard->FontName(), QString("Arial"));
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
                const GlyphPicture expected{
                    .code = missing ? 0 : code, .font = number, .missing = missing};
                QCOMPARE(readGlyph(picture(code), origin), expected);
            }
        }
        // However large, they stay on the faces of their keys.
        open("Zt Latin", 36);
        const QImage large = keyboard->picKeyboard->grab().toImage();
        for (int key = 0; key < KeyCount; ++key)
            keyboard->lblFontChar->setCaption(key, {});
        const QImage bare = keyboard->picKeyboard->grab().toImage();
        QVERIFY(large != bare);
        for (const QPoint &at : {QPoint(-5, 14), QPoint(33, 14), QPoint(14, -5), QPoint(14, 33)})
            for (int key = 0; key < KeyCount; ++key) {
                const QPoint beside = keyboard->lblFontChar->pixels(key).topLeft() + at;
                QCOMPARE(large.pixel(beside), bare.pixel(beside));
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
            QVERIFY(cells->isVisible());
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
                QCOMPARE(opened->cmbFontName->Text(), QString("Zt Gaps"));
                while (opened->cmbFontName->Text() != "Zt Latin")
                    QTest::keyClick(opened->cmbFontName, Qt::Key_Down);
                desktop->Dialogs.message("Set Zendova Font",
                                         "\r\rDo you want to select the font\rZT LATIN\r"
                                         "as the current font for Zendova?\r\r"
                                         "• Press Yes to select the font.\r"
                                         "• Press No to cancel operation.",
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
            QCOMPARE(window->TextBoard->FontName(), name);
            QCOMPARE(window->FontNameCombo->Text(), name);
            QCOMPARE(window->Format.TBFontName, name);
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
        QApplication::setActiveWindow(keyboard.get());
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
