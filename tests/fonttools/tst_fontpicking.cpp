// The fonts of the system: the list's order, its tables and limit, and the font picker of the main
// window: how it is filled at start, what happens when the stored font is gone, finding fonts.
#include "tests/support/MainWindow.h"

#include "fonttools/FontLoadProcedure.h"
#include "platform/controls/Icons.h"

#include <stdexcept>

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
        const QStringList added{"𝐀4", "ab4", "Arial2",       "\uFFFD4", "AB4", "Z4",
                                "Ä4", "aB4", "Arial Black4", "ﬀ4",      "a4",  "_4"};
        FontList list;
        for (int i = 0; i < added.size(); ++i)
            list.add(added[i], i);
        list.sort();
        QCOMPARE(list.count(), static_cast<int>(sorted.size()));
        for (int i = 0; i < list.count(); ++i) {
            QCOMPARE(list.entry(i), sorted[i]);
            QCOMPARE(added[list.column(i)], sorted[i]);
        }
    }

    void takesFontsUpToTheLimit()
    {
        constexpr int limit = 32767;
        FontLF.resize(7); // of the last time; the first font discards them
        FontTM.resize(7);
        FontCount = 0;
        FontList list;
        const auto add = [&list](int number) {
            const QString name = QStringLiteral("F%1").arg(number, 6, 10, QChar(u'0'));
            return FontEnumProc({.lfFaceName = name}, {}, TRUETYPE_FONTTYPE, list);
        };
        for (int number = limit; number >= 1; --number)
            QCOMPARE(add(number), 1);
        QCOMPARE(FontCount, qint16(limit));
        QCOMPARE(FontLF.size(), std::size_t(limit));
        QCOMPARE(FontTM.size(), std::size_t(limit));
        // The worst order for sorting by insertion: quadratic work would run into the time limit.
        list.sort();
        QCOMPARE(list.entry(0), QStringLiteral("F0000014"));
        QCOMPARE(list.column(0), limit - 1);
        QVERIFY_EXCEPTION_THROWN(add(0), std::overflow_error);
        QCOMPARE(FontCount, qint16(limit));
    }

    void loadsTheFonts()
    {
        store("Zt Test 24");
        restart();
        const FontCombo *combo = window->FontNameCombo;
        const auto count = static_cast<int>(FontCatalog::current().families().size());
        QCOMPARE(combo->ItemCount(), count);
        QCOMPARE(int(FontCount), count);
        const QHash<QString, int> weights{{"Zt Bold Only4", 700},
                                          {"Zt Old Light4", 300},
                                          {"Zt Variable Light4", 300},
                                          {"Zt Wide Extra Light4", 200},
                                          {"Zt Wide Light4", 300}};
        QStringList entries;
        for (int i = 0; i < count; ++i) {
            const QString &entry = window->FontList.entry(i);
            const auto column = static_cast<std::size_t>(window->FontList.column(i));
            entries += entry;
            QCOMPARE(combo->ItemText(i + 1), entry.chopped(1));
            QCOMPARE(FontLF.at(column).lfFaceName, entry.chopped(1));
            QCOMPARE(FontLF.at(column).lfCharSet == 2,
                     entry == "Zt Symbol4" || entry == "Zt Liar4");
            QCOMPARE(FontLF.at(column).lfWeight, weights.value(entry, 400));
            QCOMPARE(FontTM.at(column).tmItalic, entry == "Zt Italic Only4" ? 1 : 0);
            const char *icon = entry.endsWith('4') ? "TT" : "SF";
            QCOMPARE(combo->itemIcon(i).pixmap(16).toImage(),
                     Icons::icon(icon).pixmap(16).toImage());
        }
        for (const char *entry : {"Zt Bitmap1", "Zt Mixed2", "Zt Test 244", "Zt \"One\", Two4"})
            QVERIFY2(entries.contains(entry), entry);
        QCOMPARE(int(SysFontCount), 3);
        QCOMPARE(int(TTFontCount), count - 3);
        QCOMPARE(combo->Text(), QString("Zt Test 24"));
        QCOMPARE(window->Format.TBFontIndex, combo->SelectedItem());
        QCOMPARE(window->TextBoard->FontName(), QString("Zt Test 24"));
    }

    void storedFontIsMissing()
    {
        const QString stored = "zt latin"; // names of fonts are told apart by their case
        store(stored);
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
        // The next choice makes the two agree again.
        QVERIFY(chooseFont(window, "Zt Latin"));
        QCOMPARE(window->Format.TBFontName, QString("Zt Latin"));
        QCOMPARE(window->Format.TBFontIndex, window->FontNameCombo->SelectedItem());
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

private:
    /// Leaves this font's name in the settings.
    void store(const QString &fontName)
    {
        QVERIFY(desktop->close());
        desktop->store("TextBoard", "FontName", fontName);
    }
};

ZENDOVA_WINDOW_TEST(TestFontPicking)

#include "tst_fontpicking.moc"
