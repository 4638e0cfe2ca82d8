// The font picker of the main window: how it is filled at start, what happens when the stored font
// is gone, and finding fonts by their exact names.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/GlobalDeclarations.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/Icons.h"
#include "textboard/TextBoard.h"

#include <QApplication>
#include <QTest>

namespace {

/// Runs the program once and leaves this font's name in the settings.
void store(Desktop &desktop, const QString &fontName)
{
    desktop.start();
    desktop.close();
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"TextBoard"), u"FontName", fontName, REG_SZ);
}

} // namespace

class TestFontPicking : public QObject
{
    Q_OBJECT

private slots:
    void fillsThePicker();
    void storedFont();
    void storedFontIsMissing_data();
    void storedFontIsMissing();
    void startEndsWithoutTheFont();
    void findsByTheExactName_data();
    void findsByTheExactName();
};

void TestFontPicking::fillsThePicker()
{
    Desktop desktop;
    const Zendova *window = desktop.start();
    const FontCombo *combo = window->FontNameCombo;
    QCOMPARE(combo->ItemCount(), int(FontCount));
    QCOMPARE(TTFontCount + SysFontCount, int(FontCount));
    QStringList systemFonts;
    QStringList names;
    for (int position = 1; position <= FontCount; ++position) {
        const QString name = combo->ItemText(position);
        names += name;
        QCOMPARE(name, fontFaceName(window->FontList.entry(position - 1)));
        const auto looksLike = [combo, position](const char *icon) {
            return combo->itemIcon(position - 1).pixmap(16).toImage() ==
                   Icons::icon(icon).pixmap(16).toImage();
        };
        QVERIFY(looksLike("TT") != looksLike("SF"));
        if (looksLike("SF"))
            systemFonts += name;
    }
    // "Zt Mixed" has outlines and bitmaps and counts as the former.
    QCOMPARE(systemFonts, QStringList({"Zt Bitmap", "Zt Mixed", "Zt Outline"}));
    QCOMPARE(int(SysFontCount), 3);
    QVERIFY(names.contains("Zt Maker [Foundry]") && names.contains("Zt \"One\", Two"));
    QCOMPARE(combo->Text(), QString("Arial")); // the default of a first run
    QCOMPARE(window->TBFontIndex, combo->SelectedItem());
}

void TestFontPicking::storedFont()
{
    Desktop desktop;
    store(desktop, "Zt Test 24");
    const Zendova *window = desktop.start();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->FontNameCombo->Text(), QString("Zt Test 24"));
    QCOMPARE(window->TBFontIndex, window->FontNameCombo->SelectedItem());
    QCOMPARE(window->TextBoard->FontName(), QString("Zt Test 24"));
}

void TestFontPicking::storedFontIsMissing_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("no such font") << "Gone";
    QTest::newRow("another case") << "zt latin";
    QTest::newRow("with its type") << "Zt Latin4";
}

void TestFontPicking::storedFontIsMissing()
{
    QFETCH(QString, stored);
    Desktop desktop;
    store(desktop, stored);
    desktop.Dialogs.message("Zendova Font Initialization Error",
                            "The font last used by Zendova is unavailable. Continue Loading?",
                            "Yes");
    Zendova *window = desktop.start();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->FontNameCombo->SelectedItem(), 1);
    QCOMPARE(window->TextBoard->FontName(), window->FontNameCombo->ItemText(1));
    QCOMPARE(window->TBFontName, stored);
    QCOMPARE(window->FindCurrentFontIndex(), 0);
    // The next choice makes the two agree again.
    QVERIFY(chooseFont(window, "Zt Latin"));
    QCOMPARE(window->TBFontName, QString("Zt Latin"));
    QCOMPARE(window->FindCurrentFontIndex(), window->FontNameCombo->SelectedItem());
}

void TestFontPicking::startEndsWithoutTheFont()
{
    Desktop desktop;
    store(desktop, "Gone");
    desktop.Dialogs.message("Zendova Font Initialization Error", "Press No to terminate loading.",
                            "No");
    QVERIFY_EXCEPTION_THROWN(desktop.start(), ProgramEnd);
    QVERIFY(desktop.Dialogs.allCame());
    QVERIFY(!desktop.Window->isVisible());
}

void TestFontPicking::findsByTheExactName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("found");
    QTest::newRow("there") << "Zt Symbol" << true;
    QTest::newRow("ends in a digit") << "Zt Test 24" << true;
    QTest::newRow("another case") << "zt symbol" << false;
    QTest::newRow("its beginning") << "Zt" << false;
    QTest::newRow("unknown") << "Gone" << false;
    QTest::newRow("empty") << "" << false;
}

void TestFontPicking::findsByTheExactName()
{
    QFETCH(QString, name);
    QFETCH(bool, found);
    Desktop desktop;
    Zendova *window = desktop.start();
    const FontCombo *combo = window->FontNameCombo;
    QVERIFY(chooseFont(window, "Zt Gaps"));
    const int before = window->TBFontIndex;
    QCOMPARE(combo->ItemText(before), QString("Zt Gaps"));

    QCOMPARE(window->FindFontItem(name), found);
    QCOMPARE(window->TBFontIndex != before, found);
    QCOMPARE(combo->Text(), QString("Zt Gaps")); // finding selects nothing
    window->TBFontIndex = before;

    window->SelectFontByName(name);
    const QString selected = found ? name : QString("Zt Gaps");
    QCOMPARE(combo->Text(), selected);
    QCOMPARE(window->TBFontName, selected);
    QCOMPARE(combo->ItemText(window->TBFontIndex), selected);
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestFontPicking test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontpicking.moc"
