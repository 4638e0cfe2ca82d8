// Renders the pictures: reads an SVG from the resources, puts the tones of the palette in the place
// of its placeholders and keeps the pixmap. May touch the application's palette and the toolkit's
// pixmap cache, nothing else.
#include "platform/controls/Icons.h"

#include "platform/controls/Tones.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>

// The resources lie in a static library, where the linker drops what nothing refers to. The macro
// must stand outside of every namespace.
static void linkResources()
{
    Q_INIT_RESOURCE(zendova);
}

namespace {

struct Tones
{
    QColor Line;
    QColor Accent;
    QColor Bar;
};

// A warm accent, because menus and lists put a blue bar behind the picture that is chosen. A light
// line tone tells a dark desktop, which needs the lighter of the two.
QColor accentFor(const QColor &line)
{
    return line.lightnessF() > 0.5F ? QColor(0xff, 0xa0, 0x4d) : QColor(0xc2, 0x50, 0x0a);
}

Tones tonesFor(QIcon::Mode mode, const QColor &bar)
{
    const QPalette palette = QGuiApplication::palette();
    const QColor line = palette.color(QPalette::Active, QPalette::ButtonText);
    const QColor accent = accentFor(line);

    if (mode == QIcon::Selected) {
        const QColor selected = palette.color(QPalette::Active, QPalette::HighlightedText);
        const QColor behind = palette.color(QPalette::Active, QPalette::Highlight);
        // The second tone is softer, where it can still be told from the row.
        constexpr double readable = 3;
        const QColor soft = mix(selected, behind, 0.3F);
        return {selected, contrast(soft, behind) < readable ? selected : soft, bar};
    }
    if (mode == QIcon::Disabled) {
        QColor faded = palette.color(QPalette::Disabled, QPalette::ButtonText);
        const QColor face = palette.color(QPalette::Active, QPalette::Button);
        // Some themes set one colour for all groups, or one that can't be seen.
        constexpr double visible = 1.5;
        if (faded == line || contrast(faded, face) < visible)
            faded = mix(line, face, 0.6F);
        return {faded, mix(faded, accent, 0.3F), mix(faded, bar, 0.4F)};
    }
    return {line, accent, bar};
}

QPixmap render(const QString &file, const Tones &tones, const QSize &size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    // Whole pixels for the square in the middle, so that strokes stay on the pixel grid.
    const int side = std::min(size.width(), size.height());
    const QRect square((size.width() - side) / 2, (size.height() - side) / 2, side, side);
    QPainter painter(&pixmap);
    QSvgRenderer(Icons::inColors(file, {tones.Line, tones.Accent, tones.Bar}))
        .render(&painter, square);
    return pixmap;
}

class PictureEngine final : public QIconEngine
{
public:
    explicit PictureEngine(const QString &file, const QColor &bar = Qt::black)
        : File(file), Bar(bar)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatio();
        QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        picture.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, picture);
    }

    // The size is in device pixels.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        if (size.isEmpty())
            return {};
        const Tones tones = tonesFor(mode, Bar);
        const QString key = QStringLiteral("zendova/%1/%2x%3/%4%5%6")
                                .arg(File)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(tones.Line.name(), tones.Accent.name(), tones.Bar.name());
        QPixmap picture;
        if (!QPixmapCache::find(key, &picture)) {
            picture = render(File, tones, size);
            QPixmapCache::insert(key, picture);
        }
        return picture;
    }

    QString key() const override { return QStringLiteral("zendova"); }
    QIconEngine *clone() const override { return new PictureEngine(*this); }

private:
    QString File;
    QColor Bar;
};

} // namespace

QByteArray Icons::inColors(const QString &file, const QList<QColor> &colors)
{
    linkResources();
    QFile picture(QStringLiteral(":/icons/") + file);
    if (!picture.open(QIODevice::ReadOnly))
        qWarning("The picture %s is missing", qPrintable(file));
    QByteArray svg = picture.readAll();
    for (int i = 0; i < colors.size(); ++i)
        svg.replace("#00000" + QByteArray::number(i + 1), colors.at(i).name().toLatin1());
    return svg;
}

QIcon Icons::icon(const QString &imageKey)
{
    const auto row = std::ranges::find_if(Pictures, [&](const Picture &picture) {
        return imageKey == QLatin1StringView(picture.Key);
    });
    return row == Pictures.end() ? QIcon() : QIcon(new PictureEngine(QLatin1StringView(row->File)));
}

QIcon Icons::menuPicture(int number)
{
    if (number < 1 || number > static_cast<int>(MenuPictureKeys.size()))
        return {};
    return icon(QLatin1StringView(MenuPictureKeys[static_cast<std::size_t>(number - 1)]));
}

QIcon Icons::colorButton(const QColor &color)
{
    return QIcon(new PictureEngine(QStringLiteral("color.svg"), color));
}

QIcon Icons::application()
{
    return QIcon(new PictureEngine(QStringLiteral("zendova.svg")));
}
