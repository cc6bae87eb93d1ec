#include "params/sources.h"

#include "journal/time_text.h"

#include <unistd.h>

#include <utility>

namespace servopanel::params {

void tell(ToolOutput& output, const std::string& problem)
{
    output.errors.append("servo-params: ").append(problem).append("\n");
}

std::unique_ptr<BrokerMachines> connect(
    const CommandLine& line, const Surroundings& surroundings, std::vector<std::string> machines)
{
    const std::string name = line.name.empty() ? surroundings.computer : line.name;
    // A panel of that name goes on beside us: the broker keeps one connection for each client id.
    const std::string client = "params-" + name + "-" + std::to_string(::getpid());
    return std::make_unique<BrokerMachines>(
        surroundings.makeLink(*line.broker, client), name, std::move(machines), surroundings.clock);
}

std::optional<Project> projectOf(const CommandLine& line, ToolOutput& output)
{
    if (line.project.empty()) return {};
    Project project = loadProject(line.project, line.language);
    for (const std::string& problem : project.problems)
        tell(output, problem);
    return project;
}

Read readMachine(const std::string& machine, std::vector<int> servos, BrokerMachines* machines,
    const CommandLine& line, const Project* project, const Surroundings& surroundings, ToolOutput& output)
{
    Snapshot snapshot;
    Read read;
    if (machines) {
        if (servos.empty()) servos = servosOf(machine, machines->describe(machine));
        snapshot = machines->read(machine, servos);
    } else {
        snapshot = startValues(*project, machine);
        if (servos.empty()) servos = servosOf(machine, snapshot.description);
        requireServos(machine, snapshot.description, servos);
    }
    read.set = parametersOf(snapshot, servos, project ? project->captions : Captions{});
    read.set.source = machines ? "broker " + line.broker->text() : "start values of project.json";
    if (machines) read.set.time = journal::timeText(surroundings.now());
    if (project) read.set.project = project->file.title;
    for (const auto& [name, reason] : snapshot.unreadable)
        tell(output, name + " cannot be read: " + reason);
    read.isWhole = snapshot.unreadable.empty();
    return read;
}

} // namespace servopanel::params
