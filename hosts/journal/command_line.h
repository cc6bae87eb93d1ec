#pragma once

#include "journal/entry_list.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace servopanel::journal {

struct CommandLine {
    bool help = false;
    std::filesystem::path folder;
    Filter filter;
    bool csv = false;
};

// Or a text that says what is wrong.
std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments);

std::string_view usage();

} // namespace servopanel::journal
