#include "jet/disk_file.h"
#include "jet/in_child.h"
#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace servopanel::jet {

namespace {

using namespace testing;
namespace fs = std::filesystem;

const Bytes& database()
{
    static const Bytes bytes = newDefinitionDatabase(sampleRows(10));
    return bytes;
}

const Bytes& otherDatabase()
{
    static const Bytes bytes = newDefinitionDatabase(sampleRows(11));
    return bytes;
}

Bytes text(std::string_view content) { return {content.begin(), content.end()}; }

class Creating : public ::testing::Test {
protected:
    // What creating the file raises, with nothing changed and nothing left behind; "" when it succeeds.
    static std::string create(const fs::path& file, const Bytes& content, bool mayReplace)
    {
        const bool existed = fs::exists(file);
        const Bytes before = existed ? bytesOf(file) : Bytes{};
        const basic::Error error = errorOf([&] {
            createFile(file, content, mayReplace, [&](const Bytes& written) { EXPECT_EQ(written, content); });
            return 0;
        });
        if (error.number == 0) {
            EXPECT_EQ(bytesOf(file), content);
        } else {
            EXPECT_EQ(fs::exists(file), existed);
            EXPECT_EQ(existed ? bytesOf(file) : Bytes{}, before);
        }
        return error.description;
    }
    std::size_t entries() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator{folder.path()}, {}));
    }
    static mode_t modeOf(const fs::path& file)
    {
        struct stat status { };
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_mode & 07777U;
    }

    tests::TemporaryFolder folder;
    fs::path file = folder.path() / "Servo.mdb";
};

TEST_F(Creating, HeedsThePermissionsThatTheProcessGives)
{
    const mode_t old = ::umask(0027);
    EXPECT_EQ(create(file, database(), false), "");
    ::umask(old);
    EXPECT_EQ(modeOf(file), 0640U);
    EXPECT_EQ(entries(), 1U);
}

TEST_F(Creating, KeepsOwnerAndPermissionsOfTheFileItReplaces)
{
    writeFile(file, database());
    fs::permissions(file, fs::perms{0640});
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(file.c_str(), 1234, 4321), 0);
    }
    EXPECT_EQ(create(file, otherDatabase(), false), "it exists already");
    EXPECT_EQ(create(file, otherDatabase(), true), "");
    EXPECT_EQ(modeOf(file), 0640U);
    struct stat status { };
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    if (::geteuid() == 0) {
        EXPECT_EQ(status.st_uid, 1234U);
        EXPECT_EQ(status.st_gid, 4321U);
    }
    EXPECT_EQ(entries(), 1U);
}

TEST_F(Creating, HeedsWhateverProtectsTheFile)
{
    writeFile(file, database());
    writeFile(folder.path() / "Servo.ldb", {});
    EXPECT_EQ(create(file, otherDatabase(), true), "another user has it open (lock file 'Servo.ldb')");
    fs::remove(folder.path() / "Servo.ldb");

    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    EXPECT_EQ(create(file, otherDatabase(), true), "another program is changing it");
    ::close(descriptor);

    fs::permissions(file, fs::perms{0444});
    EXPECT_EQ(create(file, otherDatabase(), true), "it is write-protected");
    fs::permissions(file, fs::perms{0644});
    EXPECT_EQ(create(file, otherDatabase(), true), "");
    EXPECT_EQ(entries(), 1U);
}

// The lock file of a database says nothing about a text of the same name.
TEST_F(Creating, ReplacesATextBesideADatabaseThatIsOpen)
{
    const fs::path csv = folder.path() / "Servo.csv";
    writeFile(csv, text("old"));
    writeFile(folder.path() / "Servo.ldb", {});
    EXPECT_EQ(create(csv, text("new"), true), "");
}

TEST_F(Creating, NeverPutsAFileOverOneOfAnotherKind)
{
    const std::string noDatabase = "it is no database; only a database is replaced by one";
    const std::string noText = "it is no text; only a text is replaced by one";
    const Bytes picture{0x89, 'P', 'N', 'G', 0, 0};
    const struct {
        Bytes old;
        Bytes created;
        std::string refusal;
    } cases[]{
        {database(), text("a,b\n"), noText},
        {text("a,b\n"), database(), noDatabase},
        {picture, database(), noDatabase},
        {picture, text("a,b\n"), noText},
        {database(), otherDatabase(), ""},
        {text("a,b\n"), text("c,d\n"), ""},
        {{}, database(), ""},
        {{}, text("a,b\n"), ""},
    };
    for (const auto& [old, created, refusal] : cases) {
        writeFile(file, old);
        EXPECT_EQ(create(file, created, true), refusal);
    }
}

TEST_F(Creating, FollowsALinkToAFileThatIsThereOrNotYet)
{
    fs::create_directory(folder.path() / "data");
    const fs::path real = folder.path() / "data" / "Real.mdb";
    fs::create_symlink("data/Second.mdb", file);
    fs::create_symlink("Real.mdb", folder.path() / "data" / "Second.mdb");
    EXPECT_EQ(create(file, database(), false), "");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(real)));
    EXPECT_EQ(create(file, otherDatabase(), true), "");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(bytesOf(real), otherDatabase());
}

TEST_F(Creating, RefusesWhereNoFileCanBe)
{
    fs::create_symlink("Circle.mdb", folder.path() / "Circle.mdb");
    EXPECT_EQ(create(folder.path() / "no" / "Servo.mdb", database(), true),
        "its folder: there is no such file or folder");
    const auto reason = [&](const fs::path& target) {
        return errorOf([&] {
            createFile(target, database(), true, [](const Bytes&) {});
            return 0;
        }).description;
    };
    EXPECT_EQ(reason(folder.path()), "it is no file but a folder or a device");
    EXPECT_EQ(reason(folder.path() / "Circle.mdb"), "its symbolic links lead in a circle");
}

TEST_F(Creating, LeavesNothingWhenTheContentIsNotWhatWasMeant)
{
    const auto verify = [](const Bytes&) { raise(JetError::CannotUpdate, "wrong"); };
    EXPECT_EQ(errorOf([&] {
        createFile(file, database(), false, verify);
        return 0;
    }).description,
        "wrong");
    EXPECT_EQ(entries(), 0U);
}

// Whoever comes second finds the file of the first, which may not be replaced.
TEST_F(Creating, GivesAFreeNameToOneOfTwoProcesses)
{
    const Bytes inBetween = otherDatabase();
    const basic::Error error = errorOf([&] {
        createFile(file, database(), false, [&](const Bytes&) { writeFile(file, inBetween); });
        return 0;
    });
    EXPECT_EQ(error.description, "it exists already");
    EXPECT_EQ(bytesOf(file), inBetween);
    EXPECT_EQ(entries(), 1U);
}

TEST_F(Creating, SaysThatTheOwnerCannotBeKept)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a file to somebody else";
    writeFile(file, database());
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(file, fs::perms{0666});
    EXPECT_TRUE(inChild([&] {
        return becomeAnyUser()
            && create(file, otherDatabase(), true)
            == "a changed file could not have the same owner: the system does not permit it";
    }));
}

} // namespace

} // namespace servopanel::jet
