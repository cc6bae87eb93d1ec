#include "process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

extern char** environ;

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
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(
        &actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    const int error = ::posix_spawnp(&id_, arguments[0], &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error{words[0] + " cannot be started"};
}

Process::~Process()
{
    ::kill(id_, SIGKILL);
    ::waitpid(id_, nullptr, 0);
}

// One that has ended holds no memory, even before anybody has asked for its end.
bool Process::isRunning() const { return residentMebibytes(id_) > 0; }

double processorSeconds(pid_t process)
{
    std::ifstream file = procFile(process, "stat");
    std::string line;
    std::getline(file, line);
    // Behind the name, which may have blanks, come 11 other fields.
    std::istringstream fields{line.substr(line.rfind(')') + 2)};
    std::string skipped;
    for (int i = 0; i < 11; ++i)
        fields >> skipped;
    double user = 0;
    double system = 0;
    fields >> user >> system;
    return (user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
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
