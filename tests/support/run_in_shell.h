#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace servopanel::testing {

struct Outcome {
    int status = -1; // -1 when the command did not end by itself
    std::string text; // both outputs
};

// Runs a command as a user would type it.
inline Outcome runInShell(const std::string& command)
{
    std::FILE* const pipe = popen(("exec 2>&1; " + command).c_str(), "r");
    if (pipe == nullptr) return {};
    Outcome outcome;
    std::array<char, 4096> buffer{};
    for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        outcome.text.append(buffer.data(), count);
    const int status = pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

} // namespace servopanel::testing
