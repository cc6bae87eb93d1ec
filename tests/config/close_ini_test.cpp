#include "ini_fixture.h"

#include <algorithm>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Texts;

struct CloseIni : servopanel::testing::IniTest {
    void openChanged(const std::vector<std::string>& lines)
    {
        file("a.ini", lines);
        open("a.ini");
        speicher.IniGeaendert = true;
    }
    const std::string& written() { return surround.platform.written["P:\\a.ini"]; }
};

TEST_F(CloseIni, DoesNothingWhenNothingIsOpen)
{
    service.CloseIni();
    EXPECT_TRUE(surround.world().log.empty());
}

TEST_F(CloseIni, WritesNothingWhenNothingIsOpenAnyMore)
{
    openChanged({"[A]"});
    service.CloseIni();
    surround.platform.written.clear();
    service.CloseIni();
    EXPECT_TRUE(surround.platform.written.empty());
}

TEST_F(CloseIni, WritesNothingThatWasNotChanged)
{
    file("a.ini", {"[A]", "x=1"});
    open("a.ini");
    service.CloseIni();
    EXPECT_FALSE(speicher.IniGeoeffnet);
    EXPECT_TRUE(surround.platform.written.empty());
}

TEST_F(CloseIni, ClosesNoFileOfItsOwn)
{
    openChanged({"[A]"});
    surround.world().log.clear();
    service.CloseIni();
    EXPECT_EQ(surround.world().log, Texts{"write P:\\a.ini"});
    EXPECT_FALSE(speicher.IniGeoeffnet);
}

TEST_F(CloseIni, WritesSectionsAndTheirEntries)
{
    openChanged({"[A]", " x = 1", "; comment", "[B]", "[C]", "y=2"});
    speicher.IniEintraege[2].Wert = "3";
    service.CloseIni();
    EXPECT_EQ(written(), "[A]\r\n x = 1\r\n[B]\r\n[C]\r\ny=3\r\n");
}

TEST_F(CloseIni, LosesEntriesBeforeTheFirstSection)
{
    openChanged({"x=1", "[A]", "y=2"});
    service.CloseIni();
    EXPECT_EQ(written(), "[A]\r\ny=2\r\n");
}

TEST_F(CloseIni, PassesOverAFailedWritingInSilence)
{
    openChanged({"[A]"});
    surround.world().fail("write P:\\a.ini");
    service.CloseIni();
    EXPECT_TRUE(reports().empty());
    EXPECT_FALSE(speicher.IniGeoeffnet);
}

TEST_F(CloseIni, WritesOnlyWhatFoundRoom)
{
    std::vector<std::string> lines;
    for (int i = 1; i <= 1002; ++i)
        lines.push_back("[S" + std::to_string(i) + "]");
    openChanged(lines);
    const std::size_t before = reports().size();
    service.CloseIni();
    EXPECT_EQ(std::count(written().begin(), written().end(), '\n'), 1000);
    EXPECT_EQ(reports().size(), before);
}

// The section behind the entries that found no room is not lost with them.
TEST_F(CloseIni, WritesOnlyTheEntriesThatFoundRoom)
{
    std::vector<std::string> lines{"[A]"};
    for (int i = 1; i <= 10003; ++i)
        lines.push_back("e" + std::to_string(i) + "=1");
    lines.emplace_back("[B]");
    openChanged(lines);
    const std::size_t before = reports().size();
    service.CloseIni();
    EXPECT_EQ(std::count(written().begin(), written().end(), '\n'), 10002);
    EXPECT_TRUE(written().starts_with("[A]\r\ne1=1\r\n"));
    EXPECT_TRUE(written().ends_with("e9999=1\r\ne10000=1\r\n[B]\r\n"));
    EXPECT_EQ(reports().size(), before);
    EXPECT_FALSE(speicher.IniGeoeffnet);
}

TEST_F(CloseIni, TakesAnotherFileAfterwards)
{
    openChanged({"[A]", "x=1"});
    service.CloseIni();
    EXPECT_TRUE(open("a.ini"));
    EXPECT_FALSE(speicher.IniGeaendert);
    // Nothing was changed since, so nothing is written.
    surround.platform.written.clear();
    service.CloseIni();
    EXPECT_TRUE(surround.platform.written.empty());
}

} // namespace
