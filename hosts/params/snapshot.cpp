#include "params/snapshot.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "jet/servo_defs/definition_list.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <variant>

namespace servopanel::params {

namespace {

using basic::Variant;

// Singles are told from doubles by what a person would write for them: 0.1, not 0.100000001490116.
double asNumber(const Variant& value)
{
    if (value.holds<float>()) return basic::numberFromText(jet::plainText(value));
    return basic::toDouble(value);
}

bool same(double left, double right) { return left == right || (std::isnan(left) && std::isnan(right)); }

Variant inType(double number, basic::VariantType type)
{
    const Variant value = basic::convert(Variant{number}, type);
    if (!same(asNumber(value), number))
        basic::raise(basic::ErrorNumber::TypeMismatch, "the machine cannot hold exactly this number");
    return value;
}

// Elements count from 0 here, whatever the machine's array begins with.
void requireElement(const basic::Array& array, int element)
{
    if (element < 0 || static_cast<std::size_t>(element) >= array.elements.size())
        basic::raise(basic::ErrorNumber::SubscriptOutOfRange,
            "the machine has no element " + std::to_string(element) + " there");
}

} // namespace

std::vector<int> servosOf(const std::string& machine, const mqtt::Description& description)
{
    std::set<int> servos;
    for (const mqtt::VariableDescription& variable : description.variables()) {
        const auto found = parameterVariable(variable.name);
        if (found && found->machine == machine) servos.insert(found->servo);
    }
    return {servos.begin(), servos.end()};
}

std::vector<std::string> variablesOf(
    const std::string& machine, const mqtt::Description& description, int servo)
{
    std::vector<std::string> names;
    for (const Family& family : parameterFamilies()) {
        const auto index = description.indexOf(variableName(machine, servo, family.part));
        if (!index) continue;
        const mqtt::VariableDescription& variable = description.variables()[*index];
        names.push_back(variable.name);
        for (const mqtt::Limit* const limit : {&variable.least, &variable.most})
            if (const auto* const name = std::get_if<std::string>(limit)) names.push_back(*name);
    }
    return names;
}

void requireServos(
    const std::string& machine, const mqtt::Description& description, const std::vector<int>& servos)
{
    const std::vector<int> known = servosOf(machine, description);
    for (const int servo : servos) {
        if (std::find(known.begin(), known.end(), servo) != known.end()) continue;
        std::string text = "machine " + machine + " has no parameters of a servo " + std::to_string(servo)
            + "; its servos are";
        for (const int one : known)
            text.append(one == known.front() ? " " : ", ").append(std::to_string(one));
        if (known.empty()) text = "machine " + machine + " has no servo";
        basic::raise(basic::ErrorNumber::InvalidProcedureCall, text);
    }
}

ParameterSet parametersOf(Snapshot& snapshot, const std::vector<int>& servos, const Captions& captions)
{
    ParameterSet set;
    set.machine = snapshot.machine;
    set.epoch = snapshot.epoch;
    set.description = snapshot.description.hash();
    for (const int servo : servos) {
        for (std::size_t family = 0; family < parameterFamilies().size(); ++family) {
            const Family& of = parameterFamilies()[family];
            const std::string name = variableName(snapshot.machine, servo, of.part);
            const Variant* const value = snapshot.values.find(name);
            if (!value) continue;
            const auto index = snapshot.description.indexOf(name);
            const std::string unit = index ? snapshot.description.variables()[*index].unit : std::string{};
            std::vector<Row> rows;
            try {
                for (int element = 0; element < elementsOf(of, *value); ++element) {
                    const Place place{servo, family, element};
                    auto [caption, captionUnit] = captions.of(snapshot.machine, place);
                    rows.push_back({place, std::move(caption), unit.empty() ? std::move(captionUnit) : unit,
                        numberAt(of, *value, element), 0});
                }
            } catch (const basic::Error& error) {
                snapshot.unreadable.insert_or_assign(name, error.description);
                continue;
            }
            std::move(rows.begin(), rows.end(), std::back_inserter(set.rows));
        }
    }
    std::sort(set.rows.begin(), set.rows.end(),
        [](const Row& left, const Row& right) { return left.place < right.place; });
    return set;
}

int elementsOf(const Family& family, const Variant& value)
{
    if (family.isWord) return value.get<basic::Array>() ? 0 : family.fields;
    const auto* const array = value.get<basic::Array>();
    return array ? static_cast<int>(array->elements.size()) : 0;
}

double numberAt(const Family& family, const Variant& value, int element)
{
    if (family.isWord)
        return (static_cast<std::uint32_t>(basic::toInt32(value)) >> static_cast<unsigned>(element)) & 1U;
    const auto* const array = value.get<basic::Array>();
    if (!array) basic::raise(basic::ErrorNumber::TypeMismatch);
    requireElement(*array, element);
    return asNumber(array->elements[static_cast<std::size_t>(element)]);
}

void setNumber(const Family& family, Variant& value, int element, double number)
{
    if (!family.isWord) {
        auto* const array = value.get<basic::Array>();
        if (!array) basic::raise(basic::ErrorNumber::TypeMismatch);
        requireElement(*array, element);
        Variant& place = array->elements[static_cast<std::size_t>(element)];
        place = inType(number, place.type());
        return;
    }
    if (number != 0 && number != 1) basic::raise(basic::ErrorNumber::TypeMismatch, "a switch is 0 or 1");
    const std::uint32_t bit = std::uint32_t{1} << static_cast<unsigned>(element);
    auto word = static_cast<std::uint32_t>(basic::toInt32(value));
    word = number != 0 ? word | bit : word & ~bit;
    value = basic::convert(Variant{static_cast<std::int32_t>(word)}, value.type());
}

} // namespace servopanel::params
