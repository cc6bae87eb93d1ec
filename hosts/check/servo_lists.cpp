#include "check/servo_lists.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "check/ini_files.h"
#include "portable/profile_text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace servopanel::check {

namespace {

constexpr std::string_view machineCount = "parameter<.maschinenanzahl>";
constexpr std::string_view servoCount = "parameter<.servo_anzahl_";
constexpr std::string_view designation = "parameter<.maschinenbez_";

std::string numbered(std::string_view variable, int number)
{
    return std::string{variable}.append(std::to_string(number)).append(">");
}

std::optional<std::string> textOf(const CheckedProject& project, const std::string& name)
{
    try {
        for (const auto& variable : project.file.variables)
            if (variable.name == name) return basic::toText(variable.value);
    } catch (const basic::Error&) {
        // A list, which is told where designations and numbers are looked at.
    }
    return std::nullopt;
}

// Whether an entry, "Servo12", is behind the number of servos of a machine.
bool isBehind(const CheckedProject& project, const IniFile::Entry& entry, int machine)
{
    const std::optional<std::string> count = textOf(project, numbered(servoCount, machine));
    const int servos = count ? portable::profileNumber(*count) : 0;
    const std::string name = iniName(entry.name);
    return servos > 0
        && portable::profileNumber(name.substr(name.find_last_not_of("0123456789") + 1)) > servos;
}

std::string tooMany(const IniFile::Entry& entry, const char* lists, const std::string& variable)
{
    std::string what{"["};
    what.append(entry.section).append("] lists ").append(lists).append(" beyond the number in \"");
    return what.append(variable).append("\" of project.json: the panel does not show ");
}

bool isShown(const Asked& asked, const jet::ServoName& servo)
{
    return std::any_of(asked.servos.begin(), asked.servos.end(),
        [&](const jet::ServoName& each) { return !(each < servo) && !(servo < each); });
}

} // namespace

void checkServoLists(const CheckedProject& project, Asked& asked, Findings& findings)
{
    const CheckedProject::Ini* const ini = iniOf(project, programFile);
    if (ini == nullptr || !ini->content) return;
    for (const IniFile::Entry& entry : ini->content->entries()) {
        const std::optional<int> number = servoNumber(valueOf(entry));
        const int machine = machineOfList(entry.section);
        if (!isServoEntry(entry.name) || !number || machine == 0) continue;
        const std::optional<std::string> name = textOf(project, numbered(designation, machine));
        const jet::ServoName servo{name.value_or(""), std::to_string(*number)};
        if (machine > static_cast<int>(asked.machines))
            findings.add(ini->name, ini->content->lineOfSection(entry.section),
                tooMany(entry, "servos of a machine", std::string{machineCount}) + "them");
        else if (name && isBehind(project, entry, machine) && !isShown(asked, servo))
            findings.add(
                ini->name, entry.line, tooMany(entry, "a servo", numbered(servoCount, machine)) + "it");
        else
            continue;
        if (name) asked.unshownServos.insert(servo);
    }
}

} // namespace servopanel::check
