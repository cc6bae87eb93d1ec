#include "ini_fixture.h"

namespace {

using namespace servopanel;
using servopanel::testing::IniTest;
using servopanel::testing::Reports;
using servopanel::testing::Texts;

const char* const program = "Parameter\\Program.ini";

struct LoadIni : IniTest {
    // Entry "e" of section "S" of the project's INI file.
    void entry(const char* value)
    {
        surround.world().profiles["P:\\Parameter\\Program.ini"]["[S] e"] = value;
    }
};
struct LoadIniInteger : LoadIni {
    std::int16_t load(bool tell = false) { return service.LoadIniInteger("S", "e", program, true, tell); }
};
struct LoadIniString : LoadIni {
    std::string load(bool tell = false) { return service.LoadIniString("S", "e", program, true, tell); }
};
struct LoadIniBoolean : LoadIni {
    bool load(bool tell = false) { return service.LoadIniBoolean("S", "e", program, true, tell); }
};

const Texts notFound{"File 'Parameter\\Program.ini' or Section [S] or Entry 'e' not found"};

TEST_F(LoadIni, AnswersAllTheSameWhenItsMessageCannotBeShown)
{
    surround.world().fail("message");
    EXPECT_EQ(service.LoadIniInteger("S", "e", program, true, true), -1);
    EXPECT_EQ(service.LoadIniString("S", "e", program, true, true), "");
    EXPECT_FALSE(service.LoadIniBoolean("S", "e", program, true, true));
    EXPECT_EQ(
        reports(), (Reports{{1000, "LoadIniInteger"}, {1000, "LoadIniString"}, {1000, "LoadIniBoolean"}}));
}

TEST_F(LoadIniInteger, ReadsSignAndLeadingDigits)
{
    struct Row {
        const char* text;
        std::int16_t value;
    };
    const Row rows[]{{"0", 0}, {"12", 12}, {"-12", -12}, {"+12", 12}, {"007", 7}, {"12abc", 12},
        {"12 34", 12}, {"1.9", 1}, {"32767", 32767}, {"-32768", -32768}, {"0x10", 16}, {"0XfF", 255},
        {"-0x10", -16}, {"0x1g", 1}, {"0xa1", 161}, {"0xF", 15}, {"1x5", 1}, {"0xA", 10}, {"0512", 512}};
    for (const Row& row : rows) {
        entry(row.text);
        EXPECT_EQ(load(true), row.value) << row.text;
    }
    EXPECT_TRUE(shown().empty());
    EXPECT_TRUE(reports().empty());
}

TEST_F(LoadIniInteger, IsZeroWithoutDigits)
{
    for (const char* text : {"abc", "-", "+", "x10", "0x", "0xg", "--5", "TRUE"}) {
        entry(text);
        EXPECT_EQ(load(true), 0) << text;
    }
    EXPECT_TRUE(shown().empty());
}

TEST_F(LoadIniInteger, IsMinus1WhenAbsentOrEmptyWithAMessageOnlyWhenAsked)
{
    EXPECT_EQ(load(false), -1);
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(load(true), -1);
    EXPECT_EQ(shown(), notFound);
    entry("");
    EXPECT_EQ(load(true), -1);
    EXPECT_EQ(shown().size(), 2U);
}

TEST_F(LoadIniInteger, CannotTellAMinus1FromAnAbsentEntry)
{
    entry("-1");
    EXPECT_EQ(load(true), -1);
    EXPECT_EQ(shown(), notFound);
}

TEST_F(LoadIniInteger, ReportsNumbersBeyond16BitsAndGivesZero)
{
    for (const char* text : {"32768", "-32769", "65535", "0xFFFF", "4294967295", "99999999999999999999"}) {
        entry(text);
        EXPECT_EQ(load(true), 0) << text;
        EXPECT_EQ(reports().back(), (servopanel::testing::Report{6, "LoadIniInteger"})) << text;
    }
    EXPECT_EQ(reports().size(), 6U);
    EXPECT_TRUE(shown().empty());
}

TEST_F(LoadIniInteger, GivesZeroAfterAFailedLookUp)
{
    entry("5");
    surround.world().fail("profile P:\\Parameter\\Program.ini");
    EXPECT_EQ(load(true), 0);
    EXPECT_EQ(reports(), (Reports{{1000, "LoadIniInteger"}}));
    EXPECT_TRUE(shown().empty());
}

TEST_F(LoadIniInteger, AsksNoOtherFileWhenThePathFails)
{
    surround.world().fail("path Parameter\\Program.ini");
    EXPECT_EQ(load(true), 0);
    EXPECT_TRUE(surround.logged("profile").empty());
}

TEST_F(LoadIniInteger, TakesANameUnchangedWhenToldTo)
{
    surround.world().profiles["D:\\x.ini"]["[S] e"] = "5";
    EXPECT_EQ(service.LoadIniInteger("S", "e", "D:\\x.ini", false, true), 5);
    EXPECT_EQ(surround.world().log, Texts{"profile D:\\x.ini"});
}

TEST_F(LoadIniString, GivesTheValue)
{
    entry("ws");
    EXPECT_EQ(load(true), "ws");
    EXPECT_TRUE(shown().empty());
}

TEST_F(LoadIniString, IsEmptyWhenAbsentOrEmptyWithAMessageOnlyWhenAsked)
{
    EXPECT_EQ(load(false), "");
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(load(true), "");
    EXPECT_EQ(shown(), notFound);
    entry("");
    EXPECT_EQ(load(true), "");
    EXPECT_EQ(shown().size(), 2U);
}

TEST_F(LoadIniString, IsEmptyAfterAFailedLookUpAndTellsTheOperatorWhenAsked)
{
    entry("ws");
    surround.world().fail("profile P:\\Parameter\\Program.ini");
    EXPECT_EQ(load(false), "");
    EXPECT_EQ(reports(), (Reports{{1000, "LoadIniString"}}));
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(load(true), "");
    EXPECT_EQ(reports().size(), 2U);
    EXPECT_EQ(shown(), notFound);
}

TEST_F(LoadIniString, TakesANameUnchangedWhenToldTo)
{
    surround.world().profiles["D:\\x.ini"]["[S] e"] = "TRUE";
    EXPECT_EQ(service.LoadIniString("S", "e", "D:\\x.ini", false, true), "TRUE");
    EXPECT_EQ(surround.world().log, Texts{"profile D:\\x.ini"});
}

TEST_F(LoadIniBoolean, KnowsTrueAndFalseInAnyCase)
{
    for (const char* text : {"TRUE", "True", "true"}) {
        entry(text);
        EXPECT_TRUE(load(true)) << text;
    }
    for (const char* text : {"FALSE", "false"}) {
        entry(text);
        EXPECT_FALSE(load(true)) << text;
    }
    EXPECT_TRUE(shown().empty());
}

TEST_F(LoadIniBoolean, IsFalseForAnythingElseWithAMessageOnlyWhenAsked)
{
    for (const char* text : {"yes", "1", "-1", ""}) {
        entry(text);
        EXPECT_FALSE(load(false)) << text;
    }
    EXPECT_TRUE(shown().empty());
    entry("yes");
    EXPECT_FALSE(load(true));
    EXPECT_EQ(shown(), notFound);
    surround.world().profiles.clear();
    EXPECT_FALSE(load(true));
    EXPECT_EQ(shown().size(), 2U);
    EXPECT_TRUE(reports().empty());
}

TEST_F(LoadIniBoolean, ReportsUnderItsOwnName)
{
    surround.world().fail("profile P:\\Parameter\\Program.ini");
    EXPECT_FALSE(load(false));
    EXPECT_EQ(reports(), (Reports{{1000, "LoadIniBoolean"}}));
    EXPECT_TRUE(shown().empty());
    EXPECT_FALSE(load(true));
    EXPECT_EQ(reports().size(), 2U);
    EXPECT_EQ(shown(), notFound);
}

TEST_F(LoadIniBoolean, TakesANameUnchangedWhenToldTo)
{
    surround.world().profiles["D:\\x.ini"]["[S] e"] = "TRUE";
    EXPECT_TRUE(service.LoadIniBoolean("S", "e", "D:\\x.ini", false, true));
    EXPECT_EQ(surround.world().log, Texts{"profile D:\\x.ini"});
}

} // namespace
