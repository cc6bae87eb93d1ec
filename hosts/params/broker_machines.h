#pragma once

#include "mqtt/broker_variables.h"
#include "mqtt/clock.h"
#include "mqtt/link.h"
#include "params/snapshot.h"

#include <memory>
#include <string>
#include <vector>

namespace servopanel::params {

// Machines on a broker, for a program that asks and goes.
class BrokerMachines {
public:
    // name: under which the broker knows us, as that of a panel.
    BrokerMachines(std::unique_ptr<mqtt::Link> link, std::string name, std::vector<std::string> machines,
        mqtt::Clock clock);

    // The servos of a machine. Waits for the connection and the machine's description; error 462 with the reason when they
    // do not come.
    mqtt::Description describe(const std::string& machine);

    // What these servos hold, all of it at one moment: waits until every value is known for certain. What is not after
    // five seconds is among the unreadable ones. Errors: 462 when nothing is known, 5 for an unknown servo.
    Snapshot read(const std::string& machine, const std::vector<int>& servos);

    // For reads and writes. Wait for values by read before.
    const std::shared_ptr<mqtt::BrokerVariables>& variables() const { return variables_; }

private:
    [[noreturn]] void failFor(const std::string& machine) const;

    std::string name_;

    std::unique_ptr<mqtt::Link> link_;
    mqtt::Clock clock_;
    std::shared_ptr<mqtt::BrokerVariables> variables_;
};

} // namespace servopanel::params
