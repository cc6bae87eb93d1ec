#pragma once

#include "jet/servo_defs/command_line.h"

#include <string>
#include <vector>

namespace servopanel::jet {

// What a command prints. The program writes it when the command has ended.
struct ToolOutput {
    std::string text;
    std::string errors;
};

// Runs servo-defs with these arguments (without the name of the program). Never throws a database error: it ends in
// Failed and in output.errors.
Result runTool(const std::vector<std::string>& arguments, ToolOutput& output);

} // namespace servopanel::jet
