#pragma once

#include <cstddef>

namespace servopanel::monkey {

// What this program holds of the computer's memory.
struct MemoryInUse {
    std::size_t alive = 0; // pieces, see allocationsAlive
    std::size_t resident = 0; // kB
};

MemoryInUse memoryNow();

// One line on the standard output.
void print(const char* when, const MemoryInUse& memory);

} // namespace servopanel::monkey
