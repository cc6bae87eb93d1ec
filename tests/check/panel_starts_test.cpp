#include "check/bad_projects.h"
#include "check/planted.h"
#include "panel/runtime/panel.h"
#include "panel/test_project.h"

#include <gtest/gtest.h>

#include <system_error>

namespace servopanel::check::tests {

namespace {

class BrokenProject : public ::testing::TestWithParam<BadProject> { };

// The panel starts, opens its first screen and lives through its first second.
void start(const ProjectCopy& copy)
{
    const servopanel::tests::TemporaryFolder temporary;
    panel::PanelSettings settings;
    settings.project = copy.path();
    settings.temporary = temporary.path();
    panel::Panel panel{settings};
    const servopanel::testing::MessageReader reader{panel};
    panel.window().show();
    panel.openServo();
    EXPECT_NE(panel.servo(), nullptr);
    EXPECT_FALSE(panel.window().grab().isNull());
}

} // namespace

TEST_P(BrokenProject, IsOpenedByThePanel)
{
    const ProjectCopy copy;
    GetParam().spoil(copy);
    if (std::error_code code; fs::is_regular_file(copy.place("project.json"), code))
        start(copy);
    else
        EXPECT_THROW(start(copy), panel::CannotStart);
}

INSTANTIATE_TEST_SUITE_P(Projects, BrokenProject, ::testing::ValuesIn(badProjects()),
    [](const auto& project) { return project.param.name; });

TEST(BrokenProject, WithAllPlantedMistakesIsOpenedByThePanel)
{
    const ProjectCopy copy;
    for (const Planted& mistake : plantedMistakes())
        mistake.plant(copy);
    start(copy);
}

} // namespace servopanel::check::tests
