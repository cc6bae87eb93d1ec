#include "monkey/long_run.h"

#include "monkey/fast_motion.h"
#include "monkey/memory_in_use.h"

#include <chrono>
#include <cstdio>

namespace servopanel::monkey {

namespace {

bool stays(FastMotion::Link link, unsigned days)
{
    // The allocator may keep a few pages more than are in use.
    constexpr std::size_t spare = 512; // kB
    constexpr std::size_t twoMinutes = 240; // ticks
    const auto start = std::chrono::steady_clock::now();
    FastMotion motion{link, twoMinutes};
    const std::size_t round = motion.ticksOfARound();
    // Whole rounds, so that the same is on the screen each time.
    const std::size_t roundsOfAnHour = (FastMotion::ticksOfAnHour + round - 1) / round;
    const std::size_t rounds = (days * 24 * FastMotion::ticksOfAnHour + round - 1) / round;

    std::printf(
        "%s\n", link == FastMotion::Link::Good ? "The machine answers" : "The machine does not answer");
    motion.play(roundsOfAnHour * round);
    const MemoryInUse hour = memoryNow();
    print("after the first hour:", hour);
    motion.play((rounds - roundsOfAnHour) * round);
    const MemoryInUse end = memoryNow();
    print("at the end:", end);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("  %zu ticks (%zu in the menu), %zu reads, %zu of them failed, in %.0f s\n", rounds * round,
        motion.timerOff(), motion.reads(), motion.failedReads(), seconds.count());
    const bool stayed = end.alive <= hour.alive && end.resident <= hour.resident + spare;
    if (!stayed) std::printf("  THE MEMORY GREW\n");
    return stayed;
}

} // namespace

bool playDays(unsigned days)
{
    const bool good = stays(FastMotion::Link::Good, days);
    const bool dead = stays(FastMotion::Link::Dead, days);
    return good && dead;
}

} // namespace servopanel::monkey
