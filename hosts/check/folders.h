#pragma once

#include "check/project.h"

#include <string>

namespace servopanel::check {

// Why nobody can list a folder of the project, by its name below the project's folder; "" when it can be listed.
std::string folderMistake(const CheckedProject& project, const std::string& folder);

} // namespace servopanel::check
