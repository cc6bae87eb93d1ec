#pragma once

#include "basic/variant.h"

#include <string>
#include <string_view>

namespace servopanel::basic {

// Texts are UTF-8 throughout the library.

// ASCII and Latin letters in upper case; "ß" stays.
std::string upperCase(std::string_view text);

// Without the blanks at either end; tabs stay.
std::string_view trim(std::string_view text);

// The leading number of a text, 0 when there is none: blanks are skipped, &H introduces hexadecimal digits.
double Val(std::string_view text);

// A number with at least as many digits as the pattern has zeros, rounded half away from zero; -1 with "000" is "-001".
// A text that is a number is formatted as that number, any other text comes back as it is; Null and Empty give "".
std::string Format(const Variant& value, std::string_view zeros);

} // namespace servopanel::basic
