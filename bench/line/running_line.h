#pragma once

#include "big_line.h"
#include "portable/temporary_folder.h"
#include "process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace servopanel::bench {

std::vector<std::string> allMachines(const LineSize& size);

// A broker of its own on a socket file, servo-machine and servo-panel as processes beside this one. Whatever does not come
// up throws std::runtime_error with what the programs have printed.
class RunningLine {
public:
    explicit RunningLine(const LineSize& size);

    const std::filesystem::path& socket() const { return socket_; }

    // In place of those before; until the last of them is live, in seconds.
    double startMachines(const std::vector<std::string>& machines);

    // In place of the one before; until its page has read the setpoints of its servo, in seconds.
    double startPanel();

    struct Shares { // percent of one processor
        double panel = 0;
        double broker = 0;
        double machines = 0;
        double others = 0; // of the whole computer, which had better do nothing else
    };
    Shares sharesOver(double seconds) const;
    struct Memories { // MiB, resident
        double panel = 0;
        double broker = 0;
        double machines = 0;
    };
    Memories memories() const;

private:
    std::unique_ptr<Process> start(const std::vector<std::string>& words) const;
    const std::filesystem::path& folder() const { return folder_.path(); }
    std::string endOf(const char* file) const;
    Shares secondsSpent() const;

    // The processes end before it goes.
    tests::TemporaryFolder folder_;
    std::filesystem::path project_;
    std::filesystem::path socket_;
    std::unique_ptr<Process> broker_;
    std::unique_ptr<Process> machines_;
    std::unique_ptr<Process> panel_;
};

} // namespace servopanel::bench
