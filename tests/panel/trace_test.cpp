// What a panel writes with --trace is what a replay of the same actions writes.
#include "recording/replay.h"
#include "support/standard_project.h"
#include "test_project.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

using namespace servopanel;
using panel::Operator;
using panel::Panel;
using servopanel::testing::TestProject;

namespace {

std::string contents(const std::filesystem::path& file)
{
    std::ifstream in{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
}

// The operator's actions of a trace, as a scenario.
std::string actions(const std::string& trace)
{
    std::istringstream lines{trace};
    std::string line;
    std::string scenario;
    while (std::getline(lines, line))
        if (line.rfind("> ", 0) == 0) scenario += line.substr(2) + "\n";
    return scenario;
}

// Hosts have fonts of their own; the names differ, and nothing else may.
std::string withoutFontNames(const std::string& trace)
{
    std::istringstream lines{trace};
    std::string line;
    std::string result;
    while (std::getline(lines, line)) {
        const std::size_t name = line.find(".Font.Name = ");
        result += (name == std::string::npos ? line : line.substr(0, name + 12)) + "\n";
    }
    return result;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::istringstream in{text};
    std::vector<std::string> result;
    for (std::string line; std::getline(in, line);)
        result.push_back(line);
    return result;
}

} // namespace

TEST(PanelTrace, EqualsTheReplayOfTheSameActions)
{
    TestProject project{servopanel::testing::standardProject};
    project.addEmptyTexts();
    panel::PanelSettings settings = project.settings();
    settings.trace = project.file("panel.trace");
    {
        Panel panel{settings};
        const servopanel::testing::MessageReader reader{panel};
        panel.window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
        panel.openServo();
        Operator hands{panel};
        hands.menuKey(1);
        hands.input("SollwertL", 1);
        hands.type("42.5");
        hands.ok();
        hands.footerKey(10);
        hands.input("SchalterL", 31);
        hands.footerKey(11);
        hands.wait(700);
        hands.footerKey(10);
        hands.footerKey(10);
        hands.footerKey(6);
        hands.footerKey(11);
    }
    const std::string panelTrace = withoutFontNames(contents(settings.trace));
    ASSERT_NE(panelTrace.find("> touch SollwertL 1\n"), std::string::npos);
    ASSERT_NE(panelTrace.find("> mask 42.5\n"), std::string::npos);
    ASSERT_NE(panelTrace.find("> timer\n"), std::string::npos);

    recording::Replay replay;
    replay.run(servopanel::testing::standardProject);
    const std::string replayTrace = withoutFontNames(replay.run(actions(contents(settings.trace))));

    const std::vector<std::string> ours = linesOf(panelTrace);
    const std::vector<std::string> theirs = linesOf(replayTrace);
    for (std::size_t i = 0; i < std::min(ours.size(), theirs.size()); ++i)
        ASSERT_EQ(ours[i], theirs[i]) << "line " << i + 1;
    EXPECT_EQ(ours.size(), theirs.size());
}
