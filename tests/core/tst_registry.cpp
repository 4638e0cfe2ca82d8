// The operations on the settings, the conversions at their readers and the report of one that
// fails. Works on a file which SQLite fills with what only a shell could write.
#include "core/GlobalDeclarations.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "tests/support/OtherProgram.h"

#include <QtTest>

namespace {

constexpr Root User = HKEY_CURRENT_USER;
constexpr QStringView Key = u"Software\\Zendova\\Options";
const SettingValue Nothing;
const auto text = [](const char *utf8) -> SettingValue { return QString::fromUtf8(utf8); };

} // namespace

class TestRegistry : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        UseSettingsTree(&Tree);
        RegMakeKey(User, Key);
        RegistryError = false;
    }
    void cleanup() { UseSettingsTree(nullptr); }

    void reading()
    {
        for (const auto &[stored, value, fails] : {
                 std::tuple("1, 'Größe €'", text("Größe €"), false),
                 {"1, x'414243'", Nothing, true}, // bytes without NUL
                 {"1, x'41420043'", text("AB"), false},
                 {"1, 72", text("72"), false},
                 {"1, NULL", Nothing, false},
                 {"4, 2147483656", qint32(0x80000008U), false},
                 {"4, '-2'", -2, false},
                 {"4, 4294967296", Nothing, false},
                 {"3, x'41424344'", Nothing, false},
             }) {
            const QString sql = "DELETE FROM settings; INSERT INTO settings VALUES('%1', 'a', %2)";
            QVERIFY(OtherProgram(Folder.filePath("s.sqlite")).run(sql.arg(Key, stored)));
            RegistryError = false;
            QVERIFY2(RegReadValue(User, Key, u"A") == value, stored);
            QVERIFY2(RegistryError == fails, stored);
        }
    }

    void writing()
    {
        const auto written = [](const WrittenValue &value, quint32 kind) {
            RegWriteValue(User, Key, u"a", value, kind);
            return RegReadValue(User, Key, u"A");
        };
        QVERIFY(written(qint32(0x80000008U), REG_DWORD) == SettingValue(qint32(0x80000008U)));
        QVERIFY(written({}, REG_DWORD) == SettingValue(0));
        QVERIFY(written(-72, REG_SZ) == text("-72"));
        QVERIFY(written(true, REG_SZ) == text("True"));
        QVERIFY(written(QStringLiteral("no such kind"), 3) == text("True"));
        QVERIFY_EXCEPTION_THROWN(written(QStringLiteral("many"), REG_DWORD), ConversionError);
        RegDropKey(User, SettingsRoot); // has a subkey
        QVERIFY(RegReadValue(User, Key, u"a") == text("True") && !RegistryError);
        RegDropValue(User, Key, u"A");
        QVERIFY(RegReadValue(User, Key, u"a") == Nothing && RegistryError);
        RegDropKey(User, Key);
        QVERIFY(written(1, REG_DWORD) == Nothing); // makes no key
        UseSettingsTree(nullptr);
        QVERIFY(written(1, REG_DWORD) == Nothing);
    }

    void conversions()
    {
        const auto results = [](auto convert, const QStringList &texts) {
            QString found;
            for (const QString &text : texts) {
                try {
                    found += QString("%1 ").arg(convert(text, Key, u"FontSize"));
                } catch (const ConversionError &error) {
                    found += error.text == text ? "- " : "other text ";
                }
            }
            return found;
        };
        const QStringList texts = {" \t-72 ",     "0.5",        "1.5",         ".6",   "2147483647",
                                   "-2147483648", "2147483648", "-2147483649", "tRUE", " false "};
        QCOMPARE(results(toNumber, texts), "-72 0 2 1 2147483647 -2147483648 - - -1 0 ");
        QCOMPARE(results(toTruth, texts), "1 1 1 1 1 1 1 1 1 0 ");
        const QStringList bad = {"", "abc", "7a", "1,5", "1e3", "0x10", ".", "nan", "7\n8", "٣"};
        QCOMPARE(results(toNumber, bad) + results(toTruth, bad), QString("- ").repeated(20));
        QVERIFY(toNumber(Nothing, Key, u"a") == 0 && !toTruth(Nothing, Key, u"a"));
        // The report fits on a line.
        const QString smile = QString::fromUtf8("\U0001F600"); // a pair at either cut
        const QString value =
            QString(38, 'a') + smile + QString(99, 'b') + smile + QString(19, 'c');
        const ConversionError cut(u"Some\\Key", u"FontSize", value);
        QVERIFY(QString::fromUtf8(cut.what())
                    .endsWith("Some\\Key\\FontSize cannot be converted: \"" + QString(38, 'a') +
                              QChar(0x2026) + QString(19, 'c') + '"'));
        const ConversionError whole(u"", u"", "a\nb\r\u0007c\u2028d\u202Ee" + QString(49, 'f'));
        QVERIFY(QString::fromUtf8(whole.what()).endsWith(" \"a b  c d e" + QString(49, 'f') + '"'));
    }

    void screenDefaults()
    {
        QString sizes; // of the map and the font
        for (const int width : {649, 650, 801, 1024, 1025, 1281, 1600, 1900, 1901, 1902}) {
            const auto standard = DefaultsForScreenWidth(width);
            sizes += standard ? QString("%1 %2, ").arg(standard->SizeIndex).arg(standard->FontSize)
                              : "-, ";
        }
        QCOMPARE(sizes, QString("-, 1 10, 4 14, 4 14, 8 18, 12 22, 16 26, 20 30, -, 24 34, "));
    }

private:
    QTemporaryDir Folder;
    SettingsTree Tree{Folder.filePath("s.sqlite")};
};

QTEST_GUILESS_MAIN(TestRegistry)
#include "tst_registry.moc"
