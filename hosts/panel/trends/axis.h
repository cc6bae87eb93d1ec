#pragma once

#include <QString>

namespace servopanel::panel {

// The scale of a value: from low to high in equal steps that read well (1, 2 or 5 times a power of ten).
struct Axis {
    double low = 0;
    double step = 1;
    int steps = 4;
    int decimals = 0;

    double high() const { return low + step * steps; }
    // 0 at the low end, 1 at the high one.
    double share(double value) const { return (value - low) / (step * steps); }
    QString label(int tick) const;

    // Holds all values between the two. Several axes with the same number of steps share their grid lines.
    static Axis around(double least, double most, int steps);
};

} // namespace servopanel::panel
