// The values of the dialog of defaults and the custom colours in the settings, without a window.
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "defaults/OptionValues.h"
#include "defaults/PaletteTables.h"

#include <QTemporaryDir>
#include <QTest>

class TestDefaultValues : public QObject
{
    Q_OBJECT

private slots:
    void codesBeyondTheLimits()
    {
        for (const auto &[code, zoomed, first] : {std::tuple(32, 64, 60),
                                                  {33, 33, 33},
                                                  {243, 243, 243},
                                                  {244, 244, 60},
                                                  {256, 64, 60}}) {
            OptionValues values;
            values.ZoomedLetter = values.OFMapStart = code;
            values = Sensible(values);
            QCOMPARE(values.ZoomedLetter, zoomed);
            QCOMPARE(values.OFMapStart, first);
        }
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

QTEST_GUILESS_MAIN(TestDefaultValues)
#include "tst_defaultvalues.moc"
