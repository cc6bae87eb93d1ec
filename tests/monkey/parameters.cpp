#include "monkey/parameters.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "monkey/project.h"
#include "servo_page/felder.h"

#include <charconv>
#include <cmath>

namespace servopanel::monkey {

namespace {

constexpr double majorWeight = 1'000'000;
constexpr double middleWeight = 10'000;

std::optional<double> numberOf(const basic::Variant& value)
{
    try {
        return basic::toDouble(value);
    } catch (const basic::Error&) {
        return std::nullopt;
    }
}

} // namespace

std::optional<ServoName> servoNameOf(std::string_view name)
{
    constexpr std::string_view beginning = "Ch1.M1_T_servo_";
    constexpr std::string_view middle = "<.mM1";
    if (!name.starts_with(beginning)) return std::nullopt;
    ServoName found;
    const char* const end = name.data() + name.size();
    const auto number = std::from_chars(name.data() + beginning.size(), end, found.servo);
    const std::string_view rest{number.ptr, static_cast<std::size_t>(end - number.ptr)};
    if (!rest.starts_with(middle)) return std::nullopt;
    found.family = rest.substr(middle.size(), rest.find_last_of('_') + 1 - middle.size());
    for (const Family& family : families)
        if (name == servoVariable(found.servo, family.name)) found.written = &family;
    return found;
}

Elements elementsOf(const basic::Variant& value)
{
    Elements found;
    if (const auto* array = value.get<basic::Array>())
        for (const basic::Variant& element : array->elements)
            found.push_back(numberOf(element));
    return found;
}

Elements elementsOf(const Family& family, const basic::Variant& value)
{
    constexpr int switches = 4;
    if (family.firstField != 31) return elementsOf(value);
    const std::optional<double> word = numberOf(value);
    if (!word) return {};
    Elements bits;
    for (int bit = 0; bit < switches; ++bit)
        bits.emplace_back((static_cast<std::int64_t>(std::llrint(*word)) >> bit) & 1);
    return bits;
}

std::int16_t fieldOf(std::int16_t item)
{
    return servo_page::istZeichnung(item) ? servo_page::zeichnungsFeld(item) : item;
}

const Family& familyOf(std::int16_t field)
{
    const Family* found = std::begin(families);
    for (const Family& family : families)
        if (field >= family.firstField) found = &family;
    return *found;
}

std::vector<double> drawingParts(double number)
{
    if (number == 0) return {0, 0, 0};
    const double major = std::floor(number / majorWeight);
    number -= major * majorWeight;
    const double middle = std::floor(number / middleWeight);
    return {major, middle, std::round(number - middle * middleWeight)};
}

double drawingNumber(double major, double middle, double minor)
{
    return major * majorWeight + middle * middleWeight + minor;
}

} // namespace servopanel::monkey
