#include "machine/project_file.h"
#include "machine/simulated_machine.h"
#include "machine/texts.h"
#include "machine/variable_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace {

using namespace servopanel;

const std::filesystem::path demo = std::filesystem::path{SERVOPANEL_TESTS_DIR}.parent_path() / "demo";

TEST(DemoProject, HasNoProblems)
{
    const machine::ProjectFile project = machine::ProjectFile::load(demo / "project.json");
    for (const machine::Problem& problem : project.problems)
        ADD_FAILURE() << problem.text();
    EXPECT_FALSE(project.title.empty());
    ASSERT_FALSE(project.languages.empty());
    for (const machine::ProjectFile::Language& language : project.languages) {
        const machine::Texts texts = machine::Texts::load(demo / "Texts" / (language.code + ".txt"));
        EXPECT_GT(texts.size(), 100U) << language.code;
        for (const machine::Problem& problem : texts.problems())
            ADD_FAILURE() << problem.text();
    }
}

TEST(DemoProject, ThreeMinutesOfItsMachineShowLiveValuesAndFaults)
{
    const machine::ProjectFile project = machine::ProjectFile::load(demo / "project.json");
    ASSERT_TRUE(project.machine);
    machine::VariableStore store;
    project.declareVariables(store);
    machine::SimulatedMachine simulated{*project.machine, store};
    std::map<std::string, std::set<std::string>> faults;
    std::map<std::string, int> changes;
    store.addListener([&](const machine::VariableStore::Write& write) {
        ++changes[std::string{write.name}];
        if (const auto* const text = write.value.get<std::string>())
            faults[std::string{write.name}].insert(*text);
    });
    simulated.step(180);
    for (const machine::Problem& problem : simulated.problems())
        ADD_FAILURE() << problem.text();

    std::size_t faultTexts = 0;
    for (const auto& texts : faults)
        faultTexts += texts.second.size() - texts.second.count("");
    EXPECT_GT(faultTexts, 5U);
    // The first page of every servo moves nearly every period.
    for (const machine::ServoRule& servo : project.machine->servos) {
        const std::string number = std::to_string(servo.servo);
        const std::string name = "Ch1." + servo.machine + "_T_servo_" + number + "<.m" + servo.machine
            + "_servo_diag_" + number + "1>";
        EXPECT_GT(changes[name], 900) << name;
    }
}

} // namespace
