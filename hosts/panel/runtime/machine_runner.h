#pragma once

#include "machine/simulated_machine.h"

#include <QElapsedTimer>
#include <QTimer>

namespace servopanel::panel {

// Lets a simulated machine run along with the clock.
class MachineRunner {
public:
    MachineRunner(machine::MachineSettings settings, machine::VariableStore& store);

    const std::vector<machine::Problem>& problems() const { return machine_.problems(); }

private:
    machine::SimulatedMachine machine_;
    QTimer timer_;
    QElapsedTimer since_;
};

} // namespace servopanel::panel
