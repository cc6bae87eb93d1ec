#pragma once

#include "line_machine/controller.h"
#include "line_machine/machine_description.h"
#include "mqtt/test_net.h"
#include "panel/servo_page_test.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::testing {

constexpr int stepMs =
    50; // of the panel; three times as many pass for machine and broker, for the sake of time
constexpr double entered = 42.5;

// A panel and the controller of its machine on a broker in memory, with the page of servo 3.
class PanelOnBroker {
public:
    // adjust: of the settings that the panel is made with.
    explicit PanelOnBroker(const std::function<void(panel::PanelSettings&)>& adjust = {})
    {
        net.others = [this] {
            if (meanwhile) meanwhile();
            controller->poll(0);
        };
        machine::ProjectFile::load(project.file("project.json")).declareVariables(store);
        controller = std::make_unique<line_machine::Controller>(
            line_machine::ControllerSettings{.machine = "M1", .epoch = 1'700'000'000'000, .faults = true},
            line_machine::describeMachine(store, "M1"), store, machineLink, [this] { return net.now; });
        controller->poll(0);
        panel::PanelSettings settings = project.settings();
        settings.resolution = 1280;
        settings.name = "P1";
        settings.broker = panel::BrokerSettings{.makeLink =
                                                    [this] {
                                                        auto made = std::make_unique<TestLink>(net);
                                                        link = made.get();
                                                        return made;
                                                    },
            .clock = [this] { return net.now; }};
        if (adjust) adjust(settings);
        panel = std::make_unique<Panel>(settings);
        reader = std::make_unique<MessageReader>(*panel);
        panel->window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel->window()));
        panel->openServo();
        hands = std::make_unique<Operator>(*panel);
        hands->menuKey(1);
        wait(refreshMs);
    }

    // Lets time pass for the machine, the broker and the panel.
    void wait(int milliseconds)
    {
        for (int passed = 0; passed < milliseconds; passed += stepMs) {
            net.now += 3 * stepMs;
            controller->poll(0);
            QTest::qWait(stepMs);
        }
    }

    panel::Child& child(std::string_view name, std::int16_t index)
    {
        return panel->shownPart()->require<panel::Child>(name, index);
    }
    bool isMaskOpen()
    {
        return panel->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").isOpen();
    }
    // The first setpoint to "entered", not confirmed yet.
    void change()
    {
        hands->input("SollwertL", 1);
        hands->type("42.5");
        hands->ok();
    }
    std::string answer() { return panel->answers().text().toStdString(); }
    std::vector<double> machineHolds(const std::string& name)
    {
        std::vector<double> numbers;
        for (const Variant& element : store.find(name)->get<basic::Array>()->elements)
            numbers.push_back(*element.get<double>());
        return numbers;
    }

    // Commands that the machine has got since the start.
    std::size_t commands() const { return controller->seen().size(); }

    std::function<void()> meanwhile; // what happens while the panel waits, before the machine has its turn
    TestProject project{standardProject};
    TestNet net;
    machine::VariableStore store;
    TestLink machineLink{net};
    std::unique_ptr<line_machine::Controller> controller;
    TestLink* link = nullptr; // the panel's
    std::unique_ptr<Panel> panel;
    std::unique_ptr<MessageReader> reader;
    std::unique_ptr<Operator> hands;
};

} // namespace servopanel::testing
