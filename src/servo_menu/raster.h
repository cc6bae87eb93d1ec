#pragma once

#include "servo_menu/menue_zustand.h"

#include <cstdint>

namespace servopanel::servo_menu {

inline constexpr std::int16_t tastenZahl = 8;

// The key grid of a panel width in pixels: one for 800, one for every other width. It is not scaled any further.
TastenRaster tastenRaster(std::int16_t aufloesung);

// Keys 1 to 8 run row by row: odd ones stand in column 0, even ones in column 1.
constexpr std::int16_t spalteDerTaste(std::int16_t taste)
{
    return taste % 2 == 1 ? std::int16_t{0} : std::int16_t{1};
}
constexpr std::int16_t zeileDerTaste(std::int16_t taste)
{
    return static_cast<std::int16_t>((taste + 1) / 2 - 1);
}

} // namespace servopanel::servo_menu
