#include "machine/machine_settings_reader.h"

#include "machine/json_object.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

namespace servopanel::machine {

namespace {

using Need = JsonObject::Need;

constexpr std::int64_t largest16 = std::numeric_limits<std::int16_t>::max();
constexpr double milliseconds = 0.001;
constexpr double leastPeriod = 10; // milliseconds; nobody sees more than a hundred values in a second

struct KindName {
    std::string_view name;
    ValueKind kind;
};

constexpr KindName kindNames[]{{"constant", ValueKind::Constant}, {"setpoint", ValueKind::Setpoint},
    {"line", ValueKind::Line}, {"value", ValueKind::Value}, {"lag", ValueKind::Lag},
    {"rate", ValueKind::Rate}, {"integral", ValueKind::Integral}, {"swing", ValueKind::Swing},
    {"wander", ValueKind::Wander}, {"faults", ValueKind::Faults}, {"starts", ValueKind::Starts}};

struct FamilySize {
    std::string_view name;
    int size;
};

constexpr FamilySize families[]{{"servo_para", 20}, {"servo_para2", 4}, {"servo_zeich", 2}};

class SettingsReader {
public:
    SettingsReader(const std::string& file, std::vector<Problem>& problems)
        : file_{file}
        , problems_{problems}
    {
    }

    std::optional<MachineSettings> settings(const Json& json, const std::string& path)
    {
        JsonObject object{json, file_, path, problems_};
        const auto kind = object.text("kind", Need::Required);
        if (kind && *kind != "simulated") object.problem("kind", "only \"simulated\" is known");
        if (object.failed()) return std::nullopt;

        MachineSettings settings;
        if (const auto period = object.number("period_ms", Need::Optional, leastPeriod, 10'000))
            settings.periodSeconds = *period * milliseconds;
        if (const auto seed =
                object.whole("seed", Need::Optional, 0, std::numeric_limits<std::int64_t>::max()))
            settings.seed = static_cast<std::uint64_t>(*seed);
        if (const auto takeover = object.number("takeover_ms", Need::Optional, 0, 3'600'000))
            settings.takeoverSeconds = *takeover * milliseconds;
        if (const Json* const lines = object.array("lines", Need::Optional))
            settings.lines = each<LineRule>(*lines, object.pathOf("lines"), &SettingsReader::line);
        if (const Json* const servos = object.array("servos", Need::Optional))
            settings.servos = each<ServoRule>(*servos, object.pathOf("servos"), &SettingsReader::servo);
        object.finish();
        return settings;
    }

private:
    // The good ones among the entries of a list.
    template <class Rule>
    std::vector<Rule> each(
        const Json& list, const std::string& path, std::optional<Rule> (SettingsReader::*read)(JsonObject&))
    {
        std::vector<Rule> rules;
        std::size_t number = 0;
        for (const Json& json : list) {
            JsonObject object{json, file_, path + "/" + std::to_string(number++), problems_};
            std::optional<Rule> rule = (this->*read)(object);
            object.finish();
            if (rule && !object.failed()) rules.push_back(std::move(*rule));
        }
        return rules;
    }

    std::optional<LineRule> line(JsonObject& object)
    {
        LineRule rule;
        rule.machine = object.text("machine", Need::Required).value_or("");
        rule.unit = object.text("unit", Need::Optional).value_or("");
        rule.rampPerSecond = object.number("ramp_per_s", Need::Required, 1e-6).value_or(1);
        if (const Json* const phases = object.array("phases", Need::Required))
            rule.phases = each<LinePhase>(*phases, object.pathOf("phases"), &SettingsReader::phase);
        if (rule.phases.empty()) object.problem("phases", "needs at least one phase");
        return rule;
    }

    std::optional<LinePhase> phase(JsonObject& object)
    {
        LinePhase phase;
        phase.speed = object.number("speed", Need::Required).value_or(0);
        phase.seconds = object.number("seconds", Need::Required, 0.001).value_or(1);
        return phase;
    }

    std::optional<ServoRule> servo(JsonObject& object)
    {
        ServoRule rule;
        rule.machine = object.text("machine", Need::Required).value_or("");
        rule.servo = static_cast<int>(object.whole("servo", Need::Required, 0, largest16).value_or(0));
        rule.name = object.text("name", Need::Optional).value_or("");
        rule.place = object.path();
        known_.clear();
        leftOut_.clear();
        if (const Json* const values = object.array("values", Need::Optional))
            rule.values = each<ValueRule>(*values, object.pathOf("values"), &SettingsReader::value);
        if (const Json* const faults = object.array("faults", Need::Optional))
            rule.faults = each<FaultRule>(*faults, object.pathOf("faults"), &SettingsReader::fault);
        return rule;
    }

    std::optional<ValueRule> value(JsonObject& object)
    {
        ValueRule rule;
        rule.place = place(object);
        const auto name = object.text("kind", Need::Required);
        if (!name) return std::nullopt;
        const auto* const kind = std::find_if(std::begin(kindNames), std::end(kindNames),
            [&](const KindName& known) { return known.name == *name; });
        if (kind == std::end(kindNames)) {
            object.problem("kind", "\"" + *name + "\" is not known");
            object.takeRest();
            leftOut_.push_back(rule.place);
            return std::nullopt;
        }
        rule.kind = kind->kind;
        rule.tauSeconds = object.number("tau_ms", Need::Optional, 0).value_or(0) * milliseconds;
        rule.noise = object.number("noise", Need::Optional, 0).value_or(0);
        rule.min = object.number("min", Need::Optional);
        rule.max = object.number("max", Need::Optional);
        if (rule.min && rule.max && *rule.min > *rule.max) object.problem("min", "is above max");
        if (const auto decimals = object.whole("decimals", Need::Optional, 0, 9))
            rule.decimals = static_cast<int>(*decimals);
        if (const auto bit = object.whole("switch", Need::Optional, 0, 3))
            rule.switchBit = static_cast<int>(*bit);
        ofKind(object, rule);

        if (object.failed() || (rule.source && !isKnown(*rule.source))) {
            leftOut_.push_back(rule.place);
            return std::nullopt;
        }
        if (isKnown(rule.place)) {
            object.problem("element", "this place has a value already");
            return std::nullopt;
        }
        known_.push_back(rule.place);
        return rule;
    }

    // The members that only some kinds have.
    void ofKind(JsonObject& object, ValueRule& rule)
    {
        const auto gain = [&] { rule.gain = object.number("gain", Need::Optional).value_or(1); };
        const auto offset = [&] { rule.offset = object.number("offset", Need::Optional).value_or(0); };
        switch (rule.kind) {
        case ValueKind::Constant: rule.value = object.number("value", Need::Required).value_or(0); break;
        case ValueKind::Setpoint:
            rule.setpoint = setpoint(object);
            gain();
            offset();
            break;
        case ValueKind::Line:
            gain();
            offset();
            if (const Json* const draw = object.object("draw", Need::Optional))
                rule.setpoint = setpoint(*draw, object.pathOf("draw"), object);
            break;
        case ValueKind::Value:
        case ValueKind::Rate:
            rule.source = source(object, Need::Required);
            gain();
            offset();
            break;
        case ValueKind::Lag:
            rule.source = source(object, Need::Required);
            gain();
            break;
        case ValueKind::Integral:
            gain();
            rule.source = source(object, Need::Optional);
            rule.start = object.number("start", Need::Optional).value_or(0);
            range(object, rule, object.number("low", Need::Optional), object.number("high", Need::Optional));
            break;
        case ValueKind::Swing:
            rule.low = numberOrSetpoint(object, "low");
            rule.high = numberOrSetpoint(object, "high");
            rule.periodSeconds = object.number("period_s", Need::Required, 0.001).value_or(1);
            break;
        case ValueKind::Wander:
            rule.centre = object.number("centre", Need::Required).value_or(0);
            rule.amplitude = object.number("amplitude", Need::Required).value_or(0);
            rule.periodSeconds = object.number("period_s", Need::Required, 0.001).value_or(1);
            rule.phase = object.number("phase", Need::Optional).value_or(0);
            break;
        case ValueKind::Faults:
            gain();
            offset();
            rule.stopsOnly = object.boolean("stops", Need::Optional).value_or(false);
            break;
        case ValueKind::Starts:
            gain();
            offset();
            break;
        }
    }

    void range(JsonObject& object, ValueRule& rule, std::optional<double> low, std::optional<double> high)
    {
        if (low.has_value() != high.has_value()) object.problem("low", "low and high go together");
        if (!low || !high) return;
        if (!(*low < *high)) object.problem("low", "must be below high");
        rule.low = *low;
        rule.high = *high;
    }

    Place place(JsonObject& object)
    {
        Place place;
        place.page = static_cast<int>(object.whole("page", Need::Required, 1, 2).value_or(1));
        place.element = static_cast<int>(object.whole("element", Need::Required, 0, 39).value_or(0));
        return place;
    }

    std::optional<Place> source(JsonObject& object, Need need)
    {
        const Json* const json = object.object("source", need);
        if (!json) return std::nullopt;
        JsonObject member{*json, file_, object.pathOf("source"), problems_};
        const Place found = place(member);
        member.finish();
        if (member.failed() || (!isKnown(found) && !isLeftOut(found)))
            object.problem("source", "must be the place of an earlier value of this servo");
        return found;
    }

    Setpoint setpoint(JsonObject& object)
    {
        Setpoint setpoint;
        setpoint.family = object.text("family", Need::Required).value_or("");
        const auto* const family = std::find_if(std::begin(families), std::end(families),
            [&](const FamilySize& known) { return known.name == setpoint.family; });
        if (family == std::end(families)) {
            object.problem("family", "\"" + setpoint.family + "\" is no family of setpoints");
            return setpoint;
        }
        setpoint.index =
            static_cast<int>(object.whole("index", Need::Required, 0, family->size - 1).value_or(0));
        return setpoint;
    }

    Setpoint setpoint(const Json& json, const std::string& path, JsonObject& owner)
    {
        JsonObject object{json, file_, path, problems_};
        Setpoint found = setpoint(object);
        object.finish();
        if (object.failed()) owner.problem("", "is left out because of that setpoint");
        return found;
    }

    std::optional<NumberOrSetpoint> numberOrSetpoint(JsonObject& object, const char* member)
    {
        const Json* const json = object.any(member, Need::Required);
        if (!json) return std::nullopt;
        if (json->is_object()) return setpoint(*json, object.pathOf(member), object);
        if (json->is_number()) return json->get<double>();
        object.problem(member, "must be a number or a setpoint");
        return std::nullopt;
    }

    std::optional<FaultRule> fault(JsonObject& object)
    {
        FaultRule rule;
        rule.text = object.text("text", Need::Required).value_or("");
        if (rule.text.empty()) object.problem("text", "must not be empty");
        rule.meanIntervalSeconds = object.number("mean_interval_s", Need::Required, 0.001).value_or(1);
        rule.durationSeconds = object.number("duration_s", Need::Required, 0.001).value_or(1);
        rule.stops = object.boolean("stops", Need::Optional).value_or(false);
        if (const Json* const effects = object.array("effects", Need::Optional))
            rule.effects = each<FaultEffect>(*effects, object.pathOf("effects"), &SettingsReader::effect);
        return rule;
    }

    std::optional<FaultEffect> effect(JsonObject& object)
    {
        FaultEffect effect;
        effect.place = place(object);
        effect.add = object.number("add", Need::Required).value_or(0);
        if (!object.failed() && !isKnown(effect.place) && !isLeftOut(effect.place))
            object.problem("element", "this place has no value");
        return effect;
    }

    bool isKnown(Place place) const { return std::find(known_.begin(), known_.end(), place) != known_.end(); }
    bool isLeftOut(Place place) const
    {
        return std::find(leftOut_.begin(), leftOut_.end(), place) != leftOut_.end();
    }

    const std::string& file_;
    std::vector<Problem>& problems_;
    std::vector<Place> known_; // places of the servo that is being read
    std::vector<Place>
        leftOut_; // those whose value has a mistake; what needs them is left out without a word
};

} // namespace

std::optional<MachineSettings> readMachineSettings(
    const Json& json, const std::string& file, const std::string& path, std::vector<Problem>& problems)
{
    return SettingsReader{file, problems}.settings(json, path);
}

} // namespace servopanel::machine
