#include "process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace servopanel::bench {

namespace {

std::ifstream procFile(pid_t process, const char* name)
{
    return std::ifstream{"/proc/" + std::to_string(process) + '/' + name};
}

} // namespace

Process::Process(std::vector<std::string> words, const std::filesystem::path& output)
{
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const pid_t self = ::getpid();
    id_ = ::fork();
    if (id_ < 0) throw std::runtime_error{words[0] + " cannot be started"};
    if (id_ > 0) return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::dup2(file, STDOUT_FILENO);
    ::dup2(file, STDERR_FILENO);
    if (::getppid() == self) ::execvp(arguments[0], arguments.data());
    ::_exit(EXIT_FAILURE);
}

Process::~Process()
{
    ::kill(id_, SIGKILL);
    ::waitpid(id_, nullptr, 0);
}

// One that has ended holds no memory, even before anybody has asked for its end.
bool Process::isRunning() const { return residentMebibytes(id_) > 0; }

double busySeconds()
{
    std::ifstream file{"/proc/stat"};
    std::string cpu;
    double user = 0;
    double nice = 0;
    double system = 0;
    double idle = 0;
    double waiting = 0;
    double interrupts = 0;
    double later = 0; // what interrupts have left to be done
    file >> cpu >> user >> nice >> system >> idle >> waiting >> interrupts >> later;
    return (user + nice + system + interrupts + later) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

double processorSeconds(pid_t process)
{
    // Exact, where /proc counts in hundredths of a second.
    clockid_t clock{};
    timespec spent{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &spent) != 0)
        throw std::runtime_error{"process " + std::to_string(process) + " has ended"};
    return static_cast<double>(spent.tv_sec) + static_cast<double>(spent.tv_nsec) * 1e-9;
}

double residentMebibytes(pid_t process)
{
    std::ifstream file = procFile(process, "status");
    for (std::string word; file >> word;) {
        double kibibytes = 0;
        if (word == "VmRSS:" && file >> kibibytes) return kibibytes / 1024;
    }
    return 0;
}

} // namespace servopanel::bench
