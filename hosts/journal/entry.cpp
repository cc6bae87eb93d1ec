#include "journal/entry.h"

#include "basic/error.h"
#include "journal/time_text.h"
#include "machine/json_object.h"
#include "mqtt/outcome.h"
#include "portable/text_decoding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace servopanel::journal {

namespace {

using basic::Variant;
using machine::JsonObject;
using Need = JsonObject::Need;

struct ResultName {
    Result result;
    std::string_view name;
};
constexpr ResultName resultNames[]{{Result::Open, "open"}, {Result::Done, "done"},
    {Result::Refused, "refused"}, {Result::Unknown, "unknown"}};

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t mostInt = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t leastInt = std::numeric_limits<std::int32_t>::min();

// Foreign adapters may hand in texts of any bytes.
std::string utf8(std::string text)
{
    return portable::isUtf8(text) ? std::move(text) : portable::fromWindows1252(text);
}

template <class T>
Json numberToJson(T number)
{
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
    // A single becomes the shortest number that is this single: 0.1, not 0.10000000149011612.
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    double shortest = 0;
    std::from_chars(digits.data(), end, shortest);
    return shortest;
}

// One value, or a list of them: what is deeper was not written by a panel.
bool isValue(const Json& json)
{
    if (!json.is_array()) return !json.is_object();
    return std::none_of(
        json.begin(), json.end(), [](const Json& element) { return element.is_structured(); });
}

const Json* valueMember(JsonObject& object, const char* member)
{
    const Json* const value = object.any(member, Need::Required);
    if (!value || isValue(*value)) return value;
    object.problem(member, "must be one value or a list of values");
    return nullptr;
}

Result resultMember(JsonObject& object)
{
    const auto name = object.text("result", Need::Required);
    const auto result = name ? resultNamed(*name) : std::nullopt;
    if (name && !result) object.problem("result", "must be open, done, refused or unknown");
    return result.value_or(Result::Unknown);
}

std::int64_t timeMember(JsonObject& object, const char* member)
{
    return object.whole(member, Need::Required, 0, latestTime).value_or(0);
}

Entry readEntry(JsonObject& object)
{
    Entry entry;
    entry.write = object.whole("write", Need::Required, 1, most).value_or(0);
    entry.time = timeMember(object, "time");
    entry.panel = object.text("panel", Need::Required).value_or("");
    entry.level = static_cast<int>(object.whole("level", Need::Required, leastInt, mostInt).value_or(0));
    entry.machine = object.text("machine", Need::Optional).value_or("");
    if (const auto servo = object.whole("servo", Need::Optional, leastInt, mostInt))
        entry.servo = static_cast<int>(*servo);
    entry.variable = object.text("variable", Need::Required).value_or("");
    entry.element =
        static_cast<int>(object.whole("element", Need::Required, wholeValue, mostInt).value_or(wholeValue));
    if (const Json* const value = valueMember(object, "old")) entry.oldValue = *value;
    if (const Json* const value = valueMember(object, "new")) entry.newValue = *value;
    entry.result = resultMember(object);
    return entry;
}

Ending readEnding(JsonObject& object)
{
    Ending ending;
    ending.write = object.whole("write", Need::Required, 1, most).value_or(0);
    ending.begun = timeMember(object, "begun");
    ending.time = timeMember(object, "time");
    ending.result = resultMember(object);
    ending.number =
        static_cast<std::int32_t>(object.whole("number", Need::Optional, leastInt, mostInt).value_or(0));
    ending.text = object.text("text", Need::Optional).value_or("");
    return ending;
}

// The member's name and what is wrong with it; "line 1" of a line says nothing.
std::string textOf(const machine::Problem& problem)
{
    if (!problem.place.starts_with('/')) return problem.reason;
    return problem.place.substr(1).append(" ").append(problem.reason);
}

Line readObject(JsonObject& object, const Json& json)
{
    if (json.contains("lost")) return Gap{object.whole("lost", Need::Required, 1, most).value_or(0)};
    if (json.contains("begun")) return readEnding(object);
    return readEntry(object);
}

} // namespace

std::string_view nameOf(Result result)
{
    for (const ResultName& known : resultNames)
        if (known.result == result) return known.name;
    return {};
}

std::optional<Result> resultNamed(std::string_view name)
{
    for (const ResultName& known : resultNames)
        if (known.name == name) return known.result;
    return {};
}

Result resultOf(std::int32_t errorNumber)
{
    using mqtt::Outcome;
    // Raised before anything is sent.
    constexpr auto invalidUseOfNull = static_cast<std::int32_t>(basic::ErrorNumber::InvalidUseOfNull);
    if (errorNumber == invalidUseOfNull) return Result::Refused;
    const auto outcome = static_cast<Outcome>(errorNumber);
    switch (outcome) {
    case Outcome::Done: return Result::Unknown; // an error without a number says nothing
    case Outcome::NoConnection:
    case Outcome::NotSentAfterNoAnswer:
    case Outcome::Bad:
    case Outcome::Stale: return Result::Refused;
    default: return mqtt::isRefused(outcome) ? Result::Refused : Result::Unknown;
    }
}

bool changesNothing(const Entry& entry)
{
    return !entry.oldValue.is_null() && entry.oldValue == entry.newValue;
}

Json toJson(const Variant& value)
{
    using basic::VariantType;
    if (const auto* const array = value.get<basic::Array>()) {
        Json list = Json::array();
        for (const Variant& element : array->elements)
            list.push_back(element.holds<basic::Array>() ? Json() : toJson(element));
        return list;
    }
    switch (value.type()) {
    case VariantType::Boolean: return *value.get<bool>();
    case VariantType::Byte: return *value.get<std::uint8_t>();
    case VariantType::Int16: return *value.get<std::int16_t>();
    case VariantType::Int32: return *value.get<std::int32_t>();
    case VariantType::Single: return numberToJson(*value.get<float>());
    case VariantType::Double: return numberToJson(*value.get<double>());
    case VariantType::Text: return utf8(*value.get<std::string>());
    default: return nullptr; // no type of a process variable
    }
}

std::string lineOf(const Entry& entry)
{
    Json json{
        {"write", entry.write}, {"time", entry.time}, {"panel", utf8(entry.panel)}, {"level", entry.level}};
    if (!entry.machine.empty()) json["machine"] = utf8(entry.machine);
    if (entry.servo) json["servo"] = *entry.servo;
    json["variable"] = utf8(entry.variable);
    json["element"] = entry.element;
    json["old"] = entry.oldValue;
    json["new"] = entry.newValue;
    json["result"] = nameOf(Result::Open);
    return json.dump();
}

std::string lineOf(const Ending& ending)
{
    Json json{{"write", ending.write}, {"begun", ending.begun}, {"time", ending.time},
        {"result", nameOf(ending.result)}};
    if (ending.number != 0) json["number"] = ending.number;
    if (!ending.text.empty()) json["text"] = utf8(ending.text);
    return json.dump();
}

std::string lineOf(const Gap& gap) { return Json{{"lost", gap.lines}}.dump(); }

Line readLine(std::string_view line)
{
    std::vector<machine::Problem> problems;
    // What is said of the line here is its reader's to complete with file and place.
    const std::string noFile;
    const Json json = machine::readJson(line, noFile, problems);
    if (!problems.empty()) return textOf(problems.front());
    JsonObject object{json, noFile, "", problems};
    Line read = readObject(object, json);
    if (problems.empty()) return read;
    return textOf(problems.front());
}

} // namespace servopanel::journal
