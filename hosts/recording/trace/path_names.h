#pragma once

#include <map>
#include <string>
#include <string_view>

namespace servopanel::recording {

// Turns the full paths that cross the seam back into the names that the library built, so that a trace does not depend
// on where the project lies.
class PathNames {
public:
    void learn(std::string_view name, std::string_view fullPath);

    // The project-relative name of a full path; a path from outside the project comes back as it is.
    std::string name(std::string_view path) const;

    // A text for the operator or of an error, with the project's folder replaced by "<project>\".
    std::string message(std::string_view text) const;

private:
    std::map<std::string, std::string, std::less<>> names_; // by full path
    std::string folder_; // with a backslash at its end; empty until it is known
};

} // namespace servopanel::recording
