#include "journal/journaled_variables.h"

#include "basic/error.h"
#include "journal/variable_place.h"
#include "machine/split_variables.h"
#include "machine/variable_conversion.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <utility>

namespace servopanel::journal {

namespace {

using basic::Variant;

struct Change {
    int element = wholeValue;
    Json oldValue;
    Json newValue;
};

// In the variable's own type where it is known: a whole number written to a double is no change of it.
Variant inTypeOf(const std::optional<Variant>& known, std::string_view name, const Variant& value)
try {
    return known ? machine::convertedToDeclared(name, *known, value) : value;
} catch (const basic::Error&) {
    return value; // what does not fit will be refused
}

// One for each element that differs; the whole value when none does, and when there is nothing to compare with.
std::vector<Change> changesOf(
    std::string_view name, const std::optional<Variant>& oldValue, const Variant& value)
{
    const Json before = oldValue ? toJson(*oldValue) : Json();
    const Json after = toJson(inTypeOf(oldValue, name, value));
    std::vector<Change> changes;
    if (before.is_array() && after.is_array() && before.size() == after.size())
        for (std::size_t i = 0; i < before.size(); ++i)
            if (before[i] != after[i]) changes.push_back({static_cast<int>(i), before[i], after[i]});
    if (changes.empty()) changes.push_back({wholeValue, before, after});
    return changes;
}

// The reason alone; the entry names the variable.
std::string_view withoutName(std::string_view text, std::string_view name)
{
    const std::string start = machine::variableError(0, name, "").description;
    return text.starts_with(start) ? text.substr(start.size()) : text;
}

} // namespace

std::int64_t systemTime()
{
    using namespace std::chrono;
    const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    return std::max<std::int64_t>(now, 0);
}

JournaledVariables::JournaledVariables(
    std::shared_ptr<platform::ProcessVarAccess> inner, JournalFile& file, JournalContext context)
    : inner_{std::move(inner)}
    , file_{file}
    , context_{std::move(context)}
{
}

void JournaledVariables::open() noexcept
try {
    append({});
} catch (const basic::Error& error) {
    tell(error.description);
} catch (const std::exception& error) {
    tell(error.what());
}

Variant JournaledVariables::ReadValue(std::string_view name)
{
    Variant value = inner_->ReadValue(name);
    if (!machine::SplitVariables::isOfMachine(name)) return value;
    const auto known = read_.find(name);
    if (known != read_.end())
        known->second = value;
    else
        read_.emplace(name, value);
    return value;
}

void JournaledVariables::WriteValue(std::string_view name, const Variant& value)
{
    if (!machine::SplitVariables::isOfMachine(name)) return inner_->WriteValue(name, value);
    const bool isBegun = begin(name, value);
    const auto finish = [&](Result result, std::int32_t number, std::string_view text) {
        if (isBegun) end(name, result, number, text);
    };
    try {
        inner_->WriteValue(name, value);
    } catch (const basic::Error& error) {
        finish(resultOf(error.number), error.number, error.description);
        throw;
    } catch (const std::exception& error) {
        finish(Result::Unknown, 0, error.what());
        throw;
    }
    finish(Result::Done, 0, {});
}

bool JournaledVariables::begin(std::string_view name, const Variant& value) noexcept
try {
    std::optional<Variant> oldValue;
    if (const auto known = read_.find(name); known != read_.end()) {
        oldValue = std::move(known->second);
        // Others may write it from now on, and a machine takes signals back.
        read_.erase(known);
    }
    Entry entry = common(name);
    std::vector<std::string> lines;
    for (Change& change : changesOf(name, oldValue, value)) {
        entry.element = change.element;
        entry.oldValue = std::move(change.oldValue);
        entry.newValue = std::move(change.newValue);
        lines.push_back(lineOf(entry));
    }
    append(lines);
    return true;
} catch (const basic::Error& error) {
    tell(error.description);
    return false;
} catch (const std::exception& error) {
    tell(error.what());
    return false;
}

void JournaledVariables::end(
    std::string_view name, Result result, std::int32_t number, std::string_view text) noexcept
try {
    append({lineOf(
        Ending{write_, begun_, context_.now(), result, number, std::string{withoutName(text, name)}})});
} catch (const basic::Error& error) {
    tell(error.description);
} catch (const std::exception& error) {
    tell(error.what());
}

Entry JournaledVariables::common(std::string_view name)
{
    Entry entry;
    entry.write = ++write_;
    entry.time = begun_ = context_.now();
    entry.panel = context_.panel();
    entry.level = context_.level();
    VariablePlace place = placeOf(name);
    entry.machine = std::move(place.machine);
    entry.servo = place.servo;
    entry.variable = name;
    return entry;
}

void JournaledVariables::append(const std::vector<std::string>& lines)
{
    const std::string problem = file_.append(lines);
    if (!problem.empty()) return tell(problem);
    troubled_ = false;
}

// Whoever is told may fail as well; the write goes on.
void JournaledVariables::tell(std::string_view problem) noexcept
try {
    if (std::exchange(troubled_, true)) return;
    context_.trouble(std::string{problem});
} catch (const basic::Error&) {
} catch (const std::exception&) {
}

} // namespace servopanel::journal
