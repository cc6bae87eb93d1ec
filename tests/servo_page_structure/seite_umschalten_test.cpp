#include "page_test.h"

#include "servo_page/servo_main.h"
#include "support/lone.h"

namespace servopanel::testing {

namespace {

// The keys as SeiteUmschalten sets them: pictures, switches and colours between the rows and the caption layout.
std::string keys(const std::string& trace)
{
    std::string found;
    std::size_t at = trace.rfind("put ServoMain.Fehlertext.Visible");
    at = trace.find('\n', at) + 1;
    while (trace.compare(at, 4, "call") == 0 || trace.compare(at, 5, "error") == 0) {
        const std::size_t end = trace.find('\n', at) + 1;
        found += trace.substr(at, end - at);
        at = end;
        if (found.find("0x68030004(11, true)") != std::string::npos) break; // key 11 is the last
    }
    return found;
}

class SeiteUmschalten : public PageTest {
protected:
    static std::string empty(int key)
    {
        return picture(key, "Standard\\empty_1280.gif") + enable(key, false);
    }
    static std::string noDiagnosis()
    {
        const std::string none = "Standard\\empty_1280.gif";
        return picture(7, none) + picture(8, none) + enable(7, false) + enable(8, false) + colour(7, silver)
            + colour(8, silver);
    }
    static std::string parameterKeys()
    {
        return noDiagnosis() + picture(10, "Servo\\Servo_Diag_1280.gif") + enable(10, true)
            + picture(11, "Standard\\F_Exit_1280.gif") + enable(11, true);
    }
    static std::string noEngine() { return empty(4) + colour(4, silver); }
    static std::string up() { return picture(5, "Standard\\F_PageUp_1280.gif") + enable(5, true); }
    static std::string down() { return picture(6, "Standard\\F_PageDown_1280.gif") + enable(6, true); }
};

TEST_F(SeiteUmschalten, HasNoPreviousServoOnTheFirst)
{
    EXPECT_EQ(keys(show()), empty(5) + down() + noEngine() + parameterKeys());
}

TEST_F(SeiteUmschalten, HasBothDirectionsInBetween)
{
    EXPECT_EQ(
        keys(show("var Ch-1.intern<.servo_zeiger> = 2\n")), up() + down() + noEngine() + parameterKeys());
}

TEST_F(SeiteUmschalten, HasNoNextServoOnTheLast)
{
    EXPECT_EQ(
        keys(show("var Ch-1.intern<.servo_zeiger> = 3\n")), up() + empty(6) + noEngine() + parameterKeys());
}

TEST_F(SeiteUmschalten, HasNeitherWithASingleServo)
{
    EXPECT_EQ(keys(show("var parameter<.servo_anzahl_1> = 1\n")),
        empty(5) + empty(6) + noEngine() + parameterKeys());
}

TEST_F(SeiteUmschalten, OffersTheEngineToLevelFive)
{
    EXPECT_EQ(keys(show("var Ch-1.intern<.passwort> = 5\n")),
        empty(5) + down() + picture(4, "Standard\\F_engine_1280.gif") + enable(4, true) + colour(4, silver)
            + parameterKeys());
}

TEST_F(SeiteUmschalten, OffersBothDiagnosisPagesAndColoursTheShownOne)
{
    show();
    const std::string pages = picture(7, "Servo\\Servo_Diag1_1280.gif")
        + picture(8, "Servo\\Servo_Diag2_1280.gif") + enable(7, true) + enable(8, true);
    const std::string others = picture(10, "Servo\\Servo_1280.gif") + enable(10, true)
        + picture(11, "Standard\\F_Exit_1280.gif") + enable(11, true);

    EXPECT_EQ(keys(run("key 10\n")),
        empty(5) + down() + noEngine() + pages + colour(7, green) + colour(8, silver) + others);
    EXPECT_EQ(keys(run("key 8\n")),
        empty(5) + down() + noEngine() + pages + colour(8, green) + colour(7, silver) + others);
}

TEST_F(SeiteUmschalten, HasNoDiagnosisKeysForAServoWithoutASecondPage)
{
    show("var Ch-1.intern<.servo_zeiger> = 2\n");
    EXPECT_EQ(keys(run("key 10\n")),
        up() + down() + noEngine() + noDiagnosis() + picture(10, "Servo\\Servo_1280.gif") + enable(10, true)
            + picture(11, "Standard\\F_Exit_1280.gif") + enable(11, true));
}

TEST_F(SeiteUmschalten, HasNoEngineOnADiagnosisPage)
{
    show("var Ch-1.intern<.passwort> = 5\n");
    EXPECT_TRUE(contains(keys(run("key 10\n")), noEngine()));
}

TEST_F(SeiteUmschalten, TouchesNoDiagnosisKeyWhenTheServoHasNoListPosition)
{
    show();
    run("key 10\n");
    // Key 5 is off on the first servo; delivered all the same, it leads to position 0.
    const std::string trace = run("key! 5\n");
    EXPECT_EQ(keys(trace),
        empty(5) + down() + noEngine() + "error 9 \"Ma SeiteUmschalten\" \"Subscript out of range\"\n"
            + picture(10, "Servo\\Servo_1280.gif") + enable(10, true)
            + picture(11, "Standard\\F_Exit_1280.gif") + enable(11, true));
}

TEST_F(SeiteUmschalten, ReadsTheServosSettingsBeforeItsTexts)
{
    const std::string trace = show("picture Servo\\Servo_5_1280.gif 10 10\n");
    const std::size_t start = trace.find("profile Parameter\\Program.ini [Machine1]");
    ASSERT_NE(start, std::string::npos);
    EXPECT_EQ(trace.substr(start, trace.find("exists") - start),
        "profile Parameter\\Program.ini [Machine1] ExtServo1 = \"\"\n");
    const std::size_t written = trace.find("write Ch-1.intern<.servo_zeiger> = 1\n");
    EXPECT_GT(written, trace.find("db close"));
    EXPECT_EQ(trace.substr(written, trace.find("put ServoMain.ScrollBar", written) - written),
        "write Ch-1.intern<.servo_zeiger> = 1\n"
        "picture Servo\\Servo_3_1280.gif\n"
        "put ServoMain.ParaPic.Picture = <picture Servo\\Servo_3_1280.gif>\n");
}

TEST_F(SeiteUmschalten, LoadsAServosPictureOnce)
{
    show();
    run("key 6\n");
    const std::string trace = run("key 5\n");
    EXPECT_EQ(lines("picture"), "");
    EXPECT_TRUE(contains(trace, "put ServoMain.ParaPic.Picture = <picture Servo\\Servo_3_1280.gif>\n"));
}

TEST_F(SeiteUmschalten, KeepsServoAndPictureWhenOnlyThePageChanges)
{
    show();
    run("key! 10\n");
    EXPECT_EQ(
        lines({"write Ch-1.intern<.servo_zeiger>", "put ServoMain.ParaPic", "db open", "profile Parameter"}),
        "");
}

TEST_F(SeiteUmschalten, ShowsHalvesAndScrollBarOnTheParameterPageOnly)
{
    show();
    const auto parts = [&] {
        return lines({"put ServoMain.MainRahmen(1).V", "put ServoMain.MainRahmen(2).V",
            "put ServoMain.ScrollBar.V", "put ServoMain.DetailBox.V", "put ServoMain.Fehlertext.V"});
    };
    const std::string parameters = "put ServoMain.MainRahmen(1).Visible = true\n"
                                   "put ServoMain.MainRahmen(2).Visible = true\n"
                                   "put ServoMain.ScrollBar.Visible = true\n"
                                   "put ServoMain.DetailBox.Visible = false\n"
                                   "put ServoMain.Fehlertext.Visible = false\n";
    EXPECT_EQ(parts(), parameters);
    run("key 10\n");
    EXPECT_EQ(parts(),
        "put ServoMain.MainRahmen(1).Visible = false\n"
        "put ServoMain.MainRahmen(2).Visible = false\n"
        "put ServoMain.ScrollBar.Visible = false\n"
        "put ServoMain.DetailBox.Visible = true\n"
        "put ServoMain.Fehlertext.Visible = true\n");
    run("key 10\n");
    EXPECT_EQ(parts(), parameters);
}

TEST_F(SeiteUmschalten, ShowsTheFaultTextInProjectsWithFaultsOnly)
{
    show("file Parameter\\Program.ini\n[Project]\nServoWithMenu=TRUE\n[1Machine]\nServo1=3\nend\n"
         "var parameter<.servo_anzahl_1> = 1\n");
    run("key 10\n");
    EXPECT_EQ(lines("put ServoMain.Fehlertext.V"), "put ServoMain.Fehlertext.Visible = false\n");
}

TEST_F(SeiteUmschalten, ReadsTheValuesInFullWhateverWasChanged)
{
    show();
    run("touch SollwertL 1\nmask 7\n");
    run("key! 6\n");
    EXPECT_TRUE(contains(lines("put ServoMain.SollwertL(1).8"), "= 51\n"))
        << "the edit of one servo reached another";
    EXPECT_EQ(lines("read Ch1.M1_T_servo_3"), "");
}

TEST_F(SeiteUmschalten, ReadsNoValuesWhileDefinitionsAreEdited)
{
    show("var Ch-1.intern<.passwort> = 5\n");
    run("key! 4\ntouch SollwertL 1\nini 0 50 2\n");
    EXPECT_EQ(lines("read Ch1."), "");
    EXPECT_TRUE(contains(lines("call"), enable(4, true) + colour(4, green)));
}

TEST_F(SeiteUmschalten, EndsTheEditingOfDefinitionsWithTheServo)
{
    show("var Ch-1.intern<.passwort> = 5\n");
    run("key! 4\n");
    run("key! 6\n");
    EXPECT_TRUE(contains(lines("call"), enable(4, true) + colour(4, silver)));
    EXPECT_TRUE(contains(lines("read Ch1.M1_T_servo_5"), "servo_para_5"));
}

TEST_F(SeiteUmschalten, EndsTheEditingOfDefinitionsOnADiagnosisPage)
{
    show("var Ch-1.intern<.passwort> = 5\n");
    run("key! 4\nkey! 10\n");
    EXPECT_NE(lines("read Ch1."), "");
    run("key! 10\n");
    EXPECT_TRUE(contains(lines("call"), enable(4, true) + colour(4, silver)));
}

TEST_F(SeiteUmschalten, KeepsItsKeysForTheNextRelease)
{
    // The file has keys 5 to 8 in use; the first servo has none of 5, 7 and 8 on its parameter page.
    show();
    run("touch SollwertL 1\nmask cancel\n");
    EXPECT_FALSE(contains(lines("call"), enable(5, true)));
    EXPECT_FALSE(contains(lines("call"), enable(7, true)));
    EXPECT_TRUE(contains(lines("call"), enable(6, true)));
}

TEST_F(SeiteUmschalten, GoesOnWhenTheServoCannotBeRemembered)
{
    const std::string trace = show("fail write Ch-1.intern<.servo_zeiger>\n");
    EXPECT_EQ(count(lines("error "), "\"Ma SeiteUmschalten\""), 1U);
    EXPECT_TRUE(contains(trace, "put ServoMain.ParaPic.Picture"));
}

TEST_F(SeiteUmschalten, GoesOnWithoutAPicture)
{
    const std::string trace = show("fail load Servo\\Servo_3_1280.gif\n");
    EXPECT_TRUE(contains(trace, "put ServoMain.ParaPic.Picture = <none>\n"));
    EXPECT_EQ(lines("error "), "");
}

TEST_F(SeiteUmschalten, ShowsThePictureOfTheServosVariant)
{
    show("file Parameter\\Program.ini\n[Project]\n[1Machine]\nServo1=3\nServoPic1=2\nend\n"
         "var parameter<.servo_anzahl_1> = 1\npicture Servo\\Servo_3_2_1280.gif 10 10\n");
    EXPECT_EQ(lines("put ServoMain.ParaPic.Picture"),
        "put ServoMain.ParaPic.Picture = <picture Servo\\Servo_3_2_1280.gif>\n");
}

// The picture caches go by servo number and end at 50.
TEST_F(SeiteUmschalten, KeepsThePictureOfBeforeForAServoNumberWithoutAPlaceForOne)
{
    show("file Parameter\\Program.ini\n[Project]\n[1Machine]\nServo1=60\nend\n"
         "var parameter<.servo_anzahl_1> = 1\nvar Ch1.M1_T_servo_60<.mM1_servopassiv_60> = false\n");
    EXPECT_EQ(count(lines("error 9 \"Ma SeiteUmschalten\""), "\n"), 2U);
    EXPECT_EQ(lines("error 9 \"BildLaden\""), "");
    EXPECT_EQ(lines({"put ServoMain.ParaPic.Picture", "picture Servo\\Servo_60"}), "");
    EXPECT_NE(lines("profile Servo\\Servo_60.ini [Parameter] 1Col"), "") << "it goes on";
}

TEST_F(SeiteUmschalten, HasNoNextServoBeyondTheLast)
{
    const std::string trace = show("var Ch-1.intern<.servo_zeiger> = 4\n");
    EXPECT_TRUE(contains(trace, empty(6)));
    EXPECT_FALSE(contains(trace, enable(6, true)));
}

TEST_F(SeiteUmschalten, HasNoDiagnosisKeysOnTheSecondPageOfAServoWithoutOne)
{
    show("var Ch-1.intern<.servo_zeiger> = 2\n");
    run("key 10\n");
    EXPECT_EQ(keys(run("key! 8\n")),
        up() + down() + noEngine() + noDiagnosis() + picture(10, "Servo\\Servo_1280.gif") + enable(10, true)
            + picture(11, "Standard\\F_Exit_1280.gif") + enable(11, true));
}

TEST(SeiteUmschaltenAlone, ReadsTheServosSettingsFromTheProjectsFolder)
{
    Lone<servo_page::ServoMain> page;
    page.control.SeiteUmschalten(true);
    const Texts files = page.surround.logged("profile");
    ASSERT_FALSE(files.empty());
    EXPECT_EQ(files[0], "P:\\Parameter\\Program.ini");
}

} // namespace

} // namespace servopanel::testing
