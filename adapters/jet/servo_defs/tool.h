#pragma once

#include "jet/servo_defs/command_line.h"
#include "portable/tool_output.h"

#include <string>
#include <vector>

namespace servopanel::jet {

using portable::ToolOutput;

// Runs servo-defs with these arguments (without the name of the program). Never throws a database error: it ends in
// Failed and in output.errors.
Result runTool(const std::vector<std::string>& arguments, ToolOutput& output);

} // namespace servopanel::jet
