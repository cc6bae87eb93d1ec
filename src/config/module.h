#pragma once

#include "config/mservice.h"
#include "config/mservo_modul.h"
#include "display/mglobal.h"

namespace servopanel::config {

// The modules that all controls use, as the library hands them to each control.
struct Module {
    display::Umfeld& umfeld;
    display::MGlobal& global;
    MService& service;
    MServoModul& servoModul;
};

} // namespace servopanel::config
