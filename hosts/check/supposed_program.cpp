#include "check/supposed_program.h"

#include "basic/error.h"
#include "basic/text.h"
#include "check/folders.h"
#include "check/ini_files.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/servo_parameter.h"
#include "machine/servo_families.h"
#include "machine/texts.h"

#include <algorithm>
#include <charconv>

namespace servopanel::check {

namespace {

namespace fs = std::filesystem;
namespace families = machine::families;

constexpr const char* yes = "TRUE";
constexpr const char* secondDiagnosis = ".70"; // its heading, among the texts of a servo

// The number that a name has behind its beginning, before the next sign; nothing when that is no servo's.
std::optional<int> numberBehind(std::string_view name, std::string_view beginning)
{
    if (!name.starts_with(beginning)) return std::nullopt;
    name.remove_prefix(beginning.size());
    return servoNumber(name.substr(0, name.find_first_not_of("0123456789")));
}

void addDefined(const CheckedProject& project, const std::string& designation, std::set<int>& servos)
{
    const std::optional<fs::path> file = project.mapping.find("Servo/Servo.mdb");
    if (!file) return;
    try {
        for (const jet::DefinitionRow& row : jet::loadDefinitions(*file).rows) {
            const auto parameter = jet::servoParameter(jet::plainText(row.variable));
            if (!parameter || parameter->servo.machine != basic::upperCase(designation)) continue;
            if (const std::optional<int> servo = servoNumber(parameter->servo.number)) servos.insert(*servo);
        }
    } catch (const basic::Error&) {
        // Why it cannot be read is told where the definitions are looked at.
    }
}

bool hasFile(const CheckedProject& project, const std::string& beginning)
{
    const std::vector<std::string> names = namesIn(project, "Servo");
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return basic::upperCase(name).starts_with(basic::upperCase(beginning));
    });
}

} // namespace

SupposedProgram::SupposedProgram(const CheckedProject& project, const std::string& designation)
    : withMachineType_{hasFile(project, "Servo_" + designation + "_")}
    , withMenu_{hasFile(project, "ServoMenu_")}
{
    std::set<int> servos;
    for (const auto& variable : project.file.variables) {
        if (const std::optional<int> servo = numberBehind(variable.name, "Ch1." + designation + "_T_servo_"))
            servos.insert(*servo);
        withFault_ = withFault_ || machine::familyOf(variable.name) == families::faultText;
    }
    addDefined(project, designation, servos);
    servos_.assign(servos.begin(), servos.end());
    for (const auto& language : project.file.languages) {
        const machine::Texts texts =
            machine::Texts::load(project.folder / "Texts" / (language.code + ".txt"));
        for (const int servo : servos_)
            if (texts.find("Servo." + designation + ".Servo" + std::to_string(servo) + secondDiagnosis))
                withSecondDiagnosis_.insert(servo);
    }
}

std::optional<std::string> SupposedProgram::entry(std::string_view name) const
{
    const std::string entry = iniName(name);
    if (entry == "SERVOWITHMACHINETYPE") return withMachineType_ ? "1" : "0";
    if (entry == "SERVOWITHMENU" && withMenu_) return yes;
    if (entry == "SERVOWITHFAULT" && withFault_) return yes;
    const auto servoAt = [&](std::string_view list) {
        const std::optional<int> place = numberBehind(entry, list);
        return place && static_cast<std::size_t>(*place) <= servos_.size()
            ? servos_[static_cast<std::size_t>(*place) - 1]
            : 0;
    };
    if (const int servo = servoAt("SERVO")) return std::to_string(servo);
    if (const int servo = servoAt("DIAG2SERVO"); withSecondDiagnosis_.contains(servo)) return yes;
    return std::nullopt;
}

} // namespace servopanel::check
