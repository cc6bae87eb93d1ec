#pragma once

#include "mqtt/broker_variables.h"
#include "mqtt/clock.h"
#include "mqtt/link.h"
#include "platform/process_var_access.h"

#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::panel {

// Where the machines are, when they are not in the panel itself.
struct BrokerSettings {
    std::string panel; // name of this panel, its own among all panels of the broker
    bool viewing = false; // it shows everything and writes nothing
    std::function<std::unique_ptr<mqtt::Link>()> makeLink; // throws basic::Error when there can be none
    mqtt::Clock clock = mqtt::steadyClock();
};

// The panel's way to its machines over a broker. It is polled from the event loop; everything it holds belongs to the
// thread of the panel.
class BrokerConnection {
public:
    // machines: designations.
    BrokerConnection(const BrokerSettings& settings, const std::vector<std::string>& machines);

    // own: what describes this panel and stays with it.
    std::shared_ptr<platform::ProcessVarAccess> variables(std::shared_ptr<platform::ProcessVarAccess> own);

    // polled: called after each turn, when link and values may be others.
    void start(std::function<void()> polled);

    // For a start with values on the screen: polls until the machine is there, so many milliseconds at most.
    void waitFor(std::string_view machine, int milliseconds);

    // What keeps a machine's values from being good, one sentence for the list of reports; empty: nothing.
    std::string trouble(std::string_view machine) const { return machines_->troubleOf(machine); }
    // What was wrong with messages and with the connection itself since the last call.
    std::vector<std::string> takeProblems();

    void setLevel(std::int16_t level) { machines_->setLevel(level); }
    // The confirm key is about to act, and has acted.
    void confirmBegins();
    void confirmEnds() { confirm_.reset(); }

private:
    void poll(int milliseconds);

    std::unique_ptr<mqtt::Link> link_;
    mqtt::Clock clock_;
    std::shared_ptr<mqtt::BrokerVariables> machines_;
    std::unique_ptr<mqtt::BrokerVariables::ConfirmScope> confirm_;
    std::vector<std::string> problems_;
    QTimer timer_;
};

} // namespace servopanel::panel
