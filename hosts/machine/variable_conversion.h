#pragma once

#include "basic/error.h"
#include "basic/variant.h"

#include <string>
#include <string_view>

namespace servopanel::machine {

// An error of a process variable: it names the variable and carries the source "Process variables".
basic::Error variableError(std::int32_t number, std::string_view name, std::string_view reason);
basic::Error unknownVariable(std::string_view name); // error 5

// The value in the type of the declared one; an array keeps the declared element type, lower bound and length. Error 13
// when it is no such thing or an array of another length, 6 when a number does not fit.
basic::Variant convertedToDeclared(
    std::string_view name, const basic::Variant& declared, const basic::Variant& value);

} // namespace servopanel::machine
