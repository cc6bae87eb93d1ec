#pragma once

#include "recording/replay.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace servopanel::testing {

// A test of the whole library on the recording host: what goes in is scenario text, what comes out is the trace.
//
//   run(standardProject);
//   EXPECT_EQ(run("create"), "> create\n...");
//   replay.lines("write")     just those lines of the last run
class ReplayFixture : public ::testing::Test {
protected:
    // The trace of these commands alone. A malformed scenario fails the test.
    std::string run(std::string_view scenario)
    {
        try {
            return replay.run(scenario);
        } catch (const recording::ScenarioError& error) {
            ADD_FAILURE() << "line " << error.line() << " of the scenario: " << error.what();
            return {};
        }
    }

    recording::Replay replay;
};

} // namespace servopanel::testing
