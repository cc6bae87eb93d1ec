#pragma once

#include <cmath>
#include <cstdint>
#include <random>

namespace servopanel::machine {

// Random numbers that are the same with every standard library (the library's own distributions are not).
class RandomNumbers {
public:
    explicit RandomNumbers(std::uint64_t seed)
        : engine_{seed}
    {
    }

    // Uniform in [0, 1).
    double uniform() { return static_cast<double>(engine_() >> 11U) * 0x1.0p-53; }
    // Uniform between -reach and +reach.
    double between(double reach) { return (2.0 * uniform() - 1.0) * reach; }
    // Time until something that happens every mean on average.
    double exponential(double mean) { return -mean * std::log1p(-uniform()); }

private:
    std::mt19937_64 engine_;
};

} // namespace servopanel::machine
