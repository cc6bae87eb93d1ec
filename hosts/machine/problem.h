#pragma once

#include <string>

namespace servopanel::machine {

// Something wrong in a file of the project, for the engineer who looks after it.
struct Problem {
    std::string file;
    std::string place; // "line 12", or where in a JSON file: "/variables/parameter<.mit_navi>"
    std::string reason;

    // One line of a log.
    std::string text() const { return file + ": " + (place.empty() ? reason : place + ": " + reason); }
};

} // namespace servopanel::machine
