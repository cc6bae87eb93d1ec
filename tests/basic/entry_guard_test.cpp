#include "basic/entry_guard.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace servopanel::basic;

class Sink final : public ErrorSink {
public:
    void report(const Error& error, std::string_view procedure) noexcept override
    {
        numbers.push_back(error.number);
        descriptions.push_back(error.description);
        procedures.emplace_back(procedure);
    }
    std::vector<std::int32_t> numbers;
    std::vector<std::string> descriptions;
    std::vector<std::string> procedures;
};

TEST(GuardEntry, RunsTheBodyOnce)
{
    Sink sink;
    int runs = 0;
    const auto body = [&] { ++runs; };
    guardEntry(sink, "Eintritt", body);
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(sink.numbers.empty());
}

TEST(GuardEntry, ReportsAnErrorUnderTheEntrysName)
{
    Sink sink;
    const auto body = [] { raise(ErrorNumber::TypeMismatch); };
    guardEntry(sink, "Eintritt", body);
    EXPECT_EQ(sink.numbers, std::vector<std::int32_t>{13});
    EXPECT_EQ(sink.procedures, std::vector<std::string>{"Eintritt"});
}

TEST(GuardEntry, ReportsAnyOtherExceptionAsInternal)
{
    Sink sink;
    const auto known = [] { throw std::runtime_error{"a mistake"}; };
    const auto unknown = [] { throw 7; };
    guardEntry(sink, "Eintritt", known);
    guardEntry(sink, "Eintritt", unknown);
    EXPECT_EQ(sink.numbers, (std::vector<std::int32_t>{51, 51}));
    EXPECT_EQ(sink.descriptions, (std::vector<std::string>{"a mistake", "Internal error"}));
}

TEST(GuardEntry, ServesNestedEntries)
{
    Sink sink;
    bool after = false;
    const auto inner = [] { raise(ErrorNumber::Overflow); };
    const auto outer = [&] {
        guardEntry(sink, "Innen", inner);
        after = true;
    };
    guardEntry(sink, "Außen", outer);
    EXPECT_TRUE(after);
    EXPECT_EQ(sink.procedures, std::vector<std::string>{"Innen"});
}

} // namespace
