#pragma once

#include <array>
#include <cstdint>

namespace servopanel::machine {

// How large the rows of a servo page are under a finger. The library's design gives them a number of pixels, so it is
// the size of the screen that decides.

// The panel's three resolutions, named by their width in pixels.
inline constexpr std::array resolutions{800, 1024, 1280};
bool isResolution(std::int64_t width);

// The least side of what a finger shall hit.
inline constexpr double leastTouchMillimetres = 9;

struct ScreenSize {
    int width = 0; // pixels
    int height = 0;
};
// Of the panel for a resolution; another one counts as 1280.
ScreenSize screenSize(int resolution);

// From one row of inputs to the next, pixels; where rounding makes them differ, of the lowest row.
double rowPixels(int resolution);

// The height of a row on a screen of this size. inches: of its diagonal.
double rowMillimetres(int resolution, double inches);

// The diagonal of the smallest screen whose rows are as high as a finger needs it: inches, rounded up to a tenth. For a
// picture that fills its screen, or for one whose rows have this height on a screen with this diagonal in inches.
double leastDiagonal(int resolution);
double leastDiagonal(double rowMillimetres, double inches);

} // namespace servopanel::machine
