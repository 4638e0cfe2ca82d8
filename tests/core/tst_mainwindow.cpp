// The main job from the first start to the second: a question, a font, clicks and typing, and what
// is kept.
#include "tests/support/MainWindow.h"
#include "tests/support/TestFonts.h"

#include "platform/FontCatalog.h"
#include "platform/controls/CharCells.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void typesAndClicks();
};

void TestMainWindow::typesAndClicks()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QCOMPARE(window->windowTitle(), QString("Zendova Version 3.0.0 RC2"));
    QTest::keyClicks(window->TextBoard, "ab");
    QTest::mouseClick(window->CharButton, Qt::LeftButton, {},
                      window->CharButton->pixels('Z' - FirstCode).center());
    QCOMPARE(window->TextBoard->Text(), QString("abZ"));
    QCOMPARE(window->NoOfChars->text(), QString("3"));
    desktop.Dialogs.message("Zendova Exit Warning", "Discard text on the TextBoard and Exit?",
                            "No");
    QVERIFY(!desktop.close());
    desktop.Dialogs.message("Zendova Exit Warning", "Discard text on the TextBoard and Exit?",
                            "Yes");
    QVERIFY(desktop.close());
    desktop.start(); // asks nothing
    QVERIFY(desktop.Dialogs.allCame());
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainwindow.moc"
