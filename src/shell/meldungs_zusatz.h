#pragma once

#include <cstdint>
#include <string>

namespace servopanel::shell {

// Values that a project's host may set to find its reports among others; part of every composed report.
struct MeldungsZusatz {
    std::string U;
    bool B = false;
    std::int16_t F = 0;
};

} // namespace servopanel::shell
