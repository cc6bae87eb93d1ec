#pragma once

#include "params/broker_machines.h"
#include "params/command_line.h"
#include "params/project.h"
#include "params/tool.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::params {

// Machines on the broker that the command line names.
std::unique_ptr<BrokerMachines> connect(
    const CommandLine& line, const Surroundings& surroundings, std::vector<std::string> machines);

// The project that the command line names, its problems told; nothing when it names none.
std::optional<Project> projectOf(const CommandLine& line, ToolOutput& output);

// The parameters of these servos, all of the machine when there are none: of the machine on the broker, or the start values
// of the project without one. Nullptr for what there is not.
struct Read {
    ParameterSet set;
    bool isWhole = true; // every parameter could be read; what could not is told
};
Read readMachine(const std::string& machine, std::vector<int> servos, BrokerMachines* machines,
    const CommandLine& line, const Project* project, const Surroundings& surroundings, ToolOutput& output);

// One line each, begun with the program's name.
void tell(ToolOutput& output, const std::string& problem);

} // namespace servopanel::params
