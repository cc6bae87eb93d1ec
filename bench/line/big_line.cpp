#include "big_line.h"

#include <algorithm>
#include <fstream>
#include <ostream>
#include <string_view>

namespace servopanel::bench {

namespace {

constexpr int setpoints = 20;
constexpr int secondSetpoints = 4;
constexpr int diagnosisValues = 40;

// A panel has places for so many; the others are for panels of their own.
int machinesOfPanel(const LineSize& size) { return std::min(size.machines, 20); }

std::string list(int count, double value)
{
    std::string text = std::to_string(value);
    for (int i = 1; i < count; ++i)
        text.append(", ").append(std::to_string(value));
    return text.insert(0, "[").append("]");
}

void writeVariable(std::ostream& out, const std::string& name, std::string_view value)
{
    out << ",\n\"" << name << "\": " << value;
}

void writeServo(std::ostream& out, int machine, int servo)
{
    const auto write = [&](const std::string& family, std::string_view value) {
        writeVariable(out, variableName(machine, servo, family), value);
    };
    write("servopassiv", "false");
    write("servo_para", list(setpoints, servo));
    write("servo_para_un", list(setpoints, 0));
    write("servo_para_ob", list(setpoints, 1000));
    write("servo_para2", list(secondSetpoints, servo));
    write("servo_para2_un", list(secondSetpoints, 0));
    write("servo_para2_ob", list(secondSetpoints, 1000));
    write("servo_schalt", "5");
    write("servo_zeich", "[123456789.0, 0.0]");
    write("servoaender", "0");
    for (const int page : {1, 2}) {
        writeVariable(out, variableName(machine, servo, "servo_diag", page), list(diagnosisValues, servo));
        writeVariable(out, variableName(machine, servo, "fetext", page), "\"\"");
    }
}

void writeMachines(std::ostream& out, const LineSize& size)
{
    out << R"("machine": {"kind": "simulated", "seed": 1, "period_ms": )" << size.periodMilliseconds
        << ", \"lines\": [";
    for (int machine = 1; machine <= size.machines; ++machine)
        out << (machine == 1 ? "\n" : ",\n") << R"({"machine": "M)" << machine
            << R"(", "ramp_per_s": 10, "phases": [{"speed": 100, "seconds": 100}]})";
    out << "],\n\"servos\": [";
    for (int machine = 1; machine <= size.machines; ++machine)
        for (int servo = 1; servo <= size.servos; ++servo) {
            out << (machine == 1 && servo == 1 ? "\n" : ",\n") << R"({"machine": "M)" << machine
                << R"(", "servo": )" << servo << R"(, "name": "drive", "values": [)"
                << R"({"page": 1, "element": 2, "kind": "setpoint", "family": "servo_para", "index": 0, "noise": 1},)"
                << R"({"page": 2, "element": 2, "kind": "line", "noise": 1}]})";
        }
    out << "]},\n";
}

void writeVariables(std::ostream& out, const LineSize& size)
{
    out << R"("variables": {"parameter<.aufloesung>": 1280, "parameter<.mit_navi>": false,
"Ch-1.param_client<.arabisch>": false, "Ch-1.intern<.ocxname>": "", "Ch-1.intern<.aktuelle_maschine>": 1,
"Ch-1.intern<.navi_password_countdown>": 0, "Ch-1.intern<.passwort>": 5, "Ch-1.intern<.servo_zeiger>": 1,
"parameter<.maschinenanzahl>": )"
        << machinesOfPanel(size);
    for (int i = 1; i <= 24; ++i)
        writeVariable(out,
            std::string{"Ch-1.intern_v<.l2_"}.append(i < 10 ? "0" : "") + std::to_string(i) + '>', "0.0");
    for (int machine = 1; machine <= size.machines; ++machine) {
        const std::string number = std::to_string(machine) + '>';
        writeVariable(out, "parameter<.maschinenbez_" + number, "\"M" + std::to_string(machine) + '"');
        writeVariable(out, "parameter<.servo_anzahl_" + number, std::to_string(size.servos));
        for (int servo = 1; servo <= size.servos; ++servo)
            writeServo(out, machine, servo);
    }
    out << "}}\n";
}

void writeProgramFile(std::ostream& out, const LineSize& size)
{
    out << "[Project]\r\nServoWithMenu=TRUE\r\nServoWithFault=TRUE\r\nServoWithMachineType=1\r\n";
    for (int machine = 1; machine <= machinesOfPanel(size); ++machine) {
        out << '[' << machine << "Machine]\r\n";
        for (int servo = 1; servo <= size.servos; ++servo)
            out << "Servo" << servo << '=' << servo << "\r\nDiag2Servo" << servo << "=TRUE\r\nServoPic"
                << servo << "=1\r\n";
    }
}

} // namespace

std::string variableName(int machine, int servo, const std::string& family)
{
    const std::string designation = "M" + std::to_string(machine);
    const std::string number = std::to_string(servo);
    std::string name = "Ch1.";
    name.append(designation).append("_T_servo_").append(number).append("<.m").append(designation);
    return name.append("_").append(family).append("_").append(number).append(">");
}

std::string variableName(int machine, int servo, const std::string& family, int page)
{
    std::string name = variableName(machine, servo, family);
    return name.insert(name.size() - 1, std::to_string(page));
}

void writeProject(
    const std::filesystem::path& folder, const std::filesystem::path& pattern, const LineSize& size)
{
    std::filesystem::copy(pattern, folder, std::filesystem::copy_options::recursive);
    std::ofstream program{folder / "Parameter" / "Program.ini", std::ios::binary};
    writeProgramFile(program, size);
    std::ofstream project{folder / "project.json", std::ios::binary};
    project << R"({"title": "Line", "resolution": 1280, "level": 5, "input": -1, "language": 1,
"languages": [{"number": 1, "code": "en", "name": "English"}],
"screens": {},
)";
    writeMachines(project, size);
    writeVariables(project, size);
}

} // namespace servopanel::bench
