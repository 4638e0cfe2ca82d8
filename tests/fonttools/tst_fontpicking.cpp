// The fonts of the system: the list's order; the font picker of the window: how it is filled at
// start, what happens when the stored font is gone, finding fonts.
#include "tests/support/MainWindow.h"

#include "fonttools/FontLoadProcedure.h"
#include "platform/controls/Icons.h"

class TestFontPicking : public WindowTest
{
    Q_OBJECT

private slots:
    void sortsByTheWholeEntry()
    {
        // Folded code points, no rules of a language: "_" comes before "a", a blank before the
        // type's digit, and equal entries keep their order.
        const QStringList sorted{"_4",     "a4", "ab4", "AB4", "aB4",     "Arial Black4",
                                 "Arial2", "Z4", "Ä4",  "ﬀ4",  "\uFFFD4", "𝐀4"};
        FontList list;
        QList<int> order{11, 2, 6, 10, 3, 7, 8, 4, 5, 9, 1, 0};
        for (const int place : order)
            list.add(sorted[place], place);
        list.sort();
        for (int i = 0; i < sorted.size(); ++i) {
            QCOMPARE(list.entry(i), sorted[i]);
            QCOMPARE(list.column(i), i);
        }
    }

    void loadsTheFonts()
    {
        desktop->store("TextBoard", "FontName", "Zt Test 24");
        restart();
        const FontCombo *combo = window->FontNameCombo;
        const auto count = static_cast<int>(FontCatalog::current().families().size());
        QCOMPARE(combo->ItemCount(), count);
        QCOMPARE(int(FontCount), count);
        QStringList odd;
        for (int i = 0; i < count; ++i) {
            const QString &entry = window->FontList.entry(i);
            const auto column = static_cast<std::size_t>(window->FontList.column(i));
            QCOMPARE(combo->ItemText(i + 1), entry.chopped(1));
            QCOMPARE(FontLF.at(column).lfFaceName, entry.chopped(1));
            QCOMPARE(FontTM.at(column).tmItalic, entry == "Zt Italic Only4" ? 1 : 0);
            if (FontLF.at(column).lfCharSet == 2 || FontLF.at(column).lfWeight == 200)
                odd += entry;
            const char *icon = entry.endsWith('4') ? "TT" : "SF";
            QCOMPARE(combo->itemIcon(i).pixmap(16).toImage(),
                     Icons::icon(icon).pixmap(16).toImage());
        }
        QCOMPARE(odd.join(' '), QString("Zt Liar4 Zt Symbol4 Zt Wide Extra Light4"));
        QCOMPARE(int(SysFontCount), 3);
        QCOMPARE(int(TTFontCount), count - 3);
        QCOMPARE(window->Format.TBFontIndex, combo->SelectedItem());
        QCOMPARE(board()->FontName(), QString("Zt Test 24"));
    }

    void storedFontIsMissing()
    {
        const QString stored = "zt latin"; // names of fonts are told apart by their case
        desktop->store("TextBoard", "FontName", stored);
        expect(Says::FontGone, "No");
        QVERIFY_THROWS_EXCEPTION(ProgramEnd, desktop->start());
        QVERIFY(!desktop->Window->isVisible());

        expect(Says::FontGone, "Yes");
        restart();
        QVERIFY(desktop->Dialogs.allCame());
        QCOMPARE(window->FontNameCombo->SelectedItem(), 1);
        QCOMPARE(window->TextBoard->FontName(), window->FontNameCombo->ItemText(1));
        QCOMPARE(window->Format.TBFontName, stored);
        QCOMPARE(window->FindCurrentFontIndex(), 0);
        QVERIFY(chooseFont(window, "Zt Latin"));
        QCOMPARE(window->Format.TBFontName, QString("Zt Latin"));
        QCOMPARE(window->FindCurrentFontIndex(), window->FontNameCombo->SelectedItem());
    }

    void findsByTheExactName()
    {
        const QString before = "Zt Gaps";
        const FontCombo *combo = window->FontNameCombo;
        const QString last = combo->ItemText(combo->ItemCount());
        QCOMPARE(combo->Text(), QString("Arial")); // the default of a first run
        for (const QString &name :
             {QString("Zt Symbol"), last, QString("zt symbol"), QString("Zt"), QString()}) {
            const bool found = name == "Zt Symbol" || name == last;
            const QString wanted = found ? name : before;
            QVERIFY(chooseFont(window, before));
            window->SelectFontByName(name);
            QCOMPARE(combo->Text(), wanted);
            QCOMPARE(window->Format.TBFontName, wanted);
            QVERIFY(chooseFont(window, before));
            QCOMPARE(window->FindFontItem(name), found);
            QCOMPARE(combo->ItemText(window->Format.TBFontIndex), wanted);
            QCOMPARE(combo->Text(), before); // finding selects nothing
        }
    }

    void walksThroughAllFonts()
    {
        makeGlyphsReadable(window);
        const FontCatalog &catalog = FontCatalog::current();
        const QString kept = fontFaceName(window->FontList.entry(2));
        FontCatalog::current().keep(kept);
        for (int round = 0; round < 2; ++round)
            for (int row = 0; row < window->FontList.count(); ++row)
                QVERIFY(chooseFont(window, fontFaceName(window->FontList.entry(row))));
        int loaded = 0;
        for (int row = 0; row < window->FontList.count(); ++row)
            loaded += catalog.isLoaded(fontFaceName(window->FontList.entry(row)));
        QVERIFY2(loaded <= 22, qPrintable(QString::number(loaded))); // those of late, and the kept
        QVERIFY(window->FontList.count() > 25);
        QVERIFY(catalog.isLoaded(kept));
        QVERIFY(chooseFont(window, "Zt Second"));
        QCOMPARE(firstGlyph(window, "A"), (GlyphPicture{.code = 'A', .font = 18}));
    }

    void listGivesTheFocusBack()
    {
        FontCombo *fonts = window->FontNameCombo;
        fonts->setFocus();
        keys("Down"); // on the closed box
        QVERIFY(fonts->hasFocus());
        fonts->showPopup();
        QVERIFY(fonts->view()->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff);
        QTest::keyClick(fonts->view(), Qt::Key_Down);
        QTest::keyClick(fonts->view(), Qt::Key_Return);
        QTRY_VERIFY(board()->hasFocus());
    }
};

ZENDOVA_WINDOW_TEST(TestFontPicking)

#include "tst_fontpicking.moc"
