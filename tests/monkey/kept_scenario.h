#pragma once

#include "monkey/play.h"

#include <string>
#include <string_view>

namespace servopanel::monkey {

// What was done to a panel and is no command of a scenario begins with the first of these, and what the library got of it
// stands between the two; so the same scenario is played by a panel, which does the former, and by a replay, for which
// it is a comment and which does the latter:
//
//   # panel: at 312 470
//   touch SollwertL 4
//   # panel: end
inline constexpr std::string_view panelOnly = "# panel: ", panelEnd = "# panel: end";

// A command of a panel as a scenario has it. came: what the library got of it, whole lines. One that was just that
// stands there without any comment.
std::string asScenario(const std::string& command, const std::string& came);

// What is to be done to the panel of such a command.
std::string ofThePanel(const std::string& command);

// The same commands without a panel: what its library got.
Commands ofTheLibrary(const Commands& commands);

// A finding as a scenario: its rule, the project, and the commands that matter. servo-replay plays it as it stands.
std::string scenarioOf(const Finding& finding);

// The commands of such a scenario. Raises std::runtime_error when it is none.
Commands commandsIn(const std::string& scenario);

// Writes it to PROGRAM_SEED.scenario in a folder and gives the file's name: programs that keep theirs in the same folder
// do not write over those of each other. Raises std::runtime_error when it cannot be written.
std::string keep(const Finding& finding, const std::string& folder, std::string_view program, unsigned seed);
Commands readKept(const std::string& file);

} // namespace servopanel::monkey
