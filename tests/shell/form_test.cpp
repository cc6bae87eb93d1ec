#include "shell/form.h"

#include "support/form_text.h"

#include <gtest/gtest.h>

namespace servopanel::shell {

// Menu and page fill the panel below the header's strip, which lies over both.
TEST(ShellForm, HoldsMenuAndPageBelowTheHeader)
{
    EXPECT_EQ(testing::textOf(servoForm()), R"(ServoMenu: ServoMenu, Visible false, Width 19200, Height 15360
ServoMain: ServoMain, Visible false, Width 19200, Height 15360
Header: Header, Visible true, Width 19200, Height 1560
)");
}

} // namespace servopanel::shell
