#include "machine/simulated_machine.h"

#include "machine/servo_variables.h"
#include "machine/simulated_line.h"
#include "machine/simulated_servo.h"
#include "machine/variable_store.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace servopanel::machine {

namespace {

constexpr double shortestPeriod = 0.001; // seconds

} // namespace

class SimulatedMachine::Impl {
public:
    Impl(MachineSettings settings, VariableStore& store)
        : period{std::max(settings.periodSeconds, shortestPeriod)}
    {
        for (LineRule& line : settings.lines)
            lines_.emplace_back(std::move(line));
        std::uint64_t seed = settings.seed;
        for (ServoRule& servo : settings.servos) {
            ServoVariables variables{store, servo.machine, servo.servo, problems};
            const SimulatedLine* const line = lineOf(servo.machine);
            servos_.emplace_back(
                std::move(servo), line, std::move(variables), seed++, settings.takeoverSeconds);
        }
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    void advance(double seconds)
    {
        if (!(seconds > 0)) return;
        rest_ += seconds;
        // A period that is short by a rounding error counts as whole.
        while (rest_ > period * (1.0 - 1e-9)) {
            rest_ = std::max(0.0, rest_ - period);
            for (SimulatedLine& line : lines_)
                line.advance(period, isStopped(line));
            for (SimulatedServo& servo : servos_)
                servo.advance(period);
        }
    }

    const double period;
    std::vector<Problem> problems;

private:
    SimulatedLine* lineOf(const std::string& machine)
    {
        const auto line = std::find_if(lines_.begin(), lines_.end(),
            [&](const SimulatedLine& candidate) { return candidate.machine() == machine; });
        if (line != lines_.end()) return &*line;
        problems.push_back(
            {"Simulated machine", machine, "there is no line of this machine; its servos stand still"});
        return nullptr;
    }

    bool isStopped(const SimulatedLine& line) const
    {
        return std::any_of(servos_.begin(), servos_.end(), [&](const SimulatedServo& servo) {
            return servo.stopsLine() && servo.machine() == line.machine();
        });
    }

    std::deque<SimulatedLine> lines_; // the servos refer to them
    std::deque<SimulatedServo> servos_;
    double rest_ = 0; // seconds
};

SimulatedMachine::SimulatedMachine(MachineSettings settings, VariableStore& store)
    : impl_{std::make_unique<Impl>(std::move(settings), store)}
{
}

SimulatedMachine::~SimulatedMachine() = default;

void SimulatedMachine::step(double seconds) { impl_->advance(seconds); }

double SimulatedMachine::periodSeconds() const { return impl_->period; }

const std::vector<Problem>& SimulatedMachine::problems() const { return impl_->problems; }

} // namespace servopanel::machine
