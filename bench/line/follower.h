#pragma once

#include "mqtt/broker_link.h"
#include "mqtt/broker_variables.h"

#include <filesystem>
#include <string>
#include <vector>

namespace servopanel::bench {

// Follows machines of the line as a panel does, without a screen.
class Follower {
public:
    Follower(const std::filesystem::path& socket, const std::vector<std::string>& machines);

    // Until all values of all machines may be there. Throws std::runtime_error when they do not come.
    void waitForAll();
    void waitUntilGood(const std::string& variable);
    void follow(double seconds);

private:
    mqtt::BrokerLink link_;
    std::vector<std::string> machines_;

public:
    mqtt::BrokerVariables variables;
};

// How many values all machines send in a second, counted over so many seconds.
double valuesPerSecond(const std::filesystem::path& socket, double seconds);

// How long a message of so many bytes takes to the broker and back to its sender, in milliseconds, one after the other: no
// write can be quicker.
std::vector<double> timesToTheBrokerAndBack(
    const std::filesystem::path& socket, int messages, std::size_t bytes);

} // namespace servopanel::bench
