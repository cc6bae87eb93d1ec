// The frame of a host, with a form and a surface that know their children and can do nothing with them.
#include "basic/error.h"
#include "platform/control_platform.h"
#include "platform/form_data.h"
#include "platform/hosted_control.h"
#include "recording/memory/memory_host.h"
#include "shell/library.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel {

namespace {

int madeChildren = 0;
std::set<std::string> connected;

class YourForm : public platform::Form {
public:
    void add(const platform::FormChild&) { ++madeChildren; }
    void connect(platform::ChildId id, platform::HostedControl&) { connected.emplace(id.name); }
    void end() { }

    platform::ControlRef child(platform::ChildId) override { none(); }
    void load(platform::ChildId) override { none(); }
    float textWidth(platform::ChildId, std::string_view) override { none(); }

private:
    [[noreturn]] static void none() { basic::raise(basic::ErrorNumber::ObjectNotSet, "no such child"); }
};

class YourSurface : public platform::Surface {
public:
    void end() { }

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
};

#include "control_instance.h"

} // namespace

TEST(IntegratorsGuide, ItsFrameOfAHostMakesAllControlsAndPassesEvents)
{
    recording::MemoryHost services{[] {}};
    shell::Library library{services.platform()};
    ControlInstance servo{"Servo", nullptr};
    servo.create([&](auto name, auto& platform) { return library.createControl(name, platform); });

    EXPECT_EQ(connected, (std::set<std::string>{"ServoMain", "ServoMenu"}));
    EXPECT_GT(madeChildren, 50); // of all three
    servo.hosted().show();
    // What the host lacks is reported, and the event arrives all the same.
    EXPECT_NE(services.world().lastReport, "");
    EXPECT_TRUE(
        servo.deliver({"Header"}, "SpracheGeandert", std::initializer_list<basic::Variant>{std::int16_t{2}}));
    EXPECT_FALSE(servo.deliver({"Header"}, "Nothing", {}));
    servo.end();
}

} // namespace servopanel
