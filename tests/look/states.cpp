#include "look/states.h"

#include "panel/form/scroll_bar.h"
#include "panel/form/text_child.h"
#include "panel/widgets/language_sheet.h"
#include "panel/widgets/message_sheet.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace servopanel::look {

using panel::Operator;
using panel::Panel;

namespace {

using Look = std::function<void()>;

// Keys of the menu of machine M1 by what their servos have.
constexpr int fullest = 1; // every setpoint, switch and drawing number
constexpr int sparse = 3; // a few setpoints only
constexpr int drawings = 4; // two drawing numbers, three switches

// Most states are reached and looked at, and the panel is switched off there.
State state(std::string name, std::function<void(Operator&, Panel&)> reach)
{
    return {std::move(name), [reach = std::move(reach)](Operator& hands, Panel& panel, const Look& look) {
                reach(hands, panel);
                look();
            }};
}

State withLevel(State state, std::int16_t level)
{
    state.level = level;
    return state;
}

State ofMachine(State state, std::int16_t machine)
{
    state.machine = machine;
    return state;
}

State withoutReading(State state, std::string variable)
{
    state.unreadable.push_back(std::move(variable));
    return state;
}

State withoutWriting(State state, std::string variable)
{
    state.unwritable.push_back(std::move(variable));
    return state;
}

void change(Operator& hands, std::string_view name, std::int16_t index, const std::string& value)
{
    hands.input(name, index);
    hands.type(value);
    hands.ok();
}

void changeSeveral(Operator& hands)
{
    change(hands, "SollwertL", 1, "321.5");
    change(hands, "SollwertL", 2, "181");
    change(hands, "SollwertR", 11, "12.75");
    hands.input("SchalterL", 31);
    change(hands, "ZeichnungL", 43, "7");
}

// Another panel, or the machine itself, and the page has read it.
void somebodyChanges(Panel& panel, std::int32_t element, double value)
{
    const std::string setpoints = "Ch1.M1_T_servo_1<.mM1_servo_para_1>";
    basic::Variant values = *panel.variables().find(setpoints);
    basic::setElement(values, element, basic::Variant{value});
    panel.variables().write(setpoints, values, machine::Writer::Machine);
    panel.shownPart()->deliver({"Timer"}, "Timer", {});
}

// While a change waits the page leaves touched fields as they are.
void touchAndLeave(Operator& hands, Panel& panel)
{
    hands.menuKey(fullest);
    change(hands, "SollwertL", 1, "321.5");
    hands.input("SollwertL", 2);
    hands.cancel();
    somebodyChanges(panel, 1, 176.5);
}

void reportFault(Panel& panel, const std::string& text)
{
    for (const char* name : {"Ch1.M1_T_servo_1<.mM1_fetext_11>", "Ch1.M1_T_servo_1<.mM1_fetext_12>"})
        panel.variables().write(name, basic::Variant{text}, machine::Writer::Machine);
}

// One more read of the actual values, a second later. The newest values have the most decimals, so that the text of a
// value does not depend on how many reads the page has made by itself meanwhile.
void readTrends(Panel& panel, int second)
{
    clockOfTheWall() = clockOfTheWall().addSecs(1);
    const std::string variable = "Ch1.M1_T_servo_1<.mM1_servo_diag_11>";
    basic::Variant values = *panel.variables().find(variable);
    const double wave = std::sin(second / 8.0);
    const auto set = [&](int number, double value) {
        basic::setElement(values, number - 101, std::round(value) + 0.25);
    };
    set(103, 320 + 12 * wave);
    set(105, 50 + second / 4.0);
    set(113, 40 + (second % 20 < 10 ? 9 : 0));
    set(117, 50 - 10 * wave);
    set(122, 3 + second / 10.0);
    set(128, 6 - wave * 4);
    panel.variables().write(variable, values, machine::Writer::Machine);
    panel.trends().refresh();
    // The page reads with its own timer, which counts the time of the system.
    panel.shownPart()->deliver({"Timer"}, "Timer", {});
}

void openTrends(Operator& hands, Panel& panel, std::initializer_list<int> numbers)
{
    hands.menuKey(fullest);
    hands.footerKey(10);
    readTrends(panel, 0);
    for (const int number : numbers)
        hands.actualValue(number);
    constexpr int seconds = 50;
    for (int second = 1; second <= seconds; ++second) {
        // Some reads fail: the curves break off.
        panel.setLink({second < 20 || second > 24, "The controller does not answer"});
        readTrends(panel, second);
    }
}

// The message keeps the operator's touch waiting, so it is looked at from a timer.
void lookAtMessage(Operator& hands, Panel& panel, const Look& look)
{
    hands.menuKey(fullest);
    bool seen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        for (QObject* each : panel.window().stage().children()) {
            auto* message = dynamic_cast<panel::MessageSheet*>(each);
            if (message == nullptr || !message->isVisible()) continue;
            timer.stop();
            look();
            seen = true;
            QTest::mouseClick(&message->okKey(), Qt::LeftButton);
            return;
        }
    });
    timer.start(1);
    hands.input("SollwertL", 1);
    if (!seen) throw panel::NotThere{"a message"};
}

std::vector<State> makeStates()
{
    std::vector<State> all;
    all.push_back(state("menu", [](Operator&, Panel&) {}));
    all.push_back(state("menu-end", [](Operator& hands, Panel&) {
        panel::ScrollView& scroll =
            hands.part("ServoMenu").require<panel::ScrollBarChild>("ScrollBar").scroll();
        while (scroll.position() < scroll.last())
            hands.scrollDown();
    }));
    all.push_back(state("menu-key-down", [](Operator& hands, Panel&) {
        QWidget& key = hands.part("ServoMenu").require<panel::PictureChild>("BildIm", 2).view();
        hands.press(key, key.rect().center());
    }));
    all.push_back(ofMachine(state("menu-short", [](Operator&, Panel&) {}), 2));

    all.push_back(state("page-full", [](Operator& hands, Panel&) { hands.menuKey(fullest); }));
    all.push_back(state("page-sparse", [](Operator& hands, Panel&) { hands.menuKey(sparse); }));
    all.push_back(state("page-drawings", [](Operator& hands, Panel&) { hands.menuKey(drawings); }));
    all.push_back(ofMachine(state("page-palletiser", [](Operator& hands, Panel&) { hands.menuKey(2); }), 2));
    all.push_back(
        withLevel(state("page-locked", [](Operator& hands, Panel&) { hands.menuKey(fullest); }), 0));
    all.push_back(state("page-changed", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        changeSeveral(hands);
    }));
    all.push_back(state("page-written", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        changeSeveral(hands);
        hands.footerKey(10);
    }));
    all.push_back(withoutWriting(state("page-refused",
                                     [](Operator& hands, Panel&) {
                                         hands.menuKey(fullest);
                                         change(hands, "SollwertL", 1, "321.5");
                                         hands.footerKey(10);
                                     }),
        "Ch1.M1_T_servo_1<.mM1_servo_para_1>"));
    all.push_back(
        withoutReading(state("page-values-missing", [](Operator& hands, Panel&) { hands.menuKey(fullest); }),
            "Ch1.M1_T_servo_1<.mM1_servo_para2_1>"));
    all.push_back(state("page-no-link", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        panel.setLink({false, "The controller does not answer"});
    }));
    all.push_back(state("diagnosis-no-link", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        hands.footerKey(10);
        panel.setLink({false, "The controller does not answer"});
    }));
    all.push_back(state("page-last", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        while (hands.isKeyOn(6))
            hands.footerKey(6);
    }));
    all.push_back(state("page-second-mode", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.footerKey(4);
    }));

    all.push_back(state("mask-over-right", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertL", 2);
    }));
    all.push_back(state("mask-over-left", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertR", 16);
    }));
    all.push_back(state("mask-last-row", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertL", 22);
    }));
    all.push_back(state("mask-negative", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertL", 21);
        hands.type("-12.34");
    }));
    all.push_back(state("mask-too-large", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertL", 2);
        hands.type("123456789");
        hands.ok();
    }));
    all.push_back(state("mask-too-small", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertL", 6);
        hands.type("1");
        hands.ok();
    }));
    all.push_back(state("mask-no-number", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("SollwertL", 2);
        hands.clear();
        hands.ok();
    }));
    all.push_back(state("mask-drawing", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.input("ZeichnungL", 43);
    }));

    all.push_back(state("editor", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.footerKey(4);
        hands.input("SollwertL", 1);
    }));
    all.push_back(state("editor-limits-crossed", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.footerKey(4);
        hands.input("SollwertR", 12);
        hands.editorType("999999");
        hands.editorOk();
    }));

    all.push_back(state("diagnosis-1", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.footerKey(10);
    }));
    all.push_back(state("diagnosis-2", [](Operator& hands, Panel&) {
        hands.menuKey(fullest);
        hands.footerKey(10);
        hands.footerKey(8);
    }));
    all.push_back(state("diagnosis-fault", [](Operator& hands, Panel& panel) {
        reportFault(panel,
            "E541 Hindernis im Fahrweg der Abwicklung, bitte Schutzhaube öffnen und Material entfernen / "
            "Obstacle in the travel path of the unwinder, please open the hood and remove the material");
        hands.menuKey(fullest);
        hands.footerKey(10);
    }));

    all.push_back(state("languages", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        // Up to three languages have keys of their own.
        panel::TouchKey* key = panel.servo()->require<panel::HeaderChild>("Header").bar().languagesKey();
        if (key == nullptr) return;
        hands.tap(*key);
        const auto sheets = panel.window().stage().findChildren<panel::LanguageSheet*>();
        if (sheets.isEmpty() || !sheets.front()->isVisible()) throw panel::NotThere{"the sheet of languages"};
    }));
    all.push_back({"message", lookAtMessage, 5, 1, false, {}, {}});
    all.push_back(state("reports-few", [](Operator& hands, Panel& panel) {
        hands.menuKey(sparse);
        panel.note("'Servo\\Servo_5_1280.gif': not a picture");
        panel.note(panel::PanelText::ReadAnewLater);
        hands.tap(panel.errors().badge());
    }));
    all.push_back(state("reports-many", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        for (int number = 1; number <= 300; ++number)
            panel.note("Ma WerteLesen: variable 'Ch1.M1_T_servo_1<.mM1_servo_diag_" + std::to_string(number)
                + ">' is missing, which nobody on this line has ever declared");
        panel.note(std::string(400, 'x'));
        hands.tap(panel.errors().badge());
    }));
    all.push_back(state("other-screen", [](Operator& hands, Panel&) { hands.footerKey(11); }));
    all.push_back(state("trend", [](Operator& hands, Panel& panel) {
        openTrends(hands, panel, {103, 105, 113, 117});
    }));
    all.push_back(state("trend-large", [](Operator& hands, Panel& panel) {
        openTrends(hands, panel, {103, 105, 113, 117});
        hands.tap(panel.trends().sheet().enlargeKey());
    }));
    all.push_back(state("trend-frozen", [](Operator& hands, Panel& panel) {
        openTrends(hands, panel, {103, 105, 113, 117});
        panel::TrendSheet& sheet = panel.trends().sheet();
        hands.tap(sheet.freezeKey());
        const QRect area = sheet.plot().area();
        hands.press(sheet.plot(), {area.left() + area.width() / 3, area.center().y()});
    }));
    all.push_back(state("trend-table", [](Operator& hands, Panel& panel) {
        openTrends(hands, panel, {122, 128});
    }));
    // New states come last, so that the others keep their turns among the reference pictures.
    all.push_back(withoutReading(state("mask-limits-unknown",
                                     [](Operator& hands, Panel&) {
                                         hands.menuKey(fullest);
                                         hands.input("SollwertL", 2);
                                     }),
        "Ch1.M1_T_servo_1<.mM1_servo_para_ob_1>"));
    all.push_back(state("edit-no-link", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        panel.setLink({false, "The controller does not answer"});
        hands.input("SollwertL", 1);
    }));
    all.push_back(state("confirm-changed-meanwhile", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        changeSeveral(hands);
        somebodyChanges(panel, 0, 318.25);
        hands.footerKey(10);
    }));
    all.push_back(state("confirm-overwrites", [](Operator& hands, Panel& panel) {
        touchAndLeave(hands, panel);
        hands.footerKey(10); // tells it, and the second press means it
        hands.wait(1100);
        hands.footerKey(10);
    }));
    all.push_back(state("mask-old-value", [](Operator& hands, Panel& panel) {
        touchAndLeave(hands, panel);
        hands.input("SollwertL", 2);
    }));
    all.push_back(state("confirm-no-link", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        changeSeveral(hands);
        panel.setLink({false, "The controller does not answer"});
        hands.footerKey(10);
    }));
    all.push_back(state("confirm-writing", [](Operator& hands, Panel& panel) {
        hands.menuKey(fullest);
        changeSeveral(hands);
        panel.answers().showBusy(panel.word(panel::PanelText::Writing));
    }));
    all.push_back(withoutWriting(state("confirm-mixed",
                                     [](Operator& hands, Panel& panel) {
                                         hands.menuKey(fullest);
                                         change(hands, "SollwertL", 1, "321.5");
                                         change(hands, "SollwertL", 21, "12.5");
                                         hands.input("SchalterL", 31);
                                         hands.input("SollwertL", 2);
                                         hands.cancel();
                                         somebodyChanges(panel, 1, 176.5);
                                         hands.footerKey(10); // tells it, and the second press means it
                                         hands.wait(1100);
                                         hands.footerKey(10);
                                     }),
        "Ch1.M1_T_servo_1<.mM1_servo_para2_1>"));
    return all;
}

} // namespace

QDateTime& clockOfTheWall()
{
    static QDateTime now;
    return now;
}

const std::vector<State>& states()
{
    static const std::vector<State> all = makeStates();
    return all;
}

} // namespace servopanel::look
