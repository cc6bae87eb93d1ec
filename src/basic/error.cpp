#include "basic/error.h"

namespace servopanel::basic {

std::string_view describe(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::DivisionByZero: return "Division by zero";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::InternalError: return "Internal error";
    case ErrorNumber::FileNotFound: return "File not found";
    case ErrorNumber::ObjectNotSet: return "Object variable not set";
    case ErrorNumber::InvalidUseOfNull: return "Invalid use of Null";
    case ErrorNumber::ElementAlreadyLoaded: return "Object already loaded";
    case ErrorNumber::NoSuchMember: return "Object doesn't support this property or method";
    }
    return "Unknown error";
}

void raise(ErrorNumber number) { raise(number, describe(number)); }

void raise(ErrorNumber number, std::string_view description)
{
    throw Error{static_cast<std::int32_t>(number), {}, std::string{description}};
}

} // namespace servopanel::basic
