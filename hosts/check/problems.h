#pragma once

#include "machine/problem.h"

#include <charconv>
#include <filesystem>
#include <string>
#include <string_view>

namespace servopanel::check {

// The line of a problem whose place is "line 12"; 0 for any other place.
inline int lineOf(const machine::Problem& problem)
{
    constexpr std::string_view start = "line ";
    int line = 0;
    if (problem.place.compare(0, start.size(), start) == 0)
        std::from_chars(
            problem.place.data() + start.size(), problem.place.data() + problem.place.size(), line);
    return line;
}

// The reason of a failure without the file's name, which stands before it in a finding. file: as the failure names it.
inline std::string shownReason(std::string reason, const std::filesystem::path& file)
{
    const std::string named = "'" + file.string() + "': ";
    if (reason.compare(0, named.size(), named) == 0) reason.erase(0, named.size());
    return reason;
}

} // namespace servopanel::check
