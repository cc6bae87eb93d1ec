// The engineer's tutorial as a reader follows it: its steps make a project that the check finds whole and that the tour
// plays to its end.
#include "panel/runtime/panel.h"
#include "panel/tour/tour.h"
#include "portable/temporary_folder.h"
#include "support/run_in_shell.h"

#include <gtest/gtest.h>

#include <QTest>

#include <string>

using namespace servopanel;

namespace {

using servopanel::testing::Outcome;
using servopanel::testing::runInShell;

class Tutorial : public ::testing::Test {
protected:
    void SetUp() override
    {
        const tests::EnvironmentVariable names[] = {{"HOME", home_.path().c_str()}, {"PANEL", SERVO_PANEL},
            {"REPLAY", "false"}, {"DEFS", SERVO_DEFS}, {"DEMO", DEMO_PROJECT}};
        steps_ = runInShell("bash " TUTORIAL);
        ASSERT_EQ(steps_.status, 0) << steps_.text;
    }

    std::string project() const { return (home_.path() / "carton").string(); }

    // Nobody looks, so it does not wait.
    int tour(int resolution, const std::string& language) const
    {
        panel::PanelSettings settings;
        settings.project = project();
        settings.temporary = home_.path() / "carton-temp";
        settings.resolution = resolution;
        settings.language = language;
        panel::Panel panel{settings};
        panel.window().show();
        panel::Tour tour{panel, home_.path() / "tour", {.settle = 0, .look = 0, .curve = 0}};
        panel.openServo();
        const int status = tour.play();
        EXPECT_EQ(panel.errors().count(), 0) << panel.errors().entries().front().text.toStdString();
        return status;
    }

    tests::TemporaryFolder home_;
    Outcome steps_;
};

} // namespace

TEST_F(Tutorial, ItsToolsSayWhatTheGuideSays)
{
    for (const char* said : {"42\n", "21 definitions written", "21 definitions, 0 findings"})
        EXPECT_NE(steps_.text.find(said), std::string::npos) << said << "\n" << steps_.text;
    const Outcome check = runInShell("QT_QPA_PLATFORM=offscreen " SERVO_PANEL " --check " + project());
    EXPECT_EQ(check.status, 0);
    EXPECT_NE(check.text.find("nothing is missing"), std::string::npos) << check.text;
}

TEST_F(Tutorial, ItsTourEndsWell)
{
    EXPECT_EQ(tour(1280, "en"), 0);
    EXPECT_EQ(tour(800, "de"), 0);
}
