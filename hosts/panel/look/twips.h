#pragma once

#include <QRect>
#include <QSize>

#include <algorithm>
#include <cmath>

namespace servopanel::panel {

// The panel's screen: one pixel is 15 twips in either direction, whatever monitor it is shown on.
inline constexpr float twipsPerPixel = 15.0F;

// The one place where twips become pixels: the nearest whole pixel, halves up. Far outside any screen it stops, so that
// a senseless value cannot make a widget of a million pixels.
inline int toPixels(float twips)
{
    constexpr double farthest = 16000;
    const double pixels = std::floor(static_cast<double>(twips) / twipsPerPixel + 0.5);
    return std::isfinite(pixels) ? static_cast<int>(std::clamp(pixels, -farthest, farthest)) : 0;
}
inline float toTwips(double pixels) { return static_cast<float>(pixels * twipsPerPixel); }

// The rectangle between two rounded edges, so that neighbours in twips stay neighbours in pixels.
inline QRect toPixels(float left, float top, float width, float height)
{
    const int x = toPixels(left);
    const int y = toPixels(top);
    return {x, y, std::max(0, toPixels(left + width) - x), std::max(0, toPixels(top + height) - y)};
}

} // namespace servopanel::panel
