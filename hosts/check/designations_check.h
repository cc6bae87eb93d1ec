#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Designations by which names of variables, texts and pictures cannot be made: two machines have the same, or blanks are
// around one. Such a machine is not gone through, because all that is its own would be a finding.
void checkDesignations(const CheckedProject& project, Asked& asked, Findings& findings);

} // namespace servopanel::check
