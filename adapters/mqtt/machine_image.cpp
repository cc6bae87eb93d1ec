#include "mqtt/machine_image.h"

#include "mqtt/protocol_error.h"

#include <algorithm>
#include <utility>

namespace servopanel::mqtt {

namespace {

constexpr std::size_t mostVariables = 10'000; // of a machine
constexpr std::size_t mostElements = 500'000; // of all arrays of a machine
constexpr std::int64_t driftShare = 1000; // two clocks differ by less than one part of so many
constexpr std::size_t mostNamesInWish = 50; // all values cost less than a longer list of names

std::string seconds(std::int64_t milliseconds)
{
    const std::int64_t tenths = milliseconds / 100;
    return std::to_string(tenths / 10).append(".").append(std::to_string(tenths % 10)).append(" s");
}

} // namespace

MachineImage::MachineImage(std::string machine, std::int64_t heartbeatLimit)
    : machine_{std::move(machine)}
    , heartbeatLimit_{heartbeatLimit}
{
}

void MachineImage::linkUp()
{
    linkUp_ = true;
    wantsAll_ = true;
}

void MachineImage::linkDown(std::string_view reason)
{
    linkUp_ = false;
    linkTrouble_ = reason;
    beats_ = false;
    leastOffset_.reset();
    for (Variable& variable : variables_)
        variable.current = false;
}

void MachineImage::receive(const Topic& topic, std::string_view payload, bool retained, std::int64_t now)
{
    const std::string text = topic.text();
    if (topic.kind == "state") return takeState(readState(text, payload));
    if (topic.kind == "desc") return takePart(readDescriptionPart(text, payload));
    // Whatever the broker kept of these is of another time.
    if (retained) throw ProtocolError{text, "must not be retained"};
    if (topic.kind == "val") return takeValue(topic, payload);
    if (topic.kind == "hb") takeHeartbeat(readHeartbeat(text, payload), now);
}

void MachineImage::takeState(const State& state)
{
    const bool sameEpoch = state_ && state_->epoch == state.epoch;
    // The last will of a controller that has been replaced may come late.
    if (!state.up && state_ && state_->up && !sameEpoch) return;
    const bool sameHash = state_ && state_->hash == state.hash;
    state_ = state;
    if (sameEpoch && sameHash) return;
    forgetValues();
    assemble();
}

void MachineImage::takePart(DescriptionPart part)
{
    // What is left of an earlier description with more parts must not displace anything.
    if (state_ && part.hash != state_->hash) return;
    if (description_ && part.hash == describedHash_) return; // known, as after each connection
    const std::size_t number = part.part;
    parts_[number] = std::move(part);
    std::size_t variables = 0;
    std::size_t elements = 0;
    for (const auto& known : parts_)
        for (const VariableDescription& variable : known.second.variables) {
            ++variables;
            elements += variable.length;
        }
    if (variables > mostVariables || elements > mostElements) {
        parts_.clear();
        throw ProtocolError{Topic{machine_, "desc", std::to_string(number)}.text(),
            "the description has more than " + std::to_string(mostVariables) + " variables or "
                + std::to_string(mostElements) + " elements"};
    }
    assemble();
}

void MachineImage::assemble()
{
    if (!state_ || (description_ && describedHash_ == state_->hash)) return;
    std::vector<VariableDescription> variables;
    std::size_t expected = 1;
    for (std::size_t i = 0; i < expected; ++i) {
        const auto part = parts_.find(i);
        if (part == parts_.end() || part->second.hash != state_->hash) return;
        expected = part->second.parts;
        variables.insert(variables.end(), part->second.variables.begin(), part->second.variables.end());
    }
    parts_.clear();
    description_.emplace(std::move(variables));
    describedHash_ = state_->hash;
    variables_.assign(description_->variables().size(), {});
    wantsAll_ = true;
}

void MachineImage::forgetValues()
{
    std::fill(variables_.begin(), variables_.end(), Variable{});
    wantsAll_ = true;
}

void MachineImage::takeValue(const Topic& topic, std::string_view payload)
{
    // Before the description nobody can read it; the snapshot brings it again.
    if (!state_ || !description_ || describedHash_ != state_->hash) return;
    const auto variable = description_->indexOf(topic.of);
    if (!variable) throw ProtocolError{topic.text(), "is not in the machine's description"};
    Value value = readValue(topic.text(), payload, description_->variables()[*variable]);
    if (value.epoch == state_->epoch) store(*variable, std::move(value));
}

void MachineImage::takeReadBack(std::size_t variable, Value value)
{
    if (!state_ || value.epoch != state_->epoch || variable >= variables_.size()) return;
    const Value* const known = held(variable);
    if (known && value.sequence <= known->sequence) return;
    // The value message of this change was lost, and with it the quality of the elements. So far none is better.
    wants_.insert(variable);
    if (!known) return;
    value.qualities = known->qualities;
    value.reason = known->reason;
    store(variable, std::move(value));
}

void MachineImage::store(std::size_t index, Value value)
{
    Variable& variable = variables_[index];
    if (variable.value) {
        if (value.sequence < variable.value->sequence) return;
        // The array is whole all the same, but whatever was lost with the one between is not.
        if (value.sequence > variable.value->sequence + 1) wantsAll_ = true;
    }
    variable.value = std::move(value);
    variable.current = true;
}

void MachineImage::takeHeartbeat(Heartbeat heartbeat, std::int64_t now)
{
    const bool sameEpoch = heartbeat_ && heartbeat_->epoch == heartbeat.epoch;
    // One that stood in a queue, or comes again, says nothing of now.
    if (sameEpoch && heartbeat.time <= heartbeat_->time) return;
    if (state_ && description_ && describedHash_ == state_->hash && heartbeat.epoch == state_->epoch)
        compareSequences(heartbeat);
    if (!sameEpoch) leastOffset_.reset();
    measureDelay(heartbeat.time, now);
    heartbeat_ = std::move(heartbeat);
    heartbeatAt_ = now;
    beats_ = true;
}

void MachineImage::compareSequences(const Heartbeat& heartbeat)
{
    if (heartbeat.sequences.size() != variables_.size())
        throw ProtocolError{Topic{machine_, "hb", {}}.text(),
            "counts " + std::to_string(heartbeat.sequences.size()) + " variables, the description has "
                + std::to_string(variables_.size())};
    for (std::size_t i = 0; i < variables_.size(); ++i) {
        Variable& variable = variables_[i];
        const std::int64_t ours = variable.value ? variable.value->sequence : 0;
        const std::int64_t theirs = heartbeat.sequences[i];
        // Messages keep their order: what is ahead of a later heartbeat never was the machine's.
        if (theirs < ours) variable.value.reset();
        variable.current = variable.value && theirs == ours;
        if (theirs != ours) wants_.insert(i);
    }
}

void MachineImage::measureDelay(std::int64_t time, std::int64_t now)
{
    const std::int64_t offset = now - time;
    if (leastOffset_ && offset > *leastOffset_ + (now - leastOffsetAt_) / driftShare) return;
    leastOffset_ = offset;
    leastOffsetAt_ = now;
}

std::int64_t MachineImage::heartbeatAge(std::int64_t now) const
{
    const std::int64_t drift = (now - leastOffsetAt_) / driftShare;
    return std::max(now - heartbeatAt_, now - (heartbeat_->time + *leastOffset_ + drift));
}

std::optional<MachineImage::Trouble> MachineImage::trouble(std::int64_t now) const
{
    const auto none = [this](std::string_view what) {
        return Trouble{Outcome::NoConnection, std::string{"machine "}.append(machine_).append(what)};
    };
    if (!linkUp_) {
        std::string reason{"no connection to the broker"};
        if (!linkTrouble_.empty()) reason.append(" (").append(linkTrouble_).append(")");
        return Trouble{Outcome::NoConnection, reason};
    }
    if (!state_) return none(" has never been connected to the broker");
    if (!state_->up) return none(" is not connected to the broker");
    if (!description_ || describedHash_ != state_->hash) return none(" has not described its variables yet");
    if (!heartbeat_ || !beats_) return none(" has no heartbeat yet");
    if (now - heartbeatAt_ > heartbeatLimit_)
        return none(std::string{" has had no heartbeat for "}.append(seconds(now - heartbeatAt_)));
    if (const std::int64_t age = heartbeatAge(now); age > heartbeatLimit_)
        return none(
            std::string{" sends too late: its latest heartbeat is "}.append(seconds(age)).append(" old"));
    if (heartbeat_->epoch != state_->epoch) return none(" is just restarting");
    return {};
}

std::optional<MachineImage::Trouble> MachineImage::trouble(std::size_t variable, std::int64_t now) const
{
    if (auto whole = trouble(now)) return whole;
    if (variable >= variables_.size())
        return Trouble{Outcome::Stale, "the machine has a new description without it"};
    const Variable& held = variables_[variable];
    if (!held.value) return Trouble{Outcome::Stale, "the machine has not sent it yet"};
    if (!held.current)
        return Trouble{Outcome::Stale, "a change of it was lost on the way, it is being read again"};
    const Quality worst = held.value->worst();
    if (worst == Quality::Good) return {};
    std::string reason{describe(worst == Quality::Bad ? Outcome::Bad : Outcome::Stale)};
    if (held.value->qualities.size() > 1) {
        reason += " of element";
        const std::int32_t first = description_->variables()[variable].first;
        for (std::size_t i = 0; i < held.value->qualities.size(); ++i)
            if (held.value->qualities[i] == worst)
                reason.append(" ").append(std::to_string(first + static_cast<std::int32_t>(i)));
    }
    if (!held.value->reason.empty()) reason.append(": ").append(held.value->reason);
    return Trouble{worst == Quality::Bad ? Outcome::Bad : Outcome::Stale, reason};
}

const Value* MachineImage::held(std::size_t variable) const
{
    if (variable >= variables_.size() || !variables_[variable].value) return nullptr;
    return &*variables_[variable].value;
}

std::int64_t MachineImage::machineTime(std::int64_t now) const
{
    // The heartbeat was on its way for a while, so the controller's clock shows more than this: never too late.
    return heartbeat_ ? heartbeat_->time + (now - heartbeatAt_) : 0;
}

std::optional<Get> MachineImage::takeWish()
{
    if (!linkUp_ || !state_ || !state_->up || !description_ || describedHash_ != state_->hash) return {};
    if (!wantsAll_ && wants_.empty()) return {};
    Get get;
    if (!wantsAll_ && wants_.size() <= mostNamesInWish)
        for (const std::size_t variable : wants_)
            get.names.push_back(description_->variables()[variable].name);
    wantsAll_ = false;
    wants_.clear();
    return get;
}

} // namespace servopanel::mqtt
