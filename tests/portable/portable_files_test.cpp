#include "portable/portable_files.h"

#include "portable/portable_profile.h"
#include "portable/portable_surroundings.h"
#include "portable/temporary_folder.h"
#include "portable/text_reading.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace servopanel;
using Lines = std::vector<std::string>;

// "number: text" of the error that the action raises.
std::string errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const basic::Error& error) {
        return std::to_string(error.number) + ": " + error.description;
    }
    return "no error";
}

class PortableFilesTest : public testing::Test {
protected:
    tests::TemporaryFolder project;
    fs::path root = project.path();
    portable::PathMapping mapping{root};
    portable::PortableFiles files{mapping};
};

TEST_F(PortableFilesTest, ReadsText)
{
    project.file("Servo/Servo.ini", "[Footer]\r\nName=L\xE4nge");
    const platform::TextFile file = files.openText(mapping.fullName("SERVO\\servo.ini"));
    EXPECT_EQ(file.text, "[Footer]\r\nName=Länge");
    EXPECT_FALSE(file.failure);
}

TEST_F(PortableFilesTest, SaysWhatCannotBeOpened)
{
    project.file("file");
    project.folder("folder");
    ASSERT_EQ(::mkfifo((root / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { files.openText("x.ini"); }), "53: 'x.ini': there is no such file");
    EXPECT_EQ(errorOf([&] { files.openText("x\\y.ini"); }), "76: 'x\\y.ini': its folder does not exist");
    EXPECT_EQ(
        errorOf([&] { files.openText("file\\y.ini"); }), "76: 'file\\y.ini': its folder does not exist");
    EXPECT_EQ(errorOf([&] { files.openText("folder"); }), "75: 'folder': it is a folder");
    EXPECT_EQ(errorOf([&] { files.openText("pipe"); }), "75: 'pipe': it is no ordinary file");
    EXPECT_EQ(errorOf([&] { files.openText("C:\\x.ini"); }),
        "76: 'C:\\x.ini': the name lies outside the folders that the panel may use");
}

TEST_F(PortableFilesTest, RefusesFilesAbove20Megabytes)
{
    fs::resize_file(project.file("just"), 20'000'000);
    fs::resize_file(project.file("more"), 20'000'001);
    EXPECT_EQ(files.openText("just").text.size(), 20'000'000U);
    EXPECT_EQ(errorOf([&] { files.openText("more"); }),
        "75: 'more': the file is larger than 20 MB and is not read");
}

TEST_F(PortableFilesTest, WritesLinesWithCrLfAndKeepsPermissions)
{
    const fs::path file = project.file("Servo/Servo.ini", "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    files.writeText("servo\\SERVO.INI", "[Größe]\r\n\r\na=1\r\n");
    EXPECT_EQ(tests::contentOf(file), "[Größe]\r\n\r\na=1\r\n");
    EXPECT_EQ(fs::status(file).permissions(),
        fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(std::distance(fs::directory_iterator{root / "Servo"}, fs::directory_iterator{}), 1);
}

TEST_F(PortableFilesTest, WritesNewFilesInTheCaseGivenButNeverADriveName)
{
    files.writeText("Neu.INI", "");
    EXPECT_TRUE(fs::exists(root / "Neu.INI"));
    EXPECT_EQ(errorOf([&] { files.writeText("x\\y", ""); }), "76: 'x\\y': its folder does not exist");
    EXPECT_EQ(errorOf([&] { files.writeText("C:\\x", "a"); }).substr(0, 3), "76:");
    EXPECT_EQ(std::distance(fs::directory_iterator{root}, fs::directory_iterator{}), 1);
}

TEST_F(PortableFilesTest, WritingToAFolderLeavesNothingBehind)
{
    project.folder("folder");
    EXPECT_EQ(errorOf([&] { files.writeText("folder", "a"); }), "75: 'folder': it is a folder");
    EXPECT_EQ(std::distance(fs::directory_iterator{root}, fs::directory_iterator{}), 1);
}

TEST_F(PortableFilesTest, TellsWhatExists)
{
    project.file("Servo/x.gif");
    EXPECT_TRUE(files.exists("SERVO\\X.GIF"));
    EXPECT_TRUE(files.exists("servo"));
    EXPECT_TRUE(files.exists("servo\\"));
    EXPECT_FALSE(files.exists("servo\\y.gif"));
    EXPECT_FALSE(files.exists(""));
    EXPECT_FALSE(files.exists("C:\\Windows"));
}

TEST_F(PortableFilesTest, CreatesOneFolderAtATime)
{
    EXPECT_EQ(errorOf([&] { files.createFolder("A\\B"); }), "76: 'A\\B': the folder above it does not exist");
    files.createFolder("A");
    files.createFolder("a\\B");
    EXPECT_TRUE(fs::is_directory(root / "A/B"));
    EXPECT_EQ(errorOf([&] { files.createFolder("a"); }), "75: 'a': it exists already");
    project.file("file");
    EXPECT_EQ(errorOf([&] { files.createFolder("file"); }), "75: 'file': it exists already");
}

TEST(ReadToEnd, KeepsWhatWasReadBeforeAFailure)
{
    std::vector<std::string_view> blocks{"one\ntw", "o \xC3"};
    std::size_t next = 0;
    auto readSome = [&](char* buffer, std::size_t) -> std::ptrdiff_t {
        if (next == blocks.size()) {
            errno = EIO;
            return -1;
        }
        std::memcpy(buffer, blocks[next].data(), blocks[next].size());
        return static_cast<std::ptrdiff_t>(blocks[next++].size());
    };
    const portable::FileBytes result = portable::readToEnd(readSome, 1000, "x.ini");
    EXPECT_EQ(result.bytes, "one\ntwo ");
    ASSERT_TRUE(result.failure);
    EXPECT_EQ(result.failure->number, 75);
    EXPECT_EQ(result.failure->description, "'x.ini': input/output error");
}

TEST(ReadToEnd, DropsOnlyCharactersThatAreCutInTwo)
{
    const std::pair<std::string_view, std::string_view> cases[] = {{"ä", "ä"}, {"a\xE4\xB8", "a"},
        {"a\xE4", "a"}, {"語", "語"}, {"a\xF0\x9F\x98", "a"}, {"😀", "😀"},
        {"\x80\x80\x80\x80", "\x80\x80\x80\x80"}, {"", ""}};
    for (const auto& [bytes, expected] : cases) {
        bool done = false;
        auto readSome = [&, text = bytes](char* buffer, std::size_t) -> std::ptrdiff_t {
            errno = EIO;
            if (done) return -1;
            done = true;
            std::memcpy(buffer, text.data(), text.size());
            return text.empty() ? -1 : static_cast<std::ptrdiff_t>(text.size());
        };
        EXPECT_EQ(portable::readToEnd(readSome, 1000, "x").bytes, expected);
    }
}

TEST(ReadToEnd, GoesOnAfterAnInterruptionAndStopsAtTheLimit)
{
    int calls = 0;
    auto readSome = [&](char* buffer, std::size_t) -> std::ptrdiff_t {
        if (++calls == 1) {
            errno = EINTR;
            return -1;
        }
        *buffer = 'x';
        return 1;
    };
    const portable::FileBytes result = portable::readToEnd(readSome, 3, "x.ini");
    EXPECT_EQ(result.bytes, "xxx");
    EXPECT_TRUE(result.failure);
}

TEST_F(PortableFilesTest, ProfileLookUpsSeeEveryChangeOfTheFile)
{
    portable::PortableProfile profile{mapping};
    const std::string name = mapping.fullName("PARAMETER\\program.ini");
    EXPECT_EQ(profile.text(name, "Project", "a"), std::nullopt);
    project.file("Parameter/Program.ini", "[Project]\r\nA = \"1\"\r\n");
    EXPECT_EQ(profile.text(name, "PROJECT", "a"), "1");
    project.file("Parameter/Program.ini", "[Project]\nA=2");
    EXPECT_EQ(profile.text(name, "project", "a"), "2");
    EXPECT_EQ(profile.text("C:\\x.ini", "project", "a"), std::nullopt);
}

TEST(EnvironmentValue, TellsMissingEmptyAndTooLongApart)
{
    using State = platform::EnvironmentValue::State;
    const char* const name = "SERVOPANEL_TEST_VALUE";
    {
        tests::EnvironmentVariable none{name, nullptr};
        EXPECT_EQ(portable::environmentValue(name).state, State::Missing);
    }
    {
        tests::EnvironmentVariable empty{name, ""};
        EXPECT_EQ(portable::environmentValue(name).state, State::Present);
        EXPECT_EQ(portable::environmentValue(name).text, "");
    }
    {
        tests::EnvironmentVariable ansi{name, "D:\\\xDC"};
        EXPECT_EQ(portable::environmentValue(name).text, "D:\\Ü");
    }
    std::string longest;
    for (int i = 0; i < 4095; ++i)
        longest += "ä";
    {
        tests::EnvironmentVariable fits{name, longest.c_str()};
        EXPECT_EQ(portable::environmentValue(name).text, longest);
    }
    {
        tests::EnvironmentVariable tooLong{name, (longest + "x").c_str()};
        EXPECT_EQ(portable::environmentValue(name).state, State::TooLong);
        EXPECT_EQ(portable::environmentValue(name).text, "");
    }
}

} // namespace
