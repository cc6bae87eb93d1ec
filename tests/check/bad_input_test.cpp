#include "check/bad_projects.h"

#include <gtest/gtest.h>

#include <map>
#include <sys/wait.h>
#include <unistd.h>

namespace servopanel::check::tests {

namespace {

class BadInput : public ::testing::TestWithParam<BadProject> { };

bool hasLine(const std::string& text, const std::string& beginning)
{
    return ("\n" + text).find("\n" + beginning) != std::string::npos;
}

// Content and time of every file.
std::map<std::string, std::pair<std::string, fs::file_time_type>> snapshot(const fs::path& folder)
{
    std::map<std::string, std::pair<std::string, fs::file_time_type>> files;
    for (const auto& entry : fs::recursive_directory_iterator{folder})
        files[entry.path().string()] = {
            entry.is_regular_file() ? servopanel::tests::contentOf(entry.path()) : "",
            entry.last_write_time()};
    return files;
}

} // namespace

TEST_P(BadInput, IsAFindingEach)
{
    const ProjectCopy copy;
    // Two servos are enough to live through.
    if (!GetParam().findings.empty()) {
        copy.replace(
            "project.json", "\"parameter<.maschinenanzahl>\": 2", "\"parameter<.maschinenanzahl>\": 1");
        copy.replace(
            "project.json", "\"parameter<.servo_anzahl_1>\": 12", "\"parameter<.servo_anzahl_1>\": 2");
    }
    GetParam().spoil(copy);
    const Report report = checkProject(copy.path(), plainReader);
    for (const std::string& finding : GetParam().findings)
        EXPECT_TRUE(hasLine(report.text, finding)) << finding << "\nis not in\n" << report.text;
    EXPECT_EQ(report.result, GetParam().findings.empty() ? Report::Result::Good : Report::Result::Findings);
}

INSTANTIATE_TEST_SUITE_P(Projects, BadInput, ::testing::ValuesIn(badProjects()),
    [](const auto& project) { return project.param.name; });

TEST(NoProject, IsToldInOneLine)
{
    const servopanel::tests::TemporaryFolder folder;
    const std::string name = folder.path().string();
    const auto text = [](const fs::path& project) {
        const Report report = checkProject(project, plainReader);
        EXPECT_EQ(report.result, Report::Result::NoProject);
        return report.text;
    };
    EXPECT_EQ(text(folder.path()),
        "'" + name + "' is no project: it has no project.json: the panel cannot start\n");
    EXPECT_EQ(text(folder.path() / "none"), "'" + name + "/none' does not exist: the panel cannot start\n");
    EXPECT_EQ(text(folder.file("file")), "'" + name + "/file' is no folder: the panel cannot start\n");
    folder.file("Project.json");
    EXPECT_EQ(text(folder.path()),
        "'" + name
            + "' is no project: it has no project.json, but 'Project.json', which must be named in small "
              "letters: the panel cannot start\n");
}

TEST(CheckedFolder, StaysAsItIs)
{
    const ProjectCopy copy;
    const auto before = snapshot(copy.path());
    checkProject(copy.path(), plainReader);
    EXPECT_EQ(snapshot(copy.path()), before);
}

// As somebody who may read some of the files only, and write none. Root may read everything, so that the test becomes
// somebody else in a process of its own.
TEST(CheckedFolder, MayBeClosedToUs)
{
    const ProjectCopy copy;
    constexpr uid_t nobody = 65534;
    for (const auto& entry : fs::recursive_directory_iterator{copy.path()})
        fs::permissions(entry.path(),
            fs::perms::owner_read | fs::perms::others_read
                | (entry.is_directory() ? fs::perms::owner_exec | fs::perms::others_exec : fs::perms::none));
    fs::permissions(copy.path().parent_path(), fs::perms::all);
    for (const char* const file :
        {"Texts/de.txt", "Servo/Servo_M1_1.ini", "Servo/Servo.mdb", "Servo/Servo.ini"})
        fs::permissions(copy.place(file), fs::perms::none);
    fs::permissions(copy.place("Standard"), fs::perms::none);

    const fs::path result = fs::temp_directory_path() / ("servopanel-check-" + std::to_string(::getpid()));
    const pid_t child = ::fork();
    if (child == 0) {
        if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0)) ::_exit(3);
        const Report report = checkProject(copy.path(), plainReader);
        std::ofstream{result} << report.text;
        ::_exit(report.result == Report::Result::Findings ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    const std::string text = servopanel::tests::contentOf(result);
    fs::remove(result);
    for (const char* const folder : {"", "Standard", "Servo", "Texts", "Parameter"})
        fs::permissions(copy.place(folder), fs::perms::owner_all);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    for (const char* const finding : {"Texts/de.txt: permission denied",
             "Servo/Servo_M1_1.ini: permission denied", "Servo/Servo.mdb: permission denied",
             "Servo/Servo.ini: permission denied", "Standard: cannot be read: permission denied"})
        EXPECT_TRUE(hasLine(text, finding)) << finding << "\nis not in\n" << text;
}

} // namespace servopanel::check::tests
