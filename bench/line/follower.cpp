#include "follower.h"

#include "stopwatch.h"

#include <algorithm>
#include <stdexcept>

namespace servopanel::bench {

namespace {

mqtt::BrokerAddress addressOf(const std::filesystem::path& socket)
{
    mqtt::BrokerAddress address;
    address.socket = socket;
    return address;
}

struct Counter : mqtt::LinkReceiver {
    void linkUp() override { }
    void linkDown(std::string_view reason) override { throw std::runtime_error{std::string{reason}}; }
    void received(std::string_view, std::string_view, bool) override { ++messages; }

    int messages = 0;
};

// Connected from the beginning.
struct Listener {
    Listener(const std::filesystem::path& socket, const std::string& topics, Counter& counter)
        : link{{.address = addressOf(socket), .client = "listener"}}
    {
        link.start(counter, {topics});
        for (const Stopwatch watch; !link.isUp(); link.poll(20))
            watch.failAfterLong("the broker does not answer");
    }

    mqtt::BrokerLink link;
};

} // namespace

Follower::Follower(const std::filesystem::path& socket, const std::vector<std::string>& machines)
    : link_{{.address = addressOf(socket), .client = "follower"}}
    , machines_{machines}
    , variables{{.panel = "follower", .machines = machines}, link_}
{
}

void Follower::waitForAll()
{
    const Stopwatch watch;
    const auto areLive = [this] {
        return std::all_of(machines_.begin(), machines_.end(),
            [this](const std::string& machine) { return variables.isLive(machine); });
    };
    while (!areLive()) {
        watch.failAfterLong("the machines do not come up");
        variables.poll(20);
    }
}

void Follower::waitUntilGood(const std::string& variable)
{
    const Stopwatch watch;
    while (variables.standing(variable).quality != mqtt::Quality::Good) {
        watch.failAfterLong(variable + " is not good");
        variables.poll(1);
    }
}

void Follower::follow(double seconds)
{
    for (const Stopwatch watch; watch.seconds() < seconds;)
        variables.poll(20);
}

double valuesPerSecond(const std::filesystem::path& socket, double seconds)
{
    Counter values;
    Listener listener{socket, "pm/v1/+/val/+", values};
    values.messages = 0;
    const Stopwatch watch;
    while (watch.seconds() < seconds)
        listener.link.poll(20);
    return values.messages / watch.seconds();
}

std::vector<double> timesToTheBrokerAndBack(
    const std::filesystem::path& socket, int messages, std::size_t bytes)
{
    Counter echoes;
    Listener listener{socket, "bench/echo", echoes};
    const std::string payload(bytes, 'x');
    std::vector<double> times;
    for (int i = 1; i <= messages; ++i) {
        const Stopwatch watch;
        if (!listener.link.publish("bench/echo", payload, mqtt::Link::Keep::No, 0))
            throw std::runtime_error{"the broker takes no message"};
        for (; echoes.messages < i; listener.link.poll(20))
            watch.failAfterLong("the broker sends nothing back");
        times.push_back(watch.seconds() * 1000);
    }
    listener.link.poll(100);
    if (echoes.messages != messages) throw std::runtime_error{"other messages came than were sent"};
    return times;
}

} // namespace servopanel::bench
