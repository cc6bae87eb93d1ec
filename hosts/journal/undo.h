#pragma once

#include "journal/command_line.h"
#include "journal/tool.h"
#include "journal/undo_plan.h"

namespace servopanel::journal {

// Writes what the plan says to the machine on the broker, or only looks whether it could. The machine's level, limits and
// old value are checked as with any write of a panel; as there, the machine is told afterwards that parameters have
// changed. journal: folder in which the new writes are kept; nothing is written without it.
//
// Errors are basic::Errors: nothing was written then.
Status undo(const UndoPlan& plan, const UndoOptions& options, const std::filesystem::path& journal,
    const Surroundings& surroundings, ToolOutput& output);

} // namespace servopanel::journal
