// The pictures as a person sees them: drawn, in the colours of the desktop, faded when disabled.
// Touches the palette of the application and puts it back.
#include "platform/controls/Icons.h"

#include <QApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <cmath>

namespace {

const QColor lightFace(0xf0, 0xf0, 0xf0);
const QColor lightLine(0x20, 0x20, 0x20);
const QColor darkFace(0x2d, 0x2d, 0x2d);
const QColor darkLine(0xe6, 0xe6, 0xe6);

QPalette desktop(const QColor &face, const QColor &text, const QColor &faded)
{
    QPalette palette;
    palette.setColor(QPalette::Button, face);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, faded);
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

void useLightDesktop()
{
    QApplication::setPalette(desktop(lightFace, lightLine, QColor(0xb0, 0xb0, 0xb0)));
}

void useDarkDesktop()
{
    QApplication::setPalette(desktop(darkFace, darkLine, QColor(0x70, 0x70, 0x70)));
}

QImage imageOf(const QPixmap &pixmap)
{
    QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    image.setDevicePixelRatio(1);
    return image;
}

QImage draw(const QIcon &icon, int size = 16, QIcon::Mode mode = QIcon::Normal)
{
    return imageOf(icon.pixmap(QSize(size, size), 1.0, mode));
}

QList<QColor> pixelsOf(const QImage &image)
{
    QList<QColor> pixels;
    for (int i = 0; i < image.width() * image.height(); ++i)
        pixels << image.pixelColor(i % image.width(), i / image.width());
    return pixels;
}

qsizetype countOf(const QImage &image, const QColor &color)
{
    return pixelsOf(image).count(color);
}

// The share of pixels with any ink.
double inkShare(const QImage &image)
{
    const QList<QColor> pixels = pixelsOf(image);
    const auto inked =
        std::ranges::count_if(pixels, [](auto &pixel) { return pixel.alpha() > 40; });
    return double(inked) / double(pixels.size());
}

// The contrast ratio of WCAG 2 between two opaque colours, 1 to 21.
double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double c) {
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

// The least contrast that a solid pixel has against the face it lies on.
double leastToneContrast(const QImage &image, const QColor &face)
{
    double least = 21;
    for (const QColor &pixel : pixelsOf(image))
        if (pixel.alpha() == 255)
            least = std::min(least, contrast(pixel, face));
    return least;
}

} // namespace

class TestIcons : public QObject
{
    Q_OBJECT

private slots:
    void init() { useLightDesktop(); }
    void cleanupTestCase() { QApplication::setPalette(QPalette()); }

    void everyKeyHasAPicture_data();
    void everyKeyHasAPicture();
    void straightStrokesAreCrisp_data();
    void straightStrokesAreCrisp();
    void noTwoPicturesLookAlike();
    void menuPictures();
    void unknownIsNull();
    void colorButtonShowsTheColour_data();
    void colorButtonShowsTheColour();
    void disabledShowsOnAThemeOfOneColour();
    void shownButtonFollowsTheDesktop();
    void denseScreenGetsMorePixels();
    void paintsInTheMiddleOfAWideRectangle();
    void applicationIconKeepsItsColours();
};

void TestIcons::everyKeyHasAPicture_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("file");
    for (const Icons::Picture &picture : Icons::pictures)
        QTest::newRow(picture.key) << QString(picture.key) << QString(picture.file);
}

void TestIcons::everyKeyHasAPicture()
{
    QFETCH(QString, key);
    QFETCH(QString, file);
    const QIcon icon = Icons::icon(key);
    QVERIFY(!icon.isNull());

    const QImage light = draw(icon);
    QCOMPARE(light.size(), QSize(16, 16));
    QVERIFY2(QSvgRenderer(QStringLiteral(":/icons/") + file).isValid(), qPrintable(file));
    QVERIFY(inkShare(light) > 0.08);
    QVERIFY(inkShare(draw(icon, 32)) > 0.08);
    QVERIFY(leastToneContrast(light, lightFace) >= 3);

    const QImage disabled = draw(icon, 16, QIcon::Disabled);
    QVERIFY(disabled != light);
    QVERIFY(inkShare(disabled) > 0.08);
    QVERIFY(draw(icon, 16, QIcon::Selected) != light);

    // The icon made on the light desktop follows the change.
    useDarkDesktop();
    const QImage dark = draw(icon);
    QVERIFY(dark != light);
    QVERIFY(leastToneContrast(dark, darkFace) >= 3);
}

void TestIcons::straightStrokesAreCrisp_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"Opt", "KB", "TT", "VCLeft", "TBCopy", "Right", "FMap+", "FMapG"})
        QTest::newRow(key) << key;
}

// Every pixel of a picture without curves and slants is painted whole or not at all.
void TestIcons::straightStrokesAreCrisp()
{
    QFETCH(QString, key);
    for (const int size : {16, 32}) {
        const QList<QColor> pixels = pixelsOf(draw(Icons::icon(key), size));
        const auto grey = [](auto &pixel) { return pixel.alpha() > 2 && pixel.alpha() < 253; };
        QCOMPARE(std::ranges::count_if(pixels, grey), 0);
    }
}

void TestIcons::noTwoPicturesLookAlike()
{
    QHash<QByteArray, QString> seen;
    for (const Icons::Picture &picture : Icons::pictures) {
        const QImage image = draw(Icons::icon(picture.key));
        const QByteArray pixels(reinterpret_cast<const char *>(image.constBits()),
                                image.sizeInBytes());
        QVERIFY2(!seen.contains(pixels),
                 qPrintable(QString(picture.key) + " looks like " + seen.value(pixels)));
        seen.insert(pixels, picture.key);
    }
}

void TestIcons::menuPictures()
{
    for (int number = 1; number <= 22; ++number)
        QVERIFY2(!Icons::menuPicture(number).isNull(), QByteArray::number(number));
    QCOMPARE(draw(Icons::menuPicture(3)), draw(Icons::icon("Cut")));
    QCOMPARE(draw(Icons::menuPicture(16)), draw(Icons::icon("Opt")));
    QCOMPARE(draw(Icons::menuPicture(22)), draw(Icons::icon("About")));
}

void TestIcons::unknownIsNull()
{
    QVERIFY(Icons::icon("").isNull());
    QVERIFY(Icons::icon("load").isNull());
    QVERIFY(Icons::menuPicture(0).isNull());
    QVERIFY(Icons::menuPicture(23).isNull());
}

void TestIcons::colorButtonShowsTheColour_data()
{
    QTest::addColumn<QColor>("color");
    QTest::newRow("black") << QColor(0, 0, 0);
    QTest::newRow("silver") << QColor(192, 192, 192);
    QTest::newRow("blue") << QColor(0, 0, 255);
    QTest::newRow("white") << QColor(255, 255, 255);
}

void TestIcons::colorButtonShowsTheColour()
{
    QFETCH(QColor, color);
    const QIcon icon = Icons::colorButton(color);
    QVERIFY(countOf(draw(icon), color) >= 24);
    QVERIFY(countOf(draw(icon, 32), color) >= 96);
    QVERIFY(draw(icon, 16, QIcon::Disabled) != draw(icon));
    useDarkDesktop();
    QVERIFY(countOf(draw(icon), color) >= 24);
    QVERIFY(draw(icon) != draw(Icons::colorButton(QColor(255, 0, 0))));
}

void TestIcons::disabledShowsOnAThemeOfOneColour()
{
    QApplication::setPalette(desktop(darkFace, darkLine, darkLine));
    const QImage disabled = draw(Icons::icon("Bold"), 16, QIcon::Disabled);
    QCOMPARE(countOf(disabled, darkLine), 0);
    QVERIFY(inkShare(disabled) > 0.08);
}

void TestIcons::shownButtonFollowsTheDesktop()
{
    QToolButton button;
    button.setAutoRaise(true);
    button.setIcon(Icons::icon("FMapG"));
    button.setIconSize(QSize(16, 16));
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QVERIFY(countOf(imageOf(button.grab()), lightLine) >= 48);

    useDarkDesktop();
    QTRY_VERIFY(countOf(imageOf(button.grab()), darkLine) >= 48);

    button.setEnabled(false);
    QCOMPARE(countOf(imageOf(button.grab()), darkLine), 0);
}

void TestIcons::denseScreenGetsMorePixels()
{
    const QIcon icon = Icons::icon("Zoom");
    const QPixmap dense = icon.pixmap(QSize(16, 16), 2.0);
    QCOMPARE(dense.size(), QSize(32, 32));
    QCOMPARE(dense.devicePixelRatio(), 2.0);
    QCOMPARE(imageOf(dense), draw(icon, 32));

    QImage screen(32, 32, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    icon.paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    screen.setDevicePixelRatio(1);
    QCOMPARE(screen.convertToFormat(QImage::Format_ARGB32), draw(icon, 32));
}

void TestIcons::paintsInTheMiddleOfAWideRectangle()
{
    const QIcon icon = Icons::icon("Save");
    const QImage wide = imageOf(icon.pixmap(QSize(30, 16), 1.0));
    QCOMPARE(wide.size(), QSize(30, 16));
    QCOMPARE(wide.copy(7, 0, 16, 16), draw(icon));
    QVERIFY(icon.pixmap(QSize(0, 16), 1.0).isNull());
}

void TestIcons::applicationIconKeepsItsColours()
{
    const QIcon icon = Icons::application();
    const QImage light = draw(icon, 64);
    QVERIFY(inkShare(light) > 0.9);
    useDarkDesktop();
    QCOMPARE(draw(icon, 64), light);
}

QTEST_MAIN(TestIcons)
#include "tst_icons.moc"
