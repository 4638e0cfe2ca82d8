// The operations on the settings and the conversions at their readers. Works on a tree in a
// temporary folder, which SQLite fills with what only a shell could write.
#include "core/GlobalDeclarations.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "tests/support/OtherProgram.h"

#include <QTemporaryDir>
#include <QTest>
#include <memory>

Q_DECLARE_METATYPE(SettingValue)

namespace {

constexpr Root User = HKEY_CURRENT_USER;
constexpr QStringView Key = u"Software\\Zendova\\Options";
const SettingValue Nothing;

SettingValue text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class TestRegistry : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> Folder;
    std::unique_ptr<SettingsTree> Tree;

    void store(const QByteArray &kindAndValue)
    {
        QVERIFY(OtherProgram(Folder->filePath("s.sqlite"))
                    .run("INSERT INTO settings VALUES('Software\\Zendova\\Options', 'a', " +
                         kindAndValue + ")"));
    }

private slots:
    void init()
    {
        Folder = std::make_unique<QTemporaryDir>();
        Tree = std::make_unique<SettingsTree>(Folder->filePath("s.sqlite"));
        UseSettingsTree(Tree.get());
        RegMakeKey(User, Key);
        RegistryError = false;
    }

    void cleanup() { UseSettingsTree(nullptr); }

    void reading_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<SettingValue>("value");
        const auto row = [](const char *name, const char *stored, const SettingValue &value) {
            QTest::newRow(name) << QByteArray(stored) << value;
        };
        row("string", "1, 'Größe €'", text("Größe €"));
        row("bytes without NUL", "1, x'414243'", Nothing);
        row("bytes with NUL", "1, x'41420043'", text("AB"));
        row("digits without quotes", "1, 72", text("72"));
        row("no value at all", "1, NULL", Nothing);
        row("colour reference", "4, 2147483656", qint32(0x80000008U));
        row("number in quotes", "4, '-2'", -2);
        row("too high a number", "4, 4294967296", Nothing);
        row("a kind of its own", "3, x'41424344'", Nothing);
    }

    void reading()
    {
        QFETCH(QByteArray, stored);
        QFETCH(SettingValue, value);
        store(stored);
        QVERIFY(RegReadValue(User, Key, u"A") == value);
        QCOMPARE(RegistryError, QByteArray(QTest::currentDataTag()) == "bytes without NUL");
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
        QVERIFY(RegReadValue(User, Key, u"a") == text("True"));
        QVERIFY(!RegistryError);
        RegDropValue(User, Key, u"A");
        QVERIFY(RegReadValue(User, Key, u"a") == Nothing);
        QVERIFY(RegistryError);
        RegDropKey(User, Key);
        QVERIFY(written(1, REG_DWORD) == Nothing); // makes no key
        UseSettingsTree(nullptr);
        QVERIFY(written(1, REG_DWORD) == Nothing);
    }

    void conversions_data()
    {
        QTest::addColumn<SettingValue>("value");
        QTest::addColumn<QVariant>("number"); // invalid: the conversion fails
        QTest::addColumn<QVariant>("truth");
        const QVariant fails;
        const auto row = [](const SettingValue &value, const QVariant &number,
                            const QVariant &truth) {
            const QByteArray name = toText(value).toUtf8();
            QTest::addRow("%d '%s'", int(value.index()), name.constData())
                << value << number << truth;
        };
        row(Nothing, 0, false);
        row(text(" \t-72 "), -72, true);
        row(text("0.5"), 0, true);
        row(text("1.5"), 2, true);
        row(text(".6"), 1, true);
        row(text("2147483647"), 2147483647, true);
        row(text("-2147483648"), qint32(-2147483647 - 1), true);
        row(text("2147483648"), fails, true);
        row(text("-2147483649"), fails, true);
        row(text("tRUE"), -1, true);
        row(text(" false "), 0, false);
        for (const char *bad : {"", "abc", "7a", "1,5", "1e3", "0x10", ".", "nan", "7\n8", "٣"})
            row(text(bad), fails, fails);
    }

    void conversions()
    {
        QFETCH(SettingValue, value);
        const auto attempt = [&value](auto convert) -> QVariant {
            try {
                return convert(value, Key, u"FontSize");
            } catch (const ConversionError &error) {
                const bool named = QString::fromUtf8(error.what()).contains(u"Options\\FontSize") &&
                                   error.text == toText(value);
                return named ? QVariant() : QVariant("the error does not name the value");
            }
        };
        QTEST(attempt(toNumber), "number");
        QTEST(attempt(toTruth), "truth");
    }

    void screenDefaults()
    {
        const std::pair<int, std::optional<ScreenDefault>> expected[] = {
            {649, {}},         {650, {{1, 10}}},   {801, {{4, 14}}},   {1024, {{4, 14}}},
            {1025, {{8, 18}}}, {1281, {{12, 22}}}, {1600, {{16, 26}}}, {1900, {{20, 30}}},
            {1901, {}},        {1902, {{24, 34}}},
        };
        for (const auto &[width, standard] : expected)
            QVERIFY2(DefaultsForScreenWidth(width) == standard, QByteArray::number(width));
    }
};

QTEST_GUILESS_MAIN(TestRegistry)

#include "tst_registry.moc"
