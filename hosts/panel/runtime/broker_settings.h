#pragma once

#include "mqtt/clock.h"
#include "mqtt/link.h"

#include <functional>
#include <memory>

namespace servopanel::panel {

// Where the machines are, when they are not in the panel itself.
struct BrokerSettings {
    bool viewing = false; // it shows everything and writes nothing
    std::function<std::unique_ptr<mqtt::Link>()> makeLink; // throws basic::Error when there can be none
    mqtt::Clock clock = mqtt::steadyClock();
};

} // namespace servopanel::panel
