#include "mqtt/messages.h"

#include "mqtt/protocol_error.h"
#include "mqtt/value_coding.h"

#include <algorithm>
#include <array>
#include <limits>

namespace servopanel::mqtt {

namespace {

constexpr std::int64_t largestCount =
    9'007'199'254'740'991; // whole numbers that every JSON reader keeps exact
constexpr std::int64_t mostVariables = 10'000; // of a machine, and elements of an array
constexpr std::size_t variablesPerPart = 64;
constexpr std::array<std::string_view, 3> qualityNames{"good", "stale", "bad"};

std::int64_t count(const Members& members, const char* member)
{
    return members.whole(member, 0, largestCount);
}

// Texts that are no UTF-8 lose the wrong bytes, a message is never lost for them.
std::string text(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

void putLimit(Json& json, const char* member, const Limit& limit)
{
    if (const auto* const number = std::get_if<double>(&limit)) json[member] = *number;
    if (const auto* const name = std::get_if<std::string>(&limit)) json[member] = *name;
}

Limit takeLimit(const Members& members, const char* member)
{
    if (!members.has(member)) return {};
    const Json& json = members.any(member);
    if (json.is_number()) return json.get<double>();
    if (json.is_string()) return json.get<std::string>();
    members.fail(member, "must be a number or the name of a variable");
}

std::vector<std::int16_t> takeLevels(const Members& members)
{
    constexpr std::int64_t most = std::numeric_limits<std::int16_t>::max();
    std::vector<std::int16_t> levels;
    if (!members.has("level")) return levels;
    const Json& json = members.any("level");
    const auto take = [&](const Json& level) {
        if (!isWholeWithin(level, 0, most)) members.fail("level", "must be whole numbers from 0 on");
        levels.push_back(level.get<std::int16_t>());
    };
    if (!json.is_array())
        take(json);
    else
        for (const Json& level : json)
            take(level);
    return levels;
}

std::size_t bitsOf(basic::VariantType type)
{
    if (type == basic::VariantType::Int16) return 16;
    return type == basic::VariantType::Int32 ? 32 : 0;
}

Json toJson(const VariableDescription& variable)
{
    Json json{{"name", variable.name}, {"type", machine::typeName(variable.type)}};
    if (variable.type.array) json["length"] = variable.length;
    if (variable.first != 0) json["first"] = variable.first;
    if (!variable.unit.empty()) json["unit"] = variable.unit;
    if (variable.writable) json["write"] = true;
    if (variable.signal) json["signal"] = true;
    putLimit(json, "min", variable.least);
    putLimit(json, "max", variable.most);
    if (variable.levels.size() == 1) json["level"] = variable.levels.front();
    if (variable.levels.size() > 1) json["level"] = variable.levels;
    return json;
}

VariableDescription readVariable(std::string_view topic, const Json& json)
{
    const Members members{topic, json};
    VariableDescription variable;
    variable.name = members.text("name");
    const std::string typeName = members.text("type");
    const auto type = machine::typeNamed(typeName);
    if (!type) members.fail("type", "is not known: " + typeName);
    variable.type = *type;
    if (type->array) variable.length = static_cast<std::size_t>(members.whole("length", 0, mostVariables));
    variable.first = static_cast<std::int32_t>(members.wholeOr("first", -mostVariables, mostVariables, 0));
    variable.unit = members.textOr("unit", "");
    variable.writable = members.booleanOr("write", false);
    variable.signal = members.booleanOr("signal", false);
    variable.least = takeLimit(members, "min");
    variable.most = takeLimit(members, "max");
    variable.levels = takeLevels(members);
    const std::size_t parts = type->array ? variable.length : bitsOf(type->element);
    if (variable.levels.size() > std::max<std::size_t>(parts, 1)
        || (type->array && variable.levels.size() > 1 && variable.levels.size() != parts))
        members.fail("level", "must be one number or one for each element or bit");
    return variable;
}

// An element that is not known is never good, whatever the sender says.
void markHoles(std::vector<Quality>& qualities, const Json& held)
{
    const std::size_t count = held.is_array() ? held.size() : 1;
    for (std::size_t i = 0; i < count; ++i) {
        if (!(held.is_array() ? held[i] : held).is_null()) continue;
        if (qualities.size() == 1) qualities.assign(count, qualities.front());
        if (qualities[i] == Quality::Good) qualities[i] = Quality::Bad;
    }
}

Quality qualityNamed(const Members& members, const Json& json)
{
    if (json.is_string())
        for (std::size_t i = 0; i < qualityNames.size(); ++i)
            if (json.get<std::string>() == qualityNames[i]) return static_cast<Quality>(i);
    members.fail("quality", "must be good, stale or bad");
}

} // namespace

std::string write(const State& state)
{
    return text({{"up", state.up}, {"epoch", state.epoch}, {"hash", state.hash}});
}

State readState(std::string_view topic, std::string_view payload)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    return {members.boolean("up"), count(members, "epoch"), members.text("hash")};
}

std::vector<DescriptionPart> partsOf(const Description& description)
{
    const auto& all = description.variables();
    const std::string hash = description.hash();
    const std::size_t parts =
        std::max<std::size_t>(1, (all.size() + variablesPerPart - 1) / variablesPerPart);
    std::vector<DescriptionPart> result;
    for (std::size_t part = 0; part < parts; ++part) {
        const std::size_t begin = part * variablesPerPart;
        const std::size_t end = std::min(begin + variablesPerPart, all.size());
        const auto at = [&](std::size_t i) { return all.begin() + static_cast<std::ptrdiff_t>(i); };
        result.push_back({hash, part, parts, {at(begin), at(end)}});
    }
    return result;
}

std::string write(const DescriptionPart& part)
{
    Json variables = Json::array();
    for (const VariableDescription& variable : part.variables)
        variables.push_back(toJson(variable));
    return text({{"hash", part.hash}, {"part", part.part}, {"parts", part.parts},
        {"variables", std::move(variables)}});
}

DescriptionPart readDescriptionPart(std::string_view topic, std::string_view payload)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    DescriptionPart part;
    part.hash = members.text("hash");
    part.parts = static_cast<std::size_t>(members.whole("parts", 1, mostVariables));
    part.part = static_cast<std::size_t>(members.whole("part", 0, static_cast<std::int64_t>(part.parts) - 1));
    for (const Json& variable : members.array("variables"))
        part.variables.push_back(readVariable(topic, variable));
    return part;
}

Quality Value::worst() const
{
    return qualities.empty() ? Quality::Good : *std::max_element(qualities.begin(), qualities.end());
}

std::string write(const Value& value)
{
    Json json{{"epoch", value.epoch}, {"seq", value.sequence}, {"time", value.time},
        {"value", toJson(value.value)}};
    const auto name = [](Quality quality) { return qualityNames[static_cast<std::size_t>(quality)]; };
    if (value.worst() == Quality::Good)
        json["quality"] = name(Quality::Good);
    else if (value.qualities.size() == 1)
        json["quality"] = name(value.qualities.front());
    else
        for (const Quality quality : value.qualities)
            json["quality"].push_back(name(quality));
    if (!value.reason.empty()) json["reason"] = value.reason;
    return text(json);
}

Value readValue(std::string_view topic, std::string_view payload, const VariableDescription& description)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    Value value;
    value.epoch = count(members, "epoch");
    value.sequence = count(members, "seq");
    value.time = count(members, "time");
    value.reason = members.textOr("reason", "");
    if (const Json& quality = members.any("quality"); quality.is_array()) {
        if (!description.type.array || quality.size() != description.length)
            members.fail("quality", "must be one word or one for each element");
        for (const Json& element : quality)
            value.qualities.push_back(qualityNamed(members, element));
    } else
        value.qualities.push_back(qualityNamed(members, quality));
    const Json& held = members.any("value");
    auto read = fromJson(held, description, Holes::Allowed);
    if (!read) members.fail("value", "is not of the type and length that the description says");
    value.value = std::move(*read);
    markHoles(value.qualities, held);
    return value;
}

std::string write(const Heartbeat& heartbeat)
{
    return text({{"epoch", heartbeat.epoch}, {"time", heartbeat.time}, {"seq", heartbeat.sequences}});
}

Heartbeat readHeartbeat(std::string_view topic, std::string_view payload)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    Heartbeat heartbeat{count(members, "epoch"), count(members, "time"), {}};
    for (const Json& sequence : members.array("seq")) {
        if (!isWholeWithin(sequence, 0, largestCount)) members.fail("seq", "must be whole numbers");
        heartbeat.sequences.push_back(sequence.get<std::int64_t>());
    }
    return heartbeat;
}

std::string write(const Get& get)
{
    Json json = Json::object();
    if (!get.names.empty()) json["names"] = get.names;
    return text(json);
}

Get readGet(std::string_view topic, std::string_view payload)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    Get get;
    if (!members.has("names")) return get;
    for (const Json& name : members.array("names")) {
        if (!name.is_string()) members.fail("names", "must be texts");
        get.names.push_back(name.get<std::string>());
    }
    return get;
}

std::string write(const Command& command)
{
    return text({{"id", command.id}, {"epoch", command.epoch}, {"deadline", command.deadline},
        {"level", command.level}, {"name", command.name}, {"old", command.old}, {"new", command.wanted}});
}

Command readCommand(std::string_view topic, std::string_view payload)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    Command command;
    command.id = members.text("id");
    if (command.id.empty()) members.fail("id", "is empty");
    command.epoch = count(members, "epoch");
    command.deadline = count(members, "deadline");
    command.level =
        static_cast<std::int16_t>(members.whole("level", 0, std::numeric_limits<std::int16_t>::max()));
    command.name = members.text("name");
    command.old = members.any("old");
    command.wanted = members.any("new");
    return command;
}

std::string write(const Ack& ack)
{
    Json json{{"id", ack.id}, {"epoch", ack.epoch}, {"code", codeOf(ack.outcome)}, {"time", ack.time}};
    if (!ack.text.empty()) json["text"] = ack.text;
    if (!ack.value.is_null()) {
        json["value"] = ack.value;
        json["seq"] = ack.sequence;
    }
    return text(json);
}

Ack readAck(std::string_view topic, std::string_view payload)
{
    const Json json = parseBounded(topic, payload);
    const Members members{topic, json};
    Ack ack;
    ack.id = members.text("id");
    ack.epoch = count(members, "epoch");
    ack.time = count(members, "time");
    ack.text = members.textOr("text", "");
    const std::string code = members.text("code");
    const auto outcome = outcomeOfCode(code);
    if (!outcome) members.fail("code", "is not known: " + code);
    ack.outcome = *outcome;
    if (members.has("value")) {
        ack.value = members.any("value");
        ack.sequence = count(members, "seq");
    } else if (ack.outcome == Outcome::Done)
        members.fail("value", "is missing: what is done must be read back");
    return ack;
}

} // namespace servopanel::mqtt
