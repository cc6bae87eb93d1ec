#include "machine/screen_rows.h"

#include <algorithm>
#include <cmath>

namespace servopanel::machine {

namespace {
constexpr double millimetresPerInch = 25.4;
}

bool isResolution(std::int64_t width)
{
    return std::find(resolutions.begin(), resolutions.end(), width) != resolutions.end();
}

ScreenSize screenSize(int resolution)
{
    switch (resolution) {
    case 800: return {800, 600};
    case 1024: return {1024, 768};
    default: return {1280, 1024};
    }
}

double rowPixels(int resolution)
{
    switch (resolution) {
    case 800: return 24;
    case 1024: return 31;
    default: return 42;
    }
}

double rowMillimetres(int resolution, double inches)
{
    const ScreenSize screen = screenSize(resolution);
    return rowPixels(resolution) * inches * millimetresPerInch / std::hypot(screen.width, screen.height);
}

double leastDiagonal(int resolution) { return leastDiagonal(rowMillimetres(resolution, 1), 1); }

double leastDiagonal(double rowMillimetres, double inches)
{
    constexpr double rounding = 1e-9; // what computing may add to a whole tenth
    return std::ceil(leastTouchMillimetres / rowMillimetres * inches * 10 - rounding) / 10;
}

} // namespace servopanel::machine
