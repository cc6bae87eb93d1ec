#include "mqtt/broker_link.h"
#include "mqtt/host_look_up.h"
#include "mqtt/mosquitto_process.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>

namespace servopanel::testing {

namespace {

constexpr int longestWait = 20'000; // milliseconds, of a test that fails

// A name server that answers when it is told to, which may be after everybody has gone.
struct NameServer {
    std::promise<std::string> answer;
    std::shared_future<std::string> told = answer.get_future().share();
    std::shared_ptr<std::atomic<int>> questions = std::make_shared<std::atomic<int>>(0);

    mqtt::HostLookUp::Resolve resolve() const
    {
        return [told = told, questions = questions](const std::string& host) {
            ++*questions;
            return std::string{told.get()}.append(host);
        };
    }
};

struct Receiver : mqtt::LinkReceiver {
    void linkUp() override { }
    void linkDown(std::string_view) override { }
    void received(std::string_view, std::string_view, bool) override { }
};

} // namespace

TEST(HostLookUp, HoldsNobodyUp)
{
    NameServer server;
    mqtt::HostLookUp lookUp{"broker", server.resolve()};
    EXPECT_FALSE(lookUp.poll(0));
    EXPECT_FALSE(lookUp.poll(1));
    server.answer.set_value("no such ");
    EXPECT_EQ(lookUp.poll(longestWait), "no such broker");
    EXPECT_EQ(*server.questions, 1);
    EXPECT_EQ(lookUp.poll(longestWait), "no such broker");
    EXPECT_EQ(*server.questions, 2) << "the network may have come back meanwhile";
}

TEST(HostLookUp, AsksNobodyForAnAddress)
{
    NameServer server;
    for (const char* const host : {"127.0.0.1", "192.168.7.1", "::1", ""})
        EXPECT_EQ(mqtt::HostLookUp(host, server.resolve()).poll(0), "") << host;
    EXPECT_EQ(*server.questions, 0);
}

TEST(HostLookUp, KnowsWhatTheSystemKnows)
{
    EXPECT_EQ(mqtt::HostLookUp{"localhost"}.poll(longestWait), "");
    // Not a name at all, so that no server is asked either.
    const auto problem = mqtt::HostLookUp{"no name"}.poll(longestWait);
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->starts_with("the host's name has no address: ")) << *problem;
}

TEST(HostLookUp, OfALinkHoldsNobodyUpEither)
{
    MosquittoProcess broker;
    ASSERT_TRUE(broker.start());
    mqtt::BrokerAddress address = broker.address();
    address.host = "localhost";
    NameServer server;
    Receiver receiver;
    mqtt::BrokerLink link{
        {.address = address, .client = "a", .resolve = [resolve = server.resolve()](const std::string& host) {
             resolve(host);
             return std::string{};
         }}};
    link.start(receiver, {"x"});
    for (int i = 0; i < 3; ++i)
        link.poll(1);
    EXPECT_FALSE(link.isUp());
    EXPECT_EQ(link.trouble(), address.text() + ": waiting for the address of this host");
    server.answer.set_value("");
    const mqtt::Clock clock = mqtt::steadyClock();
    for (const std::int64_t end = clock() + longestWait; !link.isUp() && clock() < end;)
        link.poll(5);
    EXPECT_TRUE(link.isUp()) << link.trouble();
    EXPECT_EQ(link.trouble(), "");
    EXPECT_EQ(*server.questions, 1);
}

TEST(HostLookUp, OfALinkThatFailsIsToldAndTriedAgain)
{
    std::int64_t now = 0;
    NameServer server;
    server.answer.set_value("no such ");
    mqtt::BrokerAddress address;
    address.host = "localhost";
    Receiver receiver;
    mqtt::BrokerLink link{
        {.address = address, .client = "a", .firstRetryMilliseconds = 100, .resolve = server.resolve()},
        [&] { return now; }};
    link.start(receiver, {"x"});
    link.poll(longestWait);
    EXPECT_EQ(link.trouble(), "localhost:1883: no such localhost");
    link.poll(0);
    now = 99;
    link.poll(0);
    EXPECT_EQ(*server.questions, 1);
    now = 100;
    link.poll(longestWait);
    EXPECT_EQ(*server.questions, 2);
}

TEST(HostLookUp, MayEndAfterWhoeverAsked)
{
    NameServer server;
    mqtt::BrokerAddress address;
    address.host = "localhost";
    auto link = std::make_unique<mqtt::BrokerLink>(
        mqtt::BrokerLinkSettings{.address = address, .client = "a", .resolve = server.resolve()});
    Receiver receiver;
    link->start(receiver, {"x"});
    link->poll(0);
    link.reset();
    server.answer.set_value("");
    // Whoever asks the server holds what it counts in, and lets go at its end.
    const mqtt::Clock clock = mqtt::steadyClock();
    const std::int64_t end = clock() + longestWait;
    while (server.questions.use_count() > 1 && clock() < end)
        std::this_thread::yield();
    EXPECT_EQ(server.questions.use_count(), 1);
    EXPECT_EQ(*server.questions, 1);
}

} // namespace servopanel::testing
