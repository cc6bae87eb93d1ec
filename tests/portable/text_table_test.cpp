#include "portable/text_table.h"

#include <gtest/gtest.h>

namespace servopanel::testing {

TEST(TextTable, PutsColumnsUnderEachOther)
{
    EXPECT_EQ(
        portable::tableOf({{"name", "unit", "value"}, {"Größe", "µm", "1"}, {"", "", "25"}, {"x", "", ""}}),
        "name   unit  value\n"
        "Größe  µm    1\n"
        "             25\n"
        "x\n");
    EXPECT_EQ(portable::tableOf({}), "");
}

TEST(TextTable, ShowsControlCharacters)
{
    EXPECT_EQ(portable::tableOf({{"a\x1B[2J", "b"}, {"c\nd", "e"}}),
        "a\\x1B[2J  b\n"
        "c\\nd      e\n");
}

} // namespace servopanel::testing
