#pragma once

#include <string>
#include <vector>

namespace servopanel::bench {

// Runs a program as a user would and waits for its end; its output goes nowhere. Throws std::runtime_error when it
// cannot be run or fails.
void run(std::vector<std::string> words);

} // namespace servopanel::bench
