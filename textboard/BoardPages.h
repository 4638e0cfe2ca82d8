// The board's text laid out on the pages of a printer: wrapped at words, in one font and one
// alignment, and nothing else on the page. Knows no window and no printer.
#pragma once

#include "textboard/BoardFont.h"
#include "textboard/RichText.h"

#include <QTextLayout>
#include <memory>
#include <vector>

class QPagedPaintDevice;
class QPainter;

class BoardPages
{
public:
    /// Lays the text out in the format of its first character and within the margins of the
    /// device's page.
    BoardPages(const RichText &text, const BoardFontFactory &fontOf,
               const QPagedPaintDevice &device);

    /// At least 1. Line ends behind the last character begin no page.
    int count() const { return static_cast<int>(Pages.size()); }

    /// Paints a page, counted from 0, in the painter's pen, which is one on the device.
    void paint(QPainter &painter, int page) const;

private:
    using Page = std::vector<QTextLine>;

    std::vector<std::unique_ptr<QTextLayout>> Paragraphs; ///< to which the lines belong
    std::vector<Page> Pages;
    double Scale = 1; ///< pixels of the device for one unit of the layout
};
