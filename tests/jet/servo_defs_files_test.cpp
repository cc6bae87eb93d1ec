#include "jet/servo_defs_fixture.h"

// What servo-defs does with files: never to the wrong one, and an error that names the right one.

namespace servopanel::jet {

namespace {

using namespace testing;
namespace fs = std::filesystem;

TEST_F(ServoDefs, ReplacesAFileOnlyByForce)
{
    const std::string file = database(twoRows);
    const std::string before = tests::contentOf(file);
    const std::string other = csv("other.csv", "M1,Speed,1,1,1,1,1,1\n");
    EXPECT_EQ(run({"create", file, other}), 2);
    EXPECT_EQ(errors, "servo-defs create: '" + file + "': it exists already\n");
    EXPECT_EQ(tests::contentOf(file), before);
    EXPECT_EQ(run({"create", file, other, "--force"}), 0);
    EXPECT_NE(tests::contentOf(file), before);

    const std::string old = tests::contentOf(other);
    EXPECT_EQ(run({"create", path("two.mdb"), csv("two.csv", twoRows)}), 0);
    EXPECT_EQ(run({"export", path("two.mdb"), other}), 2);
    EXPECT_EQ(errors, "servo-defs export: '" + other + "': it exists already\n");
    EXPECT_EQ(tests::contentOf(other), old);
    EXPECT_EQ(run({"export", path("two.mdb"), other, "--force"}), 0);
    EXPECT_EQ(tests::contentOf(other), std::string{csvHeader} + twoRows);
}

TEST_F(ServoDefs, NeverWritesOverWhatItReadsOrOverAFileOfAnotherKind)
{
    const std::string file = database(twoRows);
    const std::string table = csv("Servo.csv", twoRows);
    fs::create_symlink("Servo.mdb", path("link.mdb"));
    fs::create_hard_link(file, path("hard.mdb"));
    fs::create_symlink("Servo.csv", path("link.csv"));
    const std::string same = "it would be read and written at once";
    const std::string noDatabase = "it is no database; only a database is replaced by one";
    const std::string noText = "it is no text; only a text is replaced by one";
    const struct {
        std::vector<std::string> arguments; // without --force
        std::string target;
        std::string refusal;
    } cases[]{
        {{"create", file, file}, file, same},
        {{"create", path("link.mdb"), file}, path("link.mdb"), same},
        {{"create", path("hard.mdb"), file}, path("hard.mdb"), same},
        {{"create", table, path("link.csv")}, table, same},
        {{"export", file, path("link.mdb")}, path("link.mdb"), same},
        {{"export", table, table}, table, same},
        {{"create", table, file}, table, noDatabase},
        {{"create", path("link.csv"), file}, path("link.csv"), noDatabase},
        {{"export", table, file}, file, noText},
        {{"export", csv("other.csv", twoRows), path("link.mdb")}, path("link.mdb"), noText},
    };
    const std::string before = tests::contentOf(file);
    for (const auto& [arguments, target, refusal] : cases) {
        std::vector<std::string> forced = arguments;
        forced.emplace_back("--force");
        EXPECT_EQ(run(forced), 2);
        EXPECT_EQ(errors, "servo-defs " + arguments.front() + ": '" + target + "': " + refusal + '\n');
        EXPECT_EQ(tests::contentOf(file), before);
        EXPECT_EQ(tests::contentOf(table), std::string{csvHeader} + twoRows);
    }
}

TEST_F(ServoDefs, NamesTheFileAndThePlaceThatItCannotUse)
{
    tests::TemporaryFolder other;
    const auto file = [&](const std::string& name, std::string_view content) {
        return other.file(name, content).string();
    };
    const std::string header{csvHeader};
    const struct {
        std::string source;
        std::string reason;
    } cases[]{
        {file("empty.mdb", ""), "it is empty"},
        {file("zeros.mdb", std::string(8192, '\0')), "it is neither a Jet database nor a CSV file in UTF-8"},
        {file("latin.csv", header + "M1,A,1,0,0,1,0,0\nM1,\xE4,1,0,0,1,0,0\n"), "line 3: it is not UTF-8"},
        {file("long.csv", header + "M1,A,1,0,0,1,0,0\n\nM1," + std::string(256, 'x') + ",1,0,0,1,0,0\n"),
            "line 4: column 'var_name' takes no more than 255 characters"},
        {file("mark.csv", header + "\uFEFFM1,A,1,0,0,1,0,0\n"),
            "line 2: a text begins with the invisible character U+FEFF"},
        {file("plus.csv", header + "M1,A,1,0,0,+-5,0,0\n"),
            "line 2: '+-5' cannot be a value of column 'Max'"},
    };
    for (const auto& [source, reason] : cases) {
        EXPECT_EQ(run({"create", path("new.mdb"), source}), 2);
        EXPECT_EQ(errors, "servo-defs create: '" + source + "': " + reason + '\n');
        EXPECT_FALSE(fs::exists(path("new.mdb")));
    }
    const std::string russian = file("russian.csv", header + "M1,\u0416,1,0,0,1,0,0\n");
    EXPECT_EQ(run({"create", path("new.mdb"), russian, "--jet3"}), 2);
    EXPECT_EQ(errors,
        "servo-defs create: '" + russian
            + "': line 2: a text has a character that a Jet 3 file cannot hold\n");
}

} // namespace

} // namespace servopanel::jet
