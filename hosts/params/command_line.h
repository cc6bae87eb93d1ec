#pragma once

#include "mqtt/broker_options.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace servopanel::params {

struct CommandLine {
    enum class Command { Help, Dump, Diff, Load };
    Command command = Command::Help;
    // dump: the project; diff: one or two sides; load: the file.
    std::vector<std::string> plain;

    std::filesystem::path project;
    std::string machine; // designation
    std::vector<int> servos; // none: all
    std::string language; // code; empty: the project's own
    std::string name; // on the broker; empty: that of this computer
    std::optional<mqtt::BrokerAddress> broker; // nothing: none was named

    std::filesystem::path output; // dump
    bool limits = false; // diff
    std::optional<int> from; // load: servo of the file
    std::int16_t level = 0;
    bool apply = false;
    bool ask = false;
    bool all = false;
    bool noDefinitions = false;
    std::vector<std::string> only;
    std::vector<std::string> except;
    std::filesystem::path journal; // folder
    bool noJournal = false; // writes without one
    bool otherMachine = false; // takes a file of another machine
};

// Or a text that says what is wrong.
std::variant<CommandLine, std::string> parseCommandLine(const std::vector<std::string>& arguments);

std::string usage();

} // namespace servopanel::params
