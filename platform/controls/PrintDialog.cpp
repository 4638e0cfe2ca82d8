// The print dialog: what a caller offers, in the words of the toolkit's dialog. Prints nothing.
#include "platform/SysInfo.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/PrintJob.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <QPrintDialog>
#include <QPrinter>
#include <QToolButton>

namespace {

constexpr double Margin = 20; // millimetres

/// The file that is offered where no printer is chosen: the document's name with the ending of its
/// kind. The toolkit's own choice may be a folder.
void offerFile(const QPrintDialog &dialog, const QString &docName)
{
    auto *file = dialog.findChild<QLineEdit *>("filename");
    if (!file)
        return; // a dialog of the desktop's
    const QString documents = SysInfo::documentsFolder();
    const QDir folder(QFileInfo(documents).isDir() ? documents : QDir::homePath());
    const QString name = QFileInfo(docName).completeBaseName();
    file->setText(folder.filePath(name + ".pdf"));
    if (auto *browse = dialog.findChild<QToolButton *>("fileBrowser"))
        browse->setAccessibleName("Browse for the output file");
}

} // namespace

std::unique_ptr<PrintJob> CmnDlg::ShowPrinter(QWidget *parent, const PrintOffer &offer)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(offer.DocName);
    // Without a printer there is no paper that the toolkit knows of.
    if (printer->printerName().isEmpty() &&
        QLocale::system().measurementSystem() == QLocale::ImperialUSSystem)
        printer->setPageSize(QPageSize(QPageSize::Letter));
    printer->setPageMargins({Margin, Margin, Margin, Margin}, QPageLayout::Millimeter);
    QPrintDialog dialog(printer.get(), parent);
    dialog.setWindowTitle("Print");
    dialog.setOption(QAbstractPrintDialog::PrintSelection, offer.Selection);
    if (offer.Selection)
        dialog.setPrintRange(QAbstractPrintDialog::Selection);
    offerFile(dialog, offer.DocName);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    return std::make_unique<PrintJob>(std::move(printer));
}
