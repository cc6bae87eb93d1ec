#include "jet/servo_defs/configured_servos.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "jet/jet_error.h"
#include "machine/project_file.h"
#include "portable/path_mapping.h"
#include "portable/profile_text.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"

#include <optional>
#include <string_view>

namespace servopanel::jet {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view profile = "Parameter\\Program.ini";
constexpr std::string_view designationPrefix = "parameter<.maschinenbez_";
constexpr int mostServos = 50;

[[noreturn]] void refuse(const fs::path& file, const std::string& what)
{
    raise(JetError::CannotOpen, "'" + file.string() + "': " + what);
}

struct Machine {
    std::string number; // "2" of "parameter<.maschinenbez_2>"
    std::string designation;
};

std::vector<Machine> machinesOf(const fs::path& description)
{
    if (std::error_code code; !fs::is_regular_file(description, code))
        refuse(description, "there is no such file");
    const machine::ProjectFile project = machine::ProjectFile::load(description);
    // Mistakes elsewhere in the project change nothing about its servos.
    for (const machine::Problem& problem : project.problems) {
        const bool isMember = problem.place.substr(0, 1) == "/";
        if (isMember && problem.place.find(designationPrefix) == std::string::npos) continue;
        refuse(description, problem.place.empty() ? problem.reason : problem.place + ": " + problem.reason);
    }
    std::vector<Machine> machines;
    for (const auto& variable : project.variables) {
        const std::string_view name = variable.name;
        if (name.substr(0, designationPrefix.size()) != designationPrefix || name.back() != '>') continue;
        const std::string_view number = name.substr(designationPrefix.size());
        try {
            machines.push_back(
                {std::string{number.substr(0, number.size() - 1)}, basic::toText(variable.value)});
        } catch (const basic::Error&) {
            refuse(description, "/variables/" + variable.name + ": it is no designation of a machine");
        }
    }
    if (machines.empty())
        refuse(description,
            "no machine has a designation (variables " + std::string{designationPrefix} + "...>)");
    return machines;
}

// 0 for a place of the list that leads to no servo.
std::int32_t servoNumber(
    const fs::path& file, const std::string& section, const std::string& entry, const std::string& text)
{
    const std::int32_t number = portable::profileNumber(text);
    if (number < 0 || number > mostServos)
        refuse(file, "[" + section + "] " + entry + ": '" + text + "' is no number of a servo");
    return number;
}

} // namespace

std::vector<ServoName> configuredServos(const fs::path& project)
{
    const std::vector<Machine> machines = machinesOf(project / "project.json");
    const fs::path file = portable::PathMapping{project}.resolve(profile);
    portable::FileBytes content = portable::readFile(file, file.string());
    if (content.failure) throw *content.failure;
    const std::string ini = portable::decodedText(std::move(content.bytes));

    std::vector<ServoName> servos;
    for (const Machine& machine : machines) {
        const std::string section = machine.number + "Machine";
        for (int i = 1; i <= mostServos; ++i) {
            const std::string entry = "Servo" + std::to_string(i);
            const std::optional<std::string> text = portable::profileLookUp(ini, section, entry);
            const std::int32_t number = text ? servoNumber(file, section, entry, *text) : 0;
            if (number != 0) servos.push_back({machine.designation, std::to_string(number)});
        }
    }
    return servos;
}

} // namespace servopanel::jet
