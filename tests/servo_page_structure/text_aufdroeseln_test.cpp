#include "page_test.h"
#include "servo_page/servo_main.h"
#include "support/lone.h"

namespace servopanel::testing {

namespace {

// The caption is kept short enough for one line.
class TextAufdroeseln : public PageTest {
protected:
    std::string split(const std::string& text)
    {
        show("text Servo.M1.Servo3.1 = \"" + text + "\"\n");
        return state("BeschriftungL(1).28") + " " + state("EinheitL(1).28");
    }
};

TEST(TextAufdroeselnAlone, LeavesNoUnitOfAnEarlierText)
{
    Lone<servo_page::ServoMain> page;
    std::string caption = "Speed";
    std::string unit = "mm/s";
    page.control.TextAufdröseln("Weg", caption, unit);
    EXPECT_EQ(caption, "Weg");
    EXPECT_EQ(unit, "");
}

TEST_F(TextAufdroeseln, SplitsAtTheFirstSemicolon) { EXPECT_EQ(split("Weg;mm"), "\"Weg\" \"mm\""); }

TEST_F(TextAufdroeseln, LeavesFurtherSemicolonsToTheUnit) { EXPECT_EQ(split("a;b;c"), "\"a\" \"b;c\""); }

TEST_F(TextAufdroeseln, TakesATextWithoutSemicolonAsCaption) { EXPECT_EQ(split("Weg"), "\"Weg\" \"\""); }

TEST_F(TextAufdroeseln, GivesAnEmptyUnitBehindASemicolonAtTheEnd)
{
    EXPECT_EQ(split("Weg;"), "\"Weg\" \"\"");
}

TEST_F(TextAufdroeseln, DoesNotSplitAtASemicolonInTheFirstPlace) { EXPECT_EQ(split(";mm"), "\";mm\" \"\""); }

TEST_F(TextAufdroeseln, LooksAtNoSecondSemicolonAfterOneInTheFirstPlace)
{
    EXPECT_EQ(split(";a;b"), "\";a;b\" \"\"");
}

TEST_F(TextAufdroeseln, SplitsAtTheChinesePair) { EXPECT_EQ(split("W\u00A3\u00BBmm"), "\"W\" \"mm\""); }

TEST_F(TextAufdroeseln, SplitsAtTheJapanesePair) { EXPECT_EQ(split("W\u0081Gmm"), "\"W\" \"mm\""); }

TEST_F(TextAufdroeseln, PrefersTheChinesePairWhereverItStands)
{
    EXPECT_EQ(split("a\u0081Gb\u00A3\u00BBc"), "\"a\u0081Gb\" \"c\"");
}

TEST_F(TextAufdroeseln, PrefersASemicolonToAPair)
{
    EXPECT_EQ(split("a\u00A3\u00BBb;c"), "\"a\u00A3\u00BBb\" \"c\"");
}

TEST_F(TextAufdroeseln, SplitsAtTheFullWidthSemicolon) { EXPECT_EQ(split("轴\uFF1Bmm"), "\"轴\" \"mm\""); }

TEST_F(TextAufdroeseln, PrefersAPairToTheFullWidthSemicolon)
{
    EXPECT_EQ(split("a\uFF1Bb\u0081Gc"), "\"a\uFF1Bb\" \"c\"");
}

TEST_F(TextAufdroeseln, DoesNotSplitAtAPairInTheFirstPlace)
{
    EXPECT_EQ(split("\u00A3\u00BBmm"), "\"\u00A3\u00BBmm\" \"\"");
}

TEST_F(TextAufdroeseln, DoesNotTakeTheHalvesOfAPairForOne)
{
    EXPECT_EQ(split("a\u00A3b\u00BBc"), "\"a\u00A3b\u00BBc\" \"\"");
}

TEST_F(TextAufdroeseln, SplitsAtAPairBehindASemicolonInTheFirstPlace)
{
    EXPECT_EQ(split(";a\u00A3\u00BBb"), "\";a\" \"b\"");
}

TEST_F(TextAufdroeseln, SplitsAtTheFullWidthSemicolonBehindASemicolonInTheFirstPlace)
{
    EXPECT_EQ(split(";a\uFF1Bb"), "\";a\" \"b\"");
}

} // namespace

} // namespace servopanel::testing
