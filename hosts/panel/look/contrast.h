#pragma once

#include <QColor>

namespace servopanel::panel {

// Of two colours, 1 (none) to 21 (black and white), as accessibility guides count it.
double contrast(const QColor& one, const QColor& other);

// What text needs at least, to be read from where an operator stands.
inline constexpr double leastContrast = 4.5;

// The ink itself where it can be read on this ground, else the nearest darker or lighter one that can.
QColor readable(const QColor& ink, const QColor& ground);

} // namespace servopanel::panel
