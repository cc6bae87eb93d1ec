#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace servopanel::check {

// What a check asks of the computer beside the project's files; a test may answer itself.
struct Computer {
    // Value of an environment variable; nothing when it is not set.
    std::function<std::optional<std::string>(const char* name)> environment;
    // Why this user cannot write to a folder; empty when he can.
    std::function<std::string(const std::filesystem::path& folder)> writeMistake;
    // Bytes that are left on the disk of a folder; nothing when nobody can tell.
    std::function<std::optional<std::uintmax_t>(const std::filesystem::path& folder)> freeBytes;
};

// The one that the check runs on.
Computer thisComputer();

} // namespace servopanel::check
