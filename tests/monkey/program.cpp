#include "monkey/program.h"

#include "monkey/in_child.h"
#include "monkey/kept_scenario.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace servopanel::monkey {

namespace {

constexpr int held = 0;
constexpr int broken = 1;
constexpr int misunderstood = 2;

constexpr std::string_view crash = "a crash: ";

struct Options {
    unsigned seed = 1;
    unsigned runs = 0;
    unsigned commands = 0;
    unsigned days = 0;
    std::string keep; // empty: the folder for temporary files
    std::string play;
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
    std::string& text = option == "--play" ? options.play : options.keep;
    text = value;
    return (option == "--keep" || option == "--play") && !value.empty();
}

// What was played as one text and back: the counts, the rule, the commands.
constexpr char separator = '\x1f';

std::string asText(const Played& played)
{
    std::string text = played.tally.lines();
    text.append(1, separator).append(played.finding ? played.finding->rule : "");
    for (const std::string& command : played.commands)
        text.append(1, separator).append(command);
    return text;
}

Played fromText(std::string_view text)
{
    const auto next = [&text] {
        const std::string_view part = text.substr(0, text.find(separator));
        text.remove_prefix(std::min(part.size() + 1, text.size()));
        return std::string{part};
    };
    Played played{std::nullopt, Tally::fromLines(next()), {}};
    const std::string rule = next();
    while (!text.empty())
        played.commands.push_back(next());
    if (!rule.empty()) played.finding = Finding{rule, played.commands};
    return played;
}

int playAgain(const Kind& kind, const std::string& file)
{
    const Played again = playedInChild(readKept(file), kind);
    std::printf("%s: %s\n", file.c_str(), again.finding ? again.finding->rule.c_str() : "all rules held");
    return again.finding ? broken : held;
}

// A crash takes along what was noted about its commands; those before it are played once more for that.
Finding asPlayed(const Finding& found, const Kind& kind)
{
    if (!found.rule.starts_with(crash) || found.commands.empty()) return found;
    const Played before = playedInChild({found.commands.begin(), found.commands.end() - 1}, kind, found.rule);
    if (before.finding) return found;
    Finding noted{found.rule, before.commands};
    noted.commands.push_back(found.commands.back());
    return noted;
}

int report(const Kind& kind, const Options& options, unsigned seed, const Finding& found)
{
    std::printf("seed %u: %s\n  at command %zu\n", seed, found.rule.c_str(), found.commands.size());
    std::fflush(stdout);
    const Finding least = asPlayed(
        shrunk(found,
            [&](const Commands& commands) { return playedInChild(commands, kind, found.rule).finding; }),
        kind);
    std::printf("  %zu commands are enough for it: ", least.commands.size());
    try {
        std::printf("%s\n", keep(least, options.keep, kind.name, seed).c_str());
    } catch (const std::exception& error) {
        std::printf("%s\n%s", error.what(), scenarioOf(least).c_str());
    }
    return broken;
}

int playRuns(const Kind& kind, const Options& options)
{
    const auto start = std::chrono::steady_clock::now();
    Tally tally;
    for (unsigned run = 0; run < options.runs; ++run) {
        const unsigned seed = options.seed + run;
        const Played played = playedInChild(kind.commandsOf(seed, options.commands), kind);
        if (played.finding) return report(kind, options, seed, *played.finding);
        tally.add(played.tally);
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("%u runs of %u commands in %.0f s: all rules held; %s\n", options.runs, options.commands,
        seconds.count(), tally.text().c_str());
    return held;
}

} // namespace

Played playedInChild(const Commands& commands, const Kind& kind, std::string_view rule)
{
    const ChildEnd end =
        inChild([&](const Progress& tell) { return asText(kind.played(commands, tell, rule)); });
    if (end.crash.empty()) return fromText(end.result);
    // A leak that a sanitizer finds at the end of the process belongs to no command.
    const std::size_t until = std::min(end.place + 1, commands.size());
    const auto last = commands.begin() + static_cast<std::ptrdiff_t>(until);
    return {Finding{std::string{crash} + end.crash, {commands.begin(), last}}, {}, {}};
}

int runProgram(int count, const char* const* arguments, const Kind& kind)
{
    Options options;
    options.runs = kind.runs;
    options.commands = kind.commands;
    for (int i = 1; i < count; i += 2) {
        const std::string_view option = arguments[i];
        const std::string_view value = i + 1 < count ? arguments[i + 1] : "";
        if (take(option, value, options) && (options.days == 0 || kind.playDays)) continue;
        std::fputs(kind.usage.data(), option == "--help" ? stdout : stderr);
        return option == "--help" ? held : misunderstood;
    }
    if (options.days > 0) return kind.playDays(options.days) ? held : broken;
    try {
        if (!options.play.empty()) return playAgain(kind, options.play);
        if (options.keep.empty()) options.keep = std::filesystem::temp_directory_path().string();
        if (!std::filesystem::is_directory(options.keep))
            throw std::runtime_error{"the folder " + options.keep + " for what is found does not exist"};
        return playRuns(kind, options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return misunderstood;
    }
}

} // namespace servopanel::monkey
