#include "jet/in_child.h"
#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <random>
#include <sys/file.h>
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

TEST(Replacing, RemovesWhatKilledProgramsLeft)
{
    SampleProject project{sampleRows(60)};
    const auto leave = [&](const char* name) {
        writeFile(project.folder() / name, Bytes(100, 'x'));
        return project.folder() / name;
    };
    const fs::path first = leave(".Servo.mdb.1-0.new");
    const fs::path second = leave(".Servo.mdb.99999-12.new");
    const fs::path ofAnotherFile = leave(".Other.mdb.1-0.new");
    const fs::path ofAnotherProgram = leave(".Servo.mdb.old.new");
    const fs::path inUse = leave(".Servo.mdb.2-0.new");
    const int descriptor = ::open(inUse.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);

    project.change(project.bookmark(3), "Max", 17.0);

    EXPECT_EQ(project.rows()[3].max, basic::Variant{17.0});
    EXPECT_FALSE(fs::exists(first));
    EXPECT_FALSE(fs::exists(second));
    EXPECT_TRUE(fs::exists(ofAnotherFile));
    EXPECT_TRUE(fs::exists(ofAnotherProgram));
    EXPECT_TRUE(fs::exists(inUse));
    ::close(descriptor);
    project.change(project.bookmark(3), "Max", 18.0);
    EXPECT_FALSE(fs::exists(inUse));
}

// All values of all rows, and different ones for every generation.
std::vector<DefinitionRow> generation(int number)
{
    std::vector<DefinitionRow> rows = sampleRows(60);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double x = number + static_cast<double>(i) / 64;
        rows[i].absMax = x + 0.5;
        rows[i].absMin = -x;
        rows[i].element = static_cast<std::int16_t>(number);
        rows[i].max = x;
        rows[i].min = 1 / x;
        rows[i].pass = static_cast<std::int16_t>(number + static_cast<int>(i));
    }
    return rows;
}

void write(SampleProject& project, const std::vector<DefinitionRow>& rows)
{
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    for (const DefinitionRow& row : rows) {
        records->edit();
        records->setField("abs_max", row.absMax);
        records->setField("abs_min", row.absMin);
        records->setField("offset_or_bitno", row.element);
        records->setField("Max", row.max);
        records->setField("Min", row.min);
        records->setField("Pass", row.pass);
        records->update();
        records->moveNext();
    }
    database->close();
}

std::ptrdiff_t filesIn(const fs::path& folder) { return std::distance(fs::directory_iterator{folder}, {}); }

TEST(Replacing, GivesTheOldFileOrTheNewOneWheneverItIsKilled)
{
    constexpr int rounds = 300;
    SampleProject project{generation(1)};
    const auto start = std::chrono::steady_clock::now();
    write(project, generation(2));
    std::chrono::duration<double> whole = std::chrono::steady_clock::now() - start;

    std::mt19937 random{4711};
    std::uniform_real_distribution<double> part{0.0, 1.0};
    int present = 2;
    int changed = 0;
    for (int round = 0; round < rounds; ++round) {
        const int next = round + 3;
        const pid_t child = ::fork();
        if (child == 0) {
            try {
                write(project, generation(next));
            } catch (...) {
                ::_exit(1);
            }
            // Killed also when it has done everything.
            while (true)
                ::pause();
        }
        std::this_thread::sleep_for(whole * part(random));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "round " << round;

        // Of all killed ones no more than the last has left anything.
        ASSERT_LE(filesIn(project.folder()), 2);
        const std::vector<std::string> found = exactly(project.rows());
        const bool isNew = found == exactly(generation(next));
        ASSERT_TRUE(isNew || found == exactly(generation(present))) << "round " << round;
        changed += isNew ? 1 : 0;
        if (isNew) present = next;
        // Nearer to the moment of the change, whatever else this machine is doing.
        whole *= isNew ? 0.97 : 1.03;
    }
    std::printf("killed %d times: %d new files, %d old ones\n", rounds, changed, rounds - changed);
    EXPECT_GT(changed, rounds / 10);
    EXPECT_LT(changed, rounds * 9 / 10);
    write(project, generation(rounds + 3));
    EXPECT_EQ(filesIn(project.folder()), 1);
}

// Two panels on one file. One of them may be refused; what is there is the whole of one.
TEST(Replacing, GivesTheWholeOfOneWhenTwoPanelsWriteAtOnce)
{
    constexpr int rounds = 200;
    SampleProject project{generation(1)};
    int refused = 0;
    for (int round = 0; round < rounds; ++round) {
        const std::vector<DefinitionRow> results[]{generation(2 * round + 2), generation(2 * round + 3)};
        int gate[2];
        ASSERT_EQ(::pipe(gate), 0);
        std::vector<pid_t> panels;
        for (const std::vector<DefinitionRow>& result : results) {
            panels.push_back(::fork());
            if (panels.back() != 0) continue;
            // Both start when the gate is closed.
            ::close(gate[1]);
            char nothing = 0;
            (void)!::read(gate[0], &nothing, 1);
            const basic::Error error = errorOf([&] {
                write(project, result);
                return 0;
            });
            constexpr auto inUse = static_cast<std::int32_t>(JetError::FileInUse);
            constexpr auto rowChanged = static_cast<std::int32_t>(JetError::RowChanged);
            const bool isRefused = error.number == inUse || error.number == rowChanged;
            ::_exit(error.number == 0 ? 0 : isRefused ? 1 : 2);
        }
        ::close(gate[0]);
        ::close(gate[1]);
        std::vector<bool> wrote;
        for (const pid_t panel : panels) {
            int status = 0;
            ASSERT_EQ(::waitpid(panel, &status, 0), panel);
            ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) <= 1) << "round " << round;
            wrote.push_back(WEXITSTATUS(status) == 0);
        }
        ASSERT_TRUE(wrote[0] || wrote[1]) << "round " << round;
        const std::vector<std::string> found = exactly(project.rows());
        ASSERT_TRUE((wrote[0] && found == exactly(results[0])) || (wrote[1] && found == exactly(results[1])))
            << "round " << round;
        ASSERT_EQ(filesIn(project.folder()), 1);
        refused += wrote[0] && wrote[1] ? 0 : 1;
    }
    std::printf("two panels %d times: one was refused %d times\n", rounds, refused);
    EXPECT_GT(refused, 0);
}

} // namespace

} // namespace servopanel::jet
