#pragma once

#include "machine/variable_store.h"
#include "mqtt/description.h"

#include <string_view>

namespace servopanel::line_machine {

// The variables of a machine among those of a project, as its controller tells them: those of its servos, with the
// limits that "_un_" and "_ob_" of the same family hold. Setpoints, switches and drawing numbers can be written.
mqtt::Description describeMachine(const machine::VariableStore& store, std::string_view machine);

} // namespace servopanel::line_machine
