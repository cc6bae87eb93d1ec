#pragma once

#include "monkey/play.h"

#include <string>

namespace servopanel::monkey {

// A finding as a scenario: its rule, the project, and the commands that matter. servo-replay plays it as it stands; what
// only a panel has are comments for it.
std::string scenarioOf(const Finding& finding);

// The commands of such a scenario. Raises std::runtime_error when it is none.
Commands commandsIn(const std::string& scenario);

// Writes it to monkey_SEED.scenario in a folder and gives the file's name. Raises std::runtime_error when it cannot be
// written.
std::string keep(const Finding& finding, const std::string& folder, unsigned seed);
Commands readKept(const std::string& file);

} // namespace servopanel::monkey
