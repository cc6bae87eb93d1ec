#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace servopanel::portable {

// The whole number that the whole text is, "-12" or in base 16 "1f"; nothing for any other text, such as an empty one,
// one with blanks or "+1", and beyond the type.
template <class T>
std::optional<T> wholeNumber(std::string_view text, int base = 10)
{
    T number{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base);
    if (read.ec != std::errc{} || read.ptr != end) return {};
    return number;
}

} // namespace servopanel::portable
