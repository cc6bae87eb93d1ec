#include "monkey/in_child.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace servopanel::monkey {

namespace {

constexpr int done = 0;

// A number that this process and its child see.
class SharedPlace {
public:
    SharedPlace()
        : memory_{mmap(nullptr, sizeof(Place), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)}
    {
        if (memory_ == MAP_FAILED) throw std::runtime_error{"no shared memory"};
        new (memory_) Place{0};
    }
    SharedPlace(const SharedPlace&) = delete;
    SharedPlace& operator=(const SharedPlace&) = delete;
    ~SharedPlace() { munmap(memory_, sizeof(Place)); }

    void set(std::size_t place) { *static_cast<Place*>(memory_) = place; }
    std::size_t get() const { return *static_cast<Place*>(memory_); }

private:
    using Place = std::atomic<std::size_t>;
    void* memory_;
};

void writeAll(int to, const std::string& text)
{
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t count = write(to, text.data() + at, text.size() - at);
        if (count < 0 && errno != EINTR) std::exit(EXIT_FAILURE);
        if (count > 0) at += static_cast<std::size_t>(count);
    }
    close(to);
}

std::string readAll(int from)
{
    std::string text;
    char part[4096];
    for (;;) {
        const ssize_t count = read(from, part, sizeof part);
        if (count == 0) break;
        if (count > 0) text.append(part, static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) break;
    }
    close(from);
    return text;
}

std::string crashOf(int status)
{
    if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
    if (code == done) return {};
    return "status " + std::to_string(code);
}

} // namespace

ChildEnd inChild(const std::function<std::string(const std::function<void(std::size_t place)>& tell)>& work)
{
    SharedPlace place;
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error{"no pipe"};
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error{"no process"};
    if (child == 0) {
        close(ends[0]);
        writeAll(ends[1], work([&place](std::size_t at) { place.set(at); }));
        // In the ordinary way, so that a sanitizer looks for leaks.
        std::exit(done);
    }
    close(ends[1]);
    ChildEnd end;
    end.result = readAll(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) { }
    end.crash = crashOf(status);
    end.place = place.get();
    return end;
}

} // namespace servopanel::monkey
