#include "check/designations_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "check/start_values.h"
#include "portable/trimming.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace servopanel::check {

namespace {

constexpr std::string_view designation = "parameter<.maschinenbez_";
constexpr std::string_view channel = "Ch1.";
constexpr std::string_view servoPart = "_T_servo_";

bool hasServoVariable(const CheckedProject& project, const std::string& beginning)
{
    return std::any_of(
        project.file.variables.begin(), project.file.variables.end(), [&](const auto& variable) {
            return variable.name.starts_with(beginning) && variable.name.find(servoPart) != std::string::npos;
        });
}

// The text of a designation; nothing when it is a list.
std::optional<std::string> textOf(const basic::Variant& value)
{
    try {
        return basic::toText(value);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

class DesignationsCheck {
public:
    explicit DesignationsCheck(const CheckedProject& project)
        : project_{project}
        , hasServos_{hasServoVariable(project, std::string{channel})}
    {
    }

    // What is wrong with the designation of a machine; "" when nothing is. From machine 1 on, one after the other.
    std::string mistakeOf(std::int16_t machine, const std::string& name)
    {
        const auto variable = std::find_if(project_.file.variables.begin(), project_.file.variables.end(),
            [&](const auto& each) { return each.name == name; });
        if (variable == project_.file.variables.end())
            return "is missing: the panel does not know the designation of machine "
                + std::to_string(machine);
        const std::optional<std::string> text = textOf(variable->value);
        if (!text) return "is a list, and one text belongs here: the panel reports it";
        if (portable::trimBlanks(*text) != *text) {
            std::string what = "has blanks around the designation \"";
            what.append(*text).append(
                "\": variables, texts and pictures of the machine are looked for with them");
            return what;
        }
        const auto [first, isNew] = machines_.try_emplace(*text, machine);
        if (!isNew)
            return "is the designation of machine " + std::to_string(first->second)
                + " as well: both have the same variables, texts and pictures";
        std::string beginning{channel};
        beginning.append(*text).append(servoPart);
        if (!hasServos_ || hasServoVariable(project_, beginning)) return {};
        std::string what = "is \"";
        what.append(*text).append("\", and the name of no variable begins with \"").append(beginning);
        return what.append("\": the panel finds nothing of the machine");
    }

private:
    const CheckedProject& project_;
    bool hasServos_; // variables of any machine: without them it is not the designation that is wrong
    std::map<std::string, std::int16_t> machines_; // by designation
};

} // namespace

void checkDesignations(const CheckedProject& project, Asked& asked, Findings& findings)
{
    DesignationsCheck check{project};
    for (std::int16_t machine = 1; machine <= machinesOf(project); ++machine) {
        std::string name{designation};
        name.append(std::to_string(machine)).append(">");
        const std::string mistake = check.mistakeOf(machine, name);
        if (mistake.empty()) continue;
        asked.skippedMachines.insert(machine);
        if (project.wasRefused(name)) continue;
        std::string what = "variable \"";
        what.append(name).append("\" ").append(mistake);
        findings.add("project.json", project.lineOfVariable(name), what);
    }
}

} // namespace servopanel::check
