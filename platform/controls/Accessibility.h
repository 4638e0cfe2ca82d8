// What assistive tools are told of the program's own controls: the role of a plain widget, and the
// cells of CharCells as a table. Made when a tool asks, never before.
#pragma once

#include <QAccessible>

class QWidget;

/// The role in which assistive tools meet a control that has no class of its own for it.
void setAccessibleRole(QWidget *control, QAccessible::Role role);

/// Lets assistive tools meet every CharCells as what it is. Further calls do nothing.
void installAccessibility();
