#pragma once

namespace servopanel::panel {

// servo-panel from the command line to its exit status.
int runProgram(int argc, char** argv);

} // namespace servopanel::panel
