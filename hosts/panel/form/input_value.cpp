#include "panel/form/input_value.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "platform/ids.h"
#include "servo_page/felder.h"
#include "servo_page/values/zeichnungsnummer.h"

#include <cmath>
#include <string>
#include <vector>

namespace servopanel::panel {

using basic::Variant;

namespace {

// All parts of the drawing number to which an item belongs; fewer where the page lacks one.
std::vector<Child*> drawingParts(ControlHost& page, std::string_view name, std::int16_t item)
{
    std::vector<Child*> parts;
    for (const std::int16_t each : servo_page::zeichnungsItems(servo_page::zeichnungsFeld(item)))
        if (Child* const child = page.find(name, each)) parts.push_back(child);
    return parts;
}

// "312", "45" and "0017" are 312450017, as the page puts them together.
std::optional<double> drawingNumber(const std::vector<Child*>& parts)
{
    servo_page::ZeichnungsTeile numbers{};
    if (parts.size() != numbers.size()) return {};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::string text = basic::toText(parts[i]->get(platform::ids::VWSIndex::Text, {}));
        if (text.empty()) return {};
        numbers[i] = basic::Val(text);
    }
    return servo_page::zeichnungZusammensetzen(numbers);
}

// What an item shows of a number; basic::Error where the page shows nothing of it.
std::string partText(double number, std::int16_t item)
{
    const servo_page::ZeichnungsTeile parts = servo_page::zeichnungZerlegen(number);
    return basic::Format(parts[static_cast<std::size_t>(servo_page::zeichnungsTeil(item))],
        servo_page::zeichnungsMuster(item));
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
        try {
            return basic::toText(page.find(name, index)->get(platform::ids::VWSIndex::Text, {}))
                == partText(*held, index);
        } catch (const basic::Error&) {
            return false;
        }
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
