#include "panel/widgets/input_mask.h"

#include "basic/conversions.h"

#include <gtest/gtest.h>

#include <QTest>

#include <optional>
#include <string>
#include <utility>

using namespace servopanel::panel;

namespace {

class InputMaskTest : public ::testing::Test {
protected:
    InputMaskTest()
    {
        stage_.resize(1280, 1024);
        mask_.setGeometry(100, 100, 360, 460);
        mask_.setHandlers(
            [this](double value, bool changed) {
                accepted_ = value;
                changed_ = changed;
            },
            [this] { cancelled_ = true; });
        stage_.show();
        mask_.show();
    }

    void start(double value, std::optional<double> lower, std::optional<double> upper)
    {
        mask_.start({"Draw", "%", servopanel::basic::decimal(value), {lower, upper}});
    }
    void tap(const QString& label)
    {
        TouchKey* key = mask_.pad().key(label);
        ASSERT_NE(key, nullptr) << label.toStdString();
        QTest::mouseClick(key, Qt::LeftButton);
    }

    QWidget stage_;
    std::string language_ = "en";
    InputMask& mask_ = *new InputMask{&stage_, [this](PanelText text) { return panelWord(text, language_); }};
    std::optional<double> accepted_;
    bool changed_ = false;
    bool cancelled_ = false;
};

} // namespace

TEST_F(InputMaskTest, AcceptsAValueWithinTheLimits)
{
    start(0.35, -2.0, 2.0);
    EXPECT_EQ(mask_.shown().trimmed(), "0.35 %");
    EXPECT_EQ(mask_.limits(), "Min -2   …   Max 2");
    tap("1");
    tap(".");
    tap("5");
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_EQ(accepted_, 1.5);
    EXPECT_TRUE(changed_);
}

TEST_F(InputMaskTest, StaysOpenAndSaysWhyWhenAValueIsTooLarge)
{
    start(0.35, -2.0, 2.0);
    tap("3");
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_FALSE(accepted_.has_value());
    EXPECT_TRUE(mask_.refusing());
    EXPECT_EQ(mask_.remark(), "Too large: at most 2");
    tap("C");
    EXPECT_FALSE(mask_.refusing());
}

TEST_F(InputMaskTest, StaysOpenWhenThereIsNoNumber)
{
    start(1, 0.0, 2.0);
    tap("C");
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_FALSE(accepted_.has_value());
    EXPECT_EQ(mask_.remark(), "Please enter a number");
}

TEST_F(InputMaskTest, TellsThatAValueWasNotChanged)
{
    start(7, 0.0, 10.0);
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_EQ(accepted_, 7.0);
    EXPECT_FALSE(changed_);
}

TEST_F(InputMaskTest, TheSignKeyIsOnOnlyWhereValuesBelowZeroAreAllowed)
{
    start(7, 0.0, 10.0);
    EXPECT_FALSE(mask_.pad().key("±")->isOn());
    tap("±");
    QTest::keyClicks(&mask_, "-");
    EXPECT_EQ(mask_.shown(), "7 %");
    start(7, -10.0, 10.0);
    EXPECT_TRUE(mask_.pad().key("±")->isOn());
    tap("±");
    EXPECT_EQ(mask_.shown(), "-7 %");
}

TEST_F(InputMaskTest, ShowsTheLimitsWhileItRefuses)
{
    start(0.35, -2.0, 2.0);
    tap("3");
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_TRUE(mask_.refusing());
    EXPECT_EQ(mask_.limits(), "Min -2   …   Max 2");
    const QImage refusing = mask_.grab().toImage();
    tap("⌫");
    EXPECT_FALSE(mask_.refusing());
    EXPECT_EQ(mask_.remark(), "");
    EXPECT_NE(mask_.grab().toImage(), refusing);
}

TEST_F(InputMaskTest, WritesNumbersLikeThePageAndTakesACommaForAPoint)
{
    language_ = "de";
    mask_.start({"Draw", "%", "0.35", {-2.5, 2.0}});
    EXPECT_EQ(mask_.pad().key(".")->text(), ".");
    EXPECT_EQ(mask_.shown(), "0.35 %");
    EXPECT_EQ(mask_.limits(), "Min -2.5   …   Max 2");
    QTest::keyClicks(&mask_, "1,5");
    EXPECT_EQ(mask_.shown(), "1.5 %");
    mask_.accept();
    EXPECT_EQ(accepted_, 1.5);
}

// A number of the page has as many digits as it shows, whatever lies behind them.
TEST_F(InputMaskTest, LeavingTheTextOfThePageChangesNothing)
{
    mask_.start({"Draw", "%", "0.1", {}});
    mask_.accept();
    EXPECT_EQ(accepted_, 0.1);
    EXPECT_FALSE(changed_);
}

TEST_F(InputMaskTest, SaysWhyAMinusIsNotTaken)
{
    start(5, 0.5, 10.0);
    QTest::keyClicks(&mask_, "-");
    EXPECT_EQ(mask_.shown(), "5 %");
    EXPECT_TRUE(mask_.refusing());
    EXPECT_EQ(mask_.remark(), "No minus: at least 0.5");
    QTest::keyClicks(&mask_, "7");
    EXPECT_FALSE(mask_.refusing());
    EXPECT_EQ(mask_.shown(), "7 %");
}

TEST_F(InputMaskTest, TakesTheSignBeforeTheDigitsAsAKeyboardHasIt)
{
    start(320, -500.0, 500.0);
    QTest::keyClicks(&mask_, "-12,5");
    mask_.accept();
    EXPECT_EQ(accepted_, -12.5);
}

TEST_F(InputMaskTest, TakesDigitsOfOtherScripts)
{
    start(320, 0.0, 500.0);
    QTest::sendKeyEvent(QTest::Click, &mask_, Qt::Key_unknown, QStringLiteral("٤"), {});
    QTest::sendKeyEvent(QTest::Click, &mask_, Qt::Key_unknown, QStringLiteral("٢"), {});
    mask_.accept();
    EXPECT_EQ(accepted_, 42.0);
}

TEST_F(InputMaskTest, ArrowsOfAKeyboardStepAndDeleteClears)
{
    start(1.5, 0.0, 10.0);
    QTest::keyClick(&mask_, Qt::Key_Up);
    EXPECT_EQ(mask_.shown(), "1.6 %");
    QTest::keyClick(&mask_, Qt::Key_Down);
    QTest::keyClick(&mask_, Qt::Key_Down);
    EXPECT_EQ(mask_.shown(), "1.4 %");
    QTest::keyClick(&mask_, Qt::Key_Delete);
    EXPECT_EQ(mask_.shown(), " %");
}

TEST_F(InputMaskTest, AHeldReturnKeyAcceptsOnce)
{
    start(7, 0.0, 10.0);
    QKeyEvent held{QEvent::KeyPress, Qt::Key_Return, {}, {}, true};
    QCoreApplication::sendEvent(&mask_, &held);
    EXPECT_FALSE(accepted_.has_value());
}

TEST_F(InputMaskTest, FromRightToLeftTheKeysChangeSidesAndTheDigitsDoNot)
{
    start(7, 0.0, 10.0);
    const auto left = [&](const QString& name) { return mask_.pad().key(name)->x(); };
    EXPECT_LT(mask_.cancelKey().x(), mask_.okKey().x());
    EXPECT_GT(left("⌫"), left("9"));
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(mask_.cancelKey().x(), mask_.okKey().x());
    EXPECT_LT(left("⌫"), left("7"));
    EXPECT_LT(left("7"), left("8"));
    EXPECT_LT(left("8"), left("9"));
    stage_.setLayoutDirection(Qt::LeftToRight);
    EXPECT_LT(mask_.cancelKey().x(), mask_.okKey().x());
}

TEST_F(InputMaskTest, ANumberStandsBeforeItsUnitInEveryDirection)
{
    const QRect value{10, mask_.inner().top(), mask_.width() - 20, 40};
    const auto picture = [&] { return mask_.grab(value).toImage(); };
    start(7, 0.0, 10.0);
    const QImage leftToRight = picture();
    stage_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(picture(), leftToRight);
    // A unit in Arabic letters reads from the right, like the text around it.
    mask_.setField("Draw", QStringLiteral("مم"));
    const QImage arabic = picture();
    stage_.setLayoutDirection(Qt::LeftToRight);
    EXPECT_NE(picture(), arabic);
}

TEST_F(InputMaskTest, TakesPointAndCommaFromAKeyboardAndReturnAndEscape)
{
    start(7, 0.0, 10.0);
    QTest::keyClicks(&mask_, "2,5");
    EXPECT_EQ(mask_.shown().trimmed(), "2.5 %");
    QTest::keyClick(&mask_, Qt::Key_Backspace);
    QTest::keyClicks(&mask_, "7");
    QTest::keyClick(&mask_, Qt::Key_Return);
    EXPECT_EQ(accepted_, 2.7);
    QTest::keyClick(&mask_, Qt::Key_Escape);
    EXPECT_TRUE(cancelled_);
}

TEST_F(InputMaskTest, CancelReportsNoValue)
{
    start(7, 0.0, 10.0);
    tap("9");
    QTest::mouseClick(&mask_.cancelKey(), Qt::LeftButton);
    EXPECT_TRUE(cancelled_);
    EXPECT_FALSE(accepted_.has_value());
}

TEST_F(InputMaskTest, KeysLieInsideTheMaskAndDoNotOverlapOnAnyPanel)
{
    const std::pair<QSize, QSize> panels[]{
        {{1280, 1024}, {360, 460}}, {{1024, 768}, {288, 345}}, {{800, 600}, {225, 269}}};
    for (const auto& [stage, size] : panels) {
        stage_.resize(stage);
        mask_.resize(size);
        QList<QRect> places{
            {mask_.pad().geometry()}, {mask_.okKey().geometry()}, {mask_.cancelKey().geometry()}};
        for (int i = 0; i < places.size(); ++i) {
            EXPECT_TRUE(mask_.rect().contains(places[i])) << i << " at width " << size.width();
            for (int j = i + 1; j < places.size(); ++j)
                EXPECT_FALSE(places[i].intersects(places[j])) << i << j;
        }
        EXPECT_GE(mask_.pad().key("5")->height(), 30) << size.width();
        EXPECT_GE(mask_.pad().key("5")->width(), 45) << size.width();
    }
}

// Nobody knows whether the machine still holds it.
TEST_F(InputMaskTest, ANumberEnteredOverAnOldOneIsAChangeAndTheOldOneLeftAloneIsNone)
{
    MaskTask task{"Draw", "%", "5", {0.0, 10.0}};
    task.isOld = true;
    mask_.start(task);
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_EQ(accepted_, 5.0);
    EXPECT_FALSE(changed_);
    mask_.start(task);
    EXPECT_TRUE(mask_.showsOld());
    tap("5");
    EXPECT_FALSE(mask_.showsOld());
    QTest::mouseClick(&mask_.okKey(), Qt::LeftButton);
    EXPECT_TRUE(changed_);
}

TEST_F(InputMaskTest, AWholeNumberHasNoPointAndARefusedOneSaysWhy)
{
    MaskTask task{"Number", {}, "7", {0, 999}};
    task.isWhole = true;
    mask_.start(task);
    EXPECT_FALSE(mask_.pad().key(".")->isOn());
    QTest::keyClicks(&mask_, "4,");
    EXPECT_TRUE(mask_.refusing());
    EXPECT_EQ(mask_.remark(), "Whole numbers only");
    QTest::keyClicks(&mask_, "5");
    EXPECT_EQ(mask_.shown(), "45");
    QTest::keyClick(&mask_, Qt::Key_Return);
    EXPECT_EQ(accepted_, 45.0);
    // The next field may be another one.
    start(1, 0, 2);
    EXPECT_TRUE(mask_.pad().key(".")->isOn());
}

TEST_F(InputMaskTest, ADigitThatDoesNotFitIsNotDroppedWithoutASign)
{
    start(0, {}, {});
    QTest::keyClicks(&mask_, "1234567890123");
    EXPECT_EQ(mask_.shown().trimmed(), "123456789012 %");
    EXPECT_EQ(mask_.remark(), "Too long, characters at most: 12");
}
