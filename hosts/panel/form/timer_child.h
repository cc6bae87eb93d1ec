#pragma once

#include "panel/form/child.h"
#include "panel/form/event_gate.h"

#include <QTimer>

namespace servopanel::panel {

// Timer of a form: an event at every interval while it is enabled. It rests while a message is open, and a tick that
// falls into another procedure is left out; the next one comes soon enough.
class TimerChild : public Child {
public:
    TimerChild(QWidget* parent, Services& services, EventGate& gate);

    // For tests: whether ticks come.
    bool isTicking() const { return timer_.isActive(); }

private:
    void enabledChanged() override { adapt(); }
    void adapt();

    EventGate& gate_;
    QTimer timer_;
    std::int32_t interval_ = 0; // milliseconds, 0: no ticks
};

} // namespace servopanel::panel
