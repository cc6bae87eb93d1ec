#pragma once

#include "machine/machine_settings.h"

#include <cstddef>

namespace servopanel::machine {

// The line that all servos of a machine follow: it ramps from phase to phase, and to a stop while a fault wants that.
class SimulatedLine {
public:
    explicit SimulatedLine(LineRule rule);

    void advance(double seconds, bool stopped);

    const std::string& machine() const { return rule_.machine; }
    double speed() const { return speed_; }
    // The highest speed of its phases, the one that periods of movements refer to.
    double referenceSpeed() const { return reference_; }
    // How often it has left standstill.
    int starts() const { return starts_; }

private:
    LineRule rule_;
    double reference_ = 0;
    double speed_ = 0;
    std::size_t phase_ = 0;
    double inPhase_ = 0; // seconds
    int starts_ = 0;
};

} // namespace servopanel::machine
