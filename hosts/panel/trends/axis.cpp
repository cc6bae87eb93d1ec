#include "panel/trends/axis.h"

#include <algorithm>
#include <cmath>

namespace servopanel::panel {

namespace {

constexpr double smallestSpan = 1e-9; // relative to the value: below it all is rounding
constexpr double largest = 1e300;

// The next step from 1, 2, 5, 10, ... times a power of ten that is not smaller.
double niceStep(double least)
{
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0, 10.0})
        if (factor * power >= least * (1 - 1e-9)) return factor * power;
    return 10 * power;
}

} // namespace

Axis Axis::around(double least, double most, int steps)
{
    least = std::clamp(std::min(least, most), -largest, largest);
    most = std::clamp(std::max(least, most), -largest, largest);
    const double size = std::max(std::abs(least), std::abs(most));
    if (most - least <= size * smallestSpan) {
        // A value that stands still lies in the middle of something.
        const double room = size == 0 ? 1 : size * 0.05;
        least -= room;
        most += room;
    }
    Axis axis;
    axis.steps = std::max(1, steps);
    axis.step = niceStep((most - least) / axis.steps);
    axis.low = std::floor(least / axis.step + 1e-9) * axis.step;
    // Rounding the low end down may have lost room at the top.
    while (axis.high() < most - axis.step * 1e-9) {
        axis.step = niceStep(axis.step * 1.01);
        axis.low = std::floor(least / axis.step + 1e-9) * axis.step;
    }
    axis.decimals = std::clamp(static_cast<int>(-std::floor(std::log10(axis.step) + 1e-9)), 0, 6);
    return axis;
}

QString Axis::label(int tick) const
{
    const double value = low + step * tick;
    if (std::abs(value) >= 1e7 || (step < 1e-6 && value != 0)) return QString::number(value, 'g', 4);
    return QString::number(std::abs(value) < step / 2 ? 0.0 : value, 'f', decimals);
}

} // namespace servopanel::panel
