#include "mqtt/clock.h"

#include <chrono>

namespace servopanel::mqtt {

Clock steadyClock()
{
    return [] {
        using namespace std::chrono;
        return std::int64_t{duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count()};
    };
}

} // namespace servopanel::mqtt
