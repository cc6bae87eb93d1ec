// What a whole line costs on one broker: memory, start of a panel, refresh, the time from a write to its answer.
//
//   line_measure [FILE]     prints the figures, and writes them into FILE instead when there is one
#include "basic/error.h"
#include "big_line.h"
#include "figures.h"
#include "mqtt/broker_link.h"
#include "mqtt/broker_variables.h"
#include "process.h"

#include <stdlib.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace servopanel::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr LineSize size;
constexpr int starts = 5;
constexpr int writes = 2000;
constexpr double settleSeconds = 5;
constexpr double measuredSeconds = 20;
constexpr double mostSeconds = 120; // until something has come

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

class Folder {
public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "servopanel-line-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error{"cannot make " + name};
        path_ = name;
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

// Follows machines of the line without a screen.
class Follower {
public:
    Follower(const std::filesystem::path& socket, const std::vector<std::string>& machines)
        : link_{{.address = addressOf(socket), .client = "follower"}}
        , machines_{machines}
        , variables{{.panel = "follower", .machines = machines}, link_}
    {
    }

    // Until all values of all machines may be there.
    void waitForAll()
    {
        const auto start = Clock::now();
        const auto areLive = [this] {
            for (const std::string& machine : machines_)
                if (!variables.isLive(machine)) return false;
            return true;
        };
        while (!areLive()) {
            if (secondsSince(start) > mostSeconds) throw std::runtime_error{"the machines do not come up"};
            variables.poll(20);
        }
    }
    void follow(double seconds)
    {
        for (const auto start = Clock::now(); secondsSince(start) < seconds;)
            variables.poll(20);
    }

private:
    static mqtt::BrokerAddress addressOf(const std::filesystem::path& socket)
    {
        mqtt::BrokerAddress address;
        address.socket = socket;
        return address;
    }

    mqtt::BrokerLink link_;
    std::vector<std::string> machines_;

public:
    mqtt::BrokerVariables variables;
};

std::vector<std::string> allMachines()
{
    std::vector<std::string> names;
    for (int machine = 1; machine <= size.machines; ++machine)
        names.push_back("M" + std::to_string(machine));
    return names;
}

class Line {
public:
    Line()
        : project_{folder_ / "project"}
        , socket_{folder_ / "broker"}
    {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("TEMPVELM", (folder_ / "temporary").c_str(), 1);
        std::filesystem::create_directories(folder_ / "temporary");
        writeProject(project_, size);
        std::ofstream{folder_ / "mosquitto.conf"}
            << "listener 0 " << socket_.string()
            << "\nuser root\nallow_anonymous true\npersistence false\nlog_dest none\n";
        broker = start({SERVOPANEL_MOSQUITTO, "-c", folder_ / "mosquitto.conf"});
        for (const auto begin = Clock::now(); !std::filesystem::exists(socket_);) {
            if (secondsSince(begin) > mostSeconds) throw std::runtime_error{"the broker does not come up"};
            ::usleep(1000);
        }
    }

    // Until the last of them is live, in seconds.
    double startMachines(const std::vector<std::string>& only = {})
    {
        machines.reset();
        std::vector<std::string> words{SERVO_MACHINE, project_, "--broker", "unix:" + socket_.string()};
        for (const std::string& machine : only)
            words.insert(words.end(), {"--machine", machine});
        const auto begin = Clock::now();
        machines = start(words);
        // They come up in their order, and following all of them would be work beside what is measured.
        Follower{socket_, {only.empty() ? allMachines().back() : only.back()}}.waitForAll();
        return secondsSince(begin);
    }

    void startPanel(const std::vector<std::string>& options = {})
    {
        panel.reset();
        std::vector<std::string> words{
            SERVO_PANEL, project_, "--broker", "unix:" + socket_.string(), "--name", "P1"};
        words.insert(words.end(), options.begin(), options.end());
        panel = start(words);
    }

    // Until the page has the setpoints of its servo, in seconds.
    double startPanelToFirstValues()
    {
        const std::filesystem::path trace = folder_ / "trace";
        std::filesystem::remove(trace);
        const std::string found = "read " + variableName(1, 1, "servo_para") + " = ";
        const auto begin = Clock::now();
        startPanel({"--trace", trace});
        while (secondsSince(begin) < mostSeconds) {
            std::ifstream in{trace};
            const std::string all{std::istreambuf_iterator<char>{in}, {}};
            if (all.find(found) != std::string::npos) return secondsSince(begin);
            if (!panel->isRunning()) throw std::runtime_error{"the panel has ended: " + output()};
            ::usleep(2000);
        }
        throw std::runtime_error{"the panel reads no values: " + output()};
    }

    struct Shares {
        double broker = 0; // percent of one processor
        double machines = 0;
        double panel = 0;
    };
    Shares shares() const
    {
        ::usleep(static_cast<useconds_t>(settleSeconds * 1e6));
        const auto begin = Clock::now();
        const Shares before = spent();
        ::usleep(static_cast<useconds_t>(measuredSeconds * 1e6));
        const Shares after = spent();
        const double percent = 100 / secondsSince(begin);
        return {(after.broker - before.broker) * percent, (after.machines - before.machines) * percent,
            (after.panel - before.panel) * percent};
    }

    // What following all machines takes of a processor, in percent.
    double shareOfFollowingAll() const
    {
        Follower all{socket_, allMachines()};
        all.waitForAll();
        all.follow(settleSeconds);
        const auto begin = Clock::now();
        const std::clock_t before = std::clock();
        all.follow(measuredSeconds);
        return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / secondsSince(begin) * 100;
    }

    // From the call until it returns, in milliseconds: commands to one servo after the other.
    std::vector<double> writeTimes() const
    {
        Follower follower{socket_, {"M1"}};
        follower.waitForAll();
        follower.variables.setLevel(5);
        std::vector<double> times;
        for (int i = 0; i < writes; ++i) {
            const std::string name = variableName(1, i % size.servos + 1, "servo_para");
            waitUntilGood(follower, name);
            const auto begin = Clock::now();
            follower.variables.WriteValue(name, basic::doubles(std::vector<double>(20, i % 1000)));
            times.push_back(secondsSince(begin) * 1000);
        }
        return times;
    }

    std::unique_ptr<Process> broker;
    std::unique_ptr<Process> machines;
    std::unique_ptr<Process> panel;

private:
    std::unique_ptr<Process> start(const std::vector<std::string>& words) const
    {
        return std::make_unique<Process>(words, folder_ / "output");
    }
    std::string output() const
    {
        std::ifstream in{folder_ / "output"};
        return {std::istreambuf_iterator<char>{in}, {}};
    }
    Shares spent() const
    {
        return {
            processorSeconds(broker->id()), processorSeconds(machines->id()), processorSeconds(panel->id())};
    }
    static void waitUntilGood(Follower& follower, const std::string& name)
    {
        const auto begin = Clock::now();
        while (follower.variables.standing(name).quality != mqtt::Quality::Good) {
            if (secondsSince(begin) > mostSeconds) throw std::runtime_error{name + " is not good"};
            follower.variables.poll(1);
        }
    }

    Folder folder_;
    std::filesystem::path project_;
    std::filesystem::path socket_;
};

std::string row(const std::string& what, const std::string& figure)
{
    return std::string{"| "}.append(what).append(" | ").append(figure).append(" |\n");
}

std::string row(const std::string& what, const Line::Shares& shares)
{
    std::string text = "| " + what;
    for (const double share : {shares.panel, shares.broker, shares.machines})
        text.append(" | ").append(decimal(share, 1)).append(" %");
    return text.append(" |\n");
}

std::string today()
{
    const std::time_t now = std::time(nullptr);
    char text[sizeof "2000-01-01"];
    std::strftime(text, sizeof text, "%F", std::localtime(&now));
    return text;
}

std::string measure()
{
    const double loadBefore = load();
    Line line;
    const double machinesUp = line.startMachines();
    std::vector<double> panelStarts;
    for (int i = 0; i < starts; ++i)
        panelStarts.push_back(line.startPanelToFirstValues());
    line.startPanel();
    const Line::Shares all = line.shares();
    const double memories[]{residentMebibytes(line.panel->id()), residentMebibytes(line.broker->id()),
        residentMebibytes(line.machines->id())};
    const std::vector<double> times = line.writeTimes();
    const double following = line.shareOfFollowingAll();
    line.startMachines({"M1"});
    const Line::Shares one = line.shares();
    const double loadAfter = load();

    std::ostringstream out;
    out << "# Measurements\n\nWritten by `./measure line` on " << today() << ". " << describeComputer()
        << "; load " << decimal(loadBefore, 1) << " before and " << decimal(loadAfter, 1)
        << " afterwards.\n\n## A line of " << size.machines << " machines with " << size.servos
        << " servos each\n\nOne broker (Mosquitto, socket file), all machines in one `servo-machine`, one "
           "`servo-panel` without a "
           "screen on the page of a\nservo. "
        << size.machines * size.servos * variablesOfServo
        << " process variables; both diagnosis pages of every servo change every " << size.periodMilliseconds
        << " ms, " << size.machines * size.servos * 2 << " messages in that time.\n\n| | |\n| --- | --- |\n"
        << row("`servo-machine` started until its last machine is live", decimal(machinesUp, 2) + " s")
        << row("panel started until its page has read the servo's values, median of "
                   + std::to_string(starts),
               decimal(percentile(panelStarts, 0.5), 2) + " s")
        << row("memory of the panel", decimal(memories[0], 0) + " MiB")
        << row("memory of the broker", decimal(memories[1], 0) + " MiB")
        << row("memory of `servo-machine`", decimal(memories[2], 0) + " MiB")
        << "\nShares of one processor over " << decimal(measuredSeconds, 0)
        << " s:\n\n| on the broker | panel | broker | `servo-machine` |\n| --- | --- | --- | --- |\n"
        << row("all machines", all) << row("the shown machine alone", one) << "\nSomebody who followed all "
        << size.machines << " machines would spend " << decimal(following, 1)
        << " % of a processor on that alone; a panel follows the one that it\nshows.\n\n"
           "From a write to its answer, "
        << times.size() << " writes of 20 setpoints one after the other, while all of that runs:\n\n```\n"
        << histogram(times, "ms")
        << "```\n\n| half | 90 % | 99 % | 99.9 % | all |\n| --- | --- | --- | --- | --- |\n|";
    for (const double share : {0.5, 0.9, 0.99, 0.999, 1.0})
        out << ' ' << decimal(percentile(times, share), 2) << " ms |";
    out << '\n';
    return out.str();
}

} // namespace

} // namespace servopanel::bench

int main(int count, char** arguments)
try {
    const std::string text = servopanel::bench::measure();
    std::cout << text;
    if (count > 1) std::ofstream{arguments[1]} << text;
    return EXIT_SUCCESS;
} catch (const servopanel::basic::Error& error) {
    std::cerr << "line_measure: " << error.description << '\n';
    return EXIT_FAILURE;
} catch (const std::exception& error) {
    std::cerr << "line_measure: " << error.what() << '\n';
    return EXIT_FAILURE;
}
