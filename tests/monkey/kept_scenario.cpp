#include "monkey/kept_scenario.h"

#include "monkey/project.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace servopanel::monkey {

namespace {

constexpr std::string_view commandsBegin = "# From here on it is operated.";

} // namespace

std::string scenarioOf(const Finding& finding)
{
    std::string rule = finding.rule;
    for (char& sign : rule)
        if (sign == '\n') sign = ' ';
    std::string scenario = "# ";
    scenario.append(rule).append("\n").append(monkeyProject());
    scenario.append(commandsBegin).append("\n");
    for (const std::string& command : finding.commands)
        scenario.append(command).append(command.ends_with('\n') ? "" : "\n");
    return scenario;
}

Commands commandsIn(const std::string& scenario)
{
    std::istringstream lines{scenario};
    std::string line;
    while (line != commandsBegin)
        if (!std::getline(lines, line)) throw std::runtime_error{"no scenario of a random operator"};
    Commands commands;
    while (std::getline(lines, line)) {
        if (line.empty()) continue;
        commands.push_back(line);
        if (!line.starts_with("file ")) continue;
        while (line != "end" && std::getline(lines, line))
            commands.back().append("\n").append(line);
    }
    return commands;
}

std::string keep(const Finding& finding, const std::string& folder, unsigned seed)
{
    std::string file = folder + "/monkey_";
    file.append(std::to_string(seed)).append(".scenario");
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
