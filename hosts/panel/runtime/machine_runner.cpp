#include "panel/runtime/machine_runner.h"

#include <algorithm>

namespace servopanel::panel {

namespace {
constexpr double longestStep = 1; // seconds; a panel that was held up does not make the machine race
}

MachineRunner::MachineRunner(machine::MachineSettings settings, machine::VariableStore& store)
    : machine_{std::move(settings), store}
{
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        const double seconds = static_cast<double>(since_.restart()) / 1000;
        machine_.step(std::min(seconds, longestStep));
    });
    since_.start();
    timer_.start(std::max(1, static_cast<int>(machine_.periodSeconds() * 1000)));
}

} // namespace servopanel::panel
