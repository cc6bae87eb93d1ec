#include "ini_fixture.h"

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Texts;

struct FindeIniEintrag : servopanel::testing::IniTest { };

TEST_F(FindeIniEintrag, FindsSectionAndEntryInAnyCase)
{
    file("a.ini", {"[Maschine]", "Größe=7"});
    open("a.ini");
    EXPECT_EQ(find("MASCHINE", "größe"), "7");
    EXPECT_EQ(find("maschine", "GRÖßE"), "7");
}

TEST_F(FindeIniEintrag, ComparesWithoutTrimming)
{
    file("a.ini", {"[ A ]", "Key = 5"});
    open("a.ini");
    EXPECT_EQ(find("A", "Key "), "");
    EXPECT_EQ(find(" A ", "Key"), "");
    EXPECT_EQ(find(" A ", "Key "), " 5");
}

TEST_F(FindeIniEintrag, FindsAMissingEntryInTheFirstLineOfTheNextSection)
{
    file("a.ini", {"[A]", "x=1", "[B]", "y=2", "z=3"});
    open("a.ini");
    EXPECT_EQ(find("A", "y"), "2");
    EXPECT_EQ(find("A", "z"), "");
    EXPECT_EQ(find("B", "x"), "");
}

TEST_F(FindeIniEintrag, LooksOneEntryFarFromAnEmptySection)
{
    file("a.ini", {"[A]", "[B]", "y=2", "z=3"});
    open("a.ini");
    EXPECT_EQ(find("A", "y"), "2");
    EXPECT_EQ(find("A", "z"), "");
}

TEST_F(FindeIniEintrag, NeverFindsEntriesBeforeTheFirstSection)
{
    file("a.ini", {"x=1", "[A]", "y=2"});
    open("a.ini");
    EXPECT_EQ(find("A", "x"), "");
}

TEST_F(FindeIniEintrag, TakesTheFirstOfSeveral)
{
    file("a.ini", {"[A]", "x=1", "x=2", "[A]", "x=3", "y=4"});
    open("a.ini");
    EXPECT_EQ(find("A", "x"), "1");
    EXPECT_EQ(find("A", "y"), "");
}

TEST_F(FindeIniEintrag, FindsWhatALargerFileLeftBehind)
{
    file("large.ini", {"[A]", "x=1", "[B]", "y=2", "[C]", "z=3"});
    file("small.ini", {"[D]"});
    open("large.ini");
    service.CloseIni();
    open("small.ini");
    EXPECT_EQ(find("B", "y"), "2");
    EXPECT_EQ(find("C", "z"), "");
    EXPECT_EQ(find("D", "x"), "1");
}

TEST_F(FindeIniEintrag, TakesTheUnusedRecordBehindTheLastForASectionWithoutAName)
{
    file("a.ini", {"[A]", "x=1", "y=2"});
    open("a.ini");
    EXPECT_EQ(find("", "x"), "1");
    EXPECT_EQ(find("", "y"), "");
    EXPECT_TRUE(reports().empty());
    // The same with records that were made, and then not used.
    speicher.IniSektionen[5];
    EXPECT_EQ(find("", "x"), "1");
    EXPECT_EQ(find("", "y"), "");
}

TEST_F(FindeIniEintrag, TellsTheOperatorWhenAsked)
{
    file("a.ini", {"[A]", "x=1"});
    open("a.ini");
    EXPECT_EQ(service.FindeIniEintrag("A", "y", true), "");
    EXPECT_EQ(service.FindeIniEintrag("Bb", "x", true), "");
    EXPECT_EQ(service.FindeIniEintrag("A", "x", true), "1");
    EXPECT_EQ(service.FindeIniEintrag("A", "y", false), "");
    EXPECT_EQ(shown(),
        (Texts{"Section [A] or Entry 'y' in file 'P:\\a.ini' not found",
            "Section [Bb] or Entry 'x' in file 'P:\\a.ini' not found"}));
    EXPECT_TRUE(reports().empty());
}

TEST_F(FindeIniEintrag, GivesAnEmptyValueWithoutAMessage)
{
    file("a.ini", {"[A]", "x="});
    open("a.ini");
    EXPECT_EQ(service.FindeIniEintrag("A", "x", true), "");
    EXPECT_TRUE(shown().empty());
}

TEST_F(FindeIniEintrag, AnswersFromTheRecordsEvenAfterClosing)
{
    file("a.ini", {"[A]", "x=1"});
    open("a.ini");
    service.CloseIni();
    EXPECT_EQ(find("A", "x"), "1");
}

TEST_F(FindeIniEintrag, EndsAtTheLastRecordOfAFullFile)
{
    std::vector<std::string> lines;
    for (int i = 1; i <= 1005; ++i)
        lines.push_back("[S" + std::to_string(i) + "]");
    file("a.ini", lines);
    open("a.ini");
    const std::size_t before = reports().size();
    EXPECT_EQ(find("S1000", "x"), "");
    EXPECT_EQ(find("S1002", "x"), "");
    EXPECT_EQ(reports().size(), before + 1);
    EXPECT_EQ(reports().back(), (servopanel::testing::Report{9, "FindeIniEintrag"}));
}

TEST_F(FindeIniEintrag, EndsAtTheLastEntryOfAFullFile)
{
    std::vector<std::string> lines{"[A]"};
    for (int i = 1; i <= 10005; ++i)
        lines.push_back("e" + std::to_string(i) + "=1");
    file("a.ini", lines);
    open("a.ini");
    const std::size_t before = reports().size();
    EXPECT_EQ(find("A", "e10003"), "");
    EXPECT_EQ(reports().size(), before + 1);
}

TEST_F(FindeIniEintrag, ReportsAFailingMessage)
{
    surround.world().fail("message");
    EXPECT_EQ(service.FindeIniEintrag("A", "x", true), "");
    EXPECT_EQ(reports(), (Reports{{1000, "FindeIniEintrag"}}));
}

TEST_F(FindeIniEintrag, HoldsNothingBeforeTheFirstFile)
{
    EXPECT_EQ(speicher.IniSektionAnzahl, 0);
    EXPECT_EQ(speicher.IniEintragAnzahl, 0);
    EXPECT_FALSE(speicher.IniGeaendert);
}

// Neither section nor entry have a name, and neither has the line in front of all sections.
TEST_F(FindeIniEintrag, AnswersNothingForNoName)
{
    file("a.ini", {"=5"});
    open("a.ini");
    EXPECT_EQ(find("", ""), "");
    speicher.IniSektionen[5];
    EXPECT_EQ(find("", ""), "");
}

} // namespace
