#include "machine/designations.h"

#include <algorithm>
#include <string_view>

namespace servopanel::machine {

std::vector<std::string> designations(const ProjectFile& project)
{
    constexpr std::string_view variables = "parameter<.maschinenbez_";
    std::vector<std::string> found;
    for (const auto& variable : project.variables) {
        if (!std::string_view{variable.name}.starts_with(variables)) continue;
        const auto* const text = variable.value.get<std::string>();
        if (text && !text->empty() && std::find(found.begin(), found.end(), *text) == found.end())
            found.push_back(*text);
    }
    return found;
}

} // namespace servopanel::machine
