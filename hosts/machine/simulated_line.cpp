#include "machine/simulated_line.h"

#include <algorithm>
#include <utility>

namespace servopanel::machine {

SimulatedLine::SimulatedLine(LineRule rule)
    : rule_{std::move(rule)}
{
    for (const LinePhase& phase : rule_.phases)
        reference_ = std::max(reference_, phase.speed);
    if (!rule_.phases.empty()) speed_ = rule_.phases.front().speed;
}

void SimulatedLine::advance(double seconds, bool stopped)
{
    if (rule_.phases.empty()) return;
    inPhase_ += seconds;
    if (inPhase_ > rule_.phases[phase_].seconds) {
        inPhase_ = 0;
        phase_ = (phase_ + 1) % rule_.phases.size();
    }
    const double target = stopped ? 0.0 : rule_.phases[phase_].speed;
    const double reach = rule_.rampPerSecond * seconds;
    const bool standing = speed_ == 0.0;
    speed_ += std::clamp(target - speed_, -reach, reach);
    if (standing && speed_ != 0.0) ++starts_;
}

} // namespace servopanel::machine
