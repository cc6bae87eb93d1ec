#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

class Player;

// One command of a scenario.
struct Step {
    std::size_t line = 0; // from 1
    std::string echo; // an operation as it was written; empty for a set-up command
    std::function<void(Player&)> action;
};

// What is wrong with a scenario, and where.
class ScenarioError : public std::runtime_error {
public:
    ScenarioError(std::size_t line, const std::string& reason)
        : std::runtime_error{reason}
        , line_{line}
    {
    }
    std::size_t line() const { return line_; }

private:
    std::size_t line_;
};

// All commands of a scenario in order. Raises ScenarioError for the first line that is malformed.
std::vector<Step> parseScenario(std::string_view text);

} // namespace servopanel::recording
