#include "check/definitions_check.h"

#include "basic/error.h"
#include "check/hidden_items.h"
#include "check/problems.h"
#include "jet/disk_file.h"
#include "jet/file_kind.h"
#include "jet/servo_defs/definition_check.h"
#include "jet/servo_defs/definition_list.h"

#include <map>
#include <optional>
#include <vector>

namespace servopanel::check {

namespace {

constexpr const char* databaseName = "Servo/Servo.mdb";
constexpr const char* allOpen = ": every input is shown and open to everyone";
constexpr std::size_t mostRows = 2000; // of one machine, as the library keeps them

void add(const std::vector<jet::DefinitionFinding>& found, Findings& findings)
{
    std::map<std::string, std::vector<std::string>> rows; // by what is wrong with them
    for (const jet::DefinitionFinding& finding : found)
        rows[finding.what + ": " + finding.meaning].push_back(finding.where);
    for (const auto& [what, where] : rows) {
        const std::size_t others = where.size() - 1;
        const std::string further = others == 0 ? "" : " and " + std::to_string(others) + " more";
        findings.add(databaseName, 0, where.front() + further + ": " + what);
    }
}

// The panel reads databases only, while the engineer's tool takes their CSV form as well.
void requireDatabase(const std::filesystem::path& file)
{
    if (jet::kindOf(jet::readFile(file).bytes) == jet::FileKind::Text)
        throw basic::Error{0, {},
            "is text, not a database; \"servo-defs create\" makes a database of a list of definitions"};
}

} // namespace

void checkDefinitions(const CheckedProject& project, Asked& asked, Findings& findings)
{
    asked.openMachines = jet::machinesWithoutRows({}, asked.servos);
    const std::optional<std::filesystem::path> file = project.mapping.find(databaseName);
    if (!file) {
        asked.brokenFiles.insert(databaseName);
        findings.add(databaseName, 0, std::string{"no such file"} + allOpen);
        return;
    }
    try {
        requireDatabase(*file);
        const std::vector<jet::DefinitionRow> rows = jet::loadDefinitions(*file).rows;
        asked.openMachines = jet::machinesWithoutRows(rows, asked.servos);
        add(jet::findingsOfRows(rows), findings);
        if (!asked.servos.empty() && asked.skippedMachines.empty()) {
            std::vector<jet::ServoName> servos = asked.servos;
            servos.insert(servos.end(), asked.unshownServos.begin(), asked.unshownServos.end());
            add(jet::findingsOfServos(rows, servos), findings);
        }
        checkHiddenItems(project, asked, rows, findings);
        std::map<std::string, std::size_t> counts;
        for (const jet::DefinitionRow& row : rows)
            ++counts[jet::plainText(row.machineType)];
        for (const auto& [machine, count] : counts)
            if (count > mostRows)
                findings.add(databaseName, 0,
                    "machine " + machine + " has " + std::to_string(count) + " rows, and there is room for "
                        + std::to_string(mostRows) + ": the items of the others are hidden");
    } catch (const basic::Error& error) {
        asked.brokenFiles.insert(databaseName);
        findings.add(databaseName, 0, shownReason(error.description, *file) + allOpen);
    }
}

} // namespace servopanel::check
