#pragma once

#include "jet/definition_row.h"
#include "line_machine/controller.h"
#include "machine/project_file.h"
#include "machine/simulated_machine.h"
#include "machine/variable_store.h"
#include "mqtt/broker_address.h"
#include "mqtt/broker_link.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::line_machine {

struct LineSettings {
    mqtt::BrokerAddress broker;
    std::vector<std::string> machines; // designations
    std::vector<jet::DefinitionRow> definitions; // of all machines: which levels writes need
    std::int64_t epoch = 0; // milliseconds since 1970
    bool faults = false;
};

// The designations of all machines that a project simulates.
std::vector<std::string> machinesOf(const machine::ProjectFile& project);

// The simulated machines of a project on a broker, each with a connection of its own as separate controllers have it.
class Line {
public:
    // Throws basic::Error when the broker's address cannot be used.
    Line(const machine::ProjectFile& project, LineSettings settings);
    ~Line(); // the machines say that they go

    // Moves the machines and the messages; takes a few milliseconds, at most so many.
    void run(int milliseconds);

    // What went wrong or came right since the last call, one line each.
    std::vector<std::string> takeNews();

private:
    struct Machine {
        std::string name;
        std::unique_ptr<mqtt::BrokerLink> link;
        std::unique_ptr<Controller> controller;
        std::string told; // the connection's trouble
        bool wasUp = false;
    };

    machine::VariableStore store_;
    std::unique_ptr<machine::SimulatedMachine> simulation_;
    std::deque<Machine> machines_;
    mqtt::Clock clock_;
    std::int64_t steppedAt_ = 0;
    std::size_t toldProblems_ = 0;
    std::vector<std::string> news_; // of the start
};

} // namespace servopanel::line_machine
