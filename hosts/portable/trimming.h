#pragma once

#include <string_view>

namespace servopanel::portable {

// Without the blanks and tabs at either end.
inline std::string_view trimBlanks(std::string_view text)
{
    constexpr std::string_view blanks{" \t"};
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Without one pair of quotes around it; quotes: the signs that count as such.
inline std::string_view withoutQuotes(std::string_view text, std::string_view quotes)
{
    const bool quoted = text.size() >= 2 && text.front() == text.back()
        && quotes.find(text.front()) != std::string_view::npos;
    return quoted ? text.substr(1, text.size() - 2) : text;
}

} // namespace servopanel::portable
