// The desktop's common dialogs as the program uses them: initial values in, the choice out, and a
// Cancel that says so. The file and colour dialogs are the desktop's, the print dialog is the
// toolkit's; the font dialog is our own: the toolkit's lists only the fonts that the toolkit holds.
#pragma once

#include "platform/ColorValue.h"

#include <QDialog>
#include <QFont>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <span>

class QAbstractItemModel;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QSpinBox;
class PrintJob;

/// What the font dialog starts from and gives back.
struct ChosenFont
{
    QString Name;
    double Size = 0; ///< points
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikeout = false;
    ColorValue Color = 0;
};

struct NamedColor
{
    QString Name;
    ColorValue Value;
};

/// What the font dialog chooses from.
struct FontOffer
{
    QAbstractItemModel *Fonts;                    ///< one row a font: icon and name
    std::function<QFont(const QString &)> FontOf; ///< the font to show the sample in
    std::span<const NamedColor> Colors;
    int LeastSize; ///< points
    int MostSize;
};

class FoundFonts;

/// Chooses font, style, size, effects and colour, with a sample. Typing any part of a name leaves
/// the fonts that have it; where none has, nothing can be taken.
class FontDialog : public QDialog
{
    Q_OBJECT

public:
    FontDialog(const FontOffer &offer, const ChosenFont &choice, QWidget *parent);
    ChosenFont choice() const;

private:
    void createControls(const ChosenFont &choice);
    void selectFont(const QString &name);
    void search(const QString &text);
    void showSample();

    FontOffer Offer;
    QString LastName; ///< the font that was current last, while the list may be empty
    FoundFonts *Found = nullptr;
    QLineEdit *Name = nullptr;
    QListView *Names = nullptr;
    QSpinBox *Size = nullptr;
    QCheckBox *Bold = nullptr;
    QCheckBox *Italic = nullptr;
    QCheckBox *Underline = nullptr;
    QCheckBox *Strikeout = nullptr;
    QComboBox *Color = nullptr;
    QLabel *Sample = nullptr;
    QPushButton *Ok = nullptr;
};

/// What a file dialog starts from.
struct FileOffer
{
    enum Flag { OverwritePrompt = 2, FileMustExist = 4096 }; ///< bits, to be summed

    QString DialogTitle;
    QString Filter;      ///< "text|pattern|text|pattern...": kinds of files, in any case of letters
    int FilterIndex = 1; ///< the kind that is offered first, from 1
    int Flags = 0;
    QString InitDir;    ///< the documents folder stands in for one that isn't there
    QString FileName{}; ///< offered name; its folder, if it has one, comes before InitDir
};

struct ChosenFile
{
    QString FileName;  ///< whole path, exactly as chosen: no ending is appended
    QString FileTitle; ///< the name without its folder
};

/// What the print dialog starts from.
struct PrintOffer
{
    QString DocName;        ///< names the job, and the file if it is printed to one
    bool Selection = false; ///< something is selected: the dialog opens with Selection chosen
};

namespace CmnDlg {

/// Asks for a file of this computer to read or to write: the desktop's own dialog where it has one.
/// Names of other kinds than the offered can be typed. Nothing is given after Cancel.
std::optional<ChosenFile> ShowOpen(QWidget *parent, const FileOffer &offer);
std::optional<ChosenFile> ShowSave(QWidget *parent, const FileOffer &offer);

/// Asks for a colour: the desktop's own dialog where it has one. False, with the colour untouched,
/// after Cancel.
bool ShowColor(QWidget *parent, ColorValue &color);

/// Shows the font dialog. False, with the choice untouched, after Cancel.
bool ShowFont(QWidget *parent, const FontOffer &offer, ChosenFont &choice);

/// Asks where and how to print: on one of the desktop's printers, or to a PDF file, which needs
/// none. Nothing is given after Cancel.
std::unique_ptr<PrintJob> ShowPrinter(QWidget *parent, const PrintOffer &offer);

/// What of a help file is to be shown: the topic of a context id, or the top. The numbers are those
/// of HELP_CONTEXT and HELP_FORCEFILE in winuser.h.
enum class HelpCommand { Context = 1, Contents = 9 };

struct HelpRequest
{
    HelpCommand Command = HelpCommand::Contents;
    QString HelpFile;    ///< path, relative to the current folder
    int HelpContext = 0; ///< of Context: an id that HelpViewer::AnchorOf knows
};

/// Shows the help in a window beside the parent, which owns it; a window that is open already comes
/// to the front and reads the file again. A file that can't be shown is told there.
void ShowHelp(QWidget *parent, const HelpRequest &request);

} // namespace CmnDlg
