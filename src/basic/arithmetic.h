#pragma once

#include "basic/error.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace servopanel::basic {

// 16-bit arithmetic of the controller's world: a result outside 16 bits is error 6.
constexpr std::int16_t narrow16(std::int32_t value)
{
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        raise(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}
constexpr std::int16_t add16(std::int16_t left, std::int16_t right)
{
    return narrow16(std::int32_t{left} + right);
}
constexpr std::int16_t subtract16(std::int16_t left, std::int16_t right)
{
    return narrow16(std::int32_t{left} - right);
}
constexpr std::int16_t multiply16(std::int16_t left, std::int16_t right)
{
    return narrow16(std::int32_t{left} * right);
}

// The largest whole number not above the value: -0.5 gives -1.
inline double Int(double value) { return std::floor(value); }

// A result of floating-point arithmetic: overflow and invalid operations are error 6.
inline double checked(double value)
{
    if (!std::isfinite(value)) raise(ErrorNumber::Overflow);
    return value;
}
inline float single(double value)
{
    const auto narrowed = static_cast<float>(value);
    if (!std::isfinite(narrowed)) raise(ErrorNumber::Overflow);
    return narrowed;
}

// A quotient; division by 0 is error 11, of 0 by 0 error 6.
inline double divide(double dividend, double divisor)
{
    if (divisor == 0.0) raise(dividend == 0.0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
    return checked(dividend / divisor);
}

// An array whose indices run from First on; an index outside is error 9.
template <class T, std::size_t Count, std::int32_t First = 0>
class CheckedArray {
public:
    T& operator[](std::int32_t index) { return elements_[position(index)]; }
    const T& operator[](std::int32_t index) const { return elements_[position(index)]; }
    void fill(const T& value) { elements_.fill(value); }

private:
    static std::size_t position(std::int32_t index)
    {
        if (index < First || index >= First + static_cast<std::int32_t>(Count))
            raise(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(index - First);
    }

    std::array<T, Count> elements_{};
};

} // namespace servopanel::basic
