#pragma once

#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Finds a ServoWithMachineType in Program.ini by which no picture of a servo has its name, and lets the right one count in
// the project that is being checked: one entry, and all pictures would be missing. The INI files must have been read.
void settleMachineType(CheckedProject& project, Findings& findings);

} // namespace servopanel::check
