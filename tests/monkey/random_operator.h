#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace servopanel::monkey {

// An operator without sense, on a machine that changes and fails at any time: one scenario command after the other, the
// same ones for the same seed.
class RandomOperator {
public:
    explicit RandomOperator(std::uint32_t seed)
        : random_{seed}
    {
    }

    std::string next();

private:
    int upTo(int most); // 0 to most
    std::string number();
    std::string input();
    std::string machine();
    std::string failure();
    std::string operation();

    std::minstd_rand random_;
};

} // namespace servopanel::monkey
