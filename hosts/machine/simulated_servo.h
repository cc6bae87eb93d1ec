#pragma once

#include "machine/machine_settings.h"
#include "machine/random_numbers.h"
#include "machine/servo_variables.h"
#include "machine/simulated_line.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::machine {

// One servo with its drive: takes over parameters, has faults, and computes what its diagnosis pages show.
class SimulatedServo {
public:
    // line: nullptr when the machine has none; it lives as long as this, as does what the variables refer to.
    SimulatedServo(ServoRule rule, const SimulatedLine* line, ServoVariables variables, std::uint64_t seed,
        double takeoverSeconds);

    const std::string& machine() const { return rule_.machine; }
    // Whether a fault keeps the line at a stop.
    bool stopsLine() const;

    void advance(double seconds);

private:
    struct Value {
        ValueRule rule;
        double target = 0; // what it runs after
        double current = 0; // before noise, clamping and rounding
        double previous = 0;
        double sum = 0; // of an integral
        double cycle = 0; // of a swing, 0..1
    };
    struct Fault {
        FaultRule rule;
        double secondsToNext = 0;
    };

    void takeOver(double seconds);
    void readParameters();
    void moveFaults(double seconds);
    void moveValues(double seconds, bool atOnce);
    double target(Value& value, double seconds);
    double integral(Value& value, double seconds);
    double swing(Value& value, double seconds);
    double faultEffect(Place place) const;
    double shown(const Value& value);
    void show();

    const Value& valueAt(Place place) const;
    double setpoint(const Setpoint& setpoint) const;
    double number(const std::optional<NumberOrSetpoint>& number) const;
    double lineSpeed() const { return line_ ? line_->speed() : 0.0; }

    ServoRule rule_;
    const SimulatedLine* line_;
    ServoVariables variables_;
    RandomNumbers random_;
    double takeoverSeconds_;

    double time_ = 0; // seconds
    double announcedFor_ = 0; // seconds since the panel announced a change
    std::map<std::string, std::vector<double>> setpoints_; // by family, as taken over
    int switches_ = 0;
    std::vector<Value> values_;
    std::vector<Fault> faults_;
    std::optional<std::size_t> fault_; // the present one
    double faultEndsIn_ = 0; // seconds
    int faultCount_ = 0;
    int stopCount_ = 0;
};

} // namespace servopanel::machine
