#include "params/load_plan.h"

#include "basic/error.h"
#include "line_machine/command_check.h"
#include "mqtt/outcome.h"
#include "mqtt/value_coding.h"
#include "params/comparison.h"
#include "portable/text_table.h"

#include <algorithm>

namespace servopanel::params {

namespace {

const char* nameOf(End end)
{
    switch (end) {
    case End::Unchanged: return "unchanged";
    case End::LeftOut: return "left out";
    case End::Open: return "to be written";
    case End::Done: return "done";
    case End::Refused: return "refused";
    case End::NotSent: return "not sent";
    case End::Unknown: return "unknown";
    case End::Differs: break;
    }
    return "done otherwise";
}

// What the machine's controller would say to this row alone; empty when it would carry it out.
std::string verdictOn(
    const std::string& name, const PlannedRow& row, const Snapshot& machine, std::int16_t level)
{
    const basic::Variant& old = *machine.values.find(name);
    basic::Variant wanted = old;
    setNumber(row.wanted.place.of(), wanted, row.wanted.place.element, row.wanted.value);
    const mqtt::Command command{{}, 0, 0, level, name, mqtt::toJson(old), mqtt::toJson(wanted)};
    const line_machine::Verdict verdict =
        line_machine::judge(command, {machine.description, machine.values, 0, 0});
    if (verdict.outcome == mqtt::Outcome::Done) return {};
    std::string text{mqtt::describe(verdict.outcome)};
    if (!verdict.text.empty()) text.append(": ").append(verdict.text);
    return text;
}

void judge(PlannedRow& row, const Snapshot& machine, const LoadWish& wish, const DefinitionLimits* limits)
try {
    const Place& place = row.wanted.place;
    const std::string name = variableName(machine.machine, place.servo, place.of().part);
    if (const auto reason = machine.unreadable.find(name); reason != machine.unreadable.end())
        return row.set(End::Refused, "it cannot be read: " + reason->second);
    const basic::Variant* const value = machine.values.find(name);
    if (!value) return row.set(End::Refused, std::string{mqtt::describe(mqtt::Outcome::UnknownName)});
    const int elements = elementsOf(place.of(), *value);
    if (place.element >= elements)
        return row.set(End::Refused,
            "the machine has " + counted(static_cast<std::size_t>(elements), "element", "elements"));
    row.held = numberAt(place.of(), *value, place.element);
    if (*row.held == row.wanted.value) return row.set(End::Unchanged);
    if (!wish.selection.admits(row.wanted)) return row.set(End::LeftOut);
    std::string reason = limits ? limits->problemOf(place, row.wanted.value) : std::string{};
    if (!reason.empty()) return row.set(End::Refused, "by the definitions: " + reason);
    reason = verdictOn(name, row, machine, wish.level);
    if (!reason.empty()) row.set(End::Refused, std::move(reason));
} catch (const basic::Error& error) {
    row.set(End::Refused, error.description);
}

std::size_t rowsOf(const ParameterSet& set, int servo, std::size_t family)
{
    return static_cast<std::size_t>(std::count_if(set.rows.begin(), set.rows.end(),
        [&](const Row& row) { return row.place.servo == servo && row.place.family == family; }));
}

} // namespace

std::vector<PlannedRow> planOf(
    const ParameterSet& wanted, const Snapshot& machine, const LoadWish& wish, const DefinitionLimits* limits)
{
    std::vector<PlannedRow> rows;
    for (const auto& [from, to] : wish.servos)
        for (const Row& row : wanted.rows) {
            if (row.place.servo != from) continue;
            PlannedRow planned;
            planned.wanted = row;
            planned.wanted.place.servo = to;
            judge(planned, machine, wish, limits);
            rows.push_back(std::move(planned));
        }
    return rows;
}

std::vector<std::string> notesOn(
    const ParameterSet& wanted, const Snapshot& machine, const std::vector<std::pair<int, int>>& servos)
{
    std::vector<std::string> notes;
    if (wanted.machine != machine.machine)
        notes.push_back("the file is of machine " + wanted.machine + ", not of " + machine.machine);
    else if (wanted.description != machine.description.hash())
        notes.push_back("the machine describes its variables otherwise than when the file was written ("
            + wanted.description + ", now " + machine.description.hash()
            + "); its rows are found by their names");
    for (const auto& [from, to] : servos) {
        if (from != to || wanted.machine != machine.machine)
            notes.push_back("servo " + std::to_string(from) + " of the file goes to servo "
                + std::to_string(to) + " of machine " + machine.machine);
        for (std::size_t i = 0; i < parameterFamilies().size(); ++i) {
            const Family& family = parameterFamilies()[i];
            const basic::Variant* const value =
                machine.values.find(variableName(machine.machine, to, family.part));
            const auto elements = value ? static_cast<std::size_t>(elementsOf(family, *value)) : 0;
            const std::size_t rows = rowsOf(wanted, from, i);
            if (rows > 0 && rows < elements)
                notes.push_back("servo " + std::to_string(to) + ", " + std::string{family.name}
                    + ": the machine has " + std::to_string(elements) + " elements, the file "
                    + std::to_string(rows) + "; the others stay as they are");
        }
    }
    return notes;
}

std::string tableOf(const std::vector<PlannedRow>& rows, bool all)
{
    std::vector<std::vector<std::string>> lines{
        {"servo", "family", "element", "name", "unit", "machine", "file", "result"}};
    for (const PlannedRow& row : rows) {
        if (row.end == End::Unchanged && !all) continue;
        const Place& place = row.wanted.place;
        std::string result = nameOf(row.end);
        if (!row.reason.empty()) result.append(": ").append(row.reason);
        lines.push_back({std::to_string(place.servo), std::string{place.of().name},
            std::to_string(place.element), row.wanted.name, row.wanted.unit,
            row.held ? numberText(*row.held) : "-", numberText(row.wanted.value), std::move(result)});
    }
    return lines.size() == 1 ? std::string{} : portable::tableOf(std::move(lines));
}

std::string summaryOf(const std::vector<PlannedRow>& rows)
{
    std::string text;
    for (const End end : {End::Open, End::Done, End::Differs, End::Refused, End::NotSent, End::Unknown,
             End::LeftOut, End::Unchanged}) {
        const auto count =
            std::count_if(rows.begin(), rows.end(), [&](const PlannedRow& row) { return row.end == end; });
        if (count == 0) continue;
        text.append(text.empty() ? "" : ", ").append(std::to_string(count)).append(" ").append(nameOf(end));
    }
    return text.empty() ? "no rows" : text;
}

} // namespace servopanel::params
