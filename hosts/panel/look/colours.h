#pragma once

#include <QColor>

#include <cstdint>

namespace servopanel::panel {

// The panel's own colours. They do not follow the desktop's theme: an operator finds the same panel on every machine.
namespace colours {
inline constexpr QColor background{0xC0, 0xC0, 0xC0};
inline constexpr QColor ink{0x14, 0x1E, 0x28}; // text on light faces
inline constexpr QColor faintInk{0x5A, 0x66, 0x70};
inline constexpr QColor lockedInk{0x80, 0x80, 0x80};
inline constexpr QColor border{0x6E, 0x7B, 0x87};
inline constexpr QColor faintBorder{0xA2, 0xAB, 0xB3};

inline constexpr QColor field{0xFF, 0xFF, 0xFF}; // where a value can be entered
inline constexpr QColor lockedField{0xD6, 0xD9, 0xDC};
inline constexpr QColor value{0xE8, 0xEE, 0xF2}; // where a value is only shown

inline constexpr QColor key{0xEC, 0xF0, 0xF3};
inline constexpr QColor keyPressed{0xB4, 0xC9, 0xDD};
inline constexpr QColor keyOff{0xCB, 0xCF, 0xD3};
inline constexpr QColor accent{0x1C, 0x5D, 0x99}; // what is being worked on
inline constexpr QColor accept{0x1E, 0x7B, 0x3C};
inline constexpr QColor refuse{0xB3, 0x26, 0x1E};
inline constexpr QColor warn{0xF2, 0xC0, 0x3B}; // worth a look, nothing is lost

inline constexpr QColor bar{0x24, 0x33, 0x42}; // header and titles
inline constexpr QColor barInk{0xFF, 0xFF, 0xFF};
inline constexpr QColor barFaintInk{0xB9, 0xC6, 0xD2};
inline constexpr QColor sheet{0xF4, 0xF6, 0xF8}; // mask, editor, messages
} // namespace colours

// A colour of the library, 0xBBGGRR.
inline QColor fromLibrary(std::int32_t colour)
{
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

inline QColor mix(const QColor& one, const QColor& other, double share)
{
    const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {part(one.red(), other.red()), part(one.green(), other.green()), part(one.blue(), other.blue())};
}

} // namespace servopanel::panel
