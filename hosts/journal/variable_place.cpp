#include "journal/variable_place.h"

#include <charconv>

namespace servopanel::journal {

VariablePlace placeOf(std::string_view variable)
{
    constexpr std::string_view servoPart = "_T_servo_";
    const std::size_t dot = variable.find('.');
    const std::size_t member = variable.find("<.");
    if (dot == std::string_view::npos || member == std::string_view::npos || dot > member) return {};
    const std::string_view owner = variable.substr(dot + 1, member - dot - 1);
    const std::size_t servo = owner.rfind(servoPart);
    if (servo == std::string_view::npos) return {};

    const std::string_view digits = owner.substr(servo + servoPart.size());
    int number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec != std::errc{} || read.ptr != digits.data() + digits.size()) return {};
    return {std::string{owner.substr(0, servo)}, number};
}

} // namespace servopanel::journal
