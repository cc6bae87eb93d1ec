#pragma once

#include "mqtt/broker_address.h"

#include <string>
#include <string_view>
#include <variant>

namespace servopanel::mqtt {

// The options of a command line that say where the broker is and who asks. Every program takes the same.
class BrokerOptions {
public:
    // Whether the option is one of these; each takes a value.
    static bool knows(std::string_view option);
    // The option must be known.
    void set(std::string_view option, std::string value);

    // --broker was given.
    bool any() const { return !broker_.empty(); }
    // Without --broker the one on this machine. Or a text that says what is wrong.
    std::variant<BrokerAddress, std::string> address() const;

private:
    std::string broker_;
    BrokerAddress credentials_; // of the options but for --broker
};

// Lines for the help text, but for --broker itself, which each program explains.
extern const char* const brokerOptionsHelp;

} // namespace servopanel::mqtt
