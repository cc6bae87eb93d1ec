#include "machine/simulated_servo.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace servopanel::machine {

namespace {

constexpr double fullTurn = 6.283185307179586;

constexpr const char* families[]{"servo_para", "servo_para2", "servo_zeich"};

// Half away from zero, and never "-0".
double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    const double scaled = std::round(value * scale) / scale;
    if (!std::isfinite(scaled)) return value;
    return scaled == 0.0 ? 0.0 : scaled;
}

} // namespace

SimulatedServo::SimulatedServo(ServoRule rule, const SimulatedLine* line, ServoVariables variables,
    std::uint64_t seed, double takeoverSeconds)
    : rule_{std::move(rule)}
    , line_{line}
    , variables_{std::move(variables)}
    , random_{seed}
    , takeoverSeconds_{takeoverSeconds}
{
    for (const ValueRule& value : rule_.values) {
        values_.push_back({value});
        values_.back().sum = value.start;
    }
    for (const FaultRule& fault : rule_.faults)
        faults_.push_back({fault, random_.exponential(fault.meanIntervalSeconds)});
    readParameters();
    variables_.writeFault({});
    moveValues(0, true);
    show();
}

bool SimulatedServo::stopsLine() const { return fault_ && faults_[*fault_].rule.stops; }

void SimulatedServo::advance(double seconds)
{
    time_ += seconds;
    takeOver(seconds);
    moveFaults(seconds);
    moveValues(seconds, false);
    show();
}

void SimulatedServo::takeOver(double seconds)
{
    if (!variables_.changeAnnounced()) {
        announcedFor_ = 0;
        return;
    }
    announcedFor_ += seconds;
    if (announcedFor_ < takeoverSeconds_) return;
    announcedFor_ = 0;
    for (const char* family : families)
        variables_.limitSetpoints(family);
    readParameters();
    variables_.acknowledgeChange();
}

void SimulatedServo::readParameters()
{
    for (const char* family : families)
        setpoints_[family] = variables_.setpoints(family);
    switches_ = variables_.switches();
}

void SimulatedServo::moveFaults(double seconds)
{
    if (fault_) {
        faultEndsIn_ -= seconds;
        if (faultEndsIn_ <= 0) {
            Fault& gone = faults_[*fault_];
            gone.secondsToNext = random_.exponential(gone.rule.meanIntervalSeconds);
            fault_.reset();
            variables_.writeFault({});
            return; // for one period at least the operator sees that it is gone
        }
    }
    for (std::size_t i = 0; i < faults_.size(); ++i) {
        if (fault_ == i) continue;
        faults_[i].secondsToNext -= seconds;
        if (fault_ || faults_[i].secondsToNext > 0) continue;
        fault_ = i;
        faultEndsIn_ = faults_[i].rule.durationSeconds;
        ++faultCount_;
        if (faults_[i].rule.stops) ++stopCount_;
        variables_.writeFault(faults_[i].rule.text);
    }
}

void SimulatedServo::moveValues(double seconds, bool atOnce)
{
    for (Value& value : values_) {
        const ValueRule& rule = value.rule;
        const bool off = rule.switchBit && (switches_ >> *rule.switchBit & 1) == 0;
        value.target = off ? 0.0 : target(value, seconds) + faultEffect(rule.place);
        value.previous = value.current;
        if (atOnce || rule.tauSeconds <= 0) {
            value.current = value.target;
            if (atOnce) value.previous = value.current;
        } else {
            // The exact answer of a first-order lag to a target that stays for this period.
            value.current += (value.target - value.current) * -std::expm1(-seconds / rule.tauSeconds);
        }
    }
}

double SimulatedServo::target(Value& value, double seconds)
{
    const ValueRule& rule = value.rule;
    switch (rule.kind) {
    case ValueKind::Constant: return rule.value;
    case ValueKind::Setpoint: return rule.gain * setpoint(*rule.setpoint) + rule.offset;
    case ValueKind::Line: {
        const double draw = rule.setpoint ? setpoint(*rule.setpoint) : 0.0;
        return rule.gain * lineSpeed() * (1.0 + draw / 100.0) + rule.offset;
    }
    case ValueKind::Value: return rule.gain * valueAt(*rule.source).current + rule.offset;
    case ValueKind::Lag: return rule.gain * (valueAt(*rule.source).target - valueAt(*rule.source).current);
    case ValueKind::Rate: {
        const Value& source = valueAt(*rule.source);
        const double change = seconds > 0 ? std::fabs(source.current - source.previous) / seconds : 0.0;
        return rule.gain * change + rule.offset;
    }
    case ValueKind::Integral: return integral(value, seconds);
    case ValueKind::Swing: return swing(value, seconds);
    case ValueKind::Wander:
        return rule.centre + rule.amplitude * std::sin(fullTurn * (time_ / rule.periodSeconds + rule.phase));
    case ValueKind::Faults: return rule.gain * (rule.stopsOnly ? stopCount_ : faultCount_) + rule.offset;
    case ValueKind::Starts: return rule.gain * (line_ ? line_->starts() : 0) + rule.offset;
    }
    return 0;
}

double SimulatedServo::integral(Value& value, double seconds)
{
    const ValueRule& rule = value.rule;
    value.sum += rule.gain * (rule.source ? valueAt(*rule.source).current : 1.0) * seconds;
    if (!rule.low || !rule.high) return value.sum;
    const double low = number(rule.low);
    const double span = number(rule.high) - low;
    if (value.sum < low || value.sum >= low + span) {
        const double above = std::fmod(value.sum - low, span);
        value.sum = low + (above < 0 ? above + span : above);
    }
    return value.sum;
}

double SimulatedServo::swing(Value& value, double seconds)
{
    const double reference = line_ ? line_->referenceSpeed() : 0.0;
    if (reference > 0) value.cycle += seconds / value.rule.periodSeconds * lineSpeed() / reference;
    value.cycle -= std::floor(value.cycle);
    const double low = number(value.rule.low);
    return low + (number(value.rule.high) - low) * (1.0 - std::cos(fullTurn * value.cycle)) / 2.0;
}

double SimulatedServo::faultEffect(Place place) const
{
    double sum = 0;
    if (!fault_) return sum;
    for (const FaultEffect& effect : faults_[*fault_].rule.effects)
        if (effect.place == place) sum += effect.add;
    return sum;
}

double SimulatedServo::shown(const Value& value)
{
    const ValueRule& rule = value.rule;
    double shown = value.current;
    if (rule.noise > 0) shown += random_.between(rule.noise);
    if (rule.min) shown = std::max(shown, *rule.min);
    if (rule.max) shown = std::min(shown, *rule.max);
    return rule.decimals ? rounded(shown, *rule.decimals) : shown;
}

void SimulatedServo::show()
{
    for (const int page : {1, 2}) {
        const bool used = std::any_of(values_.begin(), values_.end(),
            [page](const Value& value) { return value.rule.place.page == page; });
        if (!used) continue;
        std::vector<double> elements = variables_.diagnosis(page);
        for (const Value& value : values_) {
            if (value.rule.place.page != page) continue;
            const double element = shown(value);
            const auto position = static_cast<std::size_t>(value.rule.place.element);
            if (position < elements.size()) elements[position] = element;
        }
        if (!elements.empty()) variables_.writeDiagnosis(page, elements);
    }
}

const SimulatedServo::Value& SimulatedServo::valueAt(Place place) const
{
    return *std::find_if(
        values_.begin(), values_.end(), [place](const Value& value) { return value.rule.place == place; });
}

double SimulatedServo::setpoint(const Setpoint& setpoint) const
{
    const auto family = setpoints_.find(setpoint.family);
    const auto index = static_cast<std::size_t>(setpoint.index);
    return family != setpoints_.end() && index < family->second.size() ? family->second[index] : 0.0;
}

double SimulatedServo::number(const std::optional<NumberOrSetpoint>& number) const
{
    if (!number) return 0;
    if (const auto* const fixed = std::get_if<double>(&*number)) return *fixed;
    return setpoint(std::get<Setpoint>(*number));
}

} // namespace servopanel::machine
