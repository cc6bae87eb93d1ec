#pragma once

#include "jet/definition_row.h"
#include "jet/servo_defs/machine_definitions.h"
#include "params/parameter.h"

#include <string>
#include <vector>

namespace servopanel::params {

// What the project's parameter definitions allow, for the servos of one machine.
class DefinitionLimits {
public:
    // Definitions of other machines are passed over. Of two for the same element the last counts, as on the page.
    DefinitionLimits(const std::vector<jet::DefinitionRow>& definitions, std::string machine);

    bool knows(const Place& place) const { return find(place) != nullptr; }
    // "850 is above Max 800", "-1 is below abs_min 0"; empty when the value is allowed, or has no definition. Limits that
    // are missing or contradict each other limit nothing.
    std::string problemOf(const Place& place, double value) const;
    // Definitions that could not be taken as they were meant, one line each.
    const std::vector<std::string>& notes() const { return definitions_.notes(); }

private:
    const jet::MachineDefinition* find(const Place& place) const;

    std::string machine_;
    jet::MachineDefinitions definitions_;
};

} // namespace servopanel::params
