#include "mqtt/host_look_up.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <signal.h>
#include <sys/socket.h>

#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

namespace servopanel::mqtt {

namespace {

bool isAddress(const std::string& host)
{
    in6_addr any{}; // large enough for both
    return ::inet_pton(AF_INET, host.c_str(), &any) == 1 || ::inet_pton(AF_INET6, host.c_str(), &any) == 1;
}

// Signals are for the thread that waits for them.
class SignalsBlocked {
public:
    SignalsBlocked()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_{};
};

} // namespace

std::string resolveBySystem(const std::string& host)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int error = ::getaddrinfo(host.c_str(), nullptr, &hints, &found);
    if (error != 0) return std::string{"the host's name has no address: "}.append(::gai_strerror(error));
    ::freeaddrinfo(found);
    return {};
}

HostLookUp::HostLookUp(std::string host, Resolve resolve)
    : host_{std::move(host)}
    , resolve_{std::move(resolve)}
{
}

std::optional<std::string> HostLookUp::poll(int milliseconds)
{
    if (host_.empty() || isAddress(host_)) return std::string{};
    try {
        if (!answer_.valid()) ask();
        if (answer_.wait_for(std::chrono::milliseconds{milliseconds}) != std::future_status::ready) return {};
        return answer_.get();
    } catch (const std::system_error& error) {
        return std::string{"nobody can ask for the host's address: "}.append(error.what());
    }
}

void HostLookUp::ask()
{
    std::packaged_task<std::string()> task{[host = host_, resolve = resolve_] { return resolve(host); }};
    std::future<std::string> answer = task.get_future();
    const SignalsBlocked blocked;
    // Nobody can end a look-up, so nobody waits for its end either.
    std::thread{std::move(task)}.detach();
    answer_ = std::move(answer);
}

} // namespace servopanel::mqtt
