#include "mqtt/broker_link.h"
#include "mqtt/machine_fixture.h"
#include "mqtt/mosquitto_process.h"
#include "mqtt/pumped_link.h"

#include "platform/process_var_access.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// What ReadValue and WriteValue promise to the library, whoever keeps the variables.

namespace servopanel::testing {

namespace {

using basic::Array;
using basic::Variant;
using basic::VariantType;

const std::vector<std::pair<std::string, Variant>>& startValues()
{
    static const std::vector<std::pair<std::string, Variant>> values{{"int16", std::int16_t{1}},
        {"int32", std::int32_t{100'000}}, {"single", 0.5F}, {"double", 2.25}, {"boolean", true},
        {"text", "Größe"}, {"doubles", basic::doubles({1, 2, 3})},
        {"int16s", Array{VariantType::Int16, 1, {std::int16_t{7}, std::int16_t{-8}}}},
        {"singles", Array{VariantType::Single, 0, {0.1F, -2.5F}}},
        {"Ch1.M1_T_servo_3<.mM1_servo_para_3>", basic::doubles({4})}};
    return values;
}

// Something that keeps the start values.
class Keeper {
public:
    virtual ~Keeper() = default;
    virtual platform::ProcessVarAccess& access() = 0;
};

class StoreKeeper : public Keeper {
public:
    StoreKeeper()
    {
        for (const auto& [name, value] : startValues())
            store_.declare(name, value);
    }
    platform::ProcessVarAccess& access() override { return store_; }

private:
    machine::VariableStore store_;
};

// Declares the start values, and describes them.
mqtt::Description described(machine::VariableStore& store)
{
    std::vector<mqtt::VariableDescription> variables;
    for (const auto& [name, value] : startValues()) {
        store.declare(name, value);
        mqtt::VariableDescription variable;
        variable.name = name;
        variable.type = machine::typeOf(value);
        variable.writable = true;
        if (const auto* const array = value.get<Array>()) {
            variable.first = array->lowerBound;
            variable.length = array->elements.size();
        }
        variables.push_back(std::move(variable));
    }
    return mqtt::Description{std::move(variables)};
}

class BrokerKeeper : public Keeper {
public:
    BrokerKeeper()
    {
        controller_.emplace(line_machine::ControllerSettings{.machine = "M1", .epoch = 1}, described(store_),
            store_, machineLink_, [this] { return net_.now; });
        net_.others = [this] { controller_->poll(0); };
        variables_.emplace(mqtt::BrokerVariablesSettings{.panel = "P1", .machines = {"M1"}}, panelLink_,
            [this] { return net_.now; });
        for (int i = 0; i < 100; ++i)
            variables_->poll(10);
    }
    platform::ProcessVarAccess& access() override { return *variables_; }

private:
    TestNet net_;
    machine::VariableStore store_;
    TestLink machineLink_{net_};
    TestLink panelLink_{net_};
    std::optional<line_machine::Controller> controller_;
    std::optional<mqtt::BrokerVariables> variables_;
};

// The same on a real broker, in real time.
class MosquittoKeeper : public Keeper {
public:
    MosquittoKeeper()
    {
        if (!broker_.start()) throw std::runtime_error{"no broker"};
        machineLink_.emplace(
            mqtt::BrokerLinkSettings{.address = broker_.socketAddress(), .client = "machine"});
        controller_.emplace(line_machine::ControllerSettings{.machine = "M1", .epoch = 1}, described(store_),
            store_, *machineLink_);
        panelLink_.emplace(mqtt::BrokerLinkSettings{.address = broker_.address(), .client = "panel"},
            [this] { controller_->poll(0); });
        variables_.emplace(mqtt::BrokerVariablesSettings{.panel = "P1", .machines = {"M1"}}, *panelLink_);
        const std::string& last = startValues().back().first;
        const mqtt::Clock clock = mqtt::steadyClock();
        const std::int64_t end = clock() + 20'000;
        while (variables_->standing(last).quality != mqtt::Quality::Good && clock() < end)
            variables_->poll(2);
    }
    platform::ProcessVarAccess& access() override { return *variables_; }

private:
    MosquittoProcess broker_;
    machine::VariableStore store_;
    std::optional<mqtt::BrokerLink> machineLink_;
    std::optional<line_machine::Controller> controller_;
    std::optional<PumpedLink> panelLink_;
    std::optional<mqtt::BrokerVariables> variables_;
};

struct Kind {
    const char* name;
    std::function<std::unique_ptr<Keeper>()> make;
};

class ProcessVariables : public ::testing::TestWithParam<Kind> {
protected:
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

    std::unique_ptr<Keeper> keeper = GetParam().make();
    platform::ProcessVarAccess& access = keeper->access();
};

} // namespace

TEST_P(ProcessVariables, AreReadInTheirOwnType)
{
    for (const auto& [name, value] : startValues()) {
        EXPECT_EQ(access.ReadValue(name), value) << name;
        EXPECT_EQ(access.ReadValue(name), value) << name << " again";
    }
}

TEST_P(ProcessVariables, GiveBackWhatWasWritten)
{
    const std::pair<std::string, Variant> writes[]{{"int16", std::int16_t{-32768}},
        {"int32", std::numeric_limits<std::int32_t>::max()}, {"single", 0.1F}, {"double", 0.1},
        {"double", -1e300}, {"boolean", false}, {"text", "\"quoted\" \\ \t 中"}, {"text", ""},
        {"doubles", basic::doubles({0.1, -2, 1e-300})},
        {"int16s", Array{VariantType::Int16, 1, {std::int16_t{0}, std::int16_t{9}}}},
        {"singles", Array{VariantType::Single, 0, {0.3F, 3e38F}}}};
    for (const auto& [name, value] : writes) {
        EXPECT_EQ(errorOf([&, &name = name, &value = value] { access.WriteValue(name, value); }), "no error")
            << name;
        EXPECT_EQ(access.ReadValue(name), value) << name;
    }
}

TEST_P(ProcessVariables, KeepTheirTypesWhateverIsWritten)
{
    struct Row {
        const char* name;
        Variant written;
        Variant held;
    };
    const Row rows[]{{"int16", 2.5, std::int16_t{2}}, {"int16", 3.5, std::int16_t{4}},
        {"int16", "12", std::int16_t{12}}, {"int16", true, std::int16_t{-1}},
        {"int16", std::int32_t{40}, std::int16_t{40}}, {"int32", std::int16_t{-7}, std::int32_t{-7}},
        {"double", std::int16_t{3}, 3.0}, {"single", 0.1, 0.1F}, {"boolean", std::int16_t{1}, true},
        {"text", 1.5, "1.5"},
        {"doubles", Array{VariantType::Variant, 1, {std::int16_t{1}, "2", 3.5F}},
            basic::doubles({1, 2, 3.5})},
        {"singles", basic::doubles({0.1, 0.7}), Array{VariantType::Single, 0, {0.1F, 0.7F}}},
        {"int16s", basic::doubles({1.5, -2}),
            Array{VariantType::Int16, 1, {std::int16_t{2}, std::int16_t{-2}}}}};
    for (const Row& row : rows) {
        EXPECT_EQ(errorOf([&] { access.WriteValue(row.name, row.written); }), "no error") << row.name;
        EXPECT_EQ(access.ReadValue(row.name), row.held) << row.name;
    }
}

TEST_P(ProcessVariables, RefuseWhatDoesNotFitAndKeepWhatTheyHold)
{
    struct Row {
        const char* name;
        Variant written;
        const char* error;
    };
    const Row rows[]{{"int16", std::int32_t{40'000}, "6: "}, {"int16", "five", "13: "},
        {"double", basic::doubles({1}), "13: "}, {"doubles", 1.0, "13: "},
        {"doubles", basic::doubles({1, 2}), "13: "}, {"double", basic::Null{}, "94: "},
        {"doubles", Array{VariantType::Variant, 0, {1.0, "x", 2.0}}, "13: "}};
    for (const Row& row : rows) {
        const Variant before = access.ReadValue(row.name);
        const std::string expected = row.error + std::string{"Process variable '"} + row.name + "': ";
        const std::string error = errorOf([&] { access.WriteValue(row.name, row.written); });
        EXPECT_TRUE(error.starts_with(expected)) << error;
        EXPECT_EQ(access.ReadValue(row.name), before);
    }
}

TEST_P(ProcessVariables, AreKnownByTheirExactNames)
{
    for (const char* name : {"", "Double", "double ", "doubl", "ch1.M1_T_servo_3<.mM1_servo_para_3>"}) {
        const std::string expected =
            std::string{"5: Process variable '"} + name + "': there is no such variable";
        EXPECT_EQ(errorOf([&] { access.ReadValue(name); }), expected);
        EXPECT_EQ(errorOf([&] { access.WriteValue(name, 1.0); }), expected);
    }
}

TEST_P(ProcessVariables, AConfirmGoesReadWriteReadWrite)
{
    // As the page does it: each family is read, changed in one element and written as a whole.
    for (int round = 1; round <= 3; ++round)
        for (const char* name : {"doubles", "int16s"}) {
            Variant family = access.ReadValue(name);
            basic::setElement(family, family.get<Array>()->lowerBound, std::int16_t(round));
            access.WriteValue(name, family);
            EXPECT_EQ(access.ReadValue(name), family);
        }
    EXPECT_EQ(access.ReadValue("doubles"), basic::doubles({3, 2, 3}));
}

INSTANTIATE_TEST_SUITE_P(Conformance, ProcessVariables,
    ::testing::Values(Kind{"Embedded", [] { return std::make_unique<StoreKeeper>(); }},
        Kind{"Broker", [] { return std::make_unique<BrokerKeeper>(); }},
        Kind{"Mosquitto", [] { return std::make_unique<MosquittoKeeper>(); }}),
    [](const auto& kind) { return kind.param.name; });

} // namespace servopanel::testing
