#include "panel/program/display.h"

#include <gtest/gtest.h>

#include <QWidget>

using servopanel::panel::placeOnScreen;

namespace {
constexpr QRect screen{0, 0, 1280, 1024};
}

TEST(Display, AWindowThatFillsTheScreenFollowsItsSize)
{
    EXPECT_EQ(placeOnScreen({0, 0, 1280, 1024}, {0, 0, 1920, 1080}, true), (QRect{0, 0, 1920, 1080}));
    EXPECT_EQ(placeOnScreen({1920, 0, 1280, 1024}, screen, true), screen);
}

TEST(Display, AWindowStaysWhereItIsWhileItsScreenIsThere)
{
    EXPECT_EQ(placeOnScreen({100, 50, 800, 600}, screen, false), (QRect{100, 50, 800, 600}));
}

TEST(Display, AWindowComesBackFromAScreenThatHasGone)
{
    EXPECT_EQ(placeOnScreen({2000, 300, 800, 600}, screen, false), (QRect{240, 212, 800, 600}));
    // Too large for what is left: its upper left corner is seen.
    EXPECT_EQ(placeOnScreen({2000, 300, 1280, 1024}, {0, 0, 800, 600}, false), (QRect{0, 0, 1280, 1024}));
}

TEST(Display, WithoutAnyScreenNothingMoves)
{
    EXPECT_EQ(placeOnScreen({100, 50, 800, 600}, {}, true), (QRect{100, 50, 800, 600}));
}
