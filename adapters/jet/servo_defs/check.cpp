#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/configured_servos.h"
#include "jet/servo_defs/definition_check.h"
#include "jet/servo_defs/definition_list.h"

#include <optional>

namespace servopanel::jet {

Result checkDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--project", true}}, 1, 1};
    const std::vector<DefinitionRow> rows = loadDefinitions(line.plain()[0]).rows;
    std::vector<DefinitionFinding> findings = findingsOfRows(rows);
    if (const std::optional<std::string> project = line.value("--project"))
        for (DefinitionFinding& finding : findingsOfServos(rows, configuredServos(*project)))
            findings.push_back(std::move(finding));
    for (const DefinitionFinding& finding : findings)
        output.text += finding.where + ": " + finding.what + '\n';
    output.text +=
        std::to_string(rows.size()) + " definitions, " + std::to_string(findings.size()) + " findings\n";
    return findings.empty() ? Result::Good : Result::Findings;
}

} // namespace servopanel::jet
