#pragma once

#include <string>
#include <string_view>

namespace servopanel::testing {

// Set-up commands for a machine with this many servos, numbered as their positions, all active, a picture for each, and
// a project with menu. Nothing fails.
inline std::string menuProject(int servos, std::string_view resolution = "1280")
{
    const std::string count = std::to_string(servos);
    const std::string width{resolution};
    std::string text = R"(
var Ch-1.intern<.ocxname> = ""
var Ch-1.intern<.aktuelle_maschine> = 1
var Ch-1.intern<.passwort> = 3
var Ch-1.intern<.servo_zeiger> = 0
var Ch-1.param_client<.arabisch> = false
var parameter<.maschinenanzahl> = 2
var parameter<.maschinenbez_1> = "M1"
var parameter<.mit_navi> = false
)";
    text += "var parameter<.aufloesung> = " + width + "\nvar parameter<.servo_anzahl_1> = " + count + "\n";
    std::string entries;
    for (int i = 1; i <= servos; ++i) {
        const std::string n = std::to_string(i);
        text += "var Ch1.M1_T_servo_" + n + "<.mM1_servopassiv_" + n + "> = false\n";
        text += "text Servo.M1.Servo" + n + ".0 = Drive " + n + "\n";
        text += "picture Servo\\Servo_" + n + "_" + width + ".gif 487 146\n";
        entries += "Servo" + n + "=" + n + "\n";
    }
    text += "picture Servo\\ServoMenu_" + width + ".bmp 1280 1024\npicture C:\\Temp\\start.bmp 1 1\n";
    text += "file Parameter\\Program.ini\n[Project]\nServoWithMenu=TRUE\n[1Machine]\n" + entries + "end\n";
    text +=
        "file "
        "Servo\\Servo.ini\n[Machine1]\nF1=TRUE\nF3=FALSE\nF4=TRUE\nF9=TRUE\n[Footer]\nF1=Standard\\Help.gif\n"
        "F3=Standard\\Pw\nF4=Standard\\Four.gif\nF9=Standard\\Nine.gif\nend\n";
    return text;
}

} // namespace servopanel::testing
