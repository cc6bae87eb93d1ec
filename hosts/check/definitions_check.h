#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// The database of definitions: its rows, and whether they are those of the project's servos.
void checkDefinitions(const CheckedProject& project, Asked& asked, Findings& findings);

} // namespace servopanel::check
