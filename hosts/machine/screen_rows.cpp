#include "machine/screen_rows.h"

#include <cmath>

namespace servopanel::machine {

namespace {
constexpr double millimetresPerInch = 25.4;
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

double leastDiagonal(int resolution)
{
    return std::ceil(leastTouchMillimetres / rowMillimetres(resolution, 1) * 10 - 1e-9) / 10;
}

} // namespace servopanel::machine
