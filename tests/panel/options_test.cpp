#include "panel/program/options.h"

#include "portable/computer_name.h"

#include <gtest/gtest.h>

using namespace servopanel::panel;

TEST(ParseOptions, TakesAProjectAndItsOptions)
{
    const Options options = parseOptions({"demo", "--resolution", "1024", "--language=en", "--level", "3",
        "--trace", "t.txt", "--zoom", "fit", "--tour", "pictures"});
    EXPECT_EQ(options.problem, "");
    EXPECT_EQ(options.settings.project, "demo");
    EXPECT_EQ(options.settings.resolution, 1024);
    EXPECT_EQ(options.settings.language, "en");
    EXPECT_EQ(options.settings.level, std::int16_t{3});
    EXPECT_EQ(options.settings.trace, "t.txt");
    EXPECT_EQ(options.settings.zoom, PanelWindow::Zoom::ToWindow);
    EXPECT_EQ(options.tour, "pictures");
}

TEST(ParseOptions, SaysWhatIsWrong)
{
    EXPECT_EQ(parseOptions({}).problem, "no project given");
    EXPECT_EQ(parseOptions({"a", "b"}).problem, "one project at a time: 'b'");
    EXPECT_EQ(parseOptions({"a", "--resolution", "900"}).problem,
        "--resolution takes 800, 1024 or 1280, not '900'");
    EXPECT_EQ(
        parseOptions({"a", "--level", "x"}).problem, "--level takes an access level from 0 to 5, not 'x'");
    EXPECT_EQ(
        parseOptions({"a", "--level", "6"}).problem, "--level takes an access level from 0 to 5, not '6'");
    EXPECT_EQ(parseOptions({"a", "--zoom", "2"}).problem, "--zoom takes fit, not '2'");
    EXPECT_EQ(parseOptions({"a", "--trace"}).problem, "--trace needs a value");
    EXPECT_EQ(parseOptions({"a", "--colour", "x"}).problem, "unknown option --colour");
}

TEST(ParseOptions, APanelHasANameAndAJournal)
{
    EXPECT_EQ(parseOptions({"demo"}).settings.name, servopanel::portable::computerName("no name"));
    EXPECT_EQ(parseOptions({"demo"}).settings.journal, "");
    const Options options = parseOptions({"demo", "--journal", "/srv/journal", "--name=north"});
    EXPECT_EQ(options.problem, "");
    EXPECT_EQ(options.settings.journal, "/srv/journal");
    EXPECT_EQ(options.settings.name, "north");
    EXPECT_EQ(parseOptions({"demo", "--journal="}).problem, "--journal takes a folder, not ''");
    EXPECT_EQ(parseOptions({"demo", "--name="}).problem, "--name takes the name of this panel, not ''");
}

TEST(ParseOptions, APanelOnABrokerKeepsAJournalOrSaysThatItDoesNot)
{
    EXPECT_TRUE(writesUnseen(parseOptions({"demo", "--broker", "localhost"})));
    EXPECT_FALSE(writesUnseen(parseOptions({"demo", "--broker", "localhost", "--journal", "/srv/journal"})));
    EXPECT_FALSE(writesUnseen(parseOptions({"demo", "--broker", "localhost", "--no-journal"})));
    EXPECT_FALSE(writesUnseen(parseOptions({"demo", "--broker", "localhost", "--view-only"})));
    EXPECT_FALSE(writesUnseen(parseOptions({"demo"})));
    EXPECT_EQ(parseOptions({"demo", "--journal", "/srv/journal", "--no-journal"}).problem,
        "either --journal or --no-journal");
}

TEST(ParseOptions, HelpNeedsNoProject)
{
    EXPECT_TRUE(parseOptions({"--help"}).help);
    EXPECT_NE(helpText().find("--tour"), std::string::npos);
}
