#pragma once

#include "jet/definition_row.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace servopanel::line_machine {

// Where a project has its parameter definitions.
std::filesystem::path definitionsFile(const std::filesystem::path& project);

// All rows of them; nothing where there is no such file. Throws basic::Error when it is there and cannot be read: nobody
// may write without the level that it may ask for.
std::optional<std::vector<jet::DefinitionRow>> projectDefinitions(const std::filesystem::path& project);

} // namespace servopanel::line_machine
