// The integrator's whole program ends well. What it prints is the report of the page, whose variables are not there.
#include "support/run_in_shell.h"

#include <gtest/gtest.h>

#include <string>

TEST(IntegratorsGuide, ItsWholeProgramRuns)
{
    const servopanel::testing::Outcome outcome = servopanel::testing::runInShell(WHOLE_PROGRAM);
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("Ma WerteLesen"), std::string::npos) << outcome.text;
}
