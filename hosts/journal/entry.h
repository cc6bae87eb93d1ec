#pragma once

#include "basic/variant.h"
#include "machine/json_text.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace servopanel::journal {

using machine::Json;

// How a write ended.
enum class Result {
    Open, // not yet, or nobody knows
    Done,
    Refused, // the machine holds what it held
    Unknown, // the machine may hold the old value, the new one or another
};

std::string_view nameOf(Result result); // "open", "done" and so on
std::optional<Result> resultNamed(std::string_view name);
// Of the number of the basic::Error that a write ended with.
Result resultOf(std::int32_t errorNumber);

inline constexpr int wholeValue = -1;

// One element that a panel wanted to change.
struct Entry {
    std::int64_t write = 0; // counts from 1 in each run of a panel; the elements of one write share it
    std::int64_t time = 0; // when the write began, ms since 1970, UTC
    std::string panel;
    int level = 0; // the user's
    std::string machine; // designation; empty when the variable's name has none
    std::optional<int> servo;
    std::string variable;
    int element = wholeValue; // from 0
    Json oldValue; // null when the panel had not read it since its latest write of the variable
    Json newValue;
    Result result = Result::Open;
    std::int32_t number = 0; // of the error, 0 when there is none
    std::string text; // why it was not done
};

// Whether the panel only said again what it had read: a confirm writes whole pages, also what nobody has touched.
bool changesNothing(const Entry& entry);

// How a write ended, as the file holds it: behind the entries that it belongs to.
struct Ending {
    std::int64_t write = 0;
    std::int64_t begun = 0; // time of the entries: the same number comes again in another run
    std::int64_t time = 0;
    Result result = Result::Unknown;
    std::int32_t number = 0;
    std::string text;
};

// Lines that could not be kept until the file could be written again.
struct Gap {
    std::int64_t lines = 0;
};

// A value as the journal holds it. Numbers read back exactly; those that are not finite are texts.
Json toJson(const basic::Variant& value);

// One line without its line feed, always UTF-8. An entry is written as open.
std::string lineOf(const Entry& entry);
std::string lineOf(const Ending& ending);
std::string lineOf(const Gap& gap);

// Or a text that says what is wrong with the line. Members that are not known do not matter.
using Line = std::variant<Entry, Ending, Gap, std::string>;
Line readLine(std::string_view line);

} // namespace servopanel::journal
