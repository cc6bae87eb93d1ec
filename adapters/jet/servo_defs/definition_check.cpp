#include "jet/servo_defs/definition_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs/servo_parameter.h"
#include "machine/access_level.h"

#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

namespace servopanel::jet {

namespace {

using Findings = std::vector<DefinitionFinding>;

// What a mistake means for the operator.
constexpr const char* noValue = "what is missing counts as 0, and the level as one that nobody has";
constexpr const char* noNumber = "the panel reports it and goes on without it";
constexpr const char* wrongLimits = "the definition editor shows limits that cannot be right";
constexpr const char* noItem = "the item that was meant is hidden or has another one's level";
constexpr const char* noLevel = "nobody can change the item, or everybody can";
constexpr const char* twice = "the item does not have the limits and the level that the first one says";
constexpr const char* unused = "it opens no input";
constexpr const char* allHidden = "its page shows no input";
constexpr const char* allOpen = "every input is shown and open to everyone";

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
                add(std::string{csvColumns[column]} + " has no value", noValue);
        checkLimits();
        const auto element = integer("offset_or_bitno", row_.element);
        const std::optional<ServoParameter> parameter = servoParameter(plainText(row_.variable));
        if (element && parameter && (*element < 0 || *element >= parameter->elements))
            add(std::string{parameter->family} + " has elements 0 to "
                    + std::to_string(parameter->elements - 1) + " only",
                noItem);
        const auto level = integer("Pass", row_.pass);
        if (level && (*level < 0 || *level > machine::highestAccessLevel))
            add("there is no access level " + shownText(row_.pass), noLevel);
    }

private:
    void add(std::string what, const char* meaning)
    {
        findings_.push_back({where_, std::move(what), meaning});
    }

    void checkLimits()
    {
        const auto absMax = limit("abs_max", row_.absMax);
        const auto absMin = limit("abs_min", row_.absMin);
        const auto max = limit("Max", row_.max);
        const auto min = limit("Min", row_.min);
        if (min && max && *min > *max)
            add("Min " + shownText(row_.min) + " is above Max " + shownText(row_.max), wrongLimits);
        if (absMin && absMax && *absMin > *absMax)
            add("abs_min " + shownText(row_.absMin) + " is above abs_max " + shownText(row_.absMax),
                wrongLimits);
        if (max && absMax && *max > *absMax)
            add("Max " + shownText(row_.max) + " is above abs_max " + shownText(row_.absMax), wrongLimits);
        if (min && absMin && *min < *absMin)
            add("Min " + shownText(row_.min) + " is below abs_min " + shownText(row_.absMin), wrongLimits);
    }

    std::optional<double> limit(const std::string& column, const basic::Variant& value)
    {
        const std::optional<double> limit = limitOf(value);
        if (!limit && !value.holds<basic::Null>())
            add(column + " '" + shownText(value) + "' is no finite number", noNumber);
        return limit;
    }
    std::optional<std::int16_t> integer(const std::string& column, const basic::Variant& value)
    {
        const std::optional<std::int16_t> integer = integerOf(value);
        if (!integer && !value.holds<basic::Null>())
            add(column + " '" + shownText(value) + "' is no number of 16 bits", noNumber);
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
        findings.push_back({placeOf(rows[i], i),
            "defined in row " + std::to_string(other->second + 1) + " already"
                + (sameCase ? "" : ", in other letter case") + "; the last one counts",
            twice});
    }
}

} // namespace

std::vector<DefinitionFinding> findingsOfRows(const std::vector<DefinitionRow>& rows)
{
    Findings findings;
    for (std::size_t i = 0; i < rows.size(); ++i)
        RowCheck{rows[i], placeOf(rows[i], i), findings}.run();
    checkDuplicates(rows, findings);
    return findings;
}

std::set<std::string> machinesWithoutRows(
    const std::vector<DefinitionRow>& rows, const std::vector<ServoName>& configured)
{
    std::set<std::string> machines;
    for (const ServoName& servo : configured)
        machines.insert(servo.machine);
    for (const DefinitionRow& row : rows)
        machines.erase(plainText(row.machineType));
    return machines;
}

std::vector<DefinitionFinding> findingsOfServos(
    const std::vector<DefinitionRow>& rows, const std::vector<ServoName>& configured)
{
    Findings findings;
    std::map<ServoName, ServoName> servos; // the names in capitals lead to those of the project
    for (const ServoName& servo : configured)
        servos.emplace(ServoName{basic::upperCase(servo.machine), servo.number}, servo);
    std::set<ServoName> defined;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::optional<ServoParameter> parameter = servoParameter(plainText(rows[i].variable));
        if (!parameter) {
            findings.push_back({placeOf(rows[i], i), "the variable is no parameter of a servo", unused});
            continue;
        }
        const auto servo = servos.find(parameter->servo);
        if (servo == servos.end())
            findings.push_back({placeOf(rows[i], i),
                "the project has no servo " + parameter->servo.number + " of machine "
                    + parameter->servo.machine,
                unused});
        else if (servo->second.machine != plainText(rows[i].machineType))
            findings.push_back(
                {placeOf(rows[i], i), "the variable belongs to machine " + servo->second.machine, unused});
        else
            defined.insert(servo->first);
    }
    const std::set<std::string> open = machinesWithoutRows(rows, configured);
    for (const std::string& machine : open)
        findings.push_back({"machine " + machine, "has no row", allOpen});
    for (const auto& [key, servo] : servos)
        if (!defined.contains(key) && !open.contains(servo.machine))
            findings.push_back(
                {"servo " + servo.number + " of machine " + servo.machine, "has no definitions", allHidden});
    return findings;
}

} // namespace servopanel::jet
