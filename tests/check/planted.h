#pragma once

#include "check/project_copy.h"

#include <functional>
#include <string>
#include <vector>

namespace servopanel::check::tests {

// A line that must appear in the report.
struct Expected {
    std::string file;
    std::string text; // stands in the line of the file that is named; empty: no line is named
    std::string finding; // behind file and line
};

// A mistake that somebody makes, and what must be found because of it.
struct Planted {
    std::string what;
    std::function<void(const ProjectCopy&)> plant;
    std::vector<Expected> expected;
};

// All of them can be planted in one copy.
const std::vector<Planted>& plantedMistakes();

} // namespace servopanel::check::tests
