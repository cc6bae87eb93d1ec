#pragma once

#include "monkey/play.h"

#include <functional>
#include <string_view>

namespace servopanel::monkey {

// What a program of random operation plays on.
struct Kind {
    std::string_view name; // of the program
    std::string_view usage;
    unsigned runs = 1000; // unless told otherwise
    unsigned commands = 1000;
    std::function<Commands(unsigned seed, std::size_t count)> commandsOf;
    // rule: the one that matters, to see it with fewer commands; empty: all do.
    std::function<Played(const Commands& commands, const Progress& progress, std::string_view rule)> played;
    std::function<bool(unsigned days)> playDays; // empty: has no days
};

// Plays as the arguments tell, each run in a process of its own. Of a run that breaks a rule or crashes it prints seed,
// number of commands and rule, and keeps the least commands as a scenario. Returns the program's status.
int runProgram(int count, const char* const* arguments, const Kind& kind);

// The same finding that playing gives, also when it is a crash.
Played playedInChild(const Commands& commands, const Kind& kind, std::string_view rule = {});

} // namespace servopanel::monkey
