#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace servopanel::journal {

// Times are milliseconds since 1970, UTC. The last one that a text can hold: the end of the year 9999.
inline constexpr std::int64_t latestTime = 253'402'300'799'999;

// "2026-11-22T01:19:05.250Z"; for times from 0 to latestTime.
std::string timeText(std::int64_t time);

// What a text such as "2026-11-22", "2026-11-22T01:19", "2026-11-22T01:19:05" or that of timeText stands for: a day, a
// minute, a second, a millisecond. UTC with and without Z. Nothing when it is no time.
struct TimeSpan {
    std::int64_t begin = 0;
    std::int64_t end = 0; // the first millisecond behind it
};
std::optional<TimeSpan> timeNamed(std::string_view text);

} // namespace servopanel::journal
