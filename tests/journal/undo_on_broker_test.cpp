#include "journal/journal_reader.h"
#include "journal/journaled_variables.h"
#include "journal/tool.h"
#include "line_machine/line.h"
#include "mqtt/broker_variables.h"
#include "mqtt/mosquitto_process.h"
#include "mqtt/pumped_link.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::testing {

namespace {

const std::string setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
const std::string changedFlag = "Ch1.M1_T_servo_3<.mM1_servoaender_3>";

// A machine that takes over what it is told of.
machine::ProjectFile oneMachine()
{
    machine::ProjectFile project;
    project.machine.emplace();
    project.machine->periodSeconds = 0.01;
    project.machine->takeoverSeconds = 0.05;
    project.machine->lines.push_back({"M1", "", 1, {{1, 10}}});
    project.machine->servos.push_back({"M1", 3, "", {}, {}, {}});
    project.variables.push_back({setpoints, basic::doubles({20, 35.5})});
    project.variables.push_back({changedFlag, std::int16_t{0}});
    return project;
}

} // namespace

TEST(UndoOnBroker, TakesAWriteBackAndTellsTheMachine)
{
    MosquittoProcess broker;
    ASSERT_TRUE(broker.start());
    line_machine::Line line{oneMachine(),
        {.broker = broker.address(), .machines = {"M1"}, .definitions = {}, .epoch = 1'700'000'000'000}};
    const auto pumped = [&](const mqtt::BrokerAddress& address, const std::string& client) {
        return std::make_unique<PumpedLink>(
            mqtt::BrokerLinkSettings{.address = address, .client = client}, [&] { line.run(2); });
    };
    const auto link = pumped(broker.address(), "panel-P1");
    const auto variables = std::make_shared<mqtt::BrokerVariables>(
        mqtt::BrokerVariablesSettings{.panel = "P1", .machines = {"M1"}}, *link);
    const mqtt::Clock clock = mqtt::steadyClock();
    const auto holds = [&](const std::string& name, const basic::Variant& value) {
        const auto isSo = [&] {
            return variables->standing(name).quality == mqtt::Quality::Good
                && variables->ReadValue(name) == value;
        };
        for (const std::int64_t end = clock() + 20'000; !isSo() && clock() < end;)
            variables->poll(2);
        return isSo();
    };
    ASSERT_TRUE(holds(setpoints, basic::doubles({20, 35.5})));

    const tests::TemporaryFolder folder;
    {
        journal::JournalFile file{{.folder = folder.path()}};
        journal::JournaledVariables panel{variables, file,
            {.panel = [] { return "P1"; },
                .level = [] { return std::int16_t{0}; },
                .trouble = [](const std::string& reason) { ADD_FAILURE() << reason; }}};
        panel.ReadValue(setpoints);
        panel.WriteValue(setpoints, basic::doubles({20, 36}));
    }

    journal::Surroundings surroundings = journal::ownSurroundings("servo-journal");
    surroundings.makeLink = pumped;
    const std::string address = "unix:" + broker.socketAddress().socket.string();
    std::vector<std::string> arguments{folder.path(), "--undo", "1", "--broker", address, "--name", "P1"};
    journal::ToolOutput output;
    EXPECT_EQ(journal::runTool(arguments, surroundings, output), journal::Status::Good) << output.errors;
    EXPECT_TRUE(holds(setpoints, basic::doubles({20, 36})));
    arguments.emplace_back("--apply");
    output = {};
    EXPECT_EQ(journal::runTool(arguments, surroundings, output), journal::Status::Good) << output.errors;
    EXPECT_NE(output.text.find("element 1 goes back from 36 to 35.5"), std::string::npos) << output.text;

    // The panel of the same name is still connected and sees it.
    EXPECT_TRUE(holds(setpoints, basic::doubles({20, 35.5})));
    EXPECT_TRUE(holds(changedFlag, std::int16_t{0})) << "taken over";
    const std::vector<journal::Entry> kept = journal::readJournal(folder.path()).entries;
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[1].oldValue, 36);
    EXPECT_EQ(kept[1].newValue, 35.5);
    EXPECT_EQ(kept[2].variable, changedFlag);
    EXPECT_EQ(kept[2].result, journal::Result::Done);
}

} // namespace servopanel::testing
