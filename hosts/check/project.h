#pragma once

#include "check/ini_file.h"
#include "check/json_lines.h"
#include "machine/project_file.h"
#include "portable/path_mapping.h"

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace servopanel::check {

// The project that is being checked, as far as its files can be read.
struct CheckedProject {
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

    // Line of a process variable in project.json; for one that is missing that of all variables.
    int lineOfVariable(const std::string& name) const { return lines.line("/variables/" + name); }
};

} // namespace servopanel::check
