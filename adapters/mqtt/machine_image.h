#pragma once

#include "mqtt/messages.h"
#include "mqtt/topics.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::mqtt {

// What a panel knows of one machine: its description and its values, and how far they can be trusted. Fed with what the
// broker brings; asks nobody and knows no clock. "now" is the panel's time in milliseconds.
class MachineImage {
public:
    // heartbeatLimit: milliseconds after which the latest heartbeat is too old and all values are stale.
    MachineImage(std::string machine, std::int64_t heartbeatLimit);

    const std::string& machine() const { return machine_; }

    void linkUp();
    void linkDown(std::string_view reason);
    // Takes state, desc, val and hb of this machine. Throws ProtocolError; the message then counts as never received.
    void receive(const Topic& topic, std::string_view payload, bool retained, std::int64_t now);
    // What an ack read back. The qualities stay what they were.
    void takeReadBack(std::size_t variable, Value value);

    struct Trouble {
        Outcome outcome; // NoConnection, Stale, Absent or Bad
        std::string reason;
    };
    // What makes everything of this machine stale; nothing while its heartbeat is good.
    std::optional<Trouble> trouble(std::int64_t now) const;
    // What keeps a variable from being read.
    std::optional<Trouble> trouble(std::size_t variable, std::int64_t now) const;

    // Nothing before the first description has come.
    const Description* description() const { return description_ ? &*description_ : nullptr; }
    // The latest value received in this epoch, however old; nullptr when there is none. Variables are counted as in the
    // description; one that a new description no longer has is no mistake.
    const Value* held(std::size_t variable) const;
    std::int64_t epoch() const { return state_ ? state_->epoch : 0; }
    // The controller's time at least, from its latest heartbeat; never later than it really is.
    std::int64_t machineTime(std::int64_t now) const;

    // What should be asked for, because the connection or the epoch is new or something was lost; nothing when all is
    // there. Asked for again when the next heartbeat shows that it did not come.
    std::optional<Get> takeWish();

private:
    struct Variable {
        std::optional<Value> value; // of this epoch
        bool current =
            false; // confirmed on this connection, by itself or by a heartbeat, and nothing newer is known
    };

    void takeState(const State& state);
    void takePart(DescriptionPart part);
    void takeValue(const Topic& topic, std::string_view payload);
    void takeHeartbeat(Heartbeat heartbeat, std::int64_t now);
    void compareSequences(const Heartbeat& heartbeat);
    void measureDelay(std::int64_t time, std::int64_t now);
    // How long ago the controller made its latest heartbeat, at least.
    std::int64_t heartbeatAge(std::int64_t now) const;
    void assemble();
    void forgetValues();
    void store(std::size_t variable, Value value);

    std::string machine_;
    std::int64_t heartbeatLimit_;
    bool linkUp_ = false;
    std::string linkTrouble_;
    std::optional<State> state_;
    std::map<std::size_t, DescriptionPart> parts_;
    std::string describedHash_;
    std::optional<Description> description_;
    std::vector<Variable> variables_; // as in the description
    std::optional<Heartbeat> heartbeat_; // the latest
    bool beats_ = false; // heartbeat_ came on this connection
    std::int64_t heartbeatAt_ = 0; // panel's time
    // Panel's time less controller's time of the heartbeat that was on its way for the shortest time, on this connection
    // and in this epoch, and when that came.
    std::optional<std::int64_t> leastOffset_;
    std::int64_t leastOffsetAt_ = 0;
    bool wantsAll_ = false;
    std::set<std::size_t> wants_;
};

} // namespace servopanel::mqtt
