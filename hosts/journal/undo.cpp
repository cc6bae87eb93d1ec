#include "journal/undo.h"

#include "basic/error.h"
#include "journal/journaled_variables.h"
#include "machine/servo_families.h"
#include "mqtt/broker_variables.h"
#include "mqtt/outcome.h"
#include "mqtt/waiting.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace servopanel::journal {

namespace {

namespace families = machine::families;

// The variable by which the machine is told that this one has changed; nothing where it need not be.
std::optional<std::string> announcementOf(const std::string& variable)
{
    constexpr std::array parameters{
        families::setpoints, families::secondSetpoints, families::switches, families::drawings};
    const std::string_view family = machine::familyOf(variable);
    if (std::find(parameters.begin(), parameters.end(), family) == parameters.end()) return {};
    std::string name = variable;
    return name.replace(name.rfind(family), family.size(), families::changedFlag);
}

struct End {
    Result result = Result::Done;
    std::int32_t number = 0; // of the error
    std::string text; // why it was not done
};

bool holdsWhatItHeld(const End& end)
{
    return end.result == Result::Refused
        || end.number == static_cast<std::int32_t>(mqtt::Outcome::NoAnswerNotWritten);
}

End write(platform::ProcessVarAccess& variables, const std::string& name, const basic::Variant& value)
try {
    variables.WriteValue(name, value);
    return {};
} catch (const basic::Error& error) {
    const Result result = resultOf(error.number);
    std::string text{nameOf(result)};
    text.append(" ").append(std::to_string(error.number)).append(": ").append(error.description);
    return {result, error.number, std::move(text)};
}

Status statusOf(Result result)
{
    switch (result) {
    case Result::Done: return Status::Good;
    case Result::Refused: return Status::Failed;
    default: return Status::Unknown;
    }
}

// The value, and the word to the machine that it has changed. The caller holds the confirm: after a write without an
// answer the word is not sent, and that is said.
Status writeAll(const UndoPlan& plan, const basic::Variant& value, platform::ProcessVarAccess& variables,
    ToolOutput& output)
{
    const End end = write(variables, plan.variable, value);
    if (end.result == Result::Done)
        output.text.append("done: the machine holds what it held before\n");
    else
        output.errors.append("servo-journal: ").append(end.text).append("\n");
    const auto announcement = announcementOf(plan.variable);
    if (!announcement || holdsWhatItHeld(end)) return statusOf(end.result);
    const End told = write(variables, *announcement, std::int16_t{1});
    if (told.result != Result::Done)
        output.errors.append("servo-journal: the machine may not know that its parameters have changed: ")
            .append(told.text)
            .append("\n");
    return std::max(statusOf(end.result), statusOf(told.result));
}

} // namespace

Status undo(const UndoPlan& plan, const UndoOptions& options, const std::filesystem::path& journal,
    const Surroundings& surroundings, ToolOutput& output)
{
    JournalFile file{{.folder = journal}};
    if (options.apply) {
        if (const std::string trouble = file.append({}); !trouble.empty())
            throw basic::Error{0, {},
                std::string{trouble}.append(
                    "; nothing was written, because a write is kept. --journal names another folder for it")};
    }
    const std::string name = options.name.empty() ? surroundings.computer : options.name;
    // A client of its own: the panel of this name stays connected.
    const auto link = surroundings.makeLink(options.broker, std::string{"journal-"}.append(name));
    const auto broker = std::make_shared<mqtt::BrokerVariables>(
        mqtt::BrokerVariablesSettings{.panel = name, .machines = {plan.machine}}, *link, surroundings.clock);
    broker->setLevel(options.level);
    JournaledVariables variables{broker, file,
        {.panel = [&] { return name; },
            .level = [&] { return options.level; },
            .trouble =
                [&](const std::string& reason) {
                    output.errors.append("servo-journal: the write is not in the journal: ")
                        .append(reason)
                        .append("\n");
                },
            .now = surroundings.now}};

    // What the value is not after a while, reading it says.
    mqtt::waitFor(*broker, surroundings.clock,
        [&] { return broker->standing(plan.variable).quality == mqtt::Quality::Good; });
    const basic::Variant value = undone(plan, variables.ReadValue(plan.variable));
    output.text.append(shownPlan(plan));
    if (!options.apply) {
        output.text.append("Nothing was written; --apply writes it.\n");
        return Status::Good;
    }
    const auto confirm = broker->confirm();
    return writeAll(plan, value, variables, output);
}

} // namespace servopanel::journal
