#include "test_project.h"

#include "panel/form/label.h"
#include "panel/form/scroll_bar.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

namespace servopanel::testing {

class MenuCaptionsTest : public ::testing::TestWithParam<int> { };

INSTANTIATE_TEST_SUITE_P(Screens, MenuCaptionsTest, ::testing::Values(1280, 1024, 800));

TEST_P(MenuCaptionsTest, EndBeforeTheScrollBar)
{
    const TestProject project{standardProject};
    panel::PanelSettings settings = project.settings();
    settings.resolution = GetParam();
    panel::Panel panel{settings};
    MessageReader reader{panel};
    panel.window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.window()));
    panel.openServo();
    panel::ControlHost& menu = *panel.shownPart();
    const panel::ScrollBarChild& bar = menu.require<panel::ScrollBarChild>("ScrollBar");
    const QRect covered{bar.view().mapTo(&panel.window(), QPoint{0, 0}), bar.view().size()};
    int seen = 0;
    menu.forEach([&](std::string_view name, std::int16_t index, panel::Child& child) {
        if (dynamic_cast<panel::Label*>(&child) == nullptr || !child.view().isVisible()) return;
        ++seen;
        const QRect place{child.view().mapTo(&panel.window(), QPoint{0, 0}), child.view().size()};
        EXPECT_FALSE(place.intersects(covered)) << name << ' ' << index;
        EXPECT_GT(place.width(), 100) << name << ' ' << index;
    });
    EXPECT_GT(seen, 0);
}

} // namespace servopanel::testing
