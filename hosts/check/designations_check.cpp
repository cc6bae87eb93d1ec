#include "check/designations_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "portable/trimming.h"

#include <charconv>
#include <map>
#include <string_view>

namespace servopanel::check {

namespace {

constexpr std::string_view designation = "parameter<.maschinenbez_";

struct Named {
    std::string variable;
    std::string text;
};

std::map<std::int16_t, Named> designationsOf(const CheckedProject& project)
{
    std::map<std::int16_t, Named> found;
    for (const auto& variable : project.file.variables) {
        if (!variable.name.starts_with(designation)) continue;
        std::int16_t machine = 0;
        std::from_chars(
            variable.name.data() + designation.size(), variable.name.data() + variable.name.size(), machine);
        try {
            if (machine > 0) found[machine] = {variable.name, basic::toText(variable.value)};
        } catch (const basic::Error&) {
            // A list is no text, which is told when the library reads it.
        }
    }
    return found;
}

} // namespace

void checkDesignations(const CheckedProject& project, Asked& asked, Findings& findings)
{
    std::map<std::string, std::int16_t> machines; // by designation
    for (const auto& [machine, named] : designationsOf(project)) {
        const auto tell = [&, machine = machine, &named = named](const std::string& what) {
            findings.add("project.json", project.lineOfVariable(named.variable),
                "variable \"" + named.variable + "\" " + what);
            asked.skippedMachines.insert(machine);
        };
        const auto [first, isNew] = machines.try_emplace(named.text, machine);
        if (portable::trimBlanks(named.text) != named.text)
            tell("has blanks around the designation \"" + named.text
                + "\": variables, texts and pictures of the machine are looked for with them");
        else if (!isNew && !named.text.empty())
            tell("is the designation of machine " + std::to_string(first->second)
                + " as well: both have the same variables, texts and pictures");
    }
}

} // namespace servopanel::check
