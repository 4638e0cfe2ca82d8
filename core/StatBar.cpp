// The panels of the status bar: which locks of the keyboard are on. A panel is dimmed while its
// lock is off, and where the window system does not tell. Touches nothing beside these panels.
#include "core/Zendova.h"

#include "platform/KeyboardLocks.h"
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

void Zendova::CreateLockPanels()
{
    Locks = std::make_unique<KeyboardLocks>();
    setAccessibleRole(StatBar, QAccessible::StatusBar);
    auto *row = new QHBoxLayout(StatBar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const PanelRow &panel : Panels) {
        auto *label = new QLabel(panel.Text, StatBar);
        label->setObjectName(panel.Text);
        label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        label->setAlignment(Qt::AlignCenter);
        label->setAccessibleName(panel.Spoken);
        row->addWidget(label);
    }
    ShowLocks();
    connect(Locks.get(), &KeyboardLocks::Changed, this, &Zendova::ShowLocks);
}

void Zendova::ShowLocks()
{
    const std::optional<LockState> &state = Locks->state();
    for (const PanelRow &panel : Panels) {
        auto *label = StatBar->findChild<QLabel *>(panel.Text);
        const bool on = state && (*state).*panel.Lock;
        label->setEnabled(on);
        label->setAccessibleDescription(!state ? "unknown" : on ? "on" : "off");
    }
}
