// The main window's areas, controls and menus at several map sizes, on both sides and at two
// densities of the screen: nothing outside, on top of another or cut; and the split bar.
#include "tests/support/MainWindow.h"

#include <set>

namespace {

QString nameOf(const QWidget *control)
{
    return control->objectName().isEmpty() ? control->metaObject()->className()
                                           : control->objectName();
}

/// Siblings that lie on each other by design: bars whose edges meet in a pixel or two, the bar of
/// the map over the empty part of its cells, a line of text and its shadow; what lets the mouse
/// through to the panel behind it; and the grip of the split bar, though not on the find bar.
bool mayOverlap(const QWidget *one, const QWidget *other)
{
    static const std::set<std::set<QString>> pairs = {
        {"CoolBarCM", "CoolBarTB"},   {"CoolBarCM", "ViewsContainer"},
        {"CoolBarTB", "TextBoard"},   {"ZSzContainer", "CVAContainer"},
        {"CharButton", "clbFontMap"}, {"SampleText0", "SampleText1"},
    };
    const std::set<QString> names{one->objectName(), other->objectName()};
    return one->testAttribute(Qt::WA_TransparentForMouseEvents) !=
               other->testAttribute(Qt::WA_TransparentForMouseEvents) ||
           (names.contains("SplitGrip") && !names.contains("FindFrame")) || pairs.contains(names);
}

/// All visible controls below the parent, but not the insides of the toolkit's own controls.
void checkControls(const QWidget *parent)
{
    const QStringList overhanging{"ZSzContainer", "CVAContainer", "clbFontMap"};
    if (qobject_cast<const QAbstractScrollArea *>(parent) ||
        qobject_cast<const QComboBox *>(parent))
        return;
    QList<QWidget *> controls = parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    controls.removeIf([](QWidget *child) { return !child->isVisible() || child->isWindow(); });
    for (const QWidget *control : controls) {
        const QRect place = control->geometry();
        QVERIFY2(parent->rect().contains(place) || overhanging.contains(nameOf(control)),
                 qPrintable(nameOf(control) + " outside " + nameOf(parent)));
        for (const QWidget *other : controls)
            QVERIFY2(other == control || !place.intersects(other->geometry()) ||
                         mayOverlap(control, other),
                     qPrintable(nameOf(control) + " over " + nameOf(other)));
        const QString text = control->property("text").toString();
        const QSize room = control->contentsRect().size();
        const QSize needed = QFontMetrics(control->font()).size(0, text);
        QVERIFY2(text.isEmpty() || control->inherits("QLineEdit") ||
                     room == room.expandedTo(needed),
                 qPrintable(nameOf(control) + " cuts \"" + text + "\""));
        if (qobject_cast<const Toolbar *>(control))
            QVERIFY2(control->sizeHint().width() <= place.width(), qPrintable(nameOf(control)));
        checkControls(control);
    }
}

/// The toolkit's test library leaves the last release of a double click out.
void doubleClick(const Zendova *window)
{
    QTest::mouseDClick(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
    QTest::mouseRelease(window->SplitBar, Qt::LeftButton, {}, QPoint(50, 1));
}

/// Edges of the areas above each other, less what the split bar has moved them.
QList<int> edgesOf(const Zendova *window, int moved = 0)
{
    QList<int> edges{window->SplitBar->y(),      window->TextBoard->geometry().bottom(),
                     window->FMapContainer->y(), window->LLVContainer->y(),
                     window->StatBar->y(),       window->Client->height()};
    for (int &edge : edges)
        edge -= moved;
    return edges;
}

} // namespace

class TestLayout : public WindowTest
{
    Q_OBJECT

private slots:
    void controls()
    {
        for (const auto &[mapSize, side] : {std::pair(1, "R"), {9, "L"}, {24, "R"}}) {
            begin({1440, 1200});
            QVERIFY(desktop->close());
            desktop->store("Options", "VCPosition", QString(side));
            desktop->store("FontMap", "SizeIndex", mapSize);
            restart();
            checkControls(window->Client);
            board()->setText(QString(::TextBoard::MaxLength(), 'x'));
            press("Find");
            for (const int code : {32, 255}) {
                hover(window, cellOf(code));
                checkControls(window->Client);
            }
            QVERIFY(window->FMapContainer->CharButton->rect().contains(
                window->FMapContainer->CharButton->pixels(CellCount - 1)));
            QCOMPARE(window->StatBar->geometry().right(), window->CoolBarCM->geometry().right());
        }
    }

    void areasLeaveNoGaps()
    {
        for (const double dotsPerInch : {96.0, 120.0}) {
            begin({1280, 1024}, dotsPerInch);
            const QWidget *column[] = {board(), window->SplitBar, window->FMapContainer,
                                       window->LLVContainer};
            const Views *views = window->ViewsContainer;
            for (const int mapSize : {8, 1, 10}) {
                window->FMapContainer->sldSetFMapSize->setValue(mapSize);
                for (std::size_t i = 1; i < std::size(column); ++i)
                    QVERIFY(column[i]->y() <= column[i - 1]->geometry().bottom() + 1);
                press("VCRight");
                QVERIFY(button("VCRight")->isChecked() && !button("VCLeft")->isChecked());
                const QRect place = board()->geometry();
                QCOMPARE(place.x(), 7);
                QCOMPARE(views->x(), place.right() + 3);
                // The bars end together near the right edge, whatever the density.
                const int right = window->CoolBarCM->geometry().right();
                QVERIFY(right < window->Client->width() && right > window->Client->width() - 12);
                QCOMPARE(window->StatBar->geometry().right(), right);
                QVERIFY(qAbs(views->geometry().right() - right) <= 2);
                press("VCLeft");
                QCOMPARE(board()->geometry(), place.translated(136, 0));
                QCOMPARE(views->x(), 7);
            }
        }
    }

    void toolTips()
    {
        board()->setText(QString(::TextBoard::MaxLength(), 'x'));
        for (const bool on : {true, false}) {
            for (const QToolButton *button : window->Client->findChildren<QToolButton *>())
                QVERIFY2(!button->icon().isNull() && button->toolTip().isEmpty() != on,
                         qPrintable(button->accessibleName()));
            // The texts on a panel leave the mouse to it.
            for (const auto &[name, toolTip] :
                 {std::pair("BinCode", "Code View Area"),
                  {"KS", "Keystroke View Area"},
                  {"ProgressFore", "Percentage of TextBoard Filled"}}) {
                const QWidget *text = window->findChild<QLabel *>(name);
                const QPoint middle = text->mapTo(window->Client, text->rect().center());
                QCOMPARE(window->Client->childAt(middle)->toolTip(), QString(on ? toolTip : ""));
            }
            QCOMPARE(button("Color")->toolTip(),
                     QString(on ? "Set TextBoard Font Color (Currently Black)" : ""));
            window->DisplayTT->trigger();
        }
    }

    void menuKeys()
    {
        QSet<QString> shortcuts;
        QWidgetList menus{window->menuBar()};
        for (QMenu *menu : window->menuBar()->findChildren<QMenu *>())
            menus += menu;
        for (const QWidget *menu : menus) {
            QString accessKeys;
            for (const QAction *item : menu->actions()) {
                // The recent lists name their items when they show them.
                if (item->isSeparator() || (!item->isVisible() && item->text().isEmpty()))
                    continue;
                const QString key = item->text().section('&', 1).left(1).toUpper();
                QVERIFY2(!key.isEmpty() && !accessKeys.contains(key), qPrintable(item->text()));
                accessKeys += key;
                const QString shortcut = item->shortcut().toString();
                QVERIFY2(!shortcuts.contains(shortcut), qPrintable(shortcut));
                if (!shortcut.isEmpty())
                    shortcuts += shortcut;
            }
        }
        QVERIFY(shortcuts.contains("Ctrl+B"));
    }

    void staysOnTheScreenAndKeepsItsWidth()
    {
        const QPoint corner(1280 - 976, 1024 - 648); // the window of size 8 is wholly in view there
        QCOMPARE(QSizeF(window->FormWidth(), window->FormHeight()), QSizeF(976, 648) * 15);
        window->move(corner);
        pullSplitBar(window, 100);
        QCOMPARE(window->pos(), corner - QPoint(0, 100));
        doubleClick(window);
        window->move(corner);
        doubleClick(window);
        QCOMPARE(window->pos(), QPoint(corner.x(), 2));
        doubleClick(window);
        for (const auto &[from, to] :
             {std::pair(corner, corner - QPoint(280, 80)), {{5, 7}, {5, 7}}}) {
            window->FMapContainer->sldSetFMapSize->setValue(8);
            window->move(from);
            window->FMapContainer->sldSetFMapSize->setValue(18);
            QCOMPARE(window->pos(), to);
        }
        begin();
        doubleClick(window);
        QVERIFY(desktop->close());
        // As stored, but neither narrower than the map nor wider than the screen.
        for (const auto &[stored, width] : {std::pair(0, 976), {15000, 1000}, {40000, 1280}}) {
            desktop->store("Last", "FormWidth", stored);
            restart();
            QVERIFY(window->SplitIsDown());
            QCOMPARE(window->FormWidth(), width * 15.0);
            menuItem(window, "FMRealign")->trigger(); // the window is the map's again
            QCOMPARE(window->FormWidth(), 976.0 * 15);
        }
    }

    void splitBar()
    {
        begin({1280, 800});
        const QList<int> top = edgesOf(window);
        const int room = 800 - window->FMapContainer->height() - 72 - window->SplitBar->y();
        const auto grip = [this](int below) {
            QWidget *under = window->childAt(window->SplitBar->mapTo(window, QPoint(300, below)));
            return under && under->cursor().shape() == Qt::SplitVCursor ? under : nullptr;
        };
        QVERIFY(grip(-3) && grip(4) && !grip(-4) && !grip(5));
        QCOMPARE(grip(-3)->toolTip(), QString("Pull FontMap Up/Down"));
        // How far it is pulled, and how far it goes: between its first place and the screen's end.
        for (const auto &[pixels, moved] :
             {std::pair(-20, 0), {2, 0}, {3, 3}, {40, 40}, {room, room}}) {
            window->FontNameCombo->setFocus();
            pullSplitBar(window, pixels);
            QCOMPARE(edgesOf(window, moved), top);
            QVERIFY(board()->hasFocus());
            pullSplitBar(window, room + 5 - moved);
            QCOMPARE(edgesOf(window, moved), top);
            press("RAFMap");
            QCOMPARE(edgesOf(window), top);
        }
        for (const int moved : {room, 0}) {
            window->FontNameCombo->setFocus();
            doubleClick(window);
            QCOMPARE(edgesOf(window, moved), top);
            QVERIFY(board()->hasFocus());
        }
        // Where the map can't be sized there is nothing to pull.
        desktop->Screen->pretend(SysInfo::Screen{{800, 600}, {}, 96});
        QVERIFY(!grip(0));
    }
};

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    // As high as a sans-serif of 8.25 points and, the test font being as wide as high in every
    // character, brought to half of that, a sans-serif's average.
    QFont font("sans-serif");
    font.setPixelSize(11);
    font.setLetterSpacing(QFont::PercentageSpacing, 50);
    QApplication::setFont(font);
    TestLayout test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_layout.moc"
