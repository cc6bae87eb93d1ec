#include "report.h"

#include "figures.h"

#include <mosquitto.h>

#include <algorithm>
#include <ctime>
#include <numeric>
#include <sstream>

namespace servopanel::bench {

namespace {

std::string today()
{
    const std::time_t now = std::time(nullptr);
    char text[sizeof "2000-01-01"];
    std::strftime(text, sizeof text, "%F", std::localtime(&now));
    return text;
}

std::string row(const std::string& what, const std::vector<std::string>& cells)
{
    std::string text{"| "};
    text.append(what);
    for (const std::string& cell : cells)
        text.append(" | ").append(cell);
    return text.append(" |\n");
}

std::string unit(double value, int decimals, const char* unit)
{
    return decimal(value, decimals).append(" ").append(unit);
}

std::string row(const std::string& what, const RunningLine::Shares& shares)
{
    std::vector<std::string> cells;
    for (const double share : {shares.panel, shares.broker, shares.machines, shares.others})
        cells.push_back(unit(share, 1, "%"));
    return row(what, cells);
}

std::string percentiles(const std::string& what, const std::vector<double>& times)
{
    std::vector<std::string> cells;
    for (const double share : {0.5, 0.9, 0.99, 0.999, 1.0})
        cells.push_back(unit(percentile(times, share), 3, "ms"));
    return row(what, cells);
}

void describe(std::ostream& out, const Findings& findings)
{
    const int machines = findings.size.machines;
    const int servos = machines * findings.size.servos;
    int major = 0;
    int minor = 0;
    int revision = 0;
    mosquitto_lib_version(&major, &minor, &revision);
    out << "# Measurements\n\nWritten by `./measure line` on " << today() << ". " << describeComputer()
        << ";\nMosquitto and libmosquitto " << major << '.' << minor << '.' << revision << ", Qt "
        << QT_VERSION_TEXT << ", g++ " << __VERSION__ << ", optimised.\n\n"
        << "## A line of " << machines << " machines with " << findings.size.servos << " servos each\n\n"
        << "One broker on a socket file, all machines in one `servo-machine` with a connection for each, one "
           "`servo-panel` without\na screen on the page of a servo. "
        << servos * variablesOfServo
        << " process variables; of each servo the 40 values of both diagnosis pages "
        << "change\nevery " << findings.size.periodMilliseconds << " ms: " << decimal(findings.valuesOfAll, 0)
        << " values in a second were counted, " << decimal(findings.valuesOfOne, 0)
        << " with the shown machine\nalone. A value is a message with a whole array.\n\n";
}

void tellStart(std::ostream& out, const Findings& findings)
{
    const std::vector<double>& starts = findings.panelStarts;
    out << "| | |\n| --- | --- |\n"
        << row("`servo-machine`: from its start until its last machine is live",
               {unit(findings.machinesUp, 2, "s")})
        << row("panel: from its start until its page has read the servo's setpoints, median of "
                   + std::to_string(starts.size()),
               {unit(percentile(starts, 0.5), 2, "s")})
        << row("the same, quickest and slowest",
               {unit(*std::min_element(starts.begin(), starts.end()), 2, "s").append(", ")
                   + unit(*std::max_element(starts.begin(), starts.end()), 2, "s")})
        << row("memory (resident) of the panel", {unit(findings.memories.panel, 1, "MiB")})
        << row("memory of the broker", {unit(findings.memories.broker, 1, "MiB")})
        << row("memory of `servo-machine`", {unit(findings.memories.machines, 1, "MiB")})
        << "\nPanel and `servo-machine` read a project that names all " << findings.size.machines
        << " machines.\n\n";
}

void tellRefresh(std::ostream& out, const Findings& findings)
{
    const auto& [all, alone] = std::pair{findings.all, findings.alone};
    out << "Shares of one processor over " << decimal(findings.seconds, 0)
        << " s:\n\n| on the broker | panel | broker | `servo-machine` | all else on the computer |\n"
           "| --- | --- | --- | --- | --- |\n"
        << row("all machines", all) << row("the shown machine alone", alone)
        << row("ratio",
               {decimal(all.panel / alone.panel, 2), decimal(all.broker / alone.broker, 2),
                   decimal(all.machines / alone.machines, 2), ""})
        << "\nA panel follows the machine that it shows. Somebody who followed all of them would spend "
        << unit(findings.followingAll, 1, "%")
        << " of a processor on\nthat alone, without showing anything.\n\n";
}

void tellWrites(std::ostream& out, const Findings& findings)
{
    out << "From a write to its answer, " << findings.writes.size()
        << " writes of 20 setpoints one after the other, to each servo of a machine in turn, while all\nof "
           "that "
           "runs:\n\n```text\n"
        << histogram(findings.writes, "ms")
        << "```\n\n| not longer than | half | 90 % | 99 % | 99.9 % | all |\n| --- | --- | --- | --- | --- | "
           "--- |\n"
        << percentiles("a write until its answer", findings.writes)
        << percentiles(
               "a message of 300 bytes to the broker and back, the least that there can be", findings.echoes)
        << "\nHalf of the writes take "
        << decimal(percentile(findings.writes, 0.5) / percentile(findings.echoes, 0.5), 1)
        << " times as long as such a message. The panel gives a machine 750 ms.\n\n";
}

} // namespace

std::string report(const Findings& findings)
{
    std::ostringstream out;
    describe(out, findings);
    tellStart(out, findings);
    tellRefresh(out, findings);
    tellWrites(out, findings);
    out << "What this does not show: a network, encrypted connections, slow controllers and other panels. "
           "Broker, machines, "
           "panel\nand the program that measures share the processors of one computer. The simulated "
           "machines are not real "
           "ones, and whatever\nthe programs read from disk was in the system's cache.\n";
    return out.str();
}

} // namespace servopanel::bench
