// The board on paper, as pictures of its pages and as a PDF file by way of the real print dialog,
// and the board over the whole screen.
#include "platform/CodePage.h"
#include "platform/controls/PrintJob.h"
#include "tests/support/BoardText.h"
#include "tests/support/MainWindow.h"
#include "textboard/BoardPages.h"

#include <QPrinter>

constexpr int GlyphSize = 32; // pixels of 24 points

class TestPrinting : public WindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("CUPS_SERVER", "/nowhere"); } // none of the machine's printers

    void everyGlyph()
    {
        makeGlyphsReadable(window);
        for (const auto &[font, number] : {std::pair("Zt Latin", 1), {"Zt Symbol", 3}}) {
            QVERIFY(chooseFont(window, font));
            QString lines;
            for (int code = 33; code < 256; ++code) // one below the other
                lines += CodePage::toUnicode(quint8(code)) + QString("\r\n");
            board()->setText(lines);
            const QList<QImage> pages = pagesOf(2, 10);
            for (int code = 33, line = 0; code < 256; ++code, ++line)
                if (code != 160 && code != 173) // a blank, and a hyphen that only breaks show
                    QCOMPARE(readGlyph(pages[line / 10], {0, line % 10 * GlyphSize + 30}),
                             (GlyphPicture{.code = code, .font = number}));
        }
    }

    void linesOnPages()
    {
        makeGlyphsReadable(window);
        QVERIFY(chooseFont(window, "Zt Gaps")); // has no B
        board()->setText("AB ACDA\r\n\r\nEFGHIJK" + QString("\r\n").repeated(20));
        constexpr const char *placed[] = {"AB", "ACDA", "", "EFGHI", "JK"};
        for (const auto &[key, share] :
             {std::pair("AlignLeft", 0.0), {"AlignRight", 1.0}, {"CenterText", 0.5}}) {
            press(key);
            const QList<QImage> pages = pagesOf(5, 3);
            QCOMPARE(pages.size(), 2);
            for (int line = 0; line < 5; ++line) {
                QPoint origin(int((5 - double(strlen(placed[line]))) * GlyphSize * share),
                              line % 3 * GlyphSize + 30);
                for (const char code : QByteArray(placed[line])) {
                    const GlyphPicture expected{code == 'B' ? 0 : code, 2, code == 'B'};
                    QCOMPARE(readGlyph(pages[line / 3], origin), expected);
                    origin += {GlyphSize, 0};
                }
            }
        }
        board()->setText("\tC"); // the stops are 80 pixels apart, as on the board
        press("AlignLeft");
        QCOMPARE(readGlyph(pagesOf(5, 3)[0], {80, 30}), (GlyphPicture{'C', 2}));
    }

    void wholeBoardToFile()
    {
        const QString file = desktop->Folder.filePath("paper.pdf");
        board()->setText(linesOfText(2800));
        QVERIFY(chooseFont(window, "Zt Four"));
        press("PrintButton"); // the menu's alone
        print(file, false);
        QVERIFY(!QFile::exists(file));
        print(file, true);
        // 105 lines, each 18 points high, on A4 or Letter without margins of 20 mm.
        const QByteArray pdf = contentOf(file);
        QCOMPARE(pdf.count("/Type /Page\n"), 3);
        QVERIFY(pdf.count("/FontFile2") == 1 && pdf.contains("ZtFour-Regular"));
        const FullDisk full;
        print(file + "2", true, true);
        QVERIFY(!QFile::exists(file + "2"));
    }

    void jobAsAskedFor()
    {
        for (const auto &[from, to, collated, expected] : {std::tuple(0, 0, true, "01230123"),
                                                           {2, 3, true, "1212"},
                                                           {3, 9, false, "3322"}, // backwards
                                                           {5, 6, true, ""}}) {
            auto printer = std::make_unique<QPrinter>();
            printer->setOutputFileName(desktop->Folder.filePath("job.pdf"));
            printer->setPrintRange(from ? QPrinter::PageRange : QPrinter::AllPages);
            printer->setFromTo(from, to);
            printer->setCopyCount(2);
            printer->setCollateCopies(collated);
            printer->setPageOrder(collated ? QPrinter::FirstPageFirst : QPrinter::LastPageFirst);
            printer->setColorMode(QPrinter::GrayScale);
            QByteArray painted;
            const auto paint = [&painted](QPainter &painter, int page) {
                painted += painter.pen().color() == QColor(87, 87, 87) ? char('0' + page) : '?';
            };
            const auto layout = [&paint](QPagedPaintDevice &) { return PrintedPages{4, paint}; };
            QCOMPARE(PrintJob(std::move(printer)).Print(layout, Qt::red).has_value(), !*expected);
            QCOMPARE(painted, expected);
        }
    }

    void preview()
    {
        board()->setText(linesOfText(BoardLimit));
        desktop->Screen->pretend(SysInfo::Screen{{1280, 1024}, {40, 30, 1200, 900}, 96});
        press("CenterText");
        press("Underline");
        for (const bool closed : {false, true}) {
            select(window, 5000, 3);
            desktop->Dialogs.dialog("Zendova TextBoard Full Screen Preview", [&](QDialog *dialog) {
                QTRY_VERIFY(dialog->focusWidget() && dialog->focusWidget()->hasFocus());
                QCOMPARE(dialog->geometry(), QRect(40, 30, 1200, 900));
                const auto *text = qobject_cast<::TextBoard *>(dialog->focusWidget());
                QVERIFY(text && text->viewport()->rect().contains(text->cursorRect()));
                QVERIFY(text->Alignment() == 2 && text->font() == board()->font());
                for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_X, Qt::Key_Delete})
                    QTest::keyClick(dialog->focusWidget(), key);
                QVERIFY(text->Text() == board()->Text());
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Right, Qt::ShiftModifier);
                QTest::keyClick(dialog->focusWidget(), Qt::Key_C, Qt::ControlModifier);
                QCOMPARE(QApplication::clipboard()->text(), text->SelText());
                QTest::keyClick(dialog->focusWidget(), closed ? Qt::Key_Return : Qt::Key_Escape);
            });
            press("FullScreen");
            QCOMPARE(board()->SelStart() == 5000, !closed);
            QCOMPARE(board()->SelLength(), 0);
        }
        // Where the desktop alone places windows the preview fills what it gets.
        desktop->Screen->pretend(SysInfo::Screen{{1280, 1024}, {}, 96, false});
        desktop->Dialogs.dialog("Zendova TextBoard Full Screen Preview", [](QDialog *dialog) {
            const auto *close = dialog->findChild<QPushButton *>("CloseButton");
            QVERIFY(dialog->isFullScreen());
            QCOMPARE(close->geometry().right() + 1, dialog->width() - 4);
            dialog->reject();
        });
        press("FullScreen");
    }

private:
    /// Pictures of the pages of the board's text, without margins, at 96 dots per inch.
    QList<QImage> pagesOf(int columns, int lines) const
    {
        const QSize pixels(columns * GlyphSize, lines * GlyphSize);
        QPdfWriter paper(desktop->Folder.filePath("measures.pdf"));
        paper.setResolution(96);
        paper.setPageLayout({QPageSize(QSizeF(pixels) / 96, QPageSize::Inch), {}, {}});
        window->PrepareRTFBuffer(true);
        const BoardPages pages(window->TextBoardRTF.contents(), CatalogBoardFont, paper);
        QList<QImage> pictures(pages.count(), QImage(pixels, QImage::Format_RGB32));
        for (int page = 0; page < pages.count(); ++page) {
            pictures[page].fill(Qt::white);
            QPainter painter(&pictures[page]);
            pages.paint(painter, page);
        }
        return pictures;
    }

    /// Prints a board with a selection, of which the dialog knows.
    void print(const QString &file, bool accepted, bool isDiskFull = false)
    {
        select(window, 80, 2);
        desktop->Dialogs.dialog("Print", [file, accepted](QDialog *dialog) {
            QVERIFY(dialog->findChild<QAbstractButton *>("printSelection")->isChecked());
            dialog->findChild<QLineEdit *>("filename")->setText(file);
            QTest::keyClick(dialog, accepted ? Qt::Key_Return : Qt::Key_Escape);
        });
        if (isDiskFull)
            expect({" Print Error", "It is still on the TextBoard. File too large %1"}, "Ok", file);
        menuItem(window, "ToolsPrint")->trigger();
    }
};

ZENDOVA_WINDOW_TEST(TestPrinting)
#include "tst_printing.moc"
