// What a text becomes in the code page, names of files whatever their bytes are, and the standard
// check of a path.
#include "core/CheckDFFFunctions.h"
#include "platform/CodePage.h"
#include "platform/FileName.h"
#include "tests/support/Files.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestNames : public QObject
{
    Q_OBJECT

private slots:
    void textFromOutsideTheCodePage()
    {
        for (const auto &[text, fitted] :
             {std::pair(u"őĀẼ", "oAE"),
              {u"ǖấ", "üâ"}, // one accent of two
              {u"e\u0301 o\u0302 o\u030B x\u0301y", "é ô o xy"},
              {u"\u0301", "?"},
              {u"ﬁ Ａ １ ⅓", "fi A 1 1/3"},
              {u"1\u22122\u2010\u20113\u2044\u2032\u2033", "1-2--3/'\""},
              {u"a\u200D\u200Eb\uFEFF\u00AD\uFE0Fc\u2003d", "ab\u00ADc d"},
              {u"Жא中", "???"},
              {u"a😀b", "a?b"},
              {u"\xD800", "?"}})
            QCOMPARE(CodePage::fit(text), QString(fitted));
        QCOMPARE(CodePage::toBytes(u"aЖ😀€"), QByteArray("a??\x80"));
    }

    void namesOfFiles()
    {
        for (const auto &[bytes, shown, isText] :
             {std::tuple(QByteArray(), u""_s, true),
              {"/a/\xC3\xA9\xF0\x9F\x98\x80.txt", u"/a/\u00E9\U0001F600.txt"_s, true},
              {"\xEF\xBB\xBF.txt", u"\uFEFF.txt"_s, true}, // the mark of the byte order
              {"\xEF\xBB\xBF\xFF", u"\uFEFF\uFFFD"_s, false},
              {"\x80\xC3\xA9\xFF", u"\uFFFD\u00E9\uFFFD"_s, false},
              {"a\xF0\x9F\x98", u"a\uFFFD\uFFFD\uFFFD"_s, false},     // cut short
              {"\xC0\xAF", u"\uFFFD\uFFFD"_s, false},                 // overlong
              {"\xED\xB2\x80", u"\uFFFD\uFFFD\uFFFD"_s, false},       // half of a pair
              {"\xF0\x9F\x98\x80\x80", u"\U0001F600\uFFFD"_s, false}, // behind a pair
              {"\xF0\x9F\x92\x80", u"\U0001F480"_s, true},            // whose second half is U+DC80
              {"\xEF\xBF\xBD", u"\uFFFD"_s, true}}) {
            const QString text = FileName::fromBytes(bytes);
            QCOMPARE(FileName::toBytes(text), bytes);
            QCOMPARE(FileName::shown(text), shown);
            QCOMPARE(FileName::isText(text), isText);
        }
    }

    void paths()
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
        QCOMPARE(EndingOf("/a/b.Zcm") + EndingOf("a"), QString("ZCMA"));
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
              {folder, inFolder.arg("", folder)},
              {"/no such file", inFolder.arg("no such file", "/")},
              {folder + "sub/a.txt", "\r\rFolder\r\r" + folder + "sub/\r\rdoes not exist."},
              {"a.txt", "\r\r\r\rDrive  does not exist."}})
            QCOMPARE(PathNotice(path), notice);
    }
};

QTEST_APPLESS_MAIN(TestNames)
#include "tst_names.moc"
