// The pictures as a person sees them: drawn, in the colours of the desktop, faded when disabled.
// Touches the palette of the application and puts it back.
#include "platform/controls/Icons.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QTest>

namespace {

struct Desktop
{
    QColor Face, Line, Faded = Qt::gray;
    void use() const
    {
        QPalette palette;
        palette.setColor(QPalette::Button, Face);
        palette.setColor(QPalette::ButtonText, Line);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, Faded);
        palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        QApplication::setPalette(palette);
    }
};
const Desktop Light{{240, 240, 240}, {32, 32, 32}};
const Desktop Dark{{45, 45, 45}, {230, 230, 230}};

QImage draw(const QIcon &icon, int size = 16, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap({size, size}, 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

int countIf(const QImage &image, auto condition)
{
    int count = 0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        count += condition(image.pixelColor(i % image.width(), i / image.width())) ? 1 : 0;
    return count;
}

int countOf(const QImage &image, const QColor &color)
{
    return countIf(image, [&](const QColor &pixel) { return pixel == color; });
}

/// There is something to see, and every solid pixel is far lighter or darker than its face.
bool standsOut(const QImage &image, const QColor &face, int least = 100)
{
    const auto isInk = [](const QColor &pixel) { return pixel.alpha() > 40; };
    const auto isLost = [&](const QColor &pixel) {
        return pixel.alpha() == 255 && qAbs(qGray(pixel.rgb()) - qGray(face.rgb())) < least;
    };
    return countIf(image, isInk) > image.width() * image.height() / 12 &&
           countIf(image, isLost) == 0;
}

} // namespace

class TestIcons : public QObject
{
    Q_OBJECT

private slots:
    void init() { Light.use(); }
    void cleanupTestCase() { QApplication::setPalette(QPalette()); }

    void everyPicture()
    {
        QList<QImage> seen;
        for (const Icons::Picture &picture : Icons::Pictures) {
            Light.use();
            const QIcon icon = Icons::icon(picture.Key);
            const QImage light = draw(icon);
            const QImage disabled = draw(icon, 16, QIcon::Disabled);
            QVERIFY2(!seen.contains(light), picture.Key);
            QVERIFY2(standsOut(light, Light.Face), picture.Key);
            QVERIFY2(disabled != light && standsOut(disabled, Light.Face, 20), picture.Key);
            QVERIFY2(draw(icon, 16, QIcon::Selected) != light, picture.Key);
            seen += light;
            Dark.use(); // which the icon from before follows
            QVERIFY2(draw(icon) != light && standsOut(draw(icon), Dark.Face), picture.Key);
            Desktop{Dark.Face, Dark.Line, Dark.Line}.use(); // a theme of one colour for both
            QVERIFY2(countOf(draw(icon, 16, QIcon::Disabled), Dark.Line) == 0, picture.Key);
        }
        QCOMPARE(draw(Icons::menuPicture(22)), draw(Icons::icon("About")));
        QVERIFY(Icons::menuPicture(0).isNull() && Icons::menuPicture(23).isNull());
    }

    void coloursOfTheirOwn()
    {
        const QImage light = draw(Icons::application(), 64);
        const QIcon icon = Icons::colorButton(Qt::blue);
        QVERIFY(draw(icon, 16, QIcon::Disabled) != draw(icon));
        Dark.use();
        QVERIFY(countOf(draw(icon), Qt::blue) >= 24);
        QCOMPARE(draw(Icons::application(), 64), light);
    }

    void isSharpOnADenseScreen()
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
};

QTEST_MAIN(TestIcons)
#include "tst_icons.moc"
