#include "mqtt/topics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace servopanel::mqtt {

TEST(Topics, SayWhoAndWhat)
{
    EXPECT_EQ((Topic{"M1", "hb", ""}.text()), "pm/v1/M1/hb");
    EXPECT_EQ((Topic{"M1", "val", "Ch1.M1_T_servo_3<.mM1_servo_para_3>"}.text()),
        "pm/v1/M1/val/Ch1.M1_T_servo_3<.mM1_servo_para_3>");
    EXPECT_EQ(topicFilter("M1", "cmd", true), "pm/v1/M1/cmd/+");
}

TEST(Topics, NoNameIsAWildcardOrTwoLevels)
{
    for (const std::string name : {"+", "#", "a/b", "100 %", "%2F", "Größe", "\n", "$SYS"}) {
        const std::string text = Topic{name, "cmd", name}.text();
        EXPECT_EQ(std::count(text.begin(), text.end(), '/'), 4) << text;
        EXPECT_EQ(text.find_first_of("+#\n"), std::string::npos) << text;
        const auto read = Topic::parse(text);
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(read->machine, name);
        EXPECT_EQ(read->of, name);
    }
}

TEST(Topics, WhatNoBrokerTakesIsEscaped)
{
    const std::pair<const char*, const char*> names[]{{"Größe 中 😀", "Größe 中 😀"}, {"\x7F", "%7F"},
        {"a\xC2\x85z", "a%C2%85z"}, {"\xEF\xBF\xBF", "%EF%BF%BF"}, {"\xEF\xB7\x90", "%EF%B7%90"},
        {"\xF6z", "%F6z"}, {"\xC3", "%C3"}, {"\xC0\x80", "%C0%80"}, {"\xED\xA0\x80", "%ED%A0%80"},
        {"\x85", "%85"}};
    for (const auto& [name, text] : names) {
        EXPECT_EQ((Topic{"M1", "val", name}.text()), std::string{"pm/v1/M1/val/"} + text);
        EXPECT_EQ(Topic::parse(Topic{"M1", "val", name}.text())->of, name);
    }
}

TEST(Topics, OthersAreNotOurs)
{
    for (const char* text : {"", "pm/v1", "pm/v1/", "pm/v1/M1", "pm/v2/M1/hb", "pm/v1//hb", "pm/v1/M1/cmd",
             "pm/v1/M1/cmd/", "pm/v1/M1/hb/x", "pm/v1/M1/cmd/a/b", "pm/v1/M%1/hb", "pm/v1/M%2/hb",
             "pm/v1/M%zz/hb", "PM/v1/M1/hb"})
        EXPECT_FALSE(Topic::parse(text)) << text;
}

} // namespace servopanel::mqtt
