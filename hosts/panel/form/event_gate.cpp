#include "panel/form/event_gate.h"

#include <QTimer>

namespace servopanel::panel {

EventGate::Entry::Entry(EventGate& gate, Kind kind)
    : gate_{gate}
{
    ++gate_.running_;
    if (kind == Kind::Action) gate_.acted_ = true;
}

EventGate::Entry::~Entry()
{
    --gate_.running_;
    if (gate_.isBusy()) return;
    if (gate_.acted_ && gate_.stale_) gate_.stale_();
    gate_.acted_ = false;
    if (!gate_.tasks_.empty()) gate_.schedule();
}

void EventGate::close()
{
    ++closed_;
    if (stale_) stale_();
}

void EventGate::later(std::function<void()> task)
{
    tasks_.push_back(std::move(task));
    if (!isBusy()) schedule();
}

void EventGate::schedule()
{
    if (scheduled_) return;
    scheduled_ = true;
    QTimer::singleShot(0, &context_, [this] {
        scheduled_ = false;
        runTasks();
    });
}

void EventGate::runTasks()
{
    // A procedure may have begun since; its end schedules anew.
    if (isBusy()) return;
    const std::vector<std::function<void()>> tasks = std::move(tasks_);
    tasks_.clear();
    for (const auto& task : tasks)
        task();
}

} // namespace servopanel::panel
