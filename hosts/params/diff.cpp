#include "basic/error.h"
#include "params/commands.h"
#include "params/comparison.h"
#include "params/definition_limits.h"
#include "params/set_file.h"
#include "params/sources.h"
#include "portable/text_table.h"
#include "portable/whole_number.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace servopanel::params {

namespace {

// What stands on one side of a comparison.
struct Side {
    std::string text; // as it was given
    bool isFile = false;
    std::string machine; // of a machine
    std::vector<int> servos; // one, or none for all
};

Side sideOf(const std::string& text)
{
    Side side{text, false, text, {}};
    std::error_code code;
    // A folder that has a machine's name by chance says nothing.
    side.isFile = std::filesystem::exists(text, code) && !std::filesystem::is_directory(text, code);
    const std::size_t slash = text.rfind('/');
    if (side.isFile || slash == std::string::npos) return side;
    const auto servo = portable::wholeNumber<int>(std::string_view{text}.substr(slash + 1));
    if (!servo)
        basic::raise(basic::ErrorNumber::FileNotFound,
            "'" + text + "': there is no such file, and it is no servo such as M1/3");
    side.machine = text.substr(0, slash);
    side.servos = {*servo};
    return side;
}

Read readSide(const Side& side, BrokerMachines* machines, const CommandLine& line, const Project* project,
    const Surroundings& surroundings, ToolOutput& output)
{
    if (side.isFile) return {loadSet(side.text), true};
    if (!machines && !project)
        basic::raise(basic::ErrorNumber::FileNotFound,
            "'" + side.text
                + "': there is no such file; for a machine, --broker or --project says where its values are");
    return readMachine(side.machine, side.servos, machines, line, project, surroundings, output);
}

Status showLimits(const ParameterSet& set, const Project& project, ToolOutput& output)
{
    if (!project.definitions)
        basic::raise(basic::ErrorNumber::FileNotFound,
            "the definitions of the project cannot be read: " + project.definitionsProblem);
    const DefinitionLimits limits{*project.definitions, set.machine};
    for (const std::string& note : limits.notes())
        tell(output, "definitions: " + note);
    std::vector<std::vector<std::string>> lines{
        {"servo", "family", "element", "name", "unit", "value", "definition"}};
    std::size_t unknown = 0;
    for (const Row& row : set.rows) {
        const Place& place = row.place;
        if (!limits.knows(place)) ++unknown;
        std::string problem = limits.problemOf(place, row.value);
        if (problem.empty()) continue;
        lines.push_back({std::to_string(place.servo), std::string{place.of().name},
            std::to_string(place.element), row.name, row.unit, numberText(row.value), std::move(problem)});
    }
    const std::size_t beyond = lines.size() - 1;
    if (beyond > 0) output.text = portable::tableOf(std::move(lines));
    output.text.append(counted(beyond, "row is", "rows are"))
        .append(" beyond the definitions, of ")
        .append(counted(set.rows.size(), "row", "rows"));
    if (unknown > 0)
        output.text.append("; ").append(counted(unknown, "row has", "rows have")).append(" no definition");
    output.text.append("\n");
    return beyond == 0 ? Status::Equal : Status::Differences;
}

Status showDifferences(
    const Read& left, const Read& right, const std::vector<std::string>& names, ToolOutput& output)
{
    const auto servos = servoPairs(left.set, right.set);
    const std::vector<Difference> differences = differencesOf(left.set, right.set, servos);
    if (!differences.empty()) output.text = tableOf(differences, names[0], names[1]);
    output.text.append(counted(differences.size(), "row differs", "rows differ"))
        .append(", of ")
        .append(counted(servos.size(), "servo", "servos"))
        .append("\n");
    return differences.empty() ? Status::Equal : Status::Differences;
}

} // namespace

Status diff(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output)
{
    std::vector<Side> sides;
    std::vector<std::string> onBroker;
    for (const std::string& text : line.plain) {
        sides.push_back(sideOf(text));
        if (!sides.back().isFile) onBroker.push_back(sides.back().machine);
    }
    const std::optional<Project> project = projectOf(line, output);
    const auto machines = line.broker && !onBroker.empty() ? connect(line, surroundings, onBroker) : nullptr;
    std::vector<Read> reads;
    for (const Side& side : sides)
        reads.push_back(
            readSide(side, machines.get(), line, project ? &*project : nullptr, surroundings, output));
    const Status status = line.limits ? showLimits(reads[0].set, *project, output)
                                      : showDifferences(reads[0], reads[1], line.plain, output);
    const bool isWhole =
        std::all_of(reads.begin(), reads.end(), [](const Read& read) { return read.isWhole; });
    return isWhole ? status : Status::Trouble;
}

} // namespace servopanel::params
