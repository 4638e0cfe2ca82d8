// Renders the drawing when its size on the screen or the desktop's colours are others than before.
#include "fonttools/KeyboardPicture.h"

#include "fonttools/KeyboardLayout.h"
#include "platform/controls/Icons.h"
#include "platform/controls/Tones.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

/// Shares of the way from the paper of the desktop to its ink, for the placeholders #000001 and on:
/// light paper has light keys on a darker case, dark paper darker ones that still stand out.
struct Tone
{
    float OnLight;
    float OnDark;
};
constexpr Tone Tones[] = {
    {.42F, .06F}, // the case
    {.60F, .36F}, // its edge
    {.64F, .00F}, // the shadow of a key
    {.17F, .19F}, // a character key: its side
    {.02F, .28F}, // and its face
    {.31F, .11F}, // another key: its side
    {.16F, .17F}, // and its face
};
constexpr Tone PressedFace = {.20F, .14F};
constexpr float PressedTint = .45F; // of it is the desktop's highlight

QList<QColor> colorsFor(const QPalette &palette)
{
    const QColor paper = palette.color(QPalette::Active, QPalette::Base);
    const QColor ink = palette.color(QPalette::Active, QPalette::Text);
    const bool isDark = paper.lightnessF() < ink.lightnessF();
    const auto colorOf = [&](const Tone &tone) {
        return mix(paper, ink, isDark ? tone.OnDark : tone.OnLight);
    };
    QList<QColor> colors;
    for (const Tone &tone : Tones)
        colors += colorOf(tone);
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    return colors << mix(colorOf(PressedFace), highlight, PressedTint);
}

} // namespace

KeyboardPicture::KeyboardPicture(const QString &file, const TwipScale &scale, QWidget *parent)
    : QAbstractButton(parent), File(file), Scale(scale)
{
    setFocusPolicy(Qt::NoFocus);
    QFont small = font();
    small.setPointSizeF(7.5);
    setFont(small);
}

void KeyboardPicture::render(const QSize &size)
{
    const qint64 colors = palette().cacheKey();
    if (Picture.size() == size && PaintedIn == colors)
        return;
    Picture = QPixmap(size);
    Picture.fill(Qt::transparent);
    PaintedIn = colors;
    QPainter painter(&Picture);
    QSvgRenderer(Icons::inColors(File, colorsFor(palette()))).render(&painter);
}

void KeyboardPicture::paintEvent(QPaintEvent * /*event*/)
{
    if (File.isEmpty())
        return;
    render((QSizeF(size()) * devicePixelRatioF()).toSize());
    QPainter painter(this);
    painter.drawPixmap(rect(), Picture);
    painter.setPen(palette().color(QPalette::Active, QPalette::Text));
    if (qobject_cast<KeyboardPicture *>(parentWidget()))
        painter.translate(-pos());
    for (const NamedKey &key : NamedKeys())
        painter.drawText(Scale.toPixels(key.Place), Qt::AlignCenter, key.Name);
}
