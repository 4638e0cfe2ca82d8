// Which role of the toolkit's palette stands for which system colour.
#include "platform/ColorValue.h"

#include <array>

namespace {

struct SystemRole
{
    QPalette::ColorRole Role;
    QPalette::ColorGroup Group = QPalette::Active;
};

// What is written on a ground has the ink that goes with it in every palette: title bars, menus,
// windows, the highlight, buttons and tooltips can be read on any desktop.
constexpr std::array<SystemRole, SystemColorCount> SystemRoles = {{
    {QPalette::Midlight, QPalette::Inactive},   // 0 scroll bars
    {QPalette::Dark, QPalette::Inactive},       // 1 desktop
    {QPalette::Highlight},                      // 2 active title bar
    {QPalette::Window, QPalette::Inactive},     // 3 inactive title bar
    {QPalette::Window},                         // 4 menu bar
    {QPalette::Base},                           // 5 window background
    {QPalette::WindowText},                     // 6 window frame
    {QPalette::WindowText},                     // 7 menu text
    {QPalette::Text},                           // 8 window text
    {QPalette::HighlightedText},                // 9 active title bar text
    {QPalette::Mid},                            // 10 active border
    {QPalette::Button, QPalette::Inactive},     // 11 inactive border
    {QPalette::Mid, QPalette::Inactive},        // 12 application workspace
    {QPalette::Highlight},                      // 13 highlight
    {QPalette::HighlightedText},                // 14 highlight text
    {QPalette::Button},                         // 15 button face
    {QPalette::Dark},                           // 16 button shadow
    {QPalette::WindowText, QPalette::Disabled}, // 17 disabled text
    {QPalette::ButtonText},                     // 18 button text
    {QPalette::WindowText, QPalette::Inactive}, // 19 inactive title bar text
    {QPalette::Light},                          // 20 button highlight
    {QPalette::Shadow},                         // 21 button dark shadow
    {QPalette::Midlight},                       // 22 button light shadow
    {QPalette::ToolTipText},                    // 23 tooltip text
    {QPalette::ToolTipBase},                    // 24 tooltip background
}};

} // namespace

QColor ToColor(ColorValue value, const QPalette &palette)
{
    if (value & SystemColorBit) {
        const int index = value & 0xFF;
        if (index >= SystemColorCount)
            return palette.color(QPalette::Active, QPalette::Text);
        const SystemRole &role = SystemRoles.at(static_cast<std::size_t>(index));
        return palette.color(role.Group, role.Role);
    }
    return QColor(value & 0xFF, value >> 8 & 0xFF, value >> 16 & 0xFF);
}

ColorValue FromColor(const QColor &color)
{
    return RGBValue(color.red(), color.green(), color.blue());
}
