#include "ini_fixture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Texts;

struct OpenIni : servopanel::testing::IniTest {
    // How often this error was reported.
    std::ptrdiff_t reported(std::int32_t number) const
    {
        return std::count(reports().begin(), reports().end(), servopanel::testing::Report{number, "OpenIni"});
    }
};

TEST_F(OpenIni, NumbersSectionsAndEntries)
{
    file("a.ini", {"[A]", "x=1", "y=2", "[Bc]", "z=3"});
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniDateiName, "P:\\a.ini");
    EXPECT_TRUE(speicher.IniGeoeffnet);
    ASSERT_EQ(speicher.IniSektionAnzahl, 2);
    ASSERT_EQ(speicher.IniEintragAnzahl, 3);
    EXPECT_EQ(speicher.IniSektionen[1].Name, "A");
    EXPECT_EQ(speicher.IniSektionen[1].ErsterEintrag, 1);
    EXPECT_EQ(speicher.IniSektionen[1].LetzterEintrag, 2);
    EXPECT_EQ(speicher.IniSektionen[2].Name, "Bc");
    EXPECT_EQ(speicher.IniSektionen[2].NameGross, "BC");
    EXPECT_EQ(speicher.IniSektionen[2].ErsterEintrag, 3);
    EXPECT_EQ(speicher.IniSektionen[2].LetzterEintrag, 3);
    EXPECT_EQ(speicher.IniEintraege[3].Name, "z");
    EXPECT_EQ(speicher.IniEintraege[3].NameGross, "Z");
    EXPECT_EQ(speicher.IniEintraege[3].Wert, "3");
}

TEST_F(OpenIni, TrimsNothing)
{
    file("a.ini", {" Key = 5 "});
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniEintraege[1].Name, " Key ");
    EXPECT_EQ(speicher.IniEintraege[1].Wert, " 5 ");
}

TEST_F(OpenIni, SplitsAtTheFirstEqualsSign)
{
    file("a.ini", {"a=b=c", "=d", "e="});
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniEintraege[1].Wert, "b=c");
    EXPECT_EQ(speicher.IniEintraege[2].Name, "");
    EXPECT_EQ(speicher.IniEintraege[2].Wert, "d");
    EXPECT_EQ(speicher.IniEintraege[3].Wert, "");
}

TEST_F(OpenIni, CollectsEntriesBeforeTheFirstSectionInRecord0)
{
    file("a.ini", {"x=1", "y=2", "[A]"});
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniSektionen[0].LetzterEintrag, 2);
    EXPECT_EQ(speicher.IniSektionen[1].ErsterEintrag, 3);
    EXPECT_EQ(speicher.IniSektionen[1].LetzterEintrag, 0);
}

TEST_F(OpenIni, TakesCommentsWithAnEqualsSignForEntries)
{
    file("a.ini", {"[A]", "; x=1", "; no entry", "", "plain"});
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniEintragAnzahl, 1);
    EXPECT_EQ(speicher.IniEintraege[1].Name, "; x");
}

TEST_F(OpenIni, TakesAnyLineWithBothBracketsForASection)
{
    file("a.ini", {"x=1 [A] y", "; [B]c]", "[C", "[C=1", "a[=2", "D]", "e=]"});
    EXPECT_TRUE(open("a.ini"));
    ASSERT_EQ(speicher.IniSektionAnzahl, 2);
    EXPECT_EQ(speicher.IniSektionen[1].Name, "A");
    EXPECT_EQ(speicher.IniSektionen[2].Name, "B");
    ASSERT_EQ(speicher.IniEintragAnzahl, 1);
    EXPECT_EQ(speicher.IniEintraege[1].Name, "e");
}

TEST_F(OpenIni, KeepsTheSlotsNameForASectionWithTurnedBrackets)
{
    file("a.ini", {"[A]", "[B]"});
    EXPECT_TRUE(open("a.ini"));
    service.CloseIni();
    file("b.ini", {"[A]", "]z[", "x=1"});
    EXPECT_TRUE(open("b.ini"));
    EXPECT_EQ(speicher.IniSektionAnzahl, 2);
    EXPECT_EQ(speicher.IniSektionen[2].Name, "B");
    EXPECT_EQ(find("B", "x"), "1");
    EXPECT_EQ(reports(), (Reports{{5, "OpenIni"}}));
}

TEST_F(OpenIni, NeverClearsRecords)
{
    file("a.ini", {"[A]", "x=1", "[B]", "y=2"});
    file("b.ini", {"[C]"});
    EXPECT_TRUE(open("a.ini"));
    service.CloseIni();
    EXPECT_TRUE(open("b.ini"));
    EXPECT_EQ(speicher.IniSektionAnzahl, 1);
    EXPECT_EQ(speicher.IniSektionen[2].Name, "B");
    EXPECT_EQ(speicher.IniEintraege[2].Name, "y");
}

TEST_F(OpenIni, EndsASectionWithoutEntriesBeforeThoseOfTheFileBefore)
{
    file("a.ini", {"[A]", "x=1", "y=2"});
    file("b.ini", {"[A]"});
    EXPECT_TRUE(open("a.ini"));
    service.CloseIni();
    EXPECT_TRUE(open("b.ini"));
    EXPECT_EQ(find("A", "y"), "");
}

TEST_F(OpenIni, OpensANameUnchangedWhenToldTo)
{
    surround.world().texts["D:\\a.ini"] = {"[A]\n", std::nullopt};
    EXPECT_TRUE(service.OpenIni("D:\\a.ini", false));
    EXPECT_EQ(surround.world().log, (Texts{"open D:\\a.ini", "close"}));
}

TEST_F(OpenIni, LetsGoOfTheFileOnceItIsRead)
{
    file("a.ini", {"[A]"});
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(surround.world().log, (Texts{"create PathHelper", "path a.ini", "open P:\\a.ini", "close"}));
}

TEST_F(OpenIni, ReportsAFailedClosingAndCountsAsOpen)
{
    file("a.ini", {"[A]", "x=1"});
    surround.world().fail("close");
    EXPECT_TRUE(open("a.ini"));
    EXPECT_TRUE(speicher.IniGeoeffnet);
    EXPECT_EQ(find("A", "x"), "1");
    EXPECT_EQ(reports(), (Reports{{1000, "OpenIni"}}));
}

TEST_F(OpenIni, GivesUpTheOpenFileInsteadOfOpeningASecondOne)
{
    file("a.ini", {"[A]", "x=1"});
    file("b.ini", {"[B]", "y=2"});
    EXPECT_TRUE(open("a.ini"));
    surround.world().log.clear();
    EXPECT_FALSE(open("b.ini"));
    EXPECT_EQ(surround.world().log, (Texts{"path b.ini", "close"}));
    EXPECT_EQ(speicher.IniSektionAnzahl, 0);
    EXPECT_EQ(speicher.IniEintragAnzahl, 0);
    EXPECT_TRUE(speicher.IniGeoeffnet);
    EXPECT_EQ(speicher.IniDateiName, "P:\\b.ini");
    EXPECT_EQ(find("B", "y"), "");
    // The first record is compared even when none counts.
    EXPECT_EQ(find("A", "x"), "1");
    EXPECT_TRUE(reports().empty());

    service.CloseIni();
    EXPECT_TRUE(open("b.ini"));
    EXPECT_EQ(find("B", "y"), "2");
}

TEST_F(OpenIni, ReportsAFailedClosingOfTheFileThatIsGivenUp)
{
    file("a.ini", {"[A]", "x=1"});
    EXPECT_TRUE(open("a.ini"));
    surround.world().fail("close");
    EXPECT_FALSE(open("b.ini"));
    EXPECT_EQ(reports(), (Reports{{1000, "OpenIni"}}));
}

// The file of before is given up all the same, and keeps its name.
TEST_F(OpenIni, GivesUpTheOpenFileEvenWhenThePathOfTheSecondCannotBeMade)
{
    file("a.ini", {"[A]", "x=1"});
    EXPECT_TRUE(open("a.ini"));
    surround.world().log.clear();
    surround.world().fail("path b.ini");
    EXPECT_FALSE(open("b.ini"));
    EXPECT_EQ(surround.world().log, (Texts{"path b.ini", "close"}));
    EXPECT_EQ(speicher.IniSektionAnzahl, 0);
    EXPECT_EQ(speicher.IniEintragAnzahl, 0);
    EXPECT_TRUE(speicher.IniGeoeffnet);
    EXPECT_EQ(speicher.IniDateiName, "P:\\a.ini");
    EXPECT_EQ(reports(), (Reports{{1000, "OpenIni"}}));
}

TEST_F(OpenIni, ReportsAFileThatCannotBeOpenedOnce)
{
    file("a.ini", {"[A]", "x=1"});
    EXPECT_TRUE(open("a.ini"));
    service.CloseIni();
    EXPECT_FALSE(open("missing.ini"));
    EXPECT_EQ(reports(), (Reports{{53, "OpenIni"}}));
    EXPECT_FALSE(speicher.IniGeoeffnet);
    EXPECT_EQ(speicher.IniSektionAnzahl, 0);
    EXPECT_EQ(speicher.IniEintragAnzahl, 0);
    EXPECT_TRUE(shown().empty());
}

TEST_F(OpenIni, OpensNothingWhenThePathCannotBeMade)
{
    file("a.ini", {"[A]", "x=1"});
    EXPECT_TRUE(open("a.ini"));
    service.CloseIni();
    surround.world().fail("path b.ini");
    EXPECT_FALSE(open("b.ini"));
    EXPECT_EQ(surround.logged("open"), Texts{"P:\\a.ini"});
    EXPECT_EQ(speicher.IniSektionAnzahl, 0);
    EXPECT_EQ(reports(), (Reports{{1000, "OpenIni"}}));
}

TEST_F(OpenIni, KeepsWhatWasReadBeforeAReadError)
{
    surround.world().texts["P:\\a.ini"] = {"[A]\nx=1", basic::Error{57, "Files", "device error"}};
    EXPECT_FALSE(open("a.ini"));
    EXPECT_EQ(find("A", "x"), "1");
    EXPECT_EQ(reports(), (Reports{{57, "OpenIni"}}));
    EXPECT_EQ(surround.world().log.back(), "close");
}

TEST_F(OpenIni, CountsTheSectionThatFindsNoRoomAndReportsItsStore)
{
    std::vector<std::string> lines;
    for (int i = 1; i <= 1001; ++i)
        lines.push_back("[S" + std::to_string(i) + "]");
    file("a.ini", lines);
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniSektionAnzahl, 1001);
    EXPECT_EQ(speicher.IniSektionen[1000].Name, "S1000");
    EXPECT_EQ(reports(), (Reports{{9, "OpenIni"}}));
}

// The entries have room, but there is no section to end with them.
TEST_F(OpenIni, StoresTheEntriesOfASectionThatFoundNoRoom)
{
    std::vector<std::string> lines;
    for (int i = 1; i <= 1001; ++i)
        lines.push_back("[S" + std::to_string(i) + "]");
    lines.insert(lines.end(), {"x=1", "y=2"});
    file("a.ini", lines);
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(reports(), Reports(3, {9, "OpenIni"}));
    EXPECT_EQ(speicher.IniEintragAnzahl, 2);
    EXPECT_EQ(speicher.IniEintraege[1].Name, "x");
    EXPECT_EQ(speicher.IniEintraege[2].Name, "y");
    EXPECT_EQ(speicher.IniEintraege[2].Wert, "2");
    EXPECT_EQ(speicher.IniSektionen[1000].LetzterEintrag, 0);
}

TEST_F(OpenIni, CountsTheEntryThatFindsNoRoomAndReportsItsStore)
{
    std::vector<std::string> lines{"[A]"};
    for (int i = 1; i <= 10001; ++i)
        lines.push_back("e" + std::to_string(i) + "=" + std::to_string(i));
    file("a.ini", lines);
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniEintragAnzahl, 10001);
    EXPECT_EQ(speicher.IniSektionen[1].LetzterEintrag, 10001);
    EXPECT_EQ(find("A", "e10000"), "10000");
    EXPECT_EQ(reports(), (Reports{{9, "OpenIni"}}));
}

TEST_F(OpenIni, StopsCountingAtTheEndOf16Bits)
{
    file("a.ini", std::vector<std::string>(32769, "x=1"));
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniEintragAnzahl, 32767);
    EXPECT_EQ(reported(6), 2);
}

TEST_F(OpenIni, StopsCountingSectionsAtTheEndOf16Bits)
{
    file("a.ini", std::vector<std::string>(32768, "[A]"));
    EXPECT_TRUE(open("a.ini"));
    EXPECT_EQ(speicher.IniSektionAnzahl, 32767);
    EXPECT_EQ(reported(6), 1);
    // Each one from the 1001st on finds no room.
    EXPECT_EQ(reported(9), 32768 - 1000);
}

// No number is left for its first entry, so the one of the section that had the slot before stays.
TEST_F(OpenIni, KeepsTheSlotsFirstEntryForASectionBehindTheLastNumber)
{
    file("a.ini", {"x=1", "[Z]", "y=2"});
    EXPECT_TRUE(open("a.ini"));
    service.CloseIni();
    std::vector<std::string> lines(32767, "x=1");
    lines.emplace_back("[A]");
    file("b.ini", lines);
    EXPECT_TRUE(open("b.ini"));
    EXPECT_EQ(reported(6), 1);
    ASSERT_EQ(speicher.IniSektionAnzahl, 1);
    EXPECT_EQ(speicher.IniSektionen[1].Name, "A");
    EXPECT_EQ(speicher.IniSektionen[1].ErsterEintrag, 2);
    EXPECT_EQ(speicher.IniSektionen[1].LetzterEintrag, 0);
}

TEST_F(OpenIni, CountsAsOpenFromTheEndOfTheReadingOn)
{
    file("a.ini", {"[A]", "x=1"});
    file("b.ini", {"[B]", "y=1"});
    bool once = true;
    bool second = true;
    surround.world().accessed = [&] {
        if (surround.world().log.back() == "close" && std::exchange(once, false)) second = open("b.ini");
    };
    EXPECT_TRUE(open("a.ini"));
    EXPECT_FALSE(second);
}

} // namespace
