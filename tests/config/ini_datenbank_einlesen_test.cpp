#include "config/datenbank.h"
#include "definitions_fixture.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace {

using namespace servopanel;
using servopanel::testing::Reports;
using servopanel::testing::Texts;

struct IniDatenbankEinlesen : servopanel::testing::DefinitionsTest { };

// A database without rows that notes when it and its rows are let go, or one that has no rows to hand out.
class NotedDatabase final : public platform::Database {
public:
    NotedDatabase(Texts& log, bool hasRows)
        : log_{log}
        , hasRows_{hasRows}
    {
    }
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view) override
    {
        return hasRows_ ? std::make_unique<Rows>(log_) : nullptr;
    }
    void close() override { log_.emplace_back("close"); }

private:
    struct Rows final : platform::RecordSet {
        explicit Rows(Texts& noted)
            : log{noted}
        {
        }
        ~Rows() override { log.emplace_back("rows gone"); }
        bool atEnd() override { return true; }
        void moveNext() override { }
        basic::Variant field(std::string_view) override { return {}; }
        basic::Variant bookmark() override { return {}; }
        void moveTo(const basic::Variant&) override { }
        void edit() override { }
        void setField(std::string_view, const basic::Variant&) override { }
        void update() override { }
        Texts& log;
    };

    Texts& log_;
    bool hasRows_;
};
struct NotedEngine final : platform::DBEngine {
    std::unique_ptr<platform::Database> open(std::string_view) override
    {
        return hasDatabase ? std::make_unique<NotedDatabase>(log, hasRows) : nullptr;
    }
    Texts log;
    bool hasDatabase = true;
    bool hasRows = true;
};

TEST_F(IniDatenbankEinlesen, LetsTheRowsGoBeforeItClosesTheFile)
{
    const auto engine = std::make_shared<NotedEngine>();
    surround.platform.engine = engine;
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(engine->log, (Texts{"rows gone", "close"}));
}

// A host that hands out nothing at all is treated like one that failed.
TEST_F(IniDatenbankEinlesen, ReportsADatabaseOrRowsThatThereAreNot)
{
    const auto engine = std::make_shared<NotedEngine>();
    surround.platform.engine = engine;
    engine->hasRows = false;
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(engine->log, (Texts{"close"}));
    engine->hasDatabase = false;
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(reports(), (Reports{{91, "INI_Datenbank_Einlesen"}, {91, "INI_Datenbank_Einlesen"}}));
}

TEST_F(IniDatenbankEinlesen, TakesEveryRowOfTheMachineInTableOrder)
{
    row("M1", "b", 1);
    row("M2", "x", 2);
    row("M1", "a", 3);
    EXPECT_EQ(read(), 2);
    EXPECT_EQ(modul.ParamDefAnzahl(), 2);
    EXPECT_EQ(def(1).VarName, "b");
    EXPECT_EQ(def(2).VarName, "a");
    EXPECT_TRUE(reports().empty());
}

TEST_F(IniDatenbankEinlesen, ConvertsTheColumns)
{
    servopanel::testing::FakeRow& source = row("M1", "a", 3);
    source.columns["ABS_MIN"] = std::int32_t{-200};
    source.columns["ABS_MAX"] = "250.5";
    source.columns["MIN"] = 1.5F;
    source.columns["PASS"] = 2.5;
    source.columns["OFFSET_OR_BITNO"] = "7";
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(def(1).Lesezeichen, basic::Variant{source.id});
    EXPECT_EQ(def(1).AbsMin, -200.0);
    EXPECT_EQ(def(1).AbsMax, 250.5);
    EXPECT_EQ(def(1).Min, 1.5);
    EXPECT_EQ(def(1).Max, 10.0);
    EXPECT_EQ(def(1).Pass, 2);
    EXPECT_EQ(def(1).OffsetOderBitNr, 7);
}

TEST_F(IniDatenbankEinlesen, SelectsWithRegardToCase)
{
    row("M1", "a", 1);
    row("m1", "a", 2);
    row("M1", "A", 3);
    row("M1 ", "a", 4);
    EXPECT_EQ(read("M1", "a"), 1);
    EXPECT_EQ(def(1).OffsetOderBitNr, 1);
    EXPECT_EQ(read("M1", "Alle"), 0);
    EXPECT_EQ(read("M1", "alle"), 2);
}

TEST_F(IniDatenbankEinlesen, CountsNothingForAMachineWithoutRows)
{
    row("M1", "a", 1);
    EXPECT_EQ(read("M1"), 1);
    EXPECT_EQ(read("M3"), 0);
    EXPECT_EQ(modul.ParamDefAnzahl(), 0);
    EXPECT_TRUE(reports().empty());
}

TEST_F(IniDatenbankEinlesen, OpensAndReleasesTheFileEachTime)
{
    row("M1", "a", 1);
    read();
    read();
    EXPECT_EQ(surround.logged("create"), (Texts{"DBEngine", "PathHelper"}));
    EXPECT_EQ(surround.logged("db"),
        (Texts{"open P:\\Servo\\Servo.mdb", "close", "open P:\\Servo\\Servo.mdb", "close"}));
    EXPECT_EQ(surround.logged("SELECT"), Texts(2, "PRESET_DEFS.* FROM PRESET_DEFS"));
}

TEST_F(IniDatenbankEinlesen, LeavesAFieldEmptyWhoseColumnDoesNotConvert)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    read();
    table.rows[0].columns["MAX"] = "much";
    table.rows[0].columns["OFFSET_OR_BITNO"] = std::int32_t{70000};
    table.rows[0].columns["VAR_NAME"] = basic::Null{};
    EXPECT_EQ(read(), 2);
    EXPECT_EQ(def(1).Max, 0.0);
    EXPECT_EQ(def(1).OffsetOderBitNr, 0);
    EXPECT_EQ(def(1).VarName, "");
    EXPECT_EQ(def(1).Min, -10.0);
    EXPECT_EQ(def(2).VarName, "b");
    EXPECT_EQ(reports(),
        (Reports{
            {6, "INI_Datenbank_Einlesen"}, {13, "INI_Datenbank_Einlesen"}, {94, "INI_Datenbank_Einlesen"}}));
}

TEST_F(IniDatenbankEinlesen, LocksAFieldWhoseAccessLevelIsUnreadable)
{
    row("M1", "a", 1).columns["PASS"] = "nobody";
    row("M1", "b", 2).columns["PASS"] = basic::Null{};
    row("M1", "c", 3).columns.erase("PASS");
    row("M1", "d", 4).columns["PASS"] = std::int32_t{40000};
    EXPECT_EQ(read(), 4);
    for (std::int32_t i = 1; i <= 4; ++i)
        EXPECT_EQ(def(i).Pass, 32767) << i;
    EXPECT_EQ(reports().size(), 4U);
}

TEST_F(IniDatenbankEinlesen, PassesOverRowsWithoutAType)
{
    row("M1", "a", 1).columns["MACHINE_TYPE"] = basic::Null{};
    EXPECT_EQ(read(), 0);
    EXPECT_TRUE(reports().empty());
    table.rows[0].columns.erase("MACHINE_TYPE");
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(reports(), (Reports{{3265, "INI_Datenbank_Einlesen"}}));
}

TEST_F(IniDatenbankEinlesen, ReportsADatabaseThatCannotBeOpenedOnce)
{
    row("M1", "a", 1);
    read();
    surround.platform.tables.clear();
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(modul.ParamDefAnzahl(), 0);
    EXPECT_EQ(reports(), (Reports{{3024, "INI_Datenbank_Einlesen"}}));
}

TEST_F(IniDatenbankEinlesen, ReportsAMissingEngineOnceAndAsksForItAgain)
{
    row("M1", "a", 1);
    surround.world().fail("create DBEngine", 1);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Einlesen"}}));
    EXPECT_TRUE(surround.logged("db").empty());
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(reports().size(), 1U);
}

TEST_F(IniDatenbankEinlesen, ReportsAFailedClosingAndKeepsWhatItRead)
{
    row("M1", "a", 1);
    surround.world().fail("db close");
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Einlesen"}}));
}

TEST_F(IniDatenbankEinlesen, TellsTheOperatorAboutAMissingFileToo)
{
    surround.world().existing.clear();
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(surround.platform.shown, Texts{"File 'P:\\Servo\\Servo.mdb' can not be loaded !"});
    EXPECT_EQ(surround.logged("db"), Texts{"open "});
    EXPECT_EQ(reports(), (Reports{{3024, "INI_Datenbank_Einlesen"}}));
}

TEST_F(IniDatenbankEinlesen, ReportsAFileWithoutTheTableOnceAndReleasesIt)
{
    row("M1", "a", 1);
    surround.world().fail("SELECT PRESET_DEFS.* FROM PRESET_DEFS");
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(reports(), (Reports{{1000, "INI_Datenbank_Einlesen"}}));
    EXPECT_EQ(surround.world().log.back(), "db close");
}

TEST_F(IniDatenbankEinlesen, EndsTheWalkWhenItCannotMoveOn)
{
    row("M1", "a", 1);
    row("M1", "b", 2);
    surround.world().fail("moveNext");
    EXPECT_EQ(read(), 1);
    surround.world().fail("atEnd");
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(reports().size(), 2U);
    EXPECT_EQ(surround.world().log.back(), "db close");
}

TEST_F(IniDatenbankEinlesen, CountsTheRowThatFindsNoRoomAndReportsItsStore)
{
    for (std::int16_t i = 1; i <= 2001; ++i)
        row("M1", "a", i);
    EXPECT_EQ(read(), 2001);
    EXPECT_EQ(def(2000).OffsetOderBitNr, 2000);
    EXPECT_EQ(reports(), (Reports{{9, "INI_Datenbank_Einlesen"}}));
    EXPECT_EQ(modul.INI_Daten_Lesen("a", 2001), -1);
    EXPECT_EQ(modul.INI_Daten_Lesen("a", 2000), 2000);
    modul.INI_Datenbank_Schreiben(file, "alle");
    EXPECT_EQ(table.updates, 2000);
    EXPECT_EQ(reports().size(), 1U);
}

TEST_F(IniDatenbankEinlesen, StopsCountingAtTheEndOf16Bits)
{
    for (int i = 1; i <= 32768; ++i)
        row("M1", "a", 1);
    EXPECT_EQ(read(), 32767);
    EXPECT_EQ(modul.ParamDefAnzahl(), 32767);
    const auto reported = [this](std::int32_t number) {
        return std::count(reports().begin(), reports().end(),
            servopanel::testing::Report{number, "INI_Datenbank_Einlesen"});
    };
    EXPECT_EQ(reported(6), 1);
    // Each one from the 2001st on finds no room.
    EXPECT_EQ(reported(9), 32768 - 2000);
}

// The only row of a database; of it nothing but its machine type can be read. Each failure has a number of its own.
class BrokenRow final : public platform::RecordSet {
public:
    bool atEnd() override { return atEnd_; }
    void moveNext() override { atEnd_ = true; }
    basic::Variant field(std::string_view column) override
    {
        static const Texts columns{"abs_max", "abs_min", "offset_or_bitno", "Max", "Min", "Pass", "var_name"};
        if (column == "machine_type") return "M1";
        const auto place = std::find(columns.begin(), columns.end(), column);
        throw basic::Error{static_cast<std::int32_t>(1 + (place - columns.begin())), "Fake", "unreadable"};
    }
    basic::Variant bookmark() override { throw basic::Error{0, "Fake", "no bookmark"}; }
    void moveTo(const basic::Variant&) override { }
    void edit() override { }
    void setField(std::string_view, const basic::Variant&) override { }
    void update() override { }

private:
    bool atEnd_ = false;
};
struct BrokenDatabase final : platform::Database {
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view) override
    {
        return std::make_unique<BrokenRow>();
    }
    void close() override { }
};
struct BrokenEngine final : platform::DBEngine {
    std::unique_ptr<platform::Database> open(std::string_view) override
    {
        return std::make_unique<BrokenDatabase>();
    }
};

TEST_F(IniDatenbankEinlesen, ReportsWhatARowLacksColumnByColumn)
{
    surround.platform.engine = std::make_shared<BrokenEngine>();
    EXPECT_EQ(read(), 1);
    std::vector<std::int32_t> numbers;
    for (const auto& report : reports())
        numbers.push_back(report.number);
    EXPECT_EQ(numbers, (std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(IniDatenbankEinlesen, LetsGoOfTheFileThatItCloses)
{
    const auto engine = std::make_shared<NotedEngine>();
    surround.platform.engine = engine;
    basic::StatementTrap trap{surround.errors, "Test"};
    config::Tabelle tabelle = config::öffnen(surround.umfeld, global, trap, file);
    tabelle.schließen(trap);
    tabelle.schließen(trap);
    EXPECT_EQ(engine->log, (Texts{"rows gone", "close"}));
}

TEST_F(IniDatenbankEinlesen, KnowsItsCountBeforeItLetsGoOfTheFile)
{
    row("M1", "a", 1);
    std::int16_t meanwhile = 0;
    surround.world().accessed = [&] {
        if (surround.world().log.back() == "db close") meanwhile = modul.ParamDefAnzahl();
    };
    read();
    EXPECT_EQ(meanwhile, 1);
}

} // namespace
