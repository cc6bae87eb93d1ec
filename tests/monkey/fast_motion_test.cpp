#include "monkey/fast_motion.h"

#include "monkey/allocations.h"

#include <gtest/gtest.h>

#include <memory>

namespace servopanel::monkey {

namespace {

constexpr std::size_t shortLook = 20;

// The first round fills what is kept on purpose: shared texts, pictures, room in containers.
TEST(FastMotion, HoldsNoMoreMemoryARoundLater)
{
    for (const FastMotion::Link link : {FastMotion::Link::Good, FastMotion::Link::Dead}) {
        FastMotion motion{link, shortLook};
        motion.play(motion.ticksOfARound());
        const std::size_t before = allocationsAlive();
        motion.play(2 * motion.ticksOfARound());
        EXPECT_LE(allocationsAlive(), before);
    }
}

TEST(FastMotion, ReadsAtEveryTickOnThePage)
{
    FastMotion good{FastMotion::Link::Good, shortLook};
    good.play(good.ticksOfARound());
    EXPECT_EQ(good.timerOff(), shortLook); // in the menu
    EXPECT_EQ(good.failedReads(), 0U);
    EXPECT_GT(good.reads(), (good.ticksOfARound() - good.timerOff()) * 8);

    FastMotion dead{FastMotion::Link::Dead, shortLook};
    dead.play(dead.ticksOfARound());
    EXPECT_EQ(dead.timerOff(), shortLook);
    EXPECT_EQ(dead.failedReads(), dead.reads());
}

TEST(AllocationsAlive, SeesWhatIsNotGivenBack)
{
    const std::size_t before = allocationsAlive();
    auto piece = std::make_unique<int>(1);
    EXPECT_EQ(allocationsAlive(), before + 1);
    piece.reset();
    EXPECT_EQ(allocationsAlive(), before);
}

} // namespace

} // namespace servopanel::monkey
