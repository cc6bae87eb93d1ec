#pragma once

#include "monkey/fast_motion.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace servopanel::monkey {

// A real panel that is left running, in fast motion: the demonstration project with its simulated machine, all of the
// panel's timers and clocks, and everything painted. Every actual value is another one at each tick. Now and then the
// operator looks at the next page on the round of FastMotion, in all languages of the project, watches the trends of
// actual values meanwhile and, in the menu, the list of reports. Needs a QApplication.
class PanelInMotion {
public:
    // How long the operator looks at each page, in ticks of 500 ms.
    struct Looks {
        std::size_t ticks;
        // Of the first round at the first diagnosis page; in an hour the buffer of the trends gets full.
        std::size_t firstAtValues;
    };
    // Still: the machine has no cycle, and Qt gives up no glyphs that it has drawn, so that all is as it was after each
    // round; the values move all the same.
    enum class Machine { Simulated, Still };
    PanelInMotion(FastMotion::Link link, Looks looks, Machine machine = Machine::Simulated);
    ~PanelInMotion();

    // Until the operator has come round and is in the menu again.
    void playRound();
    // Goes from servo to servo, so many pages, and back to the menu. No tick passes and no value moves meanwhile.
    void turnPages(std::size_t pages);

    // What was done, so that it is seen that something was.
    struct Done {
        std::size_t ticks = 0; // of 500 ms
        std::size_t rounds = 0;
        std::size_t reads = 0;
        std::size_t failedReads = 0;
        std::size_t timers = 0; // events of timers of Qt
        std::size_t paintings = 0; // of single widgets
        std::size_t trends = 0; // times that they were opened
        std::size_t samples = 0; // most that they held
        std::size_t lists = 0; // times that the reports were looked at
        std::size_t reports = 0; // most lines in their list
        std::size_t refused = 0; // steps of the round that could not be done
    };
    const Done& done() const;
    // Milliseconds that have passed on the wall clock that the panel shows.
    std::int64_t passed() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace servopanel::monkey
