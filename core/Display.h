// Width of the display: the one figure of the screen on which start-up, the map's size limit and
// the defaults of a first run depend.
#pragma once

/// Not outside of a namespace, where the window system's headers have a type of the same name.
namespace DisplayMode {

/// Width of the current display mode in device-independent pixels, as the window is measured too,
/// cut to 16 bits as a signed number.
int Display();

} // namespace DisplayMode
