#include "params/broker_machines.h"

#include "basic/error.h"
#include "mqtt/waiting.h"

#include <algorithm>
#include <utility>

namespace servopanel::params {

BrokerMachines::BrokerMachines(
    std::unique_ptr<mqtt::Link> link, std::string name, std::vector<std::string> machines, mqtt::Clock clock)
    : name_{std::move(name)}
    , link_{std::move(link)}
    , clock_{clock}
    , variables_{std::make_shared<mqtt::BrokerVariables>(
          mqtt::BrokerVariablesSettings{.panel = name_, .machines = std::move(machines)}, *link_, clock)}
{
}

void BrokerMachines::failFor(const std::string& machine) const
{
    std::string text = variables_->troubleOf(machine);
    if (const std::string why = link_->trouble(); !why.empty()) text.append(" (").append(why).append(")");
    if (text.empty())
        text = "the values of machine " + machine + " do not come; does the broker know us by the name '"
            + name_ + "' (--name)?";
    throw basic::Error{static_cast<std::int32_t>(mqtt::Outcome::NoConnection), "Process variables", text};
}

mqtt::Description BrokerMachines::describe(const std::string& machine)
{
    if (!mqtt::waitFor(*variables_, clock_,
            [&] { return variables_->isLive(machine) && variables_->description(machine); }))
        failFor(machine);
    return *variables_->description(machine);
}

Snapshot BrokerMachines::read(const std::string& machine, const std::vector<int>& servos)
{
    const mqtt::Description description = describe(machine);
    requireServos(machine, description, servos);
    std::vector<std::string> names;
    for (const int servo : servos)
        for (std::string& name : variablesOf(machine, description, servo))
            names.push_back(std::move(name));
    // What the machine itself does not know will not become better by waiting.
    const auto isOpen = [&](const std::string& name) {
        return variables_->standing(name).quality == mqtt::Quality::Stale;
    };
    const bool isKnown = mqtt::waitFor(*variables_, clock_,
        [&] { return variables_->isLive(machine) && std::none_of(names.begin(), names.end(), isOpen); });
    if (!isKnown && (!variables_->isLive(machine) || std::all_of(names.begin(), names.end(), isOpen)))
        failFor(machine);

    Snapshot snapshot;
    snapshot.machine = machine;
    snapshot.description = *variables_->description(machine);
    snapshot.epoch = variables_->epoch(machine);
    for (const std::string& name : names)
        try {
            snapshot.values.declare(name, variables_->ReadValue(name));
        } catch (const basic::Error& error) {
            // A limit that nobody knows is looked at by the controller.
            if (parameterVariable(name)) snapshot.unreadable.insert_or_assign(name, error.description);
        }
    return snapshot;
}

} // namespace servopanel::params
