#include "params/captions.h"

#include <gtest/gtest.h>

namespace servopanel::params {

TEST(Captions, AreSplitAsThePageSplitsThem)
{
    const auto split = [](const std::string& text) {
        const Captions captions{
            machine::Texts::fromLines({"Servo.M1.Servo3.1 = \"" + text + "\""}, "en.txt")};
        const Captions::Caption caption = captions.of("M1", {3, 0, 0});
        return caption.name + "|" + caption.unit;
    };
    EXPECT_EQ(split("Web tension;N"), "Web tension|N");
    EXPECT_EQ(split(" Web tension ; N "), "Web tension|N");
    EXPECT_EQ(split("Web tension"), "Web tension|");
    EXPECT_EQ(split("a;b;c"), "a|b;c");
    EXPECT_EQ(split(";a;b"), ";a;b|") << "a separator at the beginning separates nothing";
    // The wide semicolons, as texts of several kinds have them.
    EXPECT_EQ(split("张力；牛"), "张力|牛");
    EXPECT_EQ(split("a\xC2\xA3\xC2\xBB"
                    "b"),
        "a|b");
    EXPECT_EQ(split("a\xC2\x81Gb"), "a|b");
}

} // namespace servopanel::params
