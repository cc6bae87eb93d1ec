#include "mqtt/broker_link.h"

#include "basic/error.h"
#include "line_machine/controller.h"
#include "mqtt/broker_variables.h"
#include "mqtt/machine_fixture.h"
#include "mqtt/mosquitto_process.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::testing {

namespace {

struct Receiver : mqtt::LinkReceiver {
    void linkUp() override { ++ups; }
    void linkDown(std::string_view reason) override { downs.emplace_back(reason); }
    void received(std::string_view topic, std::string_view payload, bool retained) override
    {
        messages.push_back(
            std::string{topic}.append("=").append(payload).append(retained ? " retained" : ""));
    }

    int ups = 0;
    std::vector<std::string> downs;
    std::vector<std::string> messages;
};

struct Client {
    Client(
        const mqtt::BrokerAddress& address, const std::string& name, std::vector<std::string> subscriptions)
        : link{
            {.address = address, .client = name, .firstRetryMilliseconds = 20, .lastRetryMilliseconds = 40}}
    {
        link.start(receiver, std::move(subscriptions));
    }

    Receiver receiver;
    mqtt::BrokerLink link;
};

const mqtt::Clock clock = mqtt::steadyClock();
constexpr std::int64_t longestWait = 20'000; // milliseconds, of a test that fails

bool until(const std::function<bool()>& condition, const std::vector<mqtt::Link*>& links)
{
    const std::int64_t end = clock() + longestWait;
    while (!condition()) {
        if (clock() > end) return false;
        for (mqtt::Link* link : links)
            link->poll(2);
    }
    return true;
}

} // namespace

class BrokerLinks : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(broker.start()); }
    MosquittoProcess broker;
};

TEST_F(BrokerLinks, CarryMessages)
{
    Client first{broker.address(), "a", {"to/a"}};
    Client second{broker.socketAddress(), "b", {"to/+"}};
    ASSERT_TRUE(until([&] { return first.link.isUp() && second.link.isUp(); }, {&first.link, &second.link}))
        << first.link.trouble() << second.link.trouble();
    EXPECT_GE(first.link.descriptor(), 0);
    ASSERT_TRUE(first.link.publish("to/b", "1", mqtt::Link::Keep::No, 1));
    ASSERT_TRUE(first.link.publish("to/c", "2", mqtt::Link::Keep::Retained, 0));
    ASSERT_TRUE(second.link.publish("to/a", "3", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(
        until([&] { return first.receiver.messages.size() == 1 && second.receiver.messages.size() == 3; },
            {&first.link, &second.link}));
    EXPECT_EQ(first.receiver.messages, (std::vector<std::string>{"to/a=3"}));

    Client third{broker.address(), "c", {"to/c"}};
    ASSERT_TRUE(until([&] { return !third.receiver.messages.empty(); }, {&third.link}));
    EXPECT_EQ(third.receiver.messages.front(), "to/c=2 retained");
}

TEST_F(BrokerLinks, TakeOtherSubscriptionsWithoutWaiting)
{
    mqtt::BrokerLink link{{.address = broker.address(), .client = "a", .firstRetryMilliseconds = 1'000'000}};
    Receiver before;
    link.start(before, {"to/a"});
    Client sender{broker.address(), "b", {}};
    ASSERT_TRUE(until([&] { return link.isUp() && sender.link.isUp(); }, {&link, &sender.link}));

    Receiver after;
    link.start(after, {"to/b"});
    EXPECT_FALSE(link.isUp());
    EXPECT_EQ(before.downs.size(), 1U);
    ASSERT_TRUE(until([&] { return link.isUp(); }, {&link, &sender.link})) << link.trouble();
    ASSERT_TRUE(sender.link.publish("to/a", "1", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(sender.link.publish("to/b", "2", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(until([&] { return !after.messages.empty(); }, {&link, &sender.link}));
    EXPECT_EQ(after.messages, (std::vector<std::string>{"to/b=2"}));
    EXPECT_TRUE(before.messages.empty());
    EXPECT_TRUE(after.downs.empty());
}

namespace {
volatile std::sig_atomic_t waitedForEver = 0;
}

TEST_F(BrokerLinks, DoNotWaitForLessThanNothing)
{
    Client silent{broker.address(), "a", {"to/a"}};
    silent.link.poll(-20); // while there is no connection, too
    ASSERT_TRUE(until([&] { return silent.link.isUp(); }, {&silent.link}));
    constexpr unsigned mostSeconds = 5; // of a test that fails
    struct sigaction before { };
    struct sigaction wake { };
    wake.sa_handler = [](int) { waitedForEver = 1; };
    ASSERT_EQ(::sigaction(SIGALRM, &wake, &before), 0);
    ::alarm(mostSeconds);
    silent.link.poll(-20);
    ::alarm(0);
    ::sigaction(SIGALRM, &before, nullptr);
    EXPECT_EQ(waitedForEver, 0) << "nothing comes that would have ended the waiting";
}

TEST_F(BrokerLinks, TellTheWillOfWhoeverIsGone)
{
    Client watcher{broker.address(), "watcher", {"will/+"}};
    auto quiet = std::make_unique<Client>(broker.address(), "quiet", std::vector<std::string>{});
    Client lost{broker.address(), "lost", {}};
    quiet->link.setWill("will/quiet", "gone");
    lost.link.setWill("will/lost", "gone");
    ASSERT_TRUE(until([&] { return watcher.link.isUp() && quiet->link.isUp() && lost.link.isUp(); },
        {&watcher.link, &quiet->link, &lost.link}));
    quiet.reset(); // says goodbye
    lost.link.drop("pulled out");
    ASSERT_TRUE(until([&] { return !watcher.receiver.messages.empty(); }, {&watcher.link}));
    EXPECT_EQ(watcher.receiver.messages, (std::vector<std::string>{"will/lost=gone"}));
    EXPECT_EQ(lost.receiver.downs.size(), 1U);
}

TEST_F(BrokerLinks, ComeBackWithNothingOfBefore)
{
    Client sender{broker.address(), "a", {}};
    ASSERT_TRUE(until([&] { return sender.link.isUp(); }, {&sender.link}));
    broker.kill();
    // The connection is dead, which nobody has noticed yet: these are taken and must never arrive.
    for (int i = 0; i < 10; ++i)
        sender.link.publish("to/b", "old", mqtt::Link::Keep::No, 0);
    ASSERT_TRUE(until([&] { return !sender.receiver.downs.empty(); }, {&sender.link}));
    EXPECT_FALSE(sender.link.publish("to/b", "old", mqtt::Link::Keep::No, 0));
    EXPECT_EQ(sender.link.trouble().find(broker.address().text()), 0U) << sender.link.trouble();
    EXPECT_EQ(sender.link.trouble().find("Unknown"), std::string::npos) << sender.link.trouble();
    EXPECT_EQ(sender.link.descriptor(), -1);

    ASSERT_TRUE(broker.start());
    Client receiver{broker.address(), "b", {"to/b"}};
    ASSERT_TRUE(until([&] { return receiver.link.isUp(); }, {&receiver.link}));
    ASSERT_TRUE(until([&] { return sender.link.isUp(); }, {&sender.link, &receiver.link}));
    ASSERT_TRUE(sender.link.publish("to/b", "new", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(until([&] { return !receiver.receiver.messages.empty(); }, {&sender.link, &receiver.link}));
    EXPECT_EQ(receiver.receiver.messages, (std::vector<std::string>{"to/b=new"}));
    EXPECT_EQ(sender.receiver.ups, 2);
}

TEST_F(BrokerLinks, OfOneNameDoNotChaseEachOther)
{
    std::int64_t now = 0;
    Receiver receivers[2];
    std::vector<std::unique_ptr<mqtt::BrokerLink>> links;
    for (Receiver& receiver : receivers) {
        links.push_back(
            std::make_unique<mqtt::BrokerLink>(mqtt::BrokerLinkSettings{.address = broker.address(),
                                                   .client = "same",
                                                   .firstRetryMilliseconds = 100,
                                                   .lastRetryMilliseconds = 2000},
                [&] { return now; }));
        links.back()->start(receiver, {"x"});
    }
    for (; now < 10'000; now += 10)
        for (const auto& link : links)
            link->poll(1);
    const int ups = receivers[0].ups + receivers[1].ups;
    EXPECT_GE(ups, 2);
    EXPECT_LE(ups, 20) << "a retry every 100 ms would be 100";
    std::string reasons;
    for (const Receiver& receiver : receivers)
        for (const std::string& reason : receiver.downs)
            reasons += reason + "\n";
    EXPECT_NE(reasons.find("another client has this name"), std::string::npos) << reasons;
    EXPECT_EQ(reasons.find("Unknown"), std::string::npos) << reasons;
}

TEST_F(BrokerLinks, SurviveAMessageThatCannotBe)
{
    Client client{broker.address(), "a", {"to/a"}};
    ASSERT_TRUE(until([&] { return client.link.isUp(); }, {&client.link}));
    for (const char* topic : {"to/\xC2\x85", "to/+", ""})
        EXPECT_FALSE(client.link.publish(topic, "1", mqtt::Link::Keep::No, 0)) << topic;
    ASSERT_TRUE(client.link.publish("to/a", "2", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(until([&] { return !client.receiver.messages.empty(); }, {&client.link}));
    EXPECT_EQ(client.receiver.ups, 1);
    EXPECT_TRUE(client.receiver.downs.empty());
}

TEST_F(BrokerLinks, SurviveAReceiverThatThrows)
{
    struct Choosy : Receiver {
        void received(std::string_view topic, std::string_view payload, bool retained) override
        {
            if (payload == "bad") throw basic::Error{13, "receiver", "no taste for this"};
            Receiver::received(topic, payload, retained);
        }
    } receiver;
    mqtt::BrokerLink link{{.address = broker.address(), .client = "a", .firstRetryMilliseconds = 20}};
    link.start(receiver, {"to/a"});
    Client sender{broker.address(), "b", {}};
    ASSERT_TRUE(until([&] { return link.isUp() && sender.link.isUp(); }, {&link, &sender.link}));
    for (const char* payload : {"good", "bad", "after"})
        ASSERT_TRUE(sender.link.publish("to/a", payload, mqtt::Link::Keep::No, 0));
    std::string thrown;
    try {
        until([] { return false; }, {&link, &sender.link});
    } catch (const basic::Error& error) {
        thrown = error.description;
    }
    EXPECT_EQ(thrown, "no taste for this");
    EXPECT_FALSE(link.isUp());
    EXPECT_EQ(link.descriptor(), -1);
    EXPECT_EQ(receiver.downs.size(), 1U);
    ASSERT_TRUE(until([&] { return link.isUp(); }, {&link, &sender.link}));
    ASSERT_TRUE(sender.link.publish("to/a", "again", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(until([&] { return receiver.messages.size() == 2; }, {&link, &sender.link}));
    EXPECT_EQ(receiver.messages, (std::vector<std::string>{"to/a=good", "to/a=again"}));
}

TEST(EncryptedBroker, TakesWhoeverHasACertificateAndProvesItself)
{
    MosquittoProcess broker;
    ASSERT_TRUE(broker.encrypt());
    ASSERT_TRUE(broker.start());
    Client panel{broker.encryptedAddress(), "P1", {"to/P1"}};
    ASSERT_TRUE(until([&] { return panel.link.isUp(); }, {&panel.link})) << panel.link.trouble();
    // Longer than one record of the encryption, and several at once.
    const std::string payload(40'000, 'x');
    for (int i = 0; i < 5; ++i)
        ASSERT_TRUE(panel.link.publish("to/P1", payload, mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(until([&] { return panel.receiver.messages.size() == 5; }, {&panel.link}));
    EXPECT_EQ(panel.receiver.messages.back(), "to/P1=" + payload);

    mqtt::BrokerAddress nameless = broker.encryptedAddress();
    nameless.certificate.clear();
    nameless.key.clear();
    mqtt::BrokerAddress deceived = broker.encryptedAddress();
    deceived.authority = broker.foreignAuthority();
    for (const mqtt::BrokerAddress& address : {nameless, deceived}) {
        Client client{address, "P2", {}};
        ASSERT_TRUE(until([&] { return !client.link.trouble().empty(); }, {&client.link}));
        EXPECT_EQ(client.receiver.ups, 0) << client.link.trouble();
    }
}

// Takes one connection and then not a byte more.
class DeafBroker {
public:
    DeafBroker()
        : listener_{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)}
    {
        const int little = 4096;
        ::setsockopt(listener_, SOL_SOCKET, SO_RCVBUF, &little, sizeof little);
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof place;
        ::bind(listener_, reinterpret_cast<sockaddr*>(&place), size);
        ::listen(listener_, 1);
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&place), &size);
        address.port = ntohs(place.sin_port);
    }
    ~DeafBroker()
    {
        ::close(connection_);
        ::close(listener_);
    }
    DeafBroker(const DeafBroker&) = delete;
    DeafBroker& operator=(const DeafBroker&) = delete;

    // Waits for the client's greeting, and welcomes it.
    void accept()
    {
        connection_ = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        char greeting[256];
        ASSERT_GT(::recv(connection_, greeting, sizeof greeting, 0), 0);
        const char welcome[]{0x20, 0x03, 0, 0, 0};
        ASSERT_EQ(::send(connection_, welcome, sizeof welcome, 0), ssize_t{sizeof welcome});
    }
    // How the connection ended: 0 in order, ECONNRESET cut off; what had arrived is read before.
    int end() const
    {
        char bytes[4096];
        ssize_t count = 1;
        while (count > 0)
            count = ::recv(connection_, bytes, sizeof bytes, 0);
        return count == 0 ? 0 : errno;
    }

    mqtt::BrokerAddress address;

private:
    int listener_;
    int connection_ = -1;
};

TEST(BrokerLink, ADroppedConnectionTakesWithItWhatTheSystemHasNotSent)
{
    DeafBroker broker;
    Client client{broker.address, "a", {}};
    for (int i = 0; i < 10; ++i)
        client.link.poll(1); // sends the greeting
    broker.accept();
    ASSERT_TRUE(until([&] { return client.link.isUp(); }, {&client.link}));
    EXPECT_FALSE(client.link.isOnTheWay());
    const std::string payload(1000, 'x');
    // Until nothing leaves the system any more; the client library has nothing left to send.
    for (int i = 0; i < 64; ++i)
        ASSERT_TRUE(client.link.publish("to/b", payload, mqtt::Link::Keep::No, 0));
    client.link.poll(1);
    ASSERT_FALSE(client.link.isSending());
    EXPECT_TRUE(client.link.isOnTheWay());
    client.link.drop("too late");
    EXPECT_EQ(broker.end(), ECONNRESET);
}

TEST(BrokerLink, DoesNotHoldItsOwnerUp)
{
    // A listener that takes no connection, with a full queue: connecting would block.
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(::listen(listener, 0), 0);
    ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    std::vector<int> fillers;
    for (int i = 0; i < 4; ++i) {
        fillers.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        ::connect(fillers.back(), reinterpret_cast<sockaddr*>(&address), size);
    }

    mqtt::BrokerAddress silent;
    silent.port = ntohs(address.sin_port);
    Receiver receiver;
    std::int64_t now = 0;
    mqtt::BrokerLink link{
        {.address = silent, .client = "x", .connectMilliseconds = 300}, [&] { return now; }};
    link.start(receiver, {});
    for (int i = 0; i < 10; ++i)
        link.poll(1); // would not return
    EXPECT_FALSE(link.isUp());
    EXPECT_EQ(link.trouble(), "");
    now += 301;
    link.poll(1);
    EXPECT_EQ(link.trouble(), silent.text() + ": the broker does not answer");
    EXPECT_EQ(receiver.ups, 0);
    EXPECT_TRUE(receiver.downs.empty()) << "it never was up";
    for (const int filler : fillers)
        ::close(filler);
    ::close(listener);
}

TEST(SteadyClock, GoesOnWhileTheComputerSleeps)
{
    // Elsewhere than on a computer that has slept, other clocks would show the same.
    const auto sinceStart = [] {
        timespec now{};
        ::clock_gettime(CLOCK_BOOTTIME, &now);
        return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
    };
    const std::int64_t before = sinceStart();
    const std::int64_t now = mqtt::steadyClock()();
    EXPECT_LE(before, now);
    EXPECT_LE(now, sinceStart());
}

TEST(BrokerLink, RefusesAnAddressThatCannotBeUsed)
{
    mqtt::BrokerAddress address;
    address.host = "10.0.0.7";
    EXPECT_THROW(mqtt::BrokerLink({.address = address, .client = "x"}), basic::Error);
    for (const std::string client : {"", "panel-\n", "panel-\xF6"})
        EXPECT_THROW(mqtt::BrokerLink({.address = {}, .client = client}), basic::Error) << client;
}

// A panel and a controller on a real broker, which comes and goes.
class RealBroker : public BrokerLinks {
protected:
    void SetUp() override
    {
        BrokerLinks::SetUp();
        declareServo(store);
        machineLink.emplace(settings("machine-M1"));
        controller.emplace(
            line_machine::ControllerSettings{
                .machine = "M1", .epoch = 1'700'000'000'000, .heartbeatMilliseconds = 50, .faults = true},
            declareServo(store), store, *machineLink, clock);
        panelLink.emplace(settings("panel-P1"));
        pumped.emplace(*panelLink, *controller);
        variables.emplace(
            mqtt::BrokerVariablesSettings{
                .panel = "P1", .machines = {"M1"}, .answerMilliseconds = 1000, .heartbeatMilliseconds = 1500},
            *pumped, clock);
        variables->setLevel(5);
        ASSERT_TRUE(becomesReadable());
    }

    mqtt::BrokerLinkSettings settings(const std::string& client) const
    {
        return {.address = broker.address(),
            .client = client,
            .firstRetryMilliseconds = 20,
            .lastRetryMilliseconds = 40};
    }

    // While the panel waits for the broker the controller works.
    class PumpedLink : public mqtt::Link {
    public:
        PumpedLink(mqtt::Link& inner, line_machine::Controller& controller)
            : inner_{inner}
            , controller_{controller}
        {
        }
        void start(mqtt::LinkReceiver& receiver, std::vector<std::string> subscriptions) override
        {
            inner_.start(receiver, std::move(subscriptions));
        }
        void setWill(std::string topic, std::string payload) override
        {
            inner_.setWill(std::move(topic), std::move(payload));
        }
        void poll(int milliseconds) override
        {
            controller_.poll(0);
            inner_.poll(std::min(milliseconds, 2));
        }
        bool isUp() const override { return inner_.isUp(); }
        bool publish(const std::string& topic, std::string_view payload, Keep keep, int seconds) override
        {
            return inner_.publish(topic, payload, keep, seconds);
        }
        bool isSending() const override { return inner_.isSending(); }
        bool isOnTheWay() const override { return inner_.isOnTheWay(); }
        void drop(std::string_view reason) override { inner_.drop(reason); }

    private:
        mqtt::Link& inner_;
        line_machine::Controller& controller_;
    };

    bool holds(const std::function<bool()>& condition)
    {
        const std::int64_t end = clock() + longestWait;
        while (!condition()) {
            if (clock() > end) return false;
            variables->poll(2);
        }
        return true;
    }
    bool becomesReadable()
    {
        return holds([&] { return variables->standing(para).quality == mqtt::Quality::Good; });
    }
    mqtt::Outcome write(double value)
    {
        try {
            variables->WriteValue(para, basic::doubles({value, 5, 5}));
        } catch (const basic::Error& error) {
            return static_cast<mqtt::Outcome>(error.number);
        }
        return mqtt::Outcome::Done;
    }
    void nothingCameLate()
    {
        for (const auto& seen : controller->seen())
            EXPECT_LE(seen.writtenAt.value_or(0), seen.deadline) << seen.id;
    }

    machine::VariableStore store;
    std::optional<mqtt::BrokerLink> machineLink;
    std::optional<line_machine::Controller> controller;
    std::optional<mqtt::BrokerLink> panelLink;
    std::optional<PumpedLink> pumped;
    std::optional<mqtt::BrokerVariables> variables;
};

TEST_F(RealBroker, CarriesWritesAndTheirAnswers)
{
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(write(i), mqtt::Outcome::Done);
    EXPECT_EQ(write(11), mqtt::Outcome::OutOfRange);
    EXPECT_EQ(variables->ReadValue(para), basic::doubles({9, 5, 5}));
    nothingCameLate();
}

TEST_F(RealBroker, MayDieAndComeBackAndNothingIsSentLate)
{
    ASSERT_EQ(write(6), mqtt::Outcome::Done);
    const std::size_t seen = controller->seen().size();
    broker.kill();
    // Not noticed yet, then noticed: neither is ever carried out.
    const mqtt::Outcome outcome = write(7);
    EXPECT_TRUE(mqtt::isUnknown(outcome) || outcome == mqtt::Outcome::NoConnection) << int(outcome);
    EXPECT_NE(write(8), mqtt::Outcome::Done);
    ASSERT_TRUE(holds([&] { return !panelLink->isUp(); }));
    EXPECT_EQ(write(9), mqtt::Outcome::NoConnection);
    EXPECT_EQ(variables->standing(para).outcome, mqtt::Outcome::NoConnection);

    ASSERT_TRUE(broker.start());
    ASSERT_TRUE(becomesReadable());
    EXPECT_EQ(variables->ReadValue(para), basic::doubles({6, 5, 5}));
    // Whatever had been kept somewhere would have come before this one.
    EXPECT_EQ(write(4), mqtt::Outcome::Done);
    EXPECT_EQ(controller->seen().size(), seen + 1);
    nothingCameLate();
}

TEST_F(RealBroker, ThatFreezesCostsOneWaitAndNothingIsDoneLate)
{
    ASSERT_EQ(write(6), mqtt::Outcome::Done);
    broker.freeze();
    {
        const auto confirm = variables->confirm();
        EXPECT_EQ(write(7), mqtt::Outcome::NoAnswer);
        EXPECT_EQ(write(8), mqtt::Outcome::NotSentAfterNoAnswer);
    }
    broker.thaw();
    ASSERT_TRUE(becomesReadable());
    ASSERT_TRUE(holds([&] { return controller->seen().size() >= 2; }))
        << "the broker had it, and passes it on";
    EXPECT_EQ(controller->seen().back().outcome, mqtt::Outcome::TooLate);
    EXPECT_EQ(*store.find(para), basic::doubles({6, 5, 5}));
}

TEST_F(RealBroker, TellsWhenTheControllerIsGone)
{
    machineLink->drop("pulled out");
    ASSERT_TRUE(holds([&] { return variables->standing(para).quality != mqtt::Quality::Good; }));
    ASSERT_TRUE(becomesReadable());
}

} // namespace servopanel::testing
