#pragma once

#include "mqtt/clock.h"
#include "mqtt/link.h"
#include "mqtt/machine_image.h"
#include "mqtt/outcome.h"
#include "platform/process_var_access.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::mqtt {

struct BrokerVariablesSettings {
    std::string panel; // name of this panel, its own among all panels of the broker
    std::vector<std::string> machines; // designations, see follow
    bool viewing = false; // this panel only looks on: every write is ReadOnly and nothing is sent
    int answerMilliseconds = 1000; // what a write takes at most
    int heartbeatMilliseconds = 1500; // after so long without one all values are stale
    int snapshotMilliseconds = 1000; // between two requests for lost values
    // Called again and again while a write waits for its answer. It must not come back here; may be empty.
    std::function<void()> waiting = {};
};

// The process variables of machines behind a broker. A read is answered from a local image; a write waits for the
// machine's answer. Errors are basic::Errors whose number is an Outcome; they name the variable.
//
// The owner polls: from the event loop, and by any call of poll while it waits for something itself. WriteValue polls
// too; nothing but this image is touched meanwhile, so nobody is entered again.
class BrokerVariables : public platform::ProcessVarAccess, private LinkReceiver {
public:
    // Starts the link. The link lives at least as long. Throws basic::Error when the panel or a machine has no name.
    BrokerVariables(BrokerVariablesSettings settings, Link& link, Clock clock = steadyClock());
    ~BrokerVariables() override = default;
    BrokerVariables(const BrokerVariables&) = delete;
    BrokerVariables& operator=(const BrokerVariables&) = delete;

    // From now on these machines instead of those so far. Nothing that another machine publishes comes here, and so it
    // costs nothing. Where they differ the connection begins anew. Throws basic::Error when a machine has no name. Not
    // during a write.
    void follow(const std::vector<std::string>& machines);

    void poll(int milliseconds);

    // Fails with NoConnection, Stale, Bad or UnknownName. What it gives is what the next write of this variable expects
    // the machine to hold still.
    basic::Variant ReadValue(std::string_view name) override;

    // Returns when the machine has confirmed and what it read back is equal. Sent once, only on a live connection with
    // a good heartbeat and, but for a signal, when the value there is good; the machine does nothing after the deadline.
    // A signal is done when the machine says so, whatever it holds then. Fails with an Outcome; see isRefused, isUnknown.
    void WriteValue(std::string_view name, const basic::Variant& value) override;

    // The writes of one confirm. While it lives, the first of them that is not answered makes the rest fail at once, so
    // that a dead connection costs one waiting time. One within another belongs to that. Ends before the variables do.
    class [[nodiscard]] ConfirmScope {
    public:
        ConfirmScope(const ConfirmScope&) = delete;
        ConfirmScope& operator=(const ConfirmScope&) = delete;
        ~ConfirmScope();

    private:
        friend class BrokerVariables;
        explicit ConfirmScope(BrokerVariables& variables);
        BrokerVariables& variables_;
    };
    ConfirmScope confirm() { return ConfirmScope{*this}; }

    // The user's access level, which goes with every command. 0 at first; a negative one is 0, which opens least.
    void setLevel(std::int16_t level) { level_ = std::max<std::int16_t>(level, 0); }

    // How far a value can be trusted, without reading it.
    struct Standing {
        Quality quality = Quality::Good;
        Outcome outcome = Outcome::Done; // why it is not good
        std::string reason; // English, empty when good
        std::vector<Quality> elements; // of an array of which some elements are good; else empty
    };
    Standing standing(std::string_view name) const;
    // Whether the machine's heartbeat is good; nothing is written otherwise. False for a machine that is not ours.
    bool isLive(std::string_view machine) const;
    // Why it is not, one sentence; empty when it is.
    std::string troubleOf(std::string_view machine) const;

    // What the machine told of its variables: nullptr before that, and for a machine that is not ours. Until the next poll.
    const Description* description(std::string_view machine) const;
    // The controller's start, milliseconds since 1970; 0 before it has told it.
    std::int64_t epoch(std::string_view machine) const;
    // Whether the machine has sent every variable that it describes, good or not.
    bool hasValues(std::string_view machine) const;

    // Messages that did not follow the protocol since the last call, the latest few.
    std::vector<std::string> takeProtocolErrors();

private:
    struct Place {
        MachineImage* image = nullptr;
        std::size_t variable = 0;
    };

    void begin(const std::vector<std::string>& machines);
    void linkUp() override;
    void linkDown(std::string_view reason) override;
    void received(std::string_view topic, std::string_view payload, bool retained) override;

    Place find(std::string_view name) const;
    MachineImage* imageOf(std::string_view machine) const;
    void takeAck(const Topic& topic, std::string_view payload);
    void askForLost();
    struct Read {
        basic::Variant value;
        std::int64_t epoch = 0;
    };
    void send(const Place& place, const VariableDescription& description, const basic::Variant& value);
    struct Deadline {
        std::int64_t epoch = 0; // in which the command was sent
        std::int64_t time = 0; // of the controller
    };
    Read takeExpected(const Place& place, const VariableDescription& description);
    void waitForAnswer(std::int64_t until);
    void pollWhileWaiting(std::int64_t until);
    std::optional<basic::Variant> readAgain(const Place& place, const VariableDescription& description,
        const Deadline& deadline, std::int64_t until);
    void conclude(const Place& place, const VariableDescription& description, const basic::Variant& value);

    BrokerVariablesSettings settings_;
    Link& link_;
    Clock clock_;
    std::vector<std::unique_ptr<MachineImage>> images_;
    std::map<std::string, std::int64_t> askedAt_; // by machine
    std::map<std::string, Read, std::less<>> lastRead_; // since the last write of that variable
    std::string session_; // start of all ids
    std::int64_t commands_ = 0;
    struct Awaited {
        std::string id;
        std::string machine;
        std::int64_t epoch = 0;
    };
    std::optional<Awaited> awaited_; // the command under way
    std::optional<Ack> answer_; // to it
    std::int64_t brokenLinks_ = 0;
    int confirms_ = 0; // within each other
    bool gaveUp_ = false; // a write of the present confirm was not answered
    std::int16_t level_ = 0;
    std::vector<std::string> protocolErrors_;
};

} // namespace servopanel::mqtt
