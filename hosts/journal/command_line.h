#pragma once

#include "journal/entry_list.h"
#include "mqtt/broker_address.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace servopanel::journal {

// How a write is to be taken back.
struct UndoOptions {
    mqtt::BrokerAddress broker; // where the machine is
    std::string name; // on the broker and in the journal; empty: that of this computer
    std::int16_t level = 0; // the engineer's access level
    bool apply = false; // otherwise nothing is written
    std::filesystem::path journal; // folder for the new write; empty: that of the old one
};

struct CommandLine {
    bool help = false;
    std::filesystem::path folder;
    Filter filter;
    bool csv = false;
    std::optional<UndoOptions> undo; // of the one write that the filter admits
};

// Or a text that says what is wrong.
std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments);

std::string usage();

} // namespace servopanel::journal
