#include "basic/error.h"
#include "line_machine/command_line.h"
#include "line_machine/line.h"
#include "line_machine/project_definitions.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace {

using namespace servopanel;

constexpr int period = 20; // milliseconds

volatile std::sig_atomic_t stopped = 0;

// Without definitions no write needs a level; whoever runs the machine should know. One that has them and cannot read them
// does not start: it would let everybody write everything.
std::vector<jet::DefinitionRow> definitionsOf(const std::filesystem::path& project)
{
    if (auto rows = line_machine::projectDefinitions(project)) return *std::move(rows);
    std::cerr << "'" << line_machine::definitionsFile(project).string()
              << "': there is no such file; no access level is checked\n";
    return {};
}

int run(const line_machine::CommandLine& line)
{
    const machine::ProjectFile project = machine::ProjectFile::load(line.project / "project.json");
    for (const machine::Problem& problem : project.problems)
        std::cerr << problem.text() << '\n';
    if (!project.isWhole) return EXIT_FAILURE;

    const std::vector<std::string> known = line_machine::machinesOf(project);
    for (const std::string& machine : line.machines)
        if (std::find(known.begin(), known.end(), machine) == known.end()) {
            std::cerr << "The project has no machine " << machine << ".\n";
            return EXIT_FAILURE;
        }
    using namespace std::chrono;
    const auto epoch = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    line_machine::Line machines{project,
        {.broker = line.broker,
            .machines = line.machines.empty() ? known : line.machines,
            .definitions = definitionsOf(line.project),
            .epoch = epoch,
            .faults = line.faults}};
    std::signal(SIGINT, [](int) { stopped = 1; });
    std::signal(SIGTERM, [](int) { stopped = 1; });
    while (!stopped) {
        machines.run(period);
        for (const std::string& news : machines.takeNews())
            std::cout << news << std::endl;
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int count, char** arguments)
try {
    const auto parsed = line_machine::parseCommandLine({arguments + 1, arguments + count});
    if (const auto* const problem = std::get_if<std::string>(&parsed)) {
        std::cerr << "servo-machine: " << *problem << "\n\n" << line_machine::usage();
        return EXIT_FAILURE;
    }
    const auto& line = std::get<line_machine::CommandLine>(parsed);
    if (!line.help) return run(line);
    std::cout << line_machine::usage();
    return EXIT_SUCCESS;
} catch (const basic::Error& error) {
    std::cerr << "servo-machine: " << error.description << '\n';
    return EXIT_FAILURE;
} catch (const std::exception& error) {
    std::cerr << "servo-machine: " << error.what() << '\n';
    return EXIT_FAILURE;
}
