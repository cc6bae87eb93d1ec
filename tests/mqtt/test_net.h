#pragma once

#include "mqtt/link.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::testing {

class TestLink;

// A broker in memory with a clock that moves only while somebody waits. Messages arrive in the order in which they were
// published.
struct TestNet {
    std::int64_t now = 1000; // milliseconds
    std::function<void()> others; // what the rest of the world does while somebody waits
    std::function<bool(const std::string& topic)> loses; // messages that never arrive
    std::map<std::string, std::string> retained;
    std::vector<TestLink*> links;
    bool waiting = false; // others are at work: nobody waits within them

    void route(const std::string& topic, std::string_view payload, mqtt::Link::Keep keep);
};

class TestLink : public mqtt::Link {
public:
    explicit TestLink(TestNet& net);
    ~TestLink() override;

    void start(mqtt::LinkReceiver& receiver, std::vector<std::string> subscriptions) override;
    void setWill(std::string topic, std::string payload) override;
    void poll(int milliseconds) override;
    bool isUp() const override { return up_; }
    bool publish(const std::string& topic, std::string_view payload, Keep keep, int expireSeconds) override;
    bool isSending() const override { return stuck; }
    void drop(std::string_view reason) override;

    // Takes a message in when it is subscribed.
    void offer(const std::string& topic, std::string_view payload, bool retained);

    bool reachable = true; // comes up with the next poll
    bool refusesMessages = false; // which are at fault themselves
    bool stuck = false; // takes messages and sends none
    std::vector<std::string> published; // topics
    int shortestWait = 0; // that poll was called with, milliseconds

private:
    struct Message {
        std::string topic;
        std::string payload;
        bool retained = false;
    };

    TestNet& net_;
    mqtt::LinkReceiver* receiver_ = nullptr;
    std::vector<std::string> subscriptions_;
    std::string willTopic_;
    std::string will_;
    std::pair<std::string, std::string> connectedWill_; // as the connection knows it
    std::deque<Message> inbox_;
    bool up_ = false;
};

} // namespace servopanel::testing
