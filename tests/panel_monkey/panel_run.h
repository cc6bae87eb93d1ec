#pragma once

#include "monkey/play.h"

namespace servopanel::monkey {

// What the operator of this seed does on a panel; the first command sets the panel's resolution, as the variable.
Commands commandsOnPanel(unsigned seed, std::size_t count);

// Plays these commands on a new panel over the project, on a window of its own; those that cannot be played are skipped.
// trace: gets what crosses the library's border meanwhile. Needs a QApplication.
Played playedOnPanel(const Commands& commands, const Progress& progress = {}, std::string* trace = nullptr);
std::optional<Finding> playOnPanel(const Commands& commands);

// What is too much: reports in the list, lines of one command's trace.
std::optional<std::string> brokenAmount(const std::string& command, std::size_t reports, std::size_t lines);

// What crosses the library's border meanwhile, as the panel's own trace tells it; or the rule that is broken.
std::string tracedOnPanel(const Commands& commands);

} // namespace servopanel::monkey
