#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace servopanel::servo_page {

// A drawing number such as 123456789 is one number in the machine and three parts on the page: 123 | 45 | 6789.
using ZeichnungsTeile = std::array<double, 3>;

// The parts are split off from the left, downwards, and the last one keeps whatever is left, fractions included: -1
// gives -1, 99, 9999. basic::Error when the number is too large to be split.
ZeichnungsTeile zeichnungZerlegen(double nummer);

// The parts' ranges are not checked: 1000 as the middle part adds ten to the first.
double zeichnungZusammensetzen(const ZeichnungsTeile& teile);

// Place of a drawing item (41..46) among the parts of its number, from 0.
constexpr std::int16_t zeichnungsTeil(std::int16_t item)
{
    return static_cast<std::int16_t>((item - 41) / 2);
}

// How a part is shown, and the largest that can be entered, as the input mask wants it.
constexpr std::string_view zeichnungsMuster(std::int16_t item)
{
    constexpr std::array<std::string_view, 3> muster{"000", "00", "0000"};
    return muster[static_cast<std::size_t>(zeichnungsTeil(item))];
}
constexpr std::string_view zeichnungsObergrenze(std::int16_t item)
{
    constexpr std::array<std::string_view, 3> grenzen{"999", "99", "9999"};
    return grenzen[static_cast<std::size_t>(zeichnungsTeil(item))];
}

} // namespace servopanel::servo_page
