#pragma once

#include <functional>
#include <future>
#include <optional>
#include <string>

namespace servopanel::mqtt {

// What is wrong with a host's name, one sentence; empty when the system knows an address for it.
std::string resolveBySystem(const std::string& host);

// Asks the system for the address of a host in a thread of its own: that takes as long as the network likes, many seconds
// when the name server is gone, and nobody who polls a link may be held up for so long. Used by the thread that polls.
class HostLookUp {
public:
    // Like resolveBySystem. Called in the other thread, which may outlive all others: it refers to nothing of theirs.
    using Resolve = std::function<std::string(const std::string& host)>;

    explicit HostLookUp(std::string host, Resolve resolve = resolveBySystem);

    // Asks if nobody is asking yet, and waits for so many milliseconds at most. Nothing as long as there is no answer; an
    // answer is given once. A host that is an address already needs none.
    std::optional<std::string> poll(int milliseconds);

private:
    void ask();

    std::string host_;
    Resolve resolve_;
    std::future<std::string> answer_;
};

} // namespace servopanel::mqtt
