#include "jet/servo_defs/configured_servos.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "jet/jet_error.h"
#include "machine/project_file.h"
#include "portable/portable_profile.h"

#include <algorithm>
#include <array>

namespace servopanel::jet {

namespace {

constexpr std::string_view profile = "Parameter\\Program.ini";
constexpr std::string_view designationPrefix = "parameter<.maschinenbez_";
constexpr int mostServos = 50;
constexpr std::array<std::string_view, 4> families{
    "_servo_para_", "_servo_para2_", "_servo_schalt_", "_servo_zeich_"};

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

std::string variableName(const ServoName& servo, std::string_view family)
{
    return "Ch1." + servo.machine + "_T_servo_" + servo.number + "<.m" + servo.machine + std::string{family}
    + servo.number + ">";
}

} // namespace

std::vector<ServoName> configuredServos(const std::filesystem::path& project)
{
    const std::filesystem::path description = project / "project.json";
    if (std::error_code code; !std::filesystem::is_regular_file(description, code))
        raise(JetError::FileNotFound, "'" + description.string() + "': there is no such file");
    const portable::PathMapping mapping{project};
    portable::PortableProfile entries{mapping};

    std::vector<ServoName> servos;
    for (const auto& variable : machine::ProjectFile::load(description).variables) {
        if (!startsWith(variable.name, designationPrefix) || !variable.value.holds<std::string>()) continue;
        std::string machine = variable.name.substr(designationPrefix.size());
        if (!machine.empty()) machine.pop_back(); // the closing bracket
        for (int i = 1; i <= mostServos; ++i) {
            const auto number = entries.text(profile, machine + "Machine", "Servo" + std::to_string(i));
            const std::int16_t servo = number ? basic::roundToInt16(basic::Val(*number)) : std::int16_t{0};
            if (servo != 0)
                servos.push_back({*variable.value.get<std::string>(), basic::decimal(std::int32_t{servo})});
        }
    }
    return servos;
}

std::optional<ServoName> servoOf(std::string_view variable)
{
    constexpr std::string_view start = "Ch1.";
    constexpr std::string_view middle = "_T_servo_";
    const std::size_t machineEnd = variable.find(middle);
    const std::size_t numberEnd = variable.find("<.m");
    if (!startsWith(variable, start) || machineEnd == std::string_view::npos
        || numberEnd == std::string_view::npos || numberEnd < machineEnd + middle.size())
        return std::nullopt;
    const std::size_t numberStart = machineEnd + middle.size();
    const ServoName servo{std::string{variable.substr(start.size(), machineEnd - start.size())},
        std::string{variable.substr(numberStart, numberEnd - numberStart)}};
    const bool known = std::any_of(families.begin(), families.end(),
        [&](std::string_view family) { return variableName(servo, family) == variable; });
    if (!known) return std::nullopt;
    return servo;
}

} // namespace servopanel::jet
