#include "journal/time_text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace servopanel::journal {

namespace {

constexpr std::int64_t second = 1000;
constexpr std::int64_t minute = 60 * second;
constexpr std::int64_t hour = 60 * minute;
constexpr std::int64_t day = 24 * hour;

constexpr std::string_view pattern = "0000-00-00T00:00:00.000";

// The lengths that a text may end with, and what it stands for then.
struct Precision {
    std::size_t length;
    std::int64_t span;
};
constexpr Precision precisions[]{{10, day}, {16, minute}, {19, second}, {23, 1}};

bool hasForm(std::string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (pattern[i] == '0' ? !isDigit : text[i] != pattern[i]) return false;
    }
    return true;
}

// Of a text in the form of the pattern; 0 where it has ended.
int numberAt(std::string_view text, std::size_t at, std::size_t digits)
{
    int number = 0;
    for (const char digit : text.substr(std::min(at, text.size()), digits))
        number = number * 10 + (digit - '0');
    return number;
}

} // namespace

std::string timeText(std::int64_t time)
{
    using namespace std::chrono;
    const year_month_day date{sys_days{days{time / day}}};
    const auto rest = static_cast<int>(time % day);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int{date.year()},
        unsigned{date.month()}, unsigned{date.day()}, static_cast<int>(rest / hour),
        static_cast<int>(rest % hour / minute), static_cast<int>(rest % minute / second),
        static_cast<int>(rest % second));
    return text.data();
}

std::optional<TimeSpan> timeNamed(std::string_view text)
{
    using namespace std::chrono;
    if (text.size() > 11 && text.back() == 'Z') text.remove_suffix(1);
    const auto* const precision = std::find_if(std::begin(precisions), std::end(precisions),
        [&](const Precision& known) { return known.length == text.size(); });
    if (precision == std::end(precisions) || !hasForm(text)) return {};

    const year_month_day date{year{numberAt(text, 0, 4)}, month{static_cast<unsigned>(numberAt(text, 5, 2))},
        std::chrono::day{static_cast<unsigned>(numberAt(text, 8, 2))}};
    const int hours = numberAt(text, 11, 2);
    const int minutes = numberAt(text, 14, 2);
    const int seconds = numberAt(text, 17, 2);
    if (!date.ok() || hours > 23 || minutes > 59 || seconds > 59) return {};
    const std::int64_t begin = std::int64_t{sys_days{date}.time_since_epoch().count()} * day + hours * hour
        + minutes * minute + seconds * second + numberAt(text, 20, 3);
    return TimeSpan{begin, begin + precision->span};
}

} // namespace servopanel::journal
