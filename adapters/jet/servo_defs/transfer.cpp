#include "jet/definition_file.h"
#include "jet/definition_table.h"
#include "jet/disk_file.h"
#include "jet/same_value.h"
#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/differences.h"
#include "jet/servo_defs/named_errors.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string_view>

namespace servopanel::jet {

namespace {

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

// A slip of the hand must not cost the file that was meant to be read. Links lead to the same file too.
void refuseSameFile(const std::string& source, const std::string& target)
{
    if (std::error_code code; std::filesystem::equivalent(source, target, code))
        raise(JetError::CannotUpdate, "it would be read and written at once");
}

// A row that is there twice would have to be added, which is not what its writer meant.
void refuseRepeated(const DefinitionList& wanted, const std::vector<Difference>& found)
{
    for (const Difference& difference : found) {
        if (difference.kind != Difference::Kind::OnlyRight) continue;
        const DefinitionKey key = keyOf(wanted.rows[*difference.right]);
        const auto first = std::find_if(wanted.rows.begin(), wanted.rows.end(),
            [&](const DefinitionRow& row) { return keyOf(row) == key; });
        const auto position = static_cast<std::size_t>(first - wanted.rows.begin());
        if (position != *difference.right)
            raise(JetError::TypeMismatch,
                wanted.placeOf(*difference.right) + ": " + nameOf(*first) + " is on "
                    + wanted.placeOf(position) + " already");
    }
}

// What the disk gives back holds exactly these definitions.
void verifyDefinitions(const std::vector<DefinitionRow>& expected, const Bytes& written)
{
    const std::vector<DefinitionRow> actual = definitionsOf(readDefinitions(FileImage{written}));
    const auto sameRow = [](const DefinitionRow& left, const DefinitionRow& right) {
        for (std::size_t column = 0; column < csvColumns.size(); ++column)
            if (!sameValue(valueOf(left, column), valueOf(right, column))) return false;
        return true;
    };
    if (!std::equal(expected.begin(), expected.end(), actual.begin(), actual.end(), sameRow))
        raise(JetError::CannotUpdate, "the new file does not hold the definitions that were meant");
}

} // namespace

Result exportDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--force", false}}, 1, 2};
    const std::string& source = line.plain()[0];
    const std::string csv = toCsv(loadDefinitions(source).rows);
    if (line.plain().size() == 1) {
        output.text = csv;
        return Result::Good;
    }
    const std::string& target = line.plain()[1];
    atFile(target, [&] {
        refuseSameFile(source, target);
        // The bytes are all there is to a text, and they have been compared already.
        createFile(target, viewOf(csv), line.has("--force"), [](const Bytes&) {});
    });
    return Result::Good;
}

Result diffDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {}, 2, 2};
    const std::vector<DefinitionRow> left = loadDefinitions(line.plain()[0]).rows;
    const std::vector<DefinitionRow> right = loadDefinitions(line.plain()[1]).rows;
    const std::vector<Difference> found = differences(left, right);
    output.text = describe(found, left, right);
    return found.empty() ? Result::Good : Result::Findings;
}

Result importDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--apply", false}}, 2, 2};
    const std::string& target = line.plain()[0];
    const std::string& source = line.plain()[1];
    const DefinitionList wanted = loadDefinitions(source);
    DefinitionFile file = atFile(target, [&] { return DefinitionFile{target}; });
    Table table = atFile(target, [&] { return file.readTable(); });
    const std::vector<DefinitionRow> present = definitionsOf(table);
    std::vector<Difference> found = differences(present, wanted.rows);
    atFile(source, [&] { refuseRepeated(wanted, found); });
    const auto kept = std::remove_if(found.begin(), found.end(),
        [](const Difference& difference) { return difference.kind == Difference::Kind::OnlyLeft; });
    found.erase(kept, found.end());
    output.text = describe(found, present, wanted.rows);
    if (found.empty()) return Result::Good;
    if (!line.has("--apply")) return Result::Findings;
    return atFile(target, [&] {
        const auto added = std::count_if(found.begin(), found.end(),
            [](const Difference& difference) { return difference.kind == Difference::Kind::OnlyRight; });
        if (added != 0)
            raise(JetError::CannotUpdate,
                "nothing was changed: " + counted(static_cast<std::size_t>(added), "row")
                    + " of the CSV file would have to be added, which only create can do");
        apply(file, table, found, wanted.rows);
        output.text += counted(found.size(), "value") + " changed\n";
        return Result::Good;
    });
}

Result createDatabase(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--jet3", false}, {"--force", false}}, 2, 2};
    const std::string& target = line.plain()[0];
    const std::string& source = line.plain()[1];
    const DefinitionList list = loadDefinitions(source);
    NewDatabaseOptions options;
    if (line.has("--jet3")) options.version = JetVersion::Jet3;
    for (std::size_t i = 0; i < list.rows.size(); ++i)
        atFile(source, [&] { atPlace(list.placeOf(i), [&] { requireStorable(list.rows[i], options); }); });
    atFile(target, [&] {
        refuseSameFile(source, target);
        createFile(target, newDefinitionDatabase(list.rows, options), line.has("--force"),
            [&](const Bytes& written) { verifyDefinitions(list.rows, written); });
    });
    output.text = counted(list.rows.size(), "definition") + " written\n";
    return Result::Good;
}

} // namespace servopanel::jet
