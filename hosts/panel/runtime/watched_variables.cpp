#include "panel/runtime/watched_variables.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/split_variables.h"
#include "mqtt/outcome.h"

#include <algorithm>
#include <bitset>
#include <exception>
#include <utility>

namespace servopanel::panel {

namespace {

constexpr auto noConnection = static_cast<std::int32_t>(mqtt::Outcome::NoConnection);
constexpr auto changedMeanwhile = static_cast<std::int32_t>(mqtt::Outcome::ChangedMeanwhile);
constexpr auto notReadable = static_cast<std::int32_t>(mqtt::Outcome::Bad);
constexpr unsigned switchBits = 0xF; // the rest of the word is not the panel's

std::string sentence(std::string_view name, std::string_view what)
{
    return std::string{"'"}.append(name).append("': ").append(what);
}

bool isOneValue(std::string_view family)
{
    return family == families::switches || family == families::faultText;
}

// What is wrong with a value that could be read, seen from those who show it.
std::string problemOf(std::string_view family, std::string_view name, const basic::Variant& value)
{
    const bool isList = value.holds<basic::Array>();
    if (isList == !isOneValue(family)) return {};
    return sentence(name, isList ? "a list where one value is expected" : "no list of values");
}

// What the library can show. Of anything else, Null for one, a display keeps what it had.
bool isShowable(const basic::Variant& value)
{
    switch (value.type()) {
    case basic::VariantType::Null:
    case basic::VariantType::Object:
    case basic::VariantType::Error:
    case basic::VariantType::Array: return false;
    default: return true;
    }
}

std::size_t elements(const basic::Variant& value)
{
    const auto* array = value.get<basic::Array>();
    return array == nullptr ? 0 : array->elements.size();
}

int changesOf(std::string_view family, const basic::Variant& before, const basic::Variant& after)
{
    if (family == families::changedFlag) return 0;
    const auto* old = before.get<basic::Array>();
    const auto* now = after.get<basic::Array>();
    if (old != nullptr && now != nullptr) {
        int changes = 0;
        for (std::size_t i = 0; i < now->elements.size(); ++i)
            if (i >= old->elements.size() || now->elements[i] != old->elements[i]) ++changes;
        return changes;
    }
    try {
        const auto differing = static_cast<unsigned>(basic::toInt32(before) ^ basic::toInt32(after));
        return static_cast<int>(std::bitset<32>{differing & switchBits}.count());
    } catch (const basic::Error&) {
        return 1;
    }
}

} // namespace

void WatchedVariables::setLink(bool good)
{
    if (good && !linkIsGood_)
        for (auto& [name, read] : reads_)
            read.isOld = true;
    linkIsGood_ = good;
}

basic::Variant WatchedVariables::look(std::string_view name)
{
    if (!linkIsGood_ && machine::SplitVariables::isOfMachine(name))
        throw basic::Error{noConnection, {}, sentence(name, "no connection, not read")};
    return inner_->ReadValue(name);
}

basic::Variant WatchedVariables::ReadValue(std::string_view name)
{
    basic::Variant value;
    try {
        value = readAndKeep(name);
    } catch (const basic::Error&) {
        if (observer_) observer_(name, nullptr);
        throw;
    }
    if (observer_) observer_(name, linkIsGood_ ? &value : nullptr);
    return value;
}

basic::Variant WatchedVariables::readAndKeep(std::string_view name)
{
    const std::string_view family = familyOf(name);
    if (family.empty() || family == families::changedFlag) return inner_->ReadValue(name);

    const Read* const before = latest(family);
    const bool wasGood = before == nullptr || (before->problem.empty() && !before->isOld);
    const std::size_t count = before == nullptr ? 0 : elements(before->value);
    const bool isAnother = before == nullptr || before->variable != name;
    latest_[family] = std::string{name};
    Read& read = reads_[std::string{name}];
    read.variable = name;
    const auto tell = [&] {
        const bool differs = isAnother || wasGood != read.problem.empty() || count != elements(read.value);
        if (changed_ && differs) changed_();
    };
    try {
        const basic::Variant value = inner_->ReadValue(name);
        read.value = value;
        read.isOld = false;
        read.problem = problemOf(family, name, value);
        read.error = read.problem.empty() ? 0 : static_cast<std::int32_t>(basic::ErrorNumber::TypeMismatch);
        if (read.problem.empty()) noteShown(family, read);
        tell();
        return value;
    } catch (const basic::Error& error) {
        read.problem = error.description;
        read.error = error.number;
        tell();
        throw;
    }
}

void WatchedVariables::WriteValue(std::string_view name, const basic::Variant& value)
{
    const std::string_view family = familyOf(name);
    if (family.empty()) {
        inner_->WriteValue(name, value);
        if (written_) written_(name, value);
        return;
    }
    Write write{std::string{name}, family, {}, value, 0, {}, 0};
    const auto read = reads_.find(name);
    if (read != reads_.end()) {
        write.before = read->second.value;
        write.changes = changesOf(family, write.before, value);
    }
    const auto failed = [&](std::string problem, std::int32_t error) {
        write.problem = std::move(problem);
        write.error = error;
        writes_.push_back(std::move(write));
    };
    try {
        // An old value may lie behind every field then, and nobody would see what becomes of the new one.
        if (!linkIsGood_) throw basic::Error{noConnection, {}, sentence(name, "no connection, not written")};
        // Nor where the values that go along with the changed ones are not the machine's.
        if (read != reads_.end() && !isOfNow(read->second))
            throw basic::Error{notReadable, {}, sentence(name, "it could not be read, not written")};
        // Writing may take a while, and others write too.
        if (writeCheck_ && !writeCheck_(name, write.before))
            throw basic::Error{
                changedMeanwhile, {}, sentence(name, "changed by somebody else meanwhile, not written")};
        inner_->WriteValue(name, value);
    } catch (const basic::Error& error) {
        failed(error.description, error.number);
        throw;
    } catch (const std::exception& error) {
        failed(sentence(name, error.what()), static_cast<std::int32_t>(basic::ErrorNumber::InternalError));
        throw;
    }
    if (read != reads_.end() && read->second.problem.empty()) read->second.value = value;
    writes_.push_back(std::move(write));
    // What goes wrong from here on is not the write's fault any more.
    if (written_) written_(name, value);
}

const WatchedVariables::Read* WatchedVariables::latest(std::string_view family) const
{
    const auto name = latest_.find(family);
    if (name == latest_.end()) return nullptr;
    const auto read = reads_.find(name->second);
    return read == reads_.end() ? nullptr : &read->second;
}

// What an element of a family is counted by: one number or text has only one.
std::size_t WatchedVariables::place(const ValueSource& source)
{
    return isOneValue(source.family) ? 0 : static_cast<std::size_t>(source.element);
}

void WatchedVariables::noteShown(std::string_view family, const Read& read)
{
    std::vector<const Read*>& shown = shown_[family];
    const std::size_t count = isOneValue(family) ? 1 : elements(read.value);
    if (shown.size() < count) shown.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        if (givesValue(family, read, i)) shown[i] = &read;
}

bool WatchedVariables::givesValue(std::string_view family, const Read& read, std::size_t place)
{
    if (isOneValue(family)) return isShowable(read.value);
    const auto* array = read.value.get<basic::Array>();
    return array != nullptr && place < array->elements.size() && isShowable(array->elements[place]);
}

ValueState WatchedVariables::state(const ValueSource& source) const
{
    const Read* const read = latest(source.family);
    if (read == nullptr) return linkIsGood_ ? ValueState::Fresh : ValueState::Unknown;
    if (isOfNow(*read) && givesValue(source.family, *read, place(source))) return ValueState::Fresh;
    const auto shown = shown_.find(source.family);
    const bool isItsOwn =
        shown != shown_.end() && place(source) < shown->second.size() && shown->second[place(source)] == read;
    return isItsOwn ? ValueState::Stale : ValueState::Unknown;
}

} // namespace servopanel::panel
