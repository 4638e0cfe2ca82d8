// The editor of custom maps as a person works it: filling slots, saving, closing, keys and sizes;
// what stands in the file afterwards, and what is said when it can't be written.
#include "core/SettingsDefaults.h"
#include "fontmap/CharList.h"
#include "fontmap/CustomMap.h"
#include "fonttools/FontLoadProcedure.h"
#include "tests/support/MainWindow.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <set>

namespace {

constexpr ExpectedMessage Pending{
    " Custom Map Save Warning", "\r\rThere are changes pending to be saved\rwhich will be lost "
                                "if you exit now.\r\rDo you really want to close the Editor?\r\r"};
constexpr ExpectedMessage NotSaved{" Custom Map Save Error", "%1"};

QString nameOf(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object)->text(QAccessible::Name);
}

/// A file whose first slots hold these.
QByteArray fileOf(const QStringList &texts)
{
    CustomMapFile::Captions captions;
    std::ranges::copy(texts, captions.begin());
    return CustomMapFile::write(captions);
}

QString titleOf(const char *name)
{
    return QString("Zendova Custom FontMap Editor :  ") + name;
}

} // namespace

class TestCustomMap : public QObject
{
    Q_OBJECT

private slots:
    void init() { start(96); }
    void cleanup() { QVERIFY(desktop->Dialogs.allCame()); }
    void composes();
    void edits();
    void keepsWhatCantBeSaved();
    void refusesFiles();
    void asksBeforeClosing();
    void keysLeaveTheButtons();
    void listByKeys();
    void fontAndSizes();
    void everythingHasItsPlace_data();
    void everythingHasItsPlace();

private:
    void start(double dotsPerInch);
    /// The editor on a file with these texts, or on an empty map.
    void open(const QStringList &texts = {});
    QString path(const char *name) const { return desktop->Folder.filePath(name); }
    void saveAs(const char *name);
    void press(QWidget *button) const { QTest::mouseClick(button, Qt::LeftButton); }
    void clickSlot(int slot) const
    {
        QTest::mouseClick(editor->lblCFMap, Qt::LeftButton, {},
                          editor->lblCFMap->pixels(slot).center());
    }
    /// What the highlight and the buttons show: slot, colour behind it, the move on offer.
    QString state() const;

    std::unique_ptr<Desktop> desktop;
    std::unique_ptr<CustomMap> editor;
    FontList fonts;
};

void TestCustomMap::start(double dotsPerInch)
{
    editor.reset();
    desktop.reset();
    desktop = std::make_unique<Desktop>(QSize(1280, 1024), dotsPerInch);
    RegMakeKey(HKEY_CURRENT_USER, SettingsPath(u"CFMEditor"));
    ProductName = "Zendova";
    ToolTipsOn = true;
    MapEditSaved = false;
    FontCount = 0;
    LoadFontList(fonts);
}

void TestCustomMap::open(const QStringList &texts)
{
    editor = std::make_unique<CustomMap>(fonts, nullptr);
    int font = 1;
    while (editor->cmbFontName->ItemText(font) != "Zt Latin")
        ++font;
    if (texts.isEmpty()) {
        editor->SetupNewCFMap(font, "Zt Latin", 10.5);
    } else {
        writeFile(path("a.zcm"), fileOf(texts));
        QVERIFY(!editor->SetupEditCFMap(path("a.zcm"), "a.zcm", font, "Zt Latin", 10));
    }
    bool shown = false;
    desktop->Dialogs.dialog(editor->windowTitle(), [&](QDialog *) { shown = true; });
    editor->show();
    QApplication::setActiveWindow(editor.get());
    QVERIFY(QTest::qWaitFor([&] { return shown; }));
}

void TestCustomMap::saveAs(const char *name)
{
    desktop->Dialogs.dialog("Save Custom Map As", [whole = path(name)](QDialog *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
        edit->setText(whole);
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save),
                          Qt::LeftButton);
        if (dialog->isVisible())
            dialog->reject();
    });
    press(editor->btnSaveAsCFMap);
}

QString TestCustomMap::state() const
{
    const QHash<ColorValue, QString> names{{RGBValue(0, 0, 0), "black"},
                                           {SystemColorValue(13), "highlight"}};
    QStringList shown;
    for (int slot = 0; slot < CellCount; ++slot)
        if (const ColorValue back = editor->lblCFMap->BackColor(slot); back != 0xFFFFFF)
            shown += QString("%1 %2").arg(slot).arg(names.value(back));
    if (editor->cmdListToMap->isEnabled() == editor->MoveLtoM->isEnabled() &&
        editor->cmdMapToList->isEnabled() != editor->cmdListToMap->isEnabled() &&
        editor->cmdMapToList->isEnabled() == editor->MoveMtoL->isEnabled())
        shown += editor->cmdListToMap->isEnabled() ? "to map" : "to list";
    return shown.join(", ");
}

void TestCustomMap::composes()
{
    open();
    QCOMPARE(editor->windowTitle(), QString("Zendova Custom Map Editor"));
    QCOMPARE(state(), QString("0 black, to map"));
    QCOMPARE(editor->lstFontChars->charFont().pointSizeF(), 10.5);
    QCOMPARE(editor->sldFontSize->number()->text(), QString("10"));
    QTest::keyClicks(editor->lstFontChars, "\"");
    for (int n = 0; n < 3; ++n)
        press(editor->cmdListToMap);
    QCOMPARE(state(), QString("3 highlight, to map"));
    QVERIFY(editor->cmdListToMap->hasFocus() && !editor->btnSaveCFMap->isEnabled());
    QCOMPARE(editor->lblTextZoom->Caption(0), QString("%"));
    QTest::mouseClick(editor->optShiftDir[1], Qt::LeftButton, {}, QPoint(8, 8));
    clickSlot(195);
    for (int n = 0; n < 2; ++n)
        press(editor->cmdListToMap);
    QCOMPARE(state(), QString("27 highlight, to map")); // from the bottom of a column
    clickSlot(1);
    press(editor->cmdMapToList);
    QCOMPARE(state(), QString("196 black, to map"));
    QCOMPARE(editor->lblCharsInList->text() + '/' + editor->lblCharsInMap->text(), "220/4");
    QCOMPARE(editor->lstFontChars->code(editor->lstFontChars->ListIndex()), '\'');

    QStringList expected(CellCount);
    expected[0] = "\"";
    expected[2] = "$";
    expected[195] = "%";
    expected[223] = "&";
    saveAs("a.zcm");
    QCOMPARE(contentOf(path("a.zcm")), fileOf(expected));
    QCOMPARE(editor->windowTitle(), titleOf("a.zcm"));
    QCOMPARE(editor->LMSavePath, desktop->Folder.path());
    QVERIFY(!FileLock::exclusive(path("a.zcm")).isHeld());
    press(editor->cmdListToMap);
    press(editor->btnSaveCFMap);
    expected[196] = "'";
    QCOMPARE(contentOf(path("a.zcm")), fileOf(expected));
    QTest::keyClick(editor.get(), Qt::Key_Escape);
    QVERIFY(!editor->isVisible() && !MapEditSaved); // it is no loaded map
}

void TestCustomMap::edits()
{
    open({"A", "", "\"", "Q9"});
    QCOMPARE(editor->windowTitle(), titleOf("a.zcm"));
    QCOMPARE(state(), QString("0 black, to list"));
    QCOMPARE(editor->lblCharsInList->text() + '/' + editor->lblCharsInMap->text(), "221/3");
    press(editor->cmdMapToList);
    QVERIFY(editor->btnSaveCFMap->isEnabled() && editor->CFMapSave->isEnabled());
    clickSlot(0);
    QTest::keyClicks(editor->lstFontChars, "A");
    press(editor->cmdListToMap);
    QVERIFY(!editor->btnSaveCFMap->isEnabled() && !editor->CFMapSave->isEnabled());
    press(editor->cmdListToMap); // B behind it
    saveAs("b.zcm");
    QCOMPARE(contentOf(path("b.zcm")), fileOf({"A", "B", "\"", "Q9"}));
    QCOMPARE(contentOf(path("a.zcm")), fileOf({"A", "", "\"", "Q9"}));
    editor->reject();
    QVERIFY(!MapEditSaved);

    open({"A"});
    press(editor->cmdMapToList);
    QTest::keySequence(editor.get(), QKeySequence("Ctrl+S"));
    QCOMPARE(contentOf(path("a.zcm")), fileOf({}));
    QVERIFY(!FileLock::shared(path("a.zcm")).isHeld());
    press(editor->btnCancel);
    QVERIFY(MapEditSaved && FileLock::exclusive(path("a.zcm")).isHeld());
}

void TestCustomMap::keepsWhatCantBeSaved()
{
    open({"A"});
    press(editor->cmdMapToList);
    const auto fails = [&](const QString &what) {
        desktop->Dialogs.message(NotSaved, "Ok", what);
        press(editor->btnSaveCFMap);
        QCOMPARE(contentOf(path("a.zcm")), fileOf({"A"}));
        QVERIFY(editor->btnSaveCFMap->isEnabled());
        QVERIFY(!FileLock::exclusive(path("a.zcm")).isHeld());
    };
    {
        const FileLock other = FileLock::shared(path("a.zcm"));
        fails("another copy of Zendova");
    }
    {
        const FullDisk disk;
        fails(path("a.zcm"));
    }
    press(editor->btnSaveCFMap);
    QCOMPARE(contentOf(path("a.zcm")), fileOf({}));
}

void TestCustomMap::refusesFiles()
{
    editor = std::make_unique<CustomMap>(fonts, nullptr);
    writeFile(path("a.zcm"), fileOf({"A"}).chopped(9));
    QCOMPARE(editor->SetupEditCFMap(path("a.zcm"), "a.zcm", 1, "Zt Latin", 10), QString());
    QVERIFY(FileLock::exclusive(path("a.zcm")).isHeld());
    QVERIFY(!editor->SetupEditCFMap(path("none.zcm"), "none.zcm", 1, "Zt Latin", 10)->isEmpty());
}

void TestCustomMap::asksBeforeClosing()
{
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"CFMEditor"), u"ListCols", 12, REG_DWORD);
    open();
    QCOMPARE(editor->updListColumns->value(), 12);
    QCOMPARE(editor->lstFontChars->Columns(), 12);
    editor->updListColumns->stepUp();
    editor->optShiftDir[1]->click();
    press(editor->cmdListToMap);
    desktop->Dialogs.message(Pending, "No");
    QVERIFY(!editor->close());
    QVERIFY(editor->isVisible());
    QCOMPARE(desktop->setting("CFMEditor", "ListCols"), QString("13"));
    QCOMPARE(desktop->setting("CFMEditor", "ShiftDir"), QString("1"));
    desktop->Dialogs.message(Pending, "Yes");
    editor->MapExit->trigger();
    QVERIFY(!editor->isVisible());
    open();
    QVERIFY(editor->optShiftDir[1]->isChecked());
}

void TestCustomMap::keysLeaveTheButtons()
{
    open({"A"});
    clickSlot(0);
    QVERIFY(editor->imgCMMFMapHolder->hasFocus());
    QTest::keyClick(editor->lblCFMap, Qt::Key_Up);
    QCOMPARE(state(), QString("223 black, to list"));
    QTest::keyClick(editor->lblCFMap, Qt::Key_PageUp);
    editor->cmdMapToList_Click(); // nothing is there
    QCOMPARE(state(), QString("223 black, to list"));
    // The keys of the menu go by the slot of now.
    QTest::keySequence(editor->lblCFMap, QKeySequence("Ctrl+Down"));
    QCOMPARE(state(), QString("0 highlight, to list"));
    QCOMPARE(editor->lblCFMap->Caption(223), QString(" "));
    QTest::keySequence(editor->cmdMapToList, QKeySequence("Ctrl+Down")); // A stays
    QTest::keySequence(editor->cmdMapToList, QKeySequence("Ctrl+Up"));
    QCOMPARE(state(), QString("223 black, to list"));
    clickSlot(5);
    QTest::keyClick(editor->lblCFMap, Qt::Key_End);
    editor->lstFontChars->setFocus();
    QCOMPARE(state(), QString("223 black, to list"));
    QTest::keyClick(editor->lstFontChars, Qt::Key_Down);
    QCOMPARE(state(), QString("223 highlight, to list"));
}

void TestCustomMap::listByKeys()
{
    open();
    CharList &list = *editor->lstFontChars;
    QVERIFY(list.hasFocus());
    const auto key = [&](Qt::Key pressed) {
        QTest::keyClick(&list, pressed);
        return editor->lblTextZoom->Caption(0) + ' ' + editor->lblKeyStroke->text();
    };
    QCOMPARE(key(Qt::Key_End), QString("ÿ Alt+0255"));
    QVERIFY(list.viewport()->rect().contains(list.visualRect(list.currentIndex())));
    QCOMPARE(key(Qt::Key_A), QString("a a"));
    QCOMPARE(key(Qt::Key_Down), QString("b b"));
    const int rows = list.viewport()->height() / list.gridSize().height();
    key(Qt::Key_Right);
    QCOMPARE(list.code(list.ListIndex()), 'b' + rows);
    QCOMPARE(list.visualRect(list.currentIndex()).y(),
             list.visualRect(list.model()->index('b' - 32, 0)).y());
    for (int columns : {8, 30}) {
        editor->updListColumns->setValue(columns);
        QCOMPARE(list.visualRect(list.model()->index(rows, 0)).x() -
                     list.visualRect(list.model()->index(0, 0)).x(),
                 list.viewport()->width() / columns);
    }
}

void TestCustomMap::fontAndSizes()
{
    open();
    const auto sizes = [this] {
        return QString("%1 %2 %3")
            .arg(editor->lstFontChars->charFont().pointSizeF())
            .arg(editor->lblCFMap->cellFont().pointSizeF())
            .arg(editor->sldFontSize->number()->text());
    };
    editor->optFontSize[0]->click();
    QVERIFY(fillNumberBox(editor->sldFontSize, "24"));
    QCOMPARE(sizes(), QString("24 10 24"));
    QVERIFY(editor->lstFontChars->hasFocus());
    editor->optFontSize[1]->click();
    QCOMPARE(sizes(), QString("24 10 10"));
    QVERIFY(fillNumberBox(editor->sldFontSize, "99", Qt::Key_Escape));
    QVERIFY(fillNumberBox(editor->sldFontSize, "many"));
    QCOMPARE(sizes(), QString("24 8 8"));

    // The list shows the glyphs of the font that the keys choose, and none of another.
    QTest::keyClick(editor->cmbFontName, Qt::Key_Z);
    while (editor->cmbFontName->Text() != "Zt Gaps")
        QTest::keyClick(editor->cmbFontName, Qt::Key_Down);
    const auto picture = [&list = *editor->lstFontChars](int code) {
        const QModelIndex index = list.model()->index(code - 32, 0);
        list.setListIndex(index.row() + 1); // which leaves it unselected
        list.scrollTo(index);
        return list.viewport()->grab(list.visualRect(index)).toImage();
    };
    const QPoint origin = originOfFullRow(picture(FullRowCode));
    QCOMPARE(readGlyph(picture('A'), origin), (GlyphPicture{'A', 2}));
    QCOMPARE(readGlyph(picture(0xAD), origin), (GlyphPicture{0xAD, 2}));
    QVERIFY(readGlyph(picture('B'), origin).missing);
}

void TestCustomMap::everythingHasItsPlace_data()
{
    QTest::addColumn<double>("dotsPerInch");
    QTest::newRow("96") << 96.0;
    QTest::newRow("120") << 120.0;
}

void TestCustomMap::everythingHasItsPlace()
{
    QFETCH(double, dotsPerInch);
    start(dotsPerInch);
    open({"A"});
    std::set<QString> focusable;
    for (QWidget *control : editor->findChildren<QWidget *>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || !control->isVisible())
            continue;
        const QRect place = control->geometry();
        QVERIFY2(control->parentWidget()->rect().contains(place), qPrintable(name));
        for (const QObject *child : control->parent()->children()) {
            const auto *other = qobject_cast<const QWidget *>(child);
            // The box of the columns stands on the frame of the list.
            const QSet<QString> pair{name, child->objectName()};
            if (other && other != control && other->isVisible() &&
                pair != QSet<QString>{"updListColumns", "lstFontChars"})
                QVERIFY2(!place.intersects(other->geometry()),
                         qPrintable(name + " over " + other->objectName()));
        }
        if (qobject_cast<QLabel *>(control) || qobject_cast<QAbstractButton *>(control))
            QVERIFY2(control->sizeHint().width() <= place.width(), qPrintable(name));
        if (control->focusPolicy() & Qt::TabFocus)
            QVERIFY2(focusable.insert(nameOf(control)).second, qPrintable(name));
    }
    QVERIFY(focusable.size() >= 13 && !focusable.contains(QString()));
    QCOMPARE(editor->lblCFMap->reading(0), QString("65, A, A"));
    QCOMPARE(editor->lblCFMap->reading(1), QString("Empty"));
    const QModelIndex last = editor->lstFontChars->model()->index(222, 0);
    QCOMPARE(last.data(Qt::AccessibleTextRole).toString(), QString("255, ÿ, Alt+0255"));
    QStringList visited;
    do {
        visited += QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (!editor->lstFontChars->hasFocus() && visited.size() < 20);
    QCOMPARE(visited.join(' '), QString("lstFontChars cmbFontName sldFontSize optFontSize1 "
                                        "optShiftDir0 cmdMapToList btnSaveAsCFMap btnCancel "
                                        "updListColumns lblCFMap"));
}

ZENDOVA_WINDOW_TEST(TestCustomMap)

#include "tst_custommap.moc"
