// The public variables that all windows and modules share. One thread, the user interface's,
// touches them, so there is no lock; each is set and read where the design says and nowhere else.
#pragma once

/// Raised by a failed read of a setting; cleared and looked at only by the reading at start-up.
inline bool RegistryError = false;
