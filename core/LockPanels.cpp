// One label a lock.
#include "core/LockPanels.h"

#include "platform/controls/Accessibility.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

struct PanelRow
{
    const char *Text;
    const char *Spoken;
    bool LockState::*Lock;
};

constexpr PanelRow Panels[] = {
    {"NUM", "Num Lock", &LockState::Num},
    {"CAPS", "Caps Lock", &LockState::Caps},
    {"SCRL", "Scroll Lock", &LockState::Scroll},
};

} // namespace

LockPanels::LockPanels(QWidget *parent) : QWidget(parent)
{
    setAccessibleRole(this, QAccessible::StatusBar);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const PanelRow &panel : Panels) {
        auto *label = new QLabel(panel.Text, this);
        label->setObjectName(panel.Text);
        label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        label->setAlignment(Qt::AlignCenter);
        label->setAccessibleName(panel.Spoken);
        row->addWidget(label);
    }
    showLocks();
    connect(&Locks, &KeyboardLocks::Changed, this, &LockPanels::showLocks);
}

void LockPanels::showLocks()
{
    const std::optional<LockState> &state = Locks.state();
    for (const PanelRow &panel : Panels) {
        auto *label = findChild<QLabel *>(panel.Text);
        const bool on = state && (*state).*panel.Lock;
        label->setEnabled(on);
        label->setAccessibleDescription(!state ? "unknown" : on ? "on" : "off");
    }
}
