#pragma once

#include <csignal>

#include <sys/resource.h>

namespace servopanel::testing {

// While it lives, files of this process cannot grow beyond a size, as on a full disk. Only what is written through the
// system is refused; what waits in a buffer is not, which is where the trap lies.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytesLeft = 0)
        : signal_{std::signal(SIGXFSZ, SIG_IGN)}
    {
        getrlimit(RLIMIT_FSIZE, &usual_);
        const rlimit full{bytesLeft, usual_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &usual_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    void (*signal_)(int);
    rlimit usual_{};
};

} // namespace servopanel::testing
