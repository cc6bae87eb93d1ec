#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::basic {

// The error numbers that the library itself raises. Hosts may raise others.
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    ElementAlreadyLoaded = 360,
    NoSuchMember = 438,
};

// What a failed statement leaves behind: the one exception type that crosses the seam in either direction.
// An empty source means that the error arose in the library; the error reporter then names the library.
struct Error {
    std::int32_t number = 0;
    std::string source;
    std::string description;
};

// The classic short text of an error number.
std::string_view describe(ErrorNumber number);

// Raises an error of the library with its classic text, or with a text of its own that names what was missing.
[[noreturn]] void raise(ErrorNumber number);
[[noreturn]] void raise(ErrorNumber number, std::string_view description);

// Takes the error reports of all procedures. It must not throw: it is called while an error is being handled.
class ErrorSink {
public:
    virtual ~ErrorSink() = default;
    virtual void report(const Error& error, std::string_view procedure) noexcept = 0;
};

} // namespace servopanel::basic
