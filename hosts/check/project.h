#pragma once

#include "check/ini_file.h"
#include "check/json_lines.h"
#include "machine/project_file.h"
#include "portable/path_mapping.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace servopanel::check {

// The project that is being checked, as far as its files can be read.
struct CheckedProject {
    using Variable = machine::ProjectFile::Variable;
    struct Ini {
        std::string name; // as it is on the disk
        std::optional<IniFile> content; // nothing when it cannot be read
    };

    std::filesystem::path folder;
    portable::PathMapping mapping;
    machine::ProjectFile file;
    JsonLines lines;
    std::set<int> resolutions; // those that it has pictures for, and its own
    std::map<std::string, Ini> inis; // by name below the folder, in capitals
    std::map<std::string, std::string> wrongStarts =
        {}; // what is wrong with the type or the length of a start value, by the name of its variable

    std::optional<std::string> machineType = {}; // of ServoWithMachineType, in the place of the project's own

    // Line of a process variable in project.json; for one that is missing that of all variables.
    int lineOfVariable(const std::string& name) const { return lines.line("/variables/" + name); }
    // Whether there is such a variable that could not be taken, which is told with its reason.
    bool wasRefused(const std::string& name) const
    {
        const auto isOf = [&](const Variable& variable) { return variable.name == name; };
        const auto isAbout = [&](const machine::Problem& problem) {
            return problem.place == "/variables/" + name;
        };
        return std::none_of(file.variables.begin(), file.variables.end(), isOf)
            && std::any_of(file.problems.begin(), file.problems.end(), isAbout);
    }
};

} // namespace servopanel::check
