#pragma once

#include <cstdint>
#include <span>

namespace servopanel::jet {

// Encodes or decodes, which is the same, with the bytes of the key low byte first.
void rc4(std::uint32_t key, std::span<std::uint8_t> bytes);

} // namespace servopanel::jet
