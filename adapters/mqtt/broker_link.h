#pragma once

#include "mqtt/broker_address.h"
#include "mqtt/clock.h"
#include "mqtt/host_look_up.h"
#include "mqtt/link.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::mqtt {

struct BrokerLinkSettings {
    BrokerAddress address;
    std::string client; // its id, unique among all clients of the broker
    int keepAliveSeconds = 5;
    int connectMilliseconds = 5000; // for a connection to come up, subscriptions included
    int firstRetryMilliseconds = 250; // doubled after each failure, and until a connection has lasted
    int lastRetryMilliseconds = 5000;
    HostLookUp::Resolve resolve = resolveBySystem;
};

// A link over libmosquitto, MQTT 5. The client object lives as long as one connection: the library
// would send what was waiting when a connection broke on the next one, long after its time.
class BrokerLink : public Link {
public:
    // Throws basic::Error when the address cannot be used, see problemOf, or the client id. Nothing is connected yet.
    explicit BrokerLink(BrokerLinkSettings settings, Clock clock = steadyClock());
    ~BrokerLink() override; // says goodbye, so that no will is sent

    void start(LinkReceiver& receiver, std::vector<std::string> subscriptions) override;
    void setWill(std::string topic, std::string payload) override;
    void poll(int milliseconds) override;
    bool isUp() const override;
    std::string trouble() const override;
    bool publish(const std::string& topic, std::string_view payload, Keep keep, int expireSeconds) override;
    bool isSending() const override;
    bool isOnTheWay() const override;
    void drop(std::string_view reason) override;

    // For event loops: poll(0) when the descriptor can be read, or written while isSending(), and every 100 ms. It
    // changes with each connection; -1 while there is none.
    int descriptor() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace servopanel::mqtt
