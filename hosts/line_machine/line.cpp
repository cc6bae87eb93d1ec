#include "line_machine/line.h"

#include "line_machine/definition_levels.h"
#include "line_machine/machine_description.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace servopanel::line_machine {

namespace {

constexpr std::int64_t longestStep = 1000; // milliseconds; a process that slept does not make up for it
constexpr double millisecondsPerSecond = 1000;

void addOnce(std::vector<std::string>& names, const std::string& name)
{
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

} // namespace

std::vector<std::string> machinesOf(const machine::ProjectFile& project)
{
    std::vector<std::string> names;
    if (!project.machine) return names;
    for (const machine::LineRule& line : project.machine->lines)
        addOnce(names, line.machine);
    for (const machine::ServoRule& servo : project.machine->servos)
        addOnce(names, servo.machine);
    return names;
}

Line::Line(const machine::ProjectFile& project, LineSettings settings)
    : clock_{mqtt::steadyClock()}
    , steppedAt_{clock_()}
{
    project.declareVariables(store_);
    if (project.machine) simulation_ = std::make_unique<machine::SimulatedMachine>(*project.machine, store_);
    for (const std::string& name : settings.machines) {
        // One id for each machine: the broker closes the connection of a controller that is still thought to be there.
        auto link = std::make_unique<mqtt::BrokerLink>(
            mqtt::BrokerLinkSettings{.address = settings.broker, .client = "machine-" + name}, clock_);
        const jet::MachineDefinitions definitions{settings.definitions, name};
        for (const std::string& note : definitions.notes())
            news_.push_back(std::string{"machine "}.append(name).append(": definitions: ").append(note));
        auto controller = std::make_unique<Controller>(
            ControllerSettings{.machine = name, .epoch = settings.epoch, .faults = settings.faults},
            withLevels(describeMachine(store_, name), definitions), store_, *link, clock_);
        machines_.push_back({name, std::move(link), std::move(controller), {}, false});
    }
}

Line::~Line()
{
    for (Machine& machine : machines_)
        machine.controller->goodbye();
}

void Line::run(int milliseconds)
{
    std::vector<pollfd> sockets;
    for (const Machine& machine : machines_) {
        const short events = static_cast<short>(POLLIN | (machine.link->isSending() ? POLLOUT : 0));
        sockets.push_back({machine.link->descriptor(), events, 0});
    }
    ::poll(sockets.data(), sockets.size(), milliseconds);
    const std::int64_t now = clock_();
    const std::int64_t step = std::min(now - std::exchange(steppedAt_, now), longestStep);
    if (simulation_) simulation_->step(static_cast<double>(step) / millisecondsPerSecond);
    for (Machine& machine : machines_)
        machine.controller->poll(0);
}

std::vector<std::string> Line::takeNews()
{
    std::vector<std::string> news = std::exchange(news_, {});
    for (Machine& machine : machines_) {
        const std::string start = "machine " + machine.name + ": ";
        if (machine.link->isUp() != machine.wasUp) {
            machine.wasUp = !machine.wasUp;
            if (machine.wasUp) news.push_back(start + "on the broker");
        }
        if (machine.told != machine.link->trouble()) {
            machine.told = machine.link->trouble();
            if (!machine.told.empty()) news.push_back(start + machine.told);
        }
        for (const std::string& error : machine.controller->takeProtocolErrors())
            news.push_back(start + error);
    }
    if (simulation_)
        for (; toldProblems_ < simulation_->problems().size(); ++toldProblems_)
            news.push_back(simulation_->problems()[toldProblems_].text());
    return news;
}

} // namespace servopanel::line_machine
