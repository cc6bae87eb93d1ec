#include "panel_monkey/fast_clock.h"

#include <atomic>
#include <cerrno>
#include <cstdint>

#include <poll.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

// The functions by which Qt and the standard library learn the time and wait, in place of those of the C library: what a
// program defines counts before what it links.

namespace {

constexpr std::int64_t nanosecondsOfASecond = 1'000'000'000;

std::int64_t nanoseconds(const timespec& time) { return time.tv_sec * nanosecondsOfASecond + time.tv_nsec; }

timespec asTime(std::int64_t nanoseconds)
{
    return {nanoseconds / nanosecondsOfASecond, nanoseconds % nanosecondsOfASecond};
}

std::int64_t ofTheComputer(clockid_t clock)
{
    timespec time{};
    syscall(SYS_clock_gettime, clock, &time);
    return nanoseconds(time);
}

// A clock of the computer, until it is stopped.
class Clock {
public:
    explicit Clock(clockid_t clock)
        : clock_{clock}
    {
    }
    std::int64_t now() const
    {
        const std::int64_t stopped = stopped_;
        return stopped != 0 ? stopped : ofTheComputer(clock_) + ahead_;
    }
    void stop() { stopped_ = now(); }
    void jump(std::int64_t by) { stopped_ += by; }
    void run()
    {
        ahead_ = stopped_ - ofTheComputer(clock_);
        stopped_ = 0;
    }

private:
    clockid_t clock_;
    std::atomic<std::int64_t> stopped_{0}; // 0: it runs
    std::atomic<std::int64_t> ahead_{0};
};

// Asked for by other libraries before main.
Clock& steady()
{
    static Clock clock{CLOCK_MONOTONIC};
    return clock;
}
Clock& wall()
{
    static Clock clock{CLOCK_REALTIME};
    return clock;
}

std::atomic<pid_t> jumping{0}; // the thread whose waiting makes time jump

pid_t thisThread() { return static_cast<pid_t>(syscall(SYS_gettid)); }

int waitFor(pollfd* files, nfds_t count, const timespec* longest, const sigset_t* mask)
{
    constexpr std::size_t sizeOfMask = 8; // of the kernel's set
    timespec left = longest == nullptr ? timespec{} : *longest; // the kernel writes into it
    return static_cast<int>(
        syscall(SYS_ppoll, files, count, longest == nullptr ? nullptr : &left, mask, sizeOfMask));
}

} // namespace

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    switch (clock) {
    case CLOCK_MONOTONIC:
    case CLOCK_MONOTONIC_COARSE: *time = asTime(steady().now()); return 0;
    case CLOCK_REALTIME:
    case CLOCK_REALTIME_COARSE: *time = asTime(wall().now()); return 0;
    default: return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    }
}

extern "C" int gettimeofday(timeval* time, void*) noexcept
{
    const timespec now = asTime(wall().now());
    *time = {now.tv_sec, now.tv_nsec / 1000};
    return 0;
}

// Qt waits with this one by itself and with poll where it is compiled with GLib.
extern "C" int ppoll(pollfd* files, nfds_t count, const timespec* longest, const sigset_t* mask)
{
    const bool jumps = longest != nullptr && jumping != 0 && jumping == thisThread();
    if (!jumps) return waitFor(files, count, longest, mask);
    const timespec none{};
    const int ready = waitFor(files, count, &none, mask);
    if (ready != 0) return ready;
    steady().jump(nanoseconds(*longest));
    wall().jump(nanoseconds(*longest));
    return 0;
}

extern "C" int poll(pollfd* files, nfds_t count, int longest)
{
    constexpr std::int64_t nanosecondsOfAMillisecond = 1'000'000;
    const timespec time = asTime(longest * nanosecondsOfAMillisecond);
    return ppoll(files, count, longest < 0 ? nullptr : &time, nullptr);
}

namespace servopanel::monkey {

FastClock::FastClock()
{
    steady().stop();
    wall().stop();
    jumping = thisThread();
}

FastClock::~FastClock()
{
    jumping = 0;
    steady().run();
    wall().run();
}

} // namespace servopanel::monkey
