#pragma once

#include "jet/jet_error.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace servopanel::jet {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// A part of the bytes; error "damaged" when they do not reach that far.
inline ByteView part(ByteView bytes, std::size_t at, std::size_t length)
{
    if (at > bytes.size() || length > bytes.size() - at) raiseDamaged("it points outside a page");
    return bytes.subspan(at, length);
}

// A number stored low byte first. T: an unsigned type.
template <class T>
T load(ByteView bytes, std::size_t at)
{
    std::uint64_t value = 0;
    unsigned shift = 0;
    for (const std::uint8_t byte : part(bytes, at, sizeof(T))) {
        value |= std::uint64_t{byte} << shift;
        shift += 8;
    }
    return static_cast<T>(value);
}

inline std::uint8_t load8(ByteView bytes, std::size_t at) { return load<std::uint8_t>(bytes, at); }
inline std::uint16_t load16(ByteView bytes, std::size_t at) { return load<std::uint16_t>(bytes, at); }
inline std::uint32_t load32(ByteView bytes, std::size_t at) { return load<std::uint32_t>(bytes, at); }

// Stores the lowest size bytes of a number, low byte first.
inline void store(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t value, std::size_t size)
{
    part(bytes, at, size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

inline void store8(std::span<std::uint8_t> bytes, std::size_t at, std::uint8_t value)
{
    store(bytes, at, value, 1);
}
inline void store16(std::span<std::uint8_t> bytes, std::size_t at, std::uint16_t value)
{
    store(bytes, at, value, 2);
}
inline void store32(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value)
{
    store(bytes, at, value, 4);
}
inline void storeDouble(std::span<std::uint8_t> bytes, std::size_t at, double value)
{
    store(bytes, at, std::bit_cast<std::uint64_t>(value), 8);
}

// Appends the lowest size bytes of a number, low byte first.
inline void append(Bytes& bytes, std::uint64_t value, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

} // namespace servopanel::jet
