#pragma once

#include "servo_menu/servo_menu.h"
#include "support/fake_control.h"
#include "support/fakes.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace servopanel::testing {

// A menu among fakes: every child is there, keeps what it is given and reads as 1; on request none of them answers.
class LoneMenu final : public platform::Form, public platform::Surface, public platform::Owner {
public:
    bool failing = false;
    std::function<void()> raised = [] {};

    Surround surround;
    display::MGlobal global{surround.umfeld};
    config::MService service{surround.umfeld};
    config::MServoModul servoModul{surround.umfeld, global};
    servo_menu::ServoMenu menu{{surround.umfeld, global, service, servoModul}, {*this, *this, *this}};

    std::shared_ptr<FakeControl> control(const std::string& name)
    {
        std::shared_ptr<FakeControl>& control = controls_[name];
        if (!control) {
            control = std::make_shared<FakeControl>(name);
            control->result = std::int32_t{0};
            for (const char* property : {"POSITION", "LEFT", "TOP", "WIDTH", "HEIGHT", "VISIBLE"})
                control->properties[property] = std::int16_t{1};
        }
        return control;
    }

    platform::ControlRef child(platform::ChildId id) override
    {
        // The scroll bar goes on answering: without a position nothing would reach the others.
        if (failing && id.name != "ScrollBar") basic::raise(basic::ErrorNumber::ObjectNotSet);
        return control(std::string{id.name});
    }
    void load(platform::ChildId) override { }
    float textWidth(platform::ChildId, std::string_view) override { return 0; }
    basic::Variant get(const platform::Member&) override { return {}; }
    void put(const platform::Member&, const basic::Variant&) override { }
    void line(platform::ChildId, float, float, float, float, std::int32_t, std::int16_t) override { }
    void clear(platform::ChildId) override { }
    void refresh(platform::ChildId) override { }
    void bitBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
    }
    void stretchBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
    }
    void raise(std::string_view, platform::Args) override
    {
        if (failing) basic::raise(basic::ErrorNumber::ObjectNotSet);
        raised();
    }

private:
    std::map<std::string, std::shared_ptr<FakeControl>> controls_;
};

} // namespace servopanel::testing
