#pragma once

#include "machine/json_text.h"
#include "machine/machine_settings.h"
#include "machine/problem.h"

#include <optional>
#include <string>
#include <vector>

namespace servopanel::machine {

// The member "machine" of project.json. Rules with something wrong in them are left out and are among the problems;
// nothing at all when the machine is not a simulated one.
std::optional<MachineSettings> readMachineSettings(
    const Json& json, const std::string& file, const std::string& path, std::vector<Problem>& problems);

} // namespace servopanel::machine
