// What a check says of the computer that the panel is to run on.
#include "check/places_check.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <map>

namespace servopanel::check::tests {

namespace {

namespace fs = std::filesystem;

class PlacesTest : public ::testing::Test {
protected:
    PlacesTest() { fs::create_directory(folder_.path() / "Servo"); }
    Computer computer()
    {
        return {[this](const char*) { return temporary_; },
            [this](const fs::path& folder) { return mistakes_[folder.filename().string()]; },
            [this](const fs::path& folder) -> std::optional<std::uintmax_t> {
                const auto left = free_.find(folder.filename().string());
                return left == free_.end() ? std::nullopt : std::optional{left->second};
            }};
    }
    std::string report()
    {
        const CheckedProject project{
            folder_.path(), portable::PathMapping{folder_.path()}, {}, JsonLines{""}, {}, {}};
        Findings findings;
        checkPlaces(project, computer(), findings);
        return findings.text();
    }
    bool says(const std::string& line) { return report().find(line + '\n') != std::string::npos; }

    servopanel::tests::TemporaryFolder folder_;
    std::optional<std::string> temporary_;
    std::map<std::string, std::string> mistakes_; // by name of the folder
    std::map<std::string, std::uintmax_t> free_;
};

} // namespace

TEST_F(PlacesTest, GoodOnesAreNotMentioned)
{
    free_["Servo"] = 1'000'000'000;
    temporary_ = folder_.path().string();
    EXPECT_EQ(report(), "");
}

TEST_F(PlacesTest, DefinitionsThatCannotBeSavedAreFound)
{
    mistakes_["Servo"] = "is on a disk that is read-only";
    EXPECT_TRUE(says("Servo: is on a disk that is read-only: changed definitions cannot be saved"))
        << report();
    mistakes_.clear();
    free_["Servo"] = 20'000;
    EXPECT_TRUE(says("Servo: little room is left on its disk, 20 kB: changed definitions cannot be saved"))
        << report();
}

TEST_F(PlacesTest, ALockFileIsFound)
{
    std::ofstream{folder_.path() / "Servo" / "SERVO.LDB"} << "x";
    EXPECT_TRUE(
        says("Servo/SERVO.LDB: is the lock file of a program that has the definitions open, or was left by "
             "one: changed definitions cannot be saved"))
        << report();
}

TEST_F(PlacesTest, ATemporaryFolderThatCannotBeUsedIsFound)
{
    temporary_ = folder_.file("file").string();
    EXPECT_TRUE(says("TEMPVELM: the environment variable's '" + *temporary_
        + "' is no folder and cannot be made: the keys of the menu have no pictures"))
        << report();
    temporary_ = folder_.file("file").string() + "/below";
    EXPECT_TRUE(says("TEMPVELM: the environment variable's '" + *temporary_
        + "' is no folder and cannot be made: the keys of the menu have no pictures"))
        << report();
    temporary_ = "pictures";
    EXPECT_TRUE(
        says("TEMPVELM: the environment variable's 'pictures' is no full name of a folder: the keys of "
             "the menu have no pictures"))
        << report();
    temporary_ = folder_.path().string() + "/new/folder"; // is made
    EXPECT_EQ(report(), "");
    mistakes_[folder_.path().filename().string()] = "may not be written to by this user";
    EXPECT_TRUE(says("TEMPVELM: '" + folder_.path().string()
        + "' may not be written to by this user: the keys of the menu have no pictures"))
        << report();
    temporary_ = "D:\\Temp"; // becomes the system's own
    EXPECT_EQ(report(), "");
}

} // namespace servopanel::check::tests
