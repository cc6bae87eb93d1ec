#include "jet/in_child.h"
#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <sys/stat.h>
#include <thread>

namespace servopanel::jet {

namespace {

using namespace testing;
namespace fs = std::filesystem;

TEST(Replacing, KeepsPermissionsOwnerAndSymbolicLinks)
{
    SampleProject project{sampleRows(60)};
    const fs::path real = project.folder() / "data" / "Real.mdb";
    fs::create_directory(real.parent_path());
    fs::rename(project.file(), real);
    fs::create_symlink("data/Real.mdb", project.file());
    fs::permissions(real, fs::perms{0640});
    constexpr uid_t someone = 12345;
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(real.c_str(), someone, someone), 0);
    }

    project.change(project.bookmark(3), "Max", 17.0);

    EXPECT_TRUE(fs::is_symlink(project.file()));
    EXPECT_EQ(fs::read_symlink(project.file()), "data/Real.mdb");
    struct stat status { };
    ASSERT_EQ(::stat(real.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    if (::geteuid() == 0) {
        EXPECT_EQ(status.st_uid, someone);
        EXPECT_EQ(status.st_gid, someone);
    }
    EXPECT_EQ(project.rows()[3].max, basic::Variant{17.0});
    EXPECT_EQ(std::distance(fs::directory_iterator{real.parent_path()}, {}), 1);
}

TEST(Replacing, RemovesWhatAKilledProgramLeft)
{
    SampleProject project{sampleRows(60)};
    const fs::path left = project.folder() / ".Servo.mdb.new";
    writeFile(left, Bytes(100, 'x'));
    project.change(project.bookmark(3), "Max", 17.0);
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(project.rows()[3].max, basic::Variant{17.0});
}

void setAll(SampleProject& project, double value)
{
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    for (; !records->atEnd(); records->moveNext()) {
        records->edit();
        records->setField("Max", value);
        records->update();
    }
    database->close();
}

TEST(Replacing, GivesTheOldFileOrTheNewOneWheneverItIsKilled)
{
    constexpr int rounds = 300;
    SampleProject project{sampleRows(60)};
    setAll(project, 0.0);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(inChild([&] {
        setAll(project, 1.0);
        return true;
    }));
    const auto whole =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);

    std::mt19937 random{4711};
    std::uniform_int_distribution<std::int64_t> delay{0, whole.count() * 5 / 4};
    double present = 1.0;
    int changed = 0;
    for (int round = 0; round < rounds; ++round) {
        const double next = present + 1;
        const pid_t child = ::fork();
        if (child == 0) {
            try {
                setAll(project, next);
            } catch (...) {
            }
            ::_exit(0);
        }
        std::this_thread::sleep_for(std::chrono::microseconds{delay(random)});
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);

        const std::vector<DefinitionRow> rows = project.rows();
        ASSERT_EQ(rows.size(), 60U);
        const double found = *rows[0].max.get<double>();
        ASSERT_TRUE(found == present || found == next) << found;
        for (const DefinitionRow& row : rows)
            ASSERT_EQ(row.max, basic::Variant{found});
        changed += found == next ? 1 : 0;
        present = found;
    }
    std::printf("killed %d times: %d new files, %d old ones\n", rounds, changed, rounds - changed);
    EXPECT_LT(changed, rounds);
}

} // namespace

} // namespace servopanel::jet
