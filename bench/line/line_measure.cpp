// What a whole line costs on one broker: memory, start of a panel, refresh, the time from a write to its answer.
//
//   line_measure [FILE]     prints what was found as JSON, or writes it into FILE
#include "basic/error.h"
#include "follower.h"
#include "report.h"
#include "running_line.h"
#include "stopwatch.h"

#include <cstdlib>
#include <ctime>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace servopanel::bench {

namespace {

constexpr int starts = 20;
constexpr int writes = 5000;
constexpr int echoes = 5000;
constexpr std::size_t echoBytes = 300; // about what a command of 20 setpoints has
constexpr double settleSeconds = 4;
constexpr double measuredSeconds = 20;
constexpr int timesMeasured = 5; // so that it is seen how much it differs by itself
constexpr double countedSeconds = 10;

std::vector<RunningLine::Shares> sharesOf(const RunningLine& line)
{
    line.sharesOver(settleSeconds);
    std::vector<RunningLine::Shares> shares;
    for (int i = 0; i < timesMeasured; ++i)
        shares.push_back(line.sharesOver(measuredSeconds));
    return shares;
}

// What following all machines takes of a processor, in percent.
double shareOfFollowing(const RunningLine& line, const LineSize& size)
{
    Follower all{line.socket(), allMachines(size)};
    all.waitForAll();
    all.follow(settleSeconds);
    const Stopwatch watch;
    const std::clock_t before = std::clock();
    all.follow(measuredSeconds);
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / watch.seconds() * 100;
}

// From the call until it returns, in milliseconds: commands to one servo after the other.
std::vector<double> writeTimes(const RunningLine& line, const LineSize& size)
{
    Follower follower{line.socket(), {"M1"}};
    follower.waitForAll();
    follower.variables.setLevel(5);
    std::vector<double> times;
    for (int i = 0; i < writes; ++i) {
        const std::string name = variableName(1, i % size.servos + 1, "servo_para");
        follower.waitUntilGood(name);
        const basic::Variant setpoints = basic::doubles(std::vector<double>(20, i % 1000));
        const Stopwatch watch;
        follower.variables.WriteValue(name, setpoints);
        times.push_back(watch.seconds() * 1000);
    }
    return times;
}

Findings measure()
{
    Findings findings;
    findings.seconds = measuredSeconds;
    RunningLine line{findings.size};
    findings.machinesUp = line.startMachines(allMachines(findings.size));
    for (int i = 0; i < starts; ++i)
        findings.panelStarts.push_back(line.startPanel());
    std::cerr << "started; now what it costs\n";
    findings.all = sharesOf(line);
    findings.memories = line.memories();
    findings.valuesOfAll = valuesPerSecond(line.socket(), countedSeconds);
    std::cerr << "now writes\n";
    findings.writes = writeTimes(line, findings.size);
    findings.echoes = timesToTheBrokerAndBack(line.socket(), echoes, echoBytes);
    std::cerr << "now somebody who follows all machines\n";
    findings.followingAll = shareOfFollowing(line, findings.size);
    std::cerr << "now one machine alone\n";
    line.startMachines({"M1"});
    findings.alone = sharesOf(line);
    findings.valuesOfOne = valuesPerSecond(line.socket(), countedSeconds);
    return findings;
}

} // namespace

} // namespace servopanel::bench

int main(int count, char** arguments)
try {
    const std::string text = servopanel::bench::report(servopanel::bench::measure());
    if (count == 1) {
        std::cout << text;
        return EXIT_SUCCESS;
    }
    std::ofstream file{arguments[1]};
    file << text;
    if (!file.flush()) throw std::runtime_error{std::string{"cannot write "}.append(arguments[1])};
    return EXIT_SUCCESS;
} catch (const servopanel::basic::Error& error) {
    std::cerr << "line_measure: " << error.description << '\n';
    return EXIT_FAILURE;
} catch (const std::exception& error) {
    std::cerr << "line_measure: " << error.what() << '\n';
    return EXIT_FAILURE;
}
