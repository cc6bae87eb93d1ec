#pragma once

#include "basic/statement_trap.h"
#include "config/module.h"
#include "platform/control_platform.h"
#include "platform/facades/intrinsic.h"
#include "platform/hosted_control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::shell {

// The control that a screen places: header, menu and page. It loads the shared state, chooses the first view and then
// switches between menu and page when one of them asks. Only it moves, shows and hides them.
class Servo final : public platform::HostedControl {
public:
    Servo(config::Module module, const platform::ControlPlatform& platform);

    // Seen by hosts.
    void initialize() override;
    void show() override;
    void terminate() override;
    basic::Variant get(const platform::Member& member) override;
    void put(const platform::Member& member, const basic::Variant& value) override;
    bool deliver(platform::ChildId child, std::string_view event, platform::Args args) override;
    platform::FormData form() const override;

    void UserControl_Initialize();
    void UserControl_Show();
    void UserControl_Terminate();
    void ServoMain_JetztAnzeigen();
    void ServoMain_MenuAnzeigen();
    void ServoMenu_JetztAnzeigen();
    void ServoMenu_ServoBildAufrufen(std::int16_t bildNr); // list position of the chosen servo
    void Header_SpracheGeandert(std::int16_t sprache); // language number

private:
    platform::Kind kind(std::string_view name) { return platform::Kind{platform_.form.child({name})}; }
    display::GemeinsamerZustand& gemeinsam() { return module_.umfeld.zustand; }
    basic::ErrorSink& fehler() { return module_.umfeld.fehler; }

    // Parts of UserControl_Initialize; all report under its name.
    void gemeinsamenZustandLaden(basic::StatementTrap& trap);
    void aktiveServosSuchen(basic::StatementTrap& trap);
    void größenSetzen(basic::StatementTrap& trap);

    config::Module module_;
    platform::ControlPlatform platform_;
    std::string bibliothek_; // the library file's name, as published in "Ch-1.intern<.ocxname>"
};

} // namespace servopanel::shell
