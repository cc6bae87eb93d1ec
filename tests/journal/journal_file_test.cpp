#include "jet/in_child.h"
#include "journal/journal_fixture.h"
#include "support/full_disk.h"

#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace servopanel::testing {

namespace {

namespace fs = std::filesystem;
using journal::JournalFile;

class JournalFileTest : public JournalFixture { };

} // namespace

TEST_F(JournalFileTest, GoesOnWhereItWas)
{
    EXPECT_EQ(file.append({"one", "two"}), "");
    EXPECT_EQ(file.append({"three"}), "");
    EXPECT_EQ(content(), "one\ntwo\nthree\n");
    file = JournalFile{{.folder = folder.path()}};
    EXPECT_EQ(file.append({"four"}), "");
    EXPECT_EQ(content(), "one\ntwo\nthree\nfour\n");
}

TEST_F(JournalFileTest, ALineTornByAPowerCutStaysByItself)
{
    put("one\ntw");
    EXPECT_EQ(file.append({"three"}), "");
    EXPECT_EQ(file.append({"four"}), "");
    EXPECT_EQ(content(), "one\ntw\nthree\nfour\n");
}

TEST_F(JournalFileTest, ZerosThatAPowerCutLeftStayByThemselves)
{
    put(std::string{"one\n"} + std::string(5, '\0'));
    EXPECT_EQ(file.append({"two"}), "");
    EXPECT_EQ(content(), std::string{"one\n"} + std::string(5, '\0') + "\ntwo\n");
}

TEST_F(JournalFileTest, IsPutAsideBeforeItGrowsTooLarge)
{
    JournalFile small{{.folder = folder.path(), .largest = 10, .kept = 2}};
    for (const char* line : {"1234", "5678", "abcd", "efgh", "ijkl", "mnop", "qrst"})
        EXPECT_EQ(small.append({line}), "");
    EXPECT_EQ(content(), "qrst\n");
    EXPECT_EQ(content(1), "ijkl\nmnop\n");
    EXPECT_EQ(content(2), "abcd\nefgh\n");
    EXPECT_FALSE(fs::exists(journal::journalFile(folder.path(), 3)));
}

TEST_F(JournalFileTest, LinesOfOneWriteStayInOneFile)
{
    JournalFile small{{.folder = folder.path(), .largest = 10}};
    EXPECT_EQ(small.append({"1234"}), "");
    EXPECT_EQ(small.append({"a long line", "and another"}), "");
    EXPECT_EQ(content(1), "1234\n");
    EXPECT_EQ(content(), "a long line\nand another\n");
}

TEST_F(JournalFileTest, AFileThatCannotBePutAsideGrows)
{
    JournalFile small{{.folder = folder.path(), .largest = 10, .kept = 1}};
    EXPECT_EQ(small.append({"12345678"}), "");
    folder.file("journal.1/in the way");
    EXPECT_NE(small.append({"abcd"}), "");
    EXPECT_EQ(content(), "12345678\nabcd\n");
    fs::remove_all(folder.path() / "journal.1");
    EXPECT_EQ(small.append({"efgh"}), "");
    EXPECT_EQ(content(), "efgh\n");
}

TEST_F(JournalFileTest, AFullDiskTearsNoLineAndLosesNone)
{
    EXPECT_EQ(file.append({"one"}), "");
    for (const rlim_t bytesLeft : {0U, 4U, 6U, 9U}) {
        const std::string before = content();
        {
            const FullDisk full{bytesLeft};
            EXPECT_NE(file.append({"a longer line"}), "");
            EXPECT_EQ(content(), before);
        }
        EXPECT_EQ(file.append({}), "");
        EXPECT_EQ(content(), before + "a longer line\n");
        file = JournalFile{{.folder = folder.path()}};
        put("one\n");
    }
}

TEST_F(JournalFileTest, LinesThatWaitTooLongAreCounted)
{
    JournalFile forgetful{{.folder = folder.path() / "later", .mostWaiting = 2}};
    for (const char* line : {"one", "two", "three", "four", "five"})
        EXPECT_EQ(forgetful.append({line}),
            "'" + (folder.path() / "later").string() + "': there is no such file or folder");
    folder.folder("later");
    EXPECT_EQ(forgetful.append({}), "");
    EXPECT_EQ(tests::contentOf(folder.path() / "later" / "journal"), "{\"lost\":3}\nfour\nfive\n");
}

TEST_F(JournalFileTest, OnlyOneMayWrite)
{
    EXPECT_EQ(file.append({"one"}), "");
    const std::string other =
        "'" + (folder.path() / "journal").string() + "': another program is writing this journal";
    JournalFile second{{.folder = folder.path()}};
    EXPECT_EQ(second.append({"two"}), other);
    EXPECT_TRUE(jet::testing::inChild([&] {
        JournalFile third{{.folder = folder.path()}};
        return third.append({"three"}) == other;
    }));
    EXPECT_EQ(content(), "one\n");
    // What waited is not lost when the first has ended.
    file = JournalFile{{.folder = folder.path()}};
    EXPECT_EQ(second.append({"four"}), "");
    EXPECT_EQ(content(), "one\ntwo\nfour\n");
}

TEST_F(JournalFileTest, FollowsWhoeverMovesItsFileAway)
{
    EXPECT_EQ(file.append({"one"}), "");
    fs::rename(folder.path() / "journal", folder.path() / "saved");
    EXPECT_EQ(file.append({"two"}), "");
    EXPECT_EQ(content(), "two\n");
    EXPECT_EQ(tests::contentOf(folder.path() / "saved"), "one\n");
}

TEST_F(JournalFileTest, IsAFileAndNothingElse)
{
    folder.folder("journal");
    EXPECT_NE(file.append({"one"}).find("/journal': it is a folder"), std::string::npos);
    fs::remove(folder.path() / "journal");
    ASSERT_EQ(::mkfifo((folder.path() / "journal").c_str(), 0600), 0);
    EXPECT_NE(file.append({}).find("/journal': it is no ordinary file"), std::string::npos);
    fs::remove(folder.path() / "journal");
    EXPECT_EQ(file.append({}), "");
    EXPECT_EQ(content(), "one\n");
}

} // namespace servopanel::testing
