// Asks the desktop layer for the width of the window's screen.
#include "core/Display.h"

#include "platform/SysInfo.h"

#include <cstdint>

int DisplayMode::Display()
{
    return static_cast<std::int16_t>(SysInfo::current().screenWidth());
}
