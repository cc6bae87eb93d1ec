#include "machine/carry_over.h"

#include <map>
#include <string_view>

namespace servopanel::machine {

void carryOver(
    const ProjectFile& before, const VariableStore& held, const ProjectFile& now, VariableStore& store)
{
    std::map<std::string_view, const basic::Variant*> startedWith;
    for (const ProjectFile::Variable& variable : before.variables)
        startedWith[variable.name] = &variable.value;
    for (const ProjectFile::Variable& variable : now.variables) {
        const auto start = startedWith.find(variable.name);
        if (start == startedWith.end() || *start->second != variable.value) continue;
        if (const basic::Variant* value = held.find(variable.name)) store.declare(variable.name, *value);
    }
}

} // namespace servopanel::machine
