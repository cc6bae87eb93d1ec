#pragma once

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

namespace servopanel::jet {

// A servo of a machine, by the machine's designation ("M1") and the servo's number on it.
struct ServoName {
    std::string machine;
    std::string number;
    friend bool operator<(const ServoName& left, const ServoName& right)
    {
        return std::tie(left.machine, left.number) < std::tie(right.machine, right.number);
    }
};

// The servos of all machines of a project folder: those of its Parameter/Program.ini, with the designations that its
// project.json gives to the machines. Errors name the file, and the entry in it: a file is missing or broken, no
// machine has a designation, a number is none.
std::vector<ServoName> configuredServos(const std::filesystem::path& project);

} // namespace servopanel::jet
