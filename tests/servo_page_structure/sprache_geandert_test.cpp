#include "page_test.h"

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

} // namespace

} // namespace servopanel::testing
