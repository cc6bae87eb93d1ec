// The integrator's whole program ends well. What it prints is the report of the page, whose variables are not there.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

TEST(IntegratorsGuide, ItsWholeProgramRuns)
{
    std::FILE* const pipe = popen(WHOLE_PROGRAM " 2>&1", "r");
    ASSERT_NE(pipe, nullptr);
    std::string text;
    std::array<char, 4096> buffer{};
    for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        text.append(buffer.data(), count);
    const int status = pclose(pipe);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status << "\n" << text;
    EXPECT_NE(text.find("Ma WerteLesen"), std::string::npos) << text;
}
