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

// Only what the files say by themselves and beside each other, when it is not known which texts are asked for.
void checkTextFiles(const CheckedProject& project, Findings& findings);

} // namespace servopanel::check
