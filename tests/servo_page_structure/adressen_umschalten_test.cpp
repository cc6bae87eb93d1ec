#include "page_test.h"

namespace servopanel::testing {

namespace {

// Heading, diagnosis lines and the place of the main area.
class AdressenUmschalten : public PageTest {
protected:
    // The numbers of servo 3's texts that were looked up, in order.
    std::string lookedUp() const
    {
        std::string numbers;
        const std::string found = lines("text Servo.M1.Servo3.");
        for (std::size_t at = 0; at < found.size(); at = found.find('\n', at) + 1) {
            const std::size_t from = at + std::string_view{"text Servo.M1.Servo3."}.size();
            numbers += found.substr(from, found.find(' ', from) - from) + " ";
        }
        return numbers;
    }
    static std::string sequence(int first, int last)
    {
        std::string numbers;
        for (int i = first; i <= last; ++i)
            numbers += std::to_string(i) + " ";
        return numbers;
    }
};

// The heading stands twice among the texts; setpoints 1, 2, 11 and 21 are what the definitions hold.
TEST_F(AdressenUmschalten, TouchesNoDiagnosisLineOnTheParameterPage)
{
    show();
    EXPECT_EQ(lookedUp(), "0 0 1 2 11 21 61 62 ");
    EXPECT_EQ(lines("put ServoMain.Beschriftung(101).28"), "");
    EXPECT_EQ(lines("put ServoMain.Überschrift.28"),
        "put ServoMain.Überschrift.28 = \"Feeder\"\nput ServoMain.Überschrift.28 = \"Feeder\"\n");
}

TEST_F(AdressenUmschalten, FillsTheLinesWithTheTextsOfTheFirstDiagnosisPage)
{
    show();
    run("key 10\n");
    EXPECT_EQ(lookedUp(), "30 30 31 32 " + sequence(41, 60) + "1 2 11 21 61 62 ");
}

TEST_F(AdressenUmschalten, FillsTheLinesWithTheTextsOfTheSecondDiagnosisPage)
{
    show();
    run("key 10\nkey 8\n");
    EXPECT_TRUE(contains(lookedUp(), "70 70 71 72 " + sequence(81, 100) + "1 2 11 21 61 62 "));
}

TEST_F(AdressenUmschalten, PutsTheTextsIntoTheirLines)
{
    show("text Servo.M1.Servo3.30 = Diagnosis\ntext Servo.M1.Servo3.31 = Table\ntext Servo.M1.Servo3.32 = "
         "Rows\n"
         "text Servo.M1.Servo3.41 = Line;mm\ntext Servo.M1.Servo3.60 = Last;s\n"
         "text Servo.M1.Servo3.81 = Other;V\ntext Servo.M1.Servo3.72 = Columns\n");
    run("key 10\n");
    EXPECT_EQ(state("Überschrift.28"), "\"Diagnosis\"");
    EXPECT_EQ(state("Beschriftung(121).28"), "\"Table\"");
    EXPECT_EQ(state("Beschriftung(122).28"), "\"Rows\"");
    EXPECT_EQ(state("Beschriftung(101).28"), "\"Line\"");
    EXPECT_EQ(state("Einheit(101).28"), "\"mm\"");
    EXPECT_EQ(state("Beschriftung(120).28"), "\"Last\"");
    EXPECT_EQ(state("Einheit(120).28"), "\"s\"");
    run("key 8\n");
    EXPECT_EQ(state("Beschriftung(101).28"), "\"Other\"");
    EXPECT_EQ(state("Einheit(101).28"), "\"V\"");
    EXPECT_EQ(state("Beschriftung(122).28"), "\"Columns\"");
    EXPECT_EQ(state("Beschriftung(120).28"), "\"\"");
}

TEST_F(AdressenUmschalten, FreesTheScrollBarFirst)
{
    const std::string trace = show();
    const std::size_t freed = trace.find("put ServoMain.ScrollBar.0x68030007 = false\n");
    ASSERT_NE(freed, std::string::npos);
    EXPECT_LT(freed, trace.find("text "));
}

constexpr std::string_view places[]{"put ServoMain.MainBereich(1).Top", "put ServoMain.MainBereich(2).Top"};

TEST_F(AdressenUmschalten, GoesToTheTopWhenTheServoStays)
{
    show();
    EXPECT_EQ(lines({places[0], places[1]}), "");
    run("key 10\n");
    EXPECT_EQ(lines({places[0], places[1]}),
        "put ServoMain.MainBereich(1).Top = 0\nput ServoMain.MainBereich(2).Top = 0\n");
}

TEST_F(AdressenUmschalten, StaysAtTheEndOfTheList)
{
    show();
    run("pagescroll 3\n");
    EXPECT_EQ(lines({places[0], places[1]}),
        "put ServoMain.MainBereich(1).Top = -30\nput ServoMain.MainBereich(2).Top = -30\n");
    run("key 10\n");
    EXPECT_EQ(lines({places[0], places[1]}), "");
}

TEST_F(AdressenUmschalten, DoesNotLayOutAnythingForAServoOutsideTheList)
{
    show();
    run("key! 5\n");
    EXPECT_EQ(lines("text "), "");
    EXPECT_GT(count(lines("error 9 \"Ma AdressenUmschalten\""), "\n"), 20U);
    EXPECT_EQ(lines("put ServoMain.BeschriftungL(1).28"), "");
    EXPECT_EQ(lines("put ServoMain.Überschrift.28"), "");
    EXPECT_EQ(lines({"put ServoMain.SollwertL(1).Visible", "put ServoMain.SchalterL(31).Visible",
                  "put ServoMain.ZeichnungL(41).Visible"}),
        "");
}

TEST_F(AdressenUmschalten, ShowsAnEmptyTextForAMissingOne)
{
    show("text Servo.M1.Servo3.1 =\n");
    EXPECT_EQ(state("BeschriftungL(1).28"), "\"\"");
    EXPECT_EQ(state("BeschriftungL(1).Visible"), "true");
}

} // namespace

} // namespace servopanel::testing
