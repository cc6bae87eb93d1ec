#include "mqtt/messages.h"

#include "mqtt/protocol_error.h"
#include "mqtt/value_coding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>

namespace servopanel::mqtt {

namespace {

using basic::Variant;
using basic::VariantType;

VariableDescription variable(VariantType element, std::size_t length = 0)
{
    VariableDescription variable;
    variable.name = "x";
    variable.type = {element, length > 0};
    variable.length = length;
    return variable;
}

std::string errorOf(const std::function<void()>& read)
{
    try {
        read();
    } catch (const ProtocolError& error) {
        return error.what();
    }
    return "no error";
}

constexpr auto topic = "pm/v1/M1/hb";

struct Rubbish {
    const char* payload;
    const char* reason; // in the error
};

} // namespace

TEST(Messages, StayWithinTheirBounds)
{
    Bounds bounds;
    bounds.bytes = 60;
    bounds.depth = 3;
    bounds.elements = 4;
    bounds.textBytes = 8;
    const Rubbish table[]{
        {R"({"a":[1,2,3,4],"b":{"c":[1]}})", "no error"},
        {R"({"a":[1,2,3,4,5]})", "more than 4 elements"},
        {R"({"a":1,"b":2,"c":3,"d":4,"e":5})", "more than 4 elements"},
        {R"({"a":[[[1]]]})", "nested deeper than 3"},
        {R"({"a":"123456789"})", "a text longer than 8 bytes"},
        {R"({"123456789":1})", "a text longer than 8 bytes"},
        {R"({"a":"1","b":"1234567", "c":"1234567", "d":"1234567890123456"})", "longer than 60 bytes"},
        {R"({"a":1,"b":2,"a":1})", "two members a"},
        {R"({"a":{"b":1},"b":[{"a":1},{"a":1}]})", "no error"},
        {R"([1])", "no JSON object"},
        {R"("a")", "no JSON object"},
        {"", "no JSON from byte"},
        {"{", "no JSON from byte"},
        {"{}{}", "no JSON from byte"},
        {R"({"a":NaN})", "no JSON from byte"},
        {R"({"a":1e999})", "no JSON from byte"},
        {"{\"a\":\"\xff\"}", "no JSON from byte"},
        {"[[[[[[[[[[[[[[[[", "nested deeper than 3"},
    };
    for (const Rubbish& row : table) {
        const std::string error = errorOf([&] { parseBounded(topic, row.payload, bounds); });
        EXPECT_NE(error.find(row.reason), std::string::npos) << row.payload << ": " << error;
        EXPECT_TRUE(error == "no error" || error.starts_with("pm/v1/M1/hb: ")) << error;
    }
}

TEST(Messages, AMillionBracketsCostNothing)
{
    const std::string deep(200'000, '[');
    EXPECT_NE(errorOf([&] { parseBounded(topic, deep); }).find("nested deeper"), std::string::npos);
    const std::string longText(1'000'000, ' ');
    EXPECT_NE(errorOf([&] { parseBounded(topic, longText); }).find("longer than"), std::string::npos);
}

TEST(Messages, SayWhichMemberIsWrong)
{
    const Rubbish heartbeats[]{
        {R"({"epoch":1,"time":2,"seq":[]})", "no error"},
        {R"({"epoch":1,"time":2,"seq":[0,7],"future":{"x":1}})", "no error"},
        {R"({"time":2,"seq":[]})", "epoch is missing"},
        {R"({"epoch":"1","time":2,"seq":[]})", "epoch must be a whole number"},
        {R"({"epoch":-1,"time":2,"seq":[]})", "epoch must be a whole number"},
        {R"({"epoch":1.0,"time":2,"seq":[]})", "epoch must be a whole number"},
        {R"({"epoch":18446744073709551615,"time":2,"seq":[]})", "epoch must be a whole number"},
        {R"({"epoch":1,"time":2,"seq":{}})", "seq must be a list"},
        {R"({"epoch":1,"time":2,"seq":[null]})", "seq must be whole numbers"},
    };
    for (const Rubbish& row : heartbeats)
        EXPECT_NE(errorOf([&] { readHeartbeat(topic, row.payload); }).find(row.reason), std::string::npos)
            << row.payload;
    const Rubbish commands[]{
        {R"({"id":"a","epoch":1,"deadline":2,"level":3,"name":"x","old":1,"new":2})", "no error"},
        {R"({"id":"","epoch":1,"deadline":2,"level":3,"name":"x","old":1,"new":2})", "id is empty"},
        {R"({"id":7,"epoch":1,"deadline":2,"level":3,"name":"x","old":1,"new":2})", "id must be a text"},
        {R"({"id":"a","epoch":1,"deadline":2,"level":40000,"name":"x","old":1,"new":2})", "level must be"},
        {R"({"id":"a","epoch":1,"deadline":2,"level":3,"name":"x","new":2})", "old is missing"},
    };
    for (const Rubbish& row : commands)
        EXPECT_NE(errorOf([&] { readCommand(topic, row.payload); }).find(row.reason), std::string::npos)
            << row.payload;
    const Rubbish acks[]{
        {R"({"id":"a","epoch":1,"time":2,"code":"busy"})", "no error"},
        {R"({"id":"a","epoch":1,"time":2,"code":"done","value":1,"seq":4})", "no error"},
        {R"({"id":"a","epoch":1,"time":2,"code":"done"})", "value is missing"},
        {R"({"id":"a","epoch":1,"time":2,"code":"splendid"})", "code is not known: splendid"},
        {R"({"id":"a","epoch":1,"time":2,"code":""})", "code is not known"},
    };
    for (const Rubbish& row : acks)
        EXPECT_NE(errorOf([&] { readAck(topic, row.payload); }).find(row.reason), std::string::npos)
            << row.payload;
    const Rubbish parts[]{
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"doubles","length":2,"level":[1,2]}]})",
            "no error"},
        {R"({"hash":"h","part":1,"parts":1,"variables":[]})", "part must be a whole number"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[7]})", "an object is expected"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"decimal"}]})",
            "type is not known: decimal"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"doubles"}]})",
            "length is missing"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"doubles","length":1000000}]})",
            "length must be"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"int16","min":[]}]})",
            "min must be a number or the name"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"doubles","length":3,"level":[1,2]}]})",
            "level must be one number or one for each element"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"int32","level":[1,2,3,4]}]})",
            "no error"},
        {R"({"hash":"h","part":0,"parts":1,"variables":[{"name":"x","type":"text","level":[1,2]}]})",
            "level must be one number"},
    };
    for (const Rubbish& row : parts)
        EXPECT_NE(
            errorOf([&] { readDescriptionPart(topic, row.payload); }).find(row.reason), std::string::npos)
            << row.payload;
}

TEST(Messages, ValuesKeepTheirTypes)
{
    const std::pair<VariableDescription, Variant> table[]{
        {variable(VariantType::Int16), std::int16_t{-32768}},
        {variable(VariantType::Int32), std::int32_t{2147483647}},
        {variable(VariantType::Single), 0.1F},
        {variable(VariantType::Double), 0.1},
        {variable(VariantType::Double), 3.0},
        {variable(VariantType::Double), std::numeric_limits<double>::denorm_min()},
        {variable(VariantType::Boolean), true},
        {variable(VariantType::Text), "größer als 3 \"mm\""},
        {variable(VariantType::Double, 3), basic::doubles({1, -2.5, 1e300})},
        {variable(VariantType::Int16, 2),
            basic::Array{VariantType::Int16, 0, {std::int16_t{1}, std::int16_t{2}}}},
    };
    for (const auto& [description, value] : table) {
        const std::string payload = write(Value{7, 1, 2, value, {}, {}});
        const Value read = readValue(topic, payload, description);
        EXPECT_EQ(read.value, value) << payload;
        EXPECT_EQ(read.worst(), Quality::Good);
        EXPECT_EQ(read.epoch, 7);
    }
}

TEST(Messages, ValuesOfAnotherTypeAreNone)
{
    const std::pair<VariableDescription, const char*> table[]{
        {variable(VariantType::Int16), "32768"},
        {variable(VariantType::Int16), "1.0"},
        {variable(VariantType::Int16), "\"1\""},
        {variable(VariantType::Int32), "-2147483649"},
        {variable(VariantType::Single), "1e39"},
        {variable(VariantType::Double), "true"},
        {variable(VariantType::Double), "[1]"},
        {variable(VariantType::Boolean), "1"},
        {variable(VariantType::Text), "1"},
        {variable(VariantType::Double, 2), "[1]"},
        {variable(VariantType::Double, 2), "[1,2,3]"},
        {variable(VariantType::Double, 2), "[1,\"2\"]"},
        {variable(VariantType::Double, 2), "1"},
    };
    for (const auto& [expected, json] : table) {
        const VariableDescription& description = expected;
        EXPECT_FALSE(fromJson(Json::parse(json), description)) << json;
        const std::string payload =
            std::string{R"({"epoch":1,"seq":1,"time":1,"quality":"good","value":)"}.append(json).append("}");
        EXPECT_NE(errorOf([&] { readValue(topic, payload, description); }).find("value is not of the type"),
            std::string::npos)
            << json;
    }
}

TEST(Messages, AnUnknownNumberIsNeverGood)
{
    const VariableDescription array = variable(VariantType::Double, 2);
    const Variant held = basic::doubles({1, std::nan("")});
    const Value read = readValue(topic, write(Value{1, 1, 1, held, {}, {}}), array);
    EXPECT_EQ(read.worst(), Quality::Bad);
    EXPECT_FALSE(fromJson(toJson(held), array)) << "a command has no holes";
    EXPECT_EQ(read.qualities, (std::vector<Quality>{Quality::Good, Quality::Bad}));
    const auto qualities = [&](const std::string& value, const std::string& quality) {
        return readValue(topic,
            R"({"epoch":1,"seq":1,"time":1,"value":)" + value + R"(,"quality":)" + quality + "}", array)
            .qualities;
    };
    EXPECT_EQ(
        qualities("[null,2]", R"(["good","stale"])"), (std::vector<Quality>{Quality::Bad, Quality::Stale}));
    EXPECT_EQ(qualities("[null,2]", R"("stale")"), (std::vector<Quality>{Quality::Stale, Quality::Stale}));
}

TEST(Messages, QualitiesAreThoseOfTheElements)
{
    const VariableDescription array = variable(VariantType::Double, 2);
    const Value value{1, 1, 1, basic::doubles({1, 2}), {Quality::Good, Quality::Bad}, "sensor broken"};
    const Value read = readValue(topic, write(value), array);
    EXPECT_EQ(read.qualities, value.qualities);
    EXPECT_EQ(read.reason, "sensor broken");
    for (const char* quality : {R"(["good"])", R"(["good","fine"])", R"("fine")", "1", "[1,2]"}) {
        const std::string payload =
            std::string{R"({"epoch":1,"seq":1,"time":1,"value":[1,2],"quality":)"}.append(quality).append(
                "}");
        EXPECT_NE(
            errorOf([&] { readValue(topic, payload, array); }).find("quality must be"), std::string::npos)
            << quality;
    }
}

TEST(Messages, ADescriptionComesBackInParts)
{
    std::vector<VariableDescription> variables;
    for (int i = 0; i < 150; ++i) {
        VariableDescription one = variable(VariantType::Double, 3);
        one.name = "x" + std::to_string(i);
        one.unit = "mm";
        one.writable = i % 2 == 0;
        one.least = -1.5;
        one.most = "limits";
        one.levels = {0, 2, 5};
        one.first = 1;
        variables.push_back(one);
    }
    const Description description{variables};
    std::vector<VariableDescription> read;
    for (const DescriptionPart& part : partsOf(description)) {
        const DescriptionPart back = readDescriptionPart(topic, write(part));
        EXPECT_EQ(back.hash, description.hash());
        EXPECT_EQ(back.parts, 3U);
        read.insert(read.end(), back.variables.begin(), back.variables.end());
    }
    EXPECT_EQ(read, variables);

    variables[149].unit = "cm";
    EXPECT_NE(Description{variables}.hash(), description.hash());
}

TEST(Messages, RefusalsHaveCodesAndTexts)
{
    for (const Outcome outcome : {Outcome::UnknownName, Outcome::OutOfRange, Outcome::WrongType,
             Outcome::Absent, Outcome::ReadOnly, Outcome::LevelTooLow, Outcome::ChangedMeanwhile,
             Outcome::TooLate, Outcome::Busy, Outcome::Restarted}) {
        EXPECT_TRUE(isRefused(outcome));
        EXPECT_FALSE(isUnknown(outcome));
        EXPECT_FALSE(describe(outcome).empty());
        EXPECT_EQ(outcomeOfCode(codeOf(outcome)), outcome);
    }
    for (const Outcome outcome :
        {Outcome::NoAnswer, Outcome::NoAnswerButWritten, Outcome::NoAnswerNotWritten}) {
        EXPECT_TRUE(isUnknown(outcome));
        EXPECT_FALSE(isRefused(outcome));
    }
}

} // namespace servopanel::mqtt
