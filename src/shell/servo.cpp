#include "shell/servo.h"

#include "basic/entry_guard.h"
#include "platform/event_table.h"
#include "shell/form.h"

namespace servopanel::shell {

using platform::Args;

Servo::Servo(config::Module module, const platform::ControlPlatform& platform)
    : module_{module}
    , platform_{platform}
{
}

void Servo::initialize()
{
    basic::guardEntry(fehler(), "UserControl_Initialize", [this] { UserControl_Initialize(); });
}

void Servo::show()
{
    basic::guardEntry(fehler(), "UserControl_Show", [this] { UserControl_Show(); });
}

void Servo::terminate()
{
    basic::guardEntry(fehler(), "UserControl_Terminate", [this] { UserControl_Terminate(); });
}

platform::FormData Servo::form() const { return servoForm(); }

// The shell has no properties of its own.
basic::Variant Servo::get(const platform::Member&) { basic::raise(basic::ErrorNumber::NoSuchMember); }

void Servo::put(const platform::Member&, const basic::Variant&)
{
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

namespace {

using Row = platform::EventRow<Servo>;

constexpr Row ereignisse[]{
    {"ServoMain", "JetztAnzeigen", "ServoMain_JetztAnzeigen",
        [](Servo& servo, std::int16_t, Args) { servo.ServoMain_JetztAnzeigen(); }},
    {"ServoMain", "MenuAnzeigen", "ServoMain_MenuAnzeigen",
        [](Servo& servo, std::int16_t, Args) { servo.ServoMain_MenuAnzeigen(); }},
    {"ServoMenu", "JetztAnzeigen", "ServoMenu_JetztAnzeigen",
        [](Servo& servo, std::int16_t, Args) { servo.ServoMenu_JetztAnzeigen(); }},
    {"ServoMenu", "ServoBildAufrufen", "ServoMenu_ServoBildAufrufen",
        [](Servo& servo, std::int16_t, Args args) {
            servo.ServoMenu_ServoBildAufrufen(platform::number(args, 0));
        }},
    {"Header", "SpracheGeandert", "Header_SpracheGeandert",
        [](Servo& servo, std::int16_t, Args args) {
            servo.Header_SpracheGeandert(platform::number(args, 0));
        }},
};

} // namespace

bool Servo::deliver(platform::ChildId child, std::string_view event, Args args)
{
    return platform::deliverEvent(std::span<const Row>{ereignisse}, *this, fehler(), child, event, args);
}

} // namespace servopanel::shell
