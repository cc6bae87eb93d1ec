#include "panel/look/contrast.h"

#include "panel/look/colours.h"

#include <algorithm>
#include <cmath>

namespace servopanel::panel {

namespace {

double linear(int channel)
{
    const double share = channel / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

QColor readable(const QColor& ink, const QColor& ground)
{
    constexpr double step = 0.05;
    const bool darker = contrast(Qt::black, ground) >= contrast(Qt::white, ground);
    const QColor goal = darker ? Qt::black : Qt::white;
    for (double share = 0; share < 1; share += step)
        if (const QColor each = mix(ink, goal, share); contrast(each, ground) >= leastContrast) return each;
    return goal;
}

} // namespace servopanel::panel
