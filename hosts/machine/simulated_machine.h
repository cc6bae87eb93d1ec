#pragma once

#include "machine/machine_settings.h"
#include "machine/problem.h"

#include <memory>
#include <vector>

namespace servopanel::machine {

class VariableStore;

// The machine controllers of a project, simulated: servos that follow the line and their setpoints, with faults that
// come and go. It knows no clock; the host calls step. The same settings, start values and writes give the same run.
//
// It acts on the process variables alone, as a controller does. Setpoints and switches that the panel writes take
// effect when "servoaender" of the servo has been 1 for the takeover time: the machine then limits the setpoints to
// its own limits, writes back those it had to change, and sets "servoaender" to 0.
class SimulatedMachine {
public:
    // The store lives as long as this. Variables that are missing or of the wrong kind are told once among the
    // problems, everything else goes on without them. Diagnosis values are right from the start.
    SimulatedMachine(MachineSettings settings, VariableStore& store);
    ~SimulatedMachine();
    SimulatedMachine(const SimulatedMachine&) = delete;
    SimulatedMachine& operator=(const SimulatedMachine&) = delete;

    // Advances by so many seconds in whole periods; a rest is kept for the next call. Writes to the store, as
    // Writer::Machine, what has changed after each period. Called by the host's timer, best with periodSeconds each
    // time: a panel that slept for hours has no use for the machine's hours. Not to be called from a listener.
    void step(double seconds);

    double periodSeconds() const;
    const std::vector<Problem>& problems() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace servopanel::machine
