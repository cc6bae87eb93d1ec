#include "monkey/kept_scenario.h"

#include "monkey/project.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace servopanel::monkey {

namespace {

constexpr std::string_view commandsBegin = "# From here on it is operated.";

bool isOfThePanel(std::string_view command) { return command.starts_with(panelOnly); }

// With which a command of several lines ends.
std::string_view endOf(std::string_view line)
{
    if (isOfThePanel(line)) return panelEnd;
    return line.starts_with("file ") ? "end" : "";
}

// Those of several lines stay together, and so do the rows of a table that is made.
Commands split(std::istream& lines)
{
    Commands commands;
    for (std::string line; std::getline(lines, line);) {
        if (line.empty()) continue;
        const bool isNextRow = line.starts_with("db ") && !line.ends_with(" empty") && !commands.empty()
            && commands.back().starts_with("db ");
        if (isNextRow)
            commands.back().append("\n").append(line);
        else
            commands.push_back(line);
        const std::string end{endOf(line)};
        while (!end.empty() && line != end && std::getline(lines, line))
            commands.back().append("\n").append(line);
    }
    return commands;
}

} // namespace

std::string asScenario(const std::string& command, const std::string& came)
{
    const bool isJustThat = came == command || came == command + "\n";
    if (isJustThat) return command;
    std::string scenario{isOfThePanel(command) ? std::string_view{} : panelOnly};
    scenario.append(command, 0, command.find('\n')).append("\n");
    return scenario.append(came).append(panelEnd);
}

std::string ofThePanel(const std::string& command)
{
    return isOfThePanel(command) ? command.substr(0, command.find('\n')) : command;
}

Commands ofTheLibrary(const Commands& commands)
{
    Commands all;
    for (const std::string& command : commands) {
        if (!isOfThePanel(command)) {
            all.push_back(command);
            continue;
        }
        std::istringstream came{command};
        std::string line;
        std::getline(came, line);
        for (std::string& inside : split(came))
            if (inside != panelEnd) all.push_back(std::move(inside));
    }
    return all;
}

std::string scenarioOf(const Finding& finding)
{
    std::string rule = finding.rule;
    for (char& sign : rule)
        if (sign == '\n') sign = ' ';
    std::string scenario = "# ";
    scenario.append(rule).append("\n").append(monkeyProject());
    scenario.append(commandsBegin).append("\n");
    for (std::string command : finding.commands) {
        if (isOfThePanel(command) && !command.ends_with(panelEnd)) command = asScenario(command, {});
        scenario.append(command).append(command.ends_with('\n') ? "" : "\n");
    }
    return scenario;
}

Commands commandsIn(const std::string& scenario)
{
    std::istringstream lines{scenario};
    std::string line;
    while (line != commandsBegin)
        if (!std::getline(lines, line)) throw std::runtime_error{"no scenario of a random operator"};
    return split(lines);
}

std::string keep(const Finding& finding, const std::string& folder, std::string_view program, unsigned seed)
{
    std::string file = folder + "/";
    file.append(program).append("_").append(std::to_string(seed)).append(".scenario");
    std::ofstream out{file};
    out << scenarioOf(finding) << std::flush;
    if (!out) throw std::runtime_error{file + " cannot be written"};
    return file;
}

Commands readKept(const std::string& file)
{
    std::ifstream in{file};
    if (!in) throw std::runtime_error{file + " cannot be read"};
    return commandsIn({std::istreambuf_iterator<char>{in}, {}});
}

} // namespace servopanel::monkey
