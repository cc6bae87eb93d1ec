#pragma once

#include "params/load_plan.h"
#include "platform/process_var_access.h"

#include <functional>
#include <string>
#include <vector>

namespace servopanel::params {

// Writes the open rows as a panel confirms: whole arrays, in which all other elements are what the machine holds at this
// moment, and then the word to the servo that its parameters were changed. Each open row gets its end. A row whose element
// holds something else than the engineer saw is refused.
//
// Whatever a read or a write throws ends the rows of its family; the others go on, and the servo is told.
//
// The caller holds the machine's confirm, so that the first write without an answer ends the rest. Once isStopped, what
// was written is announced and nothing else is sent. Returns what went wrong besides, one sentence each: a servo that was
// not told.
std::vector<std::string> writeRows(std::vector<PlannedRow>& rows, const std::string& machine,
    platform::ProcessVarAccess& variables, const std::function<bool()>& isStopped);

} // namespace servopanel::params
