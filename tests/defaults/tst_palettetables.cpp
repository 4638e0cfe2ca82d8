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
        const auto lead = [](const ColorPalette &palette, const QList<std::pair<int, int>> &ways) {
            for (const auto &[from, to] : ways) // up below zero
                QCOMPARE(MoveInPalette(std::abs(from), from < 0 ? Qt::Key_Up : Qt::Key_Down,
                                       static_cast<int>(palette.size())),
                         to);
        };
        lead(PresetColors(), {{41, 2}, {48, 1}, {-1, 48}, {-2, 41}});
        lead(SystemColors(), {{17, 25}, {18, 3}, {25, 1}, {-8, 23}});
        lead(FirstCustomColors(), {{32, 40}, {33, 2}, {-9, 1}, {-8, 39}});
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

QTEST_GUILESS_MAIN(TestPaletteTables)
#include "tst_palettetables.moc"
