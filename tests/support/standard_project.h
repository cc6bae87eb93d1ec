#pragma once

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace servopanel::testing {

// A text file below tests/.
inline std::string testFile(const std::string& name)
{
    std::ifstream in{std::string{SERVOPANEL_TESTS_DIR} + "/" + name, std::ios::binary};
    if (!in) throw std::runtime_error{"cannot read " + name};
    return {std::istreambuf_iterator<char>{in}, {}};
}

// Set-up commands for a project in which nothing fails; the file says what is in it. Later lines replace single
// things: run("var Ch-1.intern<.passwort> = 5").
inline const std::string standardProject = testFile("support/standard_project.scenario");

} // namespace servopanel::testing
