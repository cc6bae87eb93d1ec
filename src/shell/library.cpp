#include "shell/library.h"

#include "config/module.h"
#include "servo_menu/servo_menu.h"
#include "servo_page/servo_main.h"
#include "shell/fehler_melden.h"
#include "shell/servo.h"

namespace servopanel::shell {

// Shared state, error reporter and modules, in the order in which they depend on each other.
struct Library::Inhalt {
    explicit Inhalt(const platform::LibraryPlatform& platform)
        : fehler{platform, zustand}
        , umfeld{platform, zustand, fehler}
        , global{umfeld}
        , service{umfeld}
        , servoModul{umfeld, global}
    {
    }

    config::Module module() { return {umfeld, global, service, servoModul}; }

    display::GemeinsamerZustand zustand;
    FehlerMelder fehler;
    display::Umfeld umfeld;
    display::MGlobal global;
    config::MService service;
    config::MServoModul servoModul;
};

Library::Library(const platform::LibraryPlatform& platform)
    : inhalt_{std::make_unique<Inhalt>(platform)}
{
}

Library::~Library() = default;

std::unique_ptr<platform::HostedControl> Library::createControl(
    std::string_view className, const platform::ControlPlatform& platform)
{
    if (className == "Servo") return std::make_unique<Servo>(inhalt_->module(), platform);
    if (className == platform::classes::ServoMenu)
        return std::make_unique<servo_menu::ServoMenu>(inhalt_->module(), platform);
    if (className == platform::classes::ServoMain)
        return std::make_unique<servo_page::ServoMain>(inhalt_->module(), platform);
    return nullptr;
}

MeldungsZusatz& Library::meldungsZusatz() { return inhalt_->fehler.zusatz; }

basic::ErrorSink& Library::errors() { return inhalt_->fehler; }

} // namespace servopanel::shell
