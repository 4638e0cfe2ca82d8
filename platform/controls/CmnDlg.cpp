// The font dialog: list and search at the left, size, styles and colour at the right, the sample
// below. And the doors to the desktop's colour dialog and to the help window.
#include "platform/controls/CmnDlg.h"

#include "platform/controls/Accessibility.h"
#include "platform/controls/HelpViewer.h"
#include "platform/controls/NumberSlider.h"

#include <QAbstractListModel>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>
#include <vector>

/// Of a list those rows whose text has a part in it, in capitals or not. All at once: the toolkit's
/// filter takes rows out run by run, which is slow where there are many runs.
class FoundFonts : public QAbstractListModel
{
public:
    FoundFonts(QAbstractItemModel *all, QObject *parent) : QAbstractListModel(parent), All(all)
    {
        find({});
    }

    void find(const QString &part)
    {
        beginResetModel();
        Rows.clear();
        for (int row = 0; row < All->rowCount(); ++row)
            if (textOf(row).contains(part, Qt::CaseInsensitive))
                Rows.push_back(row);
        endResetModel();
    }

    /// The row to take for a part of a name: the font called that, else the first that begins so,
    /// else the first. An index that isn't valid if there is none.
    QModelIndex best(const QString &part) const
    {
        int beginsSo = -1;
        for (int row = 0; row < rowCount(); ++row) {
            const QString text = textOf(Rows[static_cast<std::size_t>(row)]);
            if (text.compare(part, Qt::CaseInsensitive) == 0)
                return index(row);
            if (beginsSo < 0 && text.startsWith(part, Qt::CaseInsensitive))
                beginsSo = row;
        }
        return index(std::max(beginsSo, 0));
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(Rows.size());
    }

    QVariant data(const QModelIndex &at, int role) const override
    {
        return at.isValid() ? All->index(Rows[static_cast<std::size_t>(at.row())], 0).data(role)
                            : QVariant();
    }

private:
    QString textOf(int row) const { return All->index(row, 0).data().toString(); }

    QAbstractItemModel *All;
    std::vector<int> Rows;
};

FontDialog::FontDialog(const FontOffer &offer, const ChosenFont &choice, QWidget *parent)
    : QDialog(parent), Offer(offer)
{
    setWindowTitle("Font");
    createControls(choice);
    LastName = choice.Name;
    selectFont(LastName);
    connect(Names->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        LastName = this->choice().Name;
        if (!Name->hasFocus())
            Name->setText(LastName);
        showSample();
    });
    connect(Names, &QListView::doubleClicked, this, &QDialog::accept);
    connect(Name, &QLineEdit::textEdited, this, &FontDialog::search);
    connect(Size, &QSpinBox::valueChanged, this, &FontDialog::showSample);
    connect(Color, &QComboBox::currentIndexChanged, this, &FontDialog::showSample);
    for (QCheckBox *box : {Bold, Italic, Underline, Strikeout})
        connect(box, &QCheckBox::toggled, this, &FontDialog::showSample);
    showSample();
    Name->setFocus();
    Name->selectAll();
}

void FontDialog::createControls(const ChosenFont &choice)
{
    Name = new QLineEdit(choice.Name);
    Names = new QListView;
    Found = new FoundFonts(Offer.Fonts, this);
    Names->setAccessibleName("Fonts");
    Names->setModel(Found);
    Names->setUniformItemSizes(true);
    Names->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Size = new QSpinBox;
    Size->setRange(Offer.LeastSize, Offer.MostSize);
    Size->setValue(NumberSlider::whole(choice.Size));
    const auto box = [](const QString &text, bool checked) {
        auto *made = new QCheckBox(text);
        made->setChecked(checked);
        return made;
    };
    Bold = box("&Bold", choice.Bold);
    Italic = box("&Italic", choice.Italic);
    Underline = box("&Underline", choice.Underline);
    Strikeout = box("Stri&keout", choice.Strikeout);
    Color = new QComboBox;
    for (const NamedColor &color : Offer.Colors) {
        QPixmap swatch(12, 12);
        swatch.fill(ToColor(color.Value, palette()));
        Color->addItem(swatch, color.Name, color.Value);
    }
    // A colour outside the offer is kept unless another is chosen.
    if (Color->findData(choice.Color) < 0)
        Color->addItem("Other", choice.Color);
    Color->setCurrentIndex(Color->findData(choice.Color));
    Sample = new QLabel;
    Sample->setAlignment(Qt::AlignCenter);
    Sample->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Sample->setFixedHeight(72);
    Sample->setAutoFillBackground(true);
    Sample->setBackgroundRole(QPalette::Base);
    Sample->setForegroundRole(QPalette::Text);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    Ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    const auto label = [](const QString &text, QWidget *of) {
        auto *made = new QLabel(text);
        made->setBuddy(of);
        return made;
    };
    auto *grid = new QGridLayout(this);
    grid->addWidget(label("&Font:", Name), 0, 0);
    grid->addWidget(Name, 1, 0);
    grid->addWidget(Names, 2, 0, 8, 1);
    grid->addWidget(label("&Size:", Size), 0, 1);
    grid->addWidget(Size, 1, 1);
    int row = 2;
    for (QWidget *control : std::initializer_list<QWidget *>{Bold, Italic, Underline, Strikeout,
                                                             label("&Color:", Color), Color})
        grid->addWidget(control, row++, 1);
    grid->setRowStretch(row, 1);
    grid->addWidget(Sample, 10, 0, 1, 2);
    grid->addWidget(buttons, 11, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    resize(440, 400);
}

void FontDialog::selectFont(const QString &name)
{
    const QModelIndexList found = Found->match(Found->index(0), Qt::DisplayRole, name, 1,
                                               Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty())
        Names->setCurrentIndex(found.first());
    Names->scrollTo(Names->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void FontDialog::search(const QString &text)
{
    const QString last = LastName;
    Found->find(text);
    if (text.isEmpty())
        selectFont(last);
    else
        Names->setCurrentIndex(Found->best(text));
    showSample(); // also where no font is left, of which the list tells nothing
    if (!Ok->isEnabled())
        announce(this, Sample->text());
}

void FontDialog::showSample()
{
    const bool isThere = Names->currentIndex().isValid();
    Ok->setEnabled(isThere);
    Sample->setText(isThere ? "AaBbYyZz 123" : "No font has such a name.");
    const ChosenFont now = choice();
    if (!isThere) {
        Sample->setFont(this->font());
        Sample->setPalette(palette());
        return;
    }
    QFont font = Offer.FontOf(now.Name);
    font.setPointSizeF(now.Size);
    font.setBold(now.Bold);
    font.setItalic(now.Italic);
    font.setUnderline(now.Underline);
    font.setStrikeOut(now.Strikeout);
    Sample->setFont(font);
    // On paper, as the board shows it.
    QPalette own = palette();
    own.setColor(QPalette::Base, Qt::white);
    own.setColor(QPalette::Text, ToColor(now.Color, palette()));
    Sample->setPalette(own);
}

ChosenFont FontDialog::choice() const
{
    return {.Name = Names->currentIndex().data().toString(),
            .Size = static_cast<double>(Size->value()),
            .Bold = Bold->isChecked(),
            .Italic = Italic->isChecked(),
            .Underline = Underline->isChecked(),
            .Strikeout = Strikeout->isChecked(),
            .Color = Color->currentData().toInt()};
}

bool CmnDlg::ShowColor(QWidget *parent, ColorValue &color)
{
    QColorDialog dialog(ToColor(color, QGuiApplication::palette()), parent);
    dialog.setWindowTitle("Color");
    if (dialog.exec() != QDialog::Accepted)
        return false;
    color = FromColor(dialog.selectedColor());
    return true;
}

bool CmnDlg::ShowFont(QWidget *parent, const FontOffer &offer, ChosenFont &choice)
{
    FontDialog dialog(offer, choice, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    choice = dialog.choice();
    return true;
}

void CmnDlg::ShowHelp(QWidget *parent, const HelpRequest &request)
{
    auto *viewer = parent->findChild<HelpViewer *>(QString(), Qt::FindDirectChildrenOnly);
    if (!viewer)
        viewer = new HelpViewer(parent);
    switch (request.Command) {
    case HelpCommand::Contents:
        viewer->ShowContents(request.HelpFile);
        break;
    case HelpCommand::Context:
        viewer->ShowContext(request.HelpFile, request.HelpContext);
        break;
    }
}
