#include "params/load_run.h"

#include "basic/error.h"
#include "machine/servo_families.h"
#include "machine/variable_conversion.h"
#include "mqtt/outcome.h"

#include <cstdint>
#include <exception>
#include <map>
#include <utility>

namespace servopanel::params {

namespace {

using Rows = std::vector<PlannedRow*>;

End endOf(std::int32_t number)
{
    const auto outcome = static_cast<mqtt::Outcome>(number);
    if (outcome == mqtt::Outcome::ReadBackDiffers) return End::Differs;
    if (mqtt::isUnknown(outcome)) return End::Unknown;
    return mqtt::isRefused(outcome) ? End::Refused : End::NotSent;
}

// The reason alone; the row names the variable.
std::string reasonOf(const basic::Error& error, const std::string& name)
{
    if (static_cast<mqtt::Outcome>(error.number) == mqtt::Outcome::NotSentAfterNoAnswer)
        return "the write before it was not answered";
    const std::string start = machine::variableError(0, name, "").description;
    return error.description.starts_with(start) ? error.description.substr(start.size()) : error.description;
}

void endAll(const Rows& rows, End end, const std::string& reason)
{
    for (PlannedRow* const row : rows)
        if (row->end == End::Open) row->set(end, reason);
}

// Puts a row into the value that the machine holds; whether it is to be written.
bool put(PlannedRow& row, basic::Variant& value)
try {
    const Place& place = row.wanted.place;
    const double held = numberAt(place.of(), value, place.element);
    if (held != row.held) {
        std::string reason{mqtt::describe(mqtt::Outcome::ChangedMeanwhile)};
        row.set(End::Refused, reason.append(": the machine holds ").append(numberText(held)));
        return false;
    }
    setNumber(place.of(), value, place.element, row.wanted.value);
    return true;
} catch (const basic::Error& error) {
    row.set(End::Refused, error.description);
    return false;
} catch (const std::exception& error) {
    row.set(End::Refused, error.what());
    return false;
}

// Whether the machine holds anything new, or may. Whatever fails ends these rows and no others: what was written before
// them must be announced and shown.
bool writeFamily(const Rows& rows, const std::string& name, platform::ProcessVarAccess& variables)
{
    basic::Variant value;
    try {
        value = variables.ReadValue(name);
    } catch (const basic::Error& error) {
        endAll(rows, End::NotSent, reasonOf(error, name));
        return false;
    } catch (const std::exception& error) {
        endAll(rows, End::NotSent, error.what());
        return false;
    }
    bool any = false;
    for (PlannedRow* const row : rows)
        any = put(*row, value) || any;
    if (!any) return false;
    try {
        variables.WriteValue(name, value);
    } catch (const basic::Error& error) {
        const End end = endOf(error.number);
        endAll(rows, end, reasonOf(error, name));
        return end == End::Differs
            || static_cast<mqtt::Outcome>(error.number) == mqtt::Outcome::NoAnswerButWritten;
    } catch (const std::exception& error) {
        endAll(rows, End::Unknown, error.what());
        return true;
    }
    endAll(rows, End::Done, {});
    return true;
}

} // namespace

std::vector<std::string> writeRows(std::vector<PlannedRow>& rows, const std::string& machine,
    platform::ProcessVarAccess& variables, const std::function<bool()>& isStopped)
{
    std::map<int, std::map<std::size_t, Rows>> servos; // by family
    for (PlannedRow& row : rows)
        if (row.end == End::Open) servos[row.wanted.place.servo][row.wanted.place.family].push_back(&row);

    std::vector<std::string> troubles;
    for (const auto& [servo, families] : servos) {
        bool changed = false;
        for (const auto& [family, open] : families) {
            if (isStopped()) {
                endAll(open, End::NotSent, "stopped");
                continue;
            }
            const std::string name = variableName(machine, servo, parameterFamilies()[family].part);
            changed = writeFamily(open, name, variables) || changed;
        }
        if (!changed) continue;
        // The machine takes new parameters over only when it is told.
        const std::string flag = variableName(machine, servo, machine::families::changedFlag);
        const auto trouble = [&, servo = servo](bool isUnknown, const std::string& reason) {
            troubles.push_back("servo " + std::to_string(servo) + ": the machine has the values and "
                + (isUnknown ? "may" : "does") + " not know of it: " + reason);
        };
        try {
            variables.WriteValue(flag, std::int16_t{1});
        } catch (const basic::Error& error) {
            trouble(endOf(error.number) == End::Unknown, reasonOf(error, flag));
        } catch (const std::exception& error) {
            trouble(true, error.what());
        }
    }
    return troubles;
}

} // namespace servopanel::params
