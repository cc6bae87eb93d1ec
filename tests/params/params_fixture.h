#pragma once

#include "jet/definition_row.h"
#include "line_machine/controller.h"
#include "line_machine/definition_levels.h"
#include "line_machine/machine_description.h"
#include "machine/project_file.h"
#include "machine/variable_store.h"
#include "mqtt/test_net.h"
#include "params/tool.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::testing {

inline std::string variable(const std::string& family, int servo, const std::string& machine = "M1")
{
    const std::string number = std::to_string(servo);
    std::string name = "Ch1." + machine;
    name.append("_T_servo_").append(number).append("<.m").append(machine);
    return name.append("_").append(family).append("_").append(number).append(">");
}

// The variables of a servo as project.json has them.
inline std::string servoJson(int servo, const std::string& machine, const std::string& para)
{
    const auto member = [&](const std::string& family, const std::string& value) {
        return std::string{",\n\""}.append(variable(family, servo, machine)).append("\": ").append(value);
    };
    return member("servo_para", para) + member("servo_para_un", "[0.0, 0.0, 0.0]")
        + member("servo_para_ob", "[50.0, 50.0, 50.0]") + member("servo_para2", "[1.5]")
        + member("servo_schalt", "37") + member("servo_zeich", "[312450017.0, 0.0]")
        + member("servoaender", "0");
}

inline jet::DefinitionRow definition(
    const std::string& name, int element, double least, double most, int level)
{
    jet::DefinitionRow row;
    row.machineType = "M1";
    row.variable = name;
    row.element = static_cast<std::int16_t>(element);
    row.absMin = -1000.0;
    row.absMax = 1000.0;
    row.min = least;
    row.max = most;
    row.pass = static_cast<std::int16_t>(level);
    return row;
}

// A project with the machines M1 (servos 1 and 3) and M2 (servo 3) on the disk, and the controller of M1 on a broker in
// memory. Servo 3 has definitions.
class ParamsFixture : public ::testing::Test {
protected:
    ParamsFixture()
    {
        folder.file("project/project.json",
            R"({"title": "Carton line", "language": 1, "languages": [{"number": 1, "code": "en", "name": "English"}],
"variables": {"parameter<.maschinenbez_1>": "M1", "parameter<.maschinenbez_2>": "M2")"
                + servoJson(1, "M1", "[10.0, 20.0, 30.0]") + servoJson(3, "M1", "[20.0, 35.5, 0.0]")
                + servoJson(3, "M2", "[20.0, 36.0, 0.0]") + "}}");
        folder.file("project/Texts/en.txt",
            "Servo.M1.Servo3.1 = Web tension;N\nServo.M1.Servo3.2 = =Draw;%\nServo.M1.Servo3.25 = "
            "Automatic\n");
        const std::vector<jet::DefinitionRow> definitions{definition(variable("servo_para", 3), 0, 10, 30, 1),
            definition(variable("servo_para", 3), 1, 0, 40, 3),
            definition(variable("servo_schalt", 3), 3, 0, 1, 4)};
        const jet::Bytes database = jet::newDefinitionDatabase(definitions);
        folder.file(
            "project/Servo/Servo.mdb", {reinterpret_cast<const char*>(database.data()), database.size()});

        machine::ProjectFile::load(folder.path() / "project" / "project.json").declareVariables(store);
        controller.emplace(line_machine::ControllerSettings{.machine = "M1", .epoch = 1'700'000'000'000},
            line_machine::withLevels(
                line_machine::describeMachine(store, "M1"), jet::MachineDefinitions{definitions, "M1"}),
            store, machineLink, clock);
        net.others = [this] {
            if (controller) controller->poll(0);
        };
        surroundings.makeLink = [this](const mqtt::BrokerAddress&, const std::string&) {
            auto link = std::make_unique<TestLink>(net);
            link->reachable = brokerIsThere;
            return link;
        };
        surroundings.clock = clock;
        surroundings.now = [] { return 1'795'310'345'250; };
        surroundings.computer = "P1";
        surroundings.show = [this](const std::string& lines) {
            shown += lines;
            sentBefore = commands();
        };
    }

    int run(const std::vector<std::string>& arguments)
    {
        output = {};
        shown.clear();
        return static_cast<int>(params::runTool(arguments, surroundings, output));
    }
    // On the broker; without a journal where the options name none.
    int load(const std::string& file, const std::vector<std::string>& options = {})
    {
        std::vector<std::string> arguments{
            "load", file, "--machine", "M1", "--broker", "127.0.0.1", "--project", project()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto has = [&](const char* option) {
            return std::find(options.begin(), options.end(), option) != options.end();
        };
        if (has("--apply") && !has("--journal")) arguments.emplace_back("--no-journal");
        return run(arguments);
    }
    std::string project() const { return (folder.path() / "project").string(); }

    // A file with these rows, "variable,element,value" each.
    std::string setFile(const std::string& rows, const std::string& name = "set.csv")
    {
        return folder
            .file(name,
                "servo parameters,1\nmachine,M1\ndescription," + described
                    + "\n\nvariable,element,value,name,unit\n" + rows)
            .string();
    }
    static std::string row(const std::string& family, int servo, int element, const std::string& value)
    {
        std::string line = variable(family, servo);
        return line.append(",").append(std::to_string(element)).append(",").append(value).append(",,\n");
    }

    // Lets time pass while the tool does nothing.
    void pass(std::int64_t milliseconds)
    {
        constexpr std::int64_t turn = 10;
        for (const std::int64_t end = net.now + milliseconds; net.now < end;) {
            net.now += turn;
            if (controller) controller->poll(0);
        }
    }

    double held(const std::string& family, int servo, std::size_t element) const
    {
        const auto* const array = store.find(variable(family, servo))->get<basic::Array>();
        return *array->elements.at(element).get<double>();
    }
    std::int16_t word(const std::string& family, int servo) const
    {
        return *store.find(variable(family, servo))->get<std::int16_t>();
    }
    void set(const std::string& family, int servo, const std::vector<double>& values)
    {
        store.write(variable(family, servo), basic::doubles(values), machine::Writer::Machine);
    }
    // The variables of the commands that reached the machine, in their order.
    std::string commands() const
    {
        std::string text;
        for (const auto& seen : controller->seen())
            text.append(seen.name).append(" ");
        return text;
    }
    bool says(const std::string& part) const
    {
        return (shown + output.errors).find(part) != std::string::npos;
    }
    bool shows(const std::string& part) const { return output.text.find(part) != std::string::npos; }

    tests::TemporaryFolder folder;
    TestNet net;
    machine::VariableStore store;
    mqtt::Clock clock = [this] { return net.now; };
    TestLink machineLink{net};
    std::optional<line_machine::Controller> controller;
    bool brokerIsThere = true;
    std::string described = "another"; // the description's hash in setFile
    params::Surroundings surroundings;
    params::ToolOutput output;
    std::string shown; // before anything was sent
    std::string sentBefore; // the commands until then
};

} // namespace servopanel::testing
