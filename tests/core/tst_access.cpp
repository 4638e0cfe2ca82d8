// All windows as they are to a person who does not see them, or has no mouse: every control has a
// role and a name, Tab goes round and shows where it is, and the desktop's keys do the rest.
#include "tests/support/MainWindow.h"

#include "core/Message.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/DesktopKeys.h"
#include "platform/controls/HelpViewer.h"

#include <QAccessible>

namespace {

/// What may have no name: it holds other things, parts them or moves what is beside it.
bool mayBeNameless(const QAccessibleInterface &told)
{
    static const QSet<QAccessible::Role> roles = {
        QAccessible::Client,     QAccessible::Grouping, QAccessible::LayeredPane,
        QAccessible::MenuBar,    QAccessible::Grip,     QAccessible::Separator,
        QAccessible::StaticText, QAccessible::Border,   QAccessible::ScrollBar};
    return !told.state().focusable &&
           (roles.contains(told.role()) || told.object()->inherits("QSplitter"));
}

/// All of a window that shows, told by `report` where something is missing.
int seen(QAccessibleInterface *told, QSet<QString> &focusable, QStringList &faults)
{
    if (told->state().invisible)
        return 0;
    const QString name = told->text(QAccessible::Name).trimmed();
    const QObject *object = told->object();
    const QString which =
        object ? object->metaObject()->className() + (' ' + object->objectName()) : name;
    if (told->role() == QAccessible::NoRole)
        faults += "no role: " + which;
    if (name.isEmpty() && !mayBeNameless(*told))
        faults += "no name: " + which;
    if (object && told->state().focusable) {
        if (focusable.contains(name))
            faults += "two called " + name;
        focusable += name;
    }
    int count = 1;
    for (int i = 0; i < told->childCount(); ++i)
        count += seen(told->child(i), focusable, faults);
    return count;
}

QString nameOf(const QWidget *control)
{
    return control ? control->metaObject()->className() + (' ' + control->objectName()) : "nothing";
}

QImage around(QWidget *control)
{
    constexpr int edge = 3; // pixels, in which a frame round it lies
    const QPoint at = control->mapTo(control->window(), QPoint());
    return control->window()
        ->grab(QRect(at, control->size()).adjusted(-edge, -edge, edge, edge))
        .toImage();
}

/// Where the key leads, until it comes back to where it began.
QWidgetList walk(QWidget *window, const char *keys, QStringList &faults)
{
    QWidgetList way;
    QWidget *now = window->focusWidget();
    for (; now && !way.contains(now); now = window->focusWidget()) {
        way += now;
        if (!now->isVisible() || !now->isEnabled())
            faults += "has the focus: " + nameOf(now);
        const QImage focused = around(now);
        QTest::keySequence(now, QKeySequence(keys));
        if (window->focusWidget() != now && around(now) == focused)
            faults += "no focus to be seen: " + nameOf(now);
    }
    if (!way.isEmpty() && now != way.first())
        faults += QString(keys) + " does not come back to " + nameOf(way.first());
    return way;
}

/// What the mouse may do, and keys other than Tab.
bool hasItsOwnKeys(const QWidget *control, const QWidgetList &way)
{
    if (const auto *button = qobject_cast<const QRadioButton *>(control)) // the arrow keys
        return std::ranges::any_of(way, [button](const QWidget *reached) {
            return reached->parent() == button->parent() &&
                   qobject_cast<const QRadioButton *>(reached);
        });
    return qobject_cast<const Toolbar *>(control->parent()) || // the menus
           qobject_cast<const QScrollBar *>(control) ||        // what it scrolls
           dynamic_cast<const SpokenBar *>(control) ||         // F8
           control->inherits("KeyboardPicture") ||             // Shift
           control->objectName() == "ClearFindButton" ||       // those of the box
           control->objectName().startsWith("qt_") || way.contains(control->focusProxy()) ||
           way.contains(control->parentWidget());
}

bool canBeOperated(const QWidget *control)
{
    return control->isVisible() && control->isEnabled() &&
           (control->focusPolicy() & Qt::TabFocus ||
            qobject_cast<const QAbstractButton *>(control) ||
            qobject_cast<const QAbstractSlider *>(control) ||
            dynamic_cast<const SpokenBar *>(control));
}

} // namespace

class TestAccess : public WindowTest
{
    Q_OBJECT

private:
    QStringList Faults;
    int Controls = 0;

    void visit(QWidget *shown)
    {
        activate(shown);
        shown->setAttribute(Qt::WA_KeyboardFocusChange); // as once a key has moved the focus
        const auto *tabs = shown->findChild<QTabWidget *>();
        const int pages = tabs && shown->inherits("FormDialog") ? tabs->count() : 1;
        const int first = pages > 1 ? tabs->currentIndex() : 0;
        for (int page = 0; page < pages; ++page) {
            if (pages > 1 && tabs->currentIndex() != (first + page) % pages)
                Faults += shown->windowTitle() + ": Ctrl+Tab turns no page";
            QStringList faults;
            QSet<QString> focusable;
            Controls += seen(QAccessible::queryAccessibleInterface(shown), focusable, faults);
            const QWidgetList way = walk(shown, "Tab", faults);
            const QWidgetList back = walk(shown, "Shift+Tab", faults);
            if (QSet(way.begin(), way.end()) != QSet(back.begin(), back.end()))
                faults += "another way back";
            for (QWidget *control : shown->findChildren<QWidget *>())
                if (control->window() == shown && canBeOperated(control) &&
                    !way.contains(control) && !hasItsOwnKeys(control, way))
                    faults += "not reached: " + nameOf(control);
            for (const QString &fault : faults)
                Faults += shown->windowTitle() + ", page " + QString::number(page) + ": " + fault;
            if (tabs)
                QTest::keySequence(shown->focusWidget(), QKeySequence("Ctrl+Tab"));
        }
    }

private slots:
    void everyWindow()
    {
        FileOffer offer;
        offer.DialogTitle = "Files";
        offer.Filter = "Text (*.TXT)|*.txt";
        const QString title = "Zendova Title";
        const std::pair<QString, std::function<void()>> openings[] = {
            {title, [&] { ZndvMsg("\r\rText", "OK", title, false, 1); }},
            {title, [&] { ZndvMsg("\r\rText", "YN", title, true, 2); }},
            {"Font", [this] { window->FormatFont_Click(); }},
            {"Pick A Color for TextBoard Font", [this] { window->ShowColorPicker(); }},
            {"Select A Font Color", [this] { window->FMapContainer->FMFColor->trigger(); }},
            {"Color",
             [] {
                 ColorValue color = 0;
                 CmnDlg::ShowColor(nullptr, color);
             }},
            {"Files", [&] { CmnDlg::ShowOpen(window, offer); }},
            {"Files", [&] { CmnDlg::ShowSave(window, offer); }},
            {"Print", [this] { menuItem(window, "ToolsPrint")->trigger(); }},
            {"About Zendova", [this] { menuItem(window, "HelpAbout")->trigger(); }},
            {"Default Options", [this] { menuItem(window, "ToolsOpt")->trigger(); }},
            {"Zendova Font Browser", [this] { menuItem(window, "ToolsFB")->trigger(); }},
            {"Keyboard Layout Viewer", [this] { menuItem(window, "ToolsKB")->trigger(); }},
            {"Zendova Custom Map Editor", [this] { menuItem(window, "FileCFMNew")->trigger(); }},
            {"Zendova TextBoard Full Screen Preview",
             [this] { menuItem(window, "ToolsFS")->trigger(); }}};
        visit(window);
        QTest::keyClicks(board(), "abc");
        window->EditFind_Click();
        visit(window);
        for (const auto &[caption, open] : openings) {
            desktop->Dialogs.dialog(caption, [this](QDialog *dialog) {
                visit(dialog);
                dialog->done(QDialog::Rejected);
            });
            open();
        }
        HelpViewer help(window);
        help.ShowContents(desktop->Folder.filePath("none"));
        visit(&help);
        for (const QString &fault : Faults)
            qWarning("%s", qPrintable(fault));
        QVERIFY(Faults.isEmpty() && Controls > 1500);
    }

    void menusByKeys()
    {
        DesktopKeys desktopKeys;
        qApp->installEventFilter(&desktopKeys);
        const auto opened = [](QWidget *focus, const char *keys) {
            focus->setFocus();
            QTest::keySequence(focus, QKeySequence(keys));
            QWidget *menu = QApplication::activePopupWidget();
            while (QWidget *open = QApplication::activePopupWidget())
                open->close();
            return menu ? menu->objectName() : QString();
        };
        QCOMPARE(opened(board(), "F10"), "ItemFile");
        QCOMPARE(opened(board(), "Shift+F10"), "ItemEdit");
        QCOMPARE(opened(window->FMapContainer->CharButton, "Shift+F10"), "FormatFM");
        QCOMPARE(opened(board(), "Ctrl+F10"), "");
    }

    void barsByKeys()
    {
        ::SplitBar &bar = *window->SplitBar;
        const int top = bar.y();
        keys("F8");
        QVERIFY(bar.hasFocus());
        keys("Down");
        QCOMPARE(bar.y(), top + 8);
        QCOMPARE(window->FMapContainer->y(), top + 10);
        keys("End");
        QCOMPARE(bar.y(), bar.spokenRange().Most);
        keys("Down, Home, Up");
        QCOMPARE(bar.y(), top);
        QVERIFY(bar.hasFocus());
        keys("F8");
        const auto left = [this](int band) { return window->CoolBarCM->band(band)->x(); };
        const int first = left(1), second = left(2);
        keys("Left");
        QCOMPARE(left(1), first); // its content needs the room
        keys("Right, Down, End");
        QCOMPARE(left(1), first + 8);
        QVERIFY(left(2) > second + 8);
        for (const char *key : {"F8", "F8", "F8"})
            keys(key);
        QVERIFY(board()->hasFocus());
        for (const char *key : {"F8", "F8", "Esc"})
            keys(key);
        QVERIFY(board()->hasFocus());
    }

    void mapByKeys()
    {
        CharCells *cells = window->FMapContainer->CharButton;
        cells->setFocus();
        for (const auto &[sequence, cell] : {std::pair("Right", 1),
                                             {"Down", 29},
                                             {"End", 223},
                                             {"Right", 0},
                                             {"K", cellOf('k')},
                                             {"Del", cellOf('k')}}) {
            keys(sequence);
            QCOMPARE(cells->selectedCell(), cell);
        }
        QCOMPARE(window->ViewsContainer->AscCode->text(), "107");
        QTest::keyClick(cells, Qt::Key_Space);
        keys("Home, Return");
        QVERIFY(cells->hasFocus());
        QCOMPARE(board()->Text(), "k ");
        keys("Esc");
        QVERIFY(board()->hasFocus());
        QCOMPARE(cells->selectedCell(), -1);
    }

    void newsAreTold()
    {
        const auto news = [this](const auto &act) {
            act();
            for (QObject *child : window->children())
                if (const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(child))
                    if (told->role() == QAccessible::Notification)
                        return told->text(QAccessible::Name);
            return QString();
        };
        const auto type = [this](const QString &text) { QTest::keyClicks(board(), text); };
        QCOMPARE(news([&] {
                     type("some text");
                     hover(window, cellOf('x'));
                     window->FMapContainer->CharButton->setFocus();
                     keys("Down");
                 }),
                 "");
        QCOMPARE(news([&] { keys("F8, F8"); }),
                 "Left edge of " + window->CoolBarCM->band(1)->accessibleName());
        keys("Esc");
        QCOMPARE(news([&] { clickCell(window, cellOf('z')); }), "z inserted");
        board()->setSelStart(0);
        window->EditFind_Click();
        window->FindFrame->FindString->setText("TEXT");
        QCOMPARE(news([&] { window->FindFrame->FindNextButton->click(); }),
                 "Found in line 1: some textz");
        QCOMPARE(news([&] { board()->setText(QString(58369, 'x')); }),
                 "The TextBoard is nearly full: room for 3,071 characters.");
        board()->setFocus();
        board()->setSelStart(58369);
        QCOMPARE(news([&] { type("ab"); }),
                 "The TextBoard is nearly full: room for 3,071 characters.");
        QCOMPARE(news([&] { board()->setSelText(QString(3069, 'x')); }), "The TextBoard is full.");
    }
};

ZENDOVA_WINDOW_TEST(TestAccess)
#include "tst_access.moc"
