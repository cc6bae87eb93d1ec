#include "mqtt/clock.h"

#include <ctime>

namespace servopanel::mqtt {

Clock steadyClock()
{
    return [] {
        timespec now{};
        ::clock_gettime(CLOCK_BOOTTIME, &now);
        return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
    };
}

} // namespace servopanel::mqtt
