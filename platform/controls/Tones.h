// Colours between two others, and how well two can be told from each other.
#pragma once

#include <QColor>

/// From the first colour the given share, 0 to 1, of the way to the second.
QColor mix(const QColor &from, const QColor &to, float share);

/// 1 for the same lightness to 21 for black on white: the contrast ratio of WCAG 2.
double contrast(const QColor &one, const QColor &other);
