#include "portable/profile_text.h"

#include "basic/lines.h"
#include "basic/text.h"
#include "portable/trimming.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace servopanel::portable {

namespace {

constexpr std::size_t longestValue = 254;

// Whole characters only: a continuation byte never counts.
std::string_view cutAfter(std::string_view text, std::size_t characters)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool startsCharacter = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
        if (startsCharacter && characters-- == 0) return text.substr(0, i);
    }
    return text;
}

// The name between the brackets when the line is the head of a section.
std::optional<std::string_view> sectionName(std::string_view line)
{
    if (line.empty() || line.front() != '[') return std::nullopt;
    const std::size_t end = line.find(']');
    if (end == std::string_view::npos) return std::nullopt;
    return trimBlanks(line.substr(1, end - 1));
}

} // namespace

std::optional<std::string> profileLookUp(
    std::string_view text, std::string_view section, std::string_view entry)
{
    const std::string wantedSection = basic::upperCase(trimBlanks(section));
    const std::string wantedEntry = basic::upperCase(trimBlanks(entry));
    if (wantedEntry.empty()) return std::nullopt;

    bool inside = false;
    basic::Lines lines{text};
    while (const std::optional<std::string_view> next = lines.next()) {
        const std::string_view line = trimBlanks(*next);
        if (line.empty() || line.front() == ';') continue;
        if (const auto name = sectionName(line)) {
            if (inside) return std::nullopt;
            inside = basic::upperCase(*name) == wantedSection;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inside || equals == std::string_view::npos) continue;
        if (basic::upperCase(trimBlanks(line.substr(0, equals))) != wantedEntry) continue;
        const std::string_view value = withoutQuotes(trimBlanks(line.substr(equals + 1)), "\"'");
        return std::string{cutAfter(value, longestValue)};
    }
    return std::nullopt;
}

std::int32_t profileNumber(std::string_view value)
{
    const bool isNegative = value.starts_with('-');
    if (isNegative || value.starts_with('+')) value.remove_prefix(1);
    const bool isHex = value.size() > 2 && (value.starts_with("0x") || value.starts_with("0X"));
    if (isHex) value.remove_prefix(2);
    constexpr std::uint32_t most = std::numeric_limits<std::int32_t>::max();
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(value.data(), value.data() + value.size(), number, isHex ? 16 : 10);
    if (error == std::errc::result_out_of_range) number = most;
    const auto magnitude = static_cast<std::int32_t>(std::min(number, most));
    return isNegative ? -magnitude : magnitude;
}

} // namespace servopanel::portable
