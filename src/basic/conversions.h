#pragma once

#include "basic/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::basic {

// Conversions of a value to a type, as every statement of the library uses them. Fractions round half to even; out of
// range is error 6; a text that is no number, an array or an object is error 13; Null is error 94. Empty is 0, "" or
// False; True is -1. Texts are read with "." as the point, blanks around them do not count.
std::uint8_t toByte(const Variant& value);
std::int16_t toInt16(const Variant& value);
std::int32_t toInt32(const Variant& value);
float toSingle(const Variant& value);
double toDouble(const Variant& value);
bool toBoolean(const Variant& value);
std::string toText(const Variant& value);

// The value as another of the classic scalar types.
Variant convert(const Variant& value, VariantType type);

// A double rounded half to even into 16 or 32 bits; out of range and not a number are error 6.
std::int16_t roundToInt16(double value);
std::int32_t roundToInt32(double value);

// Decimal text without blanks: 15 significant digits for doubles, 7 for singles, exponent form as in 1E+15 and 1E-05.
std::string decimal(std::int32_t value);
std::string decimal(float value);
std::string decimal(double value);

// The whole text as a number; error 13 when it is none.
double numberFromText(std::string_view text);

// Comparison with True (-1) or False (0) by number: 1 equals neither, nor do texts and Null; Empty equals False.
// An array or an object cannot be compared: error 13.
bool equalsBoolean(const Variant& value, bool boolean);

} // namespace servopanel::basic
