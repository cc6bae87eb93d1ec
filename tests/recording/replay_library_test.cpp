#include "jet/definition_row.h"
#include "support/replay_fixture.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using servopanel::testing::ReplayFixture;
using servopanel::testing::standardProject;

class ReplayOfTheLibrary : public ReplayFixture {
protected:
    void SetUp() override { run(standardProject); }
};

TEST_F(ReplayOfTheLibrary, StartsWithTheMenuWithoutAnError)
{
    run("create\nshow");
    EXPECT_EQ(replay.lines({"error", "message"}), "");
    EXPECT_EQ(replay.lines({"put ServoMain.Visible", "put ServoMenu.Visible", "raise"}),
        "raise ServoMenu.JetztAnzeigen()\nput ServoMenu.Visible = true\n");
}

TEST_F(ReplayOfTheLibrary, OpensThePageOfAChosenServoWithoutAnError)
{
    run("create\nshow\nmenudown BildIm 1 100 100\nmenuup BildIm 1 100 100");
    EXPECT_EQ(replay.lines({"error", "message"}), "");
    EXPECT_EQ(replay.lines({"put ServoMain.Visible", "put ServoMenu.Visible", "raise"}),
        "raise ServoMenu.JetztAnzeigen()\n"
        "put ServoMenu.Visible = true\n"
        "raise ServoMenu.ServoBildAufrufen(1)\n"
        "put ServoMenu.Visible = false\n"
        "raise ServoMain.JetztAnzeigen()\n"
        "put ServoMain.Visible = true\n");
}

TEST_F(ReplayOfTheLibrary, WritesAnEditedSetpoint)
{
    run("var Ch-1.intern<.servo_zeiger> = 1\ncreate\nshow\ntouch SollwertL 1\nmask 12.5");
    EXPECT_EQ(run("key 10\nget ServoMain.SollwertL(1).8").find("refused"), std::string::npos);
    EXPECT_EQ(replay.lines({"write Ch1", "error", "state"}),
        "write Ch1.M1_T_servo_3<.mM1_servo_para_3> = [12.5, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, "
        "16, 17, 18, 19, 20]\n"
        "write Ch1.M1_T_servo_3<.mM1_servo_para2_3> = [21, 22, 23, 24]\n"
        "write Ch1.M1_T_servo_3<.mM1_servo_schalt_3> = 5\n"
        "write Ch1.M1_T_servo_3<.mM1_servo_zeich_3> = [123456789, 7000012]\n"
        "write Ch1.M1_T_servo_3<.mM1_servoaender_3> = 1\n"
        "state ServoMain.SollwertL(1).8 = 12.5\n");
}

TEST_F(ReplayOfTheLibrary, ReportsAFailedReadAndReadsTheRest)
{
    run("fail read Ch-1.intern<.passwort> 1\ncreate");
    EXPECT_EQ(replay.lines({"read Ch-1.intern<.passwort>", "error"}),
        "read Ch-1.intern<.passwort> failed\n"
        "error -2147467259 \"UserControl_Initialize\" \"Variable 'Ch-1.intern<.passwort>' cannot be "
        "read\"\n");
    run("get ErrorDisplay.Last");
    EXPECT_EQ(replay.lines("state"),
        "state ErrorDisplay.Last = \"###U:### ###B:false### ###F:0###UserControl_Initialize\"\n");
}

TEST_F(ReplayOfTheLibrary, LosesFilesAndBringsThemBack)
{
    run("lose Servo\\ServoMenu_1280.bmp\nlose Servo\\Servo.mdb\nvar Ch-1.intern<.servo_zeiger> = "
        "1\ncreate\nshow");
    EXPECT_NE(replay.lines("db open").find("failed"), std::string::npos) << replay.lines("db");
    run("terminate\npicture Servo\\ServoMenu_1280.bmp 1280 1024\ndb Servo\\Servo.mdb empty\ncreate\nshow");
    EXPECT_EQ(replay.lines({"db open", "picture Servo\\ServoMenu"}).find("failed"), std::string::npos);
    EXPECT_EQ(replay.lines("picture").find("ServoMenu_1280.bmp missing"), std::string::npos);
}

TEST_F(ReplayOfTheLibrary, ShowsTheOperatorWhichPictureIsMissing)
{
    run("fail load Servo\\ServoMenu_1280.bmp\ncreate");
    EXPECT_EQ(replay.lines({"picture", "message", "put ServoMenu.Picture"}),
        "picture Servo\\ServoMenu_1280.bmp missing\n"
        "message \"Picture '<project>\\Servo\\ServoMenu_1280.bmp' can not be loaded !\"\n"
        "put ServoMenu.Picture = <none>\n");
}

TEST_F(ReplayOfTheLibrary, BuildsThePageAgainAfterAScrollDuringTheBuild)
{
    run("create\non pump scroll 2\nshow");
    EXPECT_EQ(replay.lines({"pump", "> scroll", "save", "put ServoMenu.BildIm(1).Picture"}),
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_3_1280.gif\n"
        "pump\n"
        "> scroll 2\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_3_1280.gif>\n"
        "save ServoMenu.TempPicZiel C:\\Temp\\Velmora\\Servo\\Servo_7_1280.gif\n"
        "pump\n"
        "put ServoMenu.BildIm(1).Picture = <picture C:\\Temp\\Velmora\\Servo\\Servo_7_1280.gif>\n");
}

TEST_F(ReplayOfTheLibrary, EndsDuringThePageBuildWithoutHarm)
{
    run("create\non pump terminate\nshow");
    EXPECT_NE(replay.lines("> terminate"), "");
    EXPECT_NE(replay.lines("error 91"), "");
    run("create\nshow");
    EXPECT_EQ(replay.lines("error"), "");
}

TEST_F(ReplayOfTheLibrary, StopsThePageAndClosesTheErrorDisplayAtTheEnd)
{
    run("var Ch-1.intern<.servo_zeiger> = 1\nfail read Ch1.M1_T_servo_3<.mM1_servo_para_3> 1\ncreate\nshow");
    EXPECT_EQ(run("terminate"), "> terminate\ncloseme\nput ServoMain.Timer.Enabled = false\n");
}

TEST_F(ReplayOfTheLibrary, PokesThePagesModifiedFlag)
{
    run("var Ch-1.intern<.servo_zeiger> = 1\ncreate\nshow\npoke modified 1\nkey 10");
    EXPECT_EQ(replay.lines("write Ch1"), "");
    EXPECT_EQ(
        run("poke modified 0\nkey 10\nget ServoMain.DetailBox.Visible").find("refused"), std::string::npos);
    EXPECT_EQ(replay.lines("state"), "state ServoMain.DetailBox.Visible = true\n");
}

// A project folder on the disk with two INI files, a picture and a database.
class ReplayOfAFolder : public ReplayFixture {
protected:
    void SetUp() override
    {
        const std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        folder_ = std::filesystem::path{::testing::TempDir()} / ("replay project " + name);
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_ / "parameter");
        std::filesystem::create_directories(folder_ / "servo");
        std::ofstream{folder_ / "parameter" / "program.ini"}
            << "[Project]\r\nServoWithMenu=TRUE\r\n[1Machine]\r\nServo1=3\r\nServo2=5\r\nServo3=7\r\n";
        std::ofstream{folder_ / "servo" / "servo.ini"} << "[Footer]\n";
        std::ofstream{folder_ / "servo" / "servomenu_1280.bmp", std::ios::binary}
            << std::string{"GIF89a\x01\x00\x01\x00", 10};
        database_ = servopanel::jet::newDefinitionDatabase({row(0, 1), row(1, 3)});
        std::ofstream{folder_ / "servo" / "servo.mdb", std::ios::binary}.write(
            reinterpret_cast<const char*>(database_.data()), static_cast<std::streamsize>(database_.size()));
        run(standardProject);
        run("project \"" + folder_.string() + "\"");
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    static servopanel::jet::DefinitionRow row(std::int16_t element, std::int16_t pass)
    {
        using servopanel::basic::Variant;
        return {Variant{"M1"}, Variant{"Ch1.M1_T_servo_3<.mM1_servo_para_3>"}, 1000.0, 0.0, element, 100.0,
            0.0, pass};
    }

    std::filesystem::path folder_;
    servopanel::jet::Bytes database_;
};

TEST_F(ReplayOfAFolder, KeepsChangesOfDefinitionsToItself)
{
    run("var Ch-1.intern<.servo_zeiger> = 1\nvar Ch-1.intern<.passwort> = 5\ncreate\nshow");
    EXPECT_EQ(replay.lines("db"),
        "db open Servo\\Servo.mdb\n"
        "db row Ch1.M1_T_servo_3<.mM1_servo_para_3> 0\n"
        "db row Ch1.M1_T_servo_3<.mM1_servo_para_3> 1\n"
        "db close\n");
    run("key 4\ntouch SollwertL 2\nfail db update 1\nini 5 80.5 4");
    EXPECT_EQ(replay.lines({"db", "error"}),
        "db open Servo\\Servo.mdb\n"
        "db update Ch1.M1_T_servo_3<.mM1_servo_para_3> 0\n"
        "error 3260 \"INI_Datenbank_Schreiben\" \"The row cannot be updated\"\n"
        "db update Ch1.M1_T_servo_3<.mM1_servo_para_3> 1\n"
        "db close\n");
    // The page reads its definitions anew and offers the changed ones.
    run("key 5\nkey 6\nkey 5\nkey 4\ntouch SollwertL 2");
    EXPECT_EQ(replay.lines("put ServoMain.IniEingabe.0x"),
        "put ServoMain.IniEingabe.0x68030004 = 4\n"
        "put ServoMain.IniEingabe.0x68030005 = 80.5\n"
        "put ServoMain.IniEingabe.0x68030006 = 5\n"
        "put ServoMain.IniEingabe.0x68030009 = true\n");
    std::ifstream file{folder_ / "servo" / "servo.mdb", std::ios::binary};
    const std::string now{std::istreambuf_iterator<char>{file}, {}};
    EXPECT_EQ(now, std::string(database_.begin(), database_.end()));
}

TEST_F(ReplayOfAFolder, TakesFilesAndPicturesFromTheDisk)
{
    run("create\nshow");
    EXPECT_EQ(replay.lines({"profile Parameter\\Program.ini [Project] ServoWithMenu", "ini",
                  "picture Servo\\ServoMenu", "put ServoMenu.Picture"}),
        "profile Parameter\\Program.ini [Project] ServoWithMenu = \"TRUE\"\n"
        "picture Servo\\ServoMenu_1280.bmp\n"
        "put ServoMenu.Picture = <picture Servo\\ServoMenu_1280.bmp>\n"
        "ini open Servo\\Servo.ini\n"
        "ini close\n");
}

TEST_F(ReplayOfAFolder, HidesItsPlaceInMessages)
{
    run("var Ch-1.intern<.servo_zeiger> = 1\ncreate\nshow");
    EXPECT_EQ(replay.lines("message").find(folder_.string()), std::string::npos);
    EXPECT_NE(replay.lines("message \"Picture '<project>\\Servo\\ServoMain_1280.bmp'"), "");
}

TEST_F(ReplayOfAFolder, LeavesTheDiskAsItIs)
{
    run("file Ignored.ini\nend\ncreate\nshow");
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{folder_})
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 4U);
}

} // namespace
