#pragma once

#include "mqtt/broker_link.h"
#include "panel/servo_page_test.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::testing {

// The link of a panel, with somebody who is told of each message before it goes out.
class ToldLink : public mqtt::BrokerLink {
public:
    using Told = std::function<void(const std::string& topic)>;
    ToldLink(mqtt::BrokerLinkSettings settings, Told told)
        : mqtt::BrokerLink{std::move(settings)}
        , told_{std::move(told)}
    {
    }
    bool publish(const std::string& topic, std::string_view payload, Keep keep, int expireSeconds) override
    {
        if (told_) told_(topic);
        return mqtt::BrokerLink::publish(topic, payload, keep, expireSeconds);
    }

private:
    Told told_;
};

// A panel on a real broker, with the menu in front of its operator.
class BrokerPanel {
public:
    BrokerPanel(const TestProject& project, const mqtt::BrokerAddress& address, const std::string& name,
        bool viewing = false)
    {
        panel::PanelSettings settings = project.settings();
        settings.resolution = 1280;
        settings.name = name;
        settings.broker = panel::BrokerSettings{
            .viewing = viewing,
            .makeLink =
                [this, address, client = "panel-" + name] {
                    return std::make_unique<ToldLink>(mqtt::BrokerLinkSettings{.address = address,
                                                          .client = client,
                                                          .firstRetryMilliseconds = 20,
                                                          .lastRetryMilliseconds = 100},
                        [this](const std::string& topic) {
                            if (publishing) publishing(topic);
                        });
                },
        };
        panel = std::make_unique<Panel>(settings);
        reader = std::make_unique<MessageReader>(*panel);
        panel->window().show();
        isShown = QTest::qWaitForWindowExposed(&panel->window());
        panel->openServo();
        hands = std::make_unique<Operator>(*panel);
    }

    panel::Child& child(std::string_view name, std::int16_t index)
    {
        return panel->shownPart()->require<panel::Child>(name, index);
    }
    std::string shown(std::string_view name, std::int16_t index)
    {
        return static_cast<TextView&>(child(name, index).view()).shownText().toStdString();
    }
    bool isGood(std::string_view name, std::int16_t index)
    {
        return child(name, index).valueState() == panel::ValueState::Fresh;
    }
    bool isMaskOpen()
    {
        return panel->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").isOpen();
    }
    void change(std::string_view name, std::int16_t index, const std::string& number)
    {
        hands->input(name, index);
        hands->type(number);
        hands->ok();
    }
    // A value of each family of the shown servo 3.
    void changeEveryFamily()
    {
        change("SollwertL", 1, "42.5");
        change("SollwertL", 21, "33");
        hands->input("SchalterL", 31);
        change("ZeichnungL", 43, "7");
    }
    std::string confirm()
    {
        hands->footerKey(10);
        return answer();
    }
    std::string answer() { return panel->answers().text().toStdString(); }

    std::function<void(const std::string& topic)> publishing; // is told of what is about to go out
    bool isShown = false;
    std::unique_ptr<Panel> panel;
    std::unique_ptr<MessageReader> reader;
    std::unique_ptr<Operator> hands;
};

} // namespace servopanel::testing
