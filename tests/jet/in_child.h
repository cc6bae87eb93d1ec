#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace servopanel::jet::testing {

// Runs an action in a process of its own, which it may change for good: user, limits, being killed. False when the action
// does, throws or dies.
template <class F>
bool inChild(F action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        bool good = false;
        try {
            good = action();
        } catch (...) {
        }
        ::_exit(good ? 0 : 1);
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status)
        && WEXITSTATUS(status) == 0;
}

// Permissions do not hold for root.
inline bool becomeAnyUser()
{
    constexpr uid_t nobody = 65534;
    return ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
}

} // namespace servopanel::jet::testing
