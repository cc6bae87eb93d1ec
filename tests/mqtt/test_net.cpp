#include "mqtt/test_net.h"

#include <algorithm>
#include <utility>

namespace servopanel::testing {

namespace {

constexpr int longestWait = 10; // milliseconds, then others have their turn

bool matches(std::string_view filter, std::string_view topic)
{
    if (!filter.ends_with("/+")) return filter == topic;
    filter.remove_suffix(1);
    return topic.starts_with(filter) && topic.find('/', filter.size()) == std::string_view::npos;
}

} // namespace

void TestNet::route(const std::string& topic, std::string_view payload, mqtt::Link::Keep keep)
{
    if (loses && loses(topic)) return;
    if (keep == mqtt::Link::Keep::Retained) retained[topic] = payload;
    for (TestLink* link : links)
        link->offer(topic, payload, false);
}

TestLink::TestLink(TestNet& net)
    : net_{net}
{
    net_.links.push_back(this);
}

TestLink::~TestLink() { std::erase(net_.links, this); }

void TestLink::start(mqtt::LinkReceiver& receiver, std::vector<std::string> subscriptions)
{
    drop("other topics are wanted");
    receiver_ = &receiver;
    subscriptions_ = std::move(subscriptions);
}

void TestLink::setWill(std::string topic, std::string payload)
{
    willTopic_ = std::move(topic);
    will_ = std::move(payload);
}

void TestLink::poll(int milliseconds)
{
    shortestWait = std::min(shortestWait, milliseconds);
    if (!up_ && reachable) {
        up_ = true;
        connectedWill_ = {willTopic_, will_};
        for (const auto& [topic, payload] : net_.retained)
            offer(topic, payload, true);
        receiver_->linkUp();
    }
    if (inbox_.empty() && milliseconds > 0 && !net_.waiting) {
        net_.now += std::min(milliseconds, longestWait);
        net_.waiting = true;
        if (net_.others) net_.others();
        net_.waiting = false;
    }
    while (!inbox_.empty()) {
        const Message message = std::move(inbox_.front());
        inbox_.pop_front();
        receiver_->received(message.topic, message.payload, message.retained);
    }
}

bool TestLink::publish(const std::string& topic, std::string_view payload, Keep keep, int)
{
    if (!up_ || refusesMessages) return false;
    published.push_back(topic);
    if (!stuck) net_.route(topic, payload, keep);
    return true;
}

void TestLink::drop(std::string_view reason)
{
    if (!std::exchange(up_, false)) return;
    inbox_.clear();
    stuck = false;
    receiver_->linkDown(reason);
    if (!connectedWill_.first.empty())
        net_.route(connectedWill_.first, connectedWill_.second, Keep::Retained);
}

void TestLink::offer(const std::string& topic, std::string_view payload, bool isRetained)
{
    const bool subscribed = std::any_of(subscriptions_.begin(), subscriptions_.end(),
        [&](const std::string& filter) { return matches(filter, topic); });
    if (up_ && subscribed) inbox_.push_back({topic, std::string{payload}, isRetained});
}

} // namespace servopanel::testing
