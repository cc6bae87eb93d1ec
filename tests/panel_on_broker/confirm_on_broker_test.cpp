// A confirm over a broker, seen by the operator while it lasts and at its end.
#include "panel_on_broker/panel_on_broker.h"

#include "panel/form/fusszeile.h"
#include "panel/runtime/broker_connection.h"

#include <QEvent>

#include <algorithm>

namespace servopanel::testing {

namespace {

// Counts what is painted of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& watched) { watched.installEventFilter(this); }
    int count() const { return count_; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++count_;
        return false;
    }

private:
    int count_ = 0;
};

class ConfirmOnBroker : public ::testing::Test, protected PanelOnBroker {
protected:
    // What stands on the strip while the panel waits for answers, as far as it was painted.
    struct Waiting {
        std::string text;
        std::int64_t after = -1; // milliseconds from the key on
        bool isBusy = false; // a procedure of the library runs
    };
    Waiting confirmAndWatch()
    {
        PaintCounter painted{panel->answers()};
        Waiting seen;
        const std::int64_t begin = net.now;
        meanwhile = [&] {
            if (seen.after >= 0 || !panel->answers().isVisible() || painted.count() == 0) return;
            seen = {answer(), net.now - begin, panel->gate().isBusy()};
        };
        pressConfirm();
        meanwhile = {};
        return seen;
    }
    // Without the time that a finger takes, in which the panel is polled.
    void pressConfirm()
    {
        panel->shownPart()->deliver({"Fußzeile"}, "TasteClick", std::vector{Variant{std::int16_t{10}}});
    }
    bool isConfirmHeldBack()
    {
        return panel->shownPart()->require<panel::FußzeileChild>("Fußzeile").bar().key(10).isHeldBack();
    }
    // Does it once, as soon as the machine has got so many commands of the next confirm.
    void afterCommands(std::size_t count, std::function<void()> happen)
    {
        meanwhile = [this, until = commands() + count, happen = std::move(happen)] {
            if (commands() < until) return;
            const auto once = happen;
            meanwhile = {};
            once();
        };
    }
};

} // namespace

TEST_F(ConfirmOnBroker, ASlowOneSaysThatItIsBeingWritten)
{
    change();
    controller->orderFault(R"({"fault":"slow","milliseconds":400,"times":100})");
    const Waiting seen = confirmAndWatch();
    EXPECT_EQ(seen.text, "Writing");
    EXPECT_GE(seen.after, 200);
    EXPECT_LE(seen.after, 300);
    EXPECT_TRUE(seen.isBusy);
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_FALSE(panel->answers().isBusy());
}

TEST_F(ConfirmOnBroker, AQuickOneSaysNothingMeanwhile)
{
    change();
    EXPECT_EQ(confirmAndWatch().after, -1);
    EXPECT_EQ(answer(), "Written, values: 1");
}

TEST_F(ConfirmOnBroker, EverySlowOneIsTold)
{
    for (int i = 0; i < 2; ++i) {
        change();
        controller->orderFault(R"({"fault":"silent","times":1})");
        EXPECT_EQ(confirmAndWatch().text, "Writing") << i;
        EXPECT_TRUE(panel->answers().isRefusal());
        wait(refreshMs);
    }
}

// The state of everything that is shown follows at once, not with the next look at the connection.
TEST_F(ConfirmOnBroker, AConnectionThatBreaksWithTheFirstWriteIsShownAtOnce)
{
    change();
    afterCommands(0, [this] {
        link->reachable = false;
        link->drop("the cable was pulled");
    });
    pressConfirm();
    EXPECT_EQ(answer().find("Unclear whether written: Start position: no answer"), 0U) << answer();
    EXPECT_EQ(child("SollwertR", 11).valueState(), panel::ValueState::Stale);
    bool isReported = false;
    for (const panel::ErrorEntry& entry : panel->errors().entries())
        isReported = isReported || entry.text.contains("the cable was pulled");
    EXPECT_TRUE(isReported);
    auto& bar = panel->servo()->require<panel::HeaderChild>("Header").bar();
    bar.refresh();
    EXPECT_EQ(bar.shown().quality, LinkQuality::Bad);
}

TEST_F(ConfirmOnBroker, WhatTheConnectionDidNotTakeAnyMoreWaitsForTheNext)
{
    change();
    hands->input("SollwertL", 21);
    hands->type("12");
    hands->ok();
    afterCommands(0, [this] {
        link->reachable = false;
        link->drop("the cable was pulled");
    });
    pressConfirm();
    EXPECT_TRUE(child("SollwertL", 21).isChanged());
    EXPECT_TRUE(isConfirmHeldBack());
    link->reachable = true;
    wait(1000);
    EXPECT_FALSE(isConfirmHeldBack());
    hands->footerKey(10);
    EXPECT_EQ(answer(), "Written, values: 1");
    EXPECT_EQ(machineHolds(secondSetpoints)[0], 12);
}

// The values are there and nobody has told the machine to take them over.
TEST_F(ConfirmOnBroker, AnAnswerThatIsLostLeavesTheChangeUnannouncedAndWaiting)
{
    change();
    controller->orderFault(R"({"fault":"silent","times":1,"acts":true})");
    hands->footerKey(10);
    EXPECT_EQ(answer(),
        "Unclear whether written: Start position: no answer, but the machine has the new value. "
        "Change not announced");
    EXPECT_EQ(machineHolds(setpoints)[0], 42.5);
    EXPECT_TRUE(child("SollwertL", 1).isChanged());

    const std::size_t before = commands();
    wait(refreshMs);
    hands->footerKey(10);
    EXPECT_EQ(answer().find("Written"), 0U) << answer();
    EXPECT_FALSE(child("SollwertL", 1).isChanged());
    ASSERT_GT(commands(), before);
    EXPECT_EQ(controller->seen().back().name, changedFlag);
    EXPECT_EQ(controller->seen().back().outcome, mqtt::Outcome::Done);
}

TEST_F(ConfirmOnBroker, AMachineWithoutTheNewValueNeedsNoAnnouncement)
{
    change();
    controller->orderFault(R"({"fault":"silent","times":1})");
    hands->footerKey(10);
    EXPECT_EQ(answer(),
        "Unclear whether written: Start position: no answer, the machine does not have the new value");
    EXPECT_FALSE(child("SollwertL", 1).isChanged());
}

// The connection breaks behind a command; when it is back the operator is told what the machine has done with it.
TEST_F(ConfirmOnBroker, WhatBecameOfAWriteWithoutAnAnswerIsSaidOnceItIsKnown)
{
    for (const bool acts : {true, false}) {
        change();
        controller->orderFault(std::string{R"({"fault":"silent","times":1,"acts":)"}
                                   .append(acts ? "true" : "false")
                                   .append("}"));
        afterCommands(1, [this] {
            link->reachable = false;
            link->drop("the cable was pulled");
        });
        pressConfirm();
        const std::string unclear = "Unclear whether written: Start position: no answer";
        EXPECT_EQ(answer(), unclear + ". Change not announced");
        wait(2000);
        EXPECT_EQ(answer(), unclear + ". Change not announced") << "nobody knows yet";

        link->reachable = true;
        wait(2000);
        const std::string end =
            acts ? ", but the machine has the new value" : ", the machine does not have the new value";
        EXPECT_EQ(answer().find(unclear + end), 0U) << answer();
        const auto& entries = panel->errors().entries();
        EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [&](const panel::ErrorEntry& entry) {
            return entry.text.toStdString() == "Start position: no answer" + end + " – " + setpoints;
        }));
        store.write(setpoints, basic::doubles(std::vector<double>(machineHolds(setpoints).size(), 1)),
            machine::Writer::Machine);
        wait(refreshMs);
    }
}

// A controller that had no time, or has just begun anew, holds what it held; the operator need not enter it again.
TEST_F(ConfirmOnBroker, WhatMayComeRightLaterWaits)
{
    for (const char* code : {"busy", "too_late", "restarted"}) {
        change();
        const double before = machineHolds(setpoints)[0];
        controller->orderFault(std::string{R"({"fault":"refuse","code":")"}.append(code).append("\"}"));
        hands->footerKey(10);
        EXPECT_EQ(answer().find("Not written: Start position: "), 0U) << answer();
        EXPECT_TRUE(child("SollwertL", 1).isChanged()) << code;
        EXPECT_EQ(machineHolds(setpoints)[0], before);
        wait(refreshMs);
        hands->footerKey(10);
        EXPECT_EQ(answer(), "Written, values: 1") << code;
        EXPECT_FALSE(child("SollwertL", 1).isChanged());
        std::vector<double> other = machineHolds(setpoints);
        other[0] = 7;
        store.write(setpoints, basic::doubles(other), machine::Writer::Machine);
        wait(refreshMs);
    }
}

TEST_F(ConfirmOnBroker, TheStartWaitsForAllValues)
{
    const std::int64_t begin = net.now;
    net.loses = [&](const std::string& topic) {
        return topic.find("/val/") != std::string::npos && net.now < begin + 700;
    };
    const panel::BrokerSettings settings{
        .makeLink = [this] { return std::make_unique<TestLink>(net); }, .clock = [this] { return net.now; }};
    panel::BrokerConnection connection{settings, "P2"};
    connection.show("M1");
    const auto variables = connection.variables(std::make_shared<machine::VariableStore>());
    EXPECT_THROW(variables->ReadValue(setpoints), basic::Error);
    connection.waitFor("M1", 5000);
    EXPECT_NO_THROW(variables->ReadValue(setpoints));
    EXPECT_NO_THROW(variables->ReadValue(otherSetpoints));
    EXPECT_LT(net.now, begin + 5000);
}

TEST_F(ConfirmOnBroker, TheStartDoesNotWaitForEver)
{
    const std::int64_t begin = net.now;
    net.loses = [](const std::string& topic) { return topic.find("/val/") != std::string::npos; };
    const panel::BrokerSettings settings{
        .makeLink = [this] { return std::make_unique<TestLink>(net); }, .clock = [this] { return net.now; }};
    panel::BrokerConnection connection{settings, "P2"};
    connection.show("M1");
    connection.waitFor("M1", 2000);
    EXPECT_GE(net.now, begin + 2000);
    EXPECT_LT(net.now, begin + 2100);
}

} // namespace servopanel::testing
