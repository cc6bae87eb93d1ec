#pragma once

#include "basic/error.h"
#include "line_machine/controller.h"
#include "machine/variable_store.h"
#include "mqtt/broker_variables.h"
#include "mqtt/test_net.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::testing {

inline const std::string para = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
inline const std::string diagnosis = "Ch1.M1_T_servo_3<.mM1_servo_diag_31>";
inline const std::string switches = "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>";
inline const std::string flag = "Ch1.M1_T_servo_3<.mM1_servoaender_3>";

// The variables of one servo, as its controller holds them.
inline mqtt::Description declareServo(machine::VariableStore& store)
{
    const auto array = [](const std::string& name, double value) {
        return std::pair{name, basic::doubles(std::vector<double>(3, value))};
    };
    const std::pair<std::string, basic::Variant> values[]{array(para, 5), array(diagnosis, 1),
        array("low", 0), array("high", 10), {switches, std::int32_t{5}}, {flag, std::int16_t{0}},
        {"text", "ready"}, {"passive", false}};
    std::vector<mqtt::VariableDescription> variables;
    for (const auto& [name, value] : values) {
        store.declare(name, value);
        mqtt::VariableDescription variable;
        variable.name = name;
        variable.type = machine::typeOf(value);
        if (variable.type.array) variable.length = 3;
        variable.writable = name == para || name == switches || name == flag || name == "text";
        variable.signal = name == flag;
        if (name == para) {
            variable.least = "low";
            variable.most = "high";
            variable.levels = {0, 1, 4};
        }
        if (name == switches) variable.levels = {0, 0, 0, 4};
        variables.push_back(std::move(variable));
    }
    return mqtt::Description{std::move(variables)};
}

// A panel and a controller on a broker in memory, with a clock of the test's own.
class MachineFixture : public ::testing::Test {
protected:
    MachineFixture()
    {
        net.others = [this] { controller.poll(0); };
        variables.setLevel(5);
        settle();
    }

    // Lets time pass for both sides.
    void pass(std::int64_t milliseconds)
    {
        const std::int64_t end = net.now + milliseconds;
        while (net.now < end)
            variables.poll(10);
    }
    void settle() { pass(100); }

    std::vector<double> numbers(const std::string& name)
    {
        std::vector<double> numbers;
        const basic::Variant value = variables.ReadValue(name);
        for (const basic::Variant& element : value.get<basic::Array>()->elements)
            numbers.push_back(*element.get<double>());
        return numbers;
    }

    mqtt::Outcome outcomeOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const basic::Error& error) {
            text = error.description;
            EXPECT_EQ(error.source, "Process variables");
            return static_cast<mqtt::Outcome>(error.number);
        }
        text.clear();
        return mqtt::Outcome::Done;
    }
    mqtt::Outcome reading(const std::string& name)
    {
        return outcomeOf([&] { variables.ReadValue(name); });
    }
    mqtt::Outcome writing(const std::string& name, const basic::Variant& value)
    {
        return outcomeOf([&] { variables.WriteValue(name, value); });
    }

    TestNet net;
    machine::VariableStore store;
    mqtt::Description description = declareServo(store);
    mqtt::Clock clock = [this] { return net.now; };
    TestLink machineLink{net};
    line_machine::Controller controller{{.machine = "M1", .epoch = 1'700'000'000'000, .faults = true},
        description, store, machineLink, clock};
    TestLink panelLink{net};
    mqtt::BrokerVariables variables{{.panel = "P1", .machines = {"M1"}}, panelLink, clock};
    std::string text; // of the latest error
};

} // namespace servopanel::testing
