#include "params/stop_signals.h"

#include <csignal>
#include <cstddef>

namespace servopanel::params {

namespace {
volatile std::sig_atomic_t stopped = 0;
}

StopSignals::StopSignals()
{
    stopped = 0;
    struct sigaction note { };
    note.sa_handler = [](int) { stopped = 1; };
    sigemptyset(&note.sa_mask);
    for (std::size_t i = 0; i < signals.size(); ++i)
        ::sigaction(signals[i], &note, &before_[i]);
}

StopSignals::~StopSignals()
{
    for (std::size_t i = 0; i < signals.size(); ++i)
        ::sigaction(signals[i], &before_[i], nullptr);
}

bool StopSignals::came() const { return stopped != 0; }

} // namespace servopanel::params
