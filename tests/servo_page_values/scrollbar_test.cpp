#include "servo_page_values/lone_page.h"
#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace servopanel::servo_page::tests {
namespace {

std::string moved(const std::string& top)
{
    return "put ServoMain.MainBereich(1).Top = " + top + "\nput ServoMain.MainBereich(2).Top = " + top + "\n";
}

TEST(ScrollBar_NeuePos, MovesBothHalvesByPixels)
{
    Page page;
    EXPECT_EQ(page.run("pagescroll 11\n"), "> pagescroll 11\n" + moved("-150"));
    EXPECT_EQ(page.run("pagescroll 1\n"), "> pagescroll 1\n" + moved("0"));
}

TEST(ScrollBar_NeuePos, CountsInThePanelsPixels)
{
    Page page{"screen 12 12\n"};
    EXPECT_EQ(page.run("pagescroll 3\n"), "> pagescroll 3\n" + moved("-24"));
    Page narrow{"screen 12 15\n"};
    EXPECT_EQ(narrow.run("pagescroll 11\n"), "> pagescroll 11\n" + moved("-150"));
}

TEST(ScrollBar_NeuePos, MovesEvenWhenTheEndOfTheListCannotBeTold)
{
    Page page;
    EXPECT_EQ(page.run("pagescroll 32767\n"),
        "> pagescroll 32767\nerror 6 \"Ma ScrollBar_NeuePos\" \"Overflow\"\n" + moved("-491490"));
}

TEST(ScrollBar_NeuePos, CanBeMovedAsOftenAsOneLikes)
{
    Page page;
    std::string moves;
    for (int i = 0; i < 32769; ++i)
        moves += "pagescroll 2\n";
    const std::string trace = page.run(moves);
    EXPECT_EQ(count(trace, moved("-15")), 32769U);
    EXPECT_EQ(holding(trace, "error"), "");
}

// Everything fits on the panel, so each position shows the end of the list. The page goes to its top when it is built
// anew, unless it shows that end.
TEST(ScrollBar_NeuePos, KnowsTheEndOfTheList)
{
    Page page;
    const char* const rebuilt = "touch SollwertL 5\nmask cancel\n";
    EXPECT_EQ(holding(page.run(rebuilt), "MainBereich(1).Top"), "put ServoMain.MainBereich(1).Top = 0\n");
    page.run("pagescroll 2\n");
    EXPECT_EQ(holding(page.run(rebuilt), "MainBereich(1).Top"), "");
}

using testing::Texts;

class ScrollBarAlone : public testing::LonePage {
protected:
    // Moves the bar, builds the same page anew and gives where that puts the two halves.
    Texts rebuiltAt(std::int16_t position)
    {
        page.fake("ScrollBar")->properties["POSITION"] = position;
        page.control.ScrollBar_NeuePos(position);
        forget("MainBereich");
        page.control.AdressenUmschalten(false);
        return puts("MainBereich");
    }
};

TEST_F(ScrollBarAlone, IsAtTheEndOfTheListOnlyBeyondItsLength)
{
    page.fake("ScrollBar")->properties["SEITE"] = std::int16_t{5};
    page.fake("ScrollBar")->properties["ANZAHL"] = std::int16_t{9};
    EXPECT_EQ(rebuiltAt(4), (Texts{"Top = 0", "Top = 0"}));
    EXPECT_EQ(rebuiltAt(5), Texts{});
    EXPECT_EQ(rebuiltAt(4), (Texts{"Top = 0", "Top = 0"}));
}

// The page stands at its top, at first or after it has gone there, and nothing moves it from there.
TEST_F(ScrollBarAlone, StaysAtTheTopForAPositionThatCannotBe)
{
    page.fake("ScrollBar")->properties["SEITE"] = std::int16_t{5};
    page.fake("ScrollBar")->properties["ANZAHL"] = std::int16_t{9};
    forget("MainBereich");
    page.control.ScrollBar_NeuePos(-32768);
    EXPECT_EQ(puts("MainBereich"), (Texts{"Top = 0", "Top = 0"}));
    EXPECT_EQ(rebuiltAt(4), (Texts{"Top = 0", "Top = 0"}));
    forget("MainBereich");
    page.control.ScrollBar_NeuePos(-32768);
    EXPECT_EQ(puts("MainBereich"), (Texts{"Top = 0", "Top = 0"}));
}

TEST_F(ScrollBarAlone, ServesAMoveThatArrivesWhileOneRuns)
{
    forget("MainBereich");
    bool once = true;
    page.fake("MainBereich")->afterPut = [&] {
        if (!std::exchange(once, false)) return;
        page.control.ScrollBar_NeuePos(21);
        // It is only noted: the running move has set the first half so far.
        EXPECT_EQ(puts("MainBereich"), Texts{"Top = -150"});
    };
    page.control.ScrollBar_NeuePos(11);
    EXPECT_EQ(puts("MainBereich"), (Texts{"Top = -150", "Top = -300", "Top = -300", "Top = -300"}));
    forget("MainBereich");
    page.control.ScrollBar_NeuePos(1);
    EXPECT_EQ(puts("MainBereich"), (Texts{"Top = 0", "Top = 0"}));
}

// They come in while the first half is set; the counting begins anew with the next move.
TEST_F(ScrollBarAlone, CountsTheRequestsOfOneMoveIn16Bits)
{
    for (const char* move : {"first", "second"}) {
        bool once = true;
        page.fake("MainBereich")->afterPut = [&] {
            if (!std::exchange(once, false)) return;
            for (int i = 2; i <= 32768; ++i)
                page.control.ScrollbarAnzeigen();
        };
        page.surround.errors.reports.clear();
        page.control.ScrollbarAnzeigen();
        EXPECT_EQ(reports(), (testing::Reports{{6, "Ma ScrollbarAnzeigen"}})) << move;
    }
}

} // namespace
} // namespace servopanel::servo_page::tests
