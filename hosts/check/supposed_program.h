#pragma once

#include "check/project.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::check {

// Program.ini as the rest of a project lets it be guessed, for a machine of which the project's own lists no servos: it
// was not copied, cannot be read or is half written. The servos are those that the variables of project.json and the
// definitions name, so that pictures, texts and variables of theirs are looked at all the same.
class SupposedProgram {
public:
    // designation: the machine's, "M1".
    SupposedProgram(const CheckedProject& project, const std::string& designation);

    // Nothing names a servo of this machine when it is empty.
    const std::vector<int>& servos() const { return servos_; }
    // What stands in an entry of any section; nothing for one that would not be there.
    std::optional<std::string> entry(std::string_view name) const;

private:
    std::vector<int> servos_; // ascending
    std::set<int> withSecondDiagnosis_; // those of them that have texts for it
    bool withMachineType_ = false;
    bool withMenu_ = false;
    bool withFault_ = false;
};

} // namespace servopanel::check
