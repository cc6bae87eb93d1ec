#include "check/machine_type.h"

#include "basic/text.h"
#include "check/folders.h"
#include "check/ini_files.h"
#include "machine/designations.h"
#include "portable/profile_text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::check {

namespace {

constexpr const char* section = "Project";
constexpr const char* entryName = "ServoWithMachineType";
constexpr std::string_view digits = "0123456789";

// "SERVO_11_2_1280.GIF", but not "SERVO_1280.GIF", which is a key's.
bool isWithoutDesignation(std::string_view name)
{
    constexpr std::string_view beginning = "SERVO_";
    if (!name.starts_with(beginning)) return false;
    name.remove_prefix(beginning.size());
    const std::size_t end = name.find_first_not_of(digits);
    return end != 0 && end != std::string_view::npos && name[end] == '_';
}

bool isWithDesignation(std::string_view name, const std::vector<std::string>& designations)
{
    return std::any_of(designations.begin(), designations.end(), [&](const std::string& designation) {
        std::string beginning = "SERVO_";
        return name.starts_with(beginning.append(basic::upperCase(designation)).append("_"));
    });
}

} // namespace

void settleMachineType(CheckedProject& project, Findings& findings)
{
    const CheckedProject::Ini* const ini = iniOf(project, programFile);
    if (ini == nullptr || !ini->content) return;
    const std::vector<std::string> designations = machine::designations(project.file);
    std::string with; // the name of a picture with a designation
    std::string without;
    for (const std::string& name : namesIn(project, "Servo")) {
        const std::string capitals = basic::upperCase(name);
        if (!capitals.ends_with(".GIF")) continue;
        if (isWithDesignation(capitals, designations)) with = std::max(with, name);
        if (isWithoutDesignation(capitals)) without = std::max(without, name);
    }
    if (with.empty() == without.empty()) return;

    const IniFile::Entry* const entry = ini->content->find(section, entryName);
    const bool isOn = entry != nullptr && portable::profileNumber(valueOf(*entry)) > 0;
    if (isOn == without.empty()) return;
    std::string what{"[Project] ServoWithMachineType "};
    what += entry == nullptr ? std::string{"is missing"} : "is \"" + valueOf(*entry) + '"';
    what += ", and the names of the servos' pictures have ";
    what += isOn ? "no designation, such as " : "the designation, such as ";
    what += isOn ? without : with;
    findings.add(ini->name, entry != nullptr ? entry->line : ini->content->lineOfSection(section),
        what + ": the panel finds none of them");
    project.machineType = isOn ? "0" : "1";
}

} // namespace servopanel::check
