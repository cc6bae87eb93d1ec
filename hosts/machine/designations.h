#pragma once

#include "machine/project_file.h"

#include <string>
#include <vector>

namespace servopanel::machine {

// The designations of a project's machines, "M1", as they stand in the names of their variables; in the order of their
// numbers, each once.
std::vector<std::string> designations(const ProjectFile& project);

} // namespace servopanel::machine
