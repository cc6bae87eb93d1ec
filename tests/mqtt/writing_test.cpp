#include "mqtt/machine_fixture.h"

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::testing {

using basic::Variant;
using mqtt::Outcome;

class Writing : public MachineFixture {
protected:
    Variant setpoints(double first, double last = 5) { return basic::doubles({first, 5, last}); }
    std::vector<double> held()
    {
        std::vector<double> numbers;
        for (const Variant& element : store.find(para)->get<basic::Array>()->elements)
            numbers.push_back(*element.get<double>());
        return numbers;
    }
    const std::vector<double> unchanged{5, 5, 5};
};

TEST_F(Writing, EndsWhenTheMachineHasReadBack)
{
    variables.ReadValue(para);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
    EXPECT_EQ(held(), (std::vector<double>{7, 5, 5}));
    EXPECT_EQ(numbers(para), (std::vector<double>{7, 5, 5})) << "the next read gives what was written";
    EXPECT_EQ(controller.seen().size(), 1U);
}

TEST_F(Writing, ASignalMayBeTakenBackBeforeItIsReadBack)
{
    bool isTaking = false;
    store.addListener([&](const machine::VariableStore::Write& write) {
        if (write.name != flag || std::exchange(isTaking, true)) return;
        store.write(flag, std::int16_t{0}, machine::Writer::Machine);
        isTaking = false;
    });
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::Done) << text;
    EXPECT_EQ(*store.find(flag), Variant(std::int16_t{0}));
}

TEST_F(Writing, OfASignalWithoutAnAnswerNobodyKnows)
{
    for (const char* const acts : {"true", "false"}) {
        controller.orderFault(std::string{R"({"fault":"silent","times":1,"acts":)"} + acts + "}");
        EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::NoAnswer);
        EXPECT_EQ(text, "Process variable '" + flag + "': no answer");
    }
}

TEST_F(Writing, ASignalThatWasNeverSentCanBeGiven)
{
    controller.orderFault(R"({"fault":"restart"})");
    net.loses = [](const std::string& topic) { return topic == "pm/v1/M1/val/" + flag; };
    pass(3000);
    ASSERT_EQ(reading(flag), Outcome::Stale);
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::Done) << text;
    EXPECT_EQ(*store.find(flag), Variant(std::int16_t{1}));
}

TEST_F(Writing, ConvertsToTheVariablesOwnType)
{
    EXPECT_EQ(writing(switches, 3.0), Outcome::Done);
    EXPECT_EQ(*store.find(switches), Variant(std::int32_t{3}));
    EXPECT_EQ(writing(switches, "x"), Outcome::WrongType);
    EXPECT_EQ(writing(para, 1.0), Outcome::WrongType);
    EXPECT_EQ(writing(para, basic::doubles({1, 2})), Outcome::WrongType);
    EXPECT_EQ(writing(switches, 1e10), Outcome::OutOfRange);
    EXPECT_EQ(writing(para, setpoints(std::numeric_limits<double>::infinity())), Outcome::OutOfRange);
    EXPECT_EQ(writing("text", std::string(1025, 'x')), Outcome::OutOfRange);
    EXPECT_EQ(writing("text", "Gr\xf6\xdf\x65"), Outcome::OutOfRange);
    EXPECT_EQ(text, "Process variable 'text': the text is not UTF-8");
    EXPECT_EQ(controller.seen().size(), 1U) << "what cannot be meant is not sent";
    EXPECT_EQ(writing("text", std::string(1024, 'x')), Outcome::Done);
}

TEST_F(Writing, ACommandLongerThanAMessageIsNotSent)
{
    // One such array fits into a message, old and new value together do not.
    std::vector<double> many(8000, 1 / 3.0);
    machine::VariableStore big;
    big.declare("many", basic::doubles(many));
    mqtt::VariableDescription variable;
    variable.name = "many";
    variable.type = machine::typeOf(*big.find("many"));
    variable.length = many.size();
    variable.writable = true;
    TestLink bigLink{net};
    line_machine::Controller second{
        {.machine = "M2", .epoch = 1}, mqtt::Description{{variable}}, big, bigLink, clock};
    TestLink link{net};
    mqtt::BrokerVariables two{{.panel = "P2", .machines = {"M2"}}, link, clock};
    net.others = [&] { second.poll(0); };
    for (int i = 0; i < 50; ++i)
        two.poll(10);
    ASSERT_EQ(two.ReadValue("many"), basic::doubles(many));
    many.front() = 2;
    EXPECT_EQ(outcomeOf([&] { two.WriteValue("many", basic::doubles(many)); }), Outcome::OutOfRange);
    EXPECT_TRUE(second.seen().empty());
}

TEST_F(Writing, OutOfRangeIsRefusedWithTheLimit)
{
    EXPECT_EQ(writing(para, setpoints(10.5)), Outcome::OutOfRange);
    EXPECT_EQ(text,
        "Process variable '" + para + "': the value is out of range: element 0: 10.5 is beyond the limit 10");
    EXPECT_EQ(writing(para, setpoints(-1)), Outcome::OutOfRange);
    EXPECT_EQ(held(), unchanged);
}

TEST_F(Writing, ElementsThatNobodyTouchedMayBeOutOfRange)
{
    store.write(para, basic::doubles({5, 5, 99}), machine::Writer::Machine);
    pass(300);
    EXPECT_EQ(writing(para, setpoints(6, 99)), Outcome::Done);
    EXPECT_EQ(writing(para, setpoints(6, 98)), Outcome::OutOfRange);
}

TEST_F(Writing, ALevelThatIsTooLowIsRefused)
{
    variables.setLevel(3);
    EXPECT_EQ(writing(para, setpoints(5, 6)), Outcome::LevelTooLow);
    EXPECT_NE(text.find("element 2: level 4 is needed"), std::string::npos) << text;
    EXPECT_EQ(held(), unchanged);
    EXPECT_EQ(writing(para, setpoints(6)), Outcome::Done) << "other elements need less";
}

TEST_F(Writing, ANegativeLevelIsTheLowest)
{
    variables.setLevel(-1);
    EXPECT_EQ(writing(para, setpoints(6)), Outcome::Done);
    EXPECT_EQ(writing(para, basic::doubles({6, 6, 5})), Outcome::LevelTooLow);
}

TEST_F(Writing, EachBitOfASwitchWordHasItsLevel)
{
    variables.setLevel(3);
    EXPECT_EQ(writing(switches, std::int32_t{5 ^ 1}), Outcome::Done);
    EXPECT_EQ(writing(switches, std::int32_t{4 ^ 8}), Outcome::LevelTooLow);
    EXPECT_NE(text.find("bit 3: level 4 is needed"), std::string::npos) << text;
    EXPECT_EQ(*store.find(switches), Variant(std::int32_t{4}));
}

TEST_F(Writing, ADoubtfulElementStaysDoubtfulAfterAWrite)
{
    controller.orderFault(R"({"fault":"doubt","name":")" + para + R"(","elements":[1]})");
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
    EXPECT_EQ(reading(para), Outcome::Bad);
}

TEST_F(Writing, AnAnswerAloneMakesNoElementBetter)
{
    controller.orderFault(R"({"fault":"doubt","name":")" + flag + R"("})");
    pass(300);
    ASSERT_EQ(reading(flag), Outcome::Bad);
    pass(1000);
    panelLink.published.clear();
    net.loses = [&](const std::string& topic) {
        return topic == "pm/v1/M1/val/" + flag || topic == "pm/v1/M1/hb";
    };
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::Done);
    EXPECT_EQ(reading(flag), Outcome::Bad);
    pass(100);
    EXPECT_EQ(panelLink.published, (std::vector<std::string>{"pm/v1/M1/cmd/P1", "pm/v1/M1/get/P1"}))
        << "asked for, before a heartbeat counts it";
}

TEST_F(Writing, WhatIsReadOnlyOrUnknownIsRefused)
{
    EXPECT_EQ(writing(diagnosis, setpoints(1)), Outcome::ReadOnly);
    EXPECT_EQ(writing("no such", 1.0), Outcome::UnknownName);
    EXPECT_TRUE(controller.seen().empty());
}

TEST_F(Writing, AControllerThatDescribedATypeItDoesNotHoldSaysSo)
{
    store.declare(flag, basic::doubles({1})); // described as one whole number
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::WrongType);
    EXPECT_EQ(controller.seen().size(), 1U);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done) << "and goes on";
}

TEST_F(Writing, APanelThatLooksOnSendsNothing)
{
    TestLink link{net};
    mqtt::BrokerVariables viewer{{.panel = "P2", .machines = {"M1"}, .viewing = true}, link, clock};
    for (int i = 0; i < 50; ++i)
        viewer.poll(10);
    EXPECT_EQ(viewer.ReadValue(para), setpoints(5));
    const std::int64_t start = net.now;
    EXPECT_EQ(outcomeOf([&] { viewer.WriteValue(para, setpoints(7)); }), Outcome::ReadOnly);
    EXPECT_EQ(text, "Process variable '" + para + "': this panel only looks on");
    EXPECT_EQ(net.now, start) << "nobody waits";
    EXPECT_TRUE(controller.seen().empty());
}

TEST_F(Writing, AChangeBySomebodyElseIsNotOverwritten)
{
    variables.ReadValue(para);
    store.write(para, basic::doubles({5, 6, 5}), machine::Writer::Host);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::ChangedMeanwhile);
    EXPECT_EQ(held(), (std::vector<double>{5, 6, 5}));
    pass(300);
    EXPECT_EQ(reading(para), Outcome::Done);
    EXPECT_EQ(writing(para, basic::doubles({7, 6, 5})), Outcome::Done) << "after it was read";
}

TEST_F(Writing, TheImageMayHaveTheChangeThatWasNotReadYet)
{
    variables.ReadValue(para);
    store.write(para, basic::doubles({5, 6, 5}), machine::Writer::Host);
    pass(300);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::ChangedMeanwhile);
}

TEST_F(Writing, NothingIsOverwrittenThatIsNotKnown)
{
    variables.ReadValue(para);
    controller.orderFault(R"({"fault":"doubt","name":")" + para + R"("})");
    pass(300);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Bad) << "though it was good when it was read";
    EXPECT_EQ(reading(para), Outcome::Bad);
    controller.orderFault(R"({"fault":"none"})");
    pass(300);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);

    controller.orderFault(R"({"fault":"torn","times":8})");
    store.write(para, basic::doubles({1, 2, 3}), machine::Writer::Machine);
    Outcome outcome = Outcome::Done;
    for (int i = 0; i < 100 && outcome == Outcome::Done; ++i) {
        variables.poll(10);
        outcome = reading(para);
    }
    ASSERT_EQ(outcome, Outcome::Stale);
    const std::size_t seen = controller.seen().size();
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Stale);
    EXPECT_EQ(controller.seen().size(), seen);
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::Done) << "a signal overwrites nothing";
}

TEST_F(Writing, ASignalCanBeGivenAgain)
{
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::Done);
    store.write(flag, std::int16_t{0}, machine::Writer::Machine); // the machine has taken it back
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::Done);
}

TEST_F(Writing, WhatASignalHoldsIsNotAskedFor)
{
    panelLink.published.clear();
    controller.orderFault(R"({"fault":"silent"})");
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::NoAnswer);
    EXPECT_EQ(panelLink.published, (std::vector<std::string>{"pm/v1/M1/cmd/P1"})) << "nothing to compare";
    // An answer in the last quarter of the time still is one.
    controller.orderFault(R"({"fault":"slow","milliseconds":900})");
    EXPECT_EQ(writing(flag, std::int16_t{1}), Outcome::TooLate);
}

TEST_F(Writing, WhatIsNoSignalIsNotOverwrittenUnseen)
{
    net.loses = [&](const std::string& topic) { return topic == "pm/v1/M1/val/" + switches; };
    TestLink link{net};
    mqtt::BrokerVariables blind{{.panel = "P2", .machines = {"M1"}}, link, clock};
    blind.setLevel(5);
    for (int i = 0; i < 50; ++i)
        blind.poll(10);
    EXPECT_EQ(outcomeOf([&] { blind.WriteValue(switches, std::int32_t{1}); }), Outcome::Stale);
    EXPECT_TRUE(controller.seen().empty());
}

TEST_F(Writing, WhoWasHeldUpReadsTheHeartbeatsOfThatTimeFirst)
{
    variables.ReadValue(para);
    for (int turn = 0; turn < 300; ++turn) {
        net.now += 10;
        controller.poll(0);
    }
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done) << text;
}

TEST_F(Writing, TheTimeOfARestartedMachineSaysNothingOfTheDeadlineBefore)
{
    controller.orderFault(R"({"fault":"silent"})");
    const std::size_t seen = controller.seen().size();
    bool isRestarted = false;
    net.others = [&] {
        if (isRestarted) return;
        controller.poll(0);
        if (controller.seen().size() == seen) return;
        isRestarted = true;
        // A controller whose clock begins far later than any deadline of the one before.
        const std::string epoch = R"({"epoch":1800000000000,"time":9000000)";
        panelLink.offer("pm/v1/M1/state",
            R"({"up":true,"epoch":1800000000000,"hash":")" + description.hash() + R"("})", false);
        panelLink.offer(
            "pm/v1/M1/val/" + para, epoch + R"(,"seq":1,"value":[7,5,5],"quality":"good"})", false);
        panelLink.offer("pm/v1/M1/hb", epoch + R"(,"seq":[1,0,0,0,0,0,0,0]})", false);
    };
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswer)
        << "that it holds the value may have had other reasons";
}

TEST_F(Writing, RefusalsOfTheControllerKeepTheirCode)
{
    for (const char* code : {"unknown_name", "out_of_range", "level", "absent", "read_only", "type",
             "changed", "too_late", "busy", "restarted"}) {
        controller.orderFault(std::string{R"({"fault":"refuse","code":")"}.append(code).append("\"}"));
        const Outcome outcome = writing(para, setpoints(7));
        EXPECT_EQ(mqtt::codeOf(outcome), code);
        EXPECT_NE(text.find(mqtt::describe(outcome)), std::string::npos) << text;
        EXPECT_TRUE(mqtt::isRefused(outcome));
    }
    EXPECT_EQ(held(), unchanged);
}

TEST_F(Writing, ADriveThatIsGoneIsAbsent)
{
    controller.orderFault(R"({"fault":"absent","match":"_T_servo_3<"})");
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Absent);
    pass(300);
    EXPECT_EQ(reading(para), Outcome::Bad);
    EXPECT_NE(text.find("the drive does not answer"), std::string::npos) << text;
    EXPECT_EQ(reading("text"), Outcome::Done);
    EXPECT_EQ(held(), unchanged);
}

TEST_F(Writing, NoAnswerEndsWithinItsTimeAndTheRestAtOnce)
{
    controller.orderFault(R"({"fault":"silent","times":100})");
    const std::int64_t start = net.now;
    {
        const auto confirm = variables.confirm();
        EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswerNotWritten);
        EXPECT_LE(net.now - start, 1000);
        EXPECT_GE(net.now - start, 751);
        const std::int64_t after = net.now;
        EXPECT_EQ(writing(switches, 1.0), Outcome::NotSentAfterNoAnswer);
        {
            const auto part = variables.confirm();
            EXPECT_EQ(writing(flag, 1.0), Outcome::NotSentAfterNoAnswer);
        }
        EXPECT_EQ(writing(flag, 1.0), Outcome::NotSentAfterNoAnswer) << "a part's end is not the end";
        EXPECT_EQ(net.now, after);
        EXPECT_EQ(controller.seen().size(), 1U) << "neither sent again nor sent on";
    }
    controller.orderFault(R"({"fault":"none"})");
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
}

TEST_F(Writing, OutsideOfAConfirmEachWriteIsForItself)
{
    controller.orderFault(R"({"fault":"silent"})");
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswerNotWritten);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
}

TEST_F(Writing, AnAnswerThatIsLostIsFoundOutByReadingAgain)
{
    controller.orderFault(R"({"fault":"silent","acts":true})");
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswerButWritten);
    EXPECT_NE(text.find("no answer, but the machine holds the new value"), std::string::npos) << text;
    EXPECT_EQ(held(), (std::vector<double>{7, 5, 5}));
}

TEST_F(Writing, ASlowMachineIsInTimeOrTooLate)
{
    controller.orderFault(R"({"fault":"slow","milliseconds":500})");
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
    const line_machine::Controller::Seen& slow = controller.seen().back();
    EXPECT_GE(slow.writtenAt.value(), slow.at + 500) << "the time of the deed, not that of the order";
    // Either the answer or the value that was asked for at the deadline comes first.
    for (const int milliseconds : {760, 900, 5000}) {
        controller.orderFault(R"({"fault":"slow","milliseconds":)" + std::to_string(milliseconds) + "}");
        const Outcome outcome = writing(para, setpoints(8));
        EXPECT_TRUE(
            outcome == Outcome::NoAnswerNotWritten || (outcome == Outcome::TooLate && milliseconds < 1000))
            << milliseconds << " " << int(outcome);
        pass(6000);
        EXPECT_EQ(controller.seen().back().outcome, Outcome::TooLate);
    }
    EXPECT_EQ(held(), (std::vector<double>{7, 5, 5})) << "nothing is done after the deadline";
}

TEST_F(Writing, AProcessThatStandsStillWaitsNoLongerThanItsTime)
{
    // Whenever the panel looks at its clock, time has passed.
    std::int64_t looks = 0;
    TestLink link{net};
    mqtt::BrokerVariables slow{
        {.panel = "P2", .machines = {"M1"}}, link, [&] { return net.now += ++looks % 31; }};
    slow.setLevel(5);
    for (int i = 0; i < 50; ++i)
        slow.poll(10);
    controller.orderFault(R"({"fault":"silent","times":1000})");
    for (int i = 0; i < 100; ++i) {
        EXPECT_NE(outcomeOf([&] { slow.WriteValue(flag, std::int16_t{1}); }), Outcome::Done);
        for (int turn = 0; turn < 20; ++turn)
            slow.poll(10);
    }
    EXPECT_GT(controller.seen().size(), 50U) << "most of them were sent and waited for";
    EXPECT_EQ(link.shortestWait, 0);
}

TEST_F(Writing, OneCommandAtATime)
{
    controller.orderFault(R"({"fault":"slow","milliseconds":2000})");
    EXPECT_TRUE(mqtt::isUnknown(writing(para, setpoints(7))));
    EXPECT_EQ(writing(para, setpoints(8)), Outcome::Busy);
}

TEST_F(Writing, NothingIsSentWithoutAHeartbeat)
{
    controller.orderFault(R"({"fault":"heartless"})");
    pass(2100);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoConnection);
    EXPECT_TRUE(controller.seen().empty());
}

TEST_F(Writing, NothingIsSentWithoutAConnection)
{
    panelLink.reachable = false;
    panelLink.drop("connection reset");
    const std::int64_t start = net.now;
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoConnection);
    EXPECT_EQ(net.now, start);
    panelLink.reachable = true;
    pass(3000);
    EXPECT_TRUE(controller.seen().empty()) << "not later either";
}

TEST_F(Writing, AConnectionThatBreaksMeanwhileEndsTheWaiting)
{
    controller.orderFault(R"({"fault":"silent"})");
    const std::int64_t breaksAt = net.now + 100;
    net.others = [&] {
        controller.poll(0);
        if (net.now >= breaksAt && panelLink.isUp()) {
            panelLink.reachable = false;
            panelLink.drop("connection reset");
        }
    };
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswer);
    EXPECT_LE(net.now, breaksAt + 10);
}

TEST_F(Writing, ACommandThatDoesNotLeaveIsDropped)
{
    panelLink.stuck = true;
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswer);
    EXPECT_FALSE(panelLink.isSending()) << "the connection, and what waits in it, is given up";
    pass(1000);
    EXPECT_TRUE(controller.seen().empty());
}

TEST_F(Writing, ACommandThatTheBrokerDoesNotTakeEndsNoConnection)
{
    panelLink.refusesMessages = true;
    const std::int64_t start = net.now;
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::OutOfRange);
    EXPECT_EQ(net.now, start);
    EXPECT_TRUE(panelLink.isUp());
    panelLink.refusesMessages = false;
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
}

TEST_F(Writing, ARestartMeanwhileIsRefusedOrUnknown)
{
    variables.ReadValue(para);
    controller.orderFault(R"({"fault":"restart"})");
    controller.poll(0); // the panel has not heard of it
    controller.poll(0);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Restarted);
    EXPECT_EQ(held(), unchanged);
}

TEST_F(Writing, WhatWasReadBeforeARestartIsNotWrittenAfterIt)
{
    variables.ReadValue(para);
    controller.orderFault(R"({"fault":"restart"})");
    pass(3000); // the panel knows the new epoch, and that the value is the same
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Restarted);
    EXPECT_EQ(held(), unchanged);
    variables.ReadValue(para);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::Done);
}

TEST_F(Writing, OnlyTheMachineOfThisEpochHasDoneIt)
{
    // Somebody answers in the place of a controller that is silent.
    std::string machine;
    std::int64_t epoch = 0;
    std::string code = "done";
    std::size_t answered = 0;
    TestLink otherMachine{net};
    mqtt::BrokerVariables two{{.panel = "P2", .machines = {"M1", "M2"}}, otherMachine, clock};
    net.others = [&] {
        controller.poll(0);
        if (controller.seen().size() <= answered) return;
        answered = controller.seen().size();
        const std::string answer = R"({"id":")" + controller.seen().back().id + R"(","epoch":)"
            + std::to_string(epoch) + R"(,"time":1,"code":")" + code + R"(","value":[7,5,5],"seq":99})";
        otherMachine.offer("pm/v1/" + machine + "/ack/P2", answer, false);
    };
    two.setLevel(5);
    for (int i = 0; i < 50; ++i)
        two.poll(10);
    controller.orderFault(R"({"fault":"silent","times":100})");
    const auto outcome = [&](const std::string& ofMachine, std::int64_t ofEpoch) {
        machine = ofMachine;
        epoch = ofEpoch;
        return outcomeOf([&] { two.WriteValue(para, setpoints(7)); });
    };
    EXPECT_EQ(outcome("M1", 7), Outcome::NoAnswerNotWritten) << "another epoch";
    EXPECT_EQ(outcome("M2", controller.epoch()), Outcome::NoAnswerNotWritten) << "another machine";
    EXPECT_EQ(two.takeProtocolErrors(),
        (std::vector<std::string>{"pm/v1/M1/ack/P2: has done a command of another epoch",
            "pm/v1/M2/ack/P2: answers a command to machine M1"}));
    code = "restarted";
    EXPECT_EQ(outcome("M1", 7), Outcome::Restarted);
    EXPECT_EQ(held(), unchanged);
}

TEST_F(Writing, ACommandThatTheBrokerKeptIsOfAnotherTime)
{
    const std::string command = R"({"id":"a","epoch":)" + std::to_string(controller.epoch())
        + R"(,"deadline":99999999,"level":5,"name":")" + flag + R"(","old":0,"new":1})";
    machineLink.offer("pm/v1/M1/cmd/P1", command, true);
    controller.poll(0);
    EXPECT_TRUE(controller.seen().empty());
    EXPECT_EQ(
        controller.takeProtocolErrors(), (std::vector<std::string>{"pm/v1/M1/cmd/P1: must not be retained"}));
    machineLink.offer("pm/v1/M1/cmd/P1", command, false);
    controller.poll(0);
    EXPECT_EQ(controller.seen().size(), 1U) << "nothing else is wrong with it";
}

TEST_F(Writing, AnswersToOthersAreNotOurs)
{
    controller.orderFault(R"({"fault":"silent"})");
    const std::string foreign = R"({"id":"other","epoch":)" + std::to_string(controller.epoch())
        + R"(,"time":1,"code":"done","value":[7,5,5],"seq":99})";
    panelLink.offer("pm/v1/M1/ack/P1", foreign, false);
    EXPECT_EQ(writing(para, setpoints(7)), Outcome::NoAnswerNotWritten);
}

} // namespace servopanel::testing
