#include "basic/error.h"
#include "line_machine/line.h"
#include "mqtt/broker_link.h"
#include "mqtt/broker_variables.h"
#include "mqtt/mosquitto_process.h"
#include "mqtt/pumped_link.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::testing {

namespace {

std::string nameOf(const std::string& machine, const std::string& family)
{
    std::string name = "Ch1." + machine;
    name += "_T_servo_1<.m" + machine;
    name += "_" + family;
    return name + "_1>";
}

// Two machines with one servo each, that take over what the panel announces.
machine::ProjectFile twoMachines()
{
    machine::ProjectFile project;
    project.machine.emplace();
    project.machine->periodSeconds = 0.01;
    project.machine->takeoverSeconds = 0.05;
    for (const std::string machine : {"M1", "M2"}) {
        project.machine->lines.push_back({machine, "", 1, {{1, 10}}});
        project.machine->servos.push_back({machine, 1, "", {}, {}, {}});
        for (const char* family : {"servo_para", "servo_para2", "servo_zeich"})
            project.variables.push_back({nameOf(machine, family), basic::doubles({1, 2})});
        project.variables.push_back({nameOf(machine, "servo_schalt"), std::int16_t{0}});
        project.variables.push_back({nameOf(machine, "servoaender"), std::int16_t{0}});
    }
    return project;
}

} // namespace

TEST(Line, RunsEveryMachineOfAProjectOnABroker)
{
    MosquittoProcess broker;
    ASSERT_TRUE(broker.start());
    const machine::ProjectFile project = twoMachines();
    EXPECT_EQ(line_machine::machinesOf(project), (std::vector<std::string>{"M1", "M2"}));
    jet::DefinitionRow level;
    level.machineType = "M2";
    level.variable = nameOf("M2", "servo_para");
    level.element = std::int16_t{1};
    level.pass = std::int16_t{3};
    level.max = basic::Null{};
    line_machine::Line line{project,
        {.broker = broker.address(),
            .machines = {"M1", "M2"},
            .definitions = {level},
            .epoch = 1'700'000'000'000}};

    PumpedLink link{{.address = broker.socketAddress(), .client = "panel"}, [&] { line.run(2); }};
    mqtt::BrokerVariables variables{{.panel = "P1", .machines = {"M1", "M2"}}, link};
    variables.setLevel(2);
    const mqtt::Clock clock = mqtt::steadyClock();
    const auto until = [&](const std::function<bool()>& condition) {
        for (const std::int64_t end = clock() + 20'000; !condition() && clock() < end;)
            variables.poll(2);
        return condition();
    };
    const auto isGood = [&](const std::string& name) {
        return variables.standing(name).quality == mqtt::Quality::Good;
    };
    for (const std::string machine : {"M1", "M2"}) {
        const std::string para = nameOf(machine, "servo_para");
        const std::string flag = nameOf(machine, "servoaender");
        ASSERT_TRUE(until([&] { return isGood(para) && isGood(flag); })) << variables.standing(para).reason;
        variables.WriteValue(para, basic::doubles({5, 2}));
        variables.WriteValue(flag, std::int16_t{1});
        EXPECT_EQ(variables.ReadValue(para), basic::doubles({5, 2}));
        EXPECT_TRUE(until([&] { return variables.ReadValue(flag) == basic::Variant(std::int16_t{0}); }))
            << "the machine takes over and says so";
    }
    try {
        variables.WriteValue(nameOf("M2", "servo_para"), basic::doubles({5, 3}));
        ADD_FAILURE() << "a level is needed";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.number, static_cast<std::int32_t>(mqtt::Outcome::LevelTooLow)) << error.description;
    }

    std::string news;
    for (const std::string& one : line.takeNews())
        news += one + "\n";
    EXPECT_NE(
        news.find("machine M2: definitions: Max is no number and limits nothing: M2, Ch1.M2_T_servo_1<"),
        std::string::npos)
        << news;
    EXPECT_NE(news.find("machine M1: on the broker\n"), std::string::npos) << news;
    EXPECT_NE(news.find("machine M2: on the broker\n"), std::string::npos) << news;
}

} // namespace servopanel::testing
