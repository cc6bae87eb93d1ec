#include "machine/servo_families.h"

#include <algorithm>
#include <array>

namespace servopanel::machine {

namespace {

constexpr std::array all{families::setpoints, families::secondSetpoints, families::lowerLimits,
    families::upperLimits, families::secondLowerLimits, families::secondUpperLimits, families::switches,
    families::drawings, families::actualValues, families::faultText, families::changedFlag};

} // namespace

std::string_view familyOf(std::string_view variable)
{
    const std::size_t member = variable.find("<.");
    if (member == std::string_view::npos) return {};
    const std::string_view name = variable.substr(member);
    for (const std::string_view family : all) {
        const std::size_t at = name.rfind(family);
        if (at == std::string_view::npos) continue;
        // Behind the family stands the servo's number and nothing else: the family of limits begins like that of
        // their setpoints.
        std::string_view number = name.substr(at + family.size());
        if (number.size() < 2 || number.back() != '>') continue;
        number.remove_suffix(1);
        const auto isNumber = [](char c) { return (c >= '0' && c <= '9') || c == '-'; };
        if (std::all_of(number.begin(), number.end(), isNumber)) return family;
    }
    return {};
}

} // namespace servopanel::machine
