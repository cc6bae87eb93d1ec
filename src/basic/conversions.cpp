#include "basic/conversions.h"

#include "basic/error.h"
#include "basic/leading_decimal.h"
#include "basic/text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace servopanel::basic {

namespace {

constexpr double currencyUnit = 10000.0;

double roundHalfToEven(double value)
{
    // Independent of the rounding mode that a host may have set.
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1.0;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

template <class Whole>
Whole roundTo(double value)
{
    const double rounded = roundHalfToEven(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min())
            && rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
        raise(ErrorNumber::Overflow);
    return static_cast<Whole>(rounded);
}

// Exact to the last ten-thousandth, without zeros at the end.
std::string currencyText(std::int64_t scaled)
{
    // Two's complement: the magnitude of the smallest number has no signed form.
    const bool negative = scaled < 0;
    const std::uint64_t bits = static_cast<std::uint64_t>(scaled);
    const std::uint64_t magnitude = negative ? 0 - bits : bits;
    char buffer[24];
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), magnitude);
    std::string digits{std::begin(buffer), result.ptr};
    while (digits.size() < 5)
        digits.insert(digits.begin(), '0');
    digits.insert(digits.size() - 4, 1, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
    return negative ? "-" + digits : digits;
}

// "1e+15" of the standard library as "1E+15", and never a negative zero.
template <class Number>
std::string general(Number value, int digits)
{
    if (value == Number{0}) return "0";
    char buffer[64];
    const auto result =
        std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::general, digits);
    std::string text{std::begin(buffer), result.ptr};
    for (char& sign : text)
        if (sign == 'e') sign = 'E';
    return text;
}

double hexadecimal(std::string_view digits)
{
    std::uint32_t bits = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), bits, 16);
    if (result.ec != std::errc{} || result.ptr != digits.data() + digits.size())
        raise(ErrorNumber::TypeMismatch);
    // Up to four digits make a 16-bit number with its sign, more a 32-bit one.
    return digits.size() <= 4 ? static_cast<double>(static_cast<std::int16_t>(bits))
                              : static_cast<double>(static_cast<std::int32_t>(bits));
}

} // namespace

std::int16_t roundToInt16(double value) { return roundTo<std::int16_t>(value); }

std::int32_t roundToInt32(double value) { return roundTo<std::int32_t>(value); }

double numberFromText(std::string_view text)
{
    std::string_view digits = trim(text);
    if (digits.starts_with("&H") || digits.starts_with("&h")) return hexadecimal(digits.substr(2));
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) raise(ErrorNumber::TypeMismatch);
    }
    const LeadingDecimal number = leadingDecimal(digits);
    if (number.length == 0 || number.length != digits.size()) raise(ErrorNumber::TypeMismatch);
    return number.value;
}

double toDouble(const Variant& value)
{
    switch (value.type()) {
    case VariantType::Empty: return 0.0;
    case VariantType::Null: raise(ErrorNumber::InvalidUseOfNull);
    case VariantType::Boolean: return *value.get<bool>() ? -1.0 : 0.0;
    case VariantType::Byte: return *value.get<std::uint8_t>();
    case VariantType::Int16: return *value.get<std::int16_t>();
    case VariantType::Int32: return *value.get<std::int32_t>();
    case VariantType::Single: return static_cast<double>(*value.get<float>());
    case VariantType::Double: return *value.get<double>();
    case VariantType::Currency: return static_cast<double>(value.get<Currency>()->scaled) / currencyUnit;
    case VariantType::Date: return value.get<Date>()->days;
    case VariantType::Text: return numberFromText(*value.get<std::string>());
    case VariantType::Object:
    case VariantType::Error:
    case VariantType::Variant:
    case VariantType::Array: break;
    }
    raise(ErrorNumber::TypeMismatch);
}

std::uint8_t toByte(const Variant& value) { return roundTo<std::uint8_t>(toDouble(value)); }

std::int16_t toInt16(const Variant& value) { return roundToInt16(toDouble(value)); }

std::int32_t toInt32(const Variant& value) { return roundToInt32(toDouble(value)); }

float toSingle(const Variant& value)
{
    const double number = toDouble(value);
    const float single = static_cast<float>(number);
    if (std::isinf(single) && !std::isinf(number)) raise(ErrorNumber::Overflow);
    return single;
}

bool toBoolean(const Variant& value)
{
    if (const std::string* text = value.get<std::string>()) {
        const std::string upper = upperCase(trim(*text));
        if (upper == "TRUE") return true;
        if (upper == "FALSE") return false;
    }
    return toDouble(value) != 0.0;
}

std::string toText(const Variant& value)
{
    switch (value.type()) {
    case VariantType::Empty: return {};
    case VariantType::Text: return *value.get<std::string>();
    case VariantType::Boolean: return *value.get<bool>() ? "True" : "False";
    case VariantType::Byte:
    case VariantType::Int16:
    case VariantType::Int32: return decimal(toInt32(value));
    case VariantType::Single: return decimal(*value.get<float>());
    case VariantType::Currency: return currencyText(value.get<Currency>()->scaled);
    default: return decimal(toDouble(value));
    }
}

Variant convert(const Variant& value, VariantType type)
{
    switch (type) {
    case VariantType::Boolean: return toBoolean(value);
    case VariantType::Byte: return toByte(value);
    case VariantType::Int16: return toInt16(value);
    case VariantType::Int32: return toInt32(value);
    case VariantType::Single: return toSingle(value);
    case VariantType::Double: return toDouble(value);
    case VariantType::Text: return toText(value);
    case VariantType::Date: return Date{toDouble(value)};
    case VariantType::Currency: {
        const double scaled = roundHalfToEven(toDouble(value) * currencyUnit);
        if (!(scaled >= -0x1p63 && scaled < 0x1p63)) raise(ErrorNumber::Overflow);
        return Currency{static_cast<std::int64_t>(scaled)};
    }
    case VariantType::Variant: return value;
    default: raise(ErrorNumber::TypeMismatch);
    }
}

std::string decimal(std::int32_t value)
{
    char buffer[16];
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), value);
    return {std::begin(buffer), result.ptr};
}

std::string decimal(float value) { return general(value, 7); }

std::string decimal(double value) { return general(value, 15); }

bool equalsBoolean(const Variant& value, bool boolean)
{
    if (value.type() == VariantType::Text || value.type() == VariantType::Null) return false;
    return toDouble(value) == (boolean ? -1.0 : 0.0);
}

} // namespace servopanel::basic
