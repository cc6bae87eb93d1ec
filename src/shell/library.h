#pragma once

#include "basic/error.h"
#include "platform/control_platform.h"
#include "platform/hosted_control.h"
#include "platform/library_platform.h"
#include "shell/meldungs_zusatz.h"

#include <memory>
#include <string_view>

namespace servopanel::shell {

// The library as a host holds it: made once, before the controls, and outliving them. What the controls share (machine,
// servos, resolution, picture caches, error display) lives in here, so that a control created again finds it as it was.
class Library {
public:
    explicit Library(const platform::LibraryPlatform& platform);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    // A control by its class name: "Servo", which a screen places, or "ServoMain" and "ServoMenu", which the form of
    // Servo holds. Nothing when there is no such class. The host reads its form, makes the children and calls
    // initialize; the platform objects must outlive the control, and the library too.
    std::unique_ptr<platform::HostedControl> createControl(
        std::string_view className, const platform::ControlPlatform& platform);

    // The values that this project's reports carry; a host may change them at any time.
    MeldungsZusatz& meldungsZusatz();

    // Where errors are reported; hosts report failures of their own event handling here too.
    basic::ErrorSink& errors();

private:
    struct Inhalt;
    std::unique_ptr<Inhalt> inhalt_;
};

} // namespace servopanel::shell
