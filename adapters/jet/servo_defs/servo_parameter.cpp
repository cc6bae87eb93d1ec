#include "jet/servo_defs/servo_parameter.h"

#include "basic/text.h"

#include <array>

namespace servopanel::jet {

namespace {

struct Family {
    std::string_view name;
    std::int16_t elements;
};

constexpr std::array<Family, 4> families{
    {{"_servo_para_", 20}, {"_servo_para2_", 4}, {"_servo_schalt_", 4}, {"_servo_zeich_", 2}}};

std::string variableName(const ServoName& servo, std::string_view family)
{
    return "Ch1." + servo.machine + "_T_servo_" + servo.number + "<.m" + servo.machine + std::string{family}
    + servo.number + ">";
}

} // namespace

std::optional<ServoParameter> servoParameter(std::string_view variable)
{
    const std::string name = basic::upperCase(variable);
    constexpr std::string_view start = "CH1.";
    constexpr std::string_view middle = "_T_SERVO_";
    const std::size_t machineEnd = name.find(middle);
    const std::size_t numberStart = machineEnd + middle.size();
    const std::size_t numberEnd = name.find("<.M");
    if (machineEnd == std::string::npos || numberEnd == std::string::npos || machineEnd < start.size()
        || numberEnd < numberStart)
        return std::nullopt;
    const ServoName servo{name.substr(start.size(), machineEnd - start.size()),
        name.substr(numberStart, numberEnd - numberStart)};
    for (const Family& family : families)
        if (basic::upperCase(variableName(servo, family.name)) == name)
            return ServoParameter{servo, family.name, family.elements};
    return std::nullopt;
}

} // namespace servopanel::jet
