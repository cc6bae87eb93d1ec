#include "machine/simulated_machine.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "machine/variable_store.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace servopanel;
using basic::Variant;
using machine::FaultRule;
using machine::MachineSettings;
using machine::Place;
using machine::Setpoint;
using machine::SimulatedMachine;
using machine::ValueKind;
using machine::ValueRule;
using machine::VariableStore;
using machine::Writer;

constexpr const char* setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
constexpr const char* switches = "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>";
constexpr const char* changed = "Ch1.M1_T_servo_3<.mM1_servoaender_3>";
constexpr const char* page1 = "Ch1.M1_T_servo_3<.mM1_servo_diag_31>";
constexpr const char* page2 = "Ch1.M1_T_servo_3<.mM1_servo_diag_32>";
constexpr const char* fault1 = "Ch1.M1_T_servo_3<.mM1_fetext_31>";
constexpr const char* fault2 = "Ch1.M1_T_servo_3<.mM1_fetext_32>";

// Servo 3 of machine M1: setpoint 1 is 100 (limits 0..200), all others 0; the line stands at 60 until told otherwise.
class SimulatedMachineTest : public testing::Test {
protected:
    SimulatedMachineTest()
    {
        std::vector<double> values(20, 0.0);
        values[0] = 100;
        store.declare(setpoints, basic::doubles(values));
        store.declare("Ch1.M1_T_servo_3<.mM1_servo_para_un_3>", basic::doubles(std::vector<double>(20, 0.0)));
        store.declare(
            "Ch1.M1_T_servo_3<.mM1_servo_para_ob_3>", basic::doubles(std::vector<double>(20, 200.0)));
        store.declare("Ch1.M1_T_servo_3<.mM1_servo_para2_3>", basic::doubles({0, 0, 0, 0}));
        store.declare("Ch1.M1_T_servo_3<.mM1_servo_para2_un_3>", basic::doubles({-5, 10, 0, 0}));
        store.declare("Ch1.M1_T_servo_3<.mM1_servo_para2_ob_3>", basic::doubles({5, -10, 0, 0}));
        store.declare("Ch1.M1_T_servo_3<.mM1_servo_zeich_3>", basic::doubles({312450017, 0}));
        store.declare(switches, std::int16_t{1});
        store.declare(changed, std::int16_t{0});
        store.declare(page1, basic::doubles(std::vector<double>(40, 7.0)));
        store.declare(page2, basic::doubles(std::vector<double>(40, 8.0)));
        store.declare(fault1, "");
        store.declare(fault2, "");
        settings.lines.push_back({"M1", "m/min", 10, {{60, 1000}}});
        settings.servos.push_back({"M1", 3, "Abwicklung", {}, {}, {}});
    }

    ValueRule& add(int element, ValueKind kind, int page = 1)
    {
        ValueRule rule;
        rule.place = {page, element};
        rule.kind = kind;
        settings.servos[0].values.push_back(rule);
        return settings.servos[0].values.back();
    }
    FaultRule& addFault(std::string text, double meanInterval, double duration)
    {
        settings.servos[0].faults.push_back({std::move(text), meanInterval, duration, false, {}});
        return settings.servos[0].faults.back();
    }

    double shown(int element, const char* page = page1)
    {
        return basic::toDouble(basic::element(store.ReadValue(page), element));
    }
    double setpoint(int index) { return basic::toDouble(basic::element(store.ReadValue(setpoints), index)); }
    void setSetpoint(int index, double value)
    {
        Variant array = store.ReadValue(setpoints);
        basic::setElement(array, index, value);
        store.WriteValue(setpoints, array);
    }
    void announce() { store.WriteValue(changed, std::int16_t{1}); }
    int announced() { return basic::toInt16(store.ReadValue(changed)); }
    std::string fault() { return basic::toText(store.ReadValue(fault1)); }

    VariableStore store;
    MachineSettings settings;
};

TEST_F(SimulatedMachineTest, ShowsRightValuesFromTheStart)
{
    add(2, ValueKind::Setpoint).setpoint = Setpoint{"servo_para", 0};
    settings.servos[0].values[0].tauSeconds = 5;
    add(3, ValueKind::Constant, 2).value = 4;
    SimulatedMachine machine{settings, store};
    EXPECT_DOUBLE_EQ(shown(2), 100);
    EXPECT_DOUBLE_EQ(shown(3, page2), 4);
    EXPECT_TRUE(machine.problems().empty());
}

TEST_F(SimulatedMachineTest, LeavesElementsWithoutARuleAlone)
{
    add(3, ValueKind::Constant).value = 4;
    SimulatedMachine machine{settings, store};
    machine.step(1);
    EXPECT_DOUBLE_EQ(shown(2), 7);
    EXPECT_DOUBLE_EQ(shown(3), 4);
    EXPECT_DOUBLE_EQ(shown(3, page2), 8);
}

TEST_F(SimulatedMachineTest, TakesNewSetpointsOnlyAfterTheyAreAnnouncedAndSomeTimeHasPassed)
{
    add(2, ValueKind::Setpoint).setpoint = Setpoint{"servo_para", 0};
    SimulatedMachine machine{settings, store};
    setSetpoint(0, 150);
    machine.step(5);
    EXPECT_DOUBLE_EQ(shown(2), 100);
    announce();
    machine.step(0.5);
    EXPECT_DOUBLE_EQ(shown(2), 100);
    EXPECT_EQ(announced(), 1);
    machine.step(0.2);
    EXPECT_DOUBLE_EQ(shown(2), 150);
    EXPECT_EQ(announced(), 0);
}

TEST_F(SimulatedMachineTest, RunsAfterTheSetpointAsAFirstOrderLag)
{
    add(2, ValueKind::Setpoint).setpoint = Setpoint{"servo_para", 0};
    settings.servos[0].values[0].tauSeconds = 2;
    settings.takeoverSeconds = 0;
    SimulatedMachine machine{settings, store};
    setSetpoint(0, 200);
    announce();
    double last = 100;
    for (int i = 1; i <= 20; ++i) {
        machine.step(0.1);
        EXPECT_NEAR(shown(2), 200 - 100 * std::exp(-0.1 * i / 2), 1e-9);
        EXPECT_GT(shown(2), last);
        last = shown(2);
    }
    machine.step(40);
    EXPECT_NEAR(shown(2), 200, 1e-5);
}

TEST_F(SimulatedMachineTest, LimitsSetpointsWritesThemBackAndThenResetsTheFlag)
{
    add(2, ValueKind::Setpoint).setpoint = Setpoint{"servo_para", 0};
    SimulatedMachine machine{settings, store};
    setSetpoint(0, 900);
    setSetpoint(1, -1);
    setSetpoint(2, 200);
    announce();
    std::vector<std::string> written;
    store.addListener([&](const VariableStore::Write& write) {
        EXPECT_EQ(write.writer, Writer::Machine);
        if (write.name == setpoints || write.name == changed) written.emplace_back(write.name);
    });
    machine.step(1);
    EXPECT_DOUBLE_EQ(setpoint(0), 200);
    EXPECT_DOUBLE_EQ(setpoint(1), 0);
    EXPECT_DOUBLE_EQ(setpoint(2), 200);
    EXPECT_DOUBLE_EQ(shown(2), 200);
    EXPECT_EQ(written, (std::vector<std::string>{setpoints, changed}));
}

TEST_F(SimulatedMachineTest, WritesNothingBackWhenNothingWasOutsideAndIgnoresCrossedLimits)
{
    const char* const second = "Ch1.M1_T_servo_3<.mM1_servo_para2_3>";
    store.WriteValue(second, basic::doubles({-9, 50, 0, 0}));
    SimulatedMachine machine{settings, store};
    int writes = 0;
    store.addListener([&](const VariableStore::Write& write) { writes += write.name == setpoints; });
    announce();
    machine.step(1);
    EXPECT_EQ(writes, 0);
    EXPECT_EQ(store.ReadValue(second), basic::doubles({-5, 50, 0, 0}));
}

TEST_F(SimulatedMachineTest, OnlyTheValueOneAnnouncesAChange)
{
    SimulatedMachine machine{settings, store};
    store.WriteValue(changed, std::int16_t{2});
    machine.step(10);
    EXPECT_EQ(announced(), 2);
}

TEST_F(SimulatedMachineTest, SwitchesTurnValuesOffOnceTheyAreTakenOver)
{
    ValueRule& rule = add(2, ValueKind::Constant);
    rule.value = 5;
    rule.switchBit = 0;
    SimulatedMachine machine{settings, store};
    EXPECT_DOUBLE_EQ(shown(2), 5);
    store.WriteValue(switches, std::int32_t{2});
    machine.step(2);
    EXPECT_DOUBLE_EQ(shown(2), 5);
    announce();
    machine.step(1);
    EXPECT_DOUBLE_EQ(shown(2), 0);
    store.WriteValue(switches, std::int32_t{3});
    announce();
    machine.step(1);
    EXPECT_DOUBLE_EQ(shown(2), 5);
}

TEST_F(SimulatedMachineTest, AWordOfSwitchesThatIsNoneIsSaidAndCountsAsZero)
{
    for (const double word : {1e300, -1e10, std::nan("")}) {
        VariableStore other;
        other.declare(setpoints, basic::doubles({0}));
        other.declare(switches, word);
        ValueRule& rule = add(2, ValueKind::Constant);
        rule.value = 5;
        rule.switchBit = 0;
        SimulatedMachine machine{settings, other};
        machine.step(1);
        bool isSaid = false;
        for (const machine::Problem& problem : machine.problems())
            isSaid = isSaid || problem.text().find(switches) != std::string::npos;
        EXPECT_TRUE(isSaid) << word;
    }
}

TEST_F(SimulatedMachineTest, RampsTheLineFromPhaseToPhase)
{
    settings.lines[0].phases = {{60, 10}, {20, 10}};
    add(2, ValueKind::Line).gain = 2;
    SimulatedMachine machine{settings, store};
    double last = shown(2);
    EXPECT_DOUBLE_EQ(last, 120);
    double least = last;
    for (int i = 0; i < 250; ++i) {
        machine.step(0.1);
        EXPECT_LE(std::fabs(shown(2) - last), 2 * 10 * 0.1 + 1e-9);
        last = shown(2);
        least = std::min(least, last);
    }
    EXPECT_DOUBLE_EQ(least, 40);
    EXPECT_DOUBLE_EQ(last, 120);
}

TEST_F(SimulatedMachineTest, DrawChangesTheSpeedByPercent)
{
    add(2, ValueKind::Line).setpoint = Setpoint{"servo_para", 0};
    SimulatedMachine machine{settings, store};
    EXPECT_DOUBLE_EQ(shown(2), 120);
}

TEST_F(SimulatedMachineTest, DerivesValuesFromOthers)
{
    settings.lines[0].phases = {{60, 5}, {30, 1000}};
    add(2, ValueKind::Line).tauSeconds = 1;
    ValueRule& scaled = add(3, ValueKind::Value);
    scaled.source = Place{1, 2};
    scaled.gain = 2;
    scaled.offset = 1;
    add(4, ValueKind::Lag).source = Place{1, 2};
    add(5, ValueKind::Rate).source = Place{1, 2};
    SimulatedMachine machine{settings, store};
    EXPECT_DOUBLE_EQ(shown(3), 121);
    EXPECT_DOUBLE_EQ(shown(4), 0);
    EXPECT_DOUBLE_EQ(shown(5), 0);
    machine.step(7.5);
    // Behind a ramp of 10 per second, a lag of one second stays about 10 behind.
    EXPECT_LT(shown(4), -7);
    EXPECT_GT(shown(4), -10);
    EXPECT_GT(shown(5), 7);
    EXPECT_LT(shown(5), 10.5);
    EXPECT_DOUBLE_EQ(shown(3), 2 * shown(2) + 1);
    machine.step(30);
    EXPECT_NEAR(shown(4), 0, 1e-6);
    EXPECT_NEAR(shown(5), 0, 1e-6);
}

TEST_F(SimulatedMachineTest, IntegralsCountOnAndReenterAtTheOtherEnd)
{
    ValueRule& hours = add(2, ValueKind::Integral);
    hours.start = 100;
    hours.gain = 0.5;
    ValueRule& angle = add(3, ValueKind::Integral);
    angle.gain = -30;
    angle.start = 100;
    angle.low = 0.0;
    angle.high = 360.0;
    SimulatedMachine machine{settings, store};
    machine.step(10);
    EXPECT_NEAR(shown(2), 105, 1e-9);
    EXPECT_NEAR(shown(3), 160, 1e-9);
    std::set<int> seen;
    for (int i = 0; i < 400; ++i) {
        machine.step(0.1);
        EXPECT_GE(shown(3), 0);
        EXPECT_LE(shown(3), 360);
        seen.insert(static_cast<int>(shown(3)) / 60);
    }
    EXPECT_GE(seen.size(), 6U);
}

TEST_F(SimulatedMachineTest, SwingsFollowTheLine)
{
    ValueRule& swing = add(2, ValueKind::Swing);
    swing.low = 10.0;
    swing.high = Setpoint{"servo_para", 0};
    swing.periodSeconds = 4;
    settings.lines[0].phases = {{60, 10.05}, {0, 1000}};
    SimulatedMachine machine{settings, store};
    EXPECT_DOUBLE_EQ(shown(2), 10);
    machine.step(2);
    EXPECT_NEAR(shown(2), 100, 1e-6);
    machine.step(2);
    EXPECT_NEAR(shown(2), 10, 1e-6);
    machine.step(20);
    const double resting = shown(2);
    machine.step(20);
    EXPECT_DOUBLE_EQ(shown(2), resting);
}

TEST_F(SimulatedMachineTest, WandersInItsPeriod)
{
    ValueRule& wander = add(2, ValueKind::Wander);
    wander.centre = 5;
    wander.amplitude = 2;
    wander.periodSeconds = 8;
    wander.phase = 0.25;
    SimulatedMachine machine{settings, store};
    EXPECT_NEAR(shown(2), 7, 1e-9);
    machine.step(4);
    EXPECT_NEAR(shown(2), 3, 1e-9);
    machine.step(2);
    EXPECT_NEAR(shown(2), 5, 1e-9);
}

TEST_F(SimulatedMachineTest, NoiseStaysInItsBandAndOutOfDerivedValues)
{
    ValueRule& noisy = add(2, ValueKind::Constant);
    noisy.value = 50;
    noisy.noise = 3;
    noisy.max = 52;
    add(3, ValueKind::Value).source = Place{1, 2};
    SimulatedMachine machine{settings, store};
    double least = 100;
    double most = 0;
    for (int i = 0; i < 1000; ++i) {
        machine.step(0.1);
        least = std::min(least, shown(2));
        most = std::max(most, shown(2));
        EXPECT_DOUBLE_EQ(shown(3), 50);
    }
    EXPECT_GE(least, 47);
    EXPECT_LT(least, 47.5);
    EXPECT_DOUBLE_EQ(most, 52);
}

TEST_F(SimulatedMachineTest, RoundsWhatIsShown)
{
    ValueRule& rule = add(2, ValueKind::Constant);
    rule.value = -1.25;
    rule.decimals = 1;
    add(3, ValueKind::Constant).value = -0.04;
    settings.servos[0].values[1].decimals = 1;
    SimulatedMachine machine{settings, store};
    EXPECT_DOUBLE_EQ(shown(2), -1.3);
    EXPECT_DOUBLE_EQ(shown(3), 0);
    EXPECT_FALSE(std::signbit(shown(3)));
}

TEST_F(SimulatedMachineTest, FaultsComeAndGoWithTextEffectAndCount)
{
    add(2, ValueKind::Constant).value = 50;
    add(3, ValueKind::Faults).offset = 17;
    addFault("E101", 20, 3).effects = {{{1, 2}, 5}};
    SimulatedMachine machine{settings, store};
    EXPECT_EQ(fault(), "");
    int came = 0;
    double lasted = 0;
    std::string last;
    for (int i = 0; i < 20000; ++i) {
        machine.step(0.1);
        if (fault() != last && !fault().empty()) ++came;
        last = fault();
        if (!last.empty()) lasted += 0.1;
        EXPECT_EQ(last.empty() ? "" : "E101", last);
        EXPECT_EQ(basic::toText(store.ReadValue(fault2)), last);
        EXPECT_DOUBLE_EQ(shown(2), last.empty() ? 50 : 55);
        EXPECT_DOUBLE_EQ(shown(3), 17 + came);
    }
    // 2000 seconds with a mean of 23 from fault to fault are 87 faults; 4 standard deviations either side.
    EXPECT_GT(came, 50);
    EXPECT_LT(came, 130);
    EXPECT_NEAR(lasted / came, 3, 0.2);
}

TEST_F(SimulatedMachineTest, OneFaultAtATimeAndEachForItsWholeDuration)
{
    addFault("A", 2, 5);
    addFault("B", 2, 5);
    SimulatedMachine machine{settings, store};
    std::set<std::string> texts;
    std::string last;
    int periods = 0;
    for (int i = 0; i < 5000; ++i) {
        machine.step(0.1);
        texts.insert(fault());
        if (fault() != last) {
            EXPECT_TRUE(last.empty() || fault().empty()) << last << " became " << fault();
            if (!last.empty()) {
                EXPECT_NEAR(periods, 50, 1);
            }
            periods = 0;
        }
        last = fault();
        ++periods;
    }
    EXPECT_EQ(texts, (std::set<std::string>{"", "A", "B"}));
}

TEST_F(SimulatedMachineTest, AStoppingFaultBringsTheLineToAStopAndItStartsAgain)
{
    add(2, ValueKind::Line);
    add(3, ValueKind::Starts);
    ValueRule& stops = add(4, ValueKind::Faults);
    stops.stopsOnly = true;
    addFault("E108", 30, 20).stops = true;
    addFault("E101", 30, 1);
    SimulatedMachine machine{settings, store};
    int stood = 0;
    std::string last;
    int stopping = 0;
    for (int i = 0; i < 5000; ++i) {
        const double before = shown(2);
        machine.step(0.1);
        if (fault() == "E108" && last != "E108") ++stopping;
        if (shown(2) == 0 && before != 0) {
            ++stood;
            EXPECT_EQ(fault(), "E108");
        }
        last = fault();
        EXPECT_DOUBLE_EQ(shown(4), stopping);
    }
    EXPECT_GT(stood, 2);
    EXPECT_NEAR(shown(3), stood, 1);
}

TEST_F(SimulatedMachineTest, TheSameSeedGivesTheSameRunHoweverTheTimeIsCut)
{
    ValueRule& noisy = add(2, ValueKind::Wander);
    noisy.noise = 3;
    noisy.amplitude = 10;
    addFault("E101", 20, 3).effects = {{{1, 2}, 5}};
    const auto run = [&](std::uint64_t seed, double step, int count) {
        store.WriteValue(page1, basic::doubles(std::vector<double>(40, 0.0)));
        MachineSettings own = settings;
        own.seed = seed;
        SimulatedMachine machine{own, store};
        for (int i = 0; i < count; ++i)
            machine.step(step);
        return std::pair{store.ReadValue(page1), store.ReadValue(fault1)};
    };
    EXPECT_EQ(run(1, 0.1, 1000), run(1, 0.1, 1000));
    EXPECT_EQ(run(1, 0.1, 1000), run(1, 0.025, 4000));
    EXPECT_EQ(run(1, 0.1, 1000), run(1, 2.5, 40));
    EXPECT_NE(run(1, 0.1, 1000).first, run(2, 0.1, 1000).first);
}

TEST_F(SimulatedMachineTest, StandsStillWithoutTime)
{
    add(2, ValueKind::Integral);
    SimulatedMachine machine{settings, store};
    machine.step(0);
    machine.step(-5);
    machine.step(std::nan(""));
    machine.step(0.09);
    EXPECT_DOUBLE_EQ(shown(2), 0);
    machine.step(0.02);
    EXPECT_NEAR(shown(2), 0.1, 1e-12);
}

TEST_F(SimulatedMachineTest, WritesOnlyWhatHasChanged)
{
    add(2, ValueKind::Constant).value = 5;
    SimulatedMachine machine{settings, store};
    int writes = 0;
    store.addListener([&](const VariableStore::Write&) { ++writes; });
    machine.step(10);
    EXPECT_EQ(writes, 0);
}

TEST_F(SimulatedMachineTest, TellsOnceWhatIsMissingAndGoesOn)
{
    add(2, ValueKind::Constant).value = 5;
    settings.servos.push_back(settings.servos[0]);
    settings.servos[1].servo = 4;
    settings.servos.push_back({"M9", 1, "", {}, {}, {}});
    store.declare("Ch1.M1_T_servo_4<.mM1_servo_diag_41>", 3.0);
    SimulatedMachine machine{settings, store};
    machine.step(1);
    const std::size_t count = machine.problems().size();
    machine.step(10);
    EXPECT_EQ(machine.problems().size(), count);
    std::set<std::string> texts;
    for (const machine::Problem& problem : machine.problems())
        EXPECT_TRUE(texts.insert(problem.text()).second) << problem.text();
    EXPECT_EQ(texts.count("Simulated machine: Ch1.M1_T_servo_4<.mM1_servo_schalt_4>: is missing"), 1U);
    EXPECT_EQ(texts.count("Simulated machine: Ch1.M1_T_servo_4<.mM1_servo_diag_41>: is no array"), 1U);
    EXPECT_EQ(
        texts.count("Simulated machine: M9: there is no line of this machine; its servos stand still"), 1U);
    EXPECT_DOUBLE_EQ(shown(2), 5);
}

} // namespace
