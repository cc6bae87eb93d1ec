#pragma once

#include <chrono>
#include <stdexcept>
#include <string>

namespace servopanel::bench {

class Stopwatch {
public:
    double seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
    }
    // For whoever waits for something that has to come.
    void failAfterLong(const std::string& problem) const
    {
        constexpr double longest = 60;
        if (seconds() > longest) throw std::runtime_error{problem};
    }

private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

} // namespace servopanel::bench
