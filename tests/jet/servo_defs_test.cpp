#include "jet/changed_file.h"
#include "jet/servo_defs/definition_list.h"
#include "jet/servo_defs_fixture.h"

namespace servopanel::jet {

namespace {

using namespace testing;

TEST_F(ServoDefs, CreatesWhatExportGivesBack)
{
    const std::string file = database(twoRows);
    EXPECT_EQ(text, "2 definitions written\n");
    EXPECT_EQ(tests::contentOf(file)[0x14], 1);
    EXPECT_EQ(run({"export", file}), 0);
    EXPECT_EQ(text, std::string{csvHeader} + twoRows);
    EXPECT_EQ(run({"export", file, path("out.csv")}), 0);
    EXPECT_EQ(tests::contentOf(path("out.csv")), std::string{csvHeader} + twoRows);
    EXPECT_EQ(run({"create", path("3.mdb"), path("out.csv"), "--jet3"}), 0);
    EXPECT_EQ(tests::contentOf(path("3.mdb"))[0x14], 0);
    EXPECT_EQ(run({"diff", path("3.mdb"), file}), 0);
}

TEST_F(ServoDefs, ListsByMachineAndVariable)
{
    const std::string file = database(twoRows);
    EXPECT_EQ(run({"list", file}), 0);
    EXPECT_EQ(text,
        "M1  Speed\n  element 0: 10 to 80 (absolute 0 to 100), level 1\n"
        "M2  Force\n  element 1: -40 to 40 (absolute -50 to 50), level 5\n2 definitions\n");
    EXPECT_EQ(run({"list", file, "--machine", "M1"}), 0);
    EXPECT_EQ(text, "M1  Speed\n  element 0: 10 to 80 (absolute 0 to 100), level 1\n1 definition\n");
    EXPECT_EQ(run({"list", file, "--variable", "forc"}), 0);
    EXPECT_EQ(text, "M2  Force\n  element 1: -40 to 40 (absolute -50 to 50), level 5\n1 definition\n");
}

TEST_F(ServoDefs, ListsInOrderWhatAPersonCanRead)
{
    EXPECT_EQ(run({"list",
                  csv("a.csv",
                      "M2,B,1,,10,1,0,2\nM1,\"a\tb\nc\x1B\",1,0,2,1,0,2\nM2,A,1,0,3,,0,\nM2,B,1,0,9,1,0,2\n"
                      ",C,1,0,,1,0,2\n")}),
        0);
    EXPECT_EQ(text,
        "-  C\n  element -: 0 to 1 (absolute 0 to 1), level 2\n"
        "M1  a\\tb\\nc\\x1B\n  element 2: 0 to 1 (absolute 0 to 1), level 2\n"
        "M2  A\n  element 3: 0 to - (absolute 0 to 1), level -\n"
        "M2  B\n  element 9: 0 to 1 (absolute 0 to 1), level 2\n"
        "  element 10: 0 to 1 (absolute - to 1), level 2\n5 definitions\n");
}

TEST_F(ServoDefs, TellsNamesWithCommasApart)
{
    const std::string left = csv("left.csv", "\"M1, x\",y,1,0,0,1,0,2\n");
    const std::string right = csv("right.csv", "M1,\"x, y\",1,0,0,1,0,2\n");
    EXPECT_EQ(run({"diff", left, right}), 1);
    EXPECT_EQ(text, "- M1, x, y, 0\n+ M1, x, y, 0\n");
}

TEST_F(ServoDefs, FindsNoDifferenceBetweenAFileAndItself)
{
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    NewTable table{"PRESET_DEFS",
        {{"machine_type", ColumnType::Text, 10}, {"var_name", ColumnType::Text, 10},
            {"abs_max", ColumnType::Single}, {"abs_min", ColumnType::Date},
            {"offset_or_bitno", ColumnType::Int16}, {"Max", ColumnType::Double}, {"Min", ColumnType::Single},
            {"Pass", ColumnType::Int16}},
        {{"M1", "A", none, basic::Date{none}, std::int16_t{3}, static_cast<double>(none), -none,
            std::int16_t{1}}}};
    const std::string file = database(newDatabase(table, {}));
    EXPECT_EQ(run({"diff", file, file}), 0);
    EXPECT_EQ(text, "");
    // A limit that is none is shown, and not taken from a CSV file.
    EXPECT_EQ(run({"export", file, path("out.csv")}), 0);
    EXPECT_EQ(run({"import", file, path("out.csv")}), 2);
    EXPECT_EQ(errors,
        "servo-defs import: '" + path("out.csv")
            + "': line 2: 'nan' cannot be a value of column 'abs_max'\n");
}

TEST_F(ServoDefs, ShowsDifferences)
{
    const std::string file = database(twoRows);
    const std::string other = csv("other.csv", "M2,Force,50,-50,1,41.5,-40,\nM1,Speed,100,0,3,80,10,1\n");
    EXPECT_EQ(run({"diff", file, file}), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(run({"diff", file, other}), 1);
    EXPECT_EQ(text,
        "- M1, Speed, 0\nM2, Force, 1: Max 40 -> 41.5\nM2, Force, 1: Pass 5 -> (none)\n+ M1, Speed, 3\n");
}

TEST_F(ServoDefs, ImportsOnlyWhenItIsTold)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv", "M2,Force,50,-50,1,41.5,-40,3\n");
    const std::string shown = "M2, Force, 1: Max 40 -> 41.5\nM2, Force, 1: Pass 5 -> 3\n";
    EXPECT_EQ(run({"import", file, other}), 1);
    EXPECT_EQ(text, shown);
    EXPECT_EQ(tests::contentOf(file), before);
    EXPECT_EQ(run({"import", file, other, "--apply"}), 0);
    EXPECT_EQ(text, shown + "2 values changed\n");
    EXPECT_EQ(run({"import", file, other}), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(run({"export", file}), 0);
    EXPECT_EQ(text, std::string{csvHeader} + "M1,Speed,100,0,0,80,10,1\nM2,Force,50,-50,1,41.5,-40,3\n");
}

TEST_F(ServoDefs, ImportsAllOrNothing)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv", "M2,Force,50,-50,1,41.5,-40,3\nM3,New,1,1,1,1,1,1\n");
    EXPECT_EQ(run({"import", file, other, "--apply"}), 2);
    EXPECT_NE(
        errors.find("nothing was changed: 1 row of the CSV file would have to be added"), std::string::npos);
    EXPECT_EQ(tests::contentOf(file), before);
}

TEST_F(ServoDefs, NamesALineThatRepeatsAnother)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv",
        "M2,Force,50,-50,1,41.5,-40,3\n\nM1,Speed,100,0,0,80,10,1\nM2,Force,50,-50,1,42,-40,3\n");
    for (const std::vector<std::string>& arguments :
        {std::vector<std::string>{"import", file, other}, {"import", file, other, "--apply"}}) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_EQ(errors, "servo-defs import: '" + other + "': line 5: M2, Force, 1 is on line 2 already\n");
    }
    EXPECT_EQ(tests::contentOf(file), before);
}

// What stops an import after its first rows leaves every byte as it was.
TEST_F(ServoDefs, ImportsNothingWhenItIsStoppedOnTheWay)
{
    const std::string other = csv("other.csv", "M1,Speed,100,0,0,79,10,1\nM2,Force,50,-50,1,40,-40,4\n");
    const Bytes plain = newDefinitionDatabase(fromCsv(std::string{csvHeader} + twoRows).rows);
    ChangedFile indexed{plain};
    indexed.addIndex({7});
    const std::string file = database(indexed.bytes());
    EXPECT_EQ(run({"import", file, other, "--apply"}), 2);
    EXPECT_EQ(errors,
        "servo-defs import: '" + file
            + "': row 2 (M2, Force): column 'Pass' cannot be changed: an index holds its values\n");
    EXPECT_EQ(bytesOf(file), indexed.bytes());

    database(plain);
    writeFile(path("Servo.ldb"), {});
    EXPECT_EQ(run({"import", file, other, "--apply"}), 2);
    EXPECT_EQ(
        errors, "servo-defs import: '" + file + "': another user has it open (lock file 'Servo.ldb')\n");
    EXPECT_EQ(bytesOf(file), plain);

    std::filesystem::remove(path("Servo.ldb"));
    EXPECT_EQ(run({"import", file, other, "--apply"}), 0);
    EXPECT_NE(bytesOf(file), plain);
}

TEST_F(ServoDefs, SaysWhatIsWrongWithItsArguments)
{
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(errors, "A command is missing. servo-defs --help shows what there is.\n");
    EXPECT_EQ(run({"lost"}), 2);
    EXPECT_EQ(errors, "There is no command 'lost'. servo-defs --help shows what there is.\n");
    EXPECT_EQ(run({"-x"}), 2);
    EXPECT_EQ(errors, "There is no option '-x'. servo-defs --help shows what there is.\n");
    EXPECT_EQ(run({"list", "-x", "a"}), 2);
    EXPECT_EQ(errors, "servo-defs list: there is no option -x here\n");
    EXPECT_EQ(run({"list", "--", "-x"}), 2);
    EXPECT_EQ(errors, "servo-defs list: '-x': there is no such file\n");
    EXPECT_EQ(run({"list"}), 2);
    EXPECT_EQ(errors, "servo-defs list: an argument is missing\n");
    EXPECT_EQ(run({"list", "a", "b"}), 2);
    EXPECT_EQ(errors, "servo-defs list: 'b' is one argument too many\n");
    EXPECT_EQ(run({"list", "a", "--apply"}), 2);
    EXPECT_EQ(errors, "servo-defs list: there is no option --apply here\n");
    EXPECT_EQ(run({"list", "a", "--machine"}), 2);
    EXPECT_EQ(errors, "servo-defs list: option --machine needs a value\n");
    EXPECT_EQ(run({"list", path("missing.mdb")}), 2);
    EXPECT_EQ(errors, "servo-defs list: '" + path("missing.mdb") + "': there is no such file\n");
}

TEST_F(ServoDefs, HelpsWheneverItIsAsked)
{
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"--help"}, {"-h"}, {"list", "--help"}, {"list", "-h"}, {"create", "a", "-h", "b"}}) {
        EXPECT_EQ(run(arguments), 0);
        EXPECT_NE(text.find("Examples:"), std::string::npos);
        EXPECT_NE(text.find("export FILE [CSV] [--force]"), std::string::npos);
        EXPECT_NE(text.find("commas or semicolons"), std::string::npos);
    }
}

} // namespace

} // namespace servopanel::jet
