#include "journal/entry.h"
#include "journal/variable_place.h"
#include "mqtt/outcome.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace servopanel::journal {

namespace {

Entry someEntry()
{
    Entry entry;
    entry.write = 7;
    entry.time = 1'795'310'345'250;
    entry.panel = "Größe";
    entry.level = 3;
    entry.machine = "M1";
    entry.servo = 3;
    entry.variable = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
    entry.element = 1;
    entry.oldValue = 35.5;
    entry.newValue = 36.0;
    return entry;
}

} // namespace

TEST(Entry, IsOneLine)
{
    EXPECT_EQ(lineOf(someEntry()),
        R"({"write":7,"time":1795310345250,"panel":"Größe","level":3,"machine":"M1","servo":3,)"
        R"("variable":"Ch1.M1_T_servo_3<.mM1_servo_para_3>","element":1,"old":35.5,"new":36.0,"result":"open"})");
    Entry entry = someEntry();
    entry.newValue = "two\nlines\x1B";
    EXPECT_EQ(lineOf(entry).find_first_of("\n\x1B"), std::string::npos);
}

TEST(Entry, ComesBack)
{
    const Line line = readLine(lineOf(someEntry()));
    const auto* const entry = std::get_if<Entry>(&line);
    ASSERT_TRUE(entry) << std::get<std::string>(line);
    EXPECT_EQ(lineOf(*entry), lineOf(someEntry()));
    EXPECT_EQ(entry->servo, 3);
    EXPECT_EQ(entry->result, Result::Open);

    const Line end = readLine(lineOf(Ending{7, 5, 9, Result::Refused, 2102, "somebody else"}));
    const auto* const ending = std::get_if<Ending>(&end);
    ASSERT_TRUE(ending);
    EXPECT_EQ(ending->begun, 5);
    EXPECT_EQ(ending->result, Result::Refused);
    EXPECT_EQ(ending->number, 2102);
    EXPECT_EQ(ending->text, "somebody else");

    const Line gap = readLine(lineOf(Gap{12}));
    ASSERT_TRUE(std::holds_alternative<Gap>(gap));
    EXPECT_EQ(std::get<Gap>(gap).lines, 12);
}

TEST(Entry, TextsOfAnyBytesBecomeUtf8)
{
    Entry entry = someEntry();
    entry.panel = "Gr\xF6\xDF"
                  "e";
    entry.newValue = toJson("\xE4");
    const std::string line = lineOf(entry);
    EXPECT_NE(line.find("\"Größe\""), std::string::npos) << line;
    EXPECT_NE(line.find("\"ä\""), std::string::npos) << line;
}

TEST(Entry, NumbersReadBackExactly)
{
    for (const double number : {0.1, -1e300, 5e-324, 1.0 / 3, 123456789.125})
        EXPECT_EQ(Json::parse(toJson(number).dump()).get<double>(), number);
    for (const float number : {0.1F, 3e38F, 1.0F / 3})
        EXPECT_EQ(static_cast<float>(Json::parse(toJson(number).dump()).get<double>()), number);
    EXPECT_EQ(toJson(0.1F).dump(), "0.1");
    EXPECT_EQ(toJson(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(toJson(-std::numeric_limits<double>::infinity()), "-Infinity");
    EXPECT_EQ(toJson(basic::doubles({1, 2.5})).dump(), "[1.0,2.5]");
    EXPECT_EQ(toJson(true).dump(), "true");
    EXPECT_TRUE(toJson(basic::Null{}).is_null());
}

TEST(Entry, WhatIsNoEntryIsSaid)
{
    const std::pair<const char*, const char*> rows[]{{"[]", "must be an object in braces"},
        {R"({"lost":0})", "lost must be from 1"}, {R"({"write":1,"begun":2,"time":3})", "result is missing"},
        {R"({"write":1,"write":2,"begun":2,"time":3,"result":"done"})", "write is there twice"},
        {R"({"write":1,"begun":2,"time":3,"result":"good"})", "result must be open, done"},
        {R"({"write":1,"begun":2,"time":-3,"result":"done"})", "time must be from 0"}};
    for (const auto& [text, problem] : rows) {
        const Line line = readLine(text);
        const auto* const said = std::get_if<std::string>(&line);
        ASSERT_TRUE(said) << text;
        EXPECT_TRUE(said->starts_with(problem)) << *said;
    }
    for (const std::string& text : {std::string{}, std::string{"{"}, std::string(100'000, '['),
             std::string(10, '\0'), lineOf(someEntry()) + lineOf(someEntry())})
        EXPECT_TRUE(std::holds_alternative<std::string>(readLine(text))) << text.substr(0, 20);
    Entry deep = someEntry();
    deep.oldValue = Json::parse("[[1]]");
    EXPECT_TRUE(std::holds_alternative<std::string>(readLine(lineOf(deep))));
}

TEST(Entry, AValueThatIsNestedDeeperThanAStackIsSaid)
{
    constexpr std::size_t depth = 450'000; // in a line that is not too long yet
    const std::string value = std::string(depth, '[').append(depth, ']');
    const std::string plain = lineOf(someEntry());
    const auto said = [&](const std::string& member, const std::string& old) {
        std::string line = plain;
        line.replace(line.find(member) + member.size(), old.size(), value);
        const Line read = readLine(line);
        const auto* const text = std::get_if<std::string>(&read);
        return text ? *text : "nothing";
    };
    EXPECT_EQ(said("\"old\":", "35.5"), "old is nested deeper than 64 levels");
    EXPECT_EQ(said("\"new\":", "36.0"), "new is nested deeper than 64 levels");
    EXPECT_EQ(said("\"panel\":", "\"Größe\""), "panel is nested deeper than 64 levels");
}

TEST(Entry, EndsAreThoseOfTheMachine)
{
    using mqtt::Outcome;
    const auto endOf = [](Outcome outcome) { return resultOf(static_cast<std::int32_t>(outcome)); };
    for (const Outcome refused : {Outcome::UnknownName, Outcome::OutOfRange, Outcome::WrongType,
             Outcome::Absent, Outcome::ReadOnly, Outcome::LevelTooLow, Outcome::ChangedMeanwhile,
             Outcome::TooLate, Outcome::Busy, Outcome::Restarted, Outcome::NoConnection,
             Outcome::NotSentAfterNoAnswer, Outcome::Bad, Outcome::Stale})
        EXPECT_EQ(endOf(refused), Result::Refused) << describe(refused);
    for (const Outcome unknown : {Outcome::NoAnswer, Outcome::NoAnswerButWritten, Outcome::NoAnswerNotWritten,
             Outcome::ReadBackDiffers})
        EXPECT_EQ(endOf(unknown), Result::Unknown) << describe(unknown);
    EXPECT_EQ(resultOf(94), Result::Refused);
    EXPECT_EQ(resultOf(0), Result::Unknown);
    EXPECT_EQ(resultOf(12'345), Result::Unknown);
}

TEST(Entry, KnowsTheServoByTheNameOfTheVariable)
{
    const auto place = [](const char* name) {
        const VariablePlace found = placeOf(name);
        return found.machine + "/" + (found.servo ? std::to_string(*found.servo) : std::string{"-"});
    };
    EXPECT_EQ(place("Ch1.M1_T_servo_3<.mM1_servo_para_3>"), "M1/3");
    EXPECT_EQ(place("Ch12.A_T_servo_7_T_servo_-12<.mA_servo_diag_-121>"), "A_T_servo_7/-12");
    for (const char* name : {"", "Ch1", "Ch1.M1<.x>", "Ch1.M1_T_servo_3", "Ch1.M1_T_servo_<.x>",
             "Ch1.M1_T_servo_3a<.x>", "Ch1.M1_T_servo_99999999999<.x>", "Ch1<.M1_T_servo_3>"})
        EXPECT_EQ(place(name), "/-") << name;
}

} // namespace servopanel::journal
