#include "jet/rc4.h"

#include <array>
#include <numeric>
#include <utility>

namespace servopanel::jet {

void rc4(std::uint32_t key, std::span<std::uint8_t> bytes)
{
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (unsigned i = 0; i < 256; ++i) {
        const std::uint32_t keyByte = (key >> (8 * (i % 4))) & 0xFFU;
        j = static_cast<std::uint8_t>(j + state[i] + keyByte);
        std::swap(state[i], state[j]);
    }
    std::uint8_t i = 0;
    j = 0;
    for (std::uint8_t& byte : bytes) {
        i = static_cast<std::uint8_t>(i + 1);
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        byte = static_cast<std::uint8_t>(byte ^ state[static_cast<std::uint8_t>(state[i] + state[j])]);
    }
}

} // namespace servopanel::jet
