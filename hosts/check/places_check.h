#pragma once

#include "check/computer.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Where the panel writes: the folder of the definitions and the one for scaled pictures. Nothing is written to find out.
void checkPlaces(const CheckedProject& project, const Computer& computer, Findings& findings);

// Names of files that differ in the case of their letters only, or from those that are asked for.
void checkLetterCase(const CheckedProject& project, Findings& findings);

} // namespace servopanel::check
