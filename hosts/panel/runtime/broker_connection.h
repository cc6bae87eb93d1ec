#pragma once

#include "mqtt/broker_variables.h"
#include "panel/runtime/broker_settings.h"
#include "platform/process_var_access.h"

#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::panel {

// The panel's way to its machines over a broker. It is polled from the event loop; everything it holds belongs to the
// thread of the panel.
class BrokerConnection {
public:
    // panel: its name, which no other panel of the broker has.
    BrokerConnection(const BrokerSettings& settings, const std::string& panel);
    BrokerConnection(const BrokerConnection&) = delete;
    BrokerConnection& operator=(const BrokerConnection&) = delete;

    // own: what describes this panel and stays with it.
    std::shared_ptr<platform::ProcessVarAccess> variables(std::shared_ptr<platform::ProcessVarAccess> own);

    // polled: called after each turn, when link and values may be others.
    void start(std::function<void()> polled);

    // Follows the machine of this designation alone: a line has many, and a panel should not pay for those that it does
    // not show. False when it does so already.
    bool show(const std::string& machine);

    // For a start with values on the screen: polls until the machine is there and has sent all its variables, so many
    // milliseconds at most.
    void waitFor(std::string_view machine, int milliseconds);

    // What keeps the shown machine's values from being good, one sentence for the list of reports; empty: nothing.
    std::string trouble() const { return machines_->troubleOf(shown_); }
    std::int64_t now() const { return clock_(); } // milliseconds
    // What was wrong with messages and with the connection itself since the last call.
    std::vector<std::string> takeProblems();

    void setLevel(std::int16_t level) { machines_->setLevel(level); }
    // Called once in a confirm that takes so long that the operator has to be told. It must not let events run: the
    // library is in the middle of writing.
    void setSlowHandler(std::function<void()> slow) { slow_ = std::move(slow); }
    // The confirm key is about to act, and has acted.
    void confirmBegins();
    void confirmEnds() { confirm_.reset(); }

private:
    void poll(int milliseconds);
    void waits();

    std::unique_ptr<mqtt::Link> link_;
    mqtt::Clock clock_;
    std::shared_ptr<mqtt::BrokerVariables> machines_;
    std::string shown_; // designation
    std::unique_ptr<mqtt::BrokerVariables::ConfirmScope> confirm_;
    std::int64_t confirmBegan_ = 0;
    bool isSlow_ = false; // the present confirm, and it was told
    std::function<void()> slow_;
    std::vector<std::string> problems_;
    QTimer timer_;
};

} // namespace servopanel::panel
