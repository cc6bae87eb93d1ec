#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace servopanel::mqtt {

// What a link brings in, from within poll; linkDown also from within drop and start, in the midst of what called them.
class LinkReceiver {
public:
    virtual ~LinkReceiver() = default;
    virtual void linkUp() = 0; // all subscriptions are in force
    virtual void linkDown(std::string_view reason) = 0;
    virtual void received(std::string_view topic, std::string_view payload, bool retained) = 0;
};

// A connection to a broker that somebody polls. It comes back by itself; what was not sent when it broke is never sent.
class Link {
public:
    virtual ~Link() = default;

    // Before the first poll. The receiver lives as long as the link is polled. Again for other subscriptions: what comes by
    // the old connection does not come any more, and the next poll begins a new one.
    virtual void start(LinkReceiver& receiver, std::vector<std::string> subscriptions) = 0;

    // What the broker says, retained, when this client is gone without a goodbye. From the next connection on.
    virtual void setWill(std::string topic, std::string payload) = 0;

    // Does what there is to do, and waits for at most so long when there is nothing; not at all for 0 and less. What the
    // receiver throws ends the connection and comes out here.
    virtual void poll(int milliseconds) = 0;
    virtual bool isUp() const = 0;
    // Why there is no connection, one sentence; empty when there is one or none was tried.
    virtual std::string trouble() const { return {}; }

    enum class Keep { No, Retained };
    // At most once. False when it was not given to the connection; where that is still up, no message may be like this
    // one. Not sent after so many seconds, 0: whenever.
    virtual bool publish(
        const std::string& topic, std::string_view payload, Keep keep, int expireSeconds = 0) = 0;
    // Whether something published has not left this process yet.
    virtual bool isSending() const = 0;
    // Whether something published may not have reached the broker's computer yet.
    virtual bool isOnTheWay() const { return isSending(); }
    // Breaks the connection, and with it whatever is still being sent.
    virtual void drop(std::string_view reason) = 0;
};

} // namespace servopanel::mqtt
