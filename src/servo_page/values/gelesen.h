#pragma once

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/variant.h"

#include <optional>

namespace servopanel::servo_page {

// What a failed read leaves behind must not pass for 0, an empty text or an array: whoever shows or writes it would
// invent a value of the machine. These raise error 13 instead, which loses the statement.

// A value to be shown; nothing when its read failed. An Empty that the machine holds is a value like any other.
inline const basic::Variant& gelesen(const std::optional<basic::Variant>& wert)
{
    if (!wert) basic::raise(basic::ErrorNumber::TypeMismatch);
    return *wert;
}

// A family of values as it may go back to the machine.
inline const basic::Variant& geleseneFamilie(const basic::Variant& werte)
{
    if (!werte.holds<basic::Array>()) basic::raise(basic::ErrorNumber::TypeMismatch);
    return werte;
}

// The switch word of which a new one is made; also error 6 or 94 when the machine gave no number of 32 bits.
inline std::int32_t gelesenesWort(const basic::Variant& wort)
{
    if (wort.type() == basic::VariantType::Empty) basic::raise(basic::ErrorNumber::TypeMismatch);
    return basic::toInt32(wort);
}

// Weight of a switch's bit (fields 31..34) in the switch word.
constexpr std::int32_t bitGewicht(std::int16_t feld) { return 1 << (feld - 31); }

} // namespace servopanel::servo_page
