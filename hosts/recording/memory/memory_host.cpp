#include "recording/memory/memory_host.h"

#include <utility>

namespace servopanel::recording {

void MemoryHost::createServo(ControlMaker make)
{
    auto self = std::make_shared<MemoryControl>("Servo", "Servo", world_);
    self->put(platform::named("Visible"), true);
    servo_ = std::make_unique<ControlInstance>("Servo", std::move(self), nullptr, world_);
    servo_->create(std::move(make));
}

void MemoryHost::endServo()
{
    std::unique_ptr<ControlInstance> servo = std::move(servo_);
    servo->end();
    ended_.push_back(std::move(servo));
}

} // namespace servopanel::recording
