#pragma once

#include <QObject>

#include <functional>
#include <vector>

namespace servopanel::panel {

// Everything that enters the library passes here, so that the panel knows whether one of its procedures runs. While a
// message is open nothing may enter; and what would pull the ground from under a running procedure, such as closing its
// screen, waits until none runs.
class EventGate {
public:
    // Stands for one procedure of the library at work.
    class Entry {
    public:
        explicit Entry(EventGate& gate);
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry();

    private:
        EventGate& gate_;
    };

    bool isBusy() const { return running_ > 0; }
    bool isClosed() const { return closed_ > 0; }

    // Does it from the event loop, not before no procedure runs any more.
    void later(std::function<void()> task);

    // A message is open from close to open.
    void close() { ++closed_; }
    void open() { --closed_; }

private:
    void schedule();
    void runTasks();

    QObject context_;
    std::vector<std::function<void()>> tasks_;
    int running_ = 0;
    int closed_ = 0;
    bool scheduled_ = false;
};

} // namespace servopanel::panel
