#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
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
// project.json gives to the machines. Errors name the file.
std::vector<ServoName> configuredServos(const std::filesystem::path& project);

// The servo that a variable of parameters belongs to, by its name; nothing when it is no such variable.
std::optional<ServoName> servoOf(std::string_view variable);

} // namespace servopanel::jet
