#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/project.h"
#include "check/watch.h"
#include "recording/memory/control_instance.h"
#include "recording/memory/sibling_controls.h"

namespace servopanel::check {

// What an operator sees on the menu or on a page: notes its texts and pictures, and finds inputs that cannot work.
class LookAround {
public:
    LookAround(Watch& watch, Asked& asked, Findings& findings, const CheckedProject& project)
        : watch_{watch}
        , asked_{asked}
        , findings_{findings}
        , project_{project}
    {
    }

    void look(recording::ControlInstance& part);

private:
    void text(const std::string& part, platform::ChildId id, const std::string& text);
    void footer(const recording::MemoryFooter& footer);
    void picture(recording::MemoryControl& control);
    void input(platform::ChildId id, recording::MemoryControl& input);
    // The variable of a setpoint, or of its limits, by the families of setpoints 1 to 20 and of the others.
    std::string variableOf(std::string_view first, std::string_view second, platform::ChildId id) const;

    Watch& watch_;
    Asked& asked_;
    Findings& findings_;
    const CheckedProject& project_;
};

} // namespace servopanel::check
