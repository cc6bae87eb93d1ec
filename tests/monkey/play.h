#pragma once

#include "monkey/tally.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::monkey {

using Commands = std::vector<std::string>; // of a scenario; one may have several lines

struct Finding {
    std::string rule; // what is broken, in words
    Commands commands; // those that lead there
};

struct Played {
    std::optional<Finding> finding; // nothing when all rules held
    Tally tally;
    Commands commands; // those that were played, as a scenario has them
};

// Told of the place of each command before it is played.
using Progress = std::function<void(std::size_t place)>;

// How many pieces of memory the program holds; nullptr: nobody counts.
using Pieces = std::size_t (*)();
// The rule that is about them.
inline constexpr std::string_view memoryRule = "pieces of memory are not given back";

// What came out of an operation from which nothing may come, in words.
std::optional<std::string> exceptionOf(const std::function<void()>& operation);

// What the operator of this seed does.
Commands commandsOf(unsigned seed, std::size_t count);

// Plays these commands on the recording host; those that cannot be played are skipped. With pieces they
// are played twice, and it is also a rule that after the second time, with all controls gone, no more memory is held than
// after the first.
Played played(const Commands& commands, const Progress& progress = {}, Pieces pieces = nullptr);

// The same, for what is broken alone.
std::optional<Finding> play(const Commands& commands);

using Play = std::function<std::optional<Finding>(const Commands&)>;

// The same finding with as few commands as leaving out one after the other gives.
Finding shrunk(const Finding& finding, const Play& play);

} // namespace servopanel::monkey
