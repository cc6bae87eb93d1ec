#pragma once

#include "basic/object.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace servopanel::basic {

// The classic type numbers. Hosts that speak to other processes rely on them.
enum class VariantType : std::uint16_t {
    Empty = 0,
    Null = 1,
    Int16 = 2,
    Int32 = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    Text = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Variant = 12, // element type of arrays only: every element has a type of its own
    Byte = 17,
    Array = 0x2000,
};

struct Null {
    friend bool operator==(Null, Null) = default;
};
// An argument that the caller left out.
struct Missing {
    friend bool operator==(Missing, Missing) = default;
};
// Ten-thousandths of the unit.
struct Currency {
    std::int64_t scaled = 0;
    friend bool operator==(Currency, Currency) = default;
};
// Days since 30 December 1899, the time of day as fraction.
struct Date {
    double days = 0;
    friend bool operator==(Date, Date) = default;
};
struct ErrorCode {
    std::int32_t number = 0;
    friend bool operator==(ErrorCode, ErrorCode) = default;
};

class Variant;

// A whole family of process variables. Element type and lower bound are kept so that an array goes back to the machine
// as it came.
struct Array {
    VariantType elementType = VariantType::Variant;
    std::int32_t lowerBound = 0;
    std::vector<Variant> elements;
    friend bool operator==(const Array&, const Array&);
};

// One value as it crosses the seam, with exactly the classic types. It converts from nothing by itself: a text literal
// never becomes a Boolean, an int never becomes something narrower.
class Variant {
public:
    Variant() = default;
    // Nearly every file has to do with variants: what copies, compares and ends fifteen types is compiled once.
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    Variant& operator=(const Variant& other);
    Variant& operator=(Variant&& other) noexcept;
    ~Variant();
    template <class T>
    requires std::same_as<T, bool> || std::same_as<T, std::uint8_t> || std::same_as<T,
        std::int16_t> || std::same_as<T, std::int32_t> || std::same_as<T, float> || std::same_as<T,
        double> || std::same_as<T, Null> || std::same_as<T, Missing> || std::same_as<T,
        Currency> || std::same_as<T, Date> || std::same_as<T, ErrorCode>
    Variant(T value) // NOLINT(google-explicit-constructor): exact types only
        : value_{value}
    {
    }
    Variant(std::string value); // NOLINT(google-explicit-constructor)
    Variant(std::string_view value); // NOLINT(google-explicit-constructor)
    Variant(const char* value); // NOLINT(google-explicit-constructor)
    Variant(Array value); // NOLINT(google-explicit-constructor)
    template <class T>
    requires std::derived_from<T, Object> Variant(
        std::shared_ptr<T> value) // NOLINT(google-explicit-constructor)
        : Variant{AnyObject{std::move(value)}}
    {
    }

    VariantType type() const;

    template <class T>
    bool holds() const
    {
        return std::holds_alternative<T>(value_);
    }
    // The value when it has exactly this type, else nullptr.
    template <class T>
    const T* get() const
    {
        return std::get_if<T>(&value_);
    }
    template <class T>
    T* get()
    {
        return std::get_if<T>(&value_);
    }

    // Same type and same value; objects by identity.
    friend bool operator==(const Variant& left, const Variant& right);

private:
    struct AnyObject {
        ObjectRef object;
    };
    explicit Variant(AnyObject value);

    std::variant<std::monostate, Null, Missing, bool, std::uint8_t, std::int16_t, std::int32_t, float, double,
        Currency, Date, std::string, ErrorCode, ObjectRef, Array>
        value_;
};

} // namespace servopanel::basic

extern template class std::vector<servopanel::basic::Variant>;

namespace servopanel::basic {

// An array of doubles with lower bound 0, the usual form of a family of setpoints.
Variant doubles(const std::vector<double>& values);

// The element of an array at an index counted by the array's own lower bound. Not an array: error 13; outside: error 9.
const Variant& element(const Variant& array, std::int32_t index);

// Sets an element; a typed array converts the value to its element type (error 13 or 6 when it does not fit).
void setElement(Variant& array, std::int32_t index, const Variant& value);

} // namespace servopanel::basic
