#pragma once

#include "mqtt/broker_address.h"
#include "mqtt/clock.h"
#include "mqtt/link.h"
#include "portable/tool_output.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::journal {

// In the order of their weight.
enum class Status {
    Good = 0,
    Findings = 1, // broken lines were passed over
    Failed = 2, // or refused
    Unknown = 3, // a write has no certain end
};

using portable::ToolOutput;

// What the tool finds around it; tests put something else there.
struct Surroundings {
    std::function<std::unique_ptr<mqtt::Link>(const mqtt::BrokerAddress& address, const std::string& client)>
        makeLink;
    mqtt::Clock clock;
    std::function<std::int64_t()> now; // ms since 1970, UTC
    std::string computer; // its name
};

// Those of a program; its name stands for that of a computer without one.
Surroundings ownSurroundings(const std::string& program);

// Runs servo-journal with these arguments (without the name of the program).
Status runTool(
    const std::vector<std::string>& arguments, const Surroundings& surroundings, ToolOutput& output);

} // namespace servopanel::journal
