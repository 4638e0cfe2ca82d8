// The desktop's list of recently used documents: what is put in, and that nothing else is touched.
#include "platform/FileName.h"
#include "platform/RecentDocuments.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Spaces = " xmlns:bookmark='http://www.freedesktop.org/standards/desktop-bookmarks'"
                          " xmlns:mime='http://www.freedesktop.org/standards/shared-mime-info'";
// As other programs write it, and as nobody does; "&amp;" and blanks stay what they are.
const QByteArray Other =
    "<?xml version='1.0'?>\r\n<!-- by hand -->\n<xbel  version='1.0'" + Spaces +
    ">\n<title>a &amp;\tb</title><folder><bookmark href=\"file:///a b\"/></folder>"
    "\n <bookmark href='file:///other' ><x:y xmlns:x='u'  z='&#10;'/><info>"
    "<metadata owner='http://freedesktop.org'><bookmark:applications>"
    "<bookmark:application name='Zendova' count='7'/></bookmark:applications>"
    "</metadata></info ></bookmark>😀<![CDATA[<]]>";

/// The entry of the test's document with this inside.
QByteArray entry(const QByteArray &content)
{
    return Other + "<bookmark href='file:///d/%61 b' added='then'" +
           (content.isEmpty() ? QByteArray("/>") : '>' + content + "</bookmark>") + "</xbel>";
}

} // namespace

class TestRecentDocuments : public QObject
{
    Q_OBJECT

private slots:
    void enters_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("count");
        const QByteArray metadata = "<metadata owner='http://freedesktop.org'>";
        QTest::newRow("no file") << QByteArray() << 1;
        QTest::newRow("an empty root") << "<xbel" + Spaces + "/>" << 1;
        QTest::newRow("without prefixes") << QByteArray("<xbel>\n</xbel>") << 1;
        QTest::newRow("another document") << Other + "\n  </xbel>" << 1;
        QTest::newRow("nothing in it") << entry("") << 1;
        QTest::newRow("a title") << entry("<title>t</title>") << 1;
        QTest::newRow("an empty info") << entry("<info />") << 1;
        QTest::newRow("others' metadata") << entry("<info><metadata owner='me'/></info>") << 1;
        QTest::newRow("no programs") << entry("<info>" + metadata + "</metadata></info>") << 1;
        const QByteArray program = "<info>" + metadata +
                                   "<b:applications xmlns:b='http://www.freedesktop.org/standards/"
                                   "desktop-bookmarks'><b:application name='ed' count='3'/>%1"
                                   "</b:applications></metadata></info>";
        QTest::newRow("another program") << entry(QByteArray(program).replace("%1", "")) << 1;
        QTest::newRow("again") << entry(QByteArray(program).replace(
                                      "%1",
                                      "<b:application more='&gt;' count='9' name='Zendova'/>"))
                               << 10;
    }

    void enters()
    {
        QFETCH(const QByteArray, file);
        QFETCH(const int, count);
        const BookmarkFile::Use use{"/d/a b", "text/plain", "2026-01-02T03:04:05Z"};
        const auto entered = BookmarkFile::entered(file, use);
        QVERIFY(entered);
        QVERIFY(entered->startsWith(file.contains("<!--") ? Other : ""));
        // As it is read, the entry has this program once, by whichever prefix.
        QXmlStreamReader xml(*entered);
        bool inside = false;
        QStringList found;
        while (!xml.atEnd()) {
            const bool starts = xml.readNext() == QXmlStreamReader::StartElement;
            const QXmlStreamAttributes is = xml.attributes();
            if (starts && is.hasAttribute("href"))
                inside = QUrl(is.value("href").toString()).toLocalFile() == use.Path;
            if (starts && inside && is.value("modified") == use.Time)
                found += is.value(is.hasAttribute("count") ? "count" : "visited").toString();
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QCOMPARE(found, (QStringList{use.Time, QString::number(count)}));
        // What was there is there, in its order, but for the three attributes that change.
        qsizetype place = 0;
        for (const QByteArray &piece : QByteArray(file).replace("/>", ">").split('>')) {
            place = piece.contains("/d/%61") || piece.contains("count='9'")
                        ? place
                        : entered->indexOf(piece, place);
            QVERIFY2(place >= 0, piece);
        }
    }

    void staysAsItIs()
    {
        const QTemporaryDir folder;
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath("new/data")));
        const QString list = folder.filePath("new/data/recently-used.xbel");
        QCOMPARE(RecentDocuments::listPath(), list);
        const auto use = [](const QByteArray &path) {
            RecentDocuments().add(FileName::fromBytes(path), "text/plain");
        };
        use("/d/\xE9&\xC3\xA9 \"1%\".txt");
        QVERIFY(contentOf(list).contains("file:///d/%E9&amp;%C3%A9%20%221%25%22.txt\" added"));
        QCOMPARE(QFile::permissions(list) & 0xFF, QFile::Permissions());
        for (const QByteArray &damaged :
             {Other, QByteArray("<xbel>\xE9</xbel>"), QByteArray("<html><xbel/></html>"),
              QByteArray("<!DOCTYPE xbel [<!ENTITY e '<b/>'>]><xbel>&e;</xbel>"),
              QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><xbel/>"),
              "<xbel/>" + QByteArray(5 << 20, ' ')}) {
            writeFile(list, damaged);
            use("/d/a.txt");
            QVERIFY(contentOf(list) == damaged);
        }
        QVERIFY(QFile::remove(list) && QFile::link(folder.filePath("target"), list));
        use("/d/a.txt");
        QVERIFY(contentOf(folder.filePath("target")).contains("/d/a.txt"));
        QVERIFY(QFileInfo(list).isSymLink());
    }
};

QTEST_GUILESS_MAIN(TestRecentDocuments)
#include "tst_recentdocuments.moc"
