#pragma once

#include <signal.h>

#include <array>

namespace servopanel::params {

// While it lives, SIGINT, SIGTERM and SIGHUP do not end the program: whoever writes ends when the machine knows what it
// has. One at a time.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    // Whether one of them has come.
    bool came() const;

private:
    static constexpr std::array signals{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, signals.size()> before_{};
};

} // namespace servopanel::params
