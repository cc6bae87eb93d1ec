#pragma once

#include <QByteArray>

#include <cstdint>

namespace servopanel::panel {

// Numbers in a file's bytes; 0 where the file has ended.
inline std::uint8_t byteAt(const QByteArray& data, qsizetype at)
{
    return at >= 0 && at < data.size() ? static_cast<std::uint8_t>(data[at]) : std::uint8_t{0};
}
// Low byte first.
inline std::uint16_t word16(const QByteArray& data, qsizetype at)
{
    return static_cast<std::uint16_t>(byteAt(data, at) | (byteAt(data, at + 1) << 8));
}
inline std::uint32_t word32(const QByteArray& data, qsizetype at)
{
    return word16(data, at) | (static_cast<std::uint32_t>(word16(data, at + 2)) << 16);
}
// High byte first.
inline std::uint16_t bigWord16(const QByteArray& data, qsizetype at)
{
    return static_cast<std::uint16_t>((byteAt(data, at) << 8) | byteAt(data, at + 1));
}
inline std::uint32_t bigWord32(const QByteArray& data, qsizetype at)
{
    return (static_cast<std::uint32_t>(bigWord16(data, at)) << 16) | bigWord16(data, at + 2);
}

} // namespace servopanel::panel
