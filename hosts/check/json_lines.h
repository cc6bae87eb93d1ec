#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace servopanel::check {

// Where the members of a JSON text stand. Paths as in machine::Problem: "/languages/0/code".
class JsonLines {
public:
    // The text need not be right: what stands before a mistake is found.
    explicit JsonLines(std::string_view text);

    // The line of a member, from 1 on; that of the member around it when there is no such member, and 0 for the whole.
    // The last one counts when a member stands there twice.
    int line(std::string_view path) const;

private:
    std::map<std::string, int, std::less<>> lines_;
};

} // namespace servopanel::check
