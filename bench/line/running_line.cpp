#include "running_line.h"

#include "follower.h"
#include "stopwatch.h"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace servopanel::bench {

namespace {

using tests::contentOf;

void sleepFor(double seconds) { ::usleep(static_cast<useconds_t>(seconds * 1e6)); }

} // namespace

std::vector<std::string> allMachines(const LineSize& size)
{
    std::vector<std::string> names;
    for (int machine = 1; machine <= size.machines; ++machine)
        names.push_back("M" + std::to_string(machine));
    return names;
}

RunningLine::RunningLine(const LineSize& size)
    : project_{folder() / "project"}
    , socket_{folder() / "broker"}
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("TEMPVELM", (folder() / "temporary").c_str(), 1);
    std::filesystem::create_directories(folder() / "temporary");
    writeProject(project_, DEMO_PROJECT, size);
    std::ofstream{folder() / "mosquitto.conf"}
        << "listener 0 " << socket_.string()
        << "\nuser root\nallow_anonymous true\npersistence false\nlog_dest none\n";
    broker_ = start({SERVOPANEL_MOSQUITTO, "-c", folder() / "mosquitto.conf"});
    for (const Stopwatch watch; !std::filesystem::exists(socket_); sleepFor(0.001))
        watch.failAfterLong("the broker does not come up: " + endOf("output"));
}

double RunningLine::startMachines(const std::vector<std::string>& machines)
{
    machines_.reset();
    std::vector<std::string> words{SERVO_MACHINE, project_, "--broker", "unix:" + socket_.string()};
    for (const std::string& machine : machines)
        words.insert(words.end(), {"--machine", machine});
    const Stopwatch watch;
    machines_ = start(words);
    // They come up in their order, more or less, and following all of them would be work beside what is measured.
    Follower{socket_, {machines.back()}}.waitForAll();
    return watch.seconds();
}

double RunningLine::startPanel()
{
    panel_.reset();
    const std::filesystem::path trace = folder() / "trace";
    std::filesystem::remove(trace);
    const std::string wanted = "read " + variableName(1, 1, "servo_para") + " = ";
    const Stopwatch watch;
    panel_ = start(
        {SERVO_PANEL, project_, "--broker", "unix:" + socket_.string(), "--name", "P1", "--trace", trace});
    // A message on the screen, which nobody answers here, would be the last line of the trace.
    for (; contentOf(trace).find(wanted) == std::string::npos; sleepFor(0.002)) {
        watch.failAfterLong("the panel reads no values: " + endOf("trace") + endOf("output"));
        if (!panel_->isRunning()) throw std::runtime_error{"the panel has ended: " + endOf("output")};
    }
    return watch.seconds();
}

RunningLine::Shares RunningLine::sharesOver(double seconds) const
{
    const Stopwatch watch;
    const Shares before = secondsSpent();
    sleepFor(seconds);
    const Shares after = secondsSpent();
    const double percent = 100 / watch.seconds();
    return {(after.panel - before.panel) * percent, (after.broker - before.broker) * percent,
        (after.machines - before.machines) * percent, (after.others - before.others) * percent};
}

RunningLine::Memories RunningLine::memories() const
{
    return {residentMebibytes(panel_->id()), residentMebibytes(broker_->id()),
        residentMebibytes(machines_->id())};
}

std::unique_ptr<Process> RunningLine::start(const std::vector<std::string>& words) const
{
    return std::make_unique<Process>(words, folder() / "output");
}

// Enough to see what is wrong.
std::string RunningLine::endOf(const char* file) const
{
    constexpr std::size_t longest = 500;
    const std::string all = contentOf(folder() / file);
    return all.substr(all.size() - std::min(all.size(), longest));
}

RunningLine::Shares RunningLine::secondsSpent() const
{
    Shares spent{processorSeconds(panel_->id()), processorSeconds(broker_->id()),
        processorSeconds(machines_->id()), busySeconds()};
    spent.others -= spent.panel + spent.broker + spent.machines;
    return spent;
}

} // namespace servopanel::bench
