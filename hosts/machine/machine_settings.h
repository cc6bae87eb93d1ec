#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace servopanel::machine {

// How the simulated machine moves: the member "machine" of project.json, described in docs/simulated-machine.md. Members
// that a kind of value does not use keep their defaults.

// A place among the diagnosis values of a servo: page 1 or 2, element 0..39.
struct Place {
    int page = 1;
    int element = 0;
    friend bool operator==(Place, Place) = default;
};

// One setpoint of a servo.
struct Setpoint {
    std::string family; // "servo_para" (index 0..19), "servo_para2" (0..3) or "servo_zeich" (0..1)
    int index = 0;
};

using NumberOrSetpoint = std::variant<double, Setpoint>;

enum class ValueKind { Constant, Setpoint, Line, Value, Lag, Rate, Integral, Swing, Wander, Faults, Starts };

// One diagnosis value.
struct ValueRule {
    Place place;
    ValueKind kind = ValueKind::Constant;

    double tauSeconds = 0; // first-order lag behind the target, 0: none
    double noise = 0; // uniform, both ways
    std::optional<double> min; // of what is shown
    std::optional<double> max;
    std::optional<int> decimals;
    std::optional<int> switchBit; // 0..3; target 0 while the switch is off

    double value = 0; // Constant
    double gain = 1; // all kinds but Constant, Swing and Wander
    double offset = 0; // Setpoint, Line, Value, Rate, Faults, Starts
    std::optional<Setpoint> setpoint; // Setpoint: the source; Line: the draw in percent
    std::optional<Place> source; // Value, Lag, Rate, Integral: an earlier value of the same servo
    double start = 0; // Integral
    std::optional<NumberOrSetpoint> low; // Swing and Integral
    std::optional<NumberOrSetpoint> high;
    double centre = 0; // Wander
    double amplitude = 0; // Wander
    double periodSeconds = 1; // Swing, Wander
    double phase = 0; // Wander, 0..1
    bool stopsOnly = false; // Faults: count only those that stop the line
};

struct FaultEffect {
    Place place;
    double add = 0;
};

struct FaultRule {
    std::string text;
    double meanIntervalSeconds = 0; // mean time without this fault
    double durationSeconds = 0;
    bool stops = false; // brings the line to a stop meanwhile
    std::vector<FaultEffect> effects;
};

struct ServoRule {
    std::string machine; // designation, as in the names of its variables
    int servo = 0;
    std::string name; // for people
    std::string place; // of this rule in project.json: "/machine/servos/2"
    std::vector<ValueRule> values;
    std::vector<FaultRule> faults;
};

struct LinePhase {
    double speed = 0;
    double seconds = 0;
};

struct LineRule {
    std::string machine;
    std::string unit; // of the speed, for people
    double rampPerSecond = 0;
    std::vector<LinePhase> phases;
};

struct MachineSettings {
    double periodSeconds = 0.1;
    std::uint64_t seed = 1;
    double takeoverSeconds = 0.6;
    std::vector<LineRule> lines;
    std::vector<ServoRule> servos;
};

} // namespace servopanel::machine
