#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Servos that Program.ini lists and nobody comes to, because the variables of project.json say that there are fewer of
// them, or fewer machines. They are noted as not looked at.
void checkServoLists(const CheckedProject& project, Asked& asked, Findings& findings);

} // namespace servopanel::check
