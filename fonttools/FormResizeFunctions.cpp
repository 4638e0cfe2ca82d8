// The desktop holds a window to the least size of its content.
#include "fonttools/FormResizeFunctions.h"

#include <QWidget>

void HoldTrackSize(QWidget &window, const QSize &least)
{
    window.setMinimumSize(ptMinTrackSize.expandedTo(least) - SizableFrame);
}
