#pragma once

#include "mqtt/broker_options.h"
#include "panel/runtime/panel.h"

#include <optional>
#include <string>
#include <vector>

namespace servopanel::panel {

// What the command line asks for.
struct Options {
    PanelSettings settings;
    mqtt::BrokerOptions broker;
    bool viewing = false; // write nothing
    bool noJournal = false; // wanted so
    bool help = false;
    bool check = false; // look for what the project lacks, and end
    std::filesystem::path tour; // folder for the pictures of a tour; empty: no tour
    std::string problem; // what is wrong with the command line
};

// Whether this panel writes to the machines of a line and nobody will be able to say what; a word about it is due unless
// that is wanted.
bool writesUnseen(const Options& options);

Options parseOptions(const std::vector<std::string>& arguments);
std::string helpText();

} // namespace servopanel::panel
