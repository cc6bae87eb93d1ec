#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"
#include "jet/definition_row.h"

#include <vector>

namespace servopanel::check {

// Items that have a name and no definition, while their servo has others: whoever named them meant the operator to see
// them, and the page hides them.
void checkHiddenItems(const CheckedProject& project, const Asked& asked,
    const std::vector<jet::DefinitionRow>& rows, Findings& findings);

} // namespace servopanel::check
