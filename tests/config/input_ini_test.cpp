#include "ini_fixture.h"

namespace {

using namespace servopanel;
using servopanel::testing::IniTest;
using servopanel::testing::Texts;

struct InputIniString : IniTest { };
struct InputIniBoolean : IniTest { };

TEST_F(InputIniString, GivesTheValueOrTellsTheOperator)
{
    file("a.ini", {"[Footer]", "F1=Standard\\F_1_"});
    open("a.ini");
    EXPECT_EQ(service.InputIniString("Footer", "F1", true), "Standard\\F_1_");
    EXPECT_EQ(service.InputIniString("Footer", "F2", true), "");
    EXPECT_EQ(shown(), Texts{"Section [Footer] or Entry 'F2' in file 'P:\\a.ini' not found"});
}

TEST_F(InputIniBoolean, IsTrueForTrueInAnyCaseOnly)
{
    file("a.ini", {"[A]", "a=TRUE", "b=true", "c= TRUE", "d=FALSE", "e=1", "f=", "g=TRUE "});
    open("a.ini");
    EXPECT_TRUE(service.InputIniBoolean("A", "a", true));
    EXPECT_TRUE(service.InputIniBoolean("A", "b", true));
    for (const char* entry : {"c", "d", "e", "f", "g"})
        EXPECT_FALSE(service.InputIniBoolean("A", entry, true)) << entry;
    EXPECT_TRUE(shown().empty());
}

TEST_F(InputIniBoolean, IsFalseWhenAbsentWithAMessageOnlyWhenAsked)
{
    EXPECT_FALSE(service.InputIniBoolean("A", "a", false));
    EXPECT_TRUE(shown().empty());
    EXPECT_FALSE(service.InputIniBoolean("A", "a", true));
    EXPECT_EQ(shown().size(), 1U);
}

} // namespace
