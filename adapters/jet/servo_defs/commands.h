#pragma once

#include "jet/servo_defs/command_line.h"
#include "jet/servo_defs/tool.h"

#include <string>
#include <vector>

namespace servopanel::jet {

// The commands of servo-defs, with the arguments behind their name. They raise basic::Error, whose text names the file.
using Arguments = std::vector<std::string>;
Result listDefinitions(const Arguments& arguments, ToolOutput& output);
Result checkDefinitions(const Arguments& arguments, ToolOutput& output);
Result exportDefinitions(const Arguments& arguments, ToolOutput& output);
Result diffDefinitions(const Arguments& arguments, ToolOutput& output);
Result importDefinitions(const Arguments& arguments, ToolOutput& output);
Result createDatabase(const Arguments& arguments, ToolOutput& output);

} // namespace servopanel::jet
