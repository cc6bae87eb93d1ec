#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace servopanel::bench {

// A program that runs beside this one and is killed with it. What it prints goes into a file.
class Process {
public:
    // Throws std::runtime_error when it cannot be started.
    Process(std::vector<std::string> words, const std::filesystem::path& output);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t id() const { return id_; }
    bool isRunning() const;

private:
    pid_t id_ = 0;
};

// Of a process, in seconds since its start; and in MiB, resident now.
double processorSeconds(pid_t process);
double residentMebibytes(pid_t process);

} // namespace servopanel::bench
