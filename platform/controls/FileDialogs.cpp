// The file dialogs: what a caller offers, in the words of the toolkit's dialog, which passes it on
// to the desktop's own. Touches no file.
#include "platform/controls/CmnDlg.h"

#include "platform/FileName.h"
#include "platform/SysInfo.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>
#include <QUrl>

namespace {

/// "Texts (*.TXT)|*.txt" becomes "Texts (*.TXT) (*.txt *.[tT][xX][tT])". The dialog shows the part
/// before the last bracket. The first pattern is plain, as the toolkit takes an ending from it;
/// some desktops mind the case of a pattern, hence the second.
QStringList nameFilters(const QString &filter)
{
    QStringList filters;
    const QStringList parts = filter.split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString anyCase;
        for (const QChar c : parts[i + 1])
            anyCase += c.isLetter() ? QString("[%1%2]").arg(c.toLower()).arg(c.toUpper()) : c;
        filters += QString("%1 (%2 %3)").arg(parts[i], parts[i + 1], anyCase);
    }
    return filters;
}

QString folderFor(const FileOffer &offer)
{
    const QFileInfo named(offer.FileName);
    for (const QString &folder :
         {named.isAbsolute() ? named.path() : QString(), offer.InitDir, SysInfo::documentsFolder()})
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return folder;
    return QDir::homePath();
}

/// The toolkit's own dialog turns its button off for a file that the offered kind hides, though
/// Enter takes it: a name that was typed is taken by the button too.
void openWhatIsTyped(QFileDialog &dialog)
{
    const auto *name = dialog.findChild<QLineEdit *>("fileNameEdit");
    const auto *buttons = dialog.findChild<QDialogButtonBox *>();
    QPushButton *open = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
    if (!name || !open)
        return; // the desktop's dialog, which has its own ways
    QObject::connect(name, &QLineEdit::textChanged, open, [&dialog, open] {
        if (QFileInfo(dialog.selectedFiles().value(0)).isFile())
            open->setEnabled(true);
    });
}

/// The endings of the offered kinds: none is appended to a name that is typed.
QString nameHint(const QString &filter)
{
    QStringList endings;
    const QStringList parts = filter.split('|');
    for (qsizetype i = 1; i < parts.size(); i += 2)
        endings += QString(parts[i]).remove('*');
    return "File name, ending in " + endings.join(" or ");
}

/// The toolkit's own dialog cuts sizes and dates off.
void showWholeTexts(QFileDialog &dialog, const FileOffer &offer)
{
    if (auto *name = dialog.findChild<QLineEdit *>("fileNameEdit"))
        name->setPlaceholderText(nameHint(offer.Filter));
    const auto *files = dialog.findChild<QTreeView *>("treeView");
    if (!files)
        return; // the desktop's dialog
    QHeaderView *header = files->header();
    header->setStretchLastSection(false);
    for (int column = 0; column < header->count(); ++column)
        header->setSectionResizeMode(column, column == 0 ? QHeaderView::Stretch
                                                         : QHeaderView::ResizeToContents);
    // What is left to the names.
    constexpr QSize least(760, 480);
    dialog.resize(
        dialog.size().expandedTo(least).boundedTo(dialog.screen()->availableSize() * 9 / 10));
}

std::optional<ChosenFile> show(QFileDialog &dialog, const FileOffer &offer)
{
    dialog.setWindowTitle(offer.DialogTitle);
    dialog.setFileMode(offer.Flags & FileOffer::FileMustExist ? QFileDialog::ExistingFile
                                                              : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite,
                     !(offer.Flags & FileOffer::OverwritePrompt));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    const QStringList filters = nameFilters(offer.Filter);
    dialog.setNameFilters(filters);
    dialog.setDirectory(folderFor(offer));
    // The kind before the name: it would change the ending of a name that is there already.
    dialog.selectNameFilter(filters.value(offer.FilterIndex - 1));
    const QFileInfo offered(FileName::shown(offer.FileName));
    if (!offer.FileName.isEmpty())
        dialog.selectFile(offered.fileName());
    dialog.setSupportedSchemes({"file"});
    showWholeTexts(dialog, offer);
    while (dialog.exec() == QDialog::Accepted) {
        const QString chosen = dialog.selectedUrls().value(0).toLocalFile();
        // Dialogs know names that are texts only. What was offered in their place and left as it
        // was stands for the file itself.
        if (chosen == offered.filePath() && !FileName::isText(offer.FileName) && !offered.exists())
            return ChosenFile{.FileName = offer.FileName,
                              .FileTitle = QFileInfo(offer.FileName).fileName()};
        if (!chosen.isEmpty())
            return ChosenFile{.FileName = chosen, .FileTitle = QFileInfo(chosen).fileName()};
        // Not every desktop's dialog keeps to the scheme.
        QMessageBox::warning(dialog.parentWidget(), offer.DialogTitle,
                             "Only files of this computer can be chosen.");
    }
    return std::nullopt;
}

} // namespace

std::optional<ChosenFile> CmnDlg::ShowOpen(QWidget *parent, const FileOffer &offer)
{
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    openWhatIsTyped(dialog);
    return show(dialog, offer);
}

std::optional<ChosenFile> CmnDlg::ShowSave(QWidget *parent, const FileOffer &offer)
{
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    return show(dialog, offer);
}
