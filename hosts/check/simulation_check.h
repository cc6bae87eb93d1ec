#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// What the simulated machine of project.json cannot move. Variables that are among the findings already are left out.
void checkSimulation(const CheckedProject& project, const Asked& asked, Findings& findings);

} // namespace servopanel::check
