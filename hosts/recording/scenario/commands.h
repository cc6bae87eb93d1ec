#pragma once

#include "recording/scenario/line_reader.h"
#include "recording/scenario/scenario.h"

#include <functional>
#include <optional>
#include <string_view>

namespace servopanel::recording {

using Action = std::function<void(Player&)>;

// What a command of this name does, its arguments taken from the line; nothing when there is no such command. The
// commands that need more than their line (a file's block, "on pump") belong to the parser.
std::optional<Action> setUpCommand(std::string_view name, LineReader& line);
std::optional<Action> operationCommand(std::string_view name, LineReader& line);

} // namespace servopanel::recording
