#include "machine/designations.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace servopanel::machine {

std::vector<std::string> designations(const ProjectFile& project)
{
    constexpr std::string_view variables = "parameter<.maschinenbez_";
    std::vector<std::string> found;
    for (const auto& variable : project.variables) {
        if (!std::string_view{variable.name}.starts_with(variables)) continue;
        try {
            std::string name = basic::toText(variable.value);
            if (!name.empty() && std::find(found.begin(), found.end(), name) == found.end())
                found.push_back(std::move(name));
        } catch (const basic::Error&) {
            // A list is no designation.
        }
    }
    return found;
}

} // namespace servopanel::machine
