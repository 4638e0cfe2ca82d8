// Making and finding the controls of the rows.
#include "platform/controls/ControlTable.h"

#include <QAction>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <algorithm>

ControlTable::ControlTable(std::span<const ControlRow> rows, const char *rootName, QWidget *root,
                           const TwipScale &scale)
    : TwipForm(scale), Rows(rows)
{
    ControlsByName.insert(rootName, root);
}

const ControlRow &ControlTable::rowOf(const char *name) const
{
    const auto row = std::ranges::find_if(
        Rows, [name](const ControlRow &r) { return qstrcmp(r.Name, name) == 0; });
    Q_ASSERT(row != Rows.end());
    return *row;
}

void ControlTable::Adopt(QWidget *control, const char *name)
{
    const ControlRow &row = rowOf(name);
    control->setObjectName(row.Name);
    // A label speaks by its text, and its tag tells what the text is.
    const char *spoken = *row.Spoken ? row.Spoken : row.Tag;
    if (qobject_cast<QLabel *>(control) && !*row.Spoken)
        control->setAccessibleDescription(spoken);
    else if (*spoken)
        control->setAccessibleName(spoken);
    ControlsByName.insert(row.Name, control);
    if (row.Place != InBand)
        place(control, row.Place);
}

QLabel *ControlTable::MakeLabel(const char *name, const QString &text, Qt::Alignment alignment)
{
    auto *label = Make<QLabel>(name, text);
    label->setAlignment(alignment | Qt::AlignVCenter);
    return label;
}

QAction *ControlTable::MakeCommand(QWidget *panel, const char *name)
{
    auto *command = new QAction(panel);
    command->setObjectName(name);
    return command;
}

NumberSlider *ControlTable::MakeNumberSlider(const NumberSliderNames &names, int least, int most,
                                             NumberSlider::NoNumber noNumber)
{
    auto *slider = new NumberSlider(ParentOf(names.Slider), least, most, noNumber);
    Adopt(slider->slider(), names.Slider);
    Adopt(slider->number(), names.Number);
    Adopt(slider->edit(), names.Edit);
    slider->slider()->setToolTip(names.ToolTip);
    slider->slider()->setAccessibleName(names.ToolTip);
    return slider;
}

QWidget *ControlTable::Control(const QString &name) const
{
    QWidget *control = ControlsByName.value(name);
    Q_ASSERT(control);
    return control;
}

void ControlTable::SetToolTips(bool on)
{
    for (const ControlRow &row : Rows)
        if (*row.Tag)
            Control(row.Name)->setToolTip(on ? QString::fromLatin1(row.Tag) : QString());
}

void SetBackColor(QWidget *control, ColorValue color)
{
    QPalette own;
    own.setColor(QPalette::Window, ToColor(color, QGuiApplication::palette()));
    control->setPalette(own);
}
