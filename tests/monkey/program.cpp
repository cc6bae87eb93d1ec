#include "monkey/program.h"

#include "support/standard_project.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace servopanel::monkey {

namespace {

struct Options {
    unsigned seed = 1;
    unsigned runs = 0;
    unsigned commands = 0;
    unsigned days = 0;
    std::string keep = ".";
};

bool number(std::string_view text, unsigned& value)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} && result.ptr == text.data() + text.size();
}

bool take(std::string_view option, std::string_view value, Options& options)
{
    if (option == "--seed") return number(value, options.seed);
    if (option == "--runs") return number(value, options.runs);
    if (option == "--commands") return number(value, options.commands);
    if (option == "--days") return number(value, options.days) && options.days > 0;
    options.keep = value;
    return option == "--keep" && !value.empty();
}

// The project and the commands that matter, for servo-replay.
std::string keepScenario(const Finding& least, const std::string& folder, unsigned seed)
{
    const std::string file = folder + "/monkey_" + std::to_string(seed) + ".scenario";
    std::ofstream out{file};
    out << "# " << least.rule << "\n" << testing::standardProject;
    for (const std::string& command : least.commands)
        out << command << "\n";
    return file;
}

} // namespace

int runProgram(int count, char** arguments, const Kind& kind)
{
    Options options;
    options.runs = kind.runs;
    options.commands = kind.commands;
    for (int i = 1; i < count; i += 2) {
        const std::string_view option = arguments[i];
        const std::string_view value = i + 1 < count ? arguments[i + 1] : "";
        if (take(option, value, options) && (options.days == 0 || kind.playDays)) continue;
        std::fputs(kind.usage.data(), option == "--help" ? stdout : stderr);
        return option == "--help" ? 0 : 2;
    }
    if (options.days > 0) return kind.playDays(options.days) ? 0 : 1;

    const auto start = std::chrono::steady_clock::now();
    for (unsigned run = 0; run < options.runs; ++run) {
        const unsigned seed = options.seed + run;
        const auto found = kind.playSeed(seed, options.commands);
        if (!found) continue;
        std::printf("seed %u: %s\n  at command %zu\n", seed, found->rule.c_str(), found->commands.size());
        std::fflush(stdout);
        const Finding least = shrunk(*found, kind.play);
        std::printf("  %zu commands are enough for it: %s\n", least.commands.size(),
            keepScenario(least, options.keep, seed).c_str());
        return 1;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("%u runs of %u commands in %.0f s: all rules held\n", options.runs, options.commands,
        seconds.count());
    return 0;
}

} // namespace servopanel::monkey
