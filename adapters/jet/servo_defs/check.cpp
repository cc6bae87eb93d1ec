#include "basic/conversions.h"
#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/configured_servos.h"
#include "jet/servo_defs/definition_list.h"

#include <map>
#include <optional>
#include <set>

namespace servopanel::jet {

namespace {

constexpr double highestLevel = 5;

class Findings {
public:
    explicit Findings(std::string& text)
        : text_{text}
    {
    }
    void add(const std::string& where, const std::string& what)
    {
        text_ += where + ": " + what + '\n';
        ++count_;
    }
    std::size_t count() const { return count_; }

private:
    std::string& text_;
    std::size_t count_ = 0;
};

std::string placeOf(const DefinitionRow& row, std::size_t position)
{
    return "row " + std::to_string(position + 1) + " (" + keyOf(row) + ")";
}

void checkValues(const DefinitionRow& row, const std::string& where, Findings& findings)
{
    bool complete = true;
    for (std::size_t column = 0; column < csvColumns.size(); ++column) {
        if (!valueOf(row, column).holds<basic::Null>()) continue;
        findings.add(where, std::string{csvColumns[column]} + " has no value");
        complete = false;
    }
    if (!complete) return;

    const double absMax = basic::toDouble(row.absMax);
    const double absMin = basic::toDouble(row.absMin);
    const double max = basic::toDouble(row.max);
    const double min = basic::toDouble(row.min);
    // Turned round, so that what is no number counts as wrong too.
    if (!(min <= max))
        findings.add(where, "Min " + plainText(row.min) + " is above Max " + plainText(row.max));
    if (!(absMin <= absMax))
        findings.add(
            where, "abs_min " + plainText(row.absMin) + " is above abs_max " + plainText(row.absMax));
    if (!(max <= absMax))
        findings.add(where, "Max " + plainText(row.max) + " is above abs_max " + plainText(row.absMax));
    if (!(min >= absMin))
        findings.add(where, "Min " + plainText(row.min) + " is below abs_min " + plainText(row.absMin));
    const double level = basic::toDouble(row.pass);
    if (!(level >= 0 && level <= highestLevel))
        findings.add(where, "there is no access level " + plainText(row.pass));
}

void checkDuplicates(const std::vector<DefinitionRow>& rows, Findings& findings)
{
    std::map<std::string, std::size_t> first;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto [earlier, isNew] = first.try_emplace(keyOf(rows[i]), i);
        if (!isNew)
            findings.add(
                placeOf(rows[i], i), "defined in row " + std::to_string(earlier->second + 1) + " already");
    }
}

void checkProject(const std::vector<DefinitionRow>& rows, const std::string& project, Findings& findings)
{
    const std::vector<ServoName> list = configuredServos(project);
    const std::set<ServoName> servos{list.begin(), list.end()};
    std::set<ServoName> defined;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string variable = plainText(rows[i].variable);
        const std::optional<ServoName> servo = servoOf(variable);
        if (!servo)
            findings.add(placeOf(rows[i], i), "the variable is no parameter of a servo");
        else if (!servos.contains(*servo))
            findings.add(placeOf(rows[i], i),
                "the project has no servo " + servo->number + " of machine " + servo->machine);
        else if (servo->machine != plainText(rows[i].machineType))
            findings.add(placeOf(rows[i], i), "the variable belongs to machine " + servo->machine);
        else
            defined.insert(*servo);
    }
    for (const ServoName& servo : servos)
        if (!defined.contains(servo))
            findings.add("servo " + servo.number + " of machine " + servo.machine, "has no definitions");
}

} // namespace

Result checkDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--project", true}}, 1, 1};
    const std::vector<DefinitionRow> rows = loadDefinitions(line.plain()[0]);
    Findings findings{output.text};
    for (std::size_t i = 0; i < rows.size(); ++i)
        checkValues(rows[i], placeOf(rows[i], i), findings);
    checkDuplicates(rows, findings);
    if (const std::optional<std::string> project = line.value("--project"))
        checkProject(rows, *project, findings);
    output.text +=
        std::to_string(rows.size()) + " definitions, " + std::to_string(findings.count()) + " findings\n";
    return findings.count() == 0 ? Result::Good : Result::Findings;
}

} // namespace servopanel::jet
