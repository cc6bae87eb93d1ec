#pragma once

#include "basic/variant.h"
#include "mqtt/bounded_json.h"
#include "mqtt/description.h"
#include "mqtt/outcome.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::mqtt {

// The payloads, described for both sides in docs/broker.md. Reading one throws ProtocolError. An epoch is the start of
// the controller in milliseconds since 1970; its times are milliseconds since then by a clock that never jumps.

struct State {
    bool up = false;
    std::int64_t epoch = 0;
    std::string hash; // of the description
};
std::string write(const State& state);
State readState(std::string_view topic, std::string_view payload);

// A description is sent in parts, so that none becomes too long for a receiver.
struct DescriptionPart {
    std::string hash; // of the whole
    std::size_t part = 0;
    std::size_t parts = 1;
    std::vector<VariableDescription> variables;
};
std::vector<DescriptionPart> partsOf(const Description& description);
std::string write(const DescriptionPart& part);
DescriptionPart readDescriptionPart(std::string_view topic, std::string_view payload);

enum class Quality { Good, Stale, Bad };

struct Value {
    std::int64_t epoch = 0;
    std::int64_t sequence =
        0; // of this variable, from 1 on in each epoch; one more whenever a change is sent
    std::int64_t time = 0; // when this message was made
    basic::Variant value;
    std::vector<Quality> qualities; // of the elements, or one for all
    std::string reason; // for people, why it is not good; may be empty

    Quality worst() const;
};
std::string write(const Value& value);
Value readValue(std::string_view topic, std::string_view payload, const VariableDescription& description);

struct Heartbeat {
    std::int64_t epoch = 0;
    std::int64_t time = 0;
    std::vector<std::int64_t> sequences; // of all variables in the order of the description; 0: never sent
};
std::string write(const Heartbeat& heartbeat);
Heartbeat readHeartbeat(std::string_view topic, std::string_view payload);

// A panel asks for values: of these variables, or of all when there are none.
struct Get {
    std::vector<std::string> names;
};
std::string write(const Get& get);
Get readGet(std::string_view topic, std::string_view payload);

struct Command {
    std::string id; // of the panel's choice, never the same twice
    std::int64_t epoch = 0;
    std::int64_t deadline = 0; // in the controller's time
    std::int16_t level = 0; // of the user
    std::string name;
    Json old; // what the panel read before
    Json wanted;
};
std::string write(const Command& command);
Command readCommand(std::string_view topic, std::string_view payload);

struct Ack {
    std::string id;
    std::int64_t epoch = 0;
    Outcome outcome = Outcome::Done; // one that has a code
    std::string text; // for people, may be empty
    Json value; // read back; null when there is none
    std::int64_t sequence = 0; // of the value
    std::int64_t time = 0;
};
std::string write(const Ack& ack);
Ack readAck(std::string_view topic, std::string_view payload);

} // namespace servopanel::mqtt
