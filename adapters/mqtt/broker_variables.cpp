#include "mqtt/broker_variables.h"

#include "basic/error.h"
#include "machine/variable_conversion.h"
#include "mqtt/protocol_error.h"
#include "mqtt/value_coding.h"
#include "portable/text_decoding.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

namespace servopanel::mqtt {

namespace {

constexpr std::size_t mostProtocolErrors = 20;
constexpr int millisecondsPerSecond = 1000;
constexpr int turnMilliseconds = 50; // of somebody who waits for an answer
constexpr auto invalidCall = static_cast<std::int32_t>(basic::ErrorNumber::InvalidProcedureCall);

[[noreturn]] void fail(Outcome outcome, std::string_view name, std::string_view reason)
{
    throw machine::variableError(static_cast<std::int32_t>(outcome), name, reason);
}

// JSON has no such numbers, and no machine has a use for them.
bool isFinite(const basic::Variant& value)
{
    if (const auto* const array = value.get<basic::Array>())
        return std::all_of(array->elements.begin(), array->elements.end(), isFinite);
    if (const auto* const number = value.get<double>()) return std::isfinite(*number);
    if (const auto* const number = value.get<float>()) return std::isfinite(*number);
    return true;
}

// What keeps a text from arriving as it is: the controller would throw the whole command away, and the panel would wait
// for an answer. Empty when nothing does.
std::string_view problemOfText(const basic::Variant& value)
{
    const auto* const text = value.get<std::string>();
    if (!text) return {};
    if (text->size() > Bounds{}.textBytes) return "the text is longer than a message may hold";
    return portable::isUtf8(*text) ? std::string_view{} : "the text is not UTF-8";
}

// Differs from that of the panel's last start, so that a late answer to that one is not taken for ours.
std::string newSession()
{
    std::random_device random;
    return std::to_string(random()).append("-");
}

} // namespace

BrokerVariables::BrokerVariables(BrokerVariablesSettings settings, Link& link, Clock clock)
    : settings_{std::move(settings)}
    , link_{link}
    , clock_{std::move(clock)}
    , session_{newSession()}
{
    if (settings_.panel.empty())
        throw basic::Error{invalidCall, "Process variables", "the panel has no name"};
    begin(settings_.machines);
}

void BrokerVariables::follow(const std::vector<std::string>& machines)
{
    if (machines != settings_.machines) begin(machines);
}

void BrokerVariables::begin(const std::vector<std::string>& machines)
{
    if (std::find(machines.begin(), machines.end(), std::string{}) != machines.end())
        throw basic::Error{invalidCall, "Process variables", "a machine has no name"};
    settings_.machines = machines;
    images_.clear();
    lastRead_.clear();
    std::vector<std::string> subscriptions;
    for (const std::string& machine : machines) {
        if (imageOf(machine)) continue; // named twice
        images_.push_back(std::make_unique<MachineImage>(machine, settings_.heartbeatMilliseconds));
        subscriptions.push_back(topicFilter(machine, "state"));
        subscriptions.push_back(topicFilter(machine, "desc", true));
        subscriptions.push_back(topicFilter(machine, "val", true));
        subscriptions.push_back(topicFilter(machine, "hb"));
        subscriptions.push_back(Topic{machine, "ack", settings_.panel}.text());
    }
    link_.start(*this, std::move(subscriptions));
}

BrokerVariables::ConfirmScope::ConfirmScope(BrokerVariables& variables)
    : variables_{variables}
{
    ++variables_.confirms_;
}

BrokerVariables::ConfirmScope::~ConfirmScope()
{
    if (--variables_.confirms_ == 0) variables_.gaveUp_ = false;
}

void BrokerVariables::poll(int milliseconds)
{
    link_.poll(milliseconds);
    askForLost();
}

void BrokerVariables::askForLost()
{
    if (!link_.isUp()) return;
    const std::int64_t now = clock_();
    for (const auto& image : images_) {
        const auto asked = askedAt_.find(image->machine());
        if (asked != askedAt_.end() && now - asked->second < settings_.snapshotMilliseconds) continue;
        const auto wish = image->takeWish();
        if (!wish) continue;
        askedAt_[image->machine()] = now;
        link_.publish(Topic{image->machine(), "get", settings_.panel}.text(), write(*wish), Link::Keep::No);
    }
}

void BrokerVariables::linkUp()
{
    askedAt_.clear();
    for (const auto& image : images_)
        image->linkUp();
}

void BrokerVariables::linkDown(std::string_view reason)
{
    ++brokenLinks_;
    for (const auto& image : images_)
        image->linkDown(reason);
}

void BrokerVariables::received(std::string_view topicText, std::string_view payload, bool retained)
try {
    const auto topic = Topic::parse(topicText);
    MachineImage* const image = topic ? imageOf(topic->machine) : nullptr;
    if (!image) return;
    if (topic->kind != "ack") return image->receive(*topic, payload, retained, clock_());
    if (!retained && topic->of == settings_.panel) takeAck(*topic, payload);
} catch (const ProtocolError& error) {
    if (protocolErrors_.size() >= mostProtocolErrors) protocolErrors_.erase(protocolErrors_.begin());
    protocolErrors_.emplace_back(error.what());
}

void BrokerVariables::takeAck(const Topic& topic, std::string_view payload)
{
    Ack ack = readAck(topic.text(), payload);
    if (!awaited_ || ack.id != awaited_->id) return;
    if (topic.machine != awaited_->machine)
        throw ProtocolError{topic.text(), "answers a command to machine " + awaited_->machine};
    // A restarted controller says that it is, and nothing else of a command to the one before.
    if (ack.outcome == Outcome::Done && ack.epoch != awaited_->epoch)
        throw ProtocolError{topic.text(), "has done a command of another epoch"};
    answer_ = std::move(ack);
}

MachineImage* BrokerVariables::imageOf(std::string_view machine) const
{
    for (const auto& image : images_)
        if (image->machine() == machine) return image.get();
    return nullptr;
}

BrokerVariables::Place BrokerVariables::find(std::string_view name) const
{
    Place place;
    const MachineImage* silent = nullptr;
    for (const auto& image : images_) {
        const Description* const description = image->description();
        if (!description) {
            silent = image.get();
            continue;
        }
        const auto variable = description->indexOf(name);
        if (!variable) continue;
        // Reads and writes of one machine must not go to another that takes its names.
        if (place.image)
            fail(Outcome::Bad, name,
                std::string{"machines "}
                    .append(place.image->machine())
                    .append(" and ")
                    .append(image->machine())
                    .append(" both say that it is theirs"));
        place = {image.get(), *variable};
    }
    if (place.image) return place;
    if (silent)
        if (const auto trouble = silent->trouble(clock_())) fail(trouble->outcome, name, trouble->reason);
    throw machine::unknownVariable(name);
}

basic::Variant BrokerVariables::ReadValue(std::string_view name)
{
    // What was read before is no ground for a write once the value is not known any more.
    if (const auto read = lastRead_.find(name); read != lastRead_.end()) lastRead_.erase(read);
    const Place place = find(name);
    if (const auto trouble = place.image->trouble(place.variable, clock_()))
        fail(trouble->outcome, name, trouble->reason);
    const Value& held = *place.image->held(place.variable);
    lastRead_.insert_or_assign(std::string{name}, Read{held.value, held.epoch});
    return held.value;
}

BrokerVariables::Standing BrokerVariables::standing(std::string_view name) const
try {
    const Place place = find(name);
    const auto trouble = place.image->trouble(place.variable, clock_());
    if (!trouble) return {};
    Standing standing{trouble->outcome == Outcome::Bad ? Quality::Bad : Quality::Stale, trouble->outcome,
        trouble->reason, {}};
    const Value* const value = place.image->held(place.variable);
    if (value && value->worst() == standing.quality && value->qualities.size() > 1)
        standing.elements = value->qualities;
    return standing;
} catch (const basic::Error& error) {
    // Only what nobody has described yet may still turn out well.
    const auto outcome = static_cast<Outcome>(error.number);
    return {outcome == Outcome::NoConnection ? Quality::Stale : Quality::Bad, outcome, error.description, {}};
}

bool BrokerVariables::isLive(std::string_view machine) const { return troubleOf(machine).empty(); }

std::string BrokerVariables::troubleOf(std::string_view machine) const
{
    const MachineImage* const image = imageOf(machine);
    if (!image) return std::string{"no machine "}.append(machine).append(" is looked for on the broker");
    const auto trouble = image->trouble(clock_());
    if (trouble) return trouble->reason;
    return link_.isUp() ? std::string{} : "no connection to the broker";
}

const Description* BrokerVariables::description(std::string_view machine) const
{
    const MachineImage* const image = imageOf(machine);
    return image ? image->description() : nullptr;
}

std::int64_t BrokerVariables::epoch(std::string_view machine) const
{
    const MachineImage* const image = imageOf(machine);
    return image ? image->epoch() : 0;
}

bool BrokerVariables::hasValues(std::string_view machine) const
{
    const MachineImage* const image = imageOf(machine);
    if (!image || !image->description()) return false;
    const std::size_t count = image->description()->variables().size();
    for (std::size_t variable = 0; variable < count; ++variable)
        if (!image->held(variable)) return false;
    return true;
}

std::vector<std::string> BrokerVariables::takeProtocolErrors() { return std::exchange(protocolErrors_, {}); }

void BrokerVariables::WriteValue(std::string_view name, const basic::Variant& value)
{
    // Whoever writes may have been held up, by a slow disk for example; the heartbeats of that time wait to be read.
    if (find(name).image->trouble(clock_())) poll(0);
    const Place place = find(name);
    // A copy: while waiting, a restarted machine may describe itself anew.
    const VariableDescription description = place.image->description()->variables()[place.variable];
    const basic::Variant wanted = machine::convertedToDeclared(name, description.blank(), value);
    if (!isFinite(wanted)) fail(Outcome::OutOfRange, name, "the value is not a finite number");
    if (const auto problem = problemOfText(wanted); !problem.empty())
        fail(Outcome::OutOfRange, name, problem);
    if (settings_.viewing) fail(Outcome::ReadOnly, name, "this panel only looks on");
    if (!description.writable) fail(Outcome::ReadOnly, name, describe(Outcome::ReadOnly));
    if (gaveUp_) fail(Outcome::NotSentAfterNoAnswer, name, describe(Outcome::NotSentAfterNoAnswer));
    if (const auto trouble = place.image->trouble(clock_())) fail(trouble->outcome, name, trouble->reason);
    if (!link_.isUp()) fail(Outcome::NoConnection, name, "no connection to the broker");
    // Nobody knows what would be overwritten; a signal overwrites nothing.
    if (!description.signal)
        if (const auto trouble = place.image->trouble(place.variable, clock_()))
            fail(trouble->outcome, name, trouble->reason);
    send(place, description, wanted);
}

void BrokerVariables::send(
    const Place& place, const VariableDescription& description, const basic::Variant& value)
{
    const std::string& name = description.name;
    const Read old = takeExpected(place, description);

    // The machine may act until three quarters of the time; the rest is for reading again what became of it.
    const std::int64_t now = clock_();
    const std::int64_t epoch = place.image->epoch();
    const std::int64_t span = std::int64_t{settings_.answerMilliseconds} * 3 / 4;
    const Command command{session_ + std::to_string(++commands_), old.epoch,
        place.image->machineTime(now) + span, level_, name, toJson(old.value), toJson(value)};
    const std::string payload = write(command);
    if (payload.size() > Bounds{}.bytes)
        fail(Outcome::OutOfRange, name, "old and new value are longer than a message may hold");
    const int expireSeconds =
        (settings_.answerMilliseconds + millisecondsPerSecond - 1) / millisecondsPerSecond;
    if (!link_.publish(Topic{place.image->machine(), "cmd", settings_.panel}.text(), payload, Link::Keep::No,
            expireSeconds)) {
        if (link_.isUp()) fail(Outcome::OutOfRange, name, "the broker takes no message like this command");
        // It may have been given to the connection in part: that connection must end.
        link_.drop("a command could not be sent");
        fail(Outcome::NoConnection, name, "no connection to the broker, nothing was sent");
    }
    awaited_ = Awaited{command.id, place.image->machine(), command.epoch};
    answer_.reset();
    waitForAnswer(now + span + 1); // what is read again within the deadline's own millisecond is not final
    std::optional<basic::Variant> heldNow;
    if (!answer_)
        heldNow =
            readAgain(place, description, {epoch, command.deadline}, now + settings_.answerMilliseconds);
    awaited_.reset();
    if (answer_) return conclude(place, description, value);
    gaveUp_ = confirms_ > 0;
    const Outcome outcome = !heldNow ? Outcome::NoAnswer
        : *heldNow == value          ? Outcome::NoAnswerButWritten
                                     : Outcome::NoAnswerNotWritten;
    fail(outcome, name, description.signal ? std::string_view{"no answer"} : describe(outcome));
}

// What the machine must still hold for a write to be carried out. Nobody needs to know it of a signal.
BrokerVariables::Read BrokerVariables::takeExpected(
    const Place& place, const VariableDescription& description)
{
    if (const auto read = lastRead_.find(description.name); read != lastRead_.end())
        return std::move(lastRead_.extract(read).mapped());
    if (const Value* const held = place.image->held(place.variable)) return {held->value, held->epoch};
    if (description.signal) return {description.blank(), place.image->epoch()};
    fail(Outcome::Stale, description.name, "the machine has not sent it yet");
}

void BrokerVariables::waitForAnswer(std::int64_t until)
{
    const std::int64_t links = brokenLinks_;
    while (!answer_ && brokenLinks_ == links && link_.isUp()) {
        if (clock_() >= until) return;
        pollWhileWaiting(until);
    }
}

// In short turns, so that whoever waits with it has his.
void BrokerVariables::pollWhileWaiting(std::int64_t until)
{
    // The time may be over since it was last looked at, and nobody wakes who waits for less than nothing.
    const std::int64_t left = std::max<std::int64_t>(until - clock_(), 0);
    poll(static_cast<int>(settings_.waiting ? std::min<std::int64_t>(left, turnMilliseconds) : left));
    if (settings_.waiting) settings_.waiting();
}

std::optional<basic::Variant> BrokerVariables::readAgain(
    const Place& place, const VariableDescription& description, const Deadline& deadline, std::int64_t until)
{
    // What has not left by now would reach the machine late.
    if (link_.isUp() && link_.isOnTheWay()) link_.drop("the broker takes nothing any more");
    if (!link_.isUp()) return {};
    // What a signal is by now tells nothing, because the machine takes it back; only a late answer does.
    if (!description.signal)
        link_.publish(Topic{place.image->machine(), "get", settings_.panel}.text(),
            write(Get{{description.name}}), Link::Keep::No);
    // Only what the machine says after the deadline is final: it acts on the command no more. A restarted one counts
    // its time anew.
    const auto isFinal = [&] {
        const Value* const held = place.image->held(place.variable);
        return !description.signal && held && held->epoch == deadline.epoch && held->time > deadline.time
            && !place.image->trouble(place.variable, clock_());
    };
    while (!answer_ && !isFinal() && link_.isUp() && clock_() < until)
        pollWhileWaiting(until);
    if (!isFinal()) return {};
    return place.image->held(place.variable)->value;
}

void BrokerVariables::conclude(
    const Place& place, const VariableDescription& description, const basic::Variant& value)
{
    const Ack ack = *std::exchange(answer_, {});
    std::optional<basic::Variant> readBack;
    if (!ack.value.is_null()) readBack = fromJson(ack.value, description);
    if (readBack)
        place.image->takeReadBack(place.variable, {ack.epoch, ack.sequence, ack.time, *readBack, {}, {}});
    if (ack.outcome != Outcome::Done) {
        std::string reason{describe(ack.outcome)};
        if (!ack.text.empty()) reason.append(": ").append(ack.text);
        fail(ack.outcome, description.name, reason);
    }
    // A signal may have been taken back before it was read.
    if (!description.signal && readBack != value)
        fail(Outcome::ReadBackDiffers, description.name, describe(Outcome::ReadBackDiffers));
}

} // namespace servopanel::mqtt
