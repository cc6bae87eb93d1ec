#pragma once

#include "mqtt/broker_example.h"
#include "mqtt/broker_link.h"
#include "mqtt/broker_variables.h"
#include "mqtt/mosquitto_process.h"
#include "panel_on_broker/broker_panel.h"

#include <QProcess>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::testing {

// Somebody on the broker who sees all commands and answers, and what the machines hold.
class Onlooker : private mqtt::LinkReceiver {
public:
    explicit Onlooker(const mqtt::BrokerAddress& address);

    void poll();
    bool isUp() const { return commandLink_.isUp(); }
    // Whether the machine's value is known.
    bool knows(const std::string& variable) const;
    basic::Variant held(const std::string& variable) { return values_.ReadValue(variable); }
    // On the machine's topic for faults.
    void order(const std::string& fault);

    std::vector<std::string> commands; // variables, in the order of the commands
    int answers = 0; // to them

private:
    void linkUp() override { }
    void linkDown(std::string_view) override { }
    void received(std::string_view topic, std::string_view payload, bool retained) override;

    mqtt::BrokerLink commandLink_;
    mqtt::BrokerLink valueLink_;
    mqtt::BrokerVariables values_;
};

// A broker and the simulated machines M1 and M2 as processes of their own, and panels on them.
class RealLine : public ::testing::Test {
protected:
    RealLine();
    ~RealLine() override;

    void SetUp() override;
    void startMachines(const QStringList& options = {});
    void killMachines();
    std::unique_ptr<BrokerPanel> makePanel(const std::string& name);
    // On the page of a servo of the menu, with the machine's values.
    std::unique_ptr<BrokerPanel> openPanel(const std::string& name, int menuKey = 1);

    // Lets panels and onlooker work until something is so; false when it does not come.
    bool until(const std::function<bool()>& condition);
    // Of an array, as far as the onlooker knows it: nothing for a while after a change.
    std::optional<double> element(const std::string& variable, std::size_t i);
    // What the machine holds, as soon as the onlooker knows it.
    Variant held(const std::string& variable);
    std::vector<double> numbers(const std::string& variable);

    TestProject project;
    MosquittoProcess broker;
    QProcess machines;
    std::unique_ptr<Onlooker> onlooker;
};

} // namespace servopanel::testing
