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
    // Stands for one procedure of the library at work. A refresh only brings new values of the machine.
    class Entry {
    public:
        enum class Kind { Action, Refresh };
        explicit Entry(EventGate& gate, Kind kind = Kind::Action);
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
    void close();
    void open() { --closed_; }

    // The operator touches something. A touch that begins while a procedure runs is late: what it meant may be gone when
    // the finger is lifted.
    void beginTouch() { touchIsLate_ = isBusy() && !isClosed(); }
    bool touchIsLate() const { return touchIsLate_; }

    // Called when the screen may have become another, so that touches from before mean nothing any more.
    void setStaleHandler(std::function<void()> stale) { stale_ = std::move(stale); }

private:
    void schedule();
    void runTasks();

    QObject context_;
    std::vector<std::function<void()>> tasks_;
    std::function<void()> stale_;
    int running_ = 0;
    int closed_ = 0;
    bool scheduled_ = false;
    bool acted_ = false; // something else than a refresh has run
    bool touchIsLate_ = false;
};

} // namespace servopanel::panel
