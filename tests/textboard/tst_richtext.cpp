// The rich-text buffer as a whole: what it reads from documents and plain files, what it gives
// back, and what it writes. Works in a temporary folder.
#include "platform/CodePage.h"
#include "textboard/TextBoardRTF.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Kind = TextBoardRTF::FileKind;

class TestRichText : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir Folder;

    QString fileOf(const QByteArray &contents) const
    {
        const QString path = Folder.filePath("document");
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size()
                   ? path
                   : QString();
    }

private slots:
    void textOfADocument_data();
    void textOfADocument();
    void writtenTextComesBack_data();
    void writtenTextComesBack();
};

void TestRichText::textOfADocument_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *document, const char *text) {
        QTest::newRow(name) << QByteArray(document) << QString::fromUtf8(text);
    };
    row("one paragraph", R"({\rtf1\ansi abc\par})", "abc");
}

void TestRichText::textOfADocument()
{
    QFETCH(QByteArray, document);
    TextBoardRTF buffer;
    QCOMPARE(buffer.LoadFile(fileOf(document), Kind::RichText), std::nullopt);
    QTEST(buffer.Text(), "text");
}

void TestRichText::writtenTextComesBack_data()
{
    QTest::addColumn<QString>("text");
    QByteArray codes;
    for (int code = 0; code < 256; ++code)
        if (code != '\r' && code != '\n')
            codes += char(code);
    QTest::newRow("empty") << "";
    QTest::newRow("every code") << CodePage::fromBytes(codes);
    std::ranges::reverse(codes);
    QTest::newRow("every code, backwards") << CodePage::fromBytes(codes);
    QTest::newRow("no line end") << "abc";
    QTest::newRow("one at the end") << "abc\r\n";
    QTest::newRow("several at the end") << "abc\r\n\r\n\r\n";
    QTest::newRow("line ends alone") << "\r\n\r\n";
    QTest::newRow("at the start") << "\r\n abc \r\n\tdef ";
    QTest::newRow("looks like control words") << "{\\par} \\'41 \\u65? {\\*\\x}";
}

void TestRichText::writtenTextComesBack()
{
    QFETCH(QString, text);
    const QString path = Folder.filePath("written");
    for (const Kind kind : {Kind::RichText, Kind::PlainText}) {
        TextBoardRTF buffer;
        buffer.setText(text);
        QCOMPARE(buffer.SaveFile(path, kind), std::nullopt);
        TextBoardRTF again;
        QCOMPARE(again.LoadFile(path, kind), std::nullopt);
        QCOMPARE(again.Text(), text);
    }
}

QTEST_GUILESS_MAIN(TestRichText)
#include "tst_richtext.moc"
