#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/definition_list.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace servopanel::jet {

namespace {

// For sorting; what is no number comes first.
double elementOf(const DefinitionRow& row)
{
    try {
        return basic::toDouble(row.element);
    } catch (const basic::Error&) {
        return -std::numeric_limits<double>::infinity();
    }
}

std::string variableLine(const DefinitionRow& row)
{
    return shownText(row.machineType) + "  " + shownText(row.variable) + '\n';
}

std::string valuesLine(const DefinitionRow& row)
{
    return "  element " + shownText(row.element) + ": " + shownText(row.min) + " to " + shownText(row.max)
        + " (absolute " + shownText(row.absMin) + " to " + shownText(row.absMax) + "), level "
        + shownText(row.pass) + '\n';
}

} // namespace

Result listDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--machine", true}, {"--variable", true}}, 1, 1};
    const std::optional<std::string> machine = line.value("--machine");
    const std::optional<std::string> variable = line.value("--variable");

    std::vector<DefinitionRow> rows = loadDefinitions(line.plain()[0]).rows;
    const auto unwanted = [&](const DefinitionRow& row) {
        if (machine && plainText(row.machineType) != *machine) return true;
        return variable
            && basic::upperCase(plainText(row.variable)).find(basic::upperCase(*variable))
            == std::string::npos;
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), unwanted), rows.end());
    std::stable_sort(rows.begin(), rows.end(), [](const DefinitionRow& left, const DefinitionRow& right) {
        const auto order = [](const DefinitionRow& row) {
            return std::tuple{plainText(row.machineType), plainText(row.variable), elementOf(row)};
        };
        return order(left) < order(right);
    });

    // The names once for all rows of a variable, then one line a row.
    std::string names;
    for (const DefinitionRow& row : rows) {
        const std::string own = variableLine(row);
        if (own != names) output.text += own;
        names = own;
        output.text += valuesLine(row);
    }
    output.text += std::to_string(rows.size()) + (rows.size() == 1 ? " definition\n" : " definitions\n");
    return Result::Good;
}

} // namespace servopanel::jet
