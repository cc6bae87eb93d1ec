#include "line_machine/machine_description.h"

#include <string>
#include <utility>
#include <vector>

namespace servopanel::line_machine {

namespace {

// The families that a panel writes, as in "Ch1.M1_T_servo_3<.mM1_servo_para_3>".
constexpr std::string_view writtenFamilies[]{"servo_para", "servo_para2", "servo_schalt", "servo_zeich"};
constexpr std::string_view announcement = "servoaender";

struct NameParts {
    std::string start; // up to the family: "Ch1.M1_T_servo_3<.mM1_"
    std::string family;
    std::string end; // "_3>"
};

NameParts partsOf(const std::string& name, std::string_view machine)
{
    const std::string member = std::string{"<.m"}.append(machine).append("_");
    const std::size_t begin = name.find(member);
    const std::size_t end = name.rfind('_');
    if (begin == std::string::npos || end < begin + member.size()) return {};
    const std::size_t family = begin + member.size();
    return {name.substr(0, family), name.substr(family, end - family), name.substr(end)};
}

} // namespace

mqtt::Description describeMachine(const machine::VariableStore& store, std::string_view machine)
{
    const std::string start = std::string{"Ch1."}.append(machine).append("_T_");
    std::vector<mqtt::VariableDescription> variables;
    for (const std::string& name : store.names()) {
        if (!name.starts_with(start)) continue;
        const basic::Variant& value = *store.find(name);
        mqtt::VariableDescription variable;
        variable.name = name;
        variable.type = machine::typeOf(value);
        if (const auto* const array = value.get<basic::Array>()) {
            variable.first = array->lowerBound;
            variable.length = array->elements.size();
        }
        const NameParts parts = partsOf(name, machine);
        variable.signal = parts.family == announcement;
        variable.writable = variable.signal;
        for (const std::string_view family : writtenFamilies)
            variable.writable = variable.writable || parts.family == family;
        const std::string least = parts.start + parts.family + "_un" + parts.end;
        const std::string most = parts.start + parts.family + "_ob" + parts.end;
        if (store.find(least)) variable.least = least;
        if (store.find(most)) variable.most = most;
        variables.push_back(std::move(variable));
    }
    return mqtt::Description{std::move(variables)};
}

} // namespace servopanel::line_machine
