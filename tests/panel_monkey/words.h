#pragma once

#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

namespace servopanel::monkey {

// A command of a scenario, word by word.
struct Words {
    explicit Words(std::string_view command)
        : in{std::string{command}}
    {
    }
    std::string word()
    {
        std::string next;
        in >> next;
        return next;
    }
    int whole() { return std::atoi(word().c_str()); }

    std::istringstream in;
};

} // namespace servopanel::monkey
