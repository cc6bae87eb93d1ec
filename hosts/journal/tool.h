#pragma once

#include <string>
#include <vector>

namespace servopanel::journal {

enum class Status {
    Good = 0,
    Findings = 1, // broken lines were passed over
    Failed = 2,
};

struct ToolOutput {
    std::string text;
    std::string errors;
};

// Runs servo-journal with these arguments (without the name of the program).
Status runTool(const std::vector<std::string>& arguments, ToolOutput& output);

} // namespace servopanel::journal
