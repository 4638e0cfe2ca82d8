// The seven operations on the settings, the conversions at their readers and the tables of
// defaults. Works on a tree in a temporary folder, which SQLite fills with what only a shell could
// write.
#include "core/GlobalDeclarations.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"

#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <sqlite3.h>

Q_DECLARE_METATYPE(SettingValue)
Q_DECLARE_METATYPE(WrittenValue)

namespace {

constexpr Root User = HKEY_CURRENT_USER;
constexpr QStringView Key = u"Software\\Zendova\\Options";
const SettingValue Nothing;

SettingValue text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class tst_Registry : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString m_path;
    std::unique_ptr<SettingsTree> m_tree;

    void store(const QByteArray &kindAndValue)
    {
        sqlite3 *database = nullptr;
        sqlite3_open(qPrintable(m_path), &database);
        const QByteArray sql =
            "INSERT INTO settings VALUES('Software\\Zendova\\Options', 'a', " + kindAndValue + ")";
        QCOMPARE(sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

private slots:
    void init()
    {
        static int number = 0;
        m_path = m_folder.filePath(QStringLiteral("%1.sqlite").arg(++number));
        m_tree = std::make_unique<SettingsTree>(m_path);
        UseSettingsTree(m_tree.get());
        RegMakeKey(User, Key);
        RegistryError = false;
    }

    void cleanup() { UseSettingsTree(nullptr); }

    void reading_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<SettingValue>("value");
        QTest::addColumn<bool>("error");
        const auto row = [](const char *name, const char *stored, const SettingValue &value,
                            bool error = false) {
            QTest::newRow(name) << QByteArray(stored) << value << error;
        };
        row("string", "1, 'Arial'", text("Arial"));
        row("other scripts", "1, 'Größe €'", text("Größe €"));
        row("no length", "1, ''", Nothing);
        row("no length, as bytes", "1, x''", Nothing);
        row("bytes without NUL", "1, x'414243'", Nothing, true);
        row("bytes with NUL", "1, x'41420043'", text("AB"));
        row("bytes with NUL first", "1, x'0041'", text(""));
        row("string with NUL inside", "1, 'AB' || char(0) || 'C'", text("AB"));
        row("digits as a string", "1, '72'", text("72"));
        row("number", "4, 300", 300);
        row("colour reference", "4, 2147483656", qint32(0x80000008U));
        row("digits without quotes", "1, 72", text("72"));
        row("no value at all", "1, NULL", Nothing);
        row("number in quotes", "4, '300'", 300);
        row("negative number", "4, -2", -2);
        row("highest number", "4, 4294967295", -1);
        row("too high a number", "4, 4294967296", Nothing);
        row("too low a number", "4, -2147483649", Nothing);
        row("letters for a number", "4, 'abc'", Nothing);
        row("number of two bytes", "4, x'4142'", Nothing);
        row("bytes of a kind of their own", "3, x'41424344'", Nothing);
    }

    void reading()
    {
        QFETCH(QByteArray, stored);
        QFETCH(SettingValue, value);
        store(stored);
        QVERIFY(RegReadValue(User, Key, u"A") == value);
        QTEST(RegistryError, "error");
    }

    void readingWhatIsMissing_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("tree");
        QTest::newRow("value") << Key.toString() << true;
        QTest::newRow("key") << "Software\\Zendova\\Temp" << true;
        QTest::newRow("tree") << Key.toString() << false;
    }

    void readingWhatIsMissing()
    {
        QFETCH(QString, key);
        QFETCH(bool, tree);
        if (!tree)
            UseSettingsTree(nullptr);
        QVERIFY(RegReadValue(User, key, u"missing") == Nothing);
        QVERIFY(RegistryError);
        RegWriteValue(User, key, u"a", 1, REG_DWORD);
        QVERIFY(RegReadValue(User, key, u"a") ==
                (key == Key && tree ? SettingValue(1) : Nothing)); // no key is made
        QVERIFY2(RegistryError, "only the start-up clears the flag");
    }

    void writing_data()
    {
        QTest::addColumn<WrittenValue>("written");
        QTest::addColumn<quint32>("kind");
        QTest::addColumn<SettingValue>("value");
        const auto row = [](const char *name, const WrittenValue &written, quint32 kind,
                            const SettingValue &value) {
            QTest::newRow(name) << written << kind << value;
        };
        row("string", QStringLiteral("a b"), REG_SZ, text("a b"));
        row("truth as a string", true, REG_SZ, text("True"));
        row("falsehood as a string", false, REG_SZ, text("False"));
        row("number as a string", -72, REG_SZ, text("-72"));
        row("empty string", QString(), REG_SZ, Nothing);
        row("nothing as a string", {}, REG_SZ, Nothing);
        row("number", -60, REG_DWORD, -60);
        row("colour reference", qint32(0x80000008U), REG_DWORD, qint32(0x80000008U));
        row("digits as a number", QStringLiteral("72"), REG_DWORD, 72);
        row("truth as a number", true, REG_DWORD, -1);
        row("nothing as a number", {}, REG_DWORD, 0);
        row("another kind", QStringLiteral("new"), 3, text("old"));
    }

    void writing()
    {
        QFETCH(WrittenValue, written);
        QFETCH(quint32, kind);
        QFETCH(SettingValue, value);
        QVERIFY(RegWriteRaw({Key}, u"a", REG_SZ, QStringLiteral("old")));
        RegWriteValue(User, Key, u"a", written, kind);
        QVERIFY(RegReadValue(User, Key, u"A") == value);
        QVERIFY(!RegistryError);
    }

    void writingTextAsANumberFailsAtTheConversion()
    {
        RegWriteValue(User, Key, u"a", 1, REG_DWORD);
        QVERIFY_EXCEPTION_THROWN(RegWriteValue(User, Key, u"a", QStringLiteral("many"), REG_DWORD),
                                 ConversionError);
        QVERIFY(RegReadValue(User, Key, u"a") == SettingValue(1));
    }

    void dropping()
    {
        RegWriteValue(User, Key, u"a", 1, REG_DWORD);
        RegDropKey(User, SettingsRoot); // has a subkey
        RegMakeKey(User, Key);          // is there
        QVERIFY(RegReadValue(User, Key, u"a") == SettingValue(1));
        RegDropValue(User, Key, u"A");
        RegDropValue(User, Key, u"A");
        QVERIFY(!RegistryError);
        QVERIFY(RegReadValue(User, Key, u"a") == Nothing);
        RegDropKey(User, Key);
        RegWriteValue(User, Key, u"b", 1, REG_DWORD);
        QVERIFY(RegReadValue(User, Key, u"b") == Nothing);
    }

    void groupedWritesReachTheFileTogether()
    {
        SettingsTree otherCopy(m_path);
        {
            const auto group = GroupRegWrites();
            RegWriteValue(User, Key, u"a", 1, REG_DWORD);
            QVERIFY(!otherCopy.value(Key, u"a"));
        }
        QVERIFY(otherCopy.value(Key, u"a"));
        UseSettingsTree(nullptr);
        const auto groupOfNothing = GroupRegWrites();
        RegMakeKey(User, Key);
        RegDropKey(User, Key);
        RegDropValue(User, Key, u"a");
        QVERIFY(otherCopy.value(Key, u"a"));
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
        row(-5, -5, true);
        row(0, 0, false);
        row(text("72"), 72, true);
        row(text(" \t-72 "), -72, true);
        row(text("+0"), 0, false);
        row(text("0.5"), 0, true);
        row(text("1.5"), 2, true);
        row(text("2.5"), 2, true);
        row(text("2.51"), 3, true);
        row(text("-3.5"), -4, true);
        row(text("4."), 4, true);
        row(text(".6"), 1, true);
        row(text("2147483647"), 2147483647, true);
        row(text("2147483647.5"), fails, true);
        row(text("-2147483648"), qint32(-2147483647 - 1), true);
        row(text("2147483648"), fails, true);
        row(text("-2147483649"), fails, true);
        row(text("True"), -1, true);
        row(text("tRUE"), -1, true);
        row(text(" false "), 0, false);
        for (const char *bad : {"", " ", "abc", "7a", "1 2", "1,5", "1e3", "0x10", "--1", ".", "+",
                                "inf", "nan", "Truer", "7\n8", "٣"})
            row(text(bad), fails, fails);
    }

    void conversions()
    {
        QFETCH(SettingValue, value);
        QFETCH(QVariant, number);
        QFETCH(QVariant, truth);
        const auto attempt = [&value](auto convert) -> QVariant {
            try {
                return convert(value, Key, u"FontSize");
            } catch (const ConversionError &error) {
                // The report needs all three, on a copy of what was thrown too.
                const ConversionError copy = error;
                const bool named = copy.key == Key && copy.name == u"FontSize" &&
                                   copy.text == toText(value) &&
                                   QString::fromUtf8(copy.what()).contains(u"Options\\FontSize");
                return named ? QVariant() : QVariant("the error does not name the value");
            }
        };
        QCOMPARE(attempt(toNumber), number);
        QCOMPARE(attempt(toTruth), truth);
    }

    void screenDefaults_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("sizeIndex"); // 0: no row
        QTest::addColumn<int>("fontSize");
        const auto row = [](int width, int sizeIndex, int fontSize) {
            QTest::addRow("%d", width) << width << sizeIndex << fontSize;
        };
        row(649, 0, 0);
        row(650, 1, 10);
        row(800, 1, 10);
        row(801, 4, 14);
        row(1024, 4, 14);
        row(1280, 8, 18);
        row(1281, 12, 22);
        row(1600, 16, 26);
        row(1601, 20, 30);
        row(1900, 20, 30);
        row(1901, 0, 0);
        row(1902, 24, 34);
        row(7680, 24, 34);
        row(-1, 0, 0);
    }

    void screenDefaults()
    {
        QFETCH(int, width);
        QFETCH(int, sizeIndex);
        QFETCH(int, fontSize);
        const auto standard = DefaultsForScreenWidth(width);
        QCOMPARE(standard.has_value(), sizeIndex != 0);
        if (standard)
            QCOMPARE(*standard, (ScreenDefault{sizeIndex, fontSize}));
    }

    // A slip in the tables would be a value that nobody reads, or one that its reader cannot take.
    void everyDefaultGoesThroughTheTree()
    {
        for (const QStringView key : SettingsKeys)
            RegMakeKey(User, SettingsPath(key));
        QStringList seen;
        for (const SettingDefault &row : SettingDefaults) {
            const QString path = SettingsPath(row.key);
            const auto *standard = std::get_if<qint32>(&row.standard);
            QCOMPARE(row.kind, standard ? REG_DWORD : REG_SZ);
            QVERIFY(row.key.isEmpty() || std::ranges::count(SettingsKeys, row.key) == 1);
            const SettingValue value =
                standard ? SettingValue(*standard) : std::get<QStringView>(row.standard).toString();
            if (standard)
                RegWriteValue(User, path, row.value, *standard, row.kind);
            else
                RegWriteValue(User, path, row.value, toText(value), row.kind);
            QVERIFY2(RegReadValue(User, path, row.value) == value, qPrintable(path));
            seen << QString(path).append(u'\\').append(row.value).toLower();
        }
        QCOMPARE(seen.removeDuplicates(), 0);
        QVERIFY(!RegistryError);
    }

    // Each label names its colour: these are the usual values of the names, but for one.
    void customColors()
    {
        QStringList labels;
        for (const CustomColorDefault &color : CustomColorDefaults) {
            QVERIFY(!color.label.isEmpty());
            QCOMPARE(color.stored & ~0xffffff, 0);
            labels << color.label.toString();
        }
        QCOMPARE(labels.removeDuplicates(), 0);
        QCOMPARE(CustomColorDefaults[0].stored, 205 << 16);
        QCOMPARE(CustomColorDefaults[14].stored, 139);
        QCOMPARE(CustomColorDefaults[25].stored, 34 << 16 | 151 << 8 | 226);
        QCOMPARE(CustomColorDefaults[39].stored, 240 << 16 | 255 << 8 | 255);
    }
};

QTEST_GUILESS_MAIN(tst_Registry)

#include "tst_registry.moc"
