#include "machine/variable_store.h"

#include "basic/error.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace servopanel;
using basic::Variant;
using machine::VariableStore;
using machine::Writer;

constexpr const char* name = "parameter<.x>";

std::string errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.source, "Process variables");
        return std::to_string(error.number) + ": " + error.description;
    }
    return "no error";
}

struct Conversion {
    Variant declared;
    Variant written;
    Variant expected;
};

TEST(VariableStore, ConvertsEveryWriteToTheDeclaredType)
{
    const Conversion conversions[] = {
        {std::int16_t{0}, 2.5, std::int16_t{2}},
        {std::int16_t{0}, 3.5, std::int16_t{4}},
        {std::int16_t{0}, "12", std::int16_t{12}},
        {std::int16_t{0}, true, std::int16_t{-1}},
        {std::int16_t{0}, std::int32_t{40}, std::int16_t{40}},
        {std::int32_t{0}, std::int16_t{-7}, std::int32_t{-7}},
        {0.0, std::int16_t{3}, 3.0},
        {0.0, 1.5F, 1.5},
        {0.0F, 0.1, 0.1F},
        {false, std::int16_t{1}, true},
        {false, 0.0, false},
        {"", 1.5, "1.5"},
        {"", std::int16_t{-4}, "-4"},
    };
    for (const Conversion& row : conversions) {
        VariableStore store;
        store.declare(name, row.declared);
        store.WriteValue(name, row.written);
        EXPECT_EQ(store.ReadValue(name), row.expected) << "declared type " << int(row.declared.type());
    }
}

TEST(VariableStore, RefusesWhatDoesNotFitAndKeepsTheOldValue)
{
    const Variant array = basic::doubles({1, 2, 3});
    VariableStore store;
    const auto refused = [&](const Variant& declared, const Variant& written) {
        store.declare(name, declared);
        const std::string error = errorOf([&] { store.WriteValue(name, written); });
        EXPECT_EQ(store.ReadValue(name), declared);
        return error;
    };
    const std::string start = "Process variable 'parameter<.x>': ";
    EXPECT_EQ(refused(std::int16_t{5}, std::int32_t{40000}).substr(0, 3 + start.size()), "6: " + start);
    EXPECT_EQ(refused(std::int16_t{5}, "five").substr(0, 4 + start.size()), "13: " + start);
    EXPECT_EQ(refused(1.0, array), "13: " + start + "an array cannot be written to one value");
    EXPECT_EQ(refused(array, 1.0), "13: " + start + "one value cannot be written to an array");
    EXPECT_EQ(refused(array, basic::doubles({1, 2})), "13: " + start + "it has 3 elements, not 2");
    EXPECT_EQ(refused(1.0, basic::Null{}).substr(0, 4 + start.size()), "94: " + start);
    Variant mixed = basic::Array{basic::VariantType::Variant, 0, {1.0, "x", 2.0}};
    EXPECT_EQ(refused(array, mixed).substr(0, 4 + start.size()), "13: " + start);
}

TEST(VariableStore, ConvertsTheElementsOfArraysAndKeepsTheirBound)
{
    VariableStore store;
    store.declare(name, basic::Array{basic::VariantType::Int16, 1, {std::int16_t{0}, std::int16_t{0}}});
    store.WriteValue(name, basic::doubles({1.5, -2}));
    EXPECT_EQ(store.ReadValue(name),
        Variant(basic::Array{basic::VariantType::Int16, 1, {std::int16_t{2}, std::int16_t{-2}}}));
}

TEST(VariableStore, NamesAnUnknownVariable)
{
    VariableStore store;
    store.declare(name, 1.0);
    EXPECT_EQ(errorOf([&] { store.ReadValue("Parameter<.x>"); }),
        "5: Process variable 'Parameter<.x>': there is no such variable");
    EXPECT_EQ(
        errorOf([&] { store.WriteValue("y", 1.0); }), "5: Process variable 'y': there is no such variable");
    EXPECT_EQ(store.find("y"), nullptr);
}

TEST(VariableStore, TellsListenersWhoWroteWhat)
{
    VariableStore store;
    store.declare(name, std::int16_t{0});
    std::vector<std::string> heard;
    const auto id = store.addListener([&](const VariableStore::Write& write) {
        heard.push_back(std::string{write.name} + " " + std::to_string(*write.value.get<std::int16_t>()) + " "
            + std::to_string(static_cast<int>(write.writer)));
    });
    store.WriteValue(name, 2.0);
    store.write(name, std::int16_t{2}, Writer::Machine);
    store.write(name, std::int16_t{3}, Writer::Host);
    errorOf([&] { store.WriteValue(name, "x"); });
    store.declare(name, std::int16_t{9});
    store.removeListener(id);
    store.WriteValue(name, 4.0);
    EXPECT_EQ(
        heard, (std::vector<std::string>{"parameter<.x> 2 0", "parameter<.x> 2 2", "parameter<.x> 3 1"}));
}

TEST(VariableStore, ListenersMayWriteAndComeAndGo)
{
    VariableStore store;
    store.declare("a", std::int16_t{0});
    store.declare("b", std::int16_t{0});
    int late = 0;
    int removed = 0;
    VariableStore::ListenerId second = 0;
    const auto first = store.addListener([&](const VariableStore::Write& write) {
        if (write.name != "a") return;
        store.removeListener(second);
        store.write("b", write.value, Writer::Host);
        store.addListener([&](const VariableStore::Write&) { ++late; });
    });
    second = store.addListener([&](const VariableStore::Write&) { ++removed; });
    store.WriteValue("a", std::int16_t{1});
    EXPECT_EQ(store.ReadValue("b"), Variant(std::int16_t{1}));
    EXPECT_EQ(removed, 0);
    EXPECT_EQ(late, 0);
    store.removeListener(first);
    store.WriteValue("b", std::int16_t{2});
    EXPECT_EQ(late, 1);
}

} // namespace
