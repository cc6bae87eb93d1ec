#include "panel_monkey/panel_in_motion.h"

#include "monkey/allocations.h"

#include <gtest/gtest.h>

namespace servopanel::monkey {

namespace {

using Link = FastMotion::Link;

constexpr PanelInMotion::Looks shortLooks{8, 60};

// The first two rounds fill most of what is kept on purpose. After them a few glyphs are still drawn for the first time, at
// another fraction of a pixel, far fewer than one for every other tick.
PanelInMotion::Done expectNoMoreMemoryRoundsLater(Link link)
{
    PanelInMotion motion{link, shortLooks, PanelInMotion::Machine::Still};
    motion.playRound();
    motion.playRound();
    const std::size_t before = allocationsAlive();
    const std::size_t ticksBefore = motion.done().ticks;
    motion.playRound();
    motion.playRound();
    EXPECT_LT(allocationsAlive(), before + (motion.done().ticks - ticksBefore) / 2);
    return motion.done();
}

TEST(PanelInMotion, HoldsNoMoreMemoryRoundsLater)
{
    const PanelInMotion::Done done = expectNoMoreMemoryRoundsLater(Link::Good);
    EXPECT_EQ(done.failedReads, 0U);
}

TEST(PanelInMotion, HoldsNoMoreMemoryNorReportsThanTheListTakesWithoutAnAnswer)
{
    const PanelInMotion::Done done = expectNoMoreMemoryRoundsLater(Link::Dead);
    EXPECT_GT(done.failedReads, done.ticks);
    EXPECT_EQ(done.reports, 200U);
    EXPECT_EQ(done.lists, done.rounds);
}

// While no value moves nothing is drawn for the first time, and a single piece that is lost with each page is seen.
class Pages : public ::testing::TestWithParam<Link> { };

TEST_P(Pages, GiveBackWhatTheyTake)
{
    constexpr std::size_t pages = 100;
    PanelInMotion motion{GetParam(), shortLooks, PanelInMotion::Machine::Still};
    motion.turnPages(2 * pages); // until the list of reports is full
    const std::size_t before = allocationsAlive();
    const std::size_t readsBefore = motion.done().reads;
    motion.turnPages(pages);
    EXPECT_LT(allocationsAlive(), before + pages / 2);
    EXPECT_GT(motion.done().reads, readsBefore + 5 * pages);
    EXPECT_EQ(motion.done().refused, 0U);
}

INSTANTIATE_TEST_SUITE_P(PanelInMotion, Pages, ::testing::Values(Link::Good, Link::Dead));

TEST(PanelInMotion, DoesWhatAnOperatorDoesAndTakesNoTimeForIt)
{
    constexpr std::size_t steps = 20; // of a round
    PanelInMotion motion{Link::Good, shortLooks};
    motion.playRound();
    const PanelInMotion::Done& done = motion.done();
    EXPECT_EQ(done.refused, 0U);
    EXPECT_EQ(done.ticks, (steps - 1) * shortLooks.ticks + shortLooks.firstAtValues + 2);
    EXPECT_EQ(motion.passed(), static_cast<std::int64_t>(done.ticks) * 500);
    // All of the panel's timers keep up with its clock: page, header, and the simulated machine ten times a second.
    EXPECT_GT(done.timers, done.ticks * 7);
    EXPECT_GT(done.reads, done.ticks * 8);
    EXPECT_GT(done.paintings, done.ticks);
    EXPECT_GE(done.trends, 6U);
    EXPECT_GT(done.samples, shortLooks.firstAtValues + 20); // the trends read more often than the page
}

} // namespace

} // namespace servopanel::monkey
