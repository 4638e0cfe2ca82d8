// The main window's areas, controls and menus at several map sizes, on both sides and at two
// densities of the screen: nothing outside, nothing on top of another, nothing cut; and the split
// bar under the mouse.
#include "tests/support/MainWindow.h"
#include "tests/support/TestFonts.h"

#include "platform/FontCatalog.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTest>
#include <functional>
#include <set>

namespace {

/// The program's own font in this test: as high as a sans-serif of 8.25 points and, the test font
/// being as wide as high in every character, brought to half of that, a sans-serif's average.
QFont formFont()
{
    QFont font("sans-serif");
    font.setPixelSize(11);
    font.setLetterSpacing(QFont::PercentageSpacing, 50);
    return font;
}

/// Controls that reach beyond their parent by design; what shows of them lies within.
const std::set<QString> Overhanging = {"ZSzContainer", "CVAContainer", "clbFontMap"};

/// Siblings that lie on each other by design: bars whose edges meet in a pixel or two, panels
/// behind what they show, the bar of the map over the empty part of its cells, a line of text and
/// its shadow, the invisible grip of the split bar.
const std::set<std::pair<QString, QString>> Overlapping = {
    {"CoolBarCM", "CoolBarTB"},       {"CoolBarCM", "ViewsContainer"},
    {"CoolBarTB", "TextBoard"},       {"ZSzContainer", "CVAContainer"},
    {"CVACover", "ASCLabel"},         {"CVACover", "AscCode"},
    {"CVACover", "HexLabel"},         {"CVACover", "HexCode"},
    {"CVACover", "OctLabel"},         {"CVACover", "OctCode"},
    {"CVACover", "BinLabel"},         {"CVACover", "BinCode"},
    {"KVACover", "KSLabel"},          {"KVACover", "KS"},
    {"ProgressBack", "ProgressFore"}, {"CharButton", "clbFontMap"},
    {"SampleText0", "SampleText1"},   {"SplitGrip", "SplitBar"},
    {"SplitGrip", "TextBoard"},       {"SplitGrip", "ViewsContainer"},
    {"SplitGrip", "FMapContainer"},
};

QString nameOf(const QWidget *control)
{
    return control->objectName().isEmpty() ? control->metaObject()->className()
                                           : control->objectName();
}

/// Every visible control below the parent, but not the insides of the toolkit's own controls.
void walk(const QWidget *parent, const std::function<void(const QWidget *)> &see)
{
    if (qobject_cast<const QAbstractScrollArea *>(parent) ||
        qobject_cast<const QComboBox *>(parent))
        return;
    for (const QWidget *child : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!child->isVisible() || child->isWindow())
            continue;
        see(child);
        walk(child, see);
    }
}

void checkInside(const QWidget *control)
{
    if (!Overhanging.contains(control->objectName()))
        QVERIFY2(control->parentWidget()->rect().contains(control->geometry()),
                 qPrintable(nameOf(control) + " outside " + nameOf(control->parentWidget())));
}

void checkApart(const QWidget *control)
{
    for (const QWidget *other :
         control->parentWidget()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        const auto pair = std::pair(control->objectName(), other->objectName());
        if (other == control || !other->isVisible() || Overlapping.contains(pair) ||
            Overlapping.contains({pair.second, pair.first}))
            continue;
        QVERIFY2(!control->geometry().intersects(other->geometry()),
                 qPrintable(nameOf(control) + " over " + nameOf(other)));
    }
}

void checkTextFits(const QWidget *control)
{
    QString text;
    const QRect room = control->contentsRect();
    if (const auto *label = qobject_cast<const QLabel *>(control))
        text = label->text();
    else if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        text = button->text();
    const QFontMetrics metrics(control->font());
    QVERIFY2(metrics.horizontalAdvance(text) <= room.width(),
             qPrintable(nameOf(control) + " cuts \"" + text + "\""));
    QVERIFY2(text.isEmpty() || metrics.height() <= room.height(), qPrintable(nameOf(control)));
}

/// Every item of a menu, submenus included as items of their own.
void walkMenu(const QMenu *menu, const std::function<void(const QMenu *, QAction *)> &see)
{
    for (QAction *item : menu->actions()) {
        see(menu, item);
        if (item->menu())
            walkMenu(item->menu(), see);
    }
}

QList<QMenu *> topMenus(const Zendova &window)
{
    QList<QMenu *> menus;
    for (const QAction *item : window.menuBar()->actions())
        menus += item->menu();
    return menus;
}

QString accessKeyOf(const QString &caption)
{
    const qsizetype mark = caption.indexOf('&');
    return mark < 0 ? QString() : caption.mid(mark + 1, 1).toUpper();
}

/// How many are connected to an item's being chosen, its menu among them.
int listenersOf(const QAction *item)
{
    struct Opened : QAction
    {
        using QObject::receivers;
    };
    return (item->*&Opened::receivers)(SIGNAL(triggered(bool)));
}

/// The mouse with a button held, at so many pixels below the upper edge of the split bar.
void holdAt(const Zendova &window, int down, Qt::MouseButton button = Qt::LeftButton)
{
    const QPointF at(50, down);
    QMouseEvent move(QEvent::MouseMove, at, window.SplitBar->mapToGlobal(at), Qt::NoButton, button,
                     Qt::NoModifier);
    QApplication::sendEvent(window.SplitBar, &move);
}

/// The toolkit's test library leaves the last release of a double click out.
void doubleClick(const Zendova &window)
{
    QTest::mouseDClick(window.SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
    QTest::mouseRelease(window.SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
}

/// Edges of the areas above each other, which move together.
struct Split
{
    int Bar, BoardBottom, Map, Credits, Status, Bottom;

    bool operator==(const Split &) const = default;
    Split movedBy(int pixels) const
    {
        return {Bar + pixels,     BoardBottom + pixels, Map + pixels,
                Credits + pixels, Status + pixels,      Bottom + pixels};
    }
};

Split splitOf(const Zendova &window)
{
    return {.Bar = window.SplitBar->y(),
            .BoardBottom = window.TextBoard->geometry().bottom(),
            .Map = window.FMapContainer->y(),
            .Credits = window.LLVContainer->y(),
            .Status = window.StatBar->y(),
            .Bottom = window.Client->height()};
}

} // namespace

class TestLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void controls_data();
    void controls();
    void areasAtSmallest_data();
    void areasAtSmallest();
    void largeFontsLeaveNoGaps();
    void viewsOnTheRight();
    void toolbarsFitTheirBands();
    void buttonsSpeak();
    void coversSpeak_data();
    void coversSpeak();
    void staysOnTheScreen_data();
    void staysOnTheScreen();
    void storedWidth();

    void menuKeys();
    void menuItemsWork();

    void splitDrag();
    void splitLimits();
    void splitJitter();
    void splitDoubleClick();
    void splitGrip();
    void splitGripLeavesTheFindBar();
    void splitGripIsForTheLeftButton();

private:
    QByteArray Settings;
};

void TestLayout::initTestCase()
{
    Desktop desktop;
    desktop.start();
    QVERIFY(desktop.close());
    Settings = desktop.settingsBytes();
}

void TestLayout::controls_data()
{
    QTest::addColumn<int>("mapSize");
    QTest::addColumn<QString>("side");
    for (const int mapSize : {1, 9, 24})
        for (const char *side : {"L", "R"})
            QTest::addRow("size %d %s", mapSize, side) << mapSize << side;
}

void TestLayout::controls()
{
    QFETCH(int, mapSize);
    QFETCH(QString, side);
    Desktop desktop({1440, 1200}, 96, Settings);
    desktop.alterSettings("UPDATE settings SET value = '" + side + "' WHERE name = 'VCPosition'");
    desktop.alterSettings(
        QString("UPDATE settings SET value = %1 WHERE name = 'SizeIndex'").arg(mapSize));
    Zendova *window = desktop.startAsItIs();
    QCOMPARE(window->SizeIndex, mapSize);
    // The longest texts that the labels get.
    window->TextBoard->setText(QString(window->TBLimit, 'x'));
    QTest::mouseClick(window->TextEditTB->button("Find"), Qt::LeftButton);
    QVERIFY(window->FindFrame->isVisible());
    for (const int code : {32, 255}) {
        QTest::mouseMove(window->CharButton, window->CharButton->pixels(code - FirstCode).center());
        walk(window->Client, checkTextFits);
    }
    QCOMPARE(window->PercFilled->text(), QString("100%"));
    QCOMPARE(window->KS->text(), QString("Alt+0255"));
    walk(window->Client, checkInside);
    walk(window->Client, checkApart);
    const QRect lastCell = window->CharButton->pixels(223);
    QVERIFY(window->CharButton->rect().contains(lastCell));
    QVERIFY(window->FMapContainer->geometry().right() <= window->Client->width());
}

void TestLayout::areasAtSmallest_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRect>("place"); // twips
    const auto row = [](const char *name, int left, int top, int width, int height) {
        QTest::newRow(name) << QString(name) << QRect(left, top, width, height);
    };
    row("CoolBarCM", 105, 0, 11415, 390);
    row("ViewsContainer", 105, 375, 2010, 3765);
    row("CoolBarTB", 2145, 375, 9375, 390);
    row("TextBoard", 2145, 735, 9375, 3405);
    row("SplitBar", 105, 4140, 11370, 30);
    row("FMapContainer", 90, 4170, 11415, 3690);
    row("LLVContainer", 90, 7860, 5775, 315);
    row("StatBar", 9600, 7860, 1920, 300);
}

void TestLayout::areasAtSmallest()
{
    QFETCH(QString, name);
    QFETCH(QRect, place);
    Desktop desktop({800, 600});
    const QWidget *area = desktop.start()->Control(name);
    QCOMPARE(QRect(area->pos() * 15, area->size() * 15), place);
    QCOMPARE(desktop.Window->Client->size(), QSize(772, 546));
}

void TestLayout::largeFontsLeaveNoGaps()
{
    Desktop desktop({1280, 1024}, 120, Settings);
    const Zendova *window = desktop.startAsItIs();
    QCOMPARE(window->TwipsX, 12.0);
    QCOMPARE(window->SplitBar->y(), window->TextBoard->geometry().bottom() + 1);
    QCOMPARE(window->FMapContainer->y(), window->SplitBar->geometry().bottom() + 1);
    QCOMPARE(window->LLVContainer->y(), window->FMapContainer->geometry().bottom() + 1);
    for (int cell = 0; cell < window->CharButton->count(); ++cell) {
        const QRect here = window->CharButton->pixels(cell);
        if (cell % MapColumns + 1 < MapColumns)
            QVERIFY(window->CharButton->pixels(cell + 1).left() <= here.right() + 1);
        if (cell + MapColumns < window->CharButton->count())
            QVERIFY(window->CharButton->pixels(cell + MapColumns).top() <= here.bottom() + 1);
    }
}

void TestLayout::viewsOnTheRight()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const int rightEdge = window->TextBoard->geometry().right();
    for (const int mapSize : {8, 1, 18}) {
        window->sldSetFMapSize->setValue(mapSize);
        QTest::mouseClick(window->ViewsTB->button("VCRight"), Qt::LeftButton);
        QCOMPARE(window->TextBoard->x(), 7);
        QCOMPARE(window->CoolBarTB->x(), 7);
        QCOMPARE(window->ViewsContainer->x(), 7 + window->TextBoard->width() + 2);
        QVERIFY(window->ViewsTB->button("VCRight")->isChecked());
        QVERIFY(!window->ViewsTB->button("VCLeft")->isChecked());
        QTest::mouseClick(window->ViewsTB->button("VCLeft"), Qt::LeftButton);
        QCOMPARE(window->TextBoard->x(), 143);
        QCOMPARE(window->ViewsContainer->x(), 7);
        if (mapSize == 8)
            QCOMPARE(window->TextBoard->geometry().right(), rightEdge);
    }
}

void TestLayout::toolbarsFitTheirBands()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    const Zendova *window = desktop.startAsItIs();
    int inBands = 0;
    for (const Toolbar *bar : window->findChildren<Toolbar *>()) {
        if (!bar->isVisible() || !qobject_cast<BandBar *>(bar->parentWidget()))
            continue;
        ++inBands;
        QVERIFY2(bar->sizeHint().width() <= bar->width(), qPrintable(nameOf(bar)));
    }
    QCOMPARE(inBands, 8);
}

void TestLayout::buttonsSpeak()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    const Zendova *window = desktop.startAsItIs();
    int buttons = 0;
    for (const Toolbar *bar : window->findChildren<Toolbar *>()) {
        for (const QToolButton *button : bar->findChildren<QToolButton *>()) {
            ++buttons;
            QVERIFY2(!button->icon().isNull(), qPrintable(button->toolTip()));
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(nameOf(bar)));
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->accessibleName()));
        }
    }
    QVERIFY(buttons > 30);
    window->DisplayTT->trigger();
    for (const QToolButton *button : window->findChildren<QToolButton *>())
        QVERIFY2(button->toolTip().isEmpty(), qPrintable(button->toolTip()));
    QVERIFY(window->TextZoom->toolTip().isEmpty());
}

void TestLayout::coversSpeak_data()
{
    QTest::addColumn<QString>("toolTip");
    for (const char *name : {"CVACover", "ASCLabel", "AscCode", "HexLabel", "HexCode", "OctLabel",
                             "OctCode", "BinLabel", "BinCode"})
        QTest::newRow(name) << "Code View Area";
    for (const char *name : {"KVACover", "KSLabel", "KS"})
        QTest::newRow(name) << "Keystroke View Area";
    for (const char *name : {"ProgressBack", "ProgressFore", "PercFilled"})
        QTest::newRow(name) << "Percentage of TextBoard Filled";
}

void TestLayout::coversSpeak()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    window->TextBoard->setText(QString(window->TBLimit, 'x'));
    const QWidget *text = window->Control(QTest::currentDataTag());
    QVERIFY(text->isVisible());
    const QPoint point = text->mapTo(window->Client, text->rect().center());
    QTEST(window->Client->childAt(point)->toolTip(), "toolTip");
}

void TestLayout::staysOnTheScreen_data()
{
    using Use = std::function<void(Zendova &)>;
    const QPoint corner(1280 - 976, 1024 - 648); // the window of size 8 is wholly in view there
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<Use>("use");
    QTest::addColumn<QPoint>("to");
    const auto drag = [](int pixels) -> Use {
        return [pixels](Zendova &window) {
            QTest::mousePress(window.SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
            holdAt(window, pixels + 2);
            QTest::mouseRelease(window.SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
        };
    };
    const auto resize = [](int size) -> Use {
        return [size](Zendova &window) { window.sldSetFMapSize->setValue(size); };
    };
    const auto row = [](const char *name, const QPoint &from, const Use &use, const QPoint &to) {
        QTest::newRow(name) << from << use << to;
    };
    row("larger map", corner, resize(18), corner - QPoint(280, 80));
    row("larger map, in view", {5, 7}, resize(18), {5, 7});
    row("smaller map", corner, resize(3), corner);
    row("split bar dragged", corner, drag(100), corner - QPoint(0, 100));
    row("split bar dragged, in view", {5, 7}, drag(100), {5, 7});
    row("split bar double-clicked", corner, [](Zendova &window) { doubleClick(window); },
        {corner.x(), 2});
}

void TestLayout::staysOnTheScreen()
{
    QFETCH(QPoint, from);
    QFETCH(std::function<void(Zendova &)>, use);
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    QCOMPARE(QSizeF(window->FormWidth(), window->FormHeight()), QSizeF(976, 648) * 15);
    window->move(from);
    use(*window);
    QTEST(window->pos(), "to");
}

void TestLayout::storedWidth()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    doubleClick(*window);
    const double height = window->FormHeight();
    QVERIFY(desktop.close());
    // As stored, but neither narrower than the map nor wider than the screen.
    for (const auto &[stored, width] :
         {std::pair(-5, 976), {7000, 976}, {15000, 1000}, {40000, 1280}}) {
        desktop.alterSettings(
            QString("UPDATE settings SET value = %1 WHERE name = 'FormWidth'").arg(stored));
        window = desktop.startAsItIs();
        QCOMPARE(QSizeF(window->FormWidth(), window->FormHeight()), QSizeF(width * 15, height));
    }
}

void TestLayout::menuKeys()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    const Zendova *window = desktop.startAsItIs();
    std::set<QString> shortcuts;
    std::set<std::pair<const QObject *, QString>> accessKeys;
    const auto unique = [&](const QObject *menu, const QAction *item) {
        // The recent lists name their items when they show them.
        if (!item->isVisible() && item->text().isEmpty())
            return;
        const QString access = accessKeyOf(item->text());
        QVERIFY2(item->isSeparator() || !access.isEmpty(), qPrintable(item->text()));
        QVERIFY2(item->isSeparator() || accessKeys.insert({menu, access}).second,
                 qPrintable(item->text()));
        if (!item->shortcut().isEmpty())
            QVERIFY2(shortcuts.insert(item->shortcut().toString()).second,
                     qPrintable(item->text()));
    };
    for (const QAction *item : window->menuBar()->actions())
        unique(window->menuBar(), item);
    for (const QMenu *menu : topMenus(*window))
        walkMenu(menu, unique);
    QVERIFY(shortcuts.contains("Ctrl+B"));
}

void TestLayout::menuItemsWork()
{
    QMenu empty;
    const int menuAlone = listenersOf(empty.addAction("Nothing"));
    Desktop desktop({1280, 1024}, 96, Settings);
    const Zendova *window = desktop.startAsItIs();
    // Toggles whose check mark is all that there is to them.
    const std::set<const QAction *> marks = {window->OptLoadTD, window->OptUnloadTD,
                                             window->DisplayCD, window->DisplayOW,
                                             window->DisplayEW};
    int working = 0;
    for (const QMenu *menu : topMenus(*window)) {
        walkMenu(menu, [&](const QMenu *, const QAction *item) {
            if (!item->isEnabled() || item->menu() || item->isSeparator())
                return;
            ++working;
            QVERIFY2(listenersOf(item) > menuAlone || marks.contains(item),
                     qPrintable(item->text()));
        });
    }
    QVERIFY(working > 20);
}

void TestLayout::splitDrag()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const Split before = splitOf(*window);
    QTest::mousePress(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
    holdAt(*window, 42);
    QCOMPARE(splitOf(*window), before.movedBy(40));
    QCOMPARE(window->FormHeight(), (592 + 8 * 7 + 40) * 15.0);
    holdAt(*window, 2); // the bar has followed: the mouse is on it again
    QCOMPARE(splitOf(*window), before.movedBy(40));
    holdAt(*window, -8);
    QCOMPARE(splitOf(*window), before.movedBy(30));
    QTest::mouseRelease(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
    QVERIFY(window->TextBoard->hasFocus());
    for (const QAction *item : {window->FMLarger, window->FMSmaller})
        QVERIFY(!item->isEnabled());
    QVERIFY(!window->pbxSetFMapSize->isEnabled());
    QVERIFY(window->FMRealign->isEnabled());
    QTest::mouseClick(window->tlbCFMapFmt->button("RAFMap"), Qt::LeftButton);
    QCOMPARE(splitOf(*window), before);
    QVERIFY(window->FMLarger->isEnabled());
    QVERIFY(!window->FMRealign->isEnabled());

    // Without the left button the mouse only passes.
    holdAt(*window, 42, Qt::RightButton);
    holdAt(*window, 42, Qt::NoButton);
    QCOMPARE(splitOf(*window), before);
}

void TestLayout::splitLimits()
{
    Desktop desktop({1280, 800}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const Split top = splitOf(*window);
    holdAt(*window, -20);
    QCOMPARE(splitOf(*window), top);
    const int room = 800 - window->FMapContainer->height() - 72 - top.Bar;
    holdAt(*window, room + 3); // a pixel beyond
    QCOMPARE(splitOf(*window), top);
    holdAt(*window, room + 2);
    QCOMPARE(splitOf(*window), top.movedBy(room));
    holdAt(*window, 12);
    QCOMPARE(splitOf(*window), top.movedBy(room));
    QVERIFY(window->FormHeight() <= 800 * 15);
}

void TestLayout::splitJitter()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const Split before = splitOf(*window);
    for (const int pixels : {2, 3, 4}) { // 2 is where the mouse holds the bar
        holdAt(*window, pixels);
        QCOMPARE(splitOf(*window), before);
    }
    holdAt(*window, 5);
    QCOMPARE(splitOf(*window), before.movedBy(3));
    for (const int pixels : {0, 1, 4}) {
        holdAt(*window, pixels);
        QCOMPARE(splitOf(*window), before.movedBy(3));
    }
    holdAt(*window, -1);
    QCOMPARE(splitOf(*window), before);
}

void TestLayout::splitDoubleClick()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const Split top = splitOf(*window);
    const int lowest = 1024 - window->FMapContainer->height() - 72;
    for (int round = 0; round < 2; ++round) {
        doubleClick(*window);
        QCOMPARE(splitOf(*window), top.movedBy(lowest - top.Bar));
        QVERIFY(window->TextBoard->hasFocus());
        QVERIFY(!window->FMLarger->isEnabled());
        doubleClick(*window);
        QCOMPARE(splitOf(*window), top);
        QVERIFY(window->FMLarger->isEnabled());
    }
}

void TestLayout::splitGrip()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const auto under = [window](int below) -> const QWidget * {
        const QPoint point = window->SplitBar->pos() + QPoint(300, below);
        const QWidget *control = window->Client->childAt(point);
        return control ? control : window->Client;
    };
    const auto at = [window](int below) {
        return window->SplitBar->mapTo(window, QPoint(300, below));
    };
    const Split before = splitOf(*window);
    for (const int edge : {-3, 4}) {
        QCOMPARE(under(edge)->cursor().shape(), Qt::SplitVCursor);
        QCOMPARE(under(edge)->toolTip(), QString("Pull FontMap Up/Down"));
        // Taken there the bar does not jump, and follows the mouse.
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, at(edge));
        QTest::mouseMove(window->windowHandle(), at(edge + 1));
        QCOMPARE(splitOf(*window), before);
        QTest::mouseMove(window->windowHandle(), at(edge + 50));
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, at(edge));
        const int moved = window->SplitBar->y() - before.Bar;
        QVERIFY2(qAbs(moved - 50) <= 2, qPrintable(QString::number(moved)));
        QVERIFY(window->TextBoard->hasFocus());
        QCOMPARE(under(edge)->cursor().shape(), Qt::SplitVCursor); // it went along
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, at(edge));
        QCOMPARE(splitOf(*window), before);
    }
    QVERIFY(under(-4)->cursor().shape() != Qt::SplitVCursor);
    QVERIFY(under(5)->cursor().shape() != Qt::SplitVCursor);
    window->DisplayTT->trigger();
    QVERIFY(under(-3)->toolTip().isEmpty());
    // Where the map can't be sized there is nothing to pull.
    desktop.Screen->pretend(SysInfo::Screen{{800, 600}, {}, 96});
    QVERIFY(under(0)->cursor().shape() != Qt::SplitVCursor);
}

void TestLayout::splitGripLeavesTheFindBar()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const auto underMouse = [window](int below) {
        return window->Client->childAt(window->SplitBar->pos() + QPoint(300, below));
    };
    QTest::keyClicks(window->TextBoard, "text");
    for (const bool open : {true, false}) {
        QTest::mouseClick(window->TextEditTB->button("Find"), Qt::LeftButton);
        QCOMPARE(window->FindFrame->isVisible(), open);
        QCOMPARE(underMouse(-1) == window->SplitGrip, !open);
        QCOMPARE(underMouse(4), window->SplitGrip);
        walk(window->Client, checkApart);
    }
}

void TestLayout::splitGripIsForTheLeftButton()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const Split before = splitOf(*window);
    const auto send = [window](QEvent::Type type, int down, Qt::MouseButton button,
                               Qt::MouseButtons held) {
        const QPointF at(50, down);
        QMouseEvent event(type, at, window->SplitGrip->mapToGlobal(at), button, held,
                          Qt::NoModifier);
        QApplication::sendEvent(window->SplitGrip, &event);
    };
    const int edge = window->SplitGrip->height() - 1;
    send(QEvent::MouseButtonPress, edge, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, edge + 50, Qt::NoButton, Qt::LeftButton);
    const Split after = splitOf(*window);
    QVERIFY(after.Bar > before.Bar + 40);
    // Another button on the way neither ends the drag nor moves the hold.
    send(QEvent::MouseButtonPress, edge, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    send(QEvent::MouseButtonRelease, edge, Qt::RightButton, Qt::LeftButton);
    send(QEvent::MouseMove, edge + 1, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(splitOf(*window), after);
    send(QEvent::MouseButtonRelease, edge, Qt::LeftButton, Qt::NoButton);
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    QApplication::setFont(formFont());
    TestLayout test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_layout.moc"
