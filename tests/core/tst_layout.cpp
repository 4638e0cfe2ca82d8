// The main window's areas, controls and menus at several map sizes, on both sides and at two
// densities of the screen: nothing outside, on top of another or cut; the split bar; and what the
// window and its dialogs owe the desktop: its fonts, level rows, whole columns, a patient
// clipboard.
#include "tests/support/MainWindow.h"

#include "core/ColorScheme.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/HelpViewer.h"
#include "textboard/TBColorPicker.h"

#include <set>

namespace {

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

/// All visible controls of a window.
void checkControls(const QWidget *window)
{
    const QStringList overhanging{"ZSzContainer", "CVAContainer", "clbFontMap"};
    QWidgetList controls = controlsBelow(window);
    controls.removeIf([](const QWidget *control) { return !control->isVisible(); });
    for (const QWidget *control : controls) {
        const QWidget *parent = control->parentWidget();
        const QRect place = control->geometry();
        const QString name = control->objectName();
        const QString text = control->property("text").toString();
        const QByteArray which =
            control->metaObject()->className() + (' ' + name + ' ' + text).toUtf8();
        QVERIFY2(parent->rect().contains(place) || overhanging.contains(name), which);
        for (const QWidget *other : controls)
            QVERIFY2(other == control || other->parentWidget() != parent ||
                         !place.intersects(other->geometry()) || mayOverlap(control, other),
                     which + " over " + other->metaObject()->className());
        const QSize room = control->contentsRect().size();
        const QSize needed = QFontMetrics(control->font()).size(0, text);
        QVERIFY2(text.isEmpty() || control->inherits("QLineEdit") ||
                     room == room.expandedTo(needed),
                 which);
        QVERIFY2(!qobject_cast<const Toolbar *>(control) ||
                     control->sizeHint().width() <= place.width(),
                 which);
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

/// What another program offers and doesn't hand over; the questions are counted.
struct SilentOffer : QMimeData
{
    SilentOffer(bool tells, int &unanswered) : TellsFormats(tells), Unanswered(unanswered) {}
    QStringList formats() const override
    {
        Unanswered += TellsFormats ? 0 : 1;
        return TellsFormats ? QStringList{"text/plain;charset=utf-8", "text/plain"} : QStringList();
    }
    bool hasFormat(const QString &format) const override { return formats().contains(format); }
    QVariant retrieveData(const QString &, QMetaType) const override
    {
        ++Unanswered;
        return {};
    }
    bool TellsFormats;
    int &Unanswered;
};

} // namespace

class TestLayout : public WindowTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // As high as a sans-serif of 8.25 points and, the test font being as wide as high in every
        // character, brought to half of that, a sans-serif's average.
        QFont font("sans-serif");
        font.setPixelSize(11);
        font.setLetterSpacing(QFont::PercentageSpacing, 50);
        QApplication::setFont(font);
    }

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
        }
        desktop->Dialogs.dialog("Font", [](QDialog *dialog) {
            checkControls(dialog);
            dialog->reject();
        });
        menuItem(window, "FormatFont")->trigger();
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

    void rowsAreLevel()
    {
        const auto middle = [this](const char *name) { // doubled
            const auto *widget = window->findChild<QWidget *>(name);
            return 2 * widget->mapTo(window, QPoint()).y() + widget->height();
        };
        for (const double dotsPerInch : {96.0, 120.0}) {
            begin({1600, 1200}, dotsPerInch);
            for (const char *name :
                 {"FontLabel", "FontSizeLabel", "FontSizeNumber", "FontSizeEdit", "FontSizeSlider"})
                QVERIFY2(qAbs(middle(name) - middle("FontNameCombo")) <= 1, name);
            for (const char *name : {"FindStrLabel", "FindNextButton", "FindOpt0"})
                QVERIFY2(qAbs(middle(name) - middle("FindString")) <= 1, name);
        }
    }

    void fontsOfTheDesktop()
    {
        QFont large = QApplication::font();
        const auto reset = qScopeGuard([usual = large] { QApplication::setFont(usual); });
        large.setPointSizeF(17);
        QApplication::setFont(large);
        begin();
        HelpViewer help(window);
        for (const QWidget *widget :
             {static_cast<QWidget *>(window->menuBar()), window->findChild<QWidget *>("ItemEdit"),
              static_cast<QWidget *>(window->FontNameCombo->view()),
              help.findChild<QWidget *>("Page"), help.findChild<QWidget *>("FindText")})
            QCOMPARE(widget->font().pointSizeF(), 17.0);
        for (const char *name : {"FontLabel", "FontNameCombo", "FindNextButton"})
            QCOMPARE(window->findChild<QWidget *>(name)->font().pointSizeF(), 8.25);
    }

    void fileDialogsShowAll()
    {
        writeFile(desktop->Folder.filePath("files/longer.txt"), QByteArray(148231, 'x'));
        desktop->Dialogs.dialog("Load", [](QDialog *dialog) {
            QVERIFY(
                dialog->findChild<QLineEdit *>("fileNameEdit")->placeholderText().contains(".zuf"));
            auto *files = dialog->findChild<QTreeView *>("treeView");
            const QAbstractItemView *view = files;
            QTRY_VERIFY(files->model()->rowCount(files->rootIndex()) == 1);
            for (int column = 1; column < files->header()->count(); ++column)
                QTRY_VERIFY(files->columnWidth(column) >= view->sizeHintForColumn(column));
            dialog->reject();
        });
        CmnDlg::ShowOpen(nullptr, {.DialogTitle = "Load",
                                   .Filter = "Uniform (*.ZUF)|*.zuf|Text (*.TXT)|*.txt",
                                   .FilterIndex = 2,
                                   .InitDir = desktop->Folder.filePath("files")});
    }

    void pickerWearsTheMapsColors()
    {
        SetColorScheme(RGBValue(250, 240, 10), RGBValue(10, 20, 60));
        ColorSchemeOn = true;
        PickColorValue = "0";
        TBColorPicker picker(nullptr);
        ColorSchemeOn = false;
        const QImage image = picker.grab().toImage();
        for (const char *name : {"Frame1", "Frame2"}) {
            const QRect frame = picker.findChild<QFrame *>(name)->geometry();
            QVERIFY(!frame.intersects(picker.ColorContainer->geometry()));
            for (const QPoint &corner :
                 {frame.topLeft() + QPoint(1, 1), frame.bottomRight() - QPoint(1, 1)})
                QCOMPARE(image.pixel(corner), qRgb(10, 20, 60));
        }
    }

    void fillBarKeepsItsFrame()
    {
        FillBar bar({.X = 15, .Y = 15}, 100, nullptr);
        bar.resize(160, 24);
        const QRect frame = bar.ProgressBack->geometry();
        const auto edges = [&] {
            QImage image = bar.grab(frame).toImage();
            QPainter(&image).fillRect(image.rect().adjusted(1, 0, -1, -1), Qt::black);
            return image;
        };
        bar.ShowCount(0);
        const QImage empty = edges();
        bar.ShowCount(100);
        QVERIFY(edges() == empty);
    }

    void silentClipboardOwner()
    {
        int unanswered = 0;
        for (const bool tellsFormats : {false, true}) {
            QGuiApplication::clipboard()->setMimeData(new SilentOffer(tellsFormats, unanswered));
            unanswered = 0;
            window->EditPaste_Click();
            QCOMPARE(unanswered, 1); // each question may take long
            QVERIFY(window->TextBoard->Text().isEmpty());
        }
        QGuiApplication::clipboard()->setMimeData(new SilentOffer(false, unanswered));
        desktop->Window.reset();
        QCoreApplication::processEvents();
        unanswered = 0;
        desktop->Window = std::make_unique<Zendova>(QString());
        desktop->Window->Start();
        QCOMPARE(unanswered, 0); // before the first paint
        QTRY_COMPARE(unanswered, 1);
    }
};

ZENDOVA_WINDOW_TEST(TestLayout)
#include "tst_layout.moc"
