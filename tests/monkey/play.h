#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::monkey {

struct Finding {
    std::string rule; // what is broken, in words
    std::vector<std::string> commands; // those that lead there
};

// Plays this many commands of a seed on the standard project. Nothing when all rules held.
std::optional<Finding> playSeed(unsigned seed, std::size_t commands);

// Plays these commands on the standard project; those that cannot be played count for nothing.
std::optional<Finding> play(const std::vector<std::string>& commands);

using Play = std::function<std::optional<Finding>(const std::vector<std::string>&)>;

// The same finding with as few commands as leaving out one after the other gives.
Finding shrunk(const Finding& finding, const Play& play);

} // namespace servopanel::monkey
