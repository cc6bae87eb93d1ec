#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Start values of process variables that are of a kind or in a place that means nothing to the library.
void checkValues(const CheckedProject& project, Asked& asked, Findings& findings);

} // namespace servopanel::check
