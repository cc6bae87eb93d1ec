#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace servopanel::monkey {

// What is operated on: the standard project with definitions for nearly all inputs of its three servos, so that most of
// them are to be seen, for access levels from 1 to 5.
const std::string& monkeyProject();

// Its servos, in the order of the menu.
inline constexpr int servos[]{3, 5, 7};

// Name of a servo's variable: family "_servo_para_" of servo 3 is "Ch1.M1_T_servo_3<.mM1_servo_para_3>".
std::string servoVariable(int servo, std::string_view family);

// A file of the project that can get lost.
struct ProjectFile {
    std::string name;
    std::string bringBack; // scenario commands that put it where it was
    bool isText = false;
};
const std::vector<ProjectFile>& projectFiles();

} // namespace servopanel::monkey
