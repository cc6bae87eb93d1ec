#pragma once

#include "flaky_variables.h"
#include "test_project.h"

#include "panel/form/eingabemaske.h"
#include "panel/form/header.h"
#include "panel/form/label.h"
#include "panel/form/schalter.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"
#include "platform/ids.h"
#include "support/standard_project.h"

#include <gtest/gtest.h>

#include <functional>

namespace servopanel::testing {

using basic::Variant;
using panel::LinkQuality;
using panel::Operator;
using panel::Panel;
using panel::TextView;

inline const std::string setpoints = "Ch1.M1_T_servo_3<.mM1_servo_para_3>";
inline const std::string secondSetpoints = "Ch1.M1_T_servo_3<.mM1_servo_para2_3>";
inline const std::string switches = "Ch1.M1_T_servo_3<.mM1_servo_schalt_3>";
inline const std::string drawings = "Ch1.M1_T_servo_3<.mM1_servo_zeich_3>";
inline const std::string actualValues = "Ch1.M1_T_servo_3<.mM1_servo_diag_31>";
inline const std::string faultText = "Ch1.M1_T_servo_3<.mM1_fetext_31>";
inline const std::string changedFlag = "Ch1.M1_T_servo_3<.mM1_servoaender_3>";
inline const std::string otherSetpoints = "Ch1.M1_T_servo_5<.mM1_servo_para_5>";
inline const std::string otherSwitches = "Ch1.M1_T_servo_5<.mM1_servo_schalt_5>";
inline const std::string otherDrawings = "Ch1.M1_T_servo_5<.mM1_servo_zeich_5>";
constexpr int refreshMs = 700; // the page has refreshed its values once meanwhile

// The page of servo 3, over variables that fail as a test wishes.
class ServoPageTest : public ::testing::Test {
protected:
    // adjust: of the settings that the panel is made with.
    explicit ServoPageTest(
        int resolution = 1280, const std::function<void(panel::PanelSettings&)>& adjust = {})
    {
        panel::PanelSettings settings = project_.settings();
        settings.resolution = resolution;
        settings.wrapVariables = [this](std::shared_ptr<platform::ProcessVarAccess> inner) {
            flaky_ = std::make_shared<FlakyVariables>(std::move(inner));
            return flaky_;
        };
        if (adjust) adjust(settings);
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<MessageReader>(*panel_);
        panel_->window().show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel_->window()));
        panel_->openServo();
        hands_ = std::make_unique<Operator>(*panel_);
        hands_->menuKey(1);
    }

    panel::Child& child(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return panel_->shownPart()->require<panel::Child>(name, index);
    }
    TextView& text(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return static_cast<TextView&>(child(name, index).view());
    }
    void change(std::string_view name, std::int16_t index, const std::string& number)
    {
        hands_->input(name, index);
        hands_->type(number);
        hands_->ok();
    }
    LinkQuality quality()
    {
        auto& bar = panel_->servo()->require<panel::HeaderChild>("Header").bar();
        bar.refresh();
        return bar.shown().quality;
    }
    std::string answer() { return panel_->answers().text().toStdString(); }

    TestProject project_{standardProject};
    std::shared_ptr<FlakyVariables> flaky_;
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
};

} // namespace servopanel::testing
