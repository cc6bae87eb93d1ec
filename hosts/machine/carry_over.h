#pragma once

#include "machine/project_file.h"
#include "machine/variable_store.h"

namespace servopanel::machine {

// After a project was read anew: variables whose start value stands there as before keep what they hold now. A new start
// value is what the engineer wants to see, so it counts. Before the machine of the new project runs.
void carryOver(
    const ProjectFile& before, const VariableStore& held, const ProjectFile& now, VariableStore& store);

} // namespace servopanel::machine
