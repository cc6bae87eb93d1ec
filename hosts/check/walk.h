#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

namespace servopanel::check {

// Goes through the whole project with the library itself, as an operator and a service engineer would: at every
// resolution of the project, on every machine, the menu to its end, every servo with all its pages, a value changed and
// confirmed, every access level, and the keys that lead to other screens. Nothing is written to the project.
void walkThrough(const CheckedProject& project, Asked& asked, Findings& findings);

} // namespace servopanel::check
