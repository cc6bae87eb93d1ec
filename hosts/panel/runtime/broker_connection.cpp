#include "panel/runtime/broker_connection.h"

#include "basic/error.h"
#include "machine/split_variables.h"

#include <exception>
#include <iterator>
#include <utility>

namespace servopanel::panel {

namespace {
// Values come a few times a second, and whoever writes polls by itself.
constexpr int periodMilliseconds = 50;
constexpr int slowMilliseconds = 200; // what nobody takes for a panel that hangs
} // namespace

BrokerConnection::BrokerConnection(const BrokerSettings& settings, const std::string& panel)
    : link_{settings.makeLink()}
    , clock_{settings.clock}
    , machines_{std::make_shared<mqtt::BrokerVariables>(
          mqtt::BrokerVariablesSettings{
              .panel = panel, .machines = {}, .viewing = settings.viewing, .waiting = [this] { waits(); }},
          *link_, settings.clock)}
{
}

std::shared_ptr<platform::ProcessVarAccess> BrokerConnection::variables(
    std::shared_ptr<platform::ProcessVarAccess> own)
{
    return std::make_shared<machine::SplitVariables>(std::move(own), machines_);
}

void BrokerConnection::start(std::function<void()> polled)
{
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, polled = std::move(polled)] {
        poll(0);
        polled();
    });
    timer_.start(periodMilliseconds);
}

bool BrokerConnection::show(const std::string& machine)
{
    if (machine == shown_) return false;
    shown_ = machine;
    machines_->follow(machine.empty() ? std::vector<std::string>{} : std::vector{machine});
    return true;
}

void BrokerConnection::waitFor(std::string_view machine, int milliseconds)
{
    const std::int64_t end = clock_() + milliseconds;
    while (!(machines_->isLive(machine) && machines_->hasValues(machine)) && clock_() < end)
        poll(periodMilliseconds);
}

// What goes wrong while messages are taken in ends the connection, and must not end the panel.
void BrokerConnection::poll(int milliseconds)
try {
    machines_->poll(milliseconds);
} catch (const basic::Error& error) {
    problems_.push_back(error.description);
} catch (const std::exception& error) {
    problems_.emplace_back(error.what());
}

std::vector<std::string> BrokerConnection::takeProblems()
{
    std::vector<std::string> problems = machines_->takeProtocolErrors();
    std::move(problems_.begin(), problems_.end(), std::back_inserter(problems));
    problems_.clear();
    return problems;
}

void BrokerConnection::confirmBegins()
{
    using Scope = mqtt::BrokerVariables::ConfirmScope;
    confirm_ = std::unique_ptr<Scope>{new Scope{machines_->confirm()}};
    confirmBegan_ = clock_();
    isSlow_ = false;
}

void BrokerConnection::waits()
{
    if (!confirm_ || isSlow_ || clock_() - confirmBegan_ < slowMilliseconds) return;
    isSlow_ = true;
    if (slow_) slow_();
}

} // namespace servopanel::panel
