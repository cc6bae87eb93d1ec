#pragma once

#include "line_machine/command_check.h"
#include "line_machine/faults.h"
#include "machine/variable_store.h"
#include "mqtt/clock.h"
#include "mqtt/link.h"
#include "mqtt/messages.h"
#include "mqtt/topics.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::line_machine {

struct ControllerSettings {
    std::string machine; // designation
    std::int64_t epoch = 0; // of the first start, milliseconds since 1970
    int heartbeatMilliseconds = 500;
    int valueMilliseconds = 200; // between two messages of one variable, but for commands
    bool faults = false; // whether pm/v1/<machine>/fault exists
};

// The controller's side of the contract: describes the machine, sends what changes, answers commands after checking
// them. It acts on a store whose variables somebody else moves. One command is worked on at a time.
class Controller : private mqtt::LinkReceiver {
public:
    // Starts the link. Store and link live at least as long.
    Controller(ControllerSettings settings, mqtt::Description description, machine::VariableStore& store,
        mqtt::Link& link, mqtt::Clock clock = mqtt::steadyClock());
    ~Controller() override;
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    // Receives, and sends what is due. To be called every 50 ms at least.
    void poll(int milliseconds);

    // Says that the machine goes, before the end of the link.
    void goodbye();

    // As pm/v1/<machine>/fault orders it, whether that topic exists or not. Throws mqtt::ProtocolError.
    void orderFault(std::string_view payload);

    // A command without its values, which may be long. Times are the controller's.
    struct Seen {
        std::string id;
        std::string name; // of the variable
        std::int16_t level = 0;
        std::int64_t deadline = 0;
        std::int64_t at = 0; // when it came
        std::optional<std::int64_t> writtenAt; // when the variable was written, if it was
        std::optional<mqtt::Outcome> outcome; // whoever was told; nothing when it was left alone
    };
    // The latest commands, oldest first.
    const std::deque<Seen>& seen() const { return seen_; }
    std::int64_t epoch() const { return epoch_; }
    std::int64_t time() const { return clock_() - startedAt_; } // milliseconds of this epoch
    std::vector<std::string> takeProtocolErrors();

private:
    struct Variable {
        std::string name;
        std::int64_t sequence = 0;
        std::int64_t sentAt = 0; // clock
        bool changed = true;
        bool requested = false;
    };
    struct Work {
        mqtt::Command command;
        std::string panel;
        std::int64_t dueAt = 0; // clock
        std::size_t seen = 0; // number among all commands
    };

    void linkUp() override;
    void linkDown(std::string_view reason) override;
    void received(std::string_view topic, std::string_view payload, bool retained) override;

    void begin(std::int64_t epoch);
    void sendState(bool up);
    void putStateRight();
    void sendValue(std::size_t variable);
    void sendDue();
    void sendDue(Variable& variable, std::size_t index);
    void sendHeartbeat();
    void takeGet(std::string_view topic, std::string_view payload);
    void takeCommand(const std::string& panel, mqtt::Command command);
    void carryOut(const Work& work);
    Verdict judgeAndWrite(const Work& work);
    Seen* seenOf(const Work& work);
    void note(const Work& work, mqtt::Outcome outcome);
    void answer(const Work& work, const Verdict& verdict);
    void makeFaults();
    bool isAbsent(std::string_view name) const;
    std::string topic(std::string_view kind, std::string_view of = {}) const;
    void publish(
        const std::string& topic, std::string_view payload, mqtt::Link::Keep keep = mqtt::Link::Keep::No);

    ControllerSettings settings_;
    mqtt::Description description_;
    machine::VariableStore& store_;
    mqtt::Link& link_;
    mqtt::Clock clock_;
    machine::VariableStore::ListenerId listener_ = 0;
    Faults faults_;
    std::int64_t epoch_ = 0;
    std::int64_t startedAt_ = 0; // clock
    std::vector<Variable> variables_; // as in the description
    std::size_t next_ = 0; // variable to begin with, so that a slow connection serves all in turn
    bool owesHeartbeat_ = false; // after the requested values
    std::int64_t heartbeatAt_ = 0; // clock
    bool stateIsWrong_ = false; // somebody else has written it
    std::int64_t putRightAt_ = 0; // clock
    std::vector<Work> work_; // none or one
    std::deque<Seen> seen_;
    std::size_t commands_ = 0;
    std::vector<std::string> protocolErrors_;
};

} // namespace servopanel::line_machine
