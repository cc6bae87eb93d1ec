#include "monkey/memory_in_use.h"

#include "monkey/allocations.h"

#include <cstdio>
#include <fstream>

#include <unistd.h>

namespace servopanel::monkey {

MemoryInUse memoryNow()
{
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream{"/proc/self/statm"} >> size >> resident;
    return {allocationsAlive(), resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) / 1024};
}

void print(const char* when, const MemoryInUse& memory)
{
    std::printf("  %-22s %zu kB resident, %zu pieces of memory\n", when, memory.resident, memory.alive);
    std::fflush(stdout);
}

} // namespace servopanel::monkey
