#pragma once

#include "mqtt/broker_address.h"
#include "mqtt/clock.h"
#include "mqtt/link.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::params {

enum class Status {
    Equal = 0, // or all was written
    Differences = 1,
    Trouble = 2,
};

struct ToolOutput {
    std::string text;
    std::string errors;
};

// What the tool finds around it; tests put something else there.
struct Surroundings {
    std::function<std::unique_ptr<mqtt::Link>(const mqtt::BrokerAddress& address, const std::string& client)>
        makeLink;
    mqtt::Clock clock;
    std::function<std::int64_t()> now; // ms since 1970, UTC
    std::string computer; // its name
    // Shows a question to the engineer; nothing when there will be no more answers. Empty: there is no terminal.
    std::function<std::optional<std::string>(const std::string& question)> ask;
};

// Those of a program, on its terminal if it has one.
Surroundings ownSurroundings();

// Runs servo-params with these arguments (without the name of the program).
Status runTool(
    const std::vector<std::string>& arguments, const Surroundings& surroundings, ToolOutput& output);

} // namespace servopanel::params
