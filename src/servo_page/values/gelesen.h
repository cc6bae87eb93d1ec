#pragma once

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/variant.h"

namespace servopanel::servo_page {

// What a failed read leaves behind is unset (Empty). It must not pass for 0, an empty text or an array: whoever shows
// or writes it would invent a value of the machine. These raise error 13 instead, which loses the statement.

inline const basic::Variant& gelesen(const basic::Variant& wert)
{
    if (wert.type() == basic::VariantType::Empty) basic::raise(basic::ErrorNumber::TypeMismatch);
    return wert;
}

// A family of values as it may go back to the machine.
inline const basic::Variant& geleseneFamilie(const basic::Variant& werte)
{
    if (!werte.holds<basic::Array>()) basic::raise(basic::ErrorNumber::TypeMismatch);
    return werte;
}

// The switch word; error 13, 6 or 94 when the machine gave no number of 32 bits.
inline std::int32_t gelesenesWort(const basic::Variant& wort) { return basic::toInt32(gelesen(wort)); }

// Weight of a switch's bit (fields 31..34) in the switch word.
constexpr std::int32_t bitGewicht(std::int16_t feld) { return 1 << (feld - 31); }

} // namespace servopanel::servo_page
