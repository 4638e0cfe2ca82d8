// The pictures as a person sees them: drawn, in the colours of the desktop, faded when disabled.
// Touches the palette of the application and puts it back.
#include "platform/controls/Icons.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTest>

namespace {

const QColor LightFace(240, 240, 240);
const QColor LightLine(32, 32, 32);
const QColor DarkFace(45, 45, 45);
const QColor DarkLine(230, 230, 230);

void useDesktop(const QColor &face, const QColor &line, const QColor &faded = Qt::gray)
{
    QPalette palette;
    palette.setColor(QPalette::Button, face);
    palette.setColor(QPalette::ButtonText, line);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, faded);
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(palette);
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

qsizetype countIf(const QImage &image, auto condition)
{
    qsizetype count = 0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        count += condition(image.pixelColor(i % image.width(), i / image.width())) ? 1 : 0;
    return count;
}

qsizetype countOf(const QImage &image, const QColor &color)
{
    return countIf(image, [&](const QColor &pixel) { return pixel == color; });
}

/// There is something to see, and every solid pixel is far lighter or darker than its face.
bool standsOut(const QImage &image, const QColor &face, int least = 100)
{
    const auto inked = countIf(image, [](const QColor &pixel) { return pixel.alpha() > 40; });
    return inked > image.width() * image.height() / 12 &&
           countIf(image, [&](const QColor &pixel) {
               return pixel.alpha() == 255 && qAbs(qGray(pixel.rgb()) - qGray(face.rgb())) < least;
           }) == 0;
}

} // namespace

class TestIcons : public QObject
{
    Q_OBJECT

private slots:
    void init() { useDesktop(LightFace, LightLine); }
    void cleanupTestCase() { QApplication::setPalette(QPalette()); }

    void everyPicture();
    void coloursOfTheirOwn();
    void isSharpOnADenseScreen();
};

void TestIcons::everyPicture()
{
    QList<QImage> seen;
    for (const Icons::Picture &picture : Icons::Pictures) {
        useDesktop(LightFace, LightLine);
        const QIcon icon = Icons::icon(picture.Key);
        const QImage light = draw(icon);
        const QImage disabled = draw(icon, 16, QIcon::Disabled);
        QVERIFY2(!seen.contains(light), picture.Key);
        QVERIFY2(standsOut(light, LightFace) && standsOut(draw(icon, 32), LightFace), picture.Key);
        QVERIFY2(disabled != light && standsOut(disabled, LightFace, 20), picture.Key);
        QVERIFY2(draw(icon, 16, QIcon::Selected) != light, picture.Key);
        seen += light;
        useDesktop(DarkFace, DarkLine); // which the icon from before follows
        QVERIFY2(draw(icon) != light && standsOut(draw(icon), DarkFace), picture.Key);
        useDesktop(DarkFace, DarkLine, DarkLine); // a theme of one colour for both
        QVERIFY2(countOf(draw(icon, 16, QIcon::Disabled), DarkLine) == 0, picture.Key);
    }
    QCOMPARE(draw(Icons::menuPicture(1)), draw(Icons::icon("TextFile")));
    QCOMPARE(draw(Icons::menuPicture(22)), draw(Icons::icon("About")));
    QVERIFY(Icons::menuPicture(0).isNull() && Icons::menuPicture(23).isNull());
}

void TestIcons::coloursOfTheirOwn()
{
    const QImage light = draw(Icons::application(), 64);
    for (const QColor color : {Qt::black, Qt::white, Qt::blue}) {
        const QIcon icon = Icons::colorButton(color);
        QVERIFY(countOf(draw(icon), color) >= 24);
        QVERIFY(draw(icon, 16, QIcon::Disabled) != draw(icon));
        useDesktop(DarkFace, DarkLine);
        QVERIFY(countOf(draw(icon), color) >= 24);
    }
    QCOMPARE(draw(Icons::application(), 64), light);
}

void TestIcons::isSharpOnADenseScreen()
{
    QImage screen(60, 32, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    Icons::icon("Zoom").paint(&painter, QRect(0, 0, 30, 16));
    painter.end();
    screen.setDevicePixelRatio(1);
    screen.convertTo(QImage::Format_ARGB32);
    QCOMPARE(screen.copy(14, 0, 32, 32), draw(Icons::icon("Zoom"), 32));
    // A picture of straight strokes has no half-painted pixels.
    const auto isHalf = [](const QColor &pixel) { return qAbs(pixel.alpha() - 127) < 125; };
    QCOMPARE(countIf(draw(Icons::icon("FMapG"), 32), isHalf), 0);
}

QTEST_MAIN(TestIcons)
#include "tst_icons.moc"
