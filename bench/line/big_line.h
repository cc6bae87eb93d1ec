#pragma once

#include <filesystem>
#include <string>

namespace servopanel::bench {

// What a line of this size has: machines M1, M2 and so on, with servos 1, 2 and so on.
struct LineSize {
    int machines = 50;
    int servos = 50; // of each machine
    int periodMilliseconds = 1000; // both diagnosis pages of every servo change once in so long
};

constexpr int variablesOfServo = 15;

// The name of a variable of a servo: "servo_para".
std::string variableName(int machine, int servo, const std::string& family);
// With a page number behind the servo's: "servo_diag".
std::string variableName(int machine, int servo, const std::string& family, int page);

// Writes the project of such a line into a new folder; a panel opens it on the page of servo 1 of machine M1. Pictures,
// texts and definitions are those of the pattern, a project that has this servo.
void writeProject(
    const std::filesystem::path& folder, const std::filesystem::path& pattern, const LineSize& size);

} // namespace servopanel::bench
