#pragma once

#include <cstdint>

// Colours 0xBBGGRR that menu and page have in common.
namespace servopanel::display::farben {

inline constexpr std::int32_t Silber = 0xC0C0C0; // normal background, normal key, ground of servo pictures

} // namespace servopanel::display::farben
