#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace servopanel::monkey {

// How a piece of work in a process of its own ended.
struct ChildEnd {
    std::string crash; // "signal 11", "status 1"; empty: the work was done
    std::size_t place = 0; // that it told last
    std::string result; // what the work gave
};

// Does the work in a child process, so that a crash takes nothing else with it. tell: keeps a place where this process
// finds it after a crash. Raises std::runtime_error when there is no process or memory to be had.
ChildEnd inChild(const std::function<std::string(const std::function<void(std::size_t place)>& tell)>& work);

} // namespace servopanel::monkey
