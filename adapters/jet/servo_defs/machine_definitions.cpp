#include "jet/servo_defs/machine_definitions.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "jet/servo_defs/definition_list.h"

#include <algorithm>
#include <cmath>

namespace servopanel::jet {

namespace {

constexpr std::size_t mostNames = 5; // in one note

bool isOf(const DefinitionRow& row, std::string_view machine)
{
    try {
        return !row.machineType.holds<basic::Null>() && basic::toText(row.machineType) == machine;
    } catch (const basic::Error&) {
        return false;
    }
}

std::optional<double> limitOf(const basic::Variant& value)
{
    try {
        const double limit = basic::toDouble(value);
        return std::isnan(limit) ? std::nullopt : std::optional{limit};
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

// Which rows have which fault.
class Faults {
public:
    void add(const std::string& what, const DefinitionRow& row) { rows_[what].push_back(nameOf(row)); }

    std::vector<std::string> notes() const
    {
        std::vector<std::string> notes;
        for (const auto& [what, names] : rows_) {
            std::string note = what;
            for (std::size_t i = 0; i < std::min(names.size(), mostNames); ++i)
                note.append(i == 0 ? ": " : "; ").append(names[i]);
            if (names.size() > mostNames)
                note.append(" and ").append(std::to_string(names.size() - mostNames)).append(" more");
            notes.push_back(std::move(note));
        }
        return notes;
    }

private:
    std::map<std::string, std::vector<std::string>> rows_;
};

// Of a row of the machine.
MachineDefinition definitionOf(const DefinitionRow& row, Faults& faults)
{
    MachineDefinition definition;
    const auto take = [&](std::optional<double>& limit, const basic::Variant& value, const char* column) {
        limit = limitOf(value);
        if (!limit) faults.add(std::string{column}.append(" is no number and limits nothing"), row);
    };
    take(definition.absMin, row.absMin, "abs_min");
    take(definition.absMax, row.absMax, "abs_max");
    take(definition.min, row.min, "Min");
    take(definition.max, row.max, "Max");
    const std::optional<std::int16_t> level = integerOf(row.pass);
    if (level && *level >= 0)
        definition.level = *level;
    else
        faults.add("Pass is no access level, nobody has it", row);
    return definition;
}

} // namespace

MachineDefinitions::MachineDefinitions(const std::vector<DefinitionRow>& rows, std::string_view machine)
{
    Faults faults;
    for (const DefinitionRow& row : rows) {
        if (!isOf(row, machine)) continue;
        const std::optional<std::int16_t> element = integerOf(row.element);
        if (!element) faults.add("offset_or_bitno is no number and counts as 0", row);
        definitions_.insert_or_assign(
            std::pair{basic::upperCase(plainText(row.variable)), int{element.value_or(0)}},
            definitionOf(row, faults));
    }
    notes_ = faults.notes();
}

const MachineDefinition* MachineDefinitions::find(std::string_view variable, int element) const
{
    const auto found = definitions_.find({basic::upperCase(variable), element});
    return found == definitions_.end() ? nullptr : &found->second;
}

} // namespace servopanel::jet
