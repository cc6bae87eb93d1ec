#include "page_test.h"

#include "basic/error.h"

namespace servopanel::testing {

namespace {

class SpracheGeandert : public PageTest { };

TEST_F(SpracheGeandert, GivesTheCaptionsOnThePictureTheLanguagesFont)
{
    show();
    run("language 2\n");
    const std::string fonts = lines("put ServoMain.ParaBeschriftung(");
    for (const std::string caption : {"0", "1"})
        for (const std::string part : {"Name", "Charset", "Bold", "Weight"})
            EXPECT_EQ(count(fonts, "ParaBeschriftung(" + caption + ").Font." + part + " = "), 1U) << part;
    EXPECT_LT(fonts.find("(0).Font.Name"), fonts.find("(0).Font.Charset"));
    EXPECT_LT(fonts.find("(0).Font.Charset"), fonts.find("(0).Font.Bold"));
    EXPECT_LT(fonts.find("(0).Font.Bold"), fonts.find("(0).Font.Weight"));
    EXPECT_FALSE(contains(fonts, "(2)"));
}

TEST_F(SpracheGeandert, FetchesEveryTextAnew)
{
    show();
    run("text Servo.M1.Servo3.0 = Zuführung\ntext Servo.M1.Servo3.1 = Weg;mm\nlanguage 2\n");
    EXPECT_EQ(state("Überschrift.28"), "\"Zuführung\"");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"Weg\"");
}

TEST_F(SpracheGeandert, LeavesValuesAndPlaceOfTheAreaAlone)
{
    show();
    run("language 2\n");
    EXPECT_EQ(lines("read "), "");
    EXPECT_EQ(lines("put ServoMain.MainBereich(1).Top"), "");
}

// The text of setpoint 2 and that of the second diagnosis line.
TEST_F(SpracheGeandert, KeepsTheTextThatCannotBeFetchedAndNoOther)
{
    show("text Servo.M1.Servo3.42 = Torque;Nm\n");
    run("key 10\nkey 10\n");
    replay.host().world().lookUpText = [](std::string_view key) -> std::string {
        if (key == "Servo.M1.Servo3.2" || key == "Servo.M1.Servo3.42")
            basic::raise(basic::ErrorNumber::InvalidProcedureCall);
        return "New;V";
    };
    run("language 2\n");
    EXPECT_EQ(count(lines("error 5 \"Ma AdressenUmschalten\""), "\n"), 1U);
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"New\"");
    EXPECT_EQ(state("BeschriftungL(2).28"), "\"Speed of the feeder while the line is\"");
    EXPECT_EQ(state("EinheitL(2).28"), "\"mm/s\"");
    EXPECT_EQ(state("SollwertL(2).Visible"), "true");

    run("key! 10\n");
    EXPECT_EQ(count(lines("error 5 \"Ma AdressenUmschalten\""), "\n"), 2U);
    EXPECT_EQ(state("Beschriftung(101).28"), "\"New\"");
    EXPECT_EQ(state("Beschriftung(102).28"), "\"Torque\"");
    EXPECT_EQ(state("Einheit(102).28"), "\"Nm\"");
    EXPECT_EQ(state("Beschriftung(103).28"), "\"New\"");
}

} // namespace

} // namespace servopanel::testing
