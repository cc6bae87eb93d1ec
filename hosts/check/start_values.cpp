#include "check/start_values.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "check/ini_files.h"
#include "machine/servo_families.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace servopanel::check {

namespace {

using basic::Variant;
using basic::VariantType;
namespace families = machine::families;

constexpr std::string_view machineCount = "parameter<.maschinenanzahl>";
constexpr std::string_view servoCount = "parameter<.servo_anzahl_";
constexpr std::string_view designation = "parameter<.maschinenbez_";
constexpr std::string_view shownMachine = "Ch-1.intern<.aktuelle_maschine>";

enum class Kind { Whole, Fraction, Flag, Text };

// What the library means a variable to be.
struct Rule {
    std::string_view name; // of the variable, or how it begins
    Kind kind;
    std::string_view meaning; // of another type, for the operator; may be empty
};

constexpr std::array variableRules{
    Rule{machineCount, Kind::Whole, {}},
    Rule{servoCount, Kind::Whole, {}},
    Rule{"parameter<.mit_navi>", Kind::Flag, "the panel goes on without navigation"},
    Rule{"Ch-1.param_client<.arabisch>", Kind::Flag, "the direction of writing may be wrong"},
    Rule{"Ch-1.intern<.navi_password_countdown>", Kind::Whole, "starts are not counted"},
    Rule{shownMachine, Kind::Whole, "the panel may find no servos or show another machine"},
    Rule{"Ch-1.intern<.passwort>", Kind::Whole, "the access level may be another one"},
    Rule{"Ch-1.intern<.servo_zeiger>", Kind::Whole, "the place of the shown servo cannot be kept"},
    Rule{"Ch-1.intern<.ocxname>", Kind::Text, "the library's name is not written to it"},
    Rule{"Ch-1.intern_v<.l2_", Kind::Fraction, "it does not hold what the input shows"},
};

constexpr std::array familyRules{
    Rule{families::switches, Kind::Whole, "its lowest four bits are the switches, and true is all of them"},
    Rule{families::faultText, Kind::Text, "the operator reads the number as the fault"},
    Rule{families::changedFlag, Kind::Whole, "the machine does not find the 1 that tells of changed values"},
};

const Rule* ruleOf(std::string_view variable)
{
    for (const Rule& rule : variableRules)
        if (rule.name.back() == '>' ? variable == rule.name : variable.starts_with(rule.name)) return &rule;
    const std::string_view family = machine::familyOf(variable);
    for (const Rule& rule : familyRules)
        if (rule.name == family) return &rule;
    return nullptr;
}

// Elements of a list that the library uses.
struct Length {
    std::string_view family;
    std::size_t used;
};

constexpr std::array lengths{
    Length{families::setpoints, 20},
    Length{families::lowerLimits, 20},
    Length{families::upperLimits, 20},
    Length{families::secondSetpoints, 4},
    Length{families::secondLowerLimits, 4},
    Length{families::secondUpperLimits, 4},
    Length{families::drawings, 2},
    Length{families::actualValues, 40},
};

// What is wrong with a list that has more elements than are used; "" for any other variable.
std::string lengthMistake(const CheckedProject::Variable& variable)
{
    const std::string_view family = machine::familyOf(variable.name);
    const auto* const length = std::find_if(
        lengths.begin(), lengths.end(), [&](const Length& each) { return each.family == family; });
    const auto* const array = variable.value.get<basic::Array>();
    if (length == lengths.end() || array == nullptr || array->elements.size() <= length->used) return {};
    std::string what = "has ";
    what.append(std::to_string(array->elements.size())).append(" elements, of which the first ");
    return what.append(std::to_string(length->used)).append(" are used: the operator never sees the others");
}

bool isNumber(const Variant& value)
{
    switch (value.type()) {
    case VariantType::Byte:
    case VariantType::Int16:
    case VariantType::Int32:
    case VariantType::Single:
    case VariantType::Double:
    case VariantType::Currency: return true;
    default: return false;
    }
}

bool isFraction(const Variant& value)
{
    return isNumber(value) && !value.holds<std::uint8_t>() && !value.holds<std::int16_t>()
        && !value.holds<std::int32_t>();
}

bool fits(Kind kind, const Variant& value)
{
    switch (kind) {
    case Kind::Whole: return isNumber(value) && basic::toDouble(value) == std::floor(basic::toDouble(value));
    case Kind::Fraction: return isFraction(value);
    case Kind::Flag:
        return value.holds<bool>()
            || (isNumber(value) && (basic::toDouble(value) == 0 || basic::toDouble(value) == -1));
    case Kind::Text: return value.holds<std::string>();
    }
    return false;
}

std::string mistakeOf(const Rule& rule, const Variant& value)
{
    if (value.holds<basic::Array>()) return "is a list, and one value belongs here: the panel reports it";
    std::string what;
    switch (rule.kind) {
    case Kind::Whole: what = "must be a whole number, without quotes"; break;
    case Kind::Fraction: what = "must be a number with a decimal point, without quotes, such as 0.0"; break;
    case Kind::Flag: what = "is neither true nor false"; break;
    case Kind::Text: what = "is no text"; break;
    }
    if (!rule.meaning.empty()) what.append(": ").append(rule.meaning);
    return what;
}

// The number that was meant, as far as it can be told; true and false are none.
std::optional<std::int16_t> meantNumber(const Variant& value)
{
    if (!isNumber(value) && !value.holds<std::string>()) return std::nullopt;
    try {
        return basic::toInt16(value);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

const Variant* valueOf(const CheckedProject& project, std::string_view name)
{
    for (const auto& variable : project.file.variables)
        if (variable.name == name) return &variable.value;
    return nullptr;
}

std::int16_t machinesWithDesignation(const CheckedProject& project)
{
    std::int16_t machines = 0;
    const auto hasDesignation = [&](std::int32_t machine) {
        return valueOf(project, std::string{designation}.append(basic::decimal(machine)).append(">"))
            != nullptr;
    };
    while (machines < mostMachines && hasDesignation(machines + 1))
        ++machines;
    return std::max(machines, std::int16_t{1});
}

// How many servos the project lists for the machine in whose variable their number stands.
std::int16_t listedServos(const CheckedProject& project, std::string_view variable)
{
    variable.remove_prefix(servoCount.size());
    int machine = 0;
    std::from_chars(variable.data(), variable.data() + variable.size(), machine);
    return std::max(servosListed(project, machine), std::int16_t{1});
}

Variant rightValue(const CheckedProject& project, const Rule& rule, const CheckedProject::Variable& variable)
{
    switch (rule.kind) {
    case Kind::Fraction: return 0.0;
    case Kind::Flag: return false;
    case Kind::Text: return std::string{};
    case Kind::Whole: break;
    }
    if (const auto meant = meantNumber(variable.value)) return *meant;
    if (rule.name == machineCount) return machinesWithDesignation(project);
    if (rule.name == servoCount) return listedServos(project, variable.name);
    return static_cast<std::int16_t>(rule.name == shownMachine ? 1 : 0);
}

} // namespace

std::int16_t machinesOf(const CheckedProject& project)
{
    const Variant* const value = valueOf(project, machineCount);
    const std::optional<std::int16_t> count = value == nullptr ? std::nullopt : meantNumber(*value);
    return count && *count >= 1 && *count <= mostMachines ? *count : machinesWithDesignation(project);
}

void setRightTypes(CheckedProject& project)
{
    for (auto& variable : project.file.variables) {
        if (std::string mistake = lengthMistake(variable); !mistake.empty())
            project.wrongStarts[variable.name] = std::move(mistake);
        const Rule* const rule = ruleOf(variable.name);
        if (rule == nullptr || fits(rule->kind, variable.value)) continue;
        project.wrongStarts[variable.name] = mistakeOf(*rule, variable.value);
        variable.value = rightValue(project, *rule, variable);
    }
}

} // namespace servopanel::check
