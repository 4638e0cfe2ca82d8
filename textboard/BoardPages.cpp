// Lines of paragraphs, put below each other until the page is full. The lines stand as far apart as
// on the board.
#include "textboard/BoardPages.h"

#include "platform/CodePage.h"

#include <QFontInfo>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextOption>
#include <array>
#include <cmath>

namespace {

constexpr double ScreenDotsPerInch = 96;

constexpr std::array Alignments = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

/// A font made of bitmaps has the size of one of them, however many dots that is on paper.
bool isScalable(QFont font)
{
    constexpr int Large = 1000;
    font.setPixelSize(Large);
    return QFontInfo(font).pixelSize() == Large;
}

QFont fontOfText(const RichText &text, const BoardFontFactory &fontOf)
{
    const CharacterFormat &format = text.Formats.begin()->Of;
    const auto has = [&format](CharacterStyle style) { return (format.Styles & style) != 0; };
    return fontOf(text.font(format.Font).Name)
        .drawn(format.HalfPoints / 2.0, has(BoldStyle), has(ItalicStyle), has(UnderlineStyle),
               has(StrikeThruStyle));
}

} // namespace

BoardPages::BoardPages(const RichText &text, const BoardFontFactory &fontOf,
                       const QPagedPaintDevice &device)
    : Pages(1)
{
    const QFont font = fontOfText(text, fontOf);
    // Bitmaps are laid out for a screen and enlarged with it.
    QImage screen(1, 1, QImage::Format_Mono);
    const int dotsPerMeter = static_cast<int>(std::ceil(ScreenDotsPerInch / 0.0254));
    screen.setDotsPerMeterX(dotsPerMeter);
    screen.setDotsPerMeterY(dotsPerMeter);
    const bool scalable = isScalable(font);
    const QPaintDevice &metrics = scalable ? static_cast<const QPaintDevice &>(device) : screen;
    Scale = scalable ? 1 : device.logicalDpiY() / ScreenDotsPerInch;

    const double width = device.width() / Scale;
    const double height = device.height() / Scale;
    QTextOption option(Alignments.at(text.Alignments.begin()->Of));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);

    std::size_t page = 0;
    double top = 0;
    for (const QString &paragraph : CodePage::fromBytes(text.Codes).split("\r\n")) {
        auto layout = std::make_unique<QTextLayout>(paragraph, font, &metrics);
        layout->setTextOption(option);
        layout->setCacheEnabled(true);
        layout->beginLayout();
        for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
            line.setLeadingIncluded(true);
            line.setLineWidth(width);
            if (top > 0 && top + line.height() > height) {
                ++page;
                top = 0;
            }
            line.setPosition({0, top});
            top += line.height();
            if (line.textLength() == 0)
                continue;
            if (page >= Pages.size())
                Pages.resize(page + 1);
            Pages[page].push_back(line);
        }
        layout->endLayout();
        Paragraphs.push_back(std::move(layout));
    }
}

void BoardPages::paint(QPainter &painter, int page) const
{
    painter.save();
    painter.scale(Scale, Scale);
    for (const QTextLine &line : Pages.at(static_cast<std::size_t>(page)))
        line.draw(&painter, {});
    painter.restore();
}
