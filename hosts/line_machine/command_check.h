#pragma once

#include "basic/variant.h"
#include "machine/variable_store.h"
#include "mqtt/description.h"
#include "mqtt/messages.h"

#include <cstdint>
#include <string>

namespace servopanel::line_machine {

// What the controller knows when it judges a command.
struct CommandContext {
    const mqtt::Description& description;
    const machine::VariableStore& store;
    std::int64_t epoch = 0;
    std::int64_t now = 0; // controller's time
};

struct Verdict {
    mqtt::Outcome outcome = mqtt::Outcome::Done;
    std::string text; // English, names the element where there is one
    basic::Variant value; // to be stored when done
};

// Whether a command may be carried out. Level and range are looked at for the elements that it changes, of a signal for
// all: what somebody else once set is no reason to refuse him who touches something else.
Verdict judge(const mqtt::Command& command, const CommandContext& context);

} // namespace servopanel::line_machine
