#include "definitions_fixture.h"

#include <algorithm>

namespace {

using namespace servopanel;
using servopanel::testing::Report;
using servopanel::testing::Reports;
using servopanel::testing::Texts;

struct IniDatenbankSchreiben : servopanel::testing::DefinitionsTest {
    void write(const char* variable = "alle")
    {
        surround.world().log.clear();
        modul.INI_Datenbank_Schreiben(file, variable);
    }
    // Sets the limit of every record in memory.
    void change(double max)
    {
        for (std::int32_t i = 0; i < modul.ParamDefAnzahl(); ++i)
            modul.ParamDefs()[i].Max = max;
    }
    basic::Variant max(std::size_t position) { return table.rows[position - 1].columns["MAX"]; }
};

TEST_F(IniDatenbankSchreiben, WritesEveryRecordInMemoryToItsRow)
{
    row("M2", "x", 0);
    row("M1", "a", 1);
    row("M1", "b", 2);
    read();
    change(5);
    write();
    EXPECT_EQ(max(1), basic::Variant{10.0});
    EXPECT_EQ(max(2), basic::Variant{5.0});
    EXPECT_EQ(max(3), basic::Variant{5.0});
    EXPECT_TRUE(reports().empty());
}

TEST_F(IniDatenbankSchreiben, SetsTheColumnsInOrderAndLeavesNameAndType)
{
    row("M1", "a", 1);
    read();
    config::ParamDef& def = modul.ParamDefs()[0];
    def.VarName = "renamed";
    def.AbsMax = 1;
    def.AbsMin = 2;
    def.OffsetOderBitNr = 3;
    def.Max = 4;
    def.Min = 5;
    def.Pass = 6;
    write();
    EXPECT_EQ(surround.logged("set"), (Texts{"abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass"}));
    auto& columns = table.rows[0].columns;
    EXPECT_EQ(columns["VAR_NAME"], basic::Variant{"a"});
    EXPECT_EQ(columns["MACHINE_TYPE"], basic::Variant{"M1"});
    EXPECT_EQ(columns["ABS_MAX"], basic::Variant{1.0});
    EXPECT_EQ(columns["ABS_MIN"], basic::Variant{2.0});
    EXPECT_EQ(columns["OFFSET_OR_BITNO"], basic::Variant{std::int16_t{3}});
    EXPECT_EQ(columns["MAX"], basic::Variant{4.0});
    EXPECT_EQ(columns["MIN"], basic::Variant{5.0});
    EXPECT_EQ(columns["PASS"], basic::Variant{std::int16_t{6}});
}

TEST_F(IniDatenbankSchreiben, SelectsByNameWithoutCase)
{
    row("M1", "a", 1);
    row("M1", "A", 2);
    row("M1", "b", 3);
    read();
    change(5);
    write("a");
    EXPECT_EQ(max(1), basic::Variant{5.0});
    EXPECT_EQ(max(2), basic::Variant{5.0});
    EXPECT_EQ(max(3), basic::Variant{10.0});
}

TEST_F(IniDatenbankSchreiben, TakesTheSelectorForAllExactly)
{
    row("M1", "a", 1);
    row("M1", "alle", 2);
    read();
    change(5);
    write("Alle");
    EXPECT_EQ(max(1), basic::Variant{10.0});
    EXPECT_EQ(max(2), basic::Variant{5.0});
}

TEST_F(IniDatenbankSchreiben, WritesOnlyTheRecordsInMemory)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    read("M1", "b");
    change(5);
    write();
    EXPECT_EQ(max(1), basic::Variant{10.0});
    EXPECT_EQ(max(2), basic::Variant{5.0});
    EXPECT_EQ(table.updates, 1);
}

TEST_F(IniDatenbankSchreiben, GoesThroughAllRowsFirstAndClosesTheFile)
{
    row("M1", "a", 1);
    row("M2", "b", 2);
    read();
    write();
    const Texts& log = surround.world().log;
    EXPECT_EQ(std::count(log.begin(), log.end(), "moveNext"), 2);
    EXPECT_LT(std::find(log.begin(), log.end(), "moveNext"), std::find(log.begin(), log.end(), "update"));
    EXPECT_EQ(log.back(), "db close");
}

TEST_F(IniDatenbankSchreiben, OpensTheFileEvenWhenNothingIsInMemory)
{
    write();
    EXPECT_EQ(surround.logged("db"), (Texts{"open P:\\Servo\\Servo.mdb", "close"}));
    EXPECT_EQ(table.updates, 0);
}

TEST_F(IniDatenbankSchreiben, WritesNothingForARowThatIsGone)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    read();
    change(5);
    table.rows.erase(table.rows.begin());
    write();
    EXPECT_EQ(max(1), basic::Variant{5.0});
    EXPECT_EQ(table.updates, 1);
    // Moving, editing, six columns and updating.
    EXPECT_EQ(reports().size(), 9U);
    EXPECT_EQ(reports().front(), (Report{3167, "INI_Datenbank_Schreiben"}));
}

TEST_F(IniDatenbankSchreiben, WritesTheOtherRecordsAfterARefusedUpdate)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    read();
    change(5);
    surround.world().fail("update", 1);
    write();
    EXPECT_EQ(max(1), basic::Variant{10.0});
    EXPECT_EQ(max(2), basic::Variant{5.0});
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Schreiben"}}));
}

TEST_F(IniDatenbankSchreiben, ReportsADatabaseThatCannotBeOpenedOnce)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    read();
    surround.world().fail("db open P:\\Servo\\Servo.mdb");
    write();
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Schreiben"}}));
    EXPECT_EQ(table.updates, 0);
}

TEST_F(IniDatenbankSchreiben, ReportsAFileWithoutTheTableOnceAndClosesIt)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    read();
    surround.world().fail("SELECT PRESET_DEFS.* FROM PRESET_DEFS");
    write();
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Schreiben"}}));
    EXPECT_EQ(surround.world().log.back(), "db close");
}

TEST_F(IniDatenbankSchreiben, ReportsAMissingEngineOnce)
{
    row("M1", "a", 1);
    read();
    surround.zustand.DBEngine.reset();
    surround.world().fail("create DBEngine");
    write();
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Schreiben"}}));
    EXPECT_TRUE(surround.logged("db").empty());
}

TEST_F(IniDatenbankSchreiben, ReportsAFailedClosingAndHasWritten)
{
    row("M1", "a", 1);
    read();
    change(5);
    surround.world().fail("db close");
    write();
    EXPECT_EQ(max(1), basic::Variant{5.0});
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Schreiben"}}));
}

// What stands in for an unreadable column would wipe out what the file holds.
TEST_F(IniDatenbankSchreiben, LeavesAnUnreadableColumnAloneUntilItsMarkIsCleared)
{
    struct Column {
        const char* name;
        const char* stored;
        bool config::ParamDef::*mark;
        basic::Variant standIn;
    };
    const Column columns[]{
        {"abs_max", "ABS_MAX", &config::ParamDef::AbsMaxFehlt, 0.0},
        {"abs_min", "ABS_MIN", &config::ParamDef::AbsMinFehlt, 0.0},
        {"offset_or_bitno", "OFFSET_OR_BITNO", &config::ParamDef::OffsetFehlt, std::int16_t{0}},
        {"Max", "MAX", &config::ParamDef::MaxFehlt, 0.0},
        {"Min", "MIN", &config::ParamDef::MinFehlt, 0.0},
        {"Pass", "PASS", &config::ParamDef::PassFehlt, std::int16_t{32767}},
    };
    for (const Column& column : columns) {
        table.rows.clear();
        table.updates = 0;
        row("M1", "a", 1).columns[column.stored] = "x";
        read();
        write();
        EXPECT_EQ(table.rows[0].columns[column.stored], basic::Variant{"x"}) << column.name;
        Texts others{"abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass"};
        others.erase(std::find(others.begin(), others.end(), column.name));
        EXPECT_EQ(surround.logged("set"), others) << column.name;
        EXPECT_EQ(table.updates, 1) << column.name;

        modul.ParamDefs()[0].*column.mark = false;
        write();
        EXPECT_EQ(table.rows[0].columns[column.stored], column.standIn) << column.name;
    }
}

// A value alone is no sign of the operator's will.
TEST_F(IniDatenbankSchreiben, WritesNothingIntoAMarkedColumn)
{
    row("M1", "a", 1).columns["MAX"] = "x";
    read();
    change(7);
    write();
    EXPECT_EQ(max(1), basic::Variant{"x"});
}

TEST_F(IniDatenbankSchreiben, WritesDespiteAWalkThatBreaksOff)
{
    row("M1", "a", 1);
    read();
    change(5);
    surround.world().fail("moveNext");
    write();
    EXPECT_EQ(max(1), basic::Variant{5.0});
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Schreiben"}}));
}

// A record that a caller has made lacks nothing.
TEST_F(IniDatenbankSchreiben, WritesARecordThatWasNotReadWithAllItsColumns)
{
    row("M1", "a", 1);
    read();
    config::ParamDef made;
    made.Lesezeichen = def(1).Lesezeichen;
    made.VarName = "a";
    modul.ParamDefs()[0] = made;
    write();
    EXPECT_EQ(surround.logged("set"), (Texts{"abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass"}));
}

} // namespace
