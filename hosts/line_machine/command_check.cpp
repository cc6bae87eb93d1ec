#include "line_machine/command_check.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "mqtt/value_coding.h"

#include <cmath>
#include <limits>
#include <optional>
#include <variant>

namespace servopanel::line_machine {

namespace {

using basic::Variant;
using mqtt::Outcome;

std::size_t countOf(const Variant& value)
{
    const auto* const array = value.get<basic::Array>();
    return array ? array->elements.size() : 1;
}

const Variant& at(const Variant& value, std::size_t i)
{
    const auto* const array = value.get<basic::Array>();
    return array ? array->elements[i] : value;
}

constexpr double unknown = std::numeric_limits<double>::quiet_NaN();

// Nothing where the description has none; not a number where it names one that nobody knows.
std::optional<double> limit(const mqtt::Limit& limit, std::size_t i, const CommandContext& context)
{
    if (const auto* const number = std::get_if<double>(&limit)) return *number;
    const auto* const name = std::get_if<std::string>(&limit);
    if (!name) return {};
    const Variant* const limits = context.store.find(*name);
    if (!limits || i >= countOf(*limits)) return unknown;
    try {
        const double number = basic::toDouble(at(*limits, i));
        return std::isfinite(number) ? number : unknown;
    } catch (const basic::Error&) {
        return unknown;
    }
}

bool hasLevelsOfBits(const mqtt::VariableDescription& description)
{
    return description.hasBits() && description.levels.size() > 1;
}

// Of a whole number with a level for each bit: nothing when the bits that change may, of a signal those that are set.
std::optional<Verdict> judgeBits(const Variant& wanted, const Variant& old, std::int16_t level,
    const mqtt::VariableDescription& description)
{
    auto bits = static_cast<std::uint32_t>(basic::toInt32(wanted));
    if (!description.signal) bits ^= static_cast<std::uint32_t>(basic::toInt32(old));
    for (std::size_t bit = 0; bits != 0; ++bit, bits >>= 1) {
        if ((bits & 1) == 0 || level >= description.levelOf(bit)) continue;
        return Verdict{Outcome::LevelTooLow,
            "bit " + std::to_string(bit) + ": level " + std::to_string(description.levelOf(bit))
                + " is needed",
            {}};
    }
    return {};
}

std::string elementText(const mqtt::VariableDescription& description, std::size_t i)
{
    if (!description.type.array) return {};
    return "element " + std::to_string(description.first + static_cast<std::int32_t>(i)) + ": ";
}

// Nothing when the element may get its new value.
std::optional<Verdict> judgeElement(const Variant& wanted, std::size_t i, std::int16_t level,
    const mqtt::VariableDescription& description, const CommandContext& context)
{
    if (!hasLevelsOfBits(description) && level < description.levelOf(i))
        return Verdict{Outcome::LevelTooLow,
            elementText(description, i) + "level " + std::to_string(description.levelOf(i)) + " is needed",
            {}};
    if (description.type.element == basic::VariantType::Text) return {};
    const double value = basic::toDouble(wanted);
    const auto least = limit(description.least, i, context);
    const auto most = limit(description.most, i, context);
    if ((least && std::isnan(*least)) || (most && std::isnan(*most)))
        return Verdict{Outcome::OutOfRange, elementText(description, i) + "its limit is not known", {}};
    if (least && most && *least > *most)
        return Verdict{Outcome::OutOfRange,
            elementText(description, i) + "its limits " + basic::decimal(*least) + " and "
                + basic::decimal(*most) + " contradict each other",
            {}};
    if ((!least || value >= *least) && (!most || value <= *most)) return {};
    const double bound = least && value < *least ? *least : *most;
    return Verdict{Outcome::OutOfRange,
        elementText(description, i) + basic::decimal(value) + " is beyond the limit " + basic::decimal(bound),
        {}};
}

} // namespace

Verdict judge(const mqtt::Command& command, const CommandContext& context)
{
    if (command.epoch != context.epoch) return {Outcome::Restarted, {}, {}};
    if (context.now > command.deadline) return {Outcome::TooLate, {}, {}};
    const auto variable = context.description.indexOf(command.name);
    const Variant* const held = variable ? context.store.find(command.name) : nullptr;
    if (!held) return {Outcome::UnknownName, {}, {}};
    const mqtt::VariableDescription& description = context.description.variables()[*variable];
    if (!description.writable) return {Outcome::ReadOnly, {}, {}};
    const std::optional<Variant> wanted = fromJson(command.wanted, description);
    const std::optional<Variant> old = fromJson(command.old, description);
    if (!wanted || !old) return {Outcome::WrongType, {}, {}};
    if (hasLevelsOfBits(description))
        if (const auto refusal = judgeBits(*wanted, *old, command.level, description)) return *refusal;
    for (std::size_t i = 0; i < countOf(*wanted); ++i) {
        // What a signal says counts each time it is given, whatever it held before.
        if (!description.signal && at(*wanted, i) == at(*old, i)) continue;
        if (const auto refusal = judgeElement(at(*wanted, i), i, command.level, description, context))
            return *refusal;
    }
    if (!description.signal && *old != *held) return {Outcome::ChangedMeanwhile, {}, {}};
    return {Outcome::Done, {}, *wanted};
}

} // namespace servopanel::line_machine
