#include "recording/replay.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using servopanel::recording::Replay;
using servopanel::recording::ScenarioError;

constexpr int malformed = 2;

constexpr std::string_view usage =
    R"(servo-replay SCENARIO [--project DIR]

Plays a scenario on the servo pages without a screen and prints everything that they ask of their
surroundings, one line each. SCENARIO is a file, or - for standard input.

  --project DIR   takes files, pictures and the database from a project folder; it is only read
  --help          shows this

Ends with 0 when the scenario was played, with 2 when it is malformed.
)";

struct Options {
    std::string scenario;
    std::optional<std::string> project;
    bool help = false;
};

// Nothing when the command line is not understood.
std::optional<Options> optionsOf(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help" || argument == "-h")
            options.help = true;
        else if (argument == "--project" && i + 1 < arguments.size())
            options.project = arguments[++i];
        else if (argument.substr(0, 10) == "--project=")
            options.project = argument.substr(10);
        else if ((argument.substr(0, 1) == "-" && argument != "-") || !options.scenario.empty())
            return std::nullopt;
        else
            options.scenario = argument;
    }
    if (!options.help && options.scenario.empty()) return std::nullopt;
    return options;
}

std::optional<std::string> textOf(const std::string& file)
{
    if (file == "-") return std::string{std::istreambuf_iterator<char>{std::cin}, {}};
    std::ifstream in{file, std::ios::binary};
    if (!in) return std::nullopt;
    std::string text{std::istreambuf_iterator<char>{in}, {}};
    if (in.bad()) return std::nullopt;
    return text;
}

int play(const Options& options)
{
    const std::optional<std::string> text = textOf(options.scenario);
    if (!text) {
        std::cerr << "servo-replay: cannot read " << options.scenario << '\n';
        return malformed;
    }
    try {
        const auto steps = servopanel::recording::parseScenario(*text);
        Replay replay{servopanel::recording::makeLibrary,
            [](std::string_view lines) { std::cout << lines << std::flush; }};
        if (options.project) replay.player().useProjectFolder(*options.project);
        replay.play(steps);
    } catch (const ScenarioError& error) {
        std::cerr << options.scenario << ':' << error.line() << ": " << error.what() << '\n';
        return malformed;
    } catch (const servopanel::recording::Malformed& problem) {
        std::cerr << "servo-replay: " << problem.reason << '\n';
        return malformed;
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    std::ios::sync_with_stdio(false);
    const std::optional<Options> options = optionsOf({argv + 1, argv + argc});
    if (!options) {
        std::cerr << usage;
        return malformed;
    }
    if (options->help) {
        std::cout << usage;
        return 0;
    }
    return play(*options);
}
