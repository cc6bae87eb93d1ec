#include "journal/time_text.h"

#include <gtest/gtest.h>

namespace servopanel::journal {

TEST(TimeText, IsUtcToTheMillisecond)
{
    EXPECT_EQ(timeText(0), "1970-01-01T00:00:00.000Z");
    EXPECT_EQ(timeText(951'782'400'007), "2000-02-29T00:00:00.007Z");
    EXPECT_EQ(timeText(latestTime), "9999-12-31T23:59:59.999Z");
}

TEST(TimeText, ComesBack)
{
    for (const std::int64_t time : {std::int64_t{0}, std::int64_t{1'795'310'345'250}, latestTime}) {
        const auto span = timeNamed(timeText(time));
        ASSERT_TRUE(span) << time;
        EXPECT_EQ(span->begin, time);
        EXPECT_EQ(span->end, time + 1);
    }
}

TEST(TimeText, StandsForAllThatItNames)
{
    struct Row {
        const char* text;
        const char* begin;
        std::int64_t length;
    };
    const Row rows[]{{"2026-11-22", "2026-11-22T00:00:00.000Z", 86'400'000},
        {"2026-11-22T01:19", "2026-11-22T01:19:00.000Z", 60'000},
        {"2026-11-22T01:19Z", "2026-11-22T01:19:00.000Z", 60'000},
        {"2026-11-22T01:19:05", "2026-11-22T01:19:05.000Z", 1000},
        {"2026-11-22T01:19:05.250", "2026-11-22T01:19:05.250Z", 1}};
    for (const Row& row : rows) {
        const auto span = timeNamed(row.text);
        ASSERT_TRUE(span) << row.text;
        EXPECT_EQ(timeText(span->begin), row.begin);
        EXPECT_EQ(span->end - span->begin, row.length) << row.text;
    }
}

TEST(TimeText, OtherTextsAreNoTimes)
{
    for (const char* text : {"", "Z", "today", "2026", "2026-11", "2026-13-01", "2026-02-30", "2026-11-22Z",
             "2026-11-22 01:19", "2026-11-22T24:00", "2026-11-22T01:60", "2026-11-22T01:19:60",
             "2026-11-22T01:19:05.25", "2026-11-22T01:19:05.2500", "-026-11-22", "2026-11-22T01:19+01:00"})
        EXPECT_FALSE(timeNamed(text)) << text;
}

} // namespace servopanel::journal
