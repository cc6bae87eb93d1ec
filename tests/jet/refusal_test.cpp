#include "jet/changed_file.h"
#include "jet/in_child.h"
#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace servopanel::jet {

namespace {

using namespace testing;
namespace fs = std::filesystem;

const Bytes& sample()
{
    static const Bytes bytes = newDefinitionDatabase(sampleRows(60));
    return bytes;
}

// What reading this file raises.
basic::Error errorOfReading(const Bytes& bytes)
{
    SampleProject project{bytes};
    return errorOf([&] { project.rows(); });
}

TEST(Refusals, OfAFileThatIsMissing)
{
    SampleProject project{sample()};
    fs::remove(project.file());
    const basic::Error error = errorOf([&] { project.open(); });
    EXPECT_EQ(error.number, 3024);
    EXPECT_EQ(error.description, "'Servo.mdb': there is no such file");
}

TEST(Refusals, OfAFolder)
{
    SampleProject project{sample()};
    fs::remove(project.file());
    fs::create_directory(project.file());
    EXPECT_EQ(
        errorOf([&] { project.open(); }).description, "'Servo.mdb': it is no file but a folder or a device");
}

TEST(Refusals, OfAPipeWithoutWaitingForIt)
{
    SampleProject project{sample()};
    fs::remove(project.file());
    ASSERT_EQ(::mkfifo(project.file().c_str(), 0600), 0);
    EXPECT_EQ(
        errorOf([&] { project.open(); }).description, "'Servo.mdb': it is no file but a folder or a device");
}

TEST(Refusals, OfAFileThatMayNotBeRead)
{
    SampleProject project{sample()};
    fs::permissions(project.folder(), fs::perms::all);
    fs::permissions(project.file(), fs::perms::none);
    EXPECT_TRUE(inChild([&] {
        return becomeAnyUser()
            && errorOf([&] { project.open(); }).description == "'Servo.mdb': permission denied";
    }));
}

TEST(Refusals, OfWhatIsNoJetFile)
{
    EXPECT_EQ(errorOfReading({}).description, "'Servo.mdb': it is no Jet database: too short");
    EXPECT_EQ(errorOfReading(Bytes(10000, 'x')).description, "'Servo.mdb': it is no Jet database");
    Bytes other = sample();
    other[6] = 'X';
    EXPECT_EQ(errorOfReading(other).description, "'Servo.mdb': it is no Jet database");
    EXPECT_EQ(errorOfReading(other).number, 3343);
}

TEST(Refusals, OfANewerFormat)
{
    Bytes newer = sample();
    newer[0x14] = 2;
    EXPECT_EQ(errorOfReading(newer).description, "'Servo.mdb': its format is newer than Jet 4 (version 2)");
}

TEST(Refusals, OfATruncatedFile)
{
    for (const NewDatabaseOptions& form : allForms()) {
        const Bytes whole = newDefinitionDatabase(sampleRows(60), form);
        const std::size_t page = formatOf(form.version).pageSize;
        for (std::size_t size = 0; size < whole.size(); size += page / 2) {
            const basic::Error error =
                errorOfReading({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
            EXPECT_NE(error.number, 0) << nameOf(form) << ' ' << size;
        }
        const basic::Error error =
            errorOfReading({whole.begin(), whole.end() - static_cast<std::ptrdiff_t>(page)});
        EXPECT_NE(error.description.find(" of 60 is missing"), std::string::npos) << error.description;
    }
}

TEST(Refusals, OfFewerRowsThanTheTableShouldHave)
{
    ChangedFile file{sample()};
    file.setRowCount(61);
    EXPECT_EQ(errorOfReading(file.bytes()).description,
        "'Servo.mdb': the database is damaged: row 61 of 61 is missing");
    // A program that was ended by force leaves a count that is too low; all rows are there.
    file.setRowCount(0);
    EXPECT_EQ(exactly(SampleProject{file.bytes()}.rows()), exactly(sampleRows(60)));
}

TEST(Refusals, OfADatabaseWithoutTheTable)
{
    NewTable table{"OTHER_DEFS", {{"machine_type", ColumnType::Text, 10}}, {}};
    const basic::Error error = errorOfReading(newDatabase(table, {}));
    EXPECT_EQ(error.number, 3078);
    EXPECT_EQ(error.description, "'Servo.mdb': it has no table 'PRESET_DEFS'");
}

TEST(Refusals, OfATableWithoutOneOfItsColumns)
{
    const NewTable whole{"PRESET_DEFS",
        {{"machine_type", ColumnType::Text, 10}, {"var_name", ColumnType::Text, 10},
            {"abs_max", ColumnType::Double}, {"abs_min", ColumnType::Double},
            {"offset_or_bitno", ColumnType::Int16}, {"Max", ColumnType::Double}, {"Min", ColumnType::Double},
            {"Pass", ColumnType::Int16}},
        {}};
    EXPECT_EQ(errorOfReading(newDatabase(whole, {})).description, "");
    for (std::size_t i = 0; i < whole.columns.size(); ++i) {
        NewTable table = whole;
        table.columns.erase(table.columns.begin() + static_cast<std::ptrdiff_t>(i));
        const basic::Error error = errorOfReading(newDatabase(table, {}));
        EXPECT_EQ(error.number, 3265);
        EXPECT_EQ(error.description, "'Servo.mdb': its table has no column '" + whole.columns[i].name + "'");
    }
}

TEST(Refusals, OfAColumnWhoseValuesAreElsewhere)
{
    NewTable table{"PRESET_DEFS",
        {{"machine_type", ColumnType::Text, 10}, {"var_name", ColumnType::Memo},
            {"abs_max", ColumnType::Double}, {"abs_min", ColumnType::Double},
            {"offset_or_bitno", ColumnType::Int16}, {"Max", ColumnType::Double}, {"Min", ColumnType::Double},
            {"Pass", ColumnType::Int16}},
        {}};
    EXPECT_EQ(errorOfReading(newDatabase(table, {})).description,
        "'Servo.mdb': column 'var_name' has a type that cannot be read");
}

TEST(Refusals, OfAFileOutsideTheProject)
{
    const tests::TemporaryFolder folder;
    const portable::PathMapping mapping{folder.path()};
    JetEngine engine{mapping};
    const basic::Error error = errorOf([&] { engine.open("..\\Servo.mdb"); });
    EXPECT_EQ(error.number, 76);
    EXPECT_EQ(error.description.find("'..\\Servo.mdb': "), 0U) << error.description;
}

TEST(Refusals, OfARowThatIsGone)
{
    SampleProject project{sample()};
    const basic::Variant bookmark = project.bookmark(4);
    ChangedFile file{sample()};
    file.deleteRow({firstRowsAt, 4});
    writeFile(project.file(), file.bytes());

    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    const basic::Error error = errorOf([&] { records->moveTo(bookmark); });
    EXPECT_EQ(error.number, 3167);
    EXPECT_EQ(error.description, "'Servo.mdb': the row that was read from page 7, position 4 is gone");
    // And now there is no row that the next statements could change.
    EXPECT_EQ(errorOf([&] { records->edit(); }).number, 3021);
    EXPECT_EQ(errorOf([&] { records->setField("Max", 1.0); }).number, 3020);
    EXPECT_EQ(errorOf([&] { records->update(); }).number, 3020);
    database->close();
    EXPECT_EQ(bytesOf(project.file()), file.bytes());
}

TEST(Refusals, OfAnotherRowInTheSamePlace)
{
    SampleProject project{sample()};
    const basic::Variant bookmark = project.bookmark(4);
    std::vector<DefinitionRow> rows = sampleRows(60);
    rows[4].variable = std::string{"Speed"};
    writeFile(project.file(), newDefinitionDatabase(rows));
    const basic::Error error = errorOf([&] { project.change(bookmark, "Max", 1.0); });
    EXPECT_EQ(error.number, 3197);
    EXPECT_EQ(error.description,
        "'Servo.mdb': the row that was read from page 7, position 4 is another one now: row 5 (M2, Speed)");

    rows = sampleRows(60);
    rows[4].machineType = std::string{"M9"};
    writeFile(project.file(), newDefinitionDatabase(rows));
    EXPECT_EQ(errorOf([&] { project.change(bookmark, "Max", 1.0); }).number, 3197);
    EXPECT_EQ(exactly(project.rows()), exactly(rows));
}

TEST(Refusals, OfAnotherElementOfTheSameVariable)
{
    SampleProject project{sample()};
    const basic::Variant bookmark = project.bookmark(4);
    std::vector<DefinitionRow> rows = sampleRows(60);
    rows[4].element = std::int16_t{11};
    writeFile(project.file(), newDefinitionDatabase(rows));
    const basic::Error error = errorOf([&] { project.change(bookmark, "Max", 1.0); });
    EXPECT_EQ(error.number, 3197);
    EXPECT_NE(error.description.find("its offset_or_bitno has changed since it was read"), std::string::npos);
    EXPECT_EQ(exactly(project.rows()), exactly(rows));
    // Its own earlier update is no reason.
    project.change(bookmark, "offset_or_bitno", std::int16_t{11});
}

TEST(Refusals, OfWhatIsNoBookmark)
{
    SampleProject project{sample()};
    EXPECT_EQ(errorOf([&] { project.change(basic::Variant{}, "Max", 1.0); }).number, 13);
    EXPECT_EQ(errorOf([&] { project.change(basic::Variant{"x"}, "Max", 1.0); }).number, 13);
}

TEST(Refusals, OfAnIndexedColumnUnlessItsValueStays)
{
    for (const JetVersion version : {JetVersion::Jet3, JetVersion::Jet4}) {
        ChangedFile file{newDefinitionDatabase(sampleRows(60), {.version = version})};
        file.addIndex({1, 4, 5});
        SampleProject project{file.bytes()};
        EXPECT_EQ(exactly(project.rows()), exactly(sampleRows(60)));
        const basic::Error error = errorOf([&] { project.change(project.bookmark(1), "Max", 1.0); });
        EXPECT_EQ(error.number, 3164);
        EXPECT_EQ(error.description.find("'Servo.mdb': row 2 (M2, "), 0U) << error.description;
        EXPECT_NE(error.description.find("column 'Max' cannot be changed: an index holds its values"),
            std::string::npos);
        EXPECT_EQ(bytesOf(project.file()), file.bytes());
        project.change(project.bookmark(1), "Max", 0.1);
        project.change(project.bookmark(1), "Min", 0.25);
        EXPECT_EQ(project.rows()[1].min, basic::Variant{0.25});
    }
}

TEST(Refusals, OfARowThatIsOlderThanTheColumn)
{
    for (const JetVersion version : {JetVersion::Jet3, JetVersion::Jet4}) {
        NewTable table{"PRESET_DEFS",
            {{"machine_type", ColumnType::Text, 10}, {"var_name", ColumnType::Text, 10},
                {"abs_max", ColumnType::Double}, {"abs_min", ColumnType::Double},
                {"offset_or_bitno", ColumnType::Int16}, {"Max", ColumnType::Double},
                {"Min", ColumnType::Double}, {"Pass", ColumnType::Int16}},
            {{"M1", "Old", 1.0, 2.0, std::int16_t{3}, 4.0},
                {"M1", "New", 1.0, 2.0, std::int16_t{3}, 4.0, 5.0, std::int16_t{6}}}};
        SampleProject project{newDatabase(table, {.version = version})};
        const std::vector<DefinitionRow> rows = project.rows();
        EXPECT_TRUE(rows[0].min.holds<basic::Null>());
        EXPECT_TRUE(rows[0].pass.holds<basic::Null>());
        EXPECT_EQ(rows[0].max, basic::Variant{4.0});
        EXPECT_EQ(rows[1].pass, basic::Variant{std::int16_t{6}});
        EXPECT_EQ(errorOf([&] { project.change(project.bookmark(0), "Pass", std::int16_t{1}); }).description,
            "'Servo.mdb': row 1 (M1, Old): column 'Pass' cannot be changed: the row is older than the column "
            "and "
            "has no room for it");
        project.change(project.bookmark(0), "Max", 40.0);
        EXPECT_EQ(project.rows()[0].max, basic::Variant{40.0});
    }
}

// Changes one value; the text of the refusal, with the file as it was, or "changed".
std::string attempt(SampleProject& project)
{
    const Bytes before = bytesOf(project.file());
    const basic::Error error = errorOf([&] { project.change(project.bookmark(7), "Max", 4711.0); });
    if (error.number == 0) return "changed";
    if (bytesOf(project.file()) != before) return "refused and changed";
    for (const fs::directory_entry& entry : fs::directory_iterator{project.folder()})
        if (entry.path().extension() == ".new") return "left something behind";
    return error.description;
}

TEST(Refusals, OfADatabaseThatAnotherUserHasOpen)
{
    SampleProject project{sample()};
    writeFile(project.folder() / "SERVO.LDB", {});
    EXPECT_EQ(attempt(project), "'Servo.mdb': another user has it open (lock file 'SERVO.LDB')");
    EXPECT_EQ(exactly(project.rows()), exactly(sampleRows(60)));
    fs::remove(project.folder() / "SERVO.LDB");
    EXPECT_EQ(attempt(project), "changed");
}

TEST(Refusals, OfADatabaseThatAnotherPanelIsChanging)
{
    SampleProject project{sample()};
    const int descriptor = ::open(project.file().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    EXPECT_EQ(attempt(project), "'Servo.mdb': another program is changing it");
    ::close(descriptor);
    EXPECT_EQ(attempt(project), "changed");
}

TEST(Refusals, OfAFileThatHasChangedSinceItWasOpened)
{
    SampleProject project{sample()};
    const auto database = project.open();
    const auto records = database->openRecordSet(SampleProject::query);
    records->edit();
    records->setField("Max", 9.0);
    records->update();
    const Bytes other = newDefinitionDatabase(sampleRows(59));
    writeFile(project.file(), other);
    EXPECT_EQ(errorOf([&] { database->close(); }).description,
        "'Servo.mdb': another program has changed it since it was read");
    EXPECT_EQ(bytesOf(project.file()), other);
}

TEST(Refusals, OfAReadOnlyFolder)
{
    SampleProject project{sample()};
    fs::permissions(project.file(), fs::perms::all);
    fs::permissions(project.folder(), fs::perms{0555});
    EXPECT_TRUE(inChild([&] {
        return becomeAnyUser()
            && attempt(project) == "'Servo.mdb': nothing can be written to its folder: permission denied";
    }));
    fs::permissions(project.folder(), fs::perms::owner_all);
}

TEST(Refusals, OfAWriteProtectedFile)
{
    SampleProject project{sample()};
    fs::permissions(project.folder(), fs::perms::all);
    fs::permissions(project.file(), fs::perms{0444});
    EXPECT_TRUE(
        inChild([&] { return becomeAnyUser() && attempt(project) == "'Servo.mdb': it is write-protected"; }));
    // Root could write it, but was not meant to.
    EXPECT_EQ(attempt(project), "'Servo.mdb': it is write-protected");
    fs::permissions(project.file(), fs::perms{0644});
    EXPECT_TRUE(inChild([&] {
        return ::geteuid() != 0
            || (becomeAnyUser()
                && attempt(project) == "'Servo.mdb': it is write-protected: permission denied");
    }));
}

TEST(Refusals, OfAnOwnerThatWouldChange)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a file to somebody else";
    SampleProject project{sample()};
    fs::permissions(project.folder(), fs::perms::all);
    fs::permissions(project.file(), fs::perms{0666});
    EXPECT_TRUE(inChild([&] {
        return becomeAnyUser()
            && attempt(project)
            == "'Servo.mdb': a changed file could not have the same owner: the system does not permit it";
    }));
}

// A disk of the calling process alone, mounted on a folder. False where the system lets nobody do that.
bool mountSmallDisk(const fs::path& folder, const std::string& size)
{
    const bool isOwn = ::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
    return isOwn && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("none", folder.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0;
}

TEST(Refusals, OfADiskThatIsFull)
{
    SampleProject project{sample()};
    if (!inChild([&] { return mountSmallDisk(project.folder(), "256k"); }))
        GTEST_SKIP() << "this system lets nobody mount a disk";
    EXPECT_TRUE(inChild([&] {
        // The database fits on the disk, a second one beside it does not.
        if (!mountSmallDisk(project.folder(), std::to_string(sample().size() * 3 / 2))) return false;
        writeFile(project.file(), sample());
        const bool isRefused =
            attempt(project) == "'Servo.mdb': it cannot be written: no space left on the disk";
        const auto entries = fs::directory_iterator{project.folder()};
        return isRefused && std::distance(begin(entries), end(entries)) == 1;
    }));
}

TEST(Refusals, OfAFileThatWouldBeTooLarge)
{
    SampleProject project{sample()};
    EXPECT_TRUE(inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{5000, 5000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
        const std::string text = attempt(project);
        return text.find("'Servo.mdb': it cannot be written: ") == 0;
    }));
    EXPECT_EQ(exactly(project.rows()), exactly(sampleRows(60)));
}

} // namespace

} // namespace servopanel::jet
