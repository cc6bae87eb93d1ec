#include "servo_page/structure/text_nummern.h"

#include "basic/error.h"

#include <gtest/gtest.h>

namespace {

using servopanel::servo_page::TextArt;
using servopanel::servo_page::textNummer;

TEST(TextNummer, IsTheFieldsOwnForSetpoints)
{
    for (std::int16_t field = 1; field <= 24; ++field)
        EXPECT_EQ(textNummer(TextArt::Beschriftung, field), field);
}

TEST(TextNummer, FollowsTheSetpointsForSwitches)
{
    EXPECT_EQ(textNummer(TextArt::Beschriftung, 31), 25);
    EXPECT_EQ(textNummer(TextArt::Beschriftung, 32), 26);
    EXPECT_EQ(textNummer(TextArt::Beschriftung, 33), 27);
    EXPECT_EQ(textNummer(TextArt::Beschriftung, 34), 28);
}

TEST(TextNummer, OfDrawingNumbersAndTheirPoints)
{
    EXPECT_EQ(textNummer(TextArt::Beschriftung, 41), 35);
    EXPECT_EQ(textNummer(TextArt::Beschriftung, 42), 36);
    EXPECT_EQ(textNummer(TextArt::Punkt, 43), 37);
    EXPECT_EQ(textNummer(TextArt::Punkt, 44), 38);
    EXPECT_EQ(textNummer(TextArt::Punkt, 45), 39);
    EXPECT_EQ(textNummer(TextArt::Punkt, 46), 40);
}

TEST(TextNummer, OfCaptionsOnThePictureCountsFrom61)
{
    EXPECT_EQ(textNummer(TextArt::ParaBeschriftung, 1), 61);
    EXPECT_EQ(textNummer(TextArt::ParaBeschriftung, 2), 62);
}

TEST(TextNummer, OfTheHeadingTellsThePage)
{
    EXPECT_EQ(textNummer(TextArt::Überschrift, 0), 0);
    EXPECT_EQ(textNummer(TextArt::Überschrift, 1), 30);
    EXPECT_EQ(textNummer(TextArt::Überschrift, 2), 70);
}

TEST(TextNummer, FailsForItemsWithoutText)
{
    constexpr std::int16_t without[]{0, 25, 30, 35, 40, 43};
    for (const std::int16_t field : without)
        EXPECT_THROW(textNummer(TextArt::Beschriftung, field), servopanel::basic::Error) << field;
    EXPECT_THROW(textNummer(TextArt::Punkt, 41), servopanel::basic::Error);
    EXPECT_THROW(textNummer(TextArt::Punkt, 47), servopanel::basic::Error);
    EXPECT_THROW(textNummer(TextArt::ParaBeschriftung, 3), servopanel::basic::Error);
    EXPECT_THROW(textNummer(TextArt::Überschrift, 3), servopanel::basic::Error);
}

} // namespace
