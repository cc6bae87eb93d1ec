#include "params/params_fixture.h"

namespace servopanel::testing {

namespace {

class ServoParamsDump : public ParamsFixture {
protected:
    std::string file() const { return (folder.path() / "dump.csv").string(); }
};

} // namespace

TEST_F(ServoParamsDump, WritesTheStartValuesOfAProject)
{
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--servo", "3"}), 0);
    const std::string hash = output.text.substr(output.text.find("description,") + 12, 16);
    EXPECT_EQ(output.text,
        "servo parameters,1\nproject,Carton line\nmachine,M1\nsource,start values of "
        "project.json\ndescription,"
            + hash
            + "\n\nvariable,element,name,unit,value\n"
              "Ch1.M1_T_servo_3<.mM1_servo_para_3>,0,Web tension,N,20\n"
              "Ch1.M1_T_servo_3<.mM1_servo_para_3>,1,'=Draw,%,35.5\n"
              "Ch1.M1_T_servo_3<.mM1_servo_para_3>,2,,,0\n"
              "Ch1.M1_T_servo_3<.mM1_servo_para2_3>,0,,,1.5\n"
              "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>,0,Automatic,,1\n"
              "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>,1,,,0\n"
              "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>,2,,,1\n"
              "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>,3,,,0\n"
              "Ch1.M1_T_servo_3<.mM1_servo_zeich_3>,0,,,312450017\n"
              "Ch1.M1_T_servo_3<.mM1_servo_zeich_3>,1,,,0\n");
    EXPECT_TRUE(says("start values of project.json, not what a machine holds")) << output.errors;
    EXPECT_TRUE(net.retained.contains("pm/v1/M1/state") || controller->seen().empty());
}

TEST_F(ServoParamsDump, WritesWhatAMachineHolds)
{
    set("servo_para", 3, {21, 35.5, 0});
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--broker", "127.0.0.1"}), 0) << output.errors;
    EXPECT_EQ(output.errors, "");
    EXPECT_TRUE(shows("source,broker 127.0.0.1:1883\ntime,2026-11-22T01:19:05.250Z\nepoch,1700000000000\n"))
        << output.text;
    EXPECT_TRUE(shows("servo_para_3>,0,Web tension,N,21\n")) << output.text;
    EXPECT_TRUE(shows("servo_para_1>,0,,,10\n")) << output.text;
    EXPECT_EQ(commands(), "");
}

TEST_F(ServoParamsDump, GivesTheProjectAndItsMachineTheSameDescription)
{
    ASSERT_EQ(run({"dump", project(), "--machine", "M1", "-o", file()}), 0) << output.errors;
    EXPECT_EQ(run({"diff", file(), "M1", "--broker", "127.0.0.1"}), 0) << output.text;
    EXPECT_EQ(output.text, "0 rows differ, of 2 servos\n");
    const auto hashOf = [](const std::string& text) { return text.substr(text.find("description,"), 28); };
    const std::string ours = hashOf(tests::contentOf(file()));
    ASSERT_EQ(run({"dump", project(), "--machine", "M1", "--broker", "127.0.0.1"}), 0);
    EXPECT_EQ(hashOf(output.text), ours);
}

TEST_F(ServoParamsDump, ReplacesOnlyWhatItHasWritten)
{
    ASSERT_EQ(run({"dump", project(), "--machine", "M1", "--servo", "3", "-o", file()}), 0) << output.errors;
    EXPECT_EQ(output.text, "'" + file() + "': machine M1, 1 servo, 10 rows\n");
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "-o", file()}), 0);
    const std::string notes = folder.file("notes.txt", "by hand").string();
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "-o", notes}), 2);
    EXPECT_TRUE(says("notes.txt' is there, and is no parameter set; it stays")) << output.errors;
    EXPECT_EQ(tests::contentOf(notes), "by hand");
    EXPECT_EQ(
        run({"dump", project(), "--machine", "M1", "-o", (folder.path() / "no" / "a.csv").string()}), 2);
    EXPECT_TRUE(says("its folder does not exist")) << output.errors;
}

TEST_F(ServoParamsDump, SaysWhatIsWrong)
{
    EXPECT_EQ(run({"dump", "/nowhere", "--machine", "M1"}), 2);
    EXPECT_EQ(output.errors, "servo-params: '/nowhere/project.json': there is no such file\n");
    EXPECT_EQ(run({"dump", project(), "--machine", "M7"}), 2);
    EXPECT_EQ(output.errors, "servo-params: the project has no machine M7; its machines are M1, M2\n");
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--servo", "2"}), 2);
    EXPECT_EQ(
        output.errors, "servo-params: machine M1 has no parameters of a servo 2; its servos are 1, 3\n");
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--servo", "2", "--broker", "127.0.0.1"}), 2);
    EXPECT_TRUE(says("its servos are 1, 3")) << output.errors;
    EXPECT_EQ(run({"dump", project(), "--machine", "M2", "--broker", "127.0.0.1"}), 2);
    EXPECT_TRUE(says("servo-params: machine M2 has never been connected to the broker\n")) << output.errors;
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--language", "fr"}), 2);
    EXPECT_TRUE(says("the project has no language 'fr'")) << output.errors;
    brokerIsThere = false;
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--broker", "127.0.0.1"}), 2);
    EXPECT_TRUE(says("servo-params: no connection to the broker\n")) << output.errors;
    folder.file("project/project.json", "{\"title\": \"half");
    EXPECT_EQ(run({"dump", project(), "--machine", "M1"}), 2);
    EXPECT_TRUE(says("project.json: line 1: ")) << output.errors;
}

TEST_F(ServoParamsDump, WritesNoPartOfTheParameters)
{
    controller->orderFault(R"({"fault": "absent", "match": "servo_3<"})");
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--broker", "127.0.0.1", "-o", file()}), 2);
    EXPECT_TRUE(says("Ch1.M1_T_servo_3<.mM1_servo_para_3> cannot be read: ")) << output.errors;
    EXPECT_FALSE(std::filesystem::exists(file()));
    EXPECT_EQ(
        run({"dump", project(), "--machine", "M1", "--servo", "1", "--broker", "127.0.0.1", "-o", file()}), 0)
        << output.errors;
}

TEST_F(ServoParamsDump, ExplainsItself)
{
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(shows("servo-params load FILE"));
    EXPECT_EQ(run({"dump", project(), "--machine", "M1", "--help"}), 0);
    EXPECT_TRUE(shows("servo-params load FILE"));
    const std::vector<std::vector<std::string>> wrong{{}, {"show"}, {"dump"}, {"dump", project()},
        {"dump", project(), "more", "--machine", "M1"}, {"dump", project(), "--machine"},
        {"dump", project(), "--machine", "M1", "--apply"},
        {"dump", project(), "--machine", "M1", "--servo", "x"},
        {"dump", project(), "--machine", "M1", "--broker", "a:b"}, {"diff", "M1"}, {"diff", "M1", "M2", "M3"},
        {"diff", "M1", "--limits"}, {"load", "a.csv"}, {"load", "a.csv", "--machine", "M1"},
        {"load", "a.csv", "--machine", "M1", "--broker", "h", "--ask"},
        {"load", "a.csv", "--machine", "M1", "--broker", "h", "--apply"},
        {"load", "a.csv", "--machine", "M1", "--broker", "h", "--apply", "--journal", "j", "--no-journal"},
        {"load", "a.csv", "--machine", "M1", "--broker", "h", "--level", "6"}};
    for (const auto& arguments : wrong) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_TRUE(says("; servo-params --help shows what there is\n")) << output.errors;
        EXPECT_EQ(output.text, "");
    }
}

} // namespace servopanel::testing
