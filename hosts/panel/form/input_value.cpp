#include "panel/form/input_value.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "platform/ids.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace servopanel::panel {

using basic::Variant;

namespace {

constexpr std::int16_t firstPart =
    41; // of the first drawing number; those of the second follow each of the first
constexpr std::int16_t lastPart = 46;
constexpr std::array weights{1000000.0, 10000.0, 1.0}; // of the parts

std::vector<Child*> drawingParts(ControlHost& page, std::string_view name, std::int16_t index)
{
    std::vector<Child*> parts;
    for (std::int16_t part = firstPart; part <= lastPart; ++part)
        if (part % 2 == index % 2)
            if (Child* const child = page.find(name, part)) parts.push_back(child);
    return parts;
}

// "312", "45" and "0017" are 312450017, as the page puts them together.
std::optional<double> drawingNumber(const std::vector<Child*>& parts)
{
    if (parts.size() != weights.size()) return {};
    double number = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const std::string text = basic::toText(parts[i]->get(platform::ids::VWSIndex::Text, {}));
        if (text.empty()) return {};
        number += basic::Val(text) * weights[i];
    }
    return number;
}

// What a part shows of a number.
double partOf(double number, std::int16_t index)
{
    const double whole = std::trunc(number);
    switch ((index - firstPart) / 2) {
    case 0: return std::trunc(whole / weights[0]);
    case 1: return std::fmod(std::trunc(whole / weights[1]), weights[0] / weights[1]);
    default: return std::fmod(whole, weights[1]);
    }
}

// What cannot be told counts as the most exact of them.
basic::VariantType typeOfElements(const Variant& variable)
{
    const auto* array = variable.get<basic::Array>();
    // Elements with types of their own may be anything.
    const bool isTold =
        array != nullptr && !array->elements.empty() && array->elementType != basic::VariantType::Variant;
    return isTold ? array->elements.front().type() : basic::VariantType::Double;
}

// An empty value is no number, though it converts to one.
std::optional<double> numberOf(const Variant& value)
{
    if (value.type() == basic::VariantType::Empty) return {};
    return basic::toDouble(value);
}

} // namespace

std::optional<double> inputValue(ControlHost& page, std::string_view name, std::int16_t index)
{
    Child* const input = page.find(name, index);
    if (input == nullptr) return {};
    try {
        if (name.starts_with("Sollwert")) return numberOf(input->get(platform::ids::VWSVarIn::Wert, {}));
        if (name.starts_with("Schalter"))
            return basic::toBoolean(input->get(platform::ids::Schalter::Zustand, {})) ? 1.0 : 0.0;
        if (name.starts_with("Zeichnung")) return drawingNumber(drawingParts(page, name, index));
    } catch (const basic::Error&) {
        return {};
    }
    return {};
}

std::optional<double> elementValue(const ValueSource& source, const Variant& variable)
{
    try {
        if (source.family == families::switches)
            return ((basic::toInt32(variable) >> source.element) & 1) != 0 ? 1.0 : 0.0;
        return numberOf(basic::element(variable, source.element));
    } catch (const basic::Error&) {
        return {};
    }
}

bool showsElement(ControlHost& page, std::string_view name, std::int16_t index, const ValueSource& source,
    const Variant& variable)
{
    const std::optional<double> held = elementValue(source, variable);
    if (!held) return false;
    if (name.starts_with("Zeichnung")) {
        const std::string text =
            basic::toText(page.find(name, index)->get(platform::ids::VWSIndex::Text, {}));
        return !text.empty() && basic::Val(text) == partOf(*held, index);
    }
    const std::optional<double> shown = inputValue(page, name, index);
    return shown && isSameValue(*shown, *held, Variant{});
}

bool holdsWholeNumbers(const Variant& variable)
{
    switch (typeOfElements(variable)) {
    case basic::VariantType::Byte:
    case basic::VariantType::Int16:
    case basic::VariantType::Int32:
    case basic::VariantType::Boolean: return true;
    default: return false;
    }
}

bool isSameValue(double entered, double held, const Variant& variable)
{
    if (entered == held || (std::isnan(entered) && std::isnan(held))) return true;
    if (holdsWholeNumbers(variable)) return std::abs(entered - held) <= 0.5;
    return typeOfElements(variable) == basic::VariantType::Single
        && static_cast<float>(entered) == static_cast<float>(held);
}

} // namespace servopanel::panel
