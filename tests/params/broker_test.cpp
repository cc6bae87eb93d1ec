#include "line_machine/line.h"
#include "mqtt/mosquitto_process.h"
#include "mqtt/pumped_link.h"
#include "params/params_fixture.h"

namespace servopanel::testing {

// The tool and a simulated machine over a real broker: out, changed by hand, in again.
TEST_F(ParamsFixture, GoesAroundOnARealBroker)
{
    MosquittoProcess broker;
    ASSERT_TRUE(broker.start());
    machine::ProjectFile file = machine::ProjectFile::load(folder.path() / "project" / "project.json");
    file.machine.emplace();
    file.machine->periodSeconds = 0.01;
    file.machine->takeoverSeconds = 0.05;
    file.machine->lines.push_back({"M1", "", 1, {{1, 10}}});
    file.machine->servos.push_back({"M1", 3, "", {}, {}, {}});
    line_machine::Line line{file,
        {.broker = broker.address(), .machines = {"M1"}, .definitions = {}, .epoch = 1'700'000'000'000}};
    surroundings.clock = mqtt::steadyClock();
    surroundings.makeLink = [&line](const mqtt::BrokerAddress& address, const std::string& client) {
        return std::make_unique<PumpedLink>(
            mqtt::BrokerLinkSettings{.address = address, .client = client}, [&line] { line.run(2); });
    };
    const std::string port = std::to_string(broker.address().port);
    const std::string dumped = (folder.path() / "dump.csv").string();
    const auto tool = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--broker", "127.0.0.1:" + port});
        return run(arguments);
    };

    ASSERT_EQ(tool({"dump", project(), "--machine", "M1", "--servo", "3", "-o", dumped}), 0) << output.errors;
    std::string text = tests::contentOf(dumped);
    const std::string before = "servo_para_3>,0,Web tension,N,20\n";
    ASSERT_NE(text.find(before), std::string::npos) << text;
    text.replace(text.find(before), before.size(), "servo_para_3>,0,Web tension,N,24.5\n");
    folder.file("dump.csv", text);

    EXPECT_EQ(tool({"diff", dumped, "M1/3"}), 1) << output.errors;
    EXPECT_TRUE(shows("3      servo_para  0        Web tension  N     24.5")) << output.text;
    EXPECT_EQ(tool({"load", dumped, "--machine", "M1", "--project", project()}), 1) << output.errors;
    EXPECT_TRUE(shows("1 to be written, 9 unchanged\n")) << output.text;
    EXPECT_EQ(tool({"load", dumped, "--machine", "M1", "--project", project(), "--apply", "--no-journal"}), 0)
        << output.errors;
    EXPECT_TRUE(shows("20       24.5  done\n")) << output.text;
    EXPECT_EQ(tool({"diff", dumped, "M1/3"}), 0) << output.text << output.errors;
    EXPECT_EQ(
        tool({"load", dumped, "--machine", "M1", "--project", project(), "--apply", "--no-journal"}), 0);
    EXPECT_EQ(output.text, "10 unchanged\n");
}

} // namespace servopanel::testing
