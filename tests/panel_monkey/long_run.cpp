#include "panel_monkey/long_run.h"

#include "monkey/memory_in_use.h"
#include "panel_monkey/offscreen_qt.h"
#include "panel_monkey/panel_in_motion.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <span>
#include <stdexcept>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace servopanel::monkey {

namespace {

constexpr std::size_t twoMinutes = 240; // ticks
constexpr std::size_t ticksOfADay = 24 * FastMotion::ticksOfAnHour;
// The simulated machine is at another place of its cycle after each round, and its texts are longer or shorter: a few tens
// of pieces to and fro.
constexpr std::size_t sparePieces = 64;
// The allocator keeps pages that are not in use.
constexpr std::size_t spareResident = 2048; // kB

// Until then pictures, fonts, glyphs and the list of reports are full.
constexpr std::size_t roundsToFill = 4;

// The least that was held after any of these rounds: it does not depend on where the machine is in its cycle.
MemoryInUse least(std::span<const MemoryInUse> rounds)
{
    MemoryInUse least = rounds.front();
    for (const MemoryInUse& memory : rounds) {
        least.alive = std::min(least.alive, memory.alive);
        least.resident = std::min(least.resident, memory.resident);
    }
    return least;
}

void print(const PanelInMotion::Done& done, std::int64_t milliseconds)
{
    std::printf("  %zu ticks in %zu rounds, %.1f h by the panel's clock, %zu reads, %zu of them failed\n"
                "  %zu events of timers, %zu paintings, trends opened %zu times with up to %zu samples,\n"
                "  the list of reports %zu times with up to %zu lines, %zu steps could not be done\n"
                "  in %.0f s of a processor\n",
        done.ticks, done.rounds, static_cast<double>(milliseconds) / 3'600'000, done.reads, done.failedReads,
        done.timers, done.paintings, done.trends, done.samples, done.lists, done.reports, done.refused,
        static_cast<double>(std::clock()) / CLOCKS_PER_SEC);
}

bool stays(FastMotion::Link link, unsigned days)
{
    const char* const machines =
        link == FastMotion::Link::Good ? "The machines answer" : "The machines do not answer";
    const OffscreenQt qt;
    PanelInMotion motion{link, {twoMinutes, FastMotion::ticksOfAnHour}};
    const PanelInMotion::Done& done = motion.done();
    std::vector<MemoryInUse> rounds;
    rounds.reserve(days * ticksOfADay / twoMinutes);
    for (unsigned day = 1; day <= days; ++day) {
        while (done.ticks < day * ticksOfADay) {
            motion.playRound();
            rounds.push_back(memoryNow());
        }
        std::printf("%s, day %u:\n", machines, day);
        print("at its end:", rounds.back());
    }
    // The first and the last day of a week.
    const std::size_t part = std::max<std::size_t>(1, rounds.size() / 7);
    const MemoryInUse early = least(std::span{rounds}.subspan(roundsToFill, part));
    const MemoryInUse late = least(std::span{rounds}.last(part));
    std::printf("%s, the least after a round:\n", machines);
    print("of the first seventh:", early);
    print("of the last seventh:", late);
    print(done, motion.passed());
    const bool stayed =
        late.alive <= early.alive + sparePieces && late.resident <= early.resident + spareResident;
    if (!stayed) std::printf("  THE MEMORY GREW\n");
    std::fflush(stdout);
    return stayed;
}

} // namespace

bool playDaysOnPanel(unsigned days)
{
    // Both at the same time, each in a process of its own.
    std::fflush(nullptr);
    const pid_t silent = fork();
    if (silent < 0) throw std::runtime_error{"no process"};
    if (silent == 0) std::exit(stays(FastMotion::Link::Dead, days) ? EXIT_SUCCESS : EXIT_FAILURE);
    const bool good = stays(FastMotion::Link::Good, days);
    int status = 0;
    while (waitpid(silent, &status, 0) < 0 && errno == EINTR) { }
    return good && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

} // namespace servopanel::monkey
