#pragma once

#include "jet/sample_definitions.h"
#include "jet/servo_defs/tool.h"

#include <gtest/gtest.h>

namespace servopanel::jet::testing {

inline constexpr std::string_view csvHeader =
    "machine_type,var_name,abs_max,abs_min,offset_or_bitno,Max,Min,Pass\n";
inline constexpr const char* twoRows = "M1,Speed,100,0,0,80,10,1\nM2,Force,50,-50,1,40,-40,5\n";

// servo-defs in a folder of its own.
class ServoDefs : public ::testing::Test {
protected:
    // A CSV file with these lines below the names of the columns.
    std::string csv(const std::string& name, const std::string& lines) const
    {
        return folder_.file(name, std::string{csvHeader} + lines).string();
    }
    std::string path(const std::string& name) const { return (folder_.path() / name).string(); }

    // The exit status; what was printed is in text and errors.
    int run(const std::vector<std::string>& arguments)
    {
        ToolOutput output;
        const Result result = runTool(arguments, output);
        text = output.text;
        errors = output.errors;
        return static_cast<int>(result);
    }
    std::string database(const std::string& lines)
    {
        EXPECT_EQ(run({"create", "--force", path("Servo.mdb"), csv("start.csv", lines)}), 0) << errors;
        return path("Servo.mdb");
    }
    std::string database(const Bytes& bytes) const
    {
        writeFile(path("Servo.mdb"), bytes);
        return path("Servo.mdb");
    }

    std::string text;
    std::string errors;

private:
    tests::TemporaryFolder folder_;
};

} // namespace servopanel::jet::testing
