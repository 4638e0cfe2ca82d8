// The wheel turned with Ctrl held over the board, the map and the zoom: which size changes, by how
// much, and when none does.
#include "tests/support/MainWindow.h"

#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "textboard/TextBoard.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace {

/// Only what comes from the desktop is handed on to the parents by the toolkit: here by hand.
void turn(QWidget *over, int delta, Qt::KeyboardModifiers held = Qt::ControlModifier)
{
    const QPoint middle = over->rect().center();
    for (QWidget *at = over; at; at = at->parentWidget()) {
        QWheelEvent event(over->mapTo(at, middle), over->mapToGlobal(middle), {}, {0, delta},
                          Qt::NoButton, held, Qt::NoScrollPhase, false);
        event.ignore();
        QCoreApplication::sendEvent(at, &event);
        if (event.isAccepted() || at->isWindow())
            return;
    }
}

/// Font size, map size, zoom size.
QList<int> sizes(const Zendova &window)
{
    return {window.FontSizeSlider->value(), window.FMapContainer->SizeIndex,
            window.ViewsContainer->ZoomSizeSlider->value()};
}

} // namespace

class TestWheel : public QObject
{
    Q_OBJECT

private slots:
    void oneSizeEach()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QWidget *const places[] = {window->TextBoard->viewport(), window->FMapContainer->CharButton,
                                   window->ViewsContainer->TextZoom};
        window->FMapContainer->sldSetFMapSize->setValue(5);
        window->ViewsContainer->ZoomSizeSlider->setValue(40); // it begins at its largest
        for (qsizetype place = 0; place < std::ssize(places); ++place) {
            QList<int> expected = sizes(*window);
            turn(places[place], 120, Qt::NoModifier);
            QCOMPARE(sizes(*window), expected);
            turn(places[place], 240);
            expected[place] += 2;
            QCOMPARE(sizes(*window), expected);
            turn(places[place], -120);
            expected[place] -= 1;
            QCOMPARE(sizes(*window), expected);
        }
        QCOMPARE(window->TextBoard->FontSize(), double(window->FontSizeSlider->value()));
        QCOMPARE(window->ViewsContainer->TextZoom->cellFont().pointSize(),
                 window->ViewsContainer->ZoomSizeSlider->value());
        QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(), 27 + 6);
    }

    void smallTurnsAddUp()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        QWidget *over = window->TextBoard->viewport();
        const int before = window->FontSizeSlider->value();
        for (const auto &[delta, more] : {std::pair(50, 0),
                                          {50, 0},
                                          {50, 1},
                                          {80, 1},
                                          {10, 2},
                                          {-119, 2},
                                          {-1, 1},
                                          {-60, 1},
                                          {110, 1},
                                          {10, 2}}) {
            turn(over, delta);
            QCOMPARE(window->FontSizeSlider->value(), before + more);
        }
    }

    void boardStaysWhereItIs()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        window->TextBoard->setText(QString("line\n").repeated(500));
        window->FontSizeSlider->setValue(36);
        window->TextBoard->verticalScrollBar()->setValue(50);
        turn(window->TextBoard->viewport(), 120);
        QCOMPARE(window->FontSizeSlider->value(), 36);
        QCOMPARE(window->TextBoard->verticalScrollBar()->value(), 50);
        turn(window->TextBoard->viewport(), 120, Qt::NoModifier);
        QVERIFY(window->TextBoard->verticalScrollBar()->value() < 50);
    }

    void notWhereTheSizeIsOff()
    {
        Desktop desktop;
        Zendova *window = desktop.start();
        window->FMapContainer->sldSetFMapSize->setValue(5);
        window->ViewsContainer->ZoomSizeSlider->setValue(40);
        window->FMapContainer->UpdateSizeCommands(false); // as with the split bar pulled down
        window->ViewsContainer->ZoomViewSet(false);
        const QList<int> before = sizes(*window);
        turn(window->FMapContainer->CharButton, 120);
        turn(window->ViewsContainer->TextZoom, 120);
        turn(window->ViewsContainer->CVAContainer, 120);
        QCOMPARE(sizes(*window), before);
        window->ViewsContainer->ZoomViewSet(true);
        turn(window->ViewsContainer->ViewsTB, 120); // beside the zoom
        QCOMPARE(sizes(*window), before);
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestWheel>(argc, argv);
}

#include "tst_wheel.moc"
