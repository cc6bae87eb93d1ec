#pragma once

#include "mqtt/broker_link.h"

#include <functional>
#include <utility>

namespace servopanel::testing {

// The link of a panel that waits for a controller in the same thread: the other side works at each turn.
class PumpedLink : public mqtt::BrokerLink {
public:
    PumpedLink(mqtt::BrokerLinkSettings settings, std::function<void()> others)
        : mqtt::BrokerLink{std::move(settings)}
        , others_{std::move(others)}
    {
    }
    void poll(int) override
    {
        constexpr int turnMilliseconds = 1;
        others_();
        mqtt::BrokerLink::poll(turnMilliseconds);
    }

private:
    std::function<void()> others_;
};

} // namespace servopanel::testing
