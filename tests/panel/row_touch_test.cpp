// A touch beside an input means the input.
#include "test_project.h"

#include "panel/form/eingabemaske.h"
#include "panel/form/schalter.h"
#include "panel/look/touch_size.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using namespace servopanel;
using panel::Operator;
using panel::Panel;
using servopanel::testing::TestProject;

namespace {

class RowTouchTest : public ::testing::TestWithParam<int> {
protected:
    RowTouchTest()
    {
        panel::PanelSettings settings = project_.settings();
        settings.resolution = GetParam();
        settings.trace = project_.file("panel.trace");
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<servopanel::testing::MessageReader>(*panel_);
        panel_->window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
        hands_->menuKey(1);
    }
    QWidget& view(std::string_view name, std::int16_t index)
    {
        return panel_->shownPart()->require<panel::Child>(name, index).view();
    }
    bool isMaskOpen()
    {
        return panel_->shownPart()->require<panel::EingabemaskeChild>("Eingabemaske").isOpen();
    }
    // A touch in the area of rows, in its pixels.
    void tapInArea(QPoint at)
    {
        QWidget& area = view("MainBereich", 1);
        hands_->press(area, at);
        hands_->release(area, at);
    }
    bool traceHas(const std::string& line)
    {
        std::ifstream in{project_.file("panel.trace"), std::ios::binary};
        const std::string text{std::istreambuf_iterator<char>{in}, {}};
        return text.find(line) != std::string::npos;
    }

    TestProject project_{servopanel::testing::standardProject};
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<servopanel::testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Screens, RowTouchTest, ::testing::Values(1280, 1024, 800));

TEST_P(RowTouchTest, TheCaptionStandsForItsInput)
{
    hands_->input("BeschriftungL", 1);
    EXPECT_TRUE(isMaskOpen());
    EXPECT_TRUE(traceHas("> touch SollwertL 1\n"));
}

TEST_P(RowTouchTest, TheUnitAndTheGapsStandForTheInput)
{
    hands_->input("EinheitL", 1);
    EXPECT_TRUE(isMaskOpen());
    hands_->cancel();
    const QRect input = view("SollwertL", 1).geometry();
    tapInArea({input.center().x(), input.bottom() + 1});
    EXPECT_TRUE(isMaskOpen());
    hands_->cancel();
    tapInArea({input.left() - 3, input.center().y()});
    EXPECT_TRUE(isMaskOpen());
}

TEST_P(RowTouchTest, RowsAreAtLeastAsHighAsAFinger)
{
    const double height = view("SollwertL", 1).height() * 630.0 / 540.0;
    const double side = panel::millimetresPerPixel(view("SollwertL", 1));
    EXPECT_GE(height * side, 9.0);
}

TEST_P(RowTouchTest, ALockedInputIsNotReachedThroughItsCaption)
{
    hands_->input("BeschriftungL", 2);
    EXPECT_FALSE(isMaskOpen());
    EXPECT_FALSE(traceHas("> touch SollwertL 2\n"));
}

TEST_P(RowTouchTest, NothingIsReachedWhileTheMaskIsOpenOrWhereThereIsNoRow)
{
    tapInArea({20, view("SollwertL", 5).geometry().center().y()}); // a row without an item
    EXPECT_FALSE(isMaskOpen());
    hands_->input("SollwertL", 1);
    ASSERT_TRUE(isMaskOpen());
    hands_->input("BeschriftungL", 31);
    EXPECT_FALSE(traceHas("> touch SchalterL 31\n"));
}

TEST_P(RowTouchTest, ASwitchActsWhenTheFingerIsLiftedInItsRow)
{
    auto& lever = panel_->shownPart()->require<panel::SchalterChild>("SchalterL", 31).lever();
    const bool before = lever.state();
    QWidget& caption = view("BeschriftungL", 31);
    hands_->press(caption, caption.rect().center());
    EXPECT_EQ(lever.state(), before);
    hands_->release(caption, caption.rect().center());
    EXPECT_NE(lever.state(), before);
    // A finger that leaves the row does not switch.
    hands_->press(caption, caption.rect().center());
    hands_->release(caption, {10, -200});
    EXPECT_NE(lever.state(), before);
}

TEST_P(RowTouchTest, OfADrawingNumberTheNearestPartIsMeant)
{
    const QRect last = view("ZeichnungL", 45).geometry();
    tapInArea({last.right() + 8, last.center().y()});
    EXPECT_TRUE(traceHas("> touch ZeichnungL 45\n"));
    hands_->cancel();
    hands_->input("BeschriftungL", 41);
    EXPECT_TRUE(traceHas("> touch ZeichnungL 41\n"));
}
