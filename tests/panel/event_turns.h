#pragma once

#include <QCoreApplication>
#include <QEvent>

namespace servopanel::testing {

// Whatever waits in the event loop is done, and what comes of it; what a clock will bring is not waited for. For tests of
// what does not happen, or happens at the next turns.
inline void letEventsPass()
{
    constexpr int turns = 20;
    for (int i = 0; i < turns; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace servopanel::testing
