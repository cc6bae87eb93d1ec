#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace servopanel::bench {

// A program that runs beside this one and is killed with it, whatever ends this one. What it prints goes into a file.
class Process {
public:
    // Throws std::runtime_error when there can be no process; a program that is not there has ended at once.
    Process(std::vector<std::string> words, const std::filesystem::path& output);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t id() const { return id_; }
    bool isRunning() const;

private:
    pid_t id_ = 0;
};

// What all processors have worked since the start of the computer, in seconds.
double busySeconds();
// Of a process, in seconds since its start; and in MiB, resident now.
double processorSeconds(pid_t process);
double residentMebibytes(pid_t process);

} // namespace servopanel::bench
