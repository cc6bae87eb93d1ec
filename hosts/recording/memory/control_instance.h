#pragma once

#include "platform/control_platform.h"
#include "platform/hosted_control.h"
#include "recording/memory/memory_form.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::recording {

// Makes a control of the library by its class name.
using ControlMaker = std::function<std::unique_ptr<platform::HostedControl>(
    std::string_view className, const platform::ControlPlatform& platform)>;

// One control of the library as a host keeps it: its form, its surface, the controls of the library that it holds, and
// the road of the events that it raises to its container.
class ControlInstance : private platform::Owner {
public:
    // self: the control as its container sees it. container: nothing for the outermost control.
    ControlInstance(std::string className, std::shared_ptr<MemoryControl> self, ControlInstance* container,
        MemoryWorld& world);
    ControlInstance(const ControlInstance&) = delete;
    ControlInstance& operator=(const ControlInstance&) = delete;
    ~ControlInstance() override = default;

    // Makes the control, its children and the controls among them, and initializes all from the inside out. make is kept:
    // a library that lives as long as what makes its controls outlives this one.
    void create(ControlMaker make);
    void show() { hosted_->show(); }
    // Ends the inner controls and then this one. Nothing is destroyed: one of its procedures may still run.
    void end();

    // False when there is no handler.
    bool deliver(platform::ChildId child, std::string_view event, platform::Args args)
    {
        return hosted_->deliver(child, event, args);
    }

    const std::string& className() const { return className_; }
    platform::HostedControl& hosted() { return *hosted_; }
    MemoryControl& self() { return *self_; }
    const MemoryForm& form() const { return form_; }
    // An inner control by its class name; nullptr when there is none.
    ControlInstance* inner(std::string_view className);

private:
    void raise(std::string_view event, platform::Args args) override;

    std::string className_;
    std::shared_ptr<MemoryControl> self_;
    ControlInstance* container_;
    MemoryWorld& world_;
    MemoryForm form_;
    MemorySurface surface_;
    ControlMaker make_;
    std::vector<std::unique_ptr<ControlInstance>> inner_;
    std::unique_ptr<platform::HostedControl> hosted_;
};

} // namespace servopanel::recording
