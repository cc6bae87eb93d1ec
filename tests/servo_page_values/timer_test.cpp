#include "servo_page_values/page.h"

#include <gtest/gtest.h>

#include <string>

namespace servopanel::servo_page::tests {
namespace {

TEST(Timer_Timer, RunsOnceThePageIsShown)
{
    Page page;
    EXPECT_EQ(page.state("ServoMain.Timer.Enabled"), "true");
}

TEST(Timer_Timer, RefreshesWhileTheMaskIsOpen)
{
    Page page;
    page.run("touch SollwertL 5\n");
    EXPECT_EQ(page.run("timer\n"), "> timer\n" + refresh({5}));
}

TEST(Timer_Timer, TouchesNoKeyNoLockNoColour)
{
    Page page;
    page.run("touch SollwertL 5\nmask 55\ntouch SchalterL 31\n");
    const std::string trace = page.run("timer\n");
    EXPECT_EQ(holding(trace, "Fußzeile"), "");
    EXPECT_EQ(holding(trace, "Enabled"), "");
    EXPECT_EQ(holding(trace, "0x68030001"), "");
    EXPECT_EQ(holding(trace, ".-513"), "");
    EXPECT_EQ(holding(trace, ").19 ="), "");
    EXPECT_EQ(holding(trace, ").17 ="), "");
}

TEST(Timer_Timer, ShowsWhatTheMachineChanged)
{
    Page page;
    page.run("var " + variable("_servo_para2_") + " = [1, 2, 3, 4]\ntimer\n");
    EXPECT_EQ(page.state("ServoMain.SollwertR(24).8"), "4");
}

} // namespace
} // namespace servopanel::servo_page::tests
