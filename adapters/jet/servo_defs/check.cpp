#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "jet/servo_defs/commands.h"
#include "jet/servo_defs/configured_servos.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/servo_parameter.h"

#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <tuple>

namespace servopanel::jet {

namespace {

constexpr std::int16_t highestLevel = 5;

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
    return "row " + std::to_string(position + 1) + " (" + nameOf(row) + ")";
}

// A value as the panel takes it into its table; nothing when it cannot.
std::optional<double> limitOf(const basic::Variant& value)
{
    try {
        const double limit = basic::toDouble(value);
        return std::isfinite(limit) ? std::optional{limit} : std::nullopt;
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

std::optional<std::int16_t> integerOf(const basic::Variant& value)
{
    try {
        return basic::toInt16(value);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

// One row and what is wrong with it.
class RowCheck {
public:
    RowCheck(const DefinitionRow& row, std::string where, Findings& findings)
        : row_{row}
        , where_{std::move(where)}
        , findings_{findings}
    {
    }

    void run()
    {
        for (std::size_t column = 0; column < csvColumns.size(); ++column)
            if (valueOf(row_, column).holds<basic::Null>())
                findings_.add(where_, std::string{csvColumns[column]} + " has no value");
        checkLimits();
        const auto element = integer("offset_or_bitno", row_.element);
        const std::optional<ServoParameter> parameter = servoParameter(plainText(row_.variable));
        if (element && parameter && (*element < 0 || *element >= parameter->elements))
            findings_.add(where_,
                std::string{parameter->family} + " has elements 0 to "
                    + std::to_string(parameter->elements - 1) + " only");
        const auto level = integer("Pass", row_.pass);
        if (level && (*level < 0 || *level > highestLevel))
            findings_.add(where_, "there is no access level " + shownText(row_.pass));
    }

private:
    void checkLimits()
    {
        const auto absMax = limit("abs_max", row_.absMax);
        const auto absMin = limit("abs_min", row_.absMin);
        const auto max = limit("Max", row_.max);
        const auto min = limit("Min", row_.min);
        if (min && max && *min > *max)
            findings_.add(where_, "Min " + shownText(row_.min) + " is above Max " + shownText(row_.max));
        if (absMin && absMax && *absMin > *absMax)
            findings_.add(
                where_, "abs_min " + shownText(row_.absMin) + " is above abs_max " + shownText(row_.absMax));
        if (max && absMax && *max > *absMax)
            findings_.add(
                where_, "Max " + shownText(row_.max) + " is above abs_max " + shownText(row_.absMax));
        if (min && absMin && *min < *absMin)
            findings_.add(
                where_, "Min " + shownText(row_.min) + " is below abs_min " + shownText(row_.absMin));
    }

    std::optional<double> limit(const std::string& column, const basic::Variant& value)
    {
        const std::optional<double> limit = limitOf(value);
        if (!limit && !value.holds<basic::Null>())
            findings_.add(where_, column + " '" + shownText(value) + "' is no finite number");
        return limit;
    }
    std::optional<std::int16_t> integer(const std::string& column, const basic::Variant& value)
    {
        const std::optional<std::int16_t> integer = integerOf(value);
        if (!integer && !value.holds<basic::Null>())
            findings_.add(where_, column + " '" + shownText(value) + "' is no number of 16 bits");
        return integer;
    }

    const DefinitionRow& row_;
    std::string where_;
    Findings& findings_;
};

// The panel reads the rows of its own machine type, then finds variables without regard to case.
void checkDuplicates(const std::vector<DefinitionRow>& rows, Findings& findings)
{
    std::map<std::tuple<std::string, std::string, std::int16_t>, std::size_t> earlier;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::optional<std::int16_t> element = integerOf(rows[i].element);
        if (!element) continue;
        const std::string variable = plainText(rows[i].variable);
        const auto [other, isNew] = earlier.try_emplace(
            std::tuple{plainText(rows[i].machineType), basic::upperCase(variable), *element}, i);
        if (isNew) continue;
        const bool sameCase = plainText(rows[other->second].variable) == variable;
        findings.add(placeOf(rows[i], i),
            "defined in row " + std::to_string(other->second + 1) + " already"
                + (sameCase ? "" : ", in other letter case") + "; the last one counts");
    }
}

void checkProject(const std::vector<DefinitionRow>& rows, const std::string& project, Findings& findings)
{
    std::map<ServoName, ServoName> servos; // the names in capitals lead to those of the project
    for (const ServoName& servo : configuredServos(project))
        servos.emplace(ServoName{basic::upperCase(servo.machine), servo.number}, servo);
    std::set<ServoName> defined;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::optional<ServoParameter> parameter = servoParameter(plainText(rows[i].variable));
        if (!parameter) {
            findings.add(placeOf(rows[i], i), "the variable is no parameter of a servo");
            continue;
        }
        const auto servo = servos.find(parameter->servo);
        if (servo == servos.end())
            findings.add(placeOf(rows[i], i),
                "the project has no servo " + parameter->servo.number + " of machine "
                    + parameter->servo.machine);
        else if (servo->second.machine != plainText(rows[i].machineType))
            findings.add(placeOf(rows[i], i), "the variable belongs to machine " + servo->second.machine);
        else
            defined.insert(servo->first);
    }
    for (const auto& [key, servo] : servos)
        if (!defined.contains(key))
            findings.add("servo " + servo.number + " of machine " + servo.machine, "has no definitions");
}

} // namespace

Result checkDefinitions(const Arguments& arguments, ToolOutput& output)
{
    const CommandLine line{arguments, {{"--project", true}}, 1, 1};
    const std::vector<DefinitionRow> rows = loadDefinitions(line.plain()[0]).rows;
    std::string text;
    Findings findings{text};
    for (std::size_t i = 0; i < rows.size(); ++i)
        RowCheck{rows[i], placeOf(rows[i], i), findings}.run();
    checkDuplicates(rows, findings);
    if (const std::optional<std::string> project = line.value("--project"))
        checkProject(rows, *project, findings);
    output.text = text + std::to_string(rows.size()) + " definitions, " + std::to_string(findings.count())
        + " findings\n";
    return findings.count() == 0 ? Result::Good : Result::Findings;
}

} // namespace servopanel::jet
