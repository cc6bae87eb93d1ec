#include "panel/program/reload_request.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace servopanel::panel {

namespace {

// A signal handler may do little more than write to a pipe, whose other end wakes the event loop.
std::array<int, 2> ends{-1, -1};

void onSignal(int)
{
    // What the signal interrupts may be about to read errno.
    const int before = errno;
    const char wish = 1;
    // A full pipe holds wishes enough.
    [[maybe_unused]] const auto written = write(ends[1], &wish, 1);
    errno = before;
}

void drain()
{
    std::array<char, 64> wishes{};
    while (read(ends[0], wishes.data(), wishes.size()) > 0) { }
}

} // namespace

ReloadRequest::ReloadRequest(std::function<void()> handler)
{
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error{errno, std::generic_category(), "no pipe"};
    notifier_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(
        notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [handler = std::move(handler)] {
            drain();
            handler();
        });
    std::signal(SIGHUP, onSignal);
}

void ReloadRequest::ignoreSignal() { std::signal(SIGHUP, SIG_IGN); }

ReloadRequest::~ReloadRequest()
{
    ignoreSignal();
    notifier_.reset();
    for (int& end : ends) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

} // namespace servopanel::panel
