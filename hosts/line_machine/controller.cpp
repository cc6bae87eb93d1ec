#include "line_machine/controller.h"

#include "basic/error.h"
#include "mqtt/protocol_error.h"
#include "mqtt/value_coding.h"

#include <algorithm>
#include <utility>

namespace servopanel::line_machine {

namespace {

constexpr std::size_t mostSeen = 1000;
constexpr std::size_t mostProtocolErrors = 20;

// What the names of all variables begin with.
std::string commonStart(const mqtt::Description& description)
{
    if (description.variables().empty()) return {};
    std::string start = description.variables().front().name;
    for (const mqtt::VariableDescription& variable : description.variables())
        while (!variable.name.starts_with(start))
            start.pop_back();
    return start;
}

} // namespace

Controller::Controller(ControllerSettings settings, mqtt::Description description,
    machine::VariableStore& store, mqtt::Link& link, mqtt::Clock clock)
    : settings_{std::move(settings)}
    , description_{std::move(description)}
    , store_{store}
    , link_{link}
    , clock_{std::move(clock)}
{
    listener_ = store_.addListener(
        [this, start = commonStart(description_)](const machine::VariableStore::Write& write) {
            // The store may hold all machines of a line, and most of what is written is of others.
            if (!std::string_view{write.name}.starts_with(start)) return;
            if (const auto variable = description_.indexOf(write.name)) variables_[*variable].changed = true;
        });
    begin(settings_.epoch);
    std::vector<std::string> subscriptions{topic("state"), mqtt::topicFilter(settings_.machine, "cmd", true),
        mqtt::topicFilter(settings_.machine, "get", true)};
    if (settings_.faults) subscriptions.push_back(topic("fault"));
    link_.start(*this, std::move(subscriptions));
}

Controller::~Controller() { store_.removeListener(listener_); }

void Controller::begin(std::int64_t epoch)
{
    epoch_ = epoch;
    startedAt_ = clock_();
    heartbeatAt_ = putRightAt_ = startedAt_ - settings_.heartbeatMilliseconds;
    variables_.clear();
    for (const mqtt::VariableDescription& variable : description_.variables())
        variables_.push_back({variable.name, 0, startedAt_ - settings_.valueMilliseconds, true, false});
    work_.clear();
    link_.setWill(topic("state"), write(mqtt::State{false, epoch_, description_.hash()}));
}

void Controller::poll(int milliseconds)
{
    link_.poll(milliseconds);
    makeFaults();
    if (!work_.empty() && clock_() >= work_.front().dueAt) {
        const Work work = std::move(work_.front());
        work_.clear();
        carryOut(work);
    }
    if (!link_.isUp()) return;
    putStateRight();
    sendDue();
    // What the connection cannot take would only wait in memory.
    if (link_.isSending()) return;
    if (owesHeartbeat_ || clock_() - heartbeatAt_ >= settings_.heartbeatMilliseconds) sendHeartbeat();
}

void Controller::goodbye()
{
    if (link_.isUp()) sendState(false);
}

void Controller::linkUp()
{
    sendState(true);
    for (const mqtt::DescriptionPart& part : partsOf(description_))
        publish(topic("desc", std::to_string(part.part)), write(part), mqtt::Link::Keep::Retained);
    sendHeartbeat();
}

// A command whose answer cannot be sent is not carried out either; the panel says that it is unknown.
void Controller::linkDown(std::string_view) { work_.clear(); }

void Controller::received(std::string_view topicText, std::string_view payload, bool retained)
try {
    const auto topic = mqtt::Topic::parse(topicText);
    if (!topic || topic->machine != settings_.machine) return;
    if (topic->kind == "state") {
        // Somebody else's word about this machine, mostly the last will of the controller before.
        const mqtt::State state = mqtt::readState(topicText, payload);
        stateIsWrong_ = !state.up || state.epoch != epoch_;
        return;
    }
    if (retained) throw mqtt::ProtocolError{topicText, "must not be retained"};
    if (topic->kind == "get") takeGet(topicText, payload);
    if (topic->kind == "cmd") takeCommand(topic->of, mqtt::readCommand(topicText, payload));
    if (topic->kind == "fault" && settings_.faults) orderFault(payload);
} catch (const mqtt::ProtocolError& error) {
    if (protocolErrors_.size() >= mostProtocolErrors) protocolErrors_.erase(protocolErrors_.begin());
    protocolErrors_.emplace_back(error.what());
}

void Controller::orderFault(std::string_view payload)
{
    faults_.take(topic("fault"), payload);
    // What can be known of a value may be different now.
    for (Variable& variable : variables_)
        variable.changed = true;
}

std::vector<std::string> Controller::takeProtocolErrors() { return std::exchange(protocolErrors_, {}); }

void Controller::sendState(bool up)
{
    publish(topic("state"), write(mqtt::State{up, epoch_, description_.hash()}), mqtt::Link::Keep::Retained);
}

// Not each time at once: somebody else might do the same.
void Controller::putStateRight()
{
    if (!stateIsWrong_ || clock_() - putRightAt_ < settings_.heartbeatMilliseconds) return;
    stateIsWrong_ = false;
    putRightAt_ = clock_();
    sendState(true);
}

void Controller::sendValue(std::size_t index)
{
    Variable& variable = variables_[index];
    mqtt::Value value{epoch_, variable.sequence, time(), *store_.find(variable.name), {}, {}};
    if (isAbsent(variable.name)) {
        value.qualities = {mqtt::Quality::Bad};
        value.reason = "the drive does not answer";
    }
    for (const Faults::Doubt& doubt : faults_.doubts) {
        if (doubt.name != variable.name) continue;
        const std::size_t length = description_.variables()[index].length;
        value.qualities.assign(std::max<std::size_t>(length, 1),
            doubt.elements.empty() ? mqtt::Quality::Bad : mqtt::Quality::Good);
        for (const std::size_t element : doubt.elements)
            if (element < value.qualities.size()) value.qualities[element] = mqtt::Quality::Bad;
        value.reason = doubt.reason;
    }
    publish(topic("val", variable.name), write(value));
}

void Controller::sendDue()
{
    for (std::size_t i = 0; i < variables_.size() && !link_.isSending(); ++i) {
        next_ = (next_ + 1) % variables_.size();
        sendDue(variables_[next_], next_);
    }
}

void Controller::sendDue(Variable& variable, std::size_t index)
{
    // Asked for each variable of each machine at each turn.
    if (!variable.changed && !variable.requested) return;
    const std::int64_t now = clock_();
    if (now - variable.sentAt < settings_.valueMilliseconds) return;
    if (std::exchange(variable.requested, false)) owesHeartbeat_ = true;
    variable.sentAt = now;
    if (std::exchange(variable.changed, false)) {
        ++variable.sequence;
        if (faults_.torn > 0) {
            --faults_.torn;
            return;
        }
    }
    sendValue(index);
}

void Controller::sendHeartbeat()
{
    heartbeatAt_ = clock_();
    owesHeartbeat_ = false;
    if (faults_.heartless) return;
    mqtt::Heartbeat heartbeat{epoch_, time(), {}};
    for (const Variable& variable : variables_)
        heartbeat.sequences.push_back(variable.sequence);
    publish(topic("hb"), write(heartbeat));
}

// Answered by the next polls, so that many requests cost no more than one.
void Controller::takeGet(std::string_view topicText, std::string_view payload)
{
    const mqtt::Get get = mqtt::readGet(topicText, payload);
    if (get.names.empty())
        for (Variable& variable : variables_)
            variable.requested = true;
    for (const std::string& name : get.names)
        if (const auto variable = description_.indexOf(name)) variables_[*variable].requested = true;
}

void Controller::takeCommand(const std::string& panel, mqtt::Command command)
{
    seen_.push_back({command.id, command.name, command.level, command.deadline, time(), {}, {}});
    if (seen_.size() > mostSeen) seen_.pop_front();
    Work work{std::move(command), panel, clock_(), commands_++};
    if (!work_.empty()) return answer(work, {mqtt::Outcome::Busy, {}, {}});
    if (faults_.slow > 0) {
        --faults_.slow;
        work.dueAt += faults_.slowMilliseconds;
        work_.push_back(std::move(work));
        return;
    }
    carryOut(work);
}

void Controller::carryOut(const Work& work)
{
    if (faults_.refuse > 0) {
        --faults_.refuse;
        return answer(work, {faults_.refuseWith, "on purpose", {}});
    }
    if (faults_.silent > 0 && !faults_.silentActs) {
        --faults_.silent;
        return;
    }
    const Verdict verdict = judgeAndWrite(work);
    if (verdict.outcome == mqtt::Outcome::Done) {
        const std::size_t variable = *description_.indexOf(work.command.name);
        variables_[variable].changed = false;
        variables_[variable].sentAt = clock_();
        ++variables_[variable].sequence;
        sendValue(variable);
    }
    if (faults_.silent > 0) {
        --faults_.silent;
        return note(work, verdict.outcome);
    }
    answer(work, verdict);
}

Verdict Controller::judgeAndWrite(const Work& work)
try {
    Verdict verdict = judge(work.command, {description_, store_, epoch_, time()});
    if (verdict.outcome != mqtt::Outcome::Done) return verdict;
    if (isAbsent(work.command.name)) return {mqtt::Outcome::Absent, {}, {}};
    store_.write(work.command.name, verdict.value, machine::Writer::Host);
    if (Seen* const seen = seenOf(work)) seen->writtenAt = time();
    return verdict;
} catch (const basic::Error& error) {
    return {
        mqtt::Outcome::WrongType, error.description, {}}; // the store holds another type than was described
}

// Nothing when so many came after it that it is forgotten.
Controller::Seen* Controller::seenOf(const Work& work)
{
    const std::size_t back = commands_ - work.seen;
    return back <= seen_.size() ? &seen_[seen_.size() - back] : nullptr;
}

void Controller::note(const Work& work, mqtt::Outcome outcome)
{
    if (Seen* const seen = seenOf(work)) seen->outcome = outcome;
}

void Controller::answer(const Work& work, const Verdict& verdict)
{
    note(work, verdict.outcome);
    mqtt::Ack ack{work.command.id, epoch_, verdict.outcome, verdict.text, {}, 0, time()};
    if (verdict.outcome == mqtt::Outcome::Done) {
        ack.value = mqtt::toJson(*store_.find(work.command.name));
        ack.sequence = variables_[*description_.indexOf(work.command.name)].sequence;
    }
    publish(topic("ack", work.panel), write(ack));
}

void Controller::makeFaults()
{
    for (const Faults::Change& change : std::exchange(faults_.changes, {})) {
        const auto variable = description_.indexOf(change.name);
        const auto value =
            variable ? mqtt::fromJson(change.value, description_.variables()[*variable]) : std::nullopt;
        if (value) store_.write(change.name, *value, machine::Writer::Host);
    }
    if (!std::exchange(faults_.restart, false)) return;
    // As a controller whose supply was switched off and on.
    begin(epoch_ + 1 + time());
    link_.drop("restart on purpose");
}

bool Controller::isAbsent(std::string_view name) const
{
    return faults_.absent && name.find(*faults_.absent) != std::string_view::npos;
}

std::string Controller::topic(std::string_view kind, std::string_view of) const
{
    return mqtt::Topic{settings_.machine, std::string{kind}, std::string{of}}.text();
}

void Controller::publish(const std::string& topic, std::string_view payload, mqtt::Link::Keep keep)
{
    link_.publish(topic, payload, keep);
}

} // namespace servopanel::line_machine
