#include "params/tool.h"

#include "basic/error.h"
#include "params/command_line.h"
#include "params/commands.h"
#include "params/sources.h"

#include <unistd.h>

#include <iostream>
#include <variant>

namespace servopanel::params {

namespace {

std::optional<std::string> askOnTerminal(const std::string& question)
{
    std::cout << question << std::flush;
    std::string answer;
    return std::getline(std::cin, answer) ? std::optional{answer} : std::nullopt;
}

Status run(const CommandLine& line, const Surroundings& surroundings, ToolOutput& output)
{
    switch (line.command) {
    case CommandLine::Command::Dump: return dump(line, surroundings, output);
    case CommandLine::Command::Diff: return diff(line, surroundings, output);
    case CommandLine::Command::Load: return load(line, surroundings, output);
    case CommandLine::Command::Help: break;
    }
    output.text = usage();
    return Status::Equal;
}

} // namespace

Surroundings ownSurroundings()
{
    Surroundings own{journal::ownSurroundings("servo-params"), {}, {}};
    own.show = [](const std::string& lines) { std::cerr << lines << std::flush; };
    if (::isatty(STDIN_FILENO) != 0) own.ask = askOnTerminal;
    return own;
}

Status runTool(
    const std::vector<std::string>& arguments, const Surroundings& surroundings, ToolOutput& output)
try {
    const auto parsed = parseCommandLine(arguments);
    if (const auto* const problem = std::get_if<std::string>(&parsed)) {
        tell(output, *problem + "; servo-params --help shows what there is");
        return Status::Trouble;
    }
    return run(std::get<CommandLine>(parsed), surroundings, output);
} catch (const basic::Error& error) {
    tell(output, error.description);
    return Status::Trouble;
}

} // namespace servopanel::params
