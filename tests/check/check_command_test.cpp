#include "check/project_copy.h"
#include "panel/program/check_command.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sys/wait.h>

namespace servopanel::check::tests {

namespace {

struct Outcome {
    std::string output;
    int status = -1;
};

// What servo-panel prints, without any display.
Outcome servoPanel(const std::string& arguments)
{
    const std::string command =
        std::string{"env -u DISPLAY -u WAYLAND_DISPLAY -u XDG_RUNTIME_DIR "} + SERVO_PANEL + ' ' + arguments;
    Outcome run;
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return run;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        run.output.append(buffer.data(), count);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

std::string quoted(const fs::path& path) { return "'" + path.string() + "'"; }

} // namespace

TEST(CheckCommand, EndsWithZeroWhenNothingIsMissing)
{
    const Outcome run = servoPanel(std::string{"--check "} + DEMO_PROJECT);
    EXPECT_EQ(run.output, "nothing is missing (2 machines, 15 servos, 4 languages, at 800, 1024 and 1280)\n");
    EXPECT_EQ(run.status, 0);
}

TEST(CheckCommand, ListsWhatItFindsAndEndsWithOne)
{
    const ProjectCopy copy;
    copy.cut("Standard/OK.wmf");
    copy.cut("Servo/Servo_M1_5_800.gif");
    const Outcome run = servoPanel(quoted(copy.path()) + " --check");
    EXPECT_EQ(run.output,
        "Servo/Servo_M1_5_800.gif: invalid picture, the file breaks off or is damaged: it is not shown, and "
        "the panel "
        "says so (the page of servo 5 of machine M1)\n"
        "Standard/OK.wmf: invalid picture, its records are damaged or ask for too much: it is not shown, and "
        "the panel "
        "says so (the page of servo 1 of machine M1, and 14 more places)\n"
        "2 findings in 2 files (2 machines, 15 servos, 4 languages, at 800, 1024 and 1280)\n");
    EXPECT_EQ(run.status, 1);
}

TEST(CheckCommand, SaysNothingBesidesItsFindings)
{
    const ProjectCopy copy;
    std::string database = copy.content("Servo/Servo.mdb");
    // A damaged page in the middle.
    database.replace(database.size() / 2, 20'000, std::string(20'000, '\x7F'));
    copy.write("Servo/Servo.mdb", database);
    const Outcome run = servoPanel("--check " + quoted(copy.path()) + " 2>&1 >/dev/null");
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.status, 1);
}

// Whoever goes by the status must not take a lost report for a good one.
TEST(CheckCommand, EndsWithTwoWhenNobodyCanReadWhatItFinds)
{
    const ProjectCopy copy;
    copy.write("project.json", "");
    const Outcome run = servoPanel("--check " + quoted(copy.path()) + " 2>&1 >/dev/full");
    EXPECT_EQ(run.output, "servo-panel: the report cannot be written\n");
    EXPECT_EQ(run.status, 2);
}

TEST(CheckCommand, EndsWithTwoWithoutAProject)
{
    const Outcome run = servoPanel("--check /nowhere 2>&1");
    EXPECT_NE(run.output.find("servo-panel: '/nowhere' does not exist: the panel cannot start\n"),
        std::string::npos)
        << run.output;
    EXPECT_EQ(run.status, 2);
}

} // namespace servopanel::check::tests
