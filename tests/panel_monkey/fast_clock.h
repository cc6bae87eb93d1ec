#pragma once

namespace servopanel::monkey {

// While there is one, time stands still for the whole program, and where its event loop would wait for a timer the clocks
// jump there instead: whatever goes by a clock or a timer of Qt or of the standard library takes part in fast motion, in the
// order of its time. Afterwards the clocks run on from there. Made on the thread of the event loop.
class FastClock {
public:
    FastClock();
    FastClock(const FastClock&) = delete;
    FastClock& operator=(const FastClock&) = delete;
    ~FastClock();
};

} // namespace servopanel::monkey
