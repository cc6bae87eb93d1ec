#include "basic/error.h"
#include "jet/servo_defs/definition_list.h"
#include "line_machine/command_line.h"
#include "line_machine/line.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
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
    const std::filesystem::path file = project / "Servo" / "Servo.mdb";
    std::error_code error;
    if (std::filesystem::symlink_status(file, error).type() == std::filesystem::file_type::not_found) {
        std::cerr << "'" << file.string() << "': there is no such file; no access level is checked\n";
        return {};
    }
    return jet::loadDefinitions(file).rows;
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
