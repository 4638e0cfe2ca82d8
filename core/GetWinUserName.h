// The name of the logged-on user, for the default folder of a repair.
#pragma once

/// Sets the public variable WinUserName; the empty string if the system knows no name.
void FetchWinUserName();
