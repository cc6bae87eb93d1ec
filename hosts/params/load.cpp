#include "basic/error.h"
#include "journal/journaled_variables.h"
#include "params/commands.h"
#include "params/comparison.h"
#include "params/load_plan.h"
#include "params/load_run.h"
#include "params/set_file.h"
#include "params/sources.h"
#include "params/stop_signals.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace servopanel::params {

namespace {

[[noreturn]] void refuse(const std::string& why)
{
    basic::raise(basic::ErrorNumber::InvalidProcedureCall, why);
}

void requireServo(const ParameterSet& set, int servo)
{
    const std::vector<int> known = servosOf(set);
    if (std::find(known.begin(), known.end(), servo) != known.end()) return;
    std::string text = "the file has no servo " + std::to_string(servo) + "; its servos are";
    for (const int one : known)
        text.append(one == known.front() ? " " : ", ").append(std::to_string(one));
    refuse(text);
}

// Servos of the file, and those of the machine that they are meant for.
std::vector<std::pair<int, int>> servosFor(const CommandLine& line, const ParameterSet& set)
{
    const std::vector<int> known = servosOf(set);
    if (known.empty()) refuse("the file has no rows");
    std::vector<std::pair<int, int>> pairs;
    const std::optional<int> only = line.from ? line.from
        : known.size() == 1                   ? std::optional{known.front()}
                                              : std::nullopt;
    if (only) requireServo(set, *only);
    if (line.servos.empty()) {
        for (const int servo : only ? std::vector{*only} : known)
            pairs.emplace_back(servo, servo);
        return pairs;
    }
    for (const int servo : line.servos) {
        if (!only) requireServo(set, servo);
        pairs.emplace_back(only.value_or(servo), servo);
    }
    return pairs;
}

// Nothing where the definitions cannot be read; before a write that is refused unless the engineer said so.
std::optional<DefinitionLimits> limitsFor(
    const CommandLine& line, const std::optional<Project>& project, ToolOutput& output)
{
    if (line.noDefinitions) return {};
    if (project && project->definitions) return DefinitionLimits{*project->definitions, line.machine};
    const std::string why = project
        ? "the definitions of the project cannot be read: " + project->definitionsProblem
        : "without --project no limits of definitions are known";
    if (line.apply) refuse(why + "; --no-definitions goes on without them");
    tell(output, why + "; they are not looked at");
    return {};
}

// The engineer's word on each row that is to be written; no more answers leave out the rest.
void askFor(std::vector<PlannedRow>& rows, const Surroundings& around)
{
    bool isOver = false;
    bool isAll = false;
    for (PlannedRow& row : rows) {
        if (row.end != End::Open || isAll) continue;
        while (!isOver) {
            const std::string question =
                tableOf({row}, true) + "write this row? [y]es, [n]o, [a]ll from here on, [q]uit: ";
            const std::optional<std::string> answer = around.ask(question);
            isOver = !answer || *answer == "q";
            isAll = answer && *answer == "a";
            if (isAll || (answer && (*answer == "y" || *answer == "n"))) {
                if (*answer == "n") row.set(End::LeftOut);
                break;
            }
        }
        if (isOver) row.set(End::LeftOut);
    }
}

// The machine's variables, within a journal where one is wanted.
class Access {
public:
    Access(const CommandLine& line, const Surroundings& around, BrokerMachines& machines, ToolOutput& output)
        : variables_{machines.variables()}
    {
        if (line.journal.empty()) return;
        file_ = std::make_unique<journal::JournalFile>(journal::JournalFileSettings{.folder = line.journal});
        // Who asks for a journal wants no write without one.
        if (const std::string problem = file_->append({}); !problem.empty())
            refuse("the journal cannot be written, nothing was sent: " + problem);
        variables_ = std::make_shared<journal::JournaledVariables>(variables_, *file_,
            journal::JournalContext{
                .panel = [name = line.name.empty() ? around.computer : line.name] { return name; },
                .level = [level = line.level] { return level; },
                .trouble =
                    [&output](const std::string& problem) {
                        tell(output, "the writes are not in the journal: " + problem);
                    },
                .now = around.now});
    }

    platform::ProcessVarAccess& variables() { return *variables_; }

private:
    std::unique_ptr<journal::JournalFile> file_;
    std::shared_ptr<platform::ProcessVarAccess> variables_;
};

bool has(const std::vector<PlannedRow>& rows, std::initializer_list<End> ends)
{
    return std::any_of(rows.begin(), rows.end(),
        [&](const PlannedRow& row) { return std::find(ends.begin(), ends.end(), row.end) != ends.end(); });
}

void apply(std::vector<PlannedRow>& rows, const CommandLine& line, const std::vector<int>& servos,
    BrokerMachines& machines, const Surroundings& around, ToolOutput& output)
{
    const StopSignals signals;
    Access access{line, around, machines, output};
    machines.variables()->setLevel(line.level);
    // The engineer may have thought about it for long: what was known then is not certain any more.
    try {
        machines.read(line.machine, servos);
    } catch (const basic::Error& error) {
        for (PlannedRow& row : rows)
            if (row.end == End::Open) row.set(End::NotSent, error.description);
    }
    const auto confirm = machines.variables()->confirm();
    for (const std::string& trouble :
        writeRows(rows, line.machine, access.variables(), [&] { return signals.came(); }))
        tell(output, trouble);
}

Status statusOf(const std::vector<PlannedRow>& rows, bool applied, bool troubled)
{
    if (troubled || has(rows, {End::Refused, End::NotSent, End::Unknown, End::Differs}))
        return Status::Trouble;
    return !applied && has(rows, {End::Open}) ? Status::Differences : Status::Equal;
}

} // namespace

Status load(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output)
{
    if (line.ask && !surroundings.ask) refuse("--ask needs a terminal");
    const ParameterSet wanted = loadSet(line.plain.front());
    const auto servos = servosFor(line, wanted);
    const LoadWish wish{servos, Selection{line.only, line.except}, line.level};
    if (const auto lost = wish.selection.withoutRow(wanted.rows); !lost.empty())
        refuse("the file has no row '" + lost.front() + "'");
    const std::optional<Project> project = projectOf(line, output);
    const std::optional<DefinitionLimits> limits = limitsFor(line, project, output);

    const auto machines = connect(line, surroundings, {line.machine});
    std::vector<int> targets;
    for (const auto& [from, to] : servos)
        targets.push_back(to);
    const Snapshot now = machines->read(line.machine, targets);
    std::vector<PlannedRow> rows = planOf(wanted, now, wish, limits ? &*limits : nullptr);
    std::vector<std::string> notes = notesOn(wanted, now, servos);
    if (limits)
        if (const auto count = std::count_if(rows.begin(), rows.end(),
                [&](const PlannedRow& row) {
                    return row.end == End::Open && !limits->knows(row.wanted.place);
                });
            count > 0)
            notes.push_back(counted(static_cast<std::size_t>(count), "row", "rows")
                + " to be written without a definition, which the page does not show");
    // Rows of the same name may mean something else there. Whoever is asked for each row is told before the first one.
    if (line.apply && !line.ask && wanted.machine != line.machine && !line.otherMachine)
        refuse(notes.front() + "; --other-machine writes all the same");
    if (limits)
        for (const std::string& note : limits->notes())
            notes.push_back("definitions: " + note);
    for (const std::string& note : notes)
        tell(output, note);
    if (line.apply && surroundings.show) surroundings.show(std::exchange(output.errors, {}));
    if (line.ask) askFor(rows, surroundings);
    const std::size_t errors = output.errors.size();
    if (line.apply && has(rows, {End::Open})) apply(rows, line, targets, *machines, surroundings, output);
    const bool troubled = output.errors.size() != errors;

    if (has(rows, {End::Unknown}))
        tell(output, "no answer: the machine may be gone, or the broker lets our name only look on");
    output.text = tableOf(rows, line.all).append(summaryOf(rows)).append("\n");
    if (!line.apply && has(rows, {End::Open})) output.text.append("Nothing was sent; --apply writes.\n");
    return statusOf(rows, line.apply, troubled);
}

} // namespace servopanel::params
