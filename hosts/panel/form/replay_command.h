#pragma once

#include "platform/child_id.h"
#include "platform/member.h"

#include <optional>
#include <string>
#include <string_view>

namespace servopanel::panel {

// What an event of a child is called in a replay scenario, so that the trace of a panel can be replayed: "touch
// SollwertL 5", "key 10", "scroll 2". Nothing for events that no scenario has, or that tell nothing new.
std::optional<std::string> replayCommand(
    std::string_view control, platform::ChildId child, std::string_view event, platform::Args args);

} // namespace servopanel::panel
