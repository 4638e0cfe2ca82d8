// What the window and its dialogs owe the desktop: rows that are level, fonts of the size that it
// asks for, whole columns, the map's colours, and a clipboard that is asked once and not at once.
#include "core/ColorScheme.h"
#include "tests/support/MainWindow.h"

#include "platform/controls/CmnDlg.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/HelpViewer.h"
#include "textboard/TBColorPicker.h"

#include <QClipboard>
#include <QMimeData>

namespace {

/// Both have their middle on the same line of the window, or beside it by a half pixel.
bool isLevel(const QWidget *one, const QWidget *other)
{
    const auto middle = [](const QWidget *widget) {
        return 2 * widget->mapTo(widget->window(), QPoint()).y() + widget->height();
    };
    return std::abs(middle(one) - middle(other)) <= 1;
}

/// What another program offers and doesn't hand over; the questions are counted.
class SilentOffer : public QMimeData
{
public:
    SilentOffer(bool tellsFormats, int &unanswered)
        : TellsFormats(tellsFormats), Unanswered(unanswered)
    {
    }
    QStringList formats() const override
    {
        Unanswered += TellsFormats ? 0 : 1;
        return TellsFormats ? QStringList{"text/plain;charset=utf-8", "text/plain"} : QStringList();
    }
    bool hasFormat(const QString &format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString &, QMetaType) const override
    {
        ++Unanswered;
        return {};
    }

private:
    bool TellsFormats;
    int &Unanswered;
};

} // namespace

class TestWindowLook : public WindowTest
{
    Q_OBJECT

protected slots:
    void cleanup() override
    {
        QApplication::setFont(Before);
        WindowTest::cleanup();
    }

private slots:
    void rowsAreLevel()
    {
        for (const double dotsPerInch : {96.0, 120.0}) {
            begin({1600, 1200}, dotsPerInch);
            for (const char *name :
                 {"FontLabel", "FontSizeLabel", "FontSizeNumber", "FontSizeEdit", "FontSizeSlider"})
                QVERIFY2(isLevel(window->findChild<QWidget *>(name), window->FontNameCombo), name);
            for (const char *name : {"FindStrLabel", "FindNextButton", "FindOpt0"})
                QVERIFY2(isLevel(window->findChild<QWidget *>(name),
                                 window->findChild<QWidget *>("FindString")),
                         name);
        }
    }

    void fontsOfTheDesktop()
    {
        QFont large = QApplication::font();
        large.setPointSizeF(17);
        QApplication::setFont(large);
        begin();
        HelpViewer help(window);
        const QWidget *const own[] = {window->menuBar(), window->findChild<QMenu *>("ItemEdit"),
                                      window->FontNameCombo->view(),
                                      help.findChild<QWidget *>("Page"),
                                      help.findChild<QWidget *>("FindText")};
        for (const QWidget *widget : own)
            QCOMPARE(widget->font().pointSizeF(), 17.0);
        for (const char *name : {"FontLabel", "FontNameCombo", "FindNextButton"})
            QCOMPARE(window->findChild<QWidget *>(name)->font(), TwipForm::font());
    }

    void fileDialogsShowAll()
    {
        writeFile(desktop->Folder.filePath("files/longer.txt"), QByteArray(148231, 'x'));
        desktop->Dialogs.dialog("Load", [](QDialog *dialog) {
            QVERIFY(
                dialog->findChild<QLineEdit *>("fileNameEdit")->placeholderText().contains(".zuf"));
            auto *files = dialog->findChild<QTreeView *>("treeView");
            const QAbstractItemView *view = files;
            QTRY_VERIFY(files->model()->rowCount(files->rootIndex()) == 1);
            for (int column = 1; column < files->header()->count(); ++column)
                QTRY_VERIFY(files->columnWidth(column) >= view->sizeHintForColumn(column));
            dialog->reject();
        });
        CmnDlg::ShowOpen(nullptr, {.DialogTitle = "Load",
                                   .Filter = "Uniform (*.ZUF)|*.zuf|Text (*.TXT)|*.txt",
                                   .FilterIndex = 2,
                                   .InitDir = desktop->Folder.filePath("files")});
    }

    void pickerWearsTheMapsColors()
    {
        SetColorScheme(RGBValue(250, 240, 10), RGBValue(10, 20, 60));
        ColorSchemeOn = true;
        PickColorValue = "0";
        TBColorPicker picker(nullptr);
        ColorSchemeOn = false;
        const QImage image = picker.grab().toImage();
        for (const char *name : {"Frame1", "Frame2"}) {
            const QRect frame = picker.findChild<QFrame *>(name)->geometry();
            QVERIFY(!frame.intersects(picker.ColorContainer->geometry()));
            for (const QPoint &corner :
                 {frame.topLeft() + QPoint(1, 1), frame.bottomRight() - QPoint(1, 1)})
                QCOMPARE(image.pixel(corner), qRgb(10, 20, 60));
        }
    }

    void fillBarKeepsItsFrame()
    {
        FillBar bar({.X = 15, .Y = 15}, 100, nullptr);
        bar.resize(160, 24);
        const QRect frame = bar.ProgressBack->geometry();
        const auto edges = [&] {
            const QImage image = bar.grab().toImage();
            return QList{image.copy(frame.x(), frame.y(), 1, frame.height()),
                         image.copy(frame.x(), frame.bottom(), frame.width(), 1),
                         image.copy(frame.right(), frame.y(), 1, frame.height())};
        };
        bar.ShowCount(0);
        const QList<QImage> empty = edges();
        bar.ShowCount(100);
        QVERIFY(edges() == empty);
    }

    void silentClipboardOwner()
    {
        int unanswered = 0;
        for (const bool tellsFormats : {false, true}) {
            QGuiApplication::clipboard()->setMimeData(new SilentOffer(tellsFormats, unanswered));
            unanswered = 0;
            window->EditPaste_Click();
            QCOMPARE(unanswered, 1); // each question may take long
            QVERIFY(window->TextBoard->Text().isEmpty());
        }
        QGuiApplication::clipboard()->setMimeData(new SilentOffer(false, unanswered));
        desktop->Window.reset();
        QCoreApplication::processEvents();
        unanswered = 0;
        desktop->Window = std::make_unique<Zendova>(QString());
        desktop->Window->Start();
        QCOMPARE(unanswered, 0); // before the first paint
        QTRY_COMPARE(unanswered, 1);
    }

private:
    const QFont Before = QApplication::font();
};

ZENDOVA_WINDOW_TEST(TestWindowLook)
#include "tst_windowlook.moc"
