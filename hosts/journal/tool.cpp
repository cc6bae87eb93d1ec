#include "journal/tool.h"

#include "basic/error.h"
#include "journal/command_line.h"
#include "journal/journal_reader.h"
#include "journal/journaled_variables.h"
#include "journal/undo.h"
#include "journal/undo_plan.h"
#include "mqtt/broker_link.h"
#include "portable/computer_name.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace servopanel::journal {

namespace {

Status takeBack(const CommandLine& line, const std::vector<Entry>& entries, const Surroundings& surroundings,
    ToolOutput& output)
{
    const auto plan = planUndo(entries);
    if (const auto* const problem = std::get_if<std::string>(&plan)) {
        output.errors.append("servo-journal: ").append(*problem).append("\n");
        return Status::Failed;
    }
    const auto& journal = line.undo->journal.empty() ? line.folder : line.undo->journal;
    return undo(std::get<UndoPlan>(plan), *line.undo, journal, surroundings, output);
}

} // namespace

Surroundings ownSurroundings(const std::string& program)
{
    return {.makeLink =
                [](const mqtt::BrokerAddress& address, const std::string& client) {
                    return std::make_unique<mqtt::BrokerLink>(
                        mqtt::BrokerLinkSettings{.address = address, .client = client});
                },
        .clock = mqtt::steadyClock(),
        .now = systemTime,
        .computer = portable::computerName(program)};
}

Status runTool(
    const std::vector<std::string>& arguments, const Surroundings& surroundings, ToolOutput& output)
try {
    const auto parsed = parseCommandLine(arguments);
    if (const auto* const problem = std::get_if<std::string>(&parsed)) {
        output.errors.append("servo-journal: ").append(*problem).append("\n\n").append(usage());
        return Status::Failed;
    }
    const auto& line = std::get<CommandLine>(parsed);
    if (line.help) {
        output.text = usage();
        return Status::Good;
    }
    Journal journal = readJournal(line.folder);
    for (const machine::Problem& problem : journal.problems)
        output.errors.append(problem.text()).append("\n");
    std::erase_if(journal.entries, [&](const Entry& entry) { return !line.filter.admits(entry); });
    if (line.undo) return takeBack(line, journal.entries, surroundings, output);
    output.text = line.csv ? csvOf(journal.entries) : tableOf(journal.entries);
    if (!journal.isWhole) return Status::Failed;
    return journal.problems.empty() ? Status::Good : Status::Findings;
} catch (const basic::Error& error) {
    output.errors.append("servo-journal: ").append(error.description).append("\n");
    return Status::Failed;
}

} // namespace servopanel::journal
