#include "panel/runtime/watched_variables.h"

#include "basic/conversions.h"
#include "basic/error.h"

#include <bitset>

namespace servopanel::panel {

namespace {

constexpr unsigned switchBits = 0xF; // the rest of the word is not the panel's

// What is wrong with a value that could be read, seen from those who show it.
std::string problemOf(std::string_view family, std::string_view name, const basic::Variant& value)
{
    const bool isList = value.holds<basic::Array>();
    const bool isOneValue = family == families::switches || family == families::faultText;
    if (isList == !isOneValue) return {};
    std::string problem = "'";
    problem += name;
    problem += isList ? "': a list where one value is expected" : "': no list of values";
    return problem;
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

basic::Variant WatchedVariables::ReadValue(std::string_view name)
{
    const std::string_view family = familyOf(name);
    if (family.empty() || family == families::changedFlag) return inner_->ReadValue(name);

    const Read* const before = latest(family);
    const bool wasGood = before == nullptr || before->problem.empty();
    const std::size_t count = before == nullptr ? 0 : elements(before->value);
    latest_[family] = std::string{name};
    Read& read = reads_[std::string{name}];
    read.variable = name;
    const auto tell = [&] {
        if (changed_ && (wasGood != read.problem.empty() || count != elements(read.value))) changed_();
    };
    try {
        const basic::Variant value = inner_->ReadValue(name);
        read.value = value;
        read.problem = problemOf(family, name, value);
        read.error = read.problem.empty() ? 0 : static_cast<std::int32_t>(basic::ErrorNumber::TypeMismatch);
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
        return;
    }
    Write write{std::string{name}, family, 0, {}, 0};
    if (const auto read = reads_.find(name); read != reads_.end())
        write.changes = changesOf(family, read->second.value, value);
    try {
        inner_->WriteValue(name, value);
        writes_.push_back(std::move(write));
    } catch (const basic::Error& error) {
        write.problem = error.description;
        write.error = error.number;
        writes_.push_back(std::move(write));
        throw;
    }
}

const WatchedVariables::Read* WatchedVariables::latest(std::string_view family) const
{
    const auto name = latest_.find(family);
    if (name == latest_.end()) return nullptr;
    const auto read = reads_.find(name->second);
    return read == reads_.end() ? nullptr : &read->second;
}

bool WatchedVariables::isStale(const ValueSource& source) const
{
    const Read* const read = latest(source.family);
    if (read == nullptr) return false;
    if (!read->problem.empty()) return true;
    const bool isList = read->value.holds<basic::Array>();
    return isList && static_cast<std::size_t>(source.element) >= elements(read->value);
}

} // namespace servopanel::panel
