#pragma once

#include "check/asked.h"
#include "check/check.h"
#include "check/finding.h"
#include "check/project.h"

#include <set>

namespace servopanel::check {

// The resolutions that a project is made for: its own, and every other that it has pictures for.
std::set<int> resolutionsOf(const CheckedProject& project);

// Pictures that were asked for and are missing, broken or of another size than their place.
void checkPictures(
    const CheckedProject& project, Asked& asked, const PictureReader& read, Findings& findings);

// Where nobody knows which pictures are wanted: those in Servo and Standard that cannot be shown, and what folder there
// is none of. Those that were asked for are left out.
void checkAllPictures(
    const CheckedProject& project, const Asked& asked, const PictureReader& read, Findings& findings);

} // namespace servopanel::check
