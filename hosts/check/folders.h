#pragma once

#include "check/project.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::check {

// Why nobody can list a folder of the project, by its name below the project's folder; "" when it can be listed.
std::string folderMistake(const CheckedProject& project, const std::string& folder);

// The names of all that is in a folder of the project; none when it cannot be listed.
std::vector<std::string> namesIn(const CheckedProject& project, const std::string& folder);

// What there is in a folder instead of this name: the same name in other capital and small letters.
std::optional<std::string> inOtherLetters(const std::filesystem::path& folder, const std::string& name);

} // namespace servopanel::check
