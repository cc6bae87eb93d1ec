#pragma once

#include "journal/entry.h"
#include "journal/time_text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::journal {

// Which entries somebody wants to see; what is not given leaves none out.
struct Filter {
    std::optional<std::int64_t> since; // ms since 1970, UTC
    std::optional<std::int64_t> before;
    std::optional<std::int64_t> write; // its number
    std::optional<TimeSpan> within; // besides the two above
    std::optional<int> servo;
    std::optional<int> element;
    std::optional<std::string> machine;
    std::optional<std::string> panel;
    std::optional<std::string> variable; // a part of its name, in any case
    std::optional<Result> result;
    bool onlyChanges = false; // without what changes nothing

    bool admits(const Entry& entry) const;
};

// A value for people: a text in quotes, so that an empty one is told from none, which is "-".
std::string shownValue(const Json& value);

// For people: aligned columns under a line of names, control characters as \n or \x1B.
std::string tableOf(const std::vector<Entry>& entries);

// For spreadsheets: UTF-8, commas between the cells, one line of names. A text that begins like a formula has an
// apostrophe before it.
std::string csvOf(const std::vector<Entry>& entries);

} // namespace servopanel::journal
