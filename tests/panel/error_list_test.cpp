#include "panel/widgets/error_list.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace servopanel::panel;
using Origin = ErrorEntry::Origin;

namespace {

class ErrorListTest : public ::testing::Test {
protected:
    ErrorListTest()
    {
        stage_.resize(1280, 1024);
        list_.place({800, 20, 76, 50});
        stage_.show();
    }
    QWidget stage_;
    ErrorList list_{stage_, [](PanelText text) { return panelWord(text, "en"); }};
};

} // namespace

TEST_F(ErrorListTest, IsNotSeenWithoutReports) { EXPECT_FALSE(list_.badge().isVisible()); }

TEST_F(ErrorListTest, ShowsTheNewestFirst)
{
    list_.add(Origin::Library, "one");
    list_.add(Origin::Library, "two");
    EXPECT_TRUE(list_.badge().isVisible());
    EXPECT_EQ(list_.badge().text(), "! 2");
    EXPECT_EQ(list_.entries().front().text, "two");
}

TEST_F(ErrorListTest, CountsRepetitionsInOneLine)
{
    for (int i = 0; i < 500; ++i)
        list_.add(Origin::Library, "read failed");
    EXPECT_EQ(list_.entries().size(), 1U);
    EXPECT_EQ(list_.count(), 500);
}

TEST_F(ErrorListTest, DoesNotGrowWithoutEnd)
{
    for (int i = 0; i < 1000; ++i)
        list_.add(Origin::Library, QString::number(i));
    EXPECT_LE(list_.entries().size(), 200U);
    EXPECT_EQ(list_.entries().front().text, "999");
}

TEST_F(ErrorListTest, OpensAndClosesAtATouchAndBlocksNothing)
{
    list_.add(Origin::Library, "one");
    EXPECT_FALSE(list_.isOpen());
    QTest::mouseClick(&list_.badge(), Qt::LeftButton);
    EXPECT_TRUE(list_.isOpen());
    EXPECT_EQ(stage_.childAt(100, 900), nullptr);
    QTest::mouseClick(&list_.closeKey(), Qt::LeftButton);
    EXPECT_FALSE(list_.isOpen());
    EXPECT_EQ(list_.count(), 1);
}

TEST_F(ErrorListTest, ForgetsTheReportsOfOneOrigin)
{
    list_.add(Origin::Panel, "note");
    list_.add(Origin::Library, "one");
    list_.forget(Origin::Library);
    ASSERT_EQ(list_.entries().size(), 1U);
    EXPECT_EQ(list_.entries().front().text, "note");
    list_.forget(Origin::Panel);
    EXPECT_FALSE(list_.badge().isVisible());
}
