#pragma once

#include <string>
#include <vector>

namespace servopanel::bench {

// Runs a program as a user would and waits for its end; its output goes into a file, which is made anew, or nowhere.
// Throws std::runtime_error when it cannot be run or fails.
void run(std::vector<std::string> words, const std::string& output = "/dev/null");

} // namespace servopanel::bench
