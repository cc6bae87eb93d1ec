#pragma once

#include "check/project_copy.h"

#include <functional>
#include <string>
#include <vector>

namespace servopanel::check::tests {

// A project that somebody has left in a bad state.
struct BadProject {
    std::string name;
    std::function<void(const ProjectCopy&)> spoil;
    std::vector<std::string> findings; // beginnings of lines that must be in the report
};

const std::vector<BadProject>& badProjects();

// So many bytes without any meaning, the same at every call.
std::string rubbish(std::size_t size);

} // namespace servopanel::check::tests
