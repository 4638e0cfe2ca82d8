// What is painted in the program's own way, as a person sees it: whole frames at every scale, and
// states and pictures that can be told in every palette; what stands level, which font is worn
// where, and what the windows offer.
#include "tests/support/MainWindow.h"

#include "core/ColorScheme.h"
#include "core/GlobalDeclarations.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/HelpViewer.h"
#include "platform/controls/Icons.h"
#include "platform/controls/Tones.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TBColorPicker.h"
#include "textboard/TextBoard.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTreeView>
#include <algorithm>
#include <map>

namespace {

QPalette desktopOf(const QColor &face, const QColor &paper, const QColor &ink,
                   const QColor &highlight, const QColor &highlighted)
{
    QPalette palette(ink, face, face.lighter(), face.darker(), face.darker(120), ink, paper);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

QImage pictureOf(QWidget &widget, double scale = 1)
{
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    image.setDevicePixelRatio(1);
    return image;
}

/// The colours of the pixels in a part of a picture, with their numbers.
std::map<QRgb, int> colorsIn(const QImage &image, const QRect &part)
{
    std::map<QRgb, int> colors;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            ++colors[image.pixel(x, y)];
    return colors;
}

double strongest(const QImage &image, const QRect &part, const QColor &ground)
{
    double most = 1;
    for (const auto &[color, count] : colorsIn(image, part))
        most = std::max(most, contrast(QColor(color), ground));
    return most;
}

/// The colours that a row of pixels meets, one after the other, with the lengths of their runs.
QList<std::pair<QRgb, int>> runsAlong(const QImage &image, int y)
{
    QList<std::pair<QRgb, int>> runs;
    for (int x = 0; x < image.width(); ++x)
        if (!runs.isEmpty() && runs.last().first == image.pixel(x, y))
            ++runs.last().second;
        else
            runs.append({image.pixel(x, y), 1});
    return runs;
}

constexpr QRgb Ground = 0xffc0c0ff;
constexpr QRgb Inside = 0xffffff00;

/// True if the line meets the ground, an edge of the frame, what is inside, the other edge and the
/// ground again; between ground and inside there is one colour alone.
bool isFramed(const QImage &image, int y, int thick)
{
    const auto runs = runsAlong(image, y);
    QString told;
    for (const auto &[color, length] : runs)
        told += QString(" %1:%2").arg(color, 0, 16).arg(length);
    const bool good = runs.size() == 5 && runs[0].first == Ground && runs[2].first == Inside &&
                      runs[4].first == Ground && runs[1] == runs[3] && runs[1].second == thick;
    if (!good)
        qWarning("%s", qPrintable(told));
    return good;
}

bool isLevel(const QWidget *one, const QWidget *other)
{
    const auto middle = [](const QWidget *w) { return 2 * w->y() + w->height(); };
    const bool whole = one->parentWidget()->rect().contains(one->geometry());
    return whole && qAbs(middle(one) - middle(other)) <= 1;
}

} // namespace

class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QApplication::setPalette(QPalette());
        QApplication::setFont(Before);
    }

    void framesAreWhole_data();
    void framesAreWhole();
    void fillBarKeepsItsFrame();
    void statesCanBeTold_data() { palettes(); }
    void statesCanBeTold();
    void chosenRowsAreReadable_data() { palettes(); }
    void chosenRowsAreReadable();
    void systemColorsAreReadable_data() { palettes(); }
    void systemColorsAreReadable();
    void pickerWearsTheMapsColors();
    void rowsAreLevel();
    void fontsOfTheDesktop();
    void fileDialogsShowAll();
    void nothingToMaximise();

private:
    static void palettes();

    const QFont Before = QApplication::font();
};

void TestLook::palettes()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << desktopOf({239, 239, 239}, Qt::white, Qt::black, {48, 140, 198},
                                        Qt::white);
    QTest::newRow("dark") << desktopOf({45, 45, 45}, {30, 30, 30}, {230, 230, 230}, {42, 130, 218},
                                       Qt::white);
    QTest::newRow("high contrast")
        << desktopOf(Qt::black, Qt::black, Qt::white, Qt::yellow, Qt::black);
}

void TestLook::framesAreWhole_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("thick");
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.25") << 1.25 << 1;
    QTest::newRow("1.5") << 1.5 << 1;
    QTest::newRow("1.75") << 1.75 << 1;
    QTest::newRow("2") << 2.0 << 2;
}

void TestLook::framesAreWhole()
{
    QFETCH(double, scale);
    QFETCH(int, thick);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(Ground));
    palette.setColor(QPalette::Base, QColor(Inside));
    const auto panel = [](int style) {
        auto *frame = new QFrame;
        frame->setFrameStyle(style);
        return frame;
    };
    const std::pair<const char *, std::function<QFrame *()>> kinds[] = {
        {"box", [&] { return panel(QFrame::Box | QFrame::Plain); }},
        {"panel", [&] { return panel(QFrame::StyledPanel | QFrame::Sunken); }},
        {"view", [] { return new QPlainTextEdit; }},
    };
    for (const auto &[kind, make] : kinds) {
        for (int place = 4; place < 8; ++place) {
            QWidget window;
            window.setPalette(palette);
            window.resize(60, 60);
            QFrame *frame = make();
            frame->setParent(&window);
            frame->setGeometry(place, place + 1, 31 + place, 33 + place);
            frame->setAutoFillBackground(!qobject_cast<QPlainTextEdit *>(frame));
            frame->setBackgroundRole(QPalette::Base);
            const QImage image = pictureOf(window, scale);
            const QImage turned = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
            const int middle = static_cast<int>(25 * scale);
            QVERIFY2(isFramed(image, middle, thick) && isFramed(turned, middle, thick), kind);
        }
    }
}

void TestLook::fillBarKeepsItsFrame()
{
    FillBar bar({.X = 15, .Y = 15}, 100, nullptr);
    bar.resize(160, 24);
    const QRect frame = bar.ProgressBack->geometry();
    const auto edges = [&] {
        const QImage image = pictureOf(bar);
        return QList{image.copy(frame.x(), frame.y(), 1, frame.height()),
                     image.copy(frame.x(), frame.y(), frame.width(), 1),
                     image.copy(frame.x(), frame.bottom(), frame.width(), 1),
                     image.copy(frame.right(), frame.y(), 1, frame.height())};
    };
    bar.ShowCount(0);
    const QList<QImage> empty = edges();
    for (const int count : {75, 100}) {
        bar.ShowCount(count);
        QVERIFY(edges() == empty);
    }
}

void TestLook::statesCanBeTold()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    constexpr double plain = 3;
    const QColor face = palette.color(QPalette::Button);
    QWidget window;
    Toolbar bar(&window);
    QToolButton *button = bar.addButton({"Bold", "", "", Toolbar::Kind::Check}, true);
    bar.resize(40, 22);
    const QRect edge(0, 4, 3, 14);
    QVERIFY(strongest(pictureOf(*button), edge, face) < plain);
    button->setChecked(true);
    QVERIFY(strongest(pictureOf(*button), edge, face) >= plain);
    // The picture in it stays readable.
    const QColor ground = pictureOf(*button).pixelColor(5, 5);
    QVERIFY(ground != face);
    button->setIcon(Icons::icon("Bold"));
    QVERIFY(strongest(pictureOf(*button), {3, 3, 16, 16}, ground) >= 4.5);

    QCheckBox box("Match Case");
    box.resize(box.sizeHint());
    const QStyleOptionButton option = [&box] {
        QStyleOptionButton made;
        made.initFrom(&box);
        return made;
    }();
    const QRect mark = box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
    const QRect inside = mark.adjusted(2, 2, -2, -2);
    const QColor paper = palette.color(QPalette::Base);
    QVERIFY(strongest(pictureOf(box), mark, paper) >= plain); // the frame
    QCOMPARE(strongest(pictureOf(box), inside, paper), 1.0);
    box.setChecked(true);
    QVERIFY(strongest(pictureOf(box), inside, paper) >= 4.5);
}

void TestLook::chosenRowsAreReadable()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    const QColor ground = palette.color(QPalette::Highlight);
    for (const Icons::Picture &picture : Icons::Pictures) {
        QMenu menu;
        QAction *item = menu.addAction(Icons::icon(picture.Key), " ");
        item->setIconVisibleInMenu(true);
        menu.resize(menu.sizeHint());
        menu.setActiveAction(item);
        const QRect row = menu.actionGeometry(item).adjusted(3, 3, -3, -3);
        const auto colors = colorsIn(pictureOf(menu), row);
        QVERIFY2(colors.contains(ground.rgb()), picture.Key);
        const QImage chosen =
            Icons::icon(picture.Key).pixmap(QSize(16, 16), 1, QIcon::Selected).toImage();
        int tones = 0;
        for (const auto &[color, count] : colorsIn(chosen, chosen.rect())) {
            if (qAlpha(color) != 255)
                continue;
            const double told = contrast(QColor(color), ground);
            QVERIFY2(told >= 3, qPrintable(QString("%1 %2").arg(picture.Key).arg(told)));
            QVERIFY2(colors.contains(color), picture.Key);
            ++tones;
        }
        QVERIFY2(tones > 0, picture.Key);
    }
}

void TestLook::systemColorsAreReadable()
{
    QFETCH(QPalette, palette);
    // Title bars, menu, window, highlight, button, tooltip: the text and its ground.
    for (const auto &[ink, ground] :
         {std::pair(9, 2), {19, 3}, {7, 4}, {8, 5}, {14, 13}, {18, 15}, {23, 24}}) {
        const QColor written = ToColor(SystemColorValue(ink), palette);
        QVERIFY(contrast(written, ToColor(SystemColorValue(ground), palette)) >= 3.5);
    }
}

void TestLook::pickerWearsTheMapsColors()
{
    const SysInfo screen;
    SetColorScheme(RGBValue(250, 240, 10), RGBValue(10, 20, 60));
    ColorSchemeOn = true;
    PickColorValue = "0";
    TBColorPicker picker(nullptr);
    ColorSchemeOn = false;
    const QImage image = pictureOf(picker);
    const QRgb back = qRgb(10, 20, 60);
    for (const char *name : {"Frame1", "Frame2"}) {
        const auto *frame = picker.findChild<QFrame *>(name);
        const QRect inside = frame->geometry().adjusted(1, 1, -1, -1);
        QVERIFY(!frame->geometry().intersects(picker.ColorContainer->geometry()));
        for (const QPoint &corner :
             {inside.topLeft(), inside.topRight(), inside.bottomLeft(), inside.bottomRight()})
            QCOMPARE(image.pixel(corner), back);
    }
}

void TestLook::rowsAreLevel()
{
    for (const double dotsPerInch : {96.0, 120.0}) {
        Desktop desktop({1600, 1200}, dotsPerInch);
        Zendova *window = desktop.start();
        const auto control = [window](const char *name) {
            return window->findChild<QWidget *>(name);
        };
        const QWidget *fonts = window->FontNameCombo;
        for (const char *name : {"FontLabel", "FontSizeLabel", "FontSizeNumber", "FontSizeEdit",
                                 "FontSizeSlider", "FontNameCombo"})
            QVERIFY2(isLevel(control(name), fonts), name);
        for (const char *name : {"FindStrLabel", "FindNextButton", "FindOpt0", "FindString"})
            QVERIFY2(isLevel(control(name), window->FindFrame->FindString), name);
        QVERIFY(desktop.close());
    }
}

void TestLook::fontsOfTheDesktop()
{
    QFont large = QApplication::font();
    large.setPointSizeF(17);
    QApplication::setFont(large);
    Desktop desktop;
    Zendova *window = desktop.start();
    HelpViewer help(window);
    QAbstractItemModel *model = window->FontNameCombo->model();
    const FontDialog fonts({.Fonts = model,
                            .FontOf = [](const QString &) { return QFont(); },
                            .Colors = {},
                            .LeastSize = 8,
                            .MostSize = 36},
                           {}, window);
    const QList<const QWidget *> own = {
        window->menuBar(),
        window->menuBar()->findChild<QMenu *>("ItemEdit"),
        window->FontNameCombo->view(),
        help.findChild<QWidget *>("Page"),
        help.findChild<QWidget *>("FindText"),
        &fonts,
    };
    for (const QWidget *widget : own)
        QVERIFY2(widget->font().pointSizeF() == 17,
                 qPrintable(QString("%1 %2")
                                .arg(widget->metaObject()->className())
                                .arg(widget->font().pointSizeF())));
    for (const QWidget *widget :
         {window->findChild<QWidget *>("FontLabel"), static_cast<QWidget *>(window->FontNameCombo),
          window->findChild<QWidget *>("FindNextButton")})
        QCOMPARE(widget->font(), TwipForm::font());
    QVERIFY(desktop.Dialogs.allCame());
}

void TestLook::fileDialogsShowAll()
{
    Desktop desktop;
    QFile file(desktop.Folder.filePath("somewhat longer.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(148231, 'x')) > 0);
    file.close();
    const FileOffer offer{.DialogTitle = "Load",
                          .Filter = "Uniform (*.ZUF)|*.zuf|Text (*.TXT)|*.txt",
                          .FilterIndex = 2,
                          .Flags = 0,
                          .InitDir = desktop.Folder.path()};
    const auto look = [](QDialog *dialog) {
        const QString hint = dialog->findChild<QLineEdit *>("fileNameEdit")->placeholderText();
        QVERIFY(hint.contains(".zuf") && hint.contains(".txt"));
        auto *files = dialog->findChild<QTreeView *>("treeView");
        QTRY_VERIFY(files->model()->rowCount(files->rootIndex()) == 1);
        for (int column = 1; column < files->header()->count(); ++column)
            QTRY_VERIFY2(files->columnWidth(column) >=
                             qobject_cast<QAbstractItemView *>(files)->sizeHintForColumn(column),
                         qPrintable(QString::number(column)));
        dialog->reject();
    };
    desktop.Dialogs.dialog("Load", look);
    CmnDlg::ShowOpen(nullptr, offer);
    desktop.Dialogs.dialog("Load", look);
    CmnDlg::ShowSave(nullptr, offer);
    QVERIFY(desktop.Dialogs.allCame());
}

void TestLook::nothingToMaximise()
{
    Desktop desktop;
    const auto offers = [](const QWidget *window, Qt::WindowFlags flags) {
        return (window->windowFlags() &
                (Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint)) == flags;
    };
    const Zendova *window = desktop.start();
    QVERIFY(offers(window, Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint));
    const TBColorPicker picker(nullptr);
    QVERIFY(offers(&picker, Qt::WindowCloseButtonHint));
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestLook>(argc, argv);
}

#include "tst_look.moc"
