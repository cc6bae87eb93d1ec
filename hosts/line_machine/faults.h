#pragma once

#include "mqtt/bounded_json.h"
#include "mqtt/outcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::line_machine {

// What a controller does wrong on purpose, so that panels and their makers see what happens then. Described in
// docs/broker.md.
struct Faults {
    struct Change {
        std::string name;
        mqtt::Json value;
    };
    struct Doubt {
        std::string name;
        std::vector<std::size_t> elements; // counted from 0; none: all
        std::string reason;
    };

    int refuse = 0; // so many commands
    mqtt::Outcome refuseWith = mqtt::Outcome::Busy;
    int silent = 0; // so many commands without an answer
    bool silentActs = false; // but carried out
    int slow = 0; // so many commands answered late
    std::int64_t slowMilliseconds = 0;
    int torn = 0; // so many changes that are counted and not sent
    bool heartless = false; // no heartbeat
    std::optional<std::string> absent; // variables with this in their names do not answer
    std::vector<Doubt> doubts; // elements of bad quality
    std::vector<Change> changes; // by somebody else, to be made
    bool restart = false; // to be made

    // What pm/v1/<machine>/fault orders. Throws mqtt::ProtocolError.
    void take(std::string_view topic, std::string_view payload);
};

} // namespace servopanel::line_machine
