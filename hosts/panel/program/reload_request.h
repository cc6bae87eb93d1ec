#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace servopanel::panel {

// The signal by which an engineer, or systemctl reload, asks the running panel to read its project anew (SIGHUP). One of
// these at a time; with its end the signal is ignored.
class ReloadRequest {
public:
    // The handler is called from the event loop. Throws std::system_error where the system has no pipe left: the signal
    // stays ignored then.
    explicit ReloadRequest(std::function<void()> handler);
    ReloadRequest(const ReloadRequest&) = delete;
    ReloadRequest& operator=(const ReloadRequest&) = delete;
    ~ReloadRequest();

    // For the time before: a program that has no handler yet would end, although it is about to read the project anyway.
    static void ignoreSignal();

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace servopanel::panel
