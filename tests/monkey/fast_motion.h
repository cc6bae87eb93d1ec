#pragma once

#include "recording/replay.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace servopanel::monkey {

// What the operator does at the end of each look at a page, one command a line; the last one leads back to where the
// first begins: the menu.
std::span<const std::string_view> operatorsRound();

// A panel that is left running, in fast motion: the page's timer ticks and the machine's values move; now and then the
// operator looks at the next page, on the way round all servos, their diagnosis pages and the menu.
class FastMotion {
public:
    enum class Link {
        Good,
        Dead, // nothing of the machine can be read
    };
    static constexpr std::size_t ticksOfAnHour = 7200; // the timer of the page runs every 500 ms

    // ticksOfALook: how long the operator looks at each page.
    FastMotion(Link link, std::size_t ticksOfALook);

    // After this many ticks the operator has come round, and all is as it was.
    std::size_t ticksOfARound() const;
    void play(std::size_t ticks);

    std::size_t reads() const { return reads_; }
    std::size_t failedReads() const { return failedReads_; }
    std::size_t timerOff() const { return timerOff_; } // ticks in the menu

private:
    void moveValues();

    recording::Replay replay_;
    std::size_t ticksOfALook_;
    std::size_t tick_ = 0;
    std::size_t reads_ = 0;
    std::size_t failedReads_ = 0;
    std::size_t timerOff_ = 0;
};

} // namespace servopanel::monkey
