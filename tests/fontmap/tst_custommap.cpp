// The editor of custom maps as a person works it: filling slots, saving, closing, keys and sizes;
// what stands in the file afterwards, and what is said when it can't be written.
#include "fontmap/CharList.h"
#include "fontmap/CustomMap.h"
#include "tests/support/MainWindow.h"

namespace {

constexpr ExpectedMessage Pending{
    " Custom Map Save Warning", "\r\rThere are changes pending to be saved\rwhich will be lost "
                                "if you exit now.\r\rDo you really want to close the Editor?\r\r"};
constexpr ExpectedMessage NotSaved{" Custom Map Save Error", "%1"};

void click(QWidget *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

/// Names of the controls that reach out of their parent, lie on another, or cut their text off.
QStringList misplaced(const QWidget *window)
{
    QStringList faults;
    QList<QWidget *> controls = window->findChildren<QWidget *>(QRegularExpression("^[^q].+"));
    controls.removeIf([](const QWidget *control) { return !control->isVisible(); });
    for (const QWidget *control : controls) {
        const QRect place = control->geometry();
        const bool isText = control->inherits("QLabel") || control->inherits("QAbstractButton");
        if (!control->parentWidget()->rect().contains(place) ||
            (isText && control->sizeHint().width() > place.width()) ||
            std::ranges::any_of(controls, [&](const QWidget *other) {
                return other != control && other->parent() == control->parent() &&
                       other->geometry().intersects(place);
            }))
            faults += control->objectName();
    }
    return faults;
}

} // namespace

class TestCustomMap : public WindowTest
{
    Q_OBJECT

private slots:
    void cleanup() override
    {
        editor.reset();
        QApplication::setFont(QFont());
        MapEditSaved = false;
        WindowTest::cleanup();
    }

    void composes()
    {
        open();
        QCOMPARE(state(), "0 black, to map to map 224 0");
        QTest::keyClicks(editor->lstFontChars, "\"");
        for (int n = 0; n < 3; ++n)
            click(editor->cmdListToMap);
        QCOMPARE(state(), "3 highlight, to map to map 221 3");
        QVERIFY(!editor->btnSaveCFMap->isEnabled());
        editor->optShiftDir[1]->click();
        clickSlot(195);
        for (int n = 0; n < 2; ++n)
            click(editor->cmdListToMap);
        QCOMPARE(state(), "0 highlight, to list to list 219 5");
        clickSlot(1);
        click(editor->cmdMapToList);
        QCOMPARE(state(), "196 black, to map to map 220 4");
        QCOMPARE(editor->lblTextZoom->Caption(0), "'"); // is selected yet

        CustomMapFile::Captions expected;
        expected[0] = "\"";
        expected[2] = "$";
        expected[195] = "%";
        expected[223] = "&";
        saveAs("b.zcm");
        QCOMPARE(contentOf(path("b.zcm")), CustomMapFile::write(expected));
        QCOMPARE(editor->windowTitle(), "Zendova Custom FontMap Editor :  b.zcm");
        QVERIFY(!FileLock::exclusive(path("b.zcm")).isHeld());
        editor->cmdListToMap->setFocus();
        QTest::keyClick(editor->cmdListToMap, Qt::Key_Return);
        click(editor->btnSaveCFMap);
        expected[196] = "'";
        QCOMPARE(contentOf(path("b.zcm")), CustomMapFile::write(expected));
        QTest::keyClick(editor.get(), Qt::Key_Escape);
        QVERIFY(!editor->isVisible() && !MapEditSaved); // it is no loaded map
    }

    void edits()
    {
        open({"A", "", "\"", "Q9"});
        QCOMPARE(state(), "0 black, to list to list 221 3");
        clickSlot(1);
        click(editor->cmdListToMap);
        saveAs("b.zcm");
        QCOMPARE(contentOf(path("b.zcm")), CustomMapFile::write({"A", " ", "\"", "Q9"}));
        editor->reject();
        QVERIFY(!MapEditSaved);
        open({"A"});
        click(editor->cmdMapToList);
        QTest::keySequence(editor.get(), QKeySequence("Ctrl+S"));
        QCOMPARE(contentOf(path("a.zcm")), CustomMapFile::write({}));
        QVERIFY(!FileLock::shared(path("a.zcm")).isHeld());
        click(editor->btnCancel);
        QVERIFY(MapEditSaved && FileLock::exclusive(path("a.zcm")).isHeld());

        // What is no map, or is not there, is not edited.
        writeFile(path("a.zcm"), CustomMapFile::write({}).chopped(9));
        QCOMPARE(editor->SetupEditCFMap(path("a.zcm"), {}, 1, {}, 10), QString());
        QVERIFY(!editor->SetupEditCFMap(path("none.zcm"), {}, 1, {}, 10)->isEmpty());
    }

    void keepsWhatCantBeSaved()
    {
        open({"A"});
        click(editor->cmdMapToList);
        FileLock other = FileLock::shared(path("a.zcm"));
        expect(NotSaved, "Ok", "another copy of Zendova");
        click(editor->btnSaveCFMap);
        other.release();
        {
            const FullDisk disk;
            expect(NotSaved, "Ok", path("a.zcm"));
            click(editor->btnSaveCFMap);
        }
        QCOMPARE(contentOf(path("a.zcm")), CustomMapFile::write({"A"}));
        QVERIFY(!FileLock::exclusive(path("a.zcm")).isHeld());
        click(editor->btnSaveCFMap);
        QCOMPARE(contentOf(path("a.zcm")), CustomMapFile::write({}));
    }

    void asksBeforeClosing()
    {
        open();
        editor->updListColumns->stepUp();
        editor->optShiftDir[1]->click();
        click(editor->cmdListToMap);
        expect(Pending, "No");
        QVERIFY(!editor->close() && editor->isVisible());
        QCOMPARE(desktop->setting("CFMEditor", "ShiftDir"), "1");
        expect(Pending, "Yes");
        editor->MapExit->trigger();
        QVERIFY(!editor->isVisible());
        open();
        QVERIFY(editor->optShiftDir[1]->isChecked());
        QCOMPARE(editor->lstFontChars->Columns(), 11);
    }

    void keysLeaveTheButtons()
    {
        open({"A"});
        clickSlot(0);
        QVERIFY(editor->imgCMMFMapHolder->hasFocus());
        QTest::keyClick(editor->lblCFMap, Qt::Key_Up);
        editor->cmdMapToList_Click(); // nothing is there
        QCOMPARE(state(), "223 black, to list to list 223 1");
        // The keys of the menu go by the slot of now.
        QTest::keySequence(editor->lblCFMap, QKeySequence("Ctrl+Down"));
        QCOMPARE(state(), "0 highlight, to list to list 222 2");
        QTest::keySequence(editor->cmdMapToList, QKeySequence("Ctrl+Down")); // A stays
        QVERIFY(editor->cmdMapToList->hasFocus());
        QTest::keySequence(editor->cmdMapToList, QKeySequence("Ctrl+Up"));
        QCOMPARE(state(), "223 black, to list to list 223 1");
        clickSlot(5);
        QTest::keyClick(editor->lblCFMap, Qt::Key_End);
        QTest::keyClick(editor->lblCFMap, Qt::Key_Tab);
        QCOMPARE(state(), "223 black, to list to list 223 1");
        QTest::keyClick(editor->lstFontChars, Qt::Key_Down);
        QCOMPARE(state(), "223 highlight, to list to list 223 1");
    }

    void listByKeys()
    {
        open();
        CharList &list = *editor->lstFontChars;
        const auto pressed = [&](Qt::Key key) {
            QTest::keyClick(&list, key);
            return editor->lblTextZoom->Caption(0) + ' ' + editor->lblKeyStroke->text();
        };
        QVERIFY(list.hasFocus());
        QCOMPARE(pressed(Qt::Key_End), "ÿ Alt+0255");
        QVERIFY(list.viewport()->rect().contains(list.visualRect(list.currentIndex())));
        QCOMPARE(pressed(Qt::Key_A), "a a"); // not "A", which stands before it
        QCOMPARE(pressed(Qt::Key_Down), "b b");
        const QRect before = list.visualRect(list.currentIndex());
        pressed(Qt::Key_Right);
        QCOMPARE(list.visualRect(list.currentIndex()), before.translated(before.width(), 0));
        QTest::mouseMove(editor->lblCFMap, {1, 1}); // or the next one may be none
        QTest::mouseMove(editor->lblCFMap, editor->lblCFMap->pixels(9).center());
        QCOMPARE(editor->lblTextZoom->Caption(0) + editor->lblKeyStroke->text(), QString());
    }

    void fontAndSizes()
    {
        open();
        const auto sizes = [this] {
            return QString("%1 %2 %3")
                .arg(editor->lstFontChars->charFont().pointSizeF())
                .arg(editor->lblCFMap->cellFont().pointSizeF())
                .arg(editor->sldFontSize->number()->text());
        };
        QCOMPARE(sizes(), "10.5 10 10");
        editor->optFontSize[0]->click();
        QVERIFY(fillNumberBox(editor->sldFontSize, "24") && editor->lstFontChars->hasFocus());
        editor->optFontSize[1]->click();
        QCOMPARE(sizes(), "24 10 10");
        QVERIFY(fillNumberBox(editor->sldFontSize, "many"));
        QCOMPARE(sizes(), "24 8 8");

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
        QCOMPARE(readGlyph(picture(0xAD), origin), (GlyphPicture{0xAD, 2}));
        QVERIFY(readGlyph(picture('B'), origin).missing);
    }

    void everythingHasItsPlace()
    {
        // As high and wide as a text font of 8.25 points.
        QFont font("sans-serif");
        font.setPixelSize(11);
        font.setLetterSpacing(QFont::PercentageSpacing, 50);
        QApplication::setFont(font);
        for (const double dotsPerInch : {96.0, 120.0}) {
            editor.reset();
            begin({1280, 1024}, dotsPerInch);
            open({"A"});
            // The box of the columns stands on the frame of the list.
            QCOMPARE(misplaced(editor.get()), QStringList({"lstFontChars", "updListColumns"}));
            QStringList visited;
            do {
                visited += QApplication::focusWidget()->objectName();
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            } while (!editor->lstFontChars->hasFocus() && visited.size() < 20);
            QCOMPARE(visited.join(' '), "lstFontChars cmbFontName sldFontSize optFontSize1 "
                                        "optShiftDir0 cmdMapToList btnSaveAsCFMap "
                                        "btnCancel updListColumns lblCFMap");
        }
        QCOMPARE(editor->lblCFMap->reading(0), "65, A, A");
        QCOMPARE(editor->lblCFMap->reading(1), "Empty");
        QCOMPARE(QAccessible::queryAccessibleInterface(editor->lstFontChars)
                     ->child(95)
                     ->text(QAccessible::Name),
                 "128, €, Ctrl+2");
    }

private:
    /// The editor on a file with these texts, or on an empty map.
    void open(const CustomMapFile::Captions &texts = {})
    {
        editor = std::make_unique<CustomMap>(window->FontList, nullptr);
        QVERIFY(window->FindFontItem("Zt Latin"));
        const int font = window->Format.TBFontIndex;
        writeFile(path("a.zcm"), CustomMapFile::write(texts));
        if (texts == CustomMapFile::Captions())
            editor->SetupNewCFMap(font, "Zt Latin", 10.5);
        else
            QVERIFY(!editor->SetupEditCFMap(path("a.zcm"), "a.zcm", font, "Zt Latin", 10));
        bool shown = false;
        desktop->Dialogs.dialog(editor->windowTitle(), [&](QDialog *) { shown = true; });
        editor->show();
        activate(editor.get());
        QVERIFY(QTest::qWaitFor([&] { return shown; }));
    }
    QString path(const char *name) const { return desktop->Folder.filePath(name); }
    void saveAs(const char *name)
    {
        desktop->Dialogs.dialog("Save Custom Map As", [whole = path(name)](QDialog *dialog) {
            typeFileName(dialog, whole);
        });
        click(editor->btnSaveAsCFMap);
    }
    void clickSlot(int slot) const
    {
        QTest::mouseClick(editor->lblCFMap, Qt::LeftButton, {},
                          editor->lblCFMap->pixels(slot).center());
    }
    /// The highlighted slots, what is behind them, the moves on offer by buttons and menu, counts.
    QString state() const
    {
        QString shown;
        for (int slot = 0; slot < CellCount; ++slot)
            if (const ColorValue back = editor->lblCFMap->BackColor(slot); back != 0xFFFFFF)
                shown += QString("%1 %2, ").arg(slot).arg(back == 0 ? "black" : "highlight");
        shown += editor->cmdListToMap->isEnabled() ? "to map " : "";
        shown += editor->MoveLtoM->isEnabled() ? "to map " : "";
        shown += editor->cmdMapToList->isEnabled() ? "to list " : "";
        shown += editor->MoveMtoL->isEnabled() ? "to list " : "";
        return shown + editor->lblCharsInList->text() + ' ' + editor->lblCharsInMap->text();
    }

    std::unique_ptr<CustomMap> editor;
};

ZENDOVA_WINDOW_TEST(TestCustomMap)

#include "tst_custommap.moc"
