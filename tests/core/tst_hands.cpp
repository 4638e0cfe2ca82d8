// What a hand finds behind a command: where the focus is, what is still selected, and that button,
// board and slider agree.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/RegistryFunctions.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

class TestHands : public QObject
{
    Q_OBJECT

private slots:
    void blankCell()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QTest::keyClicks(window->TextBoard, "abc");
        window->TextBoard->selectAll();
        window->FMapContainer->CharButton->setCaption(7, {});
        window->FontNameCombo->setFocus();
        clickCell(window, 7);
        QVERIFY(window->TextBoard->hasFocus());
        QCOMPARE(window->TextBoard->SelText(), QString("abc"));
    }

    void fontList()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        FontCombo *fonts = window->FontNameCombo;
        fonts->setFocus();
        QTest::keyClick(fonts, Qt::Key_Down); // on the closed box
        QVERIFY(fonts->hasFocus());
        fonts->showPopup();
        QVERIFY(fonts->view()->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff);
        QTest::keyClick(fonts->view(), Qt::Key_Down);
        QTest::keyClick(fonts->view(), Qt::Key_Return);
        QTRY_VERIFY(window->TextBoard->hasFocus());
        const QString name = fonts->Text();
        QTest::keyClicks(QApplication::focusWidget(), "z");
        QCOMPARE(window->TextBoard->Text(), QString("z"));
        QCOMPARE(fonts->Text(), name);
    }

    void stylesOfTheFontDialog()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        desktop.Dialogs.dialog("Font", [](QDialog *dialog) {
            for (QCheckBox *box : dialog->findChildren<QCheckBox *>())
                box->setChecked(true);
            dialog->accept();
        });
        menuItem(window, "FormatFont")->trigger();
        QVERIFY(desktop.Dialogs.allCame());
        for (const char *style : {"Bold", "Italic", "Underline", "Strikethrough"})
            QVERIFY2(window->FontFormatTB->button(style)->isChecked(), style);
        QVERIFY(window->TextBoard->FontStrikethru());
        lookAtMenu(window, "ItemFormat");
        QVERIFY(window->FFontBold->isChecked());
        QTest::mouseClick(window->FontFormatTB->button("Bold"), Qt::LeftButton);
        QVERIFY(!window->TextBoard->FontBold());
    }

    /// On a screen for which the standard size is too large.
    void repairOnANarrowScreen()
    {
        Desktop desktop({850, 700});
        desktop.start();
        QVERIFY(desktop.close());
        desktop.alterSettings("UPDATE settings SET value = '' WHERE name = 'ForeColorName'");
        desktop.alterSettings("UPDATE settings SET value = '3' WHERE name = 'SizeIndex'");
        desktop.Dialogs.message("Zendova Init Information",
                                "Are you running Zendova for the first time?", "Yes");
        const Zendova *window = desktop.startAsItIs();
        QVERIFY(desktop.Dialogs.allCame());
        QCOMPARE(window->FMapContainer->SizeIndex, window->FMapContainer->sldSetFMapSize->value());
        QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(),
                 27 + window->FMapContainer->SizeIndex);
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestHands>(argc, argv);
}
#include "tst_hands.moc"
