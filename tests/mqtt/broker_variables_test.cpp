#include "mqtt/machine_fixture.h"
#include "mqtt/protocol_error.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace servopanel::testing {

using mqtt::Outcome;
using mqtt::Quality;
using Reading = MachineFixture;

TEST_F(Reading, GivesTheMachinesValuesInTheirTypes)
{
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 5}));
    EXPECT_EQ(variables.ReadValue(switches), basic::Variant(std::int32_t{5}));
    EXPECT_EQ(variables.ReadValue("passive"), basic::Variant(false));
    EXPECT_EQ(reading("no such"), Outcome::UnknownName);
    EXPECT_EQ(text, "Process variable 'no such': there is no such variable");
}

TEST_F(Reading, OfSeveralMachinesEachFailsByItself)
{
    TestLink link{net};
    mqtt::BrokerVariables two{{.panel = "P2", .machines = {"M2", "M1"}}, link, clock};
    const auto readingOfTwo = [&](const std::string& name) {
        return outcomeOf([&] { two.ReadValue(name); });
    };
    const std::int64_t end = net.now + 1000;
    while (net.now < end)
        two.poll(10);
    EXPECT_EQ(readingOfTwo(para), Outcome::Done);
    EXPECT_EQ(readingOfTwo("Ch1.M2_T_servo_1<.mM2_servo_para_1>"), Outcome::NoConnection);
    EXPECT_NE(text.find("machine M2 has never been connected to the broker"), std::string::npos) << text;
    EXPECT_TRUE(two.isLive("M1"));
    EXPECT_FALSE(two.isLive("M2"));
    EXPECT_FALSE(two.isLive("M3"));
}

TEST_F(Reading, IsOfTheMachinesThatAreFollowed)
{
    machine::VariableStore otherStore;
    otherStore.declare("other", 7.0);
    mqtt::VariableDescription single;
    single.name = "other";
    TestLink otherLink{net};
    line_machine::Controller other{
        {.machine = "M2", .epoch = 1}, mqtt::Description{std::vector{single}}, otherStore, otherLink, clock};
    net.others = [&] {
        controller.poll(0);
        other.poll(0);
    };
    pass(300);
    EXPECT_EQ(reading(para), Outcome::Done);
    EXPECT_EQ(reading("other"), Outcome::UnknownName);

    variables.follow({"M2"});
    EXPECT_FALSE(variables.isLive("M2")) << "on a connection of its own";
    pass(300);
    EXPECT_EQ(variables.ReadValue("other"), basic::Variant(7.0));
    EXPECT_EQ(reading(para), Outcome::UnknownName);
    EXPECT_EQ(writing(para, basic::doubles({1, 1, 1})), Outcome::UnknownName);
    EXPECT_FALSE(variables.isLive("M1"));

    // As long as the machines are the same, nobody is asked anything.
    panelLink.published.clear();
    variables.follow({"M2"});
    pass(300);
    EXPECT_EQ(reading("other"), Outcome::Done);
    EXPECT_TRUE(panelLink.published.empty());
    EXPECT_THROW(variables.follow({""}), basic::Error);
    EXPECT_EQ(reading("other"), Outcome::Done);

    variables.follow({});
    pass(300);
    EXPECT_EQ(reading("other"), Outcome::UnknownName);
    variables.follow({"M1"});
    pass(300);
    EXPECT_EQ(writing(para, basic::doubles({1, 1, 1})), Outcome::Done) << text;
}

TEST_F(Reading, ANameThatTwoMachinesDescribeIsNobodys)
{
    machine::VariableStore foreign;
    TestLink foreignLink{net};
    line_machine::Controller thief{
        {.machine = "M2", .epoch = 1}, declareServo(foreign), foreign, foreignLink, clock};
    net.others = [&] {
        controller.poll(0);
        thief.poll(0);
    };
    for (const std::vector<std::string>& machines :
        {std::vector<std::string>{"M1", "M2"}, std::vector<std::string>{"M2", "M1"}}) {
        TestLink link{net};
        mqtt::BrokerVariables two{{.panel = "P2", .machines = machines}, link, clock};
        for (int i = 0; i < 50; ++i)
            two.poll(10);
        EXPECT_EQ(outcomeOf([&] { two.ReadValue(para); }), Outcome::Bad);
        EXPECT_NE(text.find(" both say that it is theirs"), std::string::npos) << text;
        EXPECT_EQ(outcomeOf([&] { two.WriteValue(para, basic::doubles({1, 1, 1})); }), Outcome::Bad);
        EXPECT_EQ(two.standing(para).quality, Quality::Bad);
    }
    EXPECT_TRUE(thief.seen().empty());
    EXPECT_TRUE(controller.seen().empty());
}

TEST_F(Reading, NeedsNames)
{
    TestLink link{net};
    EXPECT_THROW(mqtt::BrokerVariables({.panel = "", .machines = {"M1"}}, link, clock), basic::Error);
    EXPECT_THROW(mqtt::BrokerVariables({.panel = "P2", .machines = {"M1", ""}}, link, clock), basic::Error);
    mqtt::BrokerVariables twice{{.panel = "P2", .machines = {"M1", "M1"}}, link, clock};
    for (int i = 0; i < 50; ++i)
        twice.poll(10);
    EXPECT_EQ(outcomeOf([&] { twice.ReadValue(para); }), Outcome::Done) << text;
}

TEST_F(Reading, WhatNobodyHasDescribedYetIsStale)
{
    TestLink link{net};
    mqtt::BrokerVariables early{{.panel = "P2", .machines = {"M2"}}, link, clock};
    EXPECT_EQ(early.standing(para).quality, Quality::Stale);
    EXPECT_EQ(early.standing(para).outcome, Outcome::NoConnection);
    EXPECT_EQ(variables.standing("no such").quality, Quality::Bad);
}

TEST(MachineImage, TakesNoMoreElementsThanItsBounds)
{
    mqtt::MachineImage image{"M1", 1500};
    image.linkUp();
    image.receive({"M1", "state", ""}, R"({"up":true,"epoch":1,"hash":"x"})", true, 0);
    std::string part =
        R"({"hash":"x","part":0,"parts":1,"variables":[{"name":"0","type":"doubles","length":9999})";
    for (int i = 1; i < 51; ++i)
        part += R"(,{"name":")" + std::to_string(i) + R"(","type":"doubles","length":10000})";
    EXPECT_THROW(image.receive({"M1", "desc", "0"}, part + "]}", true, 0), mqtt::ProtocolError);
    EXPECT_EQ(image.description(), nullptr);
}

TEST_F(Reading, CostsNoRoundTrip)
{
    const std::size_t before = panelLink.published.size();
    const std::int64_t now = net.now;
    for (int i = 0; i < 100; ++i)
        variables.ReadValue(para);
    EXPECT_EQ(panelLink.published.size(), before);
    EXPECT_EQ(net.now, now);
}

TEST_F(Reading, FollowsChanges)
{
    store.write(diagnosis, basic::doubles({7, 8, 9}), machine::Writer::Machine);
    pass(300);
    EXPECT_EQ(numbers(diagnosis), (std::vector<double>{7, 8, 9}));
}

TEST_F(Reading, ManyChangesBecomeFewMessages)
{
    pass(1000);
    const std::size_t before = machineLink.published.size();
    for (int i = 0; i < 200; ++i) {
        store.write(diagnosis, basic::doubles({double(i), 8, 9}), machine::Writer::Machine);
        pass(10);
    }
    EXPECT_LE(machineLink.published.size() - before, 2000U / 200 + 2000U / 500 + 2);
}

TEST_F(Reading, ManyRequestsBecomeFewMessages)
{
    pass(1000);
    machineLink.published.clear();
    std::string names = para;
    for (int i = 0; i < 6000; ++i)
        names.append("\",\"").append(i % 2 == 0 ? para : "no such");
    panelLink.publish("pm/v1/M1/get/P1", "{\"names\":[\"" + names + "\"]}", mqtt::Link::Keep::No, 0);
    controller.poll(0);
    controller.poll(0);
    EXPECT_EQ(machineLink.published, (std::vector<std::string>{"pm/v1/M1/val/" + para, "pm/v1/M1/hb"}));

    machineLink.published.clear();
    for (int i = 0; i < 1000; ++i) {
        panelLink.publish("pm/v1/M1/get/P1", "{}", mqtt::Link::Keep::No, 0);
        pass(1);
    }
    const std::size_t rounds = 10'000 / 200 + 1; // each wait of the test's world takes 10 ms
    EXPECT_LE(machineLink.published.size(), rounds * (description.variables().size() + 2) + 20)
        << "of each variable, and heartbeats of requested and of changed ones";
    EXPECT_GE(machineLink.published.size(), rounds);
}

TEST_F(Reading, NothingIsPiledUpForASlowConnection)
{
    machineLink.stuck = true;
    machineLink.published.clear();
    for (int i = 0; i < 100; ++i) {
        store.write(para, basic::doubles({double(i), 2, 3}), machine::Writer::Machine);
        panelLink.publish("pm/v1/M1/get/P1", "{}", mqtt::Link::Keep::No, 0);
        pass(50);
    }
    EXPECT_TRUE(machineLink.published.empty());
    EXPECT_EQ(reading(para), Outcome::NoConnection) << "without a heartbeat";
    machineLink.stuck = false;
    pass(500);
    EXPECT_EQ(numbers(para), (std::vector<double>{99, 2, 3}));
}

TEST_F(Reading, TwoControllersDoNotAnswerEachOtherWithoutEnd)
{
    machine::VariableStore secondStore;
    TestLink secondLink{net};
    line_machine::Controller second{
        {.machine = "M1", .epoch = 1}, declareServo(secondStore), secondStore, secondLink, clock};
    net.others = [&] {
        controller.poll(0);
        second.poll(0);
    };
    machineLink.published.clear();
    pass(5000);
    const auto states =
        std::count(machineLink.published.begin(), machineLink.published.end(), "pm/v1/M1/state");
    EXPECT_GE(states, 5);
    EXPECT_LE(states, 11);
}

TEST_F(Reading, FailsWithoutAHeartbeat)
{
    controller.orderFault(R"({"fault":"heartless"})");
    pass(1000);
    EXPECT_EQ(reading(para), Outcome::Done);
    pass(1100);
    EXPECT_EQ(reading(para), Outcome::NoConnection);
    EXPECT_NE(text.find("has had no heartbeat for "), std::string::npos) << text;
    EXPECT_FALSE(variables.isLive("M1"));
    EXPECT_EQ(variables.standing(para).quality, Quality::Stale);
    controller.orderFault(R"({"fault":"none"})");
    pass(600);
    EXPECT_EQ(reading(para), Outcome::Done);
    EXPECT_TRUE(variables.isLive("M1"));
}

TEST_F(Reading, FailsAtOnceWhenTheBrokerIsGoneAndComesBack)
{
    panelLink.reachable = false;
    panelLink.drop("connection reset");
    EXPECT_EQ(reading(para), Outcome::NoConnection);
    EXPECT_NE(text.find("no connection to the broker (connection reset)"), std::string::npos) << text;
    store.write(para, basic::doubles({1, 2, 3}), machine::Writer::Machine);
    pass(100);
    EXPECT_EQ(reading(para), Outcome::NoConnection);
    panelLink.reachable = true;
    pass(100);
    EXPECT_EQ(numbers(para), (std::vector<double>{1, 2, 3}));
}

TEST_F(Reading, FailsWhenTheMachineIsGone)
{
    machineLink.reachable = false;
    machineLink.drop("power off");
    pass(20);
    EXPECT_EQ(reading(para), Outcome::NoConnection);
    EXPECT_NE(text.find("machine M1 is not connected to the broker"), std::string::npos) << text;
    machineLink.reachable = true;
    pass(600);
    EXPECT_EQ(reading(para), Outcome::Done);
}

TEST_F(Reading, ALostChangeIsStaleUntilItIsReadAgain)
{
    controller.orderFault(
        R"({"fault":"torn","times":8})"); // after an order all eight variables are sent again
    store.write(para, basic::doubles({1, 2, 3}), machine::Writer::Machine);
    std::vector<double> seen; // -1 where it was stale
    for (int i = 0; i < 300; ++i) {
        variables.poll(10);
        const Outcome outcome = reading(para);
        if (outcome == Outcome::Stale) {
            EXPECT_NE(text.find("a change of it was lost on the way"), std::string::npos) << text;
        } else
            ASSERT_EQ(outcome, Outcome::Done) << text;
        const double now = outcome == Outcome::Stale ? -1 : numbers(para).front();
        if (seen.empty() || seen.back() != now) seen.push_back(now);
    }
    EXPECT_EQ(seen, (std::vector<double>{5, -1, 1}));
}

TEST_F(Reading, AJumpInASequenceAsksForEverything)
{
    const std::string get = "pm/v1/M1/get/P1";
    pass(1500);
    const auto gets = [&] { return std::count(panelLink.published.begin(), panelLink.published.end(), get); };
    const auto before = gets();
    int lost = 1;
    net.loses = [&](const std::string& topic) {
        return topic == "pm/v1/M1/hb" || (topic == "pm/v1/M1/val/" + diagnosis && lost-- > 0);
    };
    store.write(diagnosis, basic::doubles({1, 1, 1}), machine::Writer::Machine);
    pass(10);
    store.write(diagnosis, basic::doubles({2, 2, 2}), machine::Writer::Machine);
    pass(1000);
    EXPECT_EQ(gets(), before + 1);
    EXPECT_EQ(numbers(diagnosis), (std::vector<double>{2, 2, 2}));
}

TEST_F(Reading, ANewEpochBringsNewValuesOnly)
{
    const std::int64_t epoch = controller.epoch();
    machineLink.reachable = false;
    controller.orderFault(R"({"fault":"restart"})");
    pass(20);
    EXPECT_NE(controller.epoch(), epoch);
    EXPECT_EQ(reading(para), Outcome::NoConnection);
    store.write(para, basic::doubles({9, 9, 9}), machine::Writer::Machine);
    machineLink.reachable = true;
    bool wasOld = false;
    for (int i = 0; i < 100; ++i) {
        variables.poll(10);
        if (reading(para) == Outcome::Done) wasOld = wasOld || numbers(para).front() != 9;
    }
    EXPECT_FALSE(wasOld);
    EXPECT_EQ(numbers(para), (std::vector<double>{9, 9, 9}));
}

TEST_F(Reading, ALateWillOfTheControllerBeforeChangesNothing)
{
    net.route("pm/v1/M1/state", R"({"up":false,"epoch":5,"hash":"x"})", mqtt::Link::Keep::Retained);
    pass(100);
    EXPECT_EQ(reading(para), Outcome::Done);
    EXPECT_NE(net.retained["pm/v1/M1/state"].find("\"up\":true"), std::string::npos)
        << "the controller puts right what is said of it";
}

TEST_F(Reading, AnElementOfBadQualityIsNamed)
{
    controller.orderFault(
        R"({"fault":"doubt","name":")" + diagnosis + R"(","elements":[0,2],"reason":"encoder"})");
    pass(300);
    EXPECT_EQ(reading(diagnosis), Outcome::Bad);
    EXPECT_EQ(text,
        "Process variable '" + diagnosis + "': the machine does not know the value of element 0 2: encoder");
    const auto standing = variables.standing(diagnosis);
    EXPECT_EQ(standing.quality, Quality::Bad);
    EXPECT_EQ(standing.elements, (std::vector<Quality>{Quality::Bad, Quality::Good, Quality::Bad}));
    EXPECT_EQ(reading(para), Outcome::Done) << "other variables are none the worse";
    controller.orderFault(R"({"fault":"none"})");
    pass(300);
    EXPECT_EQ(reading(diagnosis), Outcome::Done);
}

TEST_F(Reading, WhatIsNotOfThisTimeIsIgnored)
{
    const std::string topic = "pm/v1/M1/val/" + para;
    const std::string epoch = std::to_string(controller.epoch());
    const auto offer = [&](const std::string& ofEpoch, int sequence, bool retained) {
        panelLink.offer(topic,
            R"({"epoch":)" + ofEpoch + R"(,"seq":)" + std::to_string(sequence)
                + R"(,"time":1,"value":[8,8,8],"quality":"good"})",
            retained);
        variables.poll(0);
    };
    offer("7", 900, false); // another epoch
    offer(epoch, 0, false); // an earlier one
    offer(epoch, 900, true); // kept by the broker
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 5}));
    offer(epoch, 900, false);
    EXPECT_EQ(numbers(para), (std::vector<double>{8, 8, 8}));
    // The next heartbeat knows of no 900 changes.
    store.write(para, basic::doubles({3, 3, 3}), machine::Writer::Machine);
    pass(3000);
    EXPECT_EQ(numbers(para), (std::vector<double>{3, 3, 3}));
}

TEST_F(Reading, AHeartbeatThatIsOldOrComesAgainMakesNothingGood)
{
    std::vector<std::string> beats; // of a broker that holds everything back
    const std::size_t variablesOfMachine = description.variables().size();
    const auto heartbeat = [&](std::int64_t time) {
        std::string beat = R"({"epoch":)" + std::to_string(controller.epoch()) + R"(,"time":)"
            + std::to_string(time) + R"(,"seq":[1)";
        for (std::size_t i = 1; i < variablesOfMachine; ++i)
            beat += ",1";
        return beat + "]}";
    };
    net.loses = [](const std::string& topic) { return topic.starts_with("pm/v1/M1/"); };
    const std::string same = heartbeat(controller.time());
    pass(1000);
    panelLink.offer("pm/v1/M1/hb", same, false);
    variables.poll(0);
    EXPECT_EQ(reading(para), Outcome::Done);
    for (int i = 0; i < 20; ++i) {
        beats.push_back(heartbeat(controller.time()));
        pass(500);
        panelLink.offer("pm/v1/M1/hb", same, false);
        variables.poll(0);
    }
    EXPECT_EQ(reading(para), Outcome::NoConnection) << "the same heartbeat for 10 s";
    for (std::size_t i = 0; i + 3 < beats.size(); ++i) {
        panelLink.offer("pm/v1/M1/hb", beats[i], false);
        variables.poll(0);
        EXPECT_EQ(reading(para), Outcome::NoConnection) << "heartbeat " << i << " of 20";
        EXPECT_NE(text.find("its latest heartbeat is "), std::string::npos) << text;
    }
    EXPECT_FALSE(variables.isLive("M1"));
    panelLink.offer("pm/v1/M1/hb", beats.back(), false);
    variables.poll(0);
    EXPECT_EQ(reading(para), Outcome::Done) << "the latest of them is 0.5 s old";
}

TEST_F(Reading, AClockThatDriftsMakesNothingStale)
{
    // The controller's clock loses 0.5 ms in a second, for three hours.
    mqtt::MachineImage image{"M1", 1500};
    image.linkUp();
    image.receive({"M1", "state", ""}, R"({"up":true,"epoch":1,"hash":"x"})", true, 0);
    image.receive({"M1", "desc", "0"}, R"({"hash":"x","part":0,"parts":1,"variables":[]})", true, 0);
    for (std::int64_t now = 0; now < 3 * 3'600'000; now += 500) {
        const std::string time = std::to_string(now - now / 2000);
        image.receive({"M1", "hb", ""}, R"({"epoch":1,"time":)" + time + R"(,"seq":[]})", false, now);
        ASSERT_FALSE(image.trouble(now + 1400)) << now;
        ASSERT_TRUE(image.trouble(now + 1501)) << now;
    }
}

TEST_F(Reading, RubbishChangesNothingAndIsTold)
{
    const std::string kinds[]{"state", "desc/0", "val/" + para, "val/nothing", "hb", "ack/P1"};
    for (const std::string& kind : kinds)
        for (const char* payload : {"", "{", "{}", "[]", "null", R"({"epoch":1})"})
            panelLink.offer("pm/v1/M1/" + kind, payload, false);
    variables.poll(0);
    EXPECT_EQ(numbers(para), (std::vector<double>{5, 5, 5}));
    const auto errors = variables.takeProtocolErrors();
    ASSERT_EQ(errors.size(), 20U) << "the latest, not all 36";
    EXPECT_TRUE(errors.back().starts_with("pm/v1/M1/ack/P1: ")) << errors.back();
    EXPECT_TRUE(variables.takeProtocolErrors().empty());
}

} // namespace servopanel::testing
