#include "jet/definition_file.h"
#include "jet/definition_table.h"
#include "jet/disk_file.h"
#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/differences.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace servopanel::jet {

namespace {

// Puts the name of a file into the errors of an action.
template <class F>
auto atFile(const std::string& file, F action)
{
    try {
        return action();
    } catch (const basic::Error& error) {
        throw named(error, file);
    }
}

ByteView viewOf(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string counted(std::size_t count, const std::string& thing)
{
    return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}

void apply(DefinitionFile& file, Table& table, const std::vector<Difference>& found,
    const std::vector<DefinitionRow>& wanted)
{
    std::map<std::size_t, std::vector<DefinitionFile::NewValue>> changes;
    for (const Difference& difference : found)
        if (difference.kind == Difference::Kind::Value)
            changes[*difference.left].push_back({table.column(csvColumns[difference.column]),
                valueOf(wanted[*difference.right], difference.column)});
    for (auto& [row, values] : changes)
        file.change(table, row, std::move(values));
    file.save();
}

} // namespace

Result exportDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--force", false}}, 1, 2};
    const std::string csv = toCsv(loadDefinitions(line.plain()[0]));
    if (line.plain().size() == 1) {
        output.text = csv;
        return Result::Good;
    }
    const std::string& target = line.plain()[1];
    atFile(target, [&] { createFile(target, viewOf(csv), line.has("--force")); });
    return Result::Good;
}

Result diffDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {}, 2, 2};
    const std::vector<DefinitionRow> left = loadDefinitions(line.plain()[0]);
    const std::vector<DefinitionRow> right = loadDefinitions(line.plain()[1]);
    const std::vector<Difference> found = differences(left, right);
    output.text = describe(found, left, right);
    return found.empty() ? Result::Good : Result::Findings;
}

Result importDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--apply", false}}, 2, 2};
    const std::string& target = line.plain()[0];
    const std::vector<DefinitionRow> wanted = loadDefinitions(line.plain()[1]);
    return atFile(target, [&] {
        DefinitionFile file{target};
        Table table = file.readTable();
        const std::vector<DefinitionRow> present = definitionsOf(table);
        std::vector<Difference> found = differences(present, wanted);
        const auto kept = std::remove_if(found.begin(), found.end(),
            [](const Difference& difference) { return difference.kind == Difference::Kind::OnlyLeft; });
        found.erase(kept, found.end());
        output.text = describe(found, present, wanted);
        if (found.empty()) return Result::Good;
        const auto added = std::count_if(found.begin(), found.end(),
            [](const Difference& difference) { return difference.kind == Difference::Kind::OnlyRight; });
        if (!line.has("--apply")) return Result::Findings;
        if (added != 0)
            raise(JetError::CannotUpdate,
                "nothing was changed: " + counted(static_cast<std::size_t>(added), "row")
                    + " of the CSV file would have to be added, which only create can do");
        apply(file, table, found, wanted);
        output.text += counted(found.size(), "value") + " changed\n";
        return Result::Good;
    });
}

Result createDatabase(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--jet3", false}, {"--force", false}}, 2, 2};
    const std::vector<DefinitionRow> rows = loadDefinitions(line.plain()[1]);
    NewDatabaseOptions options;
    if (line.has("--jet3")) options.version = JetVersion::Jet3;
    const std::string& target = line.plain()[0];
    atFile(target, [&] { createFile(target, newDefinitionDatabase(rows, options), line.has("--force")); });
    output.text = counted(rows.size(), "definition") + " written\n";
    return Result::Good;
}

} // namespace servopanel::jet
