#include "line_machine/line.h"
#include "mqtt/broker_example.h"
#include "mqtt/pumped_link.h"
#include "params/params_fixture.h"

namespace servopanel::testing {

// A broker that lets everybody do what his certificate says.
TEST_F(ParamsFixture, SaysWhatABrokerLetsNobodyDo)
{
    ASSERT_TRUE(makeCertificates(folder.path(), "broker localhost 127.0.0.1"));
    for (const char* client : {"panel P1", "viewer V1", "machine M1"})
        ASSERT_TRUE(makeCertificates(folder.path(), client)) << client;
    MosquittoProcess broker;
    configureLikeExample(broker, folder.path());
    ASSERT_TRUE(broker.start());
    machine::ProjectFile file = machine::ProjectFile::load(folder.path() / "project" / "project.json");
    line_machine::Line line{file,
        {.broker = addressFor("M1", broker, folder.path()),
            .machines = {"M1"},
            .definitions = {},
            .epoch = 1'700'000'000'000}};
    surroundings.clock = mqtt::steadyClock();
    std::string who = "V1";
    surroundings.makeLink = [&](const mqtt::BrokerAddress&, const std::string& client) {
        return std::make_unique<PumpedLink>(
            mqtt::BrokerLinkSettings{.address = addressFor(who, broker, folder.path()),
                .client = client,
                .firstRetryMilliseconds = 20},
            [&line] { line.run(2); });
    };
    const std::string set = setFile(row("servo_para", 3, 0, "25"));

    EXPECT_EQ(run({"diff", set, "M1/3", "--broker", "localhost", "--name", "V1"}), 1) << output.errors;
    EXPECT_EQ(load(set, {"--name", "V1", "--apply"}), 2);
    EXPECT_TRUE(shows("25    unknown: no answer, and the machine does not hold the new value\n"))
        << output.text;
    EXPECT_TRUE(says("or the broker lets our name only look on")) << output.errors;

    who = "P1";
    EXPECT_EQ(load(set, {"--name", "other", "--apply"}), 2);
    EXPECT_TRUE(
        says("the values of machine M1 do not come; does the broker know us by the name 'other' (--name)?"))
        << output.errors << output.text;
    EXPECT_EQ(load(set, {"--name", "P1", "--apply"}), 0) << output.errors << output.text;
}

} // namespace servopanel::testing
