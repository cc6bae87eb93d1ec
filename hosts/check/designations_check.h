#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Designations by which variables, texts and pictures cannot be found: missing or misspelt, of two machines, with blanks
// around them. Such a machine is not gone through, because all that is its own would be a finding.
void checkDesignations(const CheckedProject& project, Asked& asked, Findings& findings);

} // namespace servopanel::check
