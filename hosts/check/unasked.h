#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"

#include <set>
#include <string>
#include <vector>

namespace servopanel::check {

// Tells names that nobody asks for. Whoever goes through a project does not come to everything: a servo may not be in the
// list yet, and a page that fails is not asked for to its end. So a name counts as asked for when another one that is
// built in the same way was; what is left is misspelt.
class Unasked {
public:
    // Where nothing is known, nothing is misspelt.
    Unasked() = default;
    Unasked(const CheckedProject& project, const Asked& asked);

    bool text(const std::string& key) const;
    bool variable(const std::string& name) const;

private:
    bool isSure_ = false; // one servo at least was gone through without a failure
    std::vector<std::string> designations_; // of the machines, the longest first
    std::set<std::string> panelKeys_;
    std::set<std::string> textKeys_; // as they are built, likewise the next
    std::set<std::string> variableNames_;
};

// Variables of project.json that nobody asks for.
void checkVariables(const CheckedProject& project, const Unasked& unasked, Findings& findings);

} // namespace servopanel::check
