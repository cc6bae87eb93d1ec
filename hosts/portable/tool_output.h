#pragma once

#include <string>

namespace servopanel::portable {

// What a command-line tool prints. The program writes it when the command has ended.
struct ToolOutput {
    std::string text;
    std::string errors;
};

} // namespace servopanel::portable
