// The standard check of a path: where it is cut, and the notice for what is not there.
#include "core/CheckDFFFunctions.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>
#include <QTest>

class TestPaths : public QObject
{
    Q_OBJECT

private slots:
    void cuts()
    {
        for (const auto &[path, folder, name, kept] :
             {std::tuple("/a/b.txt", "/a/", "b.txt", "/a"),
              {"/b.txt", "/", "b.txt", "/"}, // the root is its own separator
              {"/a/", "/a/", "", "/a"},
              {"b.txt", "", "b.txt", ""}}) {
            const SplitPath split = SplitAtLastSeparator(path);
            QCOMPARE(split.Folder, folder);
            QCOMPARE(split.Name, name);
            QCOMPARE(WithoutSeparator(split.Folder), kept);
        }
        QCOMPARE(EndingOf("/a/b.Zcm"), QString("ZCM"));
        QCOMPARE(EndingOf("a"), QString("A"));
    }

    void notices()
    {
        const QTemporaryDir temporary;
        const QString folder = temporary.path() + '/';
        writeFile(folder + "a b.txt", "abc");
        QVERIFY(QFile::link("a b.txt", folder + "link") &&
                QFile::link("gone", folder + "dangling"));
        const QString inFolder = "\r\rFile '%1'\r\rdoes not exist in\r\r%2";
        for (const auto &[path, notice] :
             {std::pair(folder + "a b.txt", QString()),
              {folder + "link", QString()},
              {folder + "dangling", inFolder.arg("dangling", folder)},
              {folder + "b.txt", inFolder.arg("b.txt", folder)},
              {folder, inFolder.arg("", folder)},
              {"/no such file", inFolder.arg("no such file", "/")},
              {folder + "sub/a.txt", "\r\rFolder\r\r" + folder + "sub/\r\rdoes not exist."},
              {"a.txt", "\r\r\r\rDrive  does not exist."}})
            QCOMPARE(PathNotice(path), notice);
    }
};

QTEST_APPLESS_MAIN(TestPaths)

#include "tst_paths.moc"
