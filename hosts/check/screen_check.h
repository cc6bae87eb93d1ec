#pragma once

#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Whether the rows of the servo page are large enough for a finger on the screen that the project states.
void checkScreenSize(const CheckedProject& project, Findings& findings);

} // namespace servopanel::check
