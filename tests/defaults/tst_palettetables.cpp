// The palettes without their window: where keys lead, and the custom colours in the settings.
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "defaults/PaletteTables.h"

#include <QTemporaryDir>
#include <QTest>

class TestPaletteTables : public QObject
{
    Q_OBJECT

private slots:
    void keysMoveByTheirPalette()
    {
        const struct
        {
            std::size_t Count;
            int From;
            Qt::Key Key;
            int To;
        } rows[] = {
            {48, 41, Qt::Key_Down, 2}, {48, 48, Qt::Key_Down, 1},  {48, 1, Qt::Key_Up, 48},
            {48, 2, Qt::Key_Up, 41},   {25, 17, Qt::Key_Down, 25}, {25, 18, Qt::Key_Down, 3},
            {25, 8, Qt::Key_Up, 23},   {25, 1, Qt::Key_Left, 25},  {40, 32, Qt::Key_Down, 40},
            {40, 33, Qt::Key_Down, 2}, {40, 9, Qt::Key_Up, 1},     {40, 40, Qt::Key_Right, 1},
        };
        QCOMPARE(PresetColors().size() + SystemColors().size() + FirstCustomColors().size(),
                 std::size_t(48 + 25 + 40));
        for (const auto &row : rows)
            QCOMPARE(MoveInPalette(row.From, row.Key, static_cast<int>(row.Count)), row.To);
    }

    void customColorsAreKept()
    {
        const QTemporaryDir folder;
        SettingsTree tree(folder.filePath("s.sqlite"));
        UseSettingsTree(&tree);
        QVERIFY(ReadCustomColors() == FirstCustomColors()); // of a store that never was
        for (const QStringView key : SettingsKeys)
            RegMakeKey(HKEY_CURRENT_USER, SettingsPath(key));
        ColorPalette palette = ResetCustomColors();
        QCOMPARE(palette[25].Color, RGBValue(0xB2, 0x22, 0x22));
        QVERIFY(AreCustomColorsChanged(palette) && !AreCustomColorsChanged(FirstCustomColors()));
        palette[0] = {.Color = SystemColorValue(8), .Label = ""};
        palette[39] = {.Color = RGBValue(1, 2, 3), .Label = "Мой & <b>цвет</b>"};
        WriteCustomColors(palette);
        QVERIFY(ReadCustomColors() == palette);
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(u"CustomColors"), u"7", QString("red"),
                      REG_SZ);
        QVERIFY_EXCEPTION_THROWN(ReadCustomColors(), ConversionError);
        UseSettingsTree(nullptr);
    }
};

QTEST_GUILESS_MAIN(TestPaletteTables)
#include "tst_palettetables.moc"
