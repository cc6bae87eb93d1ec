#pragma once

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace servopanel::testing {

// For a child between fork and exec: it is killed with the process that made it, whatever ends that one. A program that
// changes its user forgets this.
inline void endWith(pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(1); // it was quicker
}

} // namespace servopanel::testing
