#pragma once

#include "recording/memory/control_instance.h"
#include "recording/memory/memory_project.h"
#include "recording/memory/memory_services.h"
#include "recording/memory/memory_world.h"

#include <functional>
#include <memory>
#include <vector>

namespace servopanel::recording {

// A host without a screen: what the library needs is in memory, or in a project folder, and there is room for one
// Servo control at a time. One thread.
class MemoryHost {
public:
    explicit MemoryHost(std::function<void()> pump)
        : services_{world_, memory_, std::move(pump)}
    {
    }

    MemoryWorld& world() { return world_; }
    // What scenarios describe; also when another project is in use.
    MemoryProject& memoryProject() { return *memory_; }
    platform::LibraryPlatform platform() { return services_.platform(); }
    void useProject(std::shared_ptr<Project> project) { services_.setProject(std::move(project)); }
    Project& project() { return services_.project(); }

    // nullptr while there is none.
    ControlInstance* servo() { return servo_.get(); }
    // make is kept as long as the control.
    void createServo(ControlMaker make);
    void endServo();
    // Destroys the controls that have ended; called when none of their procedures runs.
    void destroyEnded() { ended_.clear(); }
    // Destroys all controls without their end, as when the process ends.
    void discardControls()
    {
        ended_.clear();
        servo_.reset();
    }

private:
    MemoryWorld world_;
    std::shared_ptr<MemoryProject> memory_ = std::make_shared<MemoryProject>(world_.failures);
    MemoryServices services_;
    std::unique_ptr<ControlInstance> servo_;
    std::vector<std::unique_ptr<ControlInstance>> ended_;
};

} // namespace servopanel::recording
