#include "definitions_fixture.h"

namespace {

struct IniDatenLesen : servopanel::testing::DefinitionsTest { };

TEST_F(IniDatenLesen, FindsNameAndElement)
{
    row("M1", "a", 0);
    row("M1", "a", 1);
    row("M1", "b", 1);
    read();
    EXPECT_EQ(modul.INI_Daten_Lesen("a", 0), 1);
    EXPECT_EQ(modul.INI_Daten_Lesen("a", 1), 2);
    EXPECT_EQ(modul.INI_Daten_Lesen("b", 1), 3);
    EXPECT_EQ(modul.INI_Daten_Lesen("b", 0), -1);
    EXPECT_EQ(modul.INI_Daten_Lesen("c", 1), -1);
}

TEST_F(IniDatenLesen, ComparesNamesWithoutCase)
{
    row("M1", "Ch1.M1_größe", 0);
    read();
    EXPECT_EQ(modul.INI_Daten_Lesen("CH1.m1_GRÖßE", 0), 1);
}

TEST_F(IniDatenLesen, TakesTheLastOfSeveral)
{
    row("M1", "a", 0);
    row("M1", "A", 0);
    row("M1", "b", 0);
    read();
    EXPECT_EQ(modul.INI_Daten_Lesen("a", 0), 2);
}

TEST_F(IniDatenLesen, FindsNothingInAnEmptyTableOrBehindTheCount)
{
    EXPECT_EQ(modul.INI_Daten_Lesen("", 0), -1);
    row("M1", "a", 0);
    read("M1");
    read("M2");
    EXPECT_EQ(def(1).VarName, "a");
    EXPECT_EQ(modul.INI_Daten_Lesen("a", 0), -1);
}

} // namespace
