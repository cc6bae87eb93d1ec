#include "portable/portable_surroundings.h"

#include "portable/text_decoding.h"

#include <algorithm>
#include <cstdlib>

namespace servopanel::portable {

platform::EnvironmentValue environmentValue(std::string_view name)
{
    using platform::EnvironmentValue;
    constexpr std::ptrdiff_t longestValue = 4095;

    const char* const value = std::getenv(std::string{name}.c_str());
    if (value == nullptr) return {};
    std::string text = isUtf8(value) ? std::string{value} : fromWindows1252(value);
    const auto characters = std::count_if(text.begin(), text.end(),
        [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; });
    if (characters > longestValue) return {EnvironmentValue::State::TooLong, {}};
    return {EnvironmentValue::State::Present, std::move(text)};
}

} // namespace servopanel::portable
