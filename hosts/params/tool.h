#pragma once

#include "journal/tool.h"
#include "portable/tool_output.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::params {

enum class Status {
    Equal = 0, // or all was written
    Differences = 1,
    Trouble = 2,
};

using portable::ToolOutput;

struct Surroundings : journal::Surroundings {
    // Shows these lines to the engineer before anything is sent. Empty: he sees them in the output, at the end.
    std::function<void(const std::string& lines)> show;
    // Shows a question to the engineer; nothing when there will be no more answers. Empty: there is no terminal.
    std::function<std::optional<std::string>(const std::string& question)> ask;
};

// Those of a program, on its terminal if it has one.
Surroundings ownSurroundings();

// Runs servo-params with these arguments (without the name of the program).
Status runTool(
    const std::vector<std::string>& arguments, const Surroundings& surroundings, ToolOutput& output);

} // namespace servopanel::params
