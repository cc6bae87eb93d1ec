#include "params/load_run.h"

#include "basic/error.h"
#include "machine/variable_store.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace servopanel::params {

namespace {

// A machine that is another one, or fails, while it is written to.
class ChangingMachine : public platform::ProcessVarAccess {
public:
    ChangingMachine()
    {
        store.declare(para, basic::doubles({20, 35.5, 0}));
        store.declare(para2, basic::doubles({1, 2, 3, 4}));
        store.declare(flag, std::int16_t{0});
    }
    basic::Variant ReadValue(std::string_view name) override
    {
        if (reading) reading(name);
        return store.ReadValue(name);
    }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        if (writing) writing(name);
        store.WriteValue(name, value);
    }
    bool isTold() const { return *store.find(flag) == basic::Variant{std::int16_t{1}}; }

    static inline const std::string para = variableName("M1", 3, "_servo_para_");
    static inline const std::string para2 = variableName("M1", 3, "_servo_para2_");
    static inline const std::string flag = variableName("M1", 3, "_servoaender_");
    machine::VariableStore store;
    std::function<void(std::string_view name)> reading;
    std::function<void(std::string_view name)> writing;
};

PlannedRow planned(std::size_t family, int element, double held, double wanted)
{
    PlannedRow row;
    row.wanted.place = {3, family, element};
    row.wanted.value = wanted;
    row.held = held;
    return row;
}

class LoadRun : public ::testing::Test {
protected:
    std::vector<std::string> write()
    {
        return writeRows(rows, "M1", machine, [] { return false; });
    }

    ChangingMachine machine;
    std::vector<PlannedRow> rows{planned(0, 0, 20, 25), planned(1, 3, 4, 7)};
};

} // namespace

TEST_F(LoadRun, WritesAndTellsTheServo)
{
    EXPECT_TRUE(write().empty());
    EXPECT_EQ(rows[0].end, End::Done);
    EXPECT_EQ(rows[1].end, End::Done);
    EXPECT_EQ(machine.store.ReadValue(machine.para2), basic::doubles({1, 2, 3, 7}));
    EXPECT_TRUE(machine.isTold());
}

TEST_F(LoadRun, AnElementThatIsGoneMeanwhileIsRefusedAndTheServoToldOfTheRest)
{
    machine::VariableStore restarted;
    restarted.declare(machine.para, basic::doubles({20, 35.5, 0}));
    restarted.declare(machine.para2, basic::doubles({1, 2}));
    restarted.declare(machine.flag, std::int16_t{0});
    machine.store = restarted;
    EXPECT_NO_THROW(EXPECT_TRUE(write().empty()));
    EXPECT_EQ(rows[0].end, End::Done);
    EXPECT_EQ(rows[1].end, End::Refused);
    EXPECT_EQ(rows[1].reason, "the machine has no element 3 there");
    EXPECT_EQ(machine.store.ReadValue(machine.para2), basic::doubles({1, 2}));
    EXPECT_TRUE(machine.isTold());
}

TEST_F(LoadRun, WhateverAReadThrowsEndsItsRowsOnly)
{
    machine.reading = [&](std::string_view name) {
        if (name == machine.para2) throw std::runtime_error{"out of memory"};
    };
    EXPECT_NO_THROW(EXPECT_TRUE(write().empty()));
    EXPECT_EQ(rows[0].end, End::Done);
    EXPECT_EQ(rows[1].end, End::NotSent);
    EXPECT_EQ(rows[1].reason, "out of memory");
    EXPECT_TRUE(machine.isTold());
}

TEST_F(LoadRun, NobodyKnowsWhatBecameOfAWriteThatThrows)
{
    machine.writing = [&](std::string_view name) {
        if (name == machine.para) throw std::runtime_error{"out of memory"};
    };
    EXPECT_NO_THROW(EXPECT_TRUE(write().empty()));
    EXPECT_EQ(rows[0].end, End::Unknown);
    EXPECT_EQ(rows[1].end, End::Done);
    EXPECT_TRUE(machine.isTold());
}

TEST_F(LoadRun, SaysThatTheServoMayNotKnow)
{
    machine.writing = [&](std::string_view name) {
        if (name == machine.flag) throw std::runtime_error{"out of memory"};
    };
    std::vector<std::string> troubles;
    EXPECT_NO_THROW(troubles = write());
    ASSERT_EQ(troubles.size(), 1U);
    EXPECT_EQ(troubles[0], "servo 3: the machine has the values and may not know of it: out of memory");
    EXPECT_EQ(rows[0].end, End::Done);
}

} // namespace servopanel::params
