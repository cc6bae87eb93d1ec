#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::check {

// The list of servos.
inline constexpr const char* programFile = "Parameter/Program.ini";

// An INI file of the project, by its name below the folder; nullptr when there is none.
const CheckedProject::Ini* iniOf(const CheckedProject& project, const std::string& name);
// The value of an entry as the system's reader gives it, without blanks and quotes around it.
std::string valueOf(const IniFile::Entry& entry);

// Reads every INI file of the project.
void readIniFiles(CheckedProject& project, Findings& findings);

// How many machines the footer keys are for: sections Machine1, Machine2 and so on.
std::size_t machinesOfFooterFile(const CheckedProject& project);

// The pictures of a footer key, which are named by their beginning: "Standard\\Pw" for "Standard\\Pw3_1280.gif".
struct FooterPicture {
    std::string file; // in which the key's entry stands
    int line = 0;
    std::string entry; // "[Footer] F3 is "Standard\Pw""
    std::string beginning; // with slashes, without an extension
};
std::vector<FooterPicture> footerPictures(const CheckedProject& project);

// The footer keys, Servo\Servo.ini, which the library reads by rules of its own.
void checkFooterFile(const CheckedProject& project, std::size_t machines, Findings& findings);

// The servo to which the entry of a list of servos leads. Nothing for a number that is not from 1 to 50.
std::optional<int> servoNumber(std::string_view value);
// Whether this is such an entry: "Servo3".
bool isServoEntry(std::string_view entry);
// The machine whose servos a section of Program.ini lists: 3 for "3Machine"; 0 for any other section.
int machineOfList(std::string_view section);
// How many such entries Program.ini has for a machine.
std::int16_t servosListed(const CheckedProject& project, int machine);

// Whether an entry is TRUE or FALSE: "ServoWithFault", "Diag2Servo3".
bool isSwitch(std::string_view entry);

// Entries whose name or value nobody can use, when it is not known which ones the library looks up.
void checkEntriesAlone(const CheckedProject& project, Findings& findings);

// Entries that the library looked up and that are missing or no such value, and entries that nobody looked up.
void checkEntries(const CheckedProject& project, const Asked& asked, Findings& findings);

} // namespace servopanel::check
