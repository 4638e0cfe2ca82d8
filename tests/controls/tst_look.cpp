// What is painted in the program's own way, as a person sees it: whole frames at every scale, and
// pictures and states that can be told in every palette.
#include "tests/support/MainWindow.h"

#include "platform/controls/Icons.h"
#include "platform/controls/Tones.h"

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

const std::pair<const char *, QPalette> Palettes[] = {
    {"light", desktopOf({239, 239, 239}, Qt::white, Qt::black, {48, 140, 198}, Qt::white)},
    {"dark", desktopOf({45, 45, 45}, {30, 30, 30}, {230, 230, 230}, {42, 130, 218}, Qt::white)},
    {"high contrast", desktopOf(Qt::black, Qt::black, Qt::white, Qt::yellow, Qt::black)}};

QImage pictureOf(QWidget &widget, double scale = 1)
{
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    image.setDevicePixelRatio(1);
    return image;
}

QImage draw(const QIcon &icon, int size = 16, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap({size, size}, 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

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

/// There is something to see, and every solid pixel can be told from the ground.
bool standsOut(const QImage &image, const QColor &ground, double least)
{
    int ink = 0;
    double weakest = 99;
    for (const auto &[color, count] : colorsIn(image, image.rect())) {
        ink += qAlpha(color) > 40 ? count : 0;
        if (qAlpha(color) == 255)
            weakest = std::min(weakest, contrast(QColor(color), ground));
    }
    return ink > 20 && weakest >= least && weakest < 99;
}

constexpr QRgb Ground = 0xffc0c0ff;
constexpr QRgb Inside = 0xffffff00;

/// True if the line meets the ground, an edge of the frame, what is inside, the other edge and the
/// ground again; between ground and inside there is one colour alone.
bool isFramed(const QImage &image, int y, int thick)
{
    QList<std::pair<QRgb, int>> runs; // colours and lengths
    for (int x = 0; x < image.width(); ++x)
        if (!runs.isEmpty() && runs.last().first == image.pixel(x, y))
            ++runs.last().second;
        else
            runs.append({image.pixel(x, y), 1});
    return runs.size() == 5 && runs[0].first == Ground && runs[2].first == Inside &&
           runs[4].first == Ground && runs[1] == runs[3] && runs[1].second == thick;
}

} // namespace

class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void framesAreWhole()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(Ground));
        palette.setColor(QPalette::Base, QColor(Inside));
        for (const auto &[scale, thick] :
             {std::pair(1.0, 1), {1.25, 1}, {1.5, 1}, {1.75, 1}, {2.0, 2}}) {
            for (const int style :
                 {int(QFrame::Box) | QFrame::Plain, int(QFrame::StyledPanel) | QFrame::Sunken, 0}) {
                for (int place = 4; place < 8; ++place) {
                    QWidget parent;
                    parent.setPalette(palette);
                    parent.resize(60, 60);
                    QFrame *frame = style ? new QFrame(&parent) : new QPlainTextEdit(&parent);
                    if (style)
                        frame->setFrameStyle(style);
                    frame->setGeometry(place, place + 1, 31 + place, 33 + place);
                    frame->setAutoFillBackground(style != 0);
                    frame->setBackgroundRole(QPalette::Base);
                    const QImage image = pictureOf(parent, scale);
                    const QImage turned = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
                    const int middle = static_cast<int>(25 * scale);
                    QVERIFY2(isFramed(image, middle, thick) && isFramed(turned, middle, thick),
                             qPrintable(QString("%1 at %2").arg(style).arg(scale)));
                }
            }
        }
    }

    void systemColorsAreReadable()
    {
        // Title bars, menu, window, highlight, button, tooltip: the text and its ground.
        for (const auto &[name, palette] : Palettes)
            for (const auto &[ink, ground] :
                 {std::pair(9, 2), {19, 3}, {7, 4}, {8, 5}, {14, 13}, {18, 15}, {23, 24}})
                QVERIFY2(contrast(ToColor(SystemColorValue(ink), palette),
                                  ToColor(SystemColorValue(ground), palette)) >= 3.5,
                         name);
    }

    void picturesCanBeTold()
    {
        for (const auto &[name, palette] : Palettes) {
            QPalette colors = palette;
            QList<QImage> seen;
            for (const Icons::Picture &picture : Icons::Pictures) {
                const QIcon icon = Icons::icon(picture.Key);
                colors.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::gray);
                QApplication::setPalette(colors); // which an icon from before follows
                const QColor face = colors.color(QPalette::Button);
                const QImage plain = draw(icon);
                const QImage disabled = draw(icon, 16, QIcon::Disabled);
                const QImage selected = draw(icon, 16, QIcon::Selected);
                QVERIFY2(!seen.contains(plain), picture.Key);
                QVERIFY2(standsOut(plain, face, 3), picture.Key);
                QVERIFY2(disabled != plain && standsOut(disabled, face, 1.2), picture.Key);
                QVERIFY2(standsOut(selected, colors.color(QPalette::Highlight), 3), picture.Key);
                seen += plain;
                // In a theme of one colour for both it fades all the same.
                const QColor ink = colors.color(QPalette::ButtonText);
                colors.setColor(QPalette::Disabled, QPalette::ButtonText, ink);
                QApplication::setPalette(colors);
                const QImage faded = draw(icon, 16, QIcon::Disabled);
                QVERIFY2(!colorsIn(faded, faded.rect()).contains(ink.rgb()), picture.Key);
            }
        }
        QCOMPARE(draw(Icons::menuPicture(22)), draw(Icons::icon("About")));
        QVERIFY(Icons::menuPicture(0).isNull() && Icons::menuPicture(23).isNull());
        const QImage blue = draw(Icons::colorButton(Qt::blue));
        QVERIFY(colorsIn(blue, blue.rect())[QColor(Qt::blue).rgb()] >= 24);
        QVERIFY(draw(Icons::colorButton(Qt::blue), 16, QIcon::Disabled) != blue);
        // A dense screen shows pictures drawn for it; straight strokes have no half-painted pixels.
        QImage screen(60, 32, QImage::Format_ARGB32_Premultiplied);
        screen.setDevicePixelRatio(2);
        screen.fill(Qt::transparent);
        QPainter painter(&screen);
        Icons::icon("Zoom").paint(&painter, QRect(0, 0, 30, 16));
        painter.end();
        screen.setDevicePixelRatio(1);
        screen.convertTo(QImage::Format_ARGB32);
        QCOMPARE(screen.copy(14, 0, 32, 32), draw(Icons::icon("Zoom"), 32));
        const QImage grid = draw(Icons::icon("FMapG"), 32);
        for (const auto &[color, count] : colorsIn(grid, grid.rect()))
            QVERIFY(qAlpha(color) < 3 || qAlpha(color) > 251);
    }

    void statesCanBeTold()
    {
        for (const auto &[name, palette] : Palettes) {
            QApplication::setPalette(palette);
            const QColor face = palette.color(QPalette::Button);
            QWidget parent;
            Toolbar bar(&parent);
            QToolButton *button = bar.addButton({"Bold", "", "", Toolbar::Kind::Check});
            bar.resize(40, 22);
            const QRect edge(0, 4, 3, 14);
            QVERIFY2(strongest(pictureOf(*button), edge, face) < 3, name);
            button->setChecked(true);
            QVERIFY2(strongest(pictureOf(*button), edge, face) >= 3, name);
            const QColor ground = pictureOf(*button).pixelColor(5, 5);
            QVERIFY2(ground != face, name);
            button->setIcon(Icons::icon("Bold"));
            QVERIFY2(strongest(pictureOf(*button), {3, 3, 16, 16}, ground) >= 4.5, name);
            QCheckBox box;
            box.resize(box.sizeHint());
            const QColor paper = palette.color(QPalette::Base);
            QVERIFY2(strongest(pictureOf(box), box.rect(), paper) >= 3, name); // the frame
            const QRect inside(box.rect().center() - QPoint(2, 2), QSize(5, 5));
            QCOMPARE(strongest(pictureOf(box), inside, paper), 1.0);
            box.setChecked(true);
            QVERIFY2(strongest(pictureOf(box), inside, paper) >= 4.5, name);
        }
    }
};

ZENDOVA_WINDOW_TEST(TestLook)
#include "tst_look.moc"
