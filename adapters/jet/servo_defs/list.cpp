#include "basic/text.h"
#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/definition_list.h"

#include <algorithm>

namespace servopanel::jet {

Result listDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--machine", true}, {"--variable", true}}, 1, 1};
    const std::optional<std::string> machine = line.value("--machine");
    const std::optional<std::string> variable = line.value("--variable");

    std::vector<DefinitionRow> rows = loadDefinitions(line.plain()[0]);
    const auto unwanted = [&](const DefinitionRow& row) {
        if (machine && plainText(row.machineType) != *machine) return true;
        return variable
            && basic::upperCase(plainText(row.variable)).find(basic::upperCase(*variable))
            == std::string::npos;
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), unwanted), rows.end());
    std::stable_sort(rows.begin(), rows.end(), [](const DefinitionRow& left, const DefinitionRow& right) {
        return plainText(left.machineType) < plainText(right.machineType);
    });

    // The names once for all rows that follow each other, then one line a row.
    std::string names;
    for (const DefinitionRow& row : rows) {
        const std::string own = plainText(row.machineType) + "  " + plainText(row.variable);
        if (own != names) output.text += own + '\n';
        names = own;
        output.text += "  element " + plainText(row.element) + ": " + plainText(row.min) + " to "
            + plainText(row.max) + " (absolute " + plainText(row.absMin) + " to " + plainText(row.absMax)
            + "), level " + plainText(row.pass) + '\n';
    }
    output.text += std::to_string(rows.size()) + (rows.size() == 1 ? " definition\n" : " definitions\n");
    return Result::Good;
}

} // namespace servopanel::jet
