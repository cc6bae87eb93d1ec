#pragma once

#include "monkey/play.h"

namespace servopanel::monkey {

// Plays this many commands of a seed on a real panel over the standard project, on a window of its own. Nothing when all
// rules held. Needs a QApplication. The first command is the panel's resolution.
std::optional<Finding> playSeedOnPanel(unsigned seed, std::size_t commands);

// Plays these commands on a new panel; those that cannot be played count for nothing.
std::optional<Finding> playOnPanel(const std::vector<std::string>& commands);

// What crosses the library's border meanwhile, as the panel's own trace tells it; or the rule that is broken.
std::string tracedOnPanel(const std::vector<std::string>& commands);

} // namespace servopanel::monkey
