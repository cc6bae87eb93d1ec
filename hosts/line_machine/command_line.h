#pragma once

#include "mqtt/broker_address.h"

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace servopanel::line_machine {

struct CommandLine {
    bool help = false;
    std::filesystem::path project; // the folder that project.json is in
    mqtt::BrokerAddress broker;
    std::vector<std::string> machines; // designations; none: all of the project
    bool faults = false;
};

// Or a text that says what is wrong.
std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments);

std::string usage();

} // namespace servopanel::line_machine
