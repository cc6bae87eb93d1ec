#include "journal/undo_plan.h"

#include "journal/entry_list.h"
#include "journal/time_text.h"
#include "machine/servo_families.h"
#include "machine/variable_conversion.h"
#include "mqtt/outcome.h"
#include "portable/csv.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace servopanel::journal {

namespace {

using basic::Variant;

constexpr std::size_t mostNamed = 10; // writes to choose from

// As --undo takes it.
std::string nameOf(const Entry& entry)
{
    return std::to_string(entry.write).append("@").append(timeText(entry.time));
}

bool isSameWrite(const Entry& left, const Entry& right)
{
    return left.write == right.write && left.time == right.time;
}

std::string severalWrites(const std::vector<Entry>& entries)
{
    std::string text{"these are several writes; take one of them:"};
    std::size_t named = 0;
    const Entry* last = nullptr;
    for (const Entry& entry : entries) {
        if (last && isSameWrite(*last, entry)) continue;
        last = &entry;
        if (++named > mostNamed) return text.append("\n  and more");
        text.append("\n  --undo ")
            .append(nameOf(entry))
            .append("  ")
            .append(portable::shownText(entry.variable));
    }
    return text;
}

// Why a write cannot be taken back; empty when it can.
std::string problemOf(const Entry& entry)
{
    if (entry.result != Result::Done && entry.result != Result::Unknown)
        return "it was refused: the machine holds what it held";
    if (entry.machine.empty()) return "nobody knows to which machine it went";
    if (machine::familyOf(entry.variable) == machine::families::changedFlag)
        return "it only told the machine of changed parameters";
    if (entry.oldValue.is_null()) return "nobody knows what the machine held before";
    if (changesNothing(entry)) return "it changed nothing";
    return {};
}

Variant variantOf(const Json& json)
{
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_number()) return json.get<double>();
    if (json.is_string()) return json.get<std::string>();
    return basic::Null{};
}

// Nothing when the variable has no such element.
Variant* elementOf(Variant& value, int element)
{
    if (element == wholeValue) return &value;
    auto* const array = value.get<basic::Array>();
    const auto index = static_cast<std::size_t>(element);
    return array && index < array->elements.size() ? &array->elements[index] : nullptr;
}

std::string shownElement(const Entry& entry)
{
    return entry.element == wholeValue ? std::string{"the value"}
                                       : std::string{"element "}.append(std::to_string(entry.element));
}

[[noreturn]] void refuse(const Entry& entry, std::string_view reason)
{
    std::string text{mqtt::describe(mqtt::Outcome::ChangedMeanwhile)};
    text.append(": ").append(shownElement(entry)).append(" ").append(reason);
    throw machine::variableError(
        static_cast<std::int32_t>(mqtt::Outcome::ChangedMeanwhile), entry.variable, text);
}

} // namespace

std::variant<UndoPlan, std::string> planUndo(const std::vector<Entry>& entries)
{
    if (entries.empty()) return "there is no such write";
    const Entry& first = entries.front();
    if (!std::all_of(
            entries.begin(), entries.end(), [&](const Entry& entry) { return isSameWrite(first, entry); }))
        return severalWrites(entries);
    for (const Entry& entry : entries)
        if (const std::string problem = problemOf(entry); !problem.empty())
            return std::string{"write "}
                .append(nameOf(entry))
                .append(" cannot be taken back: ")
                .append(problem);
    return UndoPlan{first.machine, first.variable, entries};
}

Variant undone(const UndoPlan& plan, const Variant& held)
{
    Variant value = held;
    for (const Entry& entry : plan.entries) {
        Variant* const element = elementOf(value, entry.element);
        if (!element) refuse(entry, "is not there any more");
        const Json now = toJson(*element);
        if (now == entry.oldValue) refuse(entry, "holds its old value already");
        if (now != entry.newValue)
            refuse(entry,
                std::string{"holds "}
                    .append(shownValue(now))
                    .append(" and not ")
                    .append(shownValue(entry.newValue)));
        *element = variantOf(entry.oldValue);
    }
    return machine::convertedToDeclared(plan.variable, held, value);
}

std::string shownPlan(const UndoPlan& plan)
{
    const Entry& first = plan.entries.front();
    std::string text{"Write "};
    text.append(nameOf(first)).append(" of panel ").append(portable::shownText(first.panel)).append(" to ");
    text.append(portable::shownText(plan.variable)).append(":\n");
    for (const Entry& entry : plan.entries)
        text.append("  ")
            .append(shownElement(entry))
            .append(" goes back from ")
            .append(shownValue(entry.newValue))
            .append(" to ")
            .append(shownValue(entry.oldValue))
            .append("\n");
    return text;
}

} // namespace servopanel::journal
