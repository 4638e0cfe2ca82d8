// One job for a printer, or for a PDF file, as it was asked for in the print dialog: which pages,
// in which order, how often. Knows no text: whoever prints lays the pages out and paints them.
#pragma once

#include <QColor>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QPagedPaintDevice;
class QPainter;
class QPrinter;

/// What is printed, laid out for one device.
struct PrintedPages
{
    int Count = 1;
    /// Paints a page, counted from 0, in the painter's pen; its origin is the upper left corner
    /// within the margins.
    std::function<void(QPainter &painter, int page)> Paint;
};

class PrintJob
{
public:
    /// A printer with an output file is a PDF file's.
    explicit PrintJob(std::unique_ptr<QPrinter> printer);
    ~PrintJob();
    Q_DISABLE_COPY_MOVE(PrintJob)

    /// The printer's name or the file's path.
    QString Target() const;

    using PageLayout = std::function<PrintedPages(QPagedPaintDevice &device)>;

    /// Prints in this colour, or in its grey where that was asked for. Gives nothing, or the reason
    /// of a failure for people: a file then is as it was before, and a printer that refused the job
    /// has none of it.
    std::optional<QString> Print(const PageLayout &layout, const QColor &ink);

private:
    std::optional<QString> toFile(const PageLayout &layout, const QColor &ink);
    std::optional<QString> toPrinter(const PageLayout &layout, const QColor &ink);
    std::optional<QString> paint(QPagedPaintDevice &device, const PageLayout &layout,
                                 const QColor &ink);

    std::unique_ptr<QPrinter> Printer;
};
