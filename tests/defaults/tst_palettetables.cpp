// The custom colours in the settings, without a window.
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "defaults/PaletteTables.h"

#include <QTemporaryDir>
#include <QTest>

class TestPaletteTables : public QObject
{
    Q_OBJECT

private slots:
    void customColorsAreKept()
    {
        const QTemporaryDir folder;
        SettingsTree tree(folder.filePath("s.sqlite"));
        UseSettingsTree(&tree);
        QVERIFY(ReadCustomColors() == FirstCustomColors()); // of a store that never was
        for (const QStringView key : SettingsKeys)
            RegMakeKey(HKEY_CURRENT_USER, SettingsPath(key));
        ColorPalette palette = ResetCustomColors();
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
