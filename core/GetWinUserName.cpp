// Takes the user's name from the desktop layer into the shared variable.
#include "core/GetWinUserName.h"

#include "core/GlobalDeclarations.h"
#include "platform/SysInfo.h"

void FetchWinUserName()
{
    WinUserName = SysInfo::userName();
}
