#include "panel/runtime/broker_connection.h"

#include "machine/split_variables.h"

#include <utility>

namespace servopanel::panel {

namespace {
// Values come a few times a second, and whoever writes polls by itself.
constexpr int periodMilliseconds = 50;
} // namespace

BrokerConnection::BrokerConnection(const BrokerSettings& settings, const std::vector<std::string>& machines)
    : link_{settings.makeLink()}
    , clock_{settings.clock}
    , machines_{std::make_shared<mqtt::BrokerVariables>(
          mqtt::BrokerVariablesSettings{.panel = settings.panel, .machines = machines}, *link_,
          settings.clock)}
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
        machines_->poll(0);
        polled();
    });
    timer_.start(periodMilliseconds);
}

void BrokerConnection::waitFor(std::string_view machine, int milliseconds)
{
    const std::int64_t end = clock_() + milliseconds;
    while (!machines_->isLive(machine) && clock_() < end)
        machines_->poll(periodMilliseconds);
}

void BrokerConnection::confirmBegins()
{
    using Scope = mqtt::BrokerVariables::ConfirmScope;
    confirm_ = std::unique_ptr<Scope>{new Scope{machines_->confirm()}};
}

} // namespace servopanel::panel
