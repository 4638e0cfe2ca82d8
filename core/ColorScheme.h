// The FontMap's two colours on the dialogs, for those who chose to have them there.
#pragma once

#include "platform/ColorValue.h"

#include <initializer_list>

class QWidget;

/// The colours of the scheme from now on: the live ones of the FontMap, whoever tells of them.
void SetColorScheme(ColorValue fore, ColorValue back);

/// With ColorSchemeOn, gives the controls the two colours; otherwise, and while none were set, they
/// stay as they are.
void WearColorScheme(std::initializer_list<QWidget *> controls);
