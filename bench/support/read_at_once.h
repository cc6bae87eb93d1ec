#pragma once

#include <filesystem>
#include <string>

namespace servopanel::bench {

// The floor of whatever takes in a file: opens it, asks for its size and reads all of it with one call into a text whose
// memory is there already, except the first time. Throws std::runtime_error when the file cannot be read.
void readAtOnce(const std::filesystem::path& file, std::string& content);

} // namespace servopanel::bench
