#pragma once

#include "params/command_line.h"
#include "params/tool.h"

namespace servopanel::params {

// Errors are basic::Errors, for the engineer to read.
Status dump(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output);
Status diff(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output);
Status load(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output);

} // namespace servopanel::params
