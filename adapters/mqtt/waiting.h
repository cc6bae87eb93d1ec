#pragma once

#include "mqtt/broker_variables.h"
#include "mqtt/clock.h"

#include <cstdint>

namespace servopanel::mqtt {

// Waits for machines on behalf of a program that asks and goes: true as soon as the condition holds, false when it does
// not within five seconds. A controller that is there has answered in a fraction of that, over a slow line too.
template <class F>
bool waitFor(BrokerVariables& variables, const Clock& clock, const F& condition)
{
    constexpr std::int64_t waitMilliseconds = 5000;
    constexpr int turnMilliseconds = 20;
    const std::int64_t end = clock() + waitMilliseconds;
    // What came meanwhile may show that what we hold is old.
    variables.poll(0);
    while (!condition()) {
        if (clock() >= end) return false;
        variables.poll(turnMilliseconds);
    }
    return true;
}

} // namespace servopanel::mqtt
