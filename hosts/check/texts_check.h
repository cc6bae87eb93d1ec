#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"
#include "check/unasked.h"

namespace servopanel::check {

// The texts of all languages: what is wrong in their files, what one of them lacks that another has, and what the
// operator sees and none of them has.
void checkTexts(
    const CheckedProject& project, const Asked& asked, const Unasked& unasked, Findings& findings);

} // namespace servopanel::check
