#pragma once

#include "jet/servo_defs/machine_definitions.h"
#include "mqtt/description.h"

namespace servopanel::line_machine {

// Gives the variables the access levels ("Pass") that the machine's parameter definitions have for their elements, or
// for the bits of a switch word. What has no definition keeps level 0; a level that cannot be read is the highest.
mqtt::Description withLevels(
    const mqtt::Description& description, const jet::MachineDefinitions& definitions);

} // namespace servopanel::line_machine
