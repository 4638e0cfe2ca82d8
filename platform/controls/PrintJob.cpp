// Paints the pages that were asked for. The toolkit tells neither that a file could not be written
// nor that a printer refused: a PDF file is made in memory and written as any other file, and the
// printing system is asked what became of the job.
#include "platform/controls/PrintJob.h"

#include "platform/RegularFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QStorageInfo>
#include <algorithm>
#include <vector>

namespace {

/// The pages to print, counted from 0, of so many: those of the chosen range, in the chosen order
/// and, where the device doesn't do that itself, as often as was asked for.
std::vector<int> pagesOf(const QPrinter &printer, int count)
{
    const bool isRange = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
    const int first = isRange ? printer.fromPage() : 1;
    const int last = isRange ? std::min(printer.toPage(), count) : count;
    std::vector<int> once;
    for (int page = first; page <= last; ++page)
        once.push_back(page - 1);
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::ranges::reverse(once);
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    std::vector<int> pages;
    for (int copy = 0; copy < copies; ++copy)
        pages.insert(pages.end(), once.begin(), once.end());
    if (!printer.collateCopies())
        std::ranges::stable_sort(
            pages, {}, [&once](int page) { return std::ranges::find(once, page) - once.begin(); });
    return pages;
}

/// Why CUPS did not take the job that it was given last, or nothing. Its library is there if the
/// toolkit has printed with it, and keeps the answer until it is called again.
std::optional<QString> refusal()
{
    QLibrary cups("cups", 2);
    const auto status = reinterpret_cast<int (*)()>(cups.resolve("cupsLastError"));
    const auto text = reinterpret_cast<const char *(*)()>(cups.resolve("cupsLastErrorString"));
    constexpr int FirstError = 0x400; // of the statuses in RFC 8011, below which all is well
    if (!status || !text || (status() >= 0 && status() < FirstError))
        return std::nullopt;
    return QString::fromUtf8(text());
}

} // namespace

PrintJob::PrintJob(std::unique_ptr<QPrinter> printer) : Printer(std::move(printer)) {}

PrintJob::~PrintJob() = default;

QString PrintJob::Target() const
{
    const QString file = Printer->outputFileName();
    return file.isEmpty() ? Printer->printerName() : file;
}

std::optional<QString> PrintJob::Print(const PageLayout &layout, const QColor &ink)
{
    const int grey = qGray(ink.rgb());
    const bool isGrey = Printer->colorMode() == QPrinter::GrayScale;
    const QColor color = isGrey ? QColor(grey, grey, grey) : ink;
    return Printer->outputFileName().isEmpty() ? toPrinter(layout, color) : toFile(layout, color);
}

std::optional<QString> PrintJob::toFile(const PageLayout &layout, const QColor &ink)
{
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&pdf);
        writer.setPageLayout(Printer->pageLayout());
        writer.setResolution(Printer->resolution());
        writer.setTitle(Printer->docName());
        writer.setCreator(QCoreApplication::applicationName());
        if (auto reason = paint(writer, layout, ink))
            return reason;
    }
    return RegularFile::write(Printer->outputFileName(), pdf.data());
}

std::optional<QString> PrintJob::toPrinter(const PageLayout &layout, const QColor &ink)
{
    // The job is gathered in a file there, and half of one would be sent as a whole.
    constexpr qint64 Enough = qint64(16) << 20;
    const QStorageInfo temporary(QDir::tempPath());
    if (temporary.isValid() && temporary.bytesAvailable() < Enough)
        return "No space left on device: " + QDir::tempPath();
    if (auto reason = paint(*Printer, layout, ink)) {
        Printer->abort();
        return reason;
    }
    return refusal();
}

std::optional<QString> PrintJob::paint(QPagedPaintDevice &device, const PageLayout &layout,
                                       const QColor &ink)
{
    const QString broken = "The print job can't be made";
    if (device.width() <= 0 || device.height() <= 0)
        return "The paper is smaller than its margins";
    const PrintedPages pages = layout(device);
    const std::vector<int> order = pagesOf(*Printer, pages.Count);
    if (order.empty())
        return QString("There is no page %1: the last one is %2")
            .arg(Printer->fromPage())
            .arg(pages.Count);
    QPainter painter;
    if (!painter.begin(&device))
        return broken;
    painter.setPen(ink);
    bool isFirst = true;
    for (const int page : order) {
        if (!std::exchange(isFirst, false) && !device.newPage())
            return broken;
        pages.Paint(painter, page);
    }
    return painter.end() ? std::nullopt : std::optional(broken);
}
