// What a trend is made of, without a panel: history, scale, sampler, plot, sheet.
#include "basic/error.h"
#include "panel/runtime/watched_variables.h"
#include "panel/trends/axis.h"
#include "panel/trends/line_mark.h"
#include "panel/trends/sampler.h"
#include "panel/trends/trend_sheet.h"

#include <gtest/gtest.h>

#include <QTest>

#include <cmath>
#include <limits>
#include <set>

using namespace servopanel;
using basic::Variant;
using panel::Axis;
using panel::History;
using panel::Sampler;
using panel::TrendPlot;
using panel::TrendSheet;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view actualValues = "Ch1.M1_T_servo_3<.mM1_servo_diag_31>";

QString wordOf(panel::PanelText text) { return panel::panelWord(text, "en"); }

// Values of one column, one a second from 0 on.
History history(const std::vector<double>& values)
{
    History made{1, 2000};
    for (std::size_t i = 0; i < values.size(); ++i)
        made.add(static_cast<double>(i), std::array{values[i]});
    return made;
}

// How many pixels of a column of the picture have about the colour of a curve.
int painted(const QImage& image, int x, int mark)
{
    const QColor wanted = panel::markColour(mark);
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QColor found = image.pixelColor(x, y);
        if (std::abs(found.red() - wanted.red()) < 40 && std::abs(found.green() - wanted.green()) < 40
            && std::abs(found.blue() - wanted.blue()) < 40)
            ++sum;
    }
    return sum;
}

int pixelOf(const TrendPlot& plot, double age)
{
    const QRect area = plot.area();
    return area.left() + static_cast<int>((plot.span() - age) / plot.span() * area.width());
}

class TrendPlotTest : public ::testing::Test {
protected:
    void show(const History& values, double now)
    {
        plot_.resize(640, 300);
        plot_.setHistory(values);
        plot_.setLines({{0, 0, "Speed", "m/min"}});
        plot_.setNow(now);
    }
    QImage picture() { return plot_.grab().toImage(); }
    TrendPlot plot_{nullptr};
};

} // namespace

TEST(TrendHistory, KeepsTheNewestRowsInOrder)
{
    History values{2, 3};
    for (int i = 1; i <= 5; ++i)
        values.add(i, std::array{i * 10.0, i * 100.0});
    ASSERT_EQ(values.rows(), 3U);
    EXPECT_EQ(values.time(0), 3);
    EXPECT_EQ(values.value(2, 0), 50);
    EXPECT_EQ(values.value(2, 1), 500);
    EXPECT_EQ(values.newest(1), 500);
    EXPECT_EQ(values.firstSince(3.5), 1U);
    EXPECT_EQ(values.firstSince(0), 0U);
    EXPECT_EQ(values.firstSince(6), 3U);
}

TEST(TrendHistory, IsAsLargeAfterWeeksAsAfterMinutes)
{
    History values{40, 100};
    for (int i = 0; i < 100'000; ++i)
        values.add(i, std::array{1.0});
    EXPECT_EQ(values.rows(), 100U);
    EXPECT_EQ(values.time(0), 99'900);
    EXPECT_TRUE(std::isnan(values.newest(1)));
}

TEST(TrendHistory, NeverGoesBackInTime)
{
    History values{1, 10};
    values.add(5, std::array{1.0});
    values.add(4, std::array{2.0});
    EXPECT_EQ(values.rows(), 1U);
}

TEST(TrendAxis, HasStepsThatReadWell)
{
    struct Case {
        double least, most, low, high;
    };
    for (const Case& each : {Case{0, 10, 0, 20}, Case{3.1, 4.7, 3, 5}, Case{-7, 12, -10, 30},
             Case{0, 0.0031, 0, 0.004}, Case{1200, 1203, 1200, 1204}}) {
        const Axis axis = Axis::around(each.least, each.most, 4);
        EXPECT_LE(axis.low, each.least);
        EXPECT_GE(axis.high(), each.most);
        EXPECT_NEAR(axis.low, each.low, 1e-9) << each.least << " " << each.most;
        EXPECT_NEAR(axis.high(), each.high, 1e-9) << each.least << " " << each.most;
    }
}

TEST(TrendAxis, BearsAnyValues)
{
    for (const double value : {0.0, 5.0, -5.0, 1e-12, 1e15, -1e300, 1e308})
        for (const double room : {0.0, 1e-9, 1.0, 1e12}) {
            const Axis axis = Axis::around(value, value + room, 4);
            EXPECT_TRUE(std::isfinite(axis.low)) << value << " " << room;
            EXPECT_GT(axis.step, 0) << value << " " << room;
            EXPECT_LT(axis.label(4).size(), 14) << axis.label(4).toStdString();
        }
    EXPECT_EQ(Axis::around(49.9, 50.1, 4).label(0), "49.90");
    EXPECT_EQ(Axis::around(-1, 1, 4).label(2), "0.0");
}

TEST(TrendHistory, ValuesReadWithTheDecimalsThatTheyHadLately)
{
    const History values = history({41.25, 41, 40.5, none});
    EXPECT_EQ(panel::valueText(values, 0, 41), "41.00");
    EXPECT_EQ(panel::valueText(values, 0, none), "–");
    EXPECT_EQ(panel::valueText(history({1797, 1800}), 0, 1797), "1797");
    EXPECT_EQ(panel::valueText(history({1e12}), 0, 1e12), "1e+12");
}

TEST(TrendSampler, TakesWhatThePageReads)
{
    double now = 0;
    Sampler sampler{[](std::string_view) { return Variant{}; }, [&] { return now; }};
    const Variant values = basic::doubles({1.5, 2.5});
    sampler.seen("Ch1.M1_T_servo_3<.mM1_servo_para_3>", &values);
    EXPECT_EQ(sampler.history().rows(), 0U);
    sampler.seen(actualValues, &values);
    EXPECT_EQ(sampler.history().newest(1), 2.5);
    EXPECT_TRUE(std::isnan(sampler.history().newest(2)));
    now = 1;
    sampler.seen(actualValues, nullptr);
    EXPECT_TRUE(std::isnan(sampler.history().newest(0)));
    EXPECT_EQ(sampler.history().rows(), 2U);
}

TEST(TrendSampler, ReadsTheSameVariableItselfAndLeavesAGapWhenThatFails)
{
    double now = 0;
    bool fails = false;
    std::string asked;
    Sampler sampler{[&](std::string_view name) {
                        asked = name;
                        if (fails) basic::raise(basic::ErrorNumber::InvalidProcedureCall);
                        return basic::doubles({7.0});
                    },
        [&] { return now; }};
    sampler.sample(); // nothing to read yet
    EXPECT_TRUE(asked.empty());
    const Variant values = basic::doubles({1.5});
    sampler.seen(actualValues, &values);
    now = 0.2;
    sampler.sample();
    EXPECT_EQ(asked, actualValues);
    EXPECT_EQ(sampler.history().newest(0), 7);
    fails = true;
    now = 0.4;
    sampler.sample();
    EXPECT_TRUE(std::isnan(sampler.history().newest(0)));
}

TEST(TrendSampler, StartsAnewWithAnotherVariable)
{
    Sampler sampler{[](std::string_view) { return Variant{}; }, [] { return 1.0; }};
    int changes = 0;
    sampler.setChanged([&] { ++changes; });
    const Variant values = basic::doubles({1.5});
    sampler.seen(actualValues, &values);
    sampler.seen(actualValues, &values);
    EXPECT_EQ(changes, 1);
    sampler.seen("Ch1.M1_T_servo_3<.mM1_servo_diag_32>", &values);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(sampler.history().rows(), 1U);
}

TEST(TrendSampler, WhatIsNoNumberIsAGap)
{
    Sampler sampler{[](std::string_view) { return Variant{}; }, [] { return 1.0; }};
    for (const Variant& value : {Variant{}, Variant{"12"}, Variant{3.0}, basic::doubles({none})}) {
        sampler.seen(actualValues, &value);
        EXPECT_TRUE(std::isnan(sampler.history().newest(0)));
    }
}

TEST(WatchedVariables, TellsOfEveryReadAndPassesErrorsOn)
{
    struct Source : platform::ProcessVarAccess {
        Variant ReadValue(std::string_view name) override
        {
            if (name == "bad") basic::raise(basic::ErrorNumber::InvalidProcedureCall);
            return Variant{5.0};
        }
        void WriteValue(std::string_view name, const Variant&) override { written = name; }
        std::string written;
    };
    const auto source = std::make_shared<Source>();
    std::string told;
    panel::WatchedVariables variables{source};
    variables.setObserver([&](std::string_view name, const Variant* value) {
        told += std::string{name} + (value != nullptr ? "+" : "-");
    });
    EXPECT_EQ(variables.ReadValue("good"), Variant{5.0});
    EXPECT_THROW(variables.ReadValue("bad"), basic::Error);
    variables.WriteValue("w", Variant{1.0});
    EXPECT_EQ(variables.look("seen"), Variant{5.0});
    EXPECT_EQ(told, "good+bad-");
    EXPECT_EQ(source->written, "w");
    // What is read while the connection is bad is old.
    variables.setLink(false);
    EXPECT_EQ(variables.ReadValue("good"), Variant{5.0});
    EXPECT_THROW(variables.look("Ch1.M1<.seen>"), basic::Error);
    // What describes the panel itself needs no connection.
    EXPECT_EQ(variables.look("parameter<.seen>"), Variant{5.0});
    EXPECT_EQ(told, "good+bad-good-");
}

TEST_F(TrendPlotTest, DrawsTheCurveFromLeftToRightWithThePresentAtTheRight)
{
    std::vector<double> values(61);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i);
    const History rising = history(values);
    show(rising, 60);
    const QImage image = picture();
    for (const double age : {55.0, 31.0, 3.0})
        EXPECT_GT(painted(image, pixelOf(plot_, age), 0), 0) << age;
    // Rising: the left end is lower than the right one.
    const Axis& axis = plot_.axis(0);
    EXPECT_LE(axis.low, 0);
    EXPECT_GE(axis.high(), 60);
}

TEST_F(TrendPlotTest, NeverDrawsAcrossAGap)
{
    std::vector<double> values(61, 5.0);
    for (std::size_t i = 20; i < 40; ++i)
        values[i] = none;
    const History broken = history(values);
    show(broken, 60);
    const QImage image = picture();
    EXPECT_GT(painted(image, pixelOf(plot_, 50), 0), 0);
    EXPECT_EQ(painted(image, pixelOf(plot_, 30), 0), 0);
    EXPECT_GT(painted(image, pixelOf(plot_, 10), 0), 0);
}

TEST_F(TrendPlotTest, ALongSilenceIsAGapToo)
{
    History silent{1, 100};
    for (int i = 0; i <= 60; ++i)
        if (i < 20 || i > 40) silent.add(i, std::array{5.0});
    show(silent, 60);
    EXPECT_EQ(painted(picture(), pixelOf(plot_, 30), 0), 0);
}

TEST_F(TrendPlotTest, TheFingerReadsTheValueBelowIt)
{
    std::vector<double> values(61);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i) * 2;
    values[10] = values[9] = values[11] = none;
    const History rising = history(values);
    show(rising, 60);
    EXPECT_FALSE(plot_.cursor());
    QTest::mousePress(&plot_, Qt::LeftButton, {}, {pixelOf(plot_, 20), 100});
    ASSERT_TRUE(plot_.cursor());
    EXPECT_NEAR(*plot_.cursor(), 40, 0.3);
    EXPECT_EQ(plot_.valueAtCursor({0, 0, {}, {}}), 80);
    QTest::mouseMove(&plot_, {pixelOf(plot_, 50), 100});
    QMouseEvent drag{
        QEvent::MouseMove, QPointF(pixelOf(plot_, 50), 100), QPointF(), Qt::NoButton, Qt::LeftButton, {}};
    QCoreApplication::sendEvent(&plot_, &drag);
    EXPECT_TRUE(std::isnan(plot_.valueAtCursor({0, 0, {}, {}})));
    QTest::mouseRelease(&plot_, Qt::LeftButton, {}, {pixelOf(plot_, 50), 100});
    EXPECT_FALSE(plot_.cursor());
}

TEST_F(TrendPlotTest, FrozenItStandsStillWhileValuesGoOn)
{
    History values{1, 100};
    for (int i = 0; i <= 60; ++i)
        values.add(i, std::array{5.0 + i % 3});
    show(values, 60);
    plot_.setFrozen(true);
    QTest::mouseClick(&plot_, Qt::LeftButton, {}, {pixelOf(plot_, 20), 100});
    const QImage before = picture();
    for (int i = 61; i <= 200; ++i)
        values.add(i, std::array{50.0});
    plot_.setNow(200);
    EXPECT_EQ(picture(), before);
    EXPECT_NEAR(*plot_.cursor(), 40, 0.3); // stays where the finger left it
    plot_.setFrozen(false);
    plot_.setNow(200);
    EXPECT_NE(picture(), before);
    EXPECT_GT(plot_.axis(0).high(), 50);
}

TEST_F(TrendPlotTest, OneScaleForAllOrOneForEach)
{
    History values{2, 100};
    for (int i = 0; i <= 60; ++i)
        values.add(i, std::array{1.0 + i % 2, 1000.0 + i});
    show(values, 60);
    plot_.setLines({{0, 0, "a", ""}, {1, 1, "b", ""}});
    EXPECT_LT(plot_.axis(0).high(), 10);
    EXPECT_GE(plot_.axis(1).low, 900);
    plot_.setShared(true);
    EXPECT_LE(plot_.axis(0).low, 1);
    EXPECT_GE(plot_.axis(0).high(), 1060);
    EXPECT_EQ(plot_.axis(1).high(), plot_.axis(0).high());
}

TEST_F(TrendPlotTest, TheScaleStaysWhileTheValuesFit)
{
    History values{1, 1000};
    for (int i = 0; i <= 60; ++i)
        values.add(i, std::array{i % 2 == 0 ? 0.0 : 95.0});
    show(values, 60);
    const double high = plot_.axis(0).high();
    for (int i = 61; i <= 130; ++i)
        values.add(i, std::array{i % 2 == 0 ? 10.0 : 70.0});
    plot_.setNow(130);
    EXPECT_EQ(plot_.axis(0).high(), high);
    values.add(131, std::array{500.0});
    plot_.setNow(131);
    EXPECT_GE(plot_.axis(0).high(), 500);
}

TEST_F(TrendPlotTest, WithoutAnyValueItIsEmptyButThere)
{
    const History empty{1, 10};
    show(empty, 0);
    EXPECT_FALSE(picture().isNull());
    plot_.resize(20, 10);
    EXPECT_FALSE(picture().isNull());
}

TEST(TrendSheet, HoldsFourValuesEachWithAMarkOfItsOwn)
{
    TrendSheet sheet{nullptr, wordOf};
    const History values{40, 10};
    sheet.plot().setHistory(values);
    for (std::size_t column = 0; column < 4; ++column)
        EXPECT_TRUE(sheet.add(column, "Value", "mm"));
    EXPECT_FALSE(sheet.add(7, "Fifth", "mm"));
    EXPECT_TRUE(sheet.add(2, "Value", "mm")); // is there
    EXPECT_EQ(sheet.lines().size(), 4U);
    sheet.remove(1);
    EXPECT_TRUE(sheet.add(7, "Fifth", "mm"));
    std::set<int> marks;
    for (const panel::TrendLine& line : sheet.lines())
        marks.insert(line.mark);
    EXPECT_EQ(marks.size(), 4U);
}

TEST(TrendSheet, TakingTheLastValueAwayClosesIt)
{
    TrendSheet sheet{nullptr, wordOf};
    const History values{40, 10};
    sheet.plot().setHistory(values);
    sheet.resize(800, 240);
    sheet.add(3, "Value", "mm");
    bool closes = false;
    sheet.setWishHandler([&](TrendSheet::Wish wish) { closes = wish == TrendSheet::Wish::Close; });
    QTest::mouseClick(&sheet.legend(0).removeKey(), Qt::LeftButton);
    EXPECT_TRUE(sheet.lines().empty());
    EXPECT_TRUE(closes);
}

// A minute of 5 m/min, and 9 m/min now.
void showSpeed(TrendSheet& sheet, const History& values)
{
    sheet.plot().setHistory(values);
    sheet.resize(786, 180);
    sheet.add(0, "Speed", "m/min");
    sheet.plot().setNow(60);
    sheet.setValue(0, "9");
}

TEST(TrendSheet, TheFingersValuesStandBesideTheCurvesAndHideNone)
{
    TrendSheet sheet{nullptr, wordOf};
    const History values = history(std::vector<double>(61, 5.0));
    showSpeed(sheet, values);
    sheet.show();
    TrendPlot& plot = sheet.plot();
    const QRect area = plot.area();
    const QImage before = plot.grab(area).toImage();
    const int x = pixelOf(plot, 20);
    QTest::mousePress(&plot, Qt::LeftButton, {}, {x, area.center().y()});
    EXPECT_EQ(sheet.legend(0).value(), "5");
    const QImage touched = plot.grab(area).toImage();
    int changed = 0;
    for (int column = 0; column < area.width(); ++column)
        if (touched.copy(column, 0, 1, area.height()) != before.copy(column, 0, 1, area.height())) ++changed;
    EXPECT_GT(changed, 0);
    EXPECT_LT(changed, 15); // the line and the mark on the curve
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, {x, area.center().y()});
    EXPECT_EQ(sheet.legend(0).value(), "9");
}

TEST(TrendSheet, FrozenItKeepsTheFingersValuesUntilItGoesOn)
{
    TrendSheet sheet{nullptr, wordOf};
    const History values = history(std::vector<double>(61, 5.0));
    showSpeed(sheet, values);
    sheet.plot().setFrozen(true);
    QTest::mouseClick(&sheet.plot(), Qt::LeftButton, {}, {pixelOf(sheet.plot(), 20), 50});
    EXPECT_EQ(sheet.legend(0).value(), "5");
    sheet.plot().setFrozen(false);
    EXPECT_EQ(sheet.legend(0).value(), "9");
}

TEST(TrendSheet, MirrorsItsKeysButNotTheTime)
{
    TrendSheet sheet{nullptr, wordOf};
    const History values{40, 10};
    sheet.plot().setHistory(values);
    sheet.resize(1266, 300);
    sheet.show();
    EXPECT_LT(sheet.spanKey(0).x(), sheet.closeKey().x());
    EXPECT_LT(sheet.plot().x(), sheet.legend(0).x());
    sheet.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(sheet.spanKey(0).x(), sheet.closeKey().x());
    EXPECT_GT(sheet.plot().x(), sheet.legend(0).x());
    EXPECT_EQ(sheet.plot().layoutDirection(), Qt::LeftToRight);
}
