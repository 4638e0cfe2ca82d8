// A form as a table: one row a control, with its parent, its place in twips and what is told of it.
// Makes the controls of the rows, finds them by name and switches their tooltips; where the rows
// stand and what the controls do is their window's affair.
#pragma once

#include "platform/ColorValue.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/TwipForm.h"

#include <QHash>
#include <QString>
#include <span>
#include <utility>

class QAction;
class QLabel;

struct ControlRow
{
    const char *Name;
    const char *Parent;
    TwipRect Place{};        ///< within the parent; of no use for the content of a band
    const char *Tag = "";    ///< tooltip that can be switched off
    const char *Spoken = ""; ///< accessible name of what has neither a text nor a tag
};

/// The place of a control that stands in a band or a layout, which places it.
inline constexpr TwipRect InBand;

class ControlTable : public TwipForm
{
public:
    /// The rows outlive the table. The root is the parent that no row makes, under this name.
    ControlTable(std::span<const ControlRow> rows, const char *rootName, QWidget *root,
                 const TwipScale &scale);

    /// The control of a row, made under the row's parent, which must have been made before.
    template<class Widget, class... Arguments>
    Widget *Make(const char *name, Arguments &&...arguments)
    {
        auto *control = new Widget(std::forward<Arguments>(arguments)..., ParentOf(name));
        Adopt(control, name);
        return control;
    }
    /// Takes a control made elsewhere for that of a row: name, tag, what is told of it, place.
    void Adopt(QWidget *control, const char *name);
    QLabel *MakeLabel(const char *name, const QString &text, Qt::Alignment alignment);

    /// A command of a panel, for a menu to show under this name.
    static QAction *MakeCommand(QWidget *panel, const char *name);

    /// The three rows of a number with its slider, and the slider's tooltip, which always shows.
    struct NumberSliderNames
    {
        const char *Slider;
        const char *Number;
        const char *Edit;
        const char *ToolTip;
    };
    NumberSlider *MakeNumberSlider(const NumberSliderNames &names, int least, int most,
                                   NumberSlider::NoNumber noNumber);

    /// The control of a row, or the root, by its name; it must have been made.
    QWidget *Control(const QString &name) const;

    /// Every tag as a tooltip, or none of them. Tooltips without a tag stay.
    void SetToolTips(bool on);

private:
    const ControlRow &rowOf(const char *name) const;
    QWidget *ParentOf(const char *name) const { return Control(rowOf(name).Parent); }

    std::span<const ControlRow> Rows;
    QHash<QString, QWidget *> ControlsByName;
};

/// Fills the control's ground with a colour, one of the desktop as it is now. Other colours of its
/// own go.
void SetBackColor(QWidget *control, ColorValue color);
