#include "journal/tool.h"

#include "basic/error.h"
#include "journal/command_line.h"
#include "journal/journal_reader.h"

#include <variant>

namespace servopanel::journal {

Status runTool(const std::vector<std::string>& arguments, ToolOutput& output)
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
    output.text = line.csv ? csvOf(journal.entries) : tableOf(journal.entries);
    if (!journal.isWhole) return Status::Failed;
    return journal.problems.empty() ? Status::Good : Status::Findings;
} catch (const basic::Error& error) {
    output.errors.append("servo-journal: ").append(error.description).append("\n");
    return Status::Failed;
}

} // namespace servopanel::journal
