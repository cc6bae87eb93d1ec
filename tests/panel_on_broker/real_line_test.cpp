// What a broker, machines and panels that are killed, or work against each other, leave behind.
#include "mqtt/value_coding.h"
#include "panel_on_broker/real_line.h"
#include "portable/temporary_folder.h"
#include "support/ends_with_us.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace servopanel::testing {

TEST_F(RealLine, ABrokerThatDiesAndComesBackCostsNoMark)
{
    const auto panel = openPanel("P1");
    panel->change("SollwertL", 1, "42.5");
    broker.kill();
    ASSERT_TRUE(until([&] { return !panel->isGood("SollwertL", 1) && !onlooker->knows(setpoints); }));
    EXPECT_TRUE(panel->child("SollwertL", 1).isChanged());
    EXPECT_EQ(panel->confirm(), "Not written: Start position: No connection");
    EXPECT_TRUE(panel->child("SollwertL", 1).isChanged());

    ASSERT_TRUE(broker.start());
    ASSERT_TRUE(until([&] { return panel->isGood("SollwertL", 1) && onlooker->knows(setpoints); }));
    EXPECT_EQ(element(setpoints, 0), 1.5) << "nothing that waited was sent";
    EXPECT_TRUE(panel->child("SollwertL", 1).isChanged());
    EXPECT_EQ(panel->confirm(), "Written, values: 1");
    EXPECT_TRUE(until([&] { return element(setpoints, 0) == 42.5; }));
}

TEST_F(RealLine, ABrokerThatDiesWithinAConfirmWritesNothingLate)
{
    const auto panel = openPanel("P1");
    const std::vector<double> before = numbers(secondSetpoints);
    const Variant switchesBefore = held(switches);
    const std::vector<double> drawingsBefore = numbers(drawings);
    panel->changeEveryFamily();
    int commands = 0;
    panel->publishing = [&](const std::string& topic) {
        if (topic == "pm/v1/M1/cmd/P1" && ++commands == 2) broker.kill();
    };
    const std::string told = panel->confirm();
    EXPECT_TRUE(told.starts_with("Unclear whether written: Written, values: 1. ")) << told;
    EXPECT_TRUE(told.ends_with(": no answer. Change not announced. Synchronous: No connection (+1)")) << told;
    EXPECT_EQ(commands, 2) << "nothing is sent after a write that nobody answered";

    ASSERT_TRUE(broker.start());
    ASSERT_TRUE(until([&] { return !onlooker->knows(setpoints); }));
    ASSERT_TRUE(until([&] { return panel->isGood("SollwertL", 1) && onlooker->knows(drawings); }));
    EXPECT_EQ(element(setpoints, 0), 42.5);
    EXPECT_EQ(numbers(secondSetpoints), before);
    EXPECT_EQ(held(switches), switchesBefore);
    EXPECT_EQ(numbers(drawings), drawingsBefore);
    EXPECT_EQ(panel->shown("SollwertL", 1), "42.5");
    EXPECT_EQ(panel->shown("SollwertL", 21), "21") << "what the machine holds";
}

TEST_F(RealLine, AMachineThatRestartsIsComparedWithWhatTheEditBeganFrom)
{
    const auto panel = openPanel("P1");
    panel->change("SollwertL", 1, "9");
    ASSERT_EQ(panel->confirm(), "Written, values: 1");
    panel->change("SollwertL", 1, "42.5");
    killMachines();
    ASSERT_TRUE(until([&] { return !panel->isGood("SollwertL", 1) && !onlooker->knows(setpoints); }));
    EXPECT_TRUE(panel->child("SollwertL", 1).isChanged());

    startMachines(); // and holds what its project says
    ASSERT_TRUE(until([&] { return panel->isGood("SollwertL", 1) && onlooker->knows(setpoints); }));
    EXPECT_EQ(panel->confirm(), "Not written: Start position: changed at the machine meanwhile (1.5)");
    EXPECT_TRUE(panel->child("SollwertL", 1).isChanged());
    EXPECT_EQ(element(setpoints, 0), 1.5);
    // In the knowledge of it, as soon as it can have been read.
    EXPECT_TRUE(until([&] { return panel->confirm() == "Written, values: 1"; }));
    EXPECT_TRUE(until([&] { return element(setpoints, 0) == 42.5; }));
}

TEST_F(RealLine, TwoPanelsSeeEachOthersChangesAndUndoNone)
{
    const auto first = openPanel("P1");
    const auto second = openPanel("P2");
    first->change("SollwertL", 1, "11");
    second->change("SollwertL", 1, "22");
    second->change("SollwertR", 11, "33");
    EXPECT_EQ(first->confirm(), "Written, values: 1");
    ASSERT_TRUE(until([&] { return element(setpoints, 0) == 11; }));
    EXPECT_EQ(second->confirm(), "Not written: Start position: changed at the machine meanwhile (11)");
    EXPECT_EQ(element(setpoints, 0), 11);
    EXPECT_EQ(element(setpoints, 10), 11) << "what it was";

    // What he entered himself he takes back, and then sees what the other one wrote.
    second->hands->footerKey(11);
    EXPECT_TRUE(until([&] { return second->shown("SollwertL", 1) == "11"; }));
    second->change("SollwertR", 11, "33");
    EXPECT_EQ(second->confirm(), "Written, values: 1");
    EXPECT_TRUE(until([&] { return first->shown("SollwertR", 11) == "33"; })) << "without a touch";
    EXPECT_EQ(element(setpoints, 0), 11);
}

TEST_F(RealLine, TwoPanelsOnDifferentServosDoNotDisturbEachOther)
{
    const auto first = openPanel("P1", 1);
    const auto second = openPanel("P2", 2);
    first->change("SollwertL", 1, "11");
    second->change("SollwertL", 1, "22");
    EXPECT_EQ(first->confirm(), "Written, values: 1");
    EXPECT_EQ(second->confirm(), "Written, values: 1");
    EXPECT_TRUE(until([&] { return element(setpoints, 0) == 11 && element(otherSetpoints, 0) == 22; }));
}

TEST_F(RealLine, AnotherMachineIsFollowedWhenItIsShown)
{
    const auto panel = openPanel("P1");
    EXPECT_EQ(panel->shown("SollwertL", 1), "1.5");
    panel->panel->variables().write(
        "Ch-1.intern<.aktuelle_maschine>", Variant{std::int16_t{2}}, machine::Writer::Host);
    EXPECT_TRUE(panel->isGood("SollwertL", 1)) << "what is on the screen is still of the first";
    panel->panel->openServo();
    for (const panel::ErrorEntry& entry : panel->panel->errors().entries())
        EXPECT_FALSE(entry.text.contains("Ch1.")) << entry.text.toStdString();
    EXPECT_TRUE(
        until([&] { return panel->shown("SollwertL", 1) == "7.5" && panel->isGood("SollwertL", 1); }));
    panel->change("SollwertL", 1, "42.5");
    EXPECT_EQ(panel->confirm(), "Written, values: 1");
    ASSERT_TRUE(until([&] { return !onlooker->commands.empty(); }));
    EXPECT_EQ(onlooker->commands.front(), "Ch1.M2_T_servo_3<.mM2_servo_para_3>");
    EXPECT_EQ(element(setpoints, 0), 1.5);
}

namespace {

// What a confirm of every family leaves in the machine when all of it was done.
const std::map<std::string, Variant>& wanted()
{
    static const std::map<std::string, Variant> all = [] {
        std::map<std::string, Variant> values;
        std::vector<double> first;
        for (int i = 1; i <= 20; ++i)
            first.push_back(i);
        first[0] = 42.5;
        values[setpoints] = basic::doubles(first);
        values[secondSetpoints] = basic::doubles({33, 22, 23, 24});
        values[switches] = Variant{std::int16_t{4}};
        values[drawings] = basic::doubles({123076789, 7000012});
        return values;
    }();
    return all;
}

} // namespace

// It would let everybody write everything.
TEST_F(RealLine, AMachineWhoseDefinitionsCannotBeReadDoesNotStart)
{
    killMachines();
    project.write("Servo/Servo.mdb", std::string(5000, 'x'));
    startMachines();
    ASSERT_TRUE(machines.waitForFinished(20'000));
    EXPECT_EQ(machines.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(machines.exitCode(), 1);
    const std::string said = machines.readAllStandardError().toStdString();
    EXPECT_NE(said.find("Servo.mdb"), std::string::npos) << said;
}

// The number of the command with which the panel dies.
class KilledPanel : public RealLine, public ::testing::WithParamInterface<std::size_t> { };

INSTANTIATE_TEST_SUITE_P(RealLine, KilledPanel, ::testing::Range<std::size_t>(1, 6));

TEST_P(KilledPanel, LeavesEachVariableOldOrNew)
{
    std::map<std::string, Variant> before;
    for (const auto& each : wanted())
        before[each.first] = held(each.first);
    onlooker->order(R"({"fault": "slow", "milliseconds": 200, "times": 100})");
    tests::TemporaryFolder folder; // what it leaves behind itself
    QProcess killed;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", QString::fromStdString(folder.path().string()));
    killed.setProcessEnvironment(environment);
    killed.setStandardErrorFile(QProcess::nullDevice());
    killed.setChildProcessModifier([self = ::getpid()] { endWith(self); });
    killed.start(CONFIRMING_PANEL, {QString::fromStdString(broker.socketAddress().socket.string())});
    ASSERT_TRUE(until([&] { return onlooker->commands.size() == GetParam(); }))
        << killed.readAllStandardOutput().toStdString();
    killed.kill();
    killed.waitForFinished();
    const auto sent = onlooker->commands;
    ASSERT_EQ(sent.size(), GetParam());
    // The last one had left the panel, so the machine carries it out.
    ASSERT_TRUE(until([&] { return onlooker->answers == static_cast<int>(GetParam()); }));

    onlooker->order(R"({"fault": "none"})");
    const auto next = openPanel("P1");
    for (const auto& [name, value] : wanted()) {
        const bool isSent = std::find(sent.begin(), sent.end(), name) != sent.end();
        const Variant now = held(name);
        EXPECT_EQ(now, isSent ? value : before[name]) << name << " " << mqtt::toJson(now).dump();
    }
    const std::string shown = GetParam() >= 2 ? "33" : "21";
    EXPECT_TRUE(until([&] { return next->shown("SollwertL", 21) == shown; })) << next->shown("SollwertL", 21);
    EXPECT_EQ(next->shown("SollwertL", 1), "42.5");
    next->change("SollwertR", 11, "50");
    EXPECT_EQ(next->confirm(), "Written, values: 1");
    auto all = sent;
    for (const std::string& name : {setpoints, secondSetpoints, switches, drawings, changedFlag})
        all.push_back(name);
    EXPECT_TRUE(until([&] { return onlooker->commands.size() >= all.size(); }));
    EXPECT_EQ(onlooker->commands, all) << "nothing of the dead one arrives later";
}

// A broker that asks everybody who he is.
class SecuredLine : public RealLine {
protected:
    void SetUp() override
    {
        for (const char* who :
            {"broker localhost 127.0.0.1", "panel P1", "viewer V1", "machine M1", "viewer onlooker"})
            ASSERT_TRUE(makeCertificates(keys.path(), who)) << who;
        configureLikeExample(broker, keys.path());
        ASSERT_TRUE(broker.start());
        const mqtt::BrokerAddress address = as("M1");
        startMachines({"--broker", QString::fromStdString(address.text()), "--machine", "M1", "--ca",
            QString::fromStdString(address.authority.string()), "--cert",
            QString::fromStdString(address.certificate.string()), "--key",
            QString::fromStdString(address.key.string())});
        onlooker = std::make_unique<Onlooker>(as("onlooker"));
        ASSERT_TRUE(until([&] { return onlooker->isUp() && onlooker->knows(setpoints); }))
            << machines.readAllStandardError().toStdString();
    }
    mqtt::BrokerAddress as(const std::string& name) const { return addressFor(name, broker, keys.path()); }

    tests::TemporaryFolder keys;
};

TEST_F(SecuredLine, AViewingPanelWritesNothing)
{
    BrokerPanel viewer{project, as("V1"), "V1", true};
    viewer.hands->menuKey(1);
    ASSERT_TRUE(until([&] { return viewer.isGood("SollwertL", 1); }));
    EXPECT_EQ(viewer.shown("SollwertL", 1), "1.5");
    viewer.hands->input("SollwertL", 1);
    EXPECT_FALSE(viewer.isMaskOpen());
    viewer.hands->input("SchalterL", 31);
    EXPECT_FALSE(viewer.child("SchalterL", 31).isChanged());
    EXPECT_EQ(viewer.answer(), "Cannot be changed: Synchronous: read-only");
    EXPECT_TRUE(onlooker->commands.empty());
}

TEST_F(SecuredLine, AViewersNameWritesNothingWhateverThePanelIsTold)
{
    BrokerPanel viewer{project, as("V1"), "V1"};
    viewer.hands->menuKey(1);
    ASSERT_TRUE(until([&] { return viewer.isGood("SollwertL", 1); }));
    viewer.change("SollwertL", 1, "42.5");
    EXPECT_EQ(viewer.confirm(),
        "Unclear whether written: Start position: no answer, the machine does not have the new value");

    // Somebody who may write does, after him.
    BrokerPanel panel{project, as("P1"), "P1"};
    panel.hands->menuKey(1);
    ASSERT_TRUE(until([&] { return panel.isGood("SollwertL", 1); }));
    EXPECT_EQ(panel.shown("SollwertL", 1), "1.5");
    panel.change("SollwertR", 11, "50");
    EXPECT_EQ(panel.confirm(), "Written, values: 1");
    ASSERT_TRUE(until([&] { return onlooker->answers > 0; }));
    EXPECT_EQ(onlooker->commands.front(), setpoints);
    EXPECT_EQ(element(setpoints, 0), 1.5);
    EXPECT_EQ(element(setpoints, 10), 50);
}

} // namespace servopanel::testing
