#include "panel/form/input_value.h"

#include "basic/conversions.h"
#include "platform/ids.h"

#include <cmath>

namespace servopanel::panel {

using basic::Variant;

namespace {

constexpr std::int16_t firstPart =
    41; // of the first drawing number; those of the second follow each of the first
constexpr std::int16_t lastPart = 46;

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

// A part has all the places that it takes in the number.
std::string drawingNumber(ControlHost& page, std::string_view name, std::int16_t index)
{
    std::string digits;
    for (std::int16_t part = firstPart; part <= lastPart; ++part) {
        if (part % 2 != index % 2) continue;
        Child* const child = page.find(name, part);
        if (child != nullptr) digits += basic::toText(child->get(platform::ids::VWSIndex::Text, {}));
    }
    return digits;
}

} // namespace

std::optional<double> inputValue(ControlHost& page, std::string_view name, std::int16_t index)
{
    Child* const input = page.find(name, index);
    if (input == nullptr) return {};
    try {
        if (startsWith(name, "Sollwert"))
            return basic::toDouble(input->get(platform::ids::VWSVarIn::Wert, {}));
        if (startsWith(name, "Schalter"))
            return basic::toBoolean(input->get(platform::ids::Schalter::Zustand, {})) ? 1.0 : 0.0;
        if (startsWith(name, "Zeichnung")) return basic::toDouble(Variant{drawingNumber(page, name, index)});
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
        const auto* array = variable.get<basic::Array>();
        if (array == nullptr || static_cast<std::size_t>(source.element) >= array->elements.size()) return {};
        return basic::toDouble(array->elements[static_cast<std::size_t>(source.element)]);
    } catch (const basic::Error&) {
        return {};
    }
}

bool isSameValue(double entered, double held, const Variant& variable)
{
    if (entered == held) return true;
    const auto* array = variable.get<basic::Array>();
    const basic::VariantType type = array == nullptr || array->elements.empty()
        ? basic::VariantType::Double
        : array->elements.front().type();
    switch (type) {
    case basic::VariantType::Double: return false;
    case basic::VariantType::Single: return static_cast<float>(entered) == static_cast<float>(held);
    default: return std::abs(entered - held) <= 0.5; // whole numbers
    }
}

} // namespace servopanel::panel
