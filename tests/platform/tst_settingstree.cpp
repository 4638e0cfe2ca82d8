// The settings file as a store: its operations, and what becomes of it when it is damaged, locked,
// unwritable or its writer breaks off.
#include "platform/SettingsTree.h"
#include "tests/support/Files.h"
#include "tests/support/OtherProgram.h"

#include <QtTest>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr QStringView Key = u"Software\\Zendova\\Options";
constexpr int Filled = 100; // values of a filled tree, so many that damage can be in the middle

QByteArray textOf(SettingsTree &tree, QStringView name, QStringView key = Key)
{
    const auto value = tree.value(key, name);
    return value ? value->bytes.chopped(value->bytes.isEmpty() ? 0 : 1) : "missing";
}

/// So many long values of one letter, in one batch.
void fill(SettingsTree &tree, char letter)
{
    const SettingsTree::Batch batch(&tree);
    tree.createKey(Key);
    for (int i = 0; i < Filled; ++i)
        tree.setText(Key, QString::number(i), QString(500, letter));
}

bool isFilled(SettingsTree &tree, char letter)
{
    for (int i = 0; i < Filled; ++i)
        if (textOf(tree, QString::number(i)) != QByteArray(500, letter))
            return false;
    return true;
}

} // namespace

class TestSettingsTree : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir Folder;
    int Number = 0;
    QString Path;

    QStringList files() const
    {
        return QFileInfo(Path).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

private slots:
    void init()
    {
        Path = Folder.filePath(QStringLiteral("%1/settings.sqlite").arg(++Number));
        QVERIFY(QDir().mkpath(QFileInfo(Path).path()));
    }

    void onlyWritingMakesTheFile()
    {
        const QString folder = Folder.filePath("new/zendova");
        SettingsTree tree(folder + "/settings.sqlite");
        QVERIFY(!tree.value(Key, u"a"));
        QVERIFY(!QFileInfo::exists(Folder.filePath("new")));
        QVERIFY(tree.createKey(Key));
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList("settings.sqlite"));
        QCOMPARE(QFile::permissions(folder) & 0x0077, QFile::Permissions());
        // An empty file is an empty tree, and nothing is put aside.
        writeFile(Path, {});
        QVERIFY(SettingsTree(Path).createKey(Key));
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    void operations()
    {
        SettingsTree tree(Path);
        QVERIFY(!tree.setText(Key, u"Name", u"lost")); // the key is missing
        QVERIFY(tree.createKey(Key));
        const QString hostile = QStringLiteral("'; DROP TABLE settings; --\"%_*?\U0001F524");
        for (const QString &text : {QString("a"), hostile}) {
            QVERIFY(tree.setText(Key, u"Name", text));
            QCOMPARE(textOf(tree, u"nAME", u"SOFTWARE\\zendova\\Options"), text.toUtf8());
        }
        QVERIFY(tree.deleteValue(Key, u"NAME") && !tree.deleteValue(Key, u"Name"));
        QVERIFY(tree.setNumber(Key, u"Name", 1));
        QVERIFY(tree.createKey(u"software\\ZENDOVA\\options")); // there already
        QVERIFY(tree.value(Key, u"Name"));
        // The parents were made too; a name that only begins alike is no subkey.
        QVERIFY(tree.createKey(u"Software\\ZendovaOther"));
        QVERIFY(tree.setText(u"Software\\Zendova", u"MV", u"300"));
        QVERIFY(!tree.deleteKey(u"Software\\Zendova"));
        QCOMPARE(textOf(tree, u"MV", u"Software\\Zendova"), "300");
        QVERIFY(tree.deleteKey(u"software\\zendova\\options"));
        QVERIFY(tree.deleteKey(u"Software\\Zendova"));
        QVERIFY(tree.createKey(Key));
        QVERIFY2(!tree.value(Key, u"Name"), "values outlived their key");
        QVERIFY(tree.setText(Key, u"a", u"1"));
        QVERIFY(OtherProgram(Path).run("DELETE FROM keys WHERE path LIKE '%Options'"));
        QVERIFY(!tree.setText(Key, u"a", u"2"));
        QVERIFY(tree.createKey(Key));
        QVERIFY2(!tree.value(Key, u"a"), "values outlived a key that another program deleted");
    }

    void ofTwoCopiesTheLastWinsValueByValue()
    {
        SettingsTree one(Path);
        SettingsTree two(Path);
        QVERIFY(one.createKey(Key) && one.setText(Key, u"a", u"old"));
        {
            const SettingsTree::Batch batch(&one);
            {
                const SettingsTree::Batch inner(&one);
                QVERIFY(one.setText(Key, u"a", u"one"));
            }
            QCOMPARE(textOf(one, u"a"), "one");
            QCOMPARE(textOf(two, u"a"), "old"); // or the start would take it for missing
        }
        QVERIFY(two.setText(Key, u"b", u"two"));
        QCOMPARE(textOf(two, u"a") + textOf(one, u"b"), "onetwo");
    }

    void allOrNothing()
    {
        SettingsTree tree(Path);
        fill(tree, 'o');
        try {
            const SettingsTree::Batch batch(&tree);
            fill(tree, 'n');
            throw 1;
        } catch (int) {
        }
        QVERIFY(isFilled(tree, 'o'));
        {
            const FullDisk disk;
            QVERIFY(!tree.setText(Key, u"1", u"lost"));
            fill(tree, 'n');
            QVERIFY(isFilled(tree, 'o'));
        }
        fill(tree, 'n');
        QVERIFY(isFilled(tree, 'n'));
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    void damaged()
    {
        const std::function<void()> vandals[] = {
            [this] { // no database
                writeFile(Path, "[Options]\nToolTips=1\n");
                writeFile(Path + "-journal", "no journal");
            },
            [this] { QFile::resize(Path, QFileInfo(Path).size() / 2 + 100); },
            [this] {
                writeFile(Path, contentOf(Path).replace(12'288, 4096, QByteArray(4096, 'U')));
            },
            [this] { // other tables
                QFile::remove(Path);
                QVERIFY(OtherProgram(Path).run("CREATE TABLE people(name)"));
            },
            [this] { // a folder
                QFile::remove(Path);
                writeFile(Path + "/precious", "precious");
            },
        };
        const auto remains = [](const QString &path) {
            return contentOf(path) + contentOf(path + "-journal") + contentOf(path + "/precious");
        };
        for (const auto &vandal : vandals) {
            init();
            for (const QString &aside : {Path + ".damaged-1", Path + ".damaged-2"}) {
                fill(*std::make_unique<SettingsTree>(Path), 'o');
                vandal();
                const QByteArray before = remains(Path);
                QTest::ignoreMessage(QtWarningMsg,
                                     QRegularExpression("put aside as " + aside + '$'));
                SettingsTree tree(Path);
                QVERIFY(!tree.value(Key, u"1"));
                QVERIFY(tree.createKey(Key) && tree.setText(Key, u"1", u"new"));
                QCOMPARE(textOf(tree, u"1"), "new");
                QCOMPARE(remains(aside), before);
            }
        }
    }

    void locked()
    {
        SettingsTree openBefore(Path);
        QVERIFY(openBefore.createKey(Key) && openBefore.setText(Key, u"a", u"old"));
        OtherProgram other(Path);
        QVERIFY(other.run("BEGIN EXCLUSIVE"));
        QElapsedTimer timer;
        timer.start();
        SettingsTree openedUnderLock(Path);
        for (SettingsTree *tree : {&openBefore, &openedUnderLock})
            for (int i = 0; i < 200; ++i)
                QVERIFY(!tree->value(Key, u"a") && !tree->setText(Key, u"a", u"lost"));
        QVERIFY(timer.elapsed() < 15'000); // a second for each tree, and room for a slow machine
        {
            const SettingsTree::Batch begunUnderLock(&openBefore);
            QVERIFY(other.run("ROLLBACK"));
            QVERIFY2(!openBefore.setText(Key, u"a", u"half"), "half a batch was written");
        }
        for (SettingsTree *tree : {&openBefore, &openedUnderLock})
            QVERIFY(textOf(*tree, u"a") == "old" && tree->setText(Key, u"b", u"new"));
        // A short lock is waited for.
        SettingsTree another(Path);
        QVERIFY(other.run("BEGIN EXCLUSIVE"));
        std::thread unlocking([&other] {
            sqlite3_sleep(200);
            other.run("COMMIT");
        });
        const bool written = another.setText(Key, u"a", u"1");
        unlocking.join();
        QVERIFY(written);
    }

    void unwritable()
    {
        // What of the test's folder can't be changed, and whether the file is damaged. A process of
        // its own tries it, as root may write what nobody else may.
        for (const auto &[fixed, isDamaged] :
             {std::pair("settings.sqlite", false), {".", false}, {".", true}}) {
            init();
            fill(*std::make_unique<SettingsTree>(Path), 'o');
            if (isDamaged)
                writeFile(Path, "no database");
            const QByteArray before = contentOf(Path);
            for (const QString &path : {Folder.path(), QFileInfo(Path).path(), Path})
                chmod(qPrintable(path), 0777);
            chmod(qPrintable(QFileInfo(Path).dir().filePath(fixed)), 0555);
            const pid_t child = fork();
            if (child == 0) {
                const bool isOrdinary = geteuid() != 0 || setresuid(65534, 65534, 65534) == 0;
                SettingsTree tree(Path);
                const bool reads = isFilled(tree, 'o') != isDamaged;
                const bool writes = tree.createKey(u"Software\\Other") ||
                                    tree.setText(Key, u"1", u"lost") ||
                                    tree.deleteValue(Key, u"1") || tree.deleteKey(Key);
                _exit(isOrdinary && reads && !writes ? 0 : 1);
            }
            int status = -1;
            waitpid(child, &status, 0);
            chmod(qPrintable(QFileInfo(Path).path()), 0777);
            QCOMPARE(status, 0);
            QCOMPARE(contentOf(Path), before);
            QCOMPARE(files(), QStringList("settings.sqlite"));
        }
    }
};

QTEST_GUILESS_MAIN(TestSettingsTree)

#include "tst_settingstree.moc"
