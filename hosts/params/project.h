#pragma once

#include "jet/definition_row.h"
#include "machine/project_file.h"
#include "params/captions.h"
#include "params/snapshot.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::params {

// A project's folder, as far as parameters are concerned.
struct Project {
    machine::ProjectFile file;
    Captions captions;
    std::optional<std::vector<jet::DefinitionRow>> definitions; // nothing when they could not be read
    std::string definitionsProblem; // why
    std::vector<std::string> problems; // for the engineer, one line each; nothing depends on them
};

// Texts are those of a language by its code; "": the one in which the project's panel starts. Error 53 or 13 when
// project.json cannot be read to its end, or has no such language.
Project loadProject(const std::filesystem::path& folder, const std::string& language);

// The start values that the project gives to a machine's variables. Error 5 for a machine that it does not have.
Snapshot startValues(const Project& project, const std::string& machine);

} // namespace servopanel::params
