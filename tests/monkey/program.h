#pragma once

#include "monkey/play.h"

#include <functional>
#include <string_view>

namespace servopanel::monkey {

// What a program of random operation plays on.
struct Kind {
    std::string_view usage;
    unsigned runs = 1000; // unless told otherwise
    unsigned commands = 1000;
    std::function<std::optional<Finding>(unsigned seed, std::size_t commands)> playSeed;
    Play play;
    std::function<bool(unsigned days)> playDays; // empty: has no days
};

// Plays as the arguments tell. Of a run that breaks a rule it prints seed, number of commands and rule, and keeps the
// least commands as a scenario. Returns the program's status.
int runProgram(int count, char** arguments, const Kind& kind);

} // namespace servopanel::monkey
