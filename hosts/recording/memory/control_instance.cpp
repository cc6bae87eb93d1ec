#include "recording/memory/control_instance.h"

#include "recording/memory/sibling_controls.h"

#include <stdexcept>
#include <utility>

namespace servopanel::recording {

ControlInstance::ControlInstance(std::string className, std::shared_ptr<MemoryControl> self,
    ControlInstance* container, MemoryWorld& world)
    : className_{std::move(className)}
    , self_{std::move(self)}
    , container_{container}
    , world_{world}
    , form_{className_, world}
    , surface_{form_, *self_}
{
}

void ControlInstance::create(ControlMaker make)
{
    make_ = std::move(make);
    hosted_ = make_(className_, platform::ControlPlatform{form_, surface_, *this});
    if (!hosted_) throw std::logic_error{"the library has no control " + className_};
    form_.build(hosted_->form(), *self_);
    for (const platform::FormChild& row : hosted_->form()) {
        const auto child = std::dynamic_pointer_cast<MemoryHostedChild>(form_.find(row.id));
        if (!child) continue;
        inner_.push_back(std::make_unique<ControlInstance>(std::string{row.className}, child, this, world_));
        inner_.back()->create(make_);
        child->setHosted(&inner_.back()->hosted());
    }
    hosted_->initialize();
}

void ControlInstance::end()
{
    for (const auto& control : inner_)
        control->end();
    hosted_->terminate();
    form_.end();
    surface_.end();
}

ControlInstance* ControlInstance::inner(std::string_view className)
{
    for (const auto& control : inner_)
        if (control->className() == className) return control.get();
    return nullptr;
}

void ControlInstance::raise(std::string_view event, platform::Args args)
{
    if (container_ != nullptr) container_->deliver(platform::ChildId{className_}, event, args);
}

} // namespace servopanel::recording
